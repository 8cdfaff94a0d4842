#include "analysis/motion_tests/roll_decay_report.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <numbers>
#include <span>
#include <vector>

#include "analysis/motion_tests/upright_stability.h"
#include "base/angles.h"
#include "base/data_fault.h"
#include "base/message.h"
#include "base/number_format.h"
#include "base/table_text.h"
#include "case/case_hull.h"
#include "case/settings/step_range.h"
#include "frame/ground/prompts.h"
#include "frame/ground/table_dialogue.h"

namespace zaview {
namespace {

constexpr int kFreeMotion = 2;
constexpr int kHeave = 3, kRoll = 4, kPitch = 5;

constexpr std::string_view kFewPeaks = "ERR476 - Not enough amplitude peaks to compute the roll decay coefficients";
constexpr std::string_view kNoBuoyancy = "ERROR computing buoyancy force";
constexpr std::string_view kNoMass = "WARNING - ship mass is not known, roll added mass is not estimated";
constexpr std::string_view kTitle = "Roll Decay Coefficients for ZAVO file {}";
constexpr std::string_view kWideHead =
    "    Avg.       Roll Decay     Roll\n"
    " Roll Angle    Coefficient    Period\n";
constexpr std::string_view kEstimating = "Estimating roll added mass from small cycle response period and GMT";
constexpr std::string_view kAllCycles = "average of all roll cycles";
constexpr std::string_view kSmallCycles = "average of smallest roll cycles (most linear)";
constexpr std::string_view kAskBias =
    "Is the roll response likely to have a non-zero mean roll angle due to\n"
    "unsymmetric loading, green water, or external forces?\n"
    "(yes/no)";
constexpr std::string_view kAskFile =
    "Enter file name for Roll Decay Coefficients\n"
    "(BLANK to print to screen)";

double Mean(std::span<const float> x) {
  double sum = 0;
  for (const float value : x) sum += value;
  return x.empty() ? 0 : sum / static_cast<double>(x.size());
}

double Frequency(double period) {
  return period > 0 ? kTwoPi / period : 0;
}

double Ratio(double a, double b) {
  return b > 0 ? a / b : 0;
}

// ---- From the steps in use to cycles

// A component at the steps in use that hold something.
std::vector<float> InUse(const CaseStore& c, const StepHistory& history, int component) {
  std::vector<float> values;
  for (const int step : StepsOf(c, {c.first_step, c.last_step, 1})) values.push_back(history.at(component, step));
  return values;
}

// The record as it is shown; peaks are found in it as it is stored, which has not been rounded again.
void TakeRecord(const RollDecayWork& work, RollDecayResult& result) {
  const CaseStore& c = work.store;
  const std::vector<float> time = InUse(c, c.time, 1), roll = InUse(c, c.pmgg, kRoll);
  const float T = work.settings.units.scales.T;
  for (const float t : time) result.time.push_back(t * T);
  for (const float angle : roll) result.roll.push_back(static_cast<float>(angle * kDegrees));
  FindRollPeaks(time, roll, result.peaks);
  for (RollPeak& peak : result.peaks) {
    peak.value *= kDegrees;
    peak.time *= T;
  }
}

// False: it was said why.
bool EstimateInertia(const RollDecayWork& work, RollDecayResult& result) {
  const CaseStore& c = work.store;
  const Console& console = work.platform.console;
  const UprightAttitude mean{Mean(InUse(c, c.pmgg, kHeave)), Mean(InUse(c, c.pmgg, kPitch))};
  double GM = 0;
  if (!EnsureHull(work.platform, work.store) || !GMTAtDraft(c, mean, GM)) {
    SayLine(console, kNoBuoyancy);
    return false;
  }
  const auto ship = static_cast<std::size_t>(c.ship - 1);
  if (ship >= c.ships.size() || !(c.ships[ship].mass > 0)) {
    SayLine(console, kNoMass);
    return false;
  }
  const OutputUnits& units = work.settings.units;
  const double L = units.LENOUT, L5 = units.RHOOUT * std::pow(L, 5);
  const double mass = c.ships[ship].mass, w = Frequency(result.periods.smallest) * units.scales.T;
  RollInertia& inertia = result.inertia;
  inertia.GMT = GM * L;
  inertia.total = Ratio(mass * GM, w * w) * L5;
  inertia.Ixx = c.ships[ship].inertia[0][0] * L5;
  inertia.A44 = inertia.total - inertia.Ixx;
  inertia.of_Ixx = Ratio(inertia.A44, inertia.Ixx);
  inertia.of_rho_L5 = inertia.A44 / L5;
  inertia.of_mass_L2 = inertia.of_rho_L5 / mass;
  return true;
}

DataFault FindCycles(const RollDecayWork& work, bool bias, RollDecayResult& result) {
  result = RollDecayResult{};
  result.bias = bias;
  TakeRecord(work, result);
  FindRollCycles(result.peaks, bias, result.cycles);
  if (result.cycles.empty()) {
    SayLine(work.platform.console, kFewPeaks);
    return DataFault::said;
  }
  result.periods = MeanPeriods(result.cycles);
  result.has_inertia = EstimateInertia(work, result);
  return DataFault::none;
}

// ---- The report

void AppendLine(std::string_view label, double value, std::string_view remark, std::string& text) {
  fmt::format_to(std::back_inserter(text), "{} {} {}\n", label, Shown{static_cast<float>(value)}, remark);
}

void AppendHead(Separator separator, TableLayout& layout, std::string& text) {
  const std::string names[] = {"Avg. Roll Angle", "Roll Decay Coefficient", "Roll Period"};
  layout.separator = separator;
  if (separator == Separator::space) text += kWideHead;
  else AppendHeading(text, layout, names);
}

void AppendInertia(const RollInertia& inertia, std::string& text) {
  text.append(kEstimating) += '\n';
  AppendLine("GMT            =", inertia.GMT, "Transverse metacentric height", text);
  AppendLine("Ixx+A44        =", inertia.total, "Roll mass+added mass estimate", text);
  AppendLine("Ixx            =", inertia.Ixx, "Roll mass moment of inertia", text);
  AppendLine("A44            =", inertia.A44, "Roll added mass (dimensional)", text);
  AppendLine("A44/Ixx        =", inertia.of_Ixx, "Roll added mass (fraction of Ixx)", text);
  AppendLine("A44/(rho*L**5) =", inertia.of_rho_L5, "Roll added mass (nondimensional)", text);
  AppendLine("A44/(mass*L**2)=", inertia.of_mass_L2, "Roll added mass (alt. nondimensional)", text);
}

std::string ReportOf(const RollDecayWork& work, const RollDecayResult& result) {
  std::string text = fmt::format(fmt::runtime(kTitle), work.store.file_name) + '\n';
  TableLayout layout;
  AppendHead(work.settings.writing.separator, layout, text);
  for (const RollCycle& cycle : result.cycles) {
    const float cells[] = {static_cast<float>(cycle.angle), static_cast<float>(cycle.coefficient),
                           static_cast<float>(cycle.period)};
    AppendRow(text, layout, cells);
  }
  text += '\n';
  const RollPeriods& periods = result.periods;
  AppendLine("Roll Period =", periods.all, kAllCycles, text);
  AppendLine("Roll Freq   =", Frequency(periods.all), kAllCycles, text);
  AppendLine("Roll Period =", periods.smallest, kSmallCycles, text);
  AppendLine("Roll Freq   =", Frequency(periods.smallest), kSmallCycles, text);
  if (result.has_inertia) AppendInertia(result.inertia, text);
  return text;
}

// ---- The picture

// Decay by the mean coefficient and period from the first peak on, about the middle between the peaks with a bias.
ResultCurve FittedDecay(const RollDecayResult& result) {
  ResultCurve fit{"mean decay", {}, {}, ResultStyle::dashed};
  double coefficient = 0, middle = 0;
  for (const RollCycle& cycle : result.cycles) coefficient += cycle.coefficient;
  coefficient /= static_cast<double>(result.cycles.size());
  for (const RollPeak& peak : result.peaks) middle += result.bias ? peak.value : 0;
  middle /= static_cast<double>(result.peaks.size());
  const RollPeak& first = result.peaks[0];
  const double begin = result.time[first.index], T = result.periods.all;
  for (std::size_t i = first.index; i < result.time.size() && T > 0; ++i) {
    const double turns = (result.time[i] - begin) / T;
    const double size = (first.value - middle) * std::exp(-coefficient * 2 * std::numbers::pi * turns);
    fit.x.push_back(result.time[i]);
    fit.y.push_back(static_cast<float>(middle + size * std::cos(kTwoPi * turns)));
  }
  return fit;
}

}  // namespace

bool IsRollDecay(const CaseStore& store) {
  const ControlRecords& control = store.control;
  if (!store.time_history() || !store.has_steps() || control.seaway.ISEA != 0) return false;
  constexpr std::size_t kMode = kRoll - 1;
  if (!store.kino_input)
    return control.MOTYPE == kFreeMotion && control.SWTCH[kMode] != 0 &&
           (control.PMGIN[kMode] != 0 || control.VMGSHP[kMode] != 0);
  const int second = std::min(store.first_step + 1, store.last_step);
  return store.pmgg.at(kRoll, store.first_step) != 0 || store.pmgg.at(kRoll, second) != 0;
}

DataFault WriteRollDecay(const RollDecayWork& work, bool bias, OutputFile& out, RollDecayResult& result) {
  return MakeOrSay(work.platform.console, kNoMemoryLeft, [&] {
    const DataFault fault = FindCycles(work, bias, result);
    if (fault == DataFault::none) WriteOutput(out, (out.had_text ? "\n" : "") + ReportOf(work, result));
    return fault;
  });
}

std::string RollDecayWritten(const CaseStore& store) {
  return fmt::format(fmt::runtime(kTitle), store.file_name) + "\nwritten to";
}

ResultPlot RollDecayPlot(const CaseStore& store, const RollDecayResult& result) {
  ResultPlot plot;
  if (result.cycles.empty()) return plot;
  plot.title = fmt::format("Roll decay for ZAVO file {}", store.file_name);
  ResultPanel record{"Time", "Roll (deg)", {{"record", result.time, result.roll}, FittedDecay(result)}, {}, {}};
  ResultCurve peaks{"peaks", {}, {}, ResultStyle::points};
  for (const RollPeak& peak : result.peaks) {
    peaks.x.push_back(result.time[peak.index]);
    peaks.y.push_back(static_cast<float>(peak.value));
  }
  record.curves.push_back(peaks);
  record.notes.push_back(fmt::format("Roll Period = {}", Shown{static_cast<float>(result.periods.all)}));
  ResultPanel coefficients{"Time", "Roll decay coefficient", {}, {}, {}};
  ResultCurve curve{"from this peak on", {}, {}, ResultStyle::points};
  for (std::size_t i = 0; i < result.cycles.size(); ++i) {
    curve.x.push_back(result.time[result.peaks[i].index]);
    curve.y.push_back(static_cast<float>(result.cycles[i].coefficient));
  }
  coefficients.curves.push_back(curve);
  plot.panels = {record, coefficients};
  return plot;
}

void AskRollDecay(const RollDecayWork& work, RollDecayResult& result) {
  std::string answer;
  if (ask_text(work.platform.console, kAskBias, "", answer) != Answer::ok) return;
  const bool bias = !answer.empty() && (answer[0] == 'y' || answer[0] == 'Y');
  TableQuestion question;
  question.file.prompt = kAskFile;
  question.done = RollDecayWritten(work.store);
  AskTable(work.platform, question, [&](ChosenFile& chosen) { return WriteRollDecay(work, bias, chosen.out, result); });
}

}  // namespace zaview
