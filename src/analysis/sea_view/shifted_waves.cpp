#include "analysis/sea_view/shifted_waves.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>

#include "analysis/do_or_say.h"
#include "analysis/sea_view/root_files.h"
#include "base/angles.h"
#include "base/grow.h"
#include "base/message.h"
#include "base/number_format.h"
#include "base/number_parse.h"
#include "base/table_text.h"
#include "case/derived_arrays.h"
#include "case/ship_pose.h"
#include "case/size_history.h"
#include "case/tables/kino_output.h"
#include "case/wave_at_cg.h"
#include "control/input_scales.h"
#include "geometry/input_transform.h"
#include "waves/kino_sea.h"
#include "waves/wave_scale.h"

namespace zaview {
namespace {

constexpr std::string_view kNotAvailable = "ERROR - wave field output not available for this seaway";
constexpr std::string_view kScaled = "NOTE: the wave scale at this time step is {} : amplitudes are not scaled";
constexpr std::string_view kStokesNote = "NOTE: regular Stokes wave of order {} taken as one linear component";
constexpr std::string_view kOfSine = "phases are those of -sin(k*x-omega*t-phase)";
constexpr std::string_view kMotionHead =
    "   Time          Xcg           Ycg           Zcg           Roll         Pitch          Yaw"
    "           VHeave        Vpitch       AHeave       APitch"
    "           ElevCG       Elev_orig";
constexpr std::string_view kMotionNames[] = {"Time",   "Xcg",    "Ycg",    "Zcg",    "Roll",   "Pitch",    "Yaw",
                                             "VHeave", "Vpitch", "AHeave", "APitch", "ElevCG", "Elev_orig"};

// Of a direction along an axis, whose degrees are no whole radians.
double Cosine(double value) {
  constexpr double kAlongAxis = 1e-15;
  return std::abs(value) < kAlongAxis ? 0.0 : value;
}

Seaway Redefined(const Seaway& seaway, PhaseDefinition definition) {
  Seaway redefined = seaway;
  for (float& phase : redefined.waves.PHASEW)
    phase = static_cast<float>(InDefinition(static_cast<double>(phase), definition));
  return redefined;
}

std::array<float, std::size(kMotionNames)> MotionRow(const OutputSettings& settings, const CaseStore& c,
                                                     const ShiftOrigin& origin, int step, float eta) {
  const auto L = static_cast<double>(settings.units.LENOUT);
  const auto g = static_cast<double>(settings.units.GRAVOUT);
  const double speed = std::sqrt(g * L);
  const auto at = [step](const StepHistory& history, int i) { return static_cast<double>(history.at(i, step)); };
  const double values[] = {(at(c.time, 1) - origin.time) * static_cast<double>(settings.units.scales.T),
                           (at(c.pmgg, 1) - origin.x) * L,
                           (at(c.pmgg, 2) - origin.y) * L,
                           at(c.pmgg, 3) * L,
                           at(c.pmgg, 4) / kRadians,
                           at(c.pmgg, 5) / kRadians,
                           at(c.pmgg, 6) / kRadians,
                           at(c.vmgg, 3) * speed,
                           at(c.vmgg, 5) * (speed / L) / kRadians,
                           at(c.accg, 3) * g,
                           at(c.accg, 5) * (g / L) / kRadians,
                           at(c.eta_cg, 1) * L,
                           static_cast<double>(eta) * L};
  std::array<float, std::size(kMotionNames)> cells{};
  std::transform(std::begin(values), std::end(values), cells.begin(),
                 [](double value) { return static_cast<float>(value); });
  return cells;
}

bool MakeMotions(const Console& console, const OutputSettings& settings, const ShiftedWaves& waves, CaseStore& c,
                 std::string& text) {
  const std::vector<float> x(StepsInStore(c), static_cast<float>(waves.origin.x));
  const std::vector<float> y(StepsInStore(c), static_cast<float>(waves.origin.y));
  std::vector<float> eta(StepsInStore(c));
  WaveAnswer answer = IncidentWaveAtCG(console, c);
  if (answer == WaveAnswer::ok) answer = WaveAlong(console, c, x, y, eta);
  const bool derived = EnsureDerived(c, Derived::vmgg) && EnsureDerived(c, Derived::accg);
  if (answer == WaveAnswer::no_memory || !derived) SayLine(console, kNoShiftMemory);
  if (answer != WaveAnswer::ok || !derived) return false;

  const TableLayout layout{settings.writing.separator, {}};
  const std::vector<std::string> names(std::begin(kMotionNames), std::end(kMotionNames));
  text.clear();
  if (layout.separator == Separator::space) text.append(kMotionHead).append("\n");
  else AppendHeading(text, layout, names);
  for (int step = waves.origin.step; step <= c.last_step; ++step) {
    if (InGap(c, step)) continue;
    const auto s = static_cast<std::size_t>(step - c.first_read);
    AppendRow(text, layout, MotionRow(settings, c, waves.origin, step, eta[s]));
  }
  return true;
}

}  // namespace

ShiftOrigin ShiftOriginOf(const CaseStore& case_store, int step) {
  const ControlRecords& control = case_store.control;
  const InputScales scales = InputScalesOf(control);
  const Vector3 origin = ShipToEarth(PoseAtStart(case_store), FromCentre(case_store, InputToShip(control, {0, 0, 0})));
  const auto time = static_cast<double>(case_store.time.at(1, step));
  const double travelled = control.USHIP * scales.velocity * (time - control.TINIT * scales.time);
  return {step, time, travelled + origin[0], origin[1]};
}

bool MakeShiftedWaves(const Console& console, int step, CaseStore& case_store, ShiftedWaves& waves) {
  const WaveAnswer answer = EnsureSeaway(console, case_store);
  if (answer == WaveAnswer::no_wave) return false;
  const Seaway& seaway = case_store.seaway;
  if (answer == WaveAnswer::ok && !CanBeShifted(seaway)) {
    SayLine(console, kNotAvailable);
    return false;
  }
  waves.origin = ShiftOriginOf(case_store, step);
  if (answer == WaveAnswer::no_memory || !ShiftWaves(seaway, waves.origin, waves.seaway)) {
    SayLine(console, kNoShiftMemory);
    return false;
  }
  if (seaway.ISEA == 3) Say(console, kStokesNote, seaway.WSPEC);
  const double scale = WaveScaleAtStep(seaway.scaling, step).scale;
  if (scale != 1.0) Say(console, kScaled, Shown{static_cast<float>(scale)});
  return true;
}

bool ShiftedSeawayText(const OutputSettings& settings, const CaseStore& case_store, const ShiftedWaves& waves,
                       PhaseDefinition definition, std::string& text) {
  return Guarded(
      [&] {
        KinoSeaForm form{.comments = {}, .always_a_list = true};
        if (case_store.seaway.ISEA == 3)
          form.comments.push_back(fmt::format(fmt::runtime(kStokesNote), case_store.seaway.WSPEC));
        if (definition == PhaseDefinition::negative_sine) form.comments.emplace_back(kOfSine);
        const std::string name = fmt::format("{} shifted to time step {}", case_store.file_name, waves.origin.step);
        return KINOSE(case_store.control, Redefined(waves.seaway, definition), KinoUnitsOf(settings), name, text, form);
      },
      false);
}

std::string ComponentTable(const OutputSettings& settings, const CaseStore& case_store, const ShiftedWaves& waves,
                           PhaseDefinition definition) {
  constexpr std::string_view kIndex = "!Index";
  const std::string names[] = {std::string(kIndex), "Frequency", "Period",        "Heading",
                               "Amplitude",         "Phase",     "-cos(Heading)", "-sin(Heading)"};
  std::string text = fmt::format(
      "!Wave components of ZAVO file {} shifted to time step {}, elevation {}\n", case_store.file_name,
      waves.origin.step, definition == PhaseDefinition::cosine ? "cos(k*x-omega*t+phase)" : "-sin(k*x-omega*t-phase)");
  TableLayout layout = LayoutFor(settings.writing.separator, names);
  layout.widths[0] = static_cast<int>(kIndex.size());
  AppendHeading(text, layout, names);
  const WaveComponents& list = waves.seaway.waves;
  const auto T = static_cast<double>(settings.units.scales.T);
  for (std::size_t i = 0; i < list.size(); ++i) {
    const auto w = static_cast<double>(list.FREQW[i]);
    const double b = static_cast<double>(list.HEADW[i]) * kRadians;
    const double period = w > 0.0 ? kTwoPi / w * T : 0.0;
    const double values[] = {w / T,
                             period,
                             static_cast<double>(list.HEADW[i]),
                             static_cast<double>(list.AMPW0[i]) * static_cast<double>(settings.units.LENOUT),
                             InDefinition(static_cast<double>(list.PHASEW[i]), definition),
                             Cosine(-std::cos(b)),
                             Cosine(-std::sin(b))};
    std::array<float, std::size(values)> cells{};
    std::transform(std::begin(values), std::end(values), cells.begin(),
                   [](double value) { return static_cast<float>(value); });
    AppendLabelledRow(text, layout, fmt::format("{:>{}}", i + 1, kIndex.size()), cells);
  }
  return text;
}

bool ShiftedMotions(const Console& console, const OutputSettings& settings, const ShiftedWaves& waves,
                    CaseStore& case_store, std::string& text) {
  return DoOrSay(console, kNoShiftMemory, [&] { return MakeMotions(console, settings, waves, case_store, text); });
}

bool WriteShiftedWaves(const Platform& platform, const OutputSettings& settings, int step, std::string_view root,
                       CaseStore& case_store) {
  constexpr RootFile kFiles[] = {
      {".sea", kWritingSeaway, ""}, {".cdw", kWritingComponents, ""}, {".smot", kWritingMotions, ""}};
  const Console& console = platform.console;
  ShiftedWaves waves;
  RootFiles files;
  if (!MakeShiftedWaves(console, step, case_store, waves) || !OpenRootFiles(platform, case_store, root, kFiles, files))
    return false;
  std::string sea, motions;
  const bool sea_made = ShiftedSeawayText(settings, case_store, waves, PhaseDefinition::cosine, sea);
  if (!sea_made) SayLine(console, kNoShiftMemory);
  if (!sea_made || !ShiftedMotions(console, settings, waves, case_store, motions)) {
    DiscardRootFiles(files);
    return false;
  }
  WriteOutput(files.out[0], sea);
  WriteOutput(files.out[1], ComponentTable(settings, case_store, waves, PhaseDefinition::negative_sine));
  WriteOutput(files.out[2], motions);
  return CloseRootFiles(console, files);
}

}  // namespace zaview
