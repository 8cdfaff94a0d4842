#include "analysis/righting_arms/righting_arms.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "analysis/do_or_say.h"
#include "base/message.h"
#include "case/ship_pose.h"
#include "case/size_history.h"
#include "case/wave_at_cg.h"
#include "control/input_scales.h"
#include "frame/ground/output_set.h"
#include "frame/ground/progress_line.h"
#include "waves/wave_scale.h"

namespace zaview {
namespace {

constexpr std::string_view kIllegalDirection = "Illegal direction option";
constexpr std::string_view kIllegalBalance = "Illegal balancing option";
constexpr std::string_view kIllegalWave = "Illegal incident wave interpolation option";
constexpr std::string_view kIllegalAngles[] = {"Illegal heel angle max/number", "Illegal trim angle max/number"};

constexpr std::string_view kCalculating = "Calculating GZ curves for time step... {}";
constexpr std::string_view kNoForce = "ERROR - computed buoyancy force is zero or negative";
constexpr std::string_view kNoSlope = "ERROR - dbuoyfdz=0.0";
constexpr std::string_view kSingular = "ERROR - singular matrix in balancing iteration";
constexpr std::string_view kForceFault = "ERROR computing buoyancy force";
constexpr std::string_view kNotConverged[] = {"WARNING - sinkage/trim did not converge for heel= {} at time step= {}",
                                              "WARNING - sinkage/heel did not converge for pitch= {} at time step= {}"};
constexpr std::string_view kFatal[] = {"Fatal error calculating GZ curve", "Fatal error calculating GZL curve"};
constexpr std::string_view kAnalysis = "ERROR in GZ calculation for dynamic stability analysis";
constexpr std::string_view kNoTable = "LOGIC ERROR #1 in GZ calculation";
constexpr std::string_view kInterrupted = "GZ curve analysis interrupted at time step {}";
constexpr std::string_view kNoMemory = "ERR??? - Memroy allocation error for hydrostatic calculation (FHSV)";
constexpr std::string_view kSurfaces = "ERR??? : Unsymmetric hydrostatics cannot be computed as MAXCMP is too small";
constexpr std::string_view kElements = "ERR??? : Unsymmetric hydrostatics cannot be computed as MAXFEG is too small";
constexpr std::string_view kPanels[] = {
    "ERR308 - More panels than space allocated:", "Body panelization for non-linear hydrostatics requires {}",
    "by the dimensioning parameter MAXBP0= {}", "Panel limit exceeded - Execution terminating"};

constexpr std::string_view kOpening = "ERRGZSTAB02 - ERROR opening {} {}{}";
constexpr std::string_view kSameName = "ERRGZSTAB02 - ERROR the analysis has two output files of this name: {}";
struct FileTexts {
  std::string_view opening[2];  // by direction
  std::string_view ending;      // behind the name of the statistics
  std::string_view written[2];
};
constexpr FileTexts kFileTexts[kArmFiles] = {
    {{"GZ curve output file:", "GZL stability output file:"},
     "",
     {"GZ curves written to: ", "GZL curves written to: "}},
    {{"GZ stats output file:", "GZL stability output file:"},
     "",
     {"GZ curve stats written to: ", "GZL curve stats written to: "}},
    {{"GM/volume output file:", "GM/volume output file:"}, ".gm", {}},
    {{"GZ waterline output file:", "GZ waterline output file:"}, ".wl", {}},
};

std::size_t IndexOf(ArmDirection direction) {
  return direction == ArmDirection::transverse ? 0 : 1;
}

// ---- The case

HydrostaticFault StillForce(const HydrostaticBody& body, const CaseStore& store, ArmDirection direction,
                            BalanceAim& still) {
  Attitude attitude;
  if (store.kino_input) {
    attitude.cg[2] = store.pmgg.at(3, store.first_step);
    attitude.pitch = store.pmgg.at(5, store.first_step);
  } else {
    const InputScales scales = InputScalesOf(store.control);
    attitude.cg[2] = store.control.PMGIN[2] * scales.length;
    attitude.pitch = store.control.PMGIN[4] * scales.angle;
  }
  HydrostaticWork work;
  Hydrostatics h;
  const HydrostaticFault fault = EvalHydrostatics(body, {}, attitude, kForceOnly, work, h);
  if (fault != HydrostaticFault::none) return fault;
  still = {h.force[2], h.moment[direction == ArmDirection::transverse ? 1 : 0]};
  if (!(still.force > 0)) still = {store.control.SMA * InputScalesOf(store.control).mass, 0};
  return fault;
}

Attitude AttitudeAtStep(const CaseStore& store, int step) {
  const auto real = [&](int i) { return static_cast<double>(store.pmgg.at(i, step)); };
  return {{real(1), real(2), real(3)}, real(4), real(5), real(6)};
}

WaveTableRequest TableRequest(const CaseStore& store, const HydrostaticBody& body, const Attitude& attitude) {
  WaveTableRequest request;
  if (!store.control.wave_table.empty()) {
    const WaveTableInput& input = store.control.wave_table.front();
    const double length = InputScalesOf(store.control).length;
    request.NBASEX = input.NBASEX, request.NBASEY = input.NBASEY;
    request.XINTRP = input.XINTRP * length, request.YINTRP = input.YINTRP * length;
  }
  request.centre_x = attitude.cg[0], request.centre_y = attitude.cg[1];
  const Rotation R = ShipToGlobal(attitude.roll, attitude.pitch, attitude.yaw);
  request.ship_x_min = request.ship_x_max = attitude.cg[0];
  for (const Vector3& p : body.hull.vertices) {
    const double x = attitude.cg[0] + ToGlobal(R, p)[0];
    request.ship_x_min = std::min(request.ship_x_min, x);
    request.ship_x_max = std::max(request.ship_x_max, x);
  }
  return request;
}

// ---- What is said

bool SayBodyFault(const Console& console, BodyFault fault, std::size_t cells) {
  switch (fault) {
    case BodyFault::none:
      return true;
    case BodyFault::too_many_surfaces:
    case BodyFault::too_many_elements:
      SayLine(console, fault == BodyFault::too_many_surfaces ? kSurfaces : kElements);
      SayLine(console, kAnalysis);
      break;
    case BodyFault::too_many_panels:
      SayLine(console, kPanels[0]);
      Say(console, kPanels[1], cells);
      Say(console, kPanels[2], MAXBP0);
      SayLine(console, kPanels[3]);
      break;
    case BodyFault::no_memory:
      SayLine(console, kNoMemory);
      break;
  }
  return false;
}

void SayNote(const Console& console, ArmDirection direction, int step, const ArmNote& note) {
  switch (note.fault) {
    case RowFault::none:
      return;
    case RowFault::not_converged:
      return Say(console, fmt::runtime(kNotConverged[IndexOf(direction)]), fmt::format("{:.3f}", note.angle_deg), step);
    case RowFault::no_force:
      return SayLine(console, kNoForce);
    case RowFault::no_slope:
      return SayLine(console, kNoSlope);
    case RowFault::singular:
      return SayLine(console, kSingular);
    case RowFault::no_memory:
      return SayLine(console, kNoMemory);
  }
}

// ---- Files

bool IsOpen(const OutputFile& out) {
  return !out.to_console;
}

bool OpenOne(const Platform& platform, ArmDirection direction, ArmFile kind, const std::string& name, OpenHow how,
             RightingArmOutputs& outputs) {
  if (name.empty()) return true;
  OutputFile& out = outputs.at(kind);
  if (OpenOutput(platform, name, how, out)) return true;
  const std::string why = Because(out.why);
  out = OutputFile{};
  Say(platform.console, kOpening, kFileTexts[static_cast<std::size_t>(kind)].opening[IndexOf(direction)], name, why);
  return false;
}

// Behind one that can't be written the others stay as they were.
bool CloseFiles(const Platform& platform, const RightingArmRequest& request, RightingArmOutputs& outputs) {
  return CloseAll(platform.console, outputs.file, [&](std::size_t i) {
    const std::string_view words = kFileTexts[i].written[request.direction - 1];
    if (IsOpen(outputs.file[i]) && !words.empty()) Say(platform.console, "{}{}", words, outputs.file[i].name);
  });
}

// ---- The work

struct Work {
  const Platform& platform;
  const RightingArmRequest& request;
  const ArmSettings& settings;
  const CaseStore& store;
  const HydrostaticBody& body;
  const BalanceAim& still;
  RightingArmOutputs& outputs;
  RightingArms& result;
};

enum class StepAnswer : std::uint8_t { computed, none, out_of_memory };

StepAnswer Compute(const Work& work, int step, RightingArmStep& out) {
  const Console& console = work.platform.console;
  const CaseStore& store = work.store;
  out.step = step;
  out.attitude = AttitudeAtStep(store, step);
  out.centre = ShipCentre(store);
  const WaveMoment moment{static_cast<double>(store.time.at(1, step)),
                          WaveScaleAtStep(store.seaway.scaling, step).scale};
  WaterSurface water;
  if (!MakeWaterSurface(store.wave, moment, static_cast<WaveOption>(work.request.wave_option),
                        TableRequest(store, work.body, out.attitude), water)) {
    SayLine(console, kWaveTableLogic);
    SayLine(console, kNoTable);
    return StepAnswer::none;
  }
  if (!CalcArmCurve(work.body, water, out.attitude, work.settings, work.still, 0, out.curve)) {
    SayLine(console, kNoMemory);
    SayLine(console, kForceFault);
    return StepAnswer::out_of_memory;
  }
  for (const ArmNote& note : out.curve.notes) SayNote(console, work.settings.direction, step, note);
  if (!out.curve.computed) {
    SayLine(console, kFatal[IndexOf(work.settings.direction)]);
    return StepAnswer::none;
  }
  out.statistics = CalcArmStatistics(out.curve);
  return StepAnswer::computed;
}

void Report(const Work& work, const RightingArmStep& step) {
  const Console& console = work.platform.console;
  const bool statistics = work.request.menu || !IsOpen(work.outputs.at(ArmFile::statistics));
  const bool curve = work.request.menu || !IsOpen(work.outputs.at(ArmFile::curves));
  if (!work.request.menu && (statistics || curve)) SayArmStep(console, step);
  if (statistics) SayArmStatistics(console, work.result.tables, step);
  if (curve) SayArmCurve(console, work.result.tables, step);
  const bool first = work.result.steps.empty();
  for (std::size_t i = 0; i < kArmFiles; ++i)
    if (IsOpen(work.outputs.file[i]))
      WriteArmStep(work.result.tables, static_cast<ArmFile>(i), step, first, work.outputs.file[i]);
}

// False: given up.
bool RunSteps(const Work& work, float T) {
  const StepRange& range = work.request.steps;
  ProgressLine progress = StartProgress(work.platform, "Calculating GZ curves");
  bool good = true;
  for (int i = 0; good && i < range.count(); ++i) {
    const int step = range.step(i);
    if (InGap(work.store, step)) continue;
    if (work.request.menu) Say(work.platform.console, kCalculating, step);
    RightingArmStep out;
    out.time = work.store.time.at(1, step) * T;
    const StepAnswer answer = Compute(work, step, out);
    if (answer == StepAnswer::computed) {
      Report(work, out);
      out.curve.waterline = {};
      work.result.steps.push_back(std::move(out));
    }
    good = answer != StepAnswer::out_of_memory;
    if (good && TakeInterrupt(work.platform.console)) {
      Say(work.platform.console, kInterrupted, step);
      good = false;
    }
    ShowProgress(progress, static_cast<double>(i + 1) / range.count());
  }
  EndProgress(progress);
  return good;
}

bool Conduct(const Platform& platform, const OutputSettings& settings, const RightingArmRequest& request,
             CaseStore& store, RightingArmOutputs& outputs, RightingArms& result) {
  const Console& console = platform.console;
  HydrostaticBody body;
  const BodyFault fault = MakeHydrostaticBody(store.hull, ShipCentre(store), body);
  if (!SayBodyFault(console, fault, body.cells)) return false;
  if (EnsureSeaway(console, store) != WaveAnswer::ok) return false;
  const ArmSettings arms{static_cast<ArmDirection>(request.direction), request.balance,
                         static_cast<double>(request.max_angle), request.nangle};
  BalanceAim still;
  if (request.balance >= 3 && StillForce(body, store, arms.direction, still) != HydrostaticFault::none) {
    SayLine(console, kNoMemory);
    return false;
  }
  result = {{arms.direction, settings.writing.separator, static_cast<double>(settings.units.LENOUT)}, {}};
  for (std::size_t i = 0; i < kArmFiles; ++i)
    if (IsOpen(outputs.file[i])) WriteArmHead(result.tables, static_cast<ArmFile>(i), outputs.file[i]);
  const Work work{platform, request, arms, store, body, still, outputs, result};
  return RunSteps(work, settings.units.scales.T) && !result.steps.empty();
}

}  // namespace

bool CheckRightingArms(const Console& console, const CaseStore& case_store, RightingArmRequest& request) {
  std::string_view fault;
  if (!TakeStepRange(case_store, request.steps, request.steps)) fault = kIllegalStepRange;
  else if (request.direction != 1 && request.direction != 2) fault = kIllegalDirection;
  else if (request.balance < 0 || request.balance >= kBalanceOptions) fault = kIllegalBalance;
  else if (request.wave_option < 0 || request.wave_option >= kWaveOptions) fault = kIllegalWave;
  else if (!(request.max_angle > 0) || request.nangle < 1 || request.nangle > kMostArmAngles)
    fault = kIllegalAngles[request.direction - 1];
  if (fault.empty()) return true;
  SayLine(console, fault);
  return false;
}

bool OpenBesideStatistics(const Platform& platform, ArmDirection direction, RightingArmOutputs& outputs) {
  const OutputFile& statistics = outputs.at(ArmFile::statistics);
  const std::string name = statistics.name;
  const OpenHow how = statistics.how;
  bool good = true;
  for (const ArmFile kind : {ArmFile::volume, ArmFile::waterline}) {
    const std::string beside = name + std::string(kFileTexts[static_cast<std::size_t>(kind)].ending);
    good = good && (name.empty() || OpenOne(platform, direction, kind, beside, how, outputs));
  }
  good = good && AreDifferent(platform.console, outputs.file, kSameName);
  if (!good) DiscardRightingArmFiles(outputs);
  return good;
}

bool OpenRightingArmFiles(const Platform& platform, ArmDirection direction, const std::string& curves,
                          const std::string& statistics, RightingArmOutputs& outputs) {
  outputs = RightingArmOutputs{};
  if (!OpenOne(platform, direction, ArmFile::curves, curves, OpenHow::replace, outputs) ||
      !OpenOne(platform, direction, ArmFile::statistics, statistics, OpenHow::replace, outputs)) {
    DiscardRightingArmFiles(outputs);
    return false;
  }
  return OpenBesideStatistics(platform, direction, outputs);
}

void DiscardRightingArmFiles(RightingArmOutputs& outputs) {
  DiscardAll(outputs.file);
  outputs = RightingArmOutputs{};
}

ArmsAnswer GZCurves(const Platform& platform, const OutputSettings& settings, const RightingArmRequest& request,
                    CaseStore& case_store, RightingArmOutputs& outputs, RightingArms& result) {
  const auto conduct = [&] { return Conduct(platform, settings, request, case_store, outputs, result); };
  if (!DoOrSay(platform.console, kNoMemory, conduct)) {
    DiscardRightingArmFiles(outputs);
    return ArmsAnswer::failed;
  }
  return CloseFiles(platform, request, outputs) ? ArmsAnswer::ok : ArmsAnswer::failed;
}

}  // namespace zaview
