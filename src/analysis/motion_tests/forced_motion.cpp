#include "analysis/motion_tests/forced_motion.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <span>

#include "analysis/do_or_say.h"
#include "base/data_fault.h"
#include "base/message.h"
#include "base/table_text.h"
#include "case/derived_arrays.h"
#include "case/settings/step_range.h"
#include "frame/ground/output_set.h"

namespace zaview {
namespace {

constexpr int kHeave = 3, kPitch = 5;
constexpr int kSlot = 6;  // components of one kind of force: the first two are hydrodynamic

constexpr std::string_view kSeaway[] = {"WARNING - forced motion analysis for a case with as seaway (ISEA>0)",
                                        "          probably doesn't make any sense"};
constexpr std::string_view kNotThese =
    "ERROR - Force Motion Analysis not implemented for this combination of forced motions:{}";
constexpr std::string_view kNoFit = "ERROR in Least Squares fit for force coefficients";
constexpr std::string_view kNotOpen = "ERROR opening output file {}{}";
constexpr std::string_view kAddedMassTerms = "adm.dbg", kDampingTerms = "dmp.dbg";

// ---- What is fitted

std::vector<int> ForcedModes(const ControlRecords& control) {
  std::vector<int> modes;
  if (control.MOTYPE != 0) return modes;
  for (std::size_t i = 0; i < control.AMPM.size(); ++i)
    if (control.AMPM[i] != 0 && control.OMEGM[i] != 0) modes.push_back(static_cast<int>(i) + 1);
  return modes;
}

bool SayFit(const Console& console, const std::vector<int>& modes) {
  if (modes == std::vector{kHeave, kPitch}) SayLine(console, "Setting least squares for A33, A55, B33, B55...");
  else if (modes == std::vector{kHeave}) SayLine(console, "Setting least squares for A33 and B33...");
  else if (modes == std::vector{kPitch}) SayLine(console, "Setting least squares for A55 and B55...");
  else {
    std::string codes;
    for (const int mode : modes) codes += fmt::format(" {}", mode);
    Say(console, kNotThese, codes);
    return false;
  }
  return true;
}

FittedMode RecordOf(const CaseStore& c, int mode, const std::vector<int>& steps) {
  FittedMode fitted;
  fitted.mode = mode;
  const StepHistory& velocity = mode == kHeave ? c.vmgshp : c.vmg;
  for (const int step : steps) {
    fitted.a.push_back(c.acc.at(mode, step));
    fitted.v.push_back(velocity.at(mode, step));
    fitted.F.push_back(double{c.force_ship.at(mode, step)} + c.force_ship.at(kSlot + mode, step));
  }
  return fitted;
}

// False: told.
bool Fit(const ForcedMotionWork& work, ForcedMotionResult& result) {
  CaseStore& c = work.store;
  const Console& console = work.platform.console;
  result = ForcedMotionResult{};
  if (c.control.seaway.ISEA > 0)
    for (const std::string_view line : kSeaway) SayLine(console, line);
  const std::vector<int> modes = ForcedModes(c.control);
  if (!SayFit(console, modes)) return false;
  if (!EnsureDerived(c, Derived::vmgshp) || !EnsureDerived(c, Derived::force_ship)) {
    SayLine(console, kNoMemoryLeft);
    return false;
  }
  const std::vector<int> steps =  // none of them: singular
      StepsOf(c, {c.first_step + std::max(c.skip_effective, 0), c.last_step - work.settings.reading.skip_terminal, 1});
  for (const int step : steps) result.time.push_back(c.time.at(1, step));
  for (const int mode : modes) {
    FittedMode fitted = RecordOf(c, mode, steps);
    const bool solved = FitForce(fitted.a, fitted.v, fitted.F, fitted.fit);
    Trace(console, "Gauss returned {}", solved ? 0 : 1);
    if (!solved) {
      SayLine(console, kNoFit);
      return false;
    }
    result.modes.push_back(fitted);
  }
  return true;
}

// ---- The report

void AppendValue(std::string_view label, double value, std::string_view remark, std::string& text) {
  fmt::format_to(std::back_inserter(text), "{}{:14.6E} {}\n", label, value, remark);
}

void AppendFraction(std::string_view label, double value, double whole, std::string_view remark, std::string& text) {
  fmt::format_to(std::back_inserter(text), "{}{:14.6f} {}\n", label, whole > 0 ? value / whole : 0.0, remark);
}

constexpr std::string_view kNonDimensional = "(non-dimensional)", kDimensional = "(dimensional)";

DerivedShip ShipOf(const CaseStore& c) {
  const auto ship = static_cast<std::size_t>(c.ship - 1);
  return ship < c.ships.size() ? c.ships[ship] : DerivedShip{};
}

std::string ReportOf(const ForcedMotionWork& work, const ForcedMotionResult& result) {
  const OutputUnits& units = work.settings.units;
  const double L = units.LENOUT, g = units.GRAVOUT, rho = units.RHOOUT, root = std::sqrt(g * L);
  const DerivedShip ship = ShipOf(work.store);
  std::string text, constants;
  for (const FittedMode& mode : result.modes) {
    const ForceFit& fit = mode.fit;
    const double sign = units.cnvfac[static_cast<std::size_t>(mode.mode - 1)];
    const bool heave = mode.mode == kHeave;
    const std::string_view A = heave ? "A33=" : "A55=", B = heave ? "B33=" : "B55=";
    AppendValue(A, fit.A, kNonDimensional, text);
    if (heave) AppendFraction(A, fit.A, ship.mass, "(fraction of ship mass)", text);
    else AppendFraction(A, fit.A, ship.inertia[1][1], "(fraction of Iyy)", text);
    AppendValue(A, fit.A * rho * std::pow(L, heave ? 3 : 5), kDimensional, text);
    AppendValue(B, fit.B, kNonDimensional, text);
    AppendValue(B, fit.B * rho * std::pow(L, heave ? 2 : 4) * root, kDimensional, text);
    AppendValue(heave ? "FZ0=" : "MY0=", fit.F0 * sign * rho * g * std::pow(L, heave ? 3 : 4), kDimensional, constants);
  }
  return text + constants;
}

// ---- Histories

float ForceScale(const OutputUnits& units, int mode) {
  const auto i = static_cast<std::size_t>(mode - 1);
  return units.scales.force[i] * units.cnvfac[i];
}

struct Terms {
  double mass = 0, damping = 0;  // -A a, -B v
};

Terms TermsOf(const FittedMode& mode, std::size_t i) {
  return {-mode.fit.A * mode.a[i], -mode.fit.B * mode.v[i]};
}

std::string ForcesOf(const ForcedMotionWork& work, const ForcedMotionResult& result) {
  std::vector<std::string> names = {"timec"};
  for (const FittedMode& mode : result.modes) {
    const std::string m = std::to_string(mode.mode), terms = fmt::format("-B{0}{0}*v{0}-A{0}{0}*a{0}", m);
    names.push_back("hdpfors" + m);
    names.push_back((mode.mode == kHeave ? "F0" : "M0") + terms);
    names.push_back(terms);
  }
  const TableLayout layout = LayoutFor(work.settings.writing.separator, names);
  std::string text;
  AppendHeading(text, layout, names);
  const OutputUnits& units = work.settings.units;
  for (std::size_t i = 0; i < result.time.size(); ++i) {
    std::vector<float> cells = {result.time[i] * units.scales.T};
    for (const FittedMode& mode : result.modes) {
      const double scale = ForceScale(units, mode.mode);
      const Terms terms = TermsOf(mode, i);
      const double fit = terms.damping + terms.mass;
      for (const double value : {mode.F[i], mode.fit.F0 + fit, fit}) cells.push_back(static_cast<float>(value * scale));
    }
    AppendRow(text, layout, cells);
  }
  return text;
}

// The term of each mode, behind the time.
std::string TermTable(const ForcedMotionWork& work, const ForcedMotionResult& result, double Terms::*term) {
  TableLayout layout;
  layout.separator = work.settings.writing.separator;
  std::string text;
  const OutputUnits& units = work.settings.units;
  for (std::size_t i = 0; i < result.time.size(); ++i) {
    std::vector<float> cells = {result.time[i] * units.scales.T};
    for (const FittedMode& mode : result.modes)
      cells.push_back(static_cast<float>(TermsOf(mode, i).*term * double{ForceScale(units, mode.mode)}));
    AppendRow(text, layout, cells);
  }
  return text;
}

// ---- The files

void SayWritten(const Console& console, std::span<const OutputFile> files) {
  if (!files[0].to_console) Say(console, "Coefficients written to {}", files[0].name);
  if (!files[1].to_console) Say(console, "Writing coef-based forces to {}", files[1].name);
  Say(console, "Writing coef debug data to {} and {}", files[2].name, files[3].name);
}

bool WriteAll(const ForcedMotionWork& work, std::span<OutputFile> files, ForcedMotionResult& result) {
  if (!Fit(work, result)) return false;
  WriteOutput(files[0], ReportOf(work, result));
  WriteOutput(files[1], ForcesOf(work, result));
  WriteOutput(files[2], TermTable(work, result, &Terms::mass));
  WriteOutput(files[3], TermTable(work, result, &Terms::damping));
  return true;
}

}  // namespace

bool WriteForcedMotion(const ForcedMotionWork& work, std::string_view coefficients, std::string_view forces,
                       ForcedMotionResult& result) {
  const Console& console = work.platform.console;
  const std::string names[] = {std::string(coefficients), std::string(forces), std::string(kAddedMassTerms),
                               std::string(kDampingTerms)};
  std::vector<OutputFile> files;
  if (!OpenAll(work.platform, names, kNotOpen, files)) return false;
  if (!AreDifferent(console, files, kSameOutput) ||
      !DoOrSay(console, kNoMemoryLeft, [&] { return WriteAll(work, files, result); })) {
    DiscardAll(files);
    return false;
  }
  if (!CloseAll(console, files)) return false;
  SayWritten(console, files);
  return true;
}

ResultPlot ForcedMotionPlot(const ForcedMotionWork& work, const ForcedMotionResult& result) {
  const OutputUnits& units = work.settings.units;
  ResultPlot plot;
  plot.title = fmt::format("Forced motion for ZAVO file {}", work.store.file_name);
  for (const FittedMode& mode : result.modes) {
    const bool heave = mode.mode == kHeave;
    ResultCurve force{"record", {}, {}}, fit{"fit", {}, {}, ResultStyle::dashed};
    const double scale = ForceScale(units, mode.mode);
    for (std::size_t i = 0; i < result.time.size(); ++i) {
      const Terms terms = TermsOf(mode, i);
      force.x.push_back(result.time[i] * units.scales.T);
      force.y.push_back(static_cast<float>(mode.F[i] * scale));
      fit.y.push_back(static_cast<float>((mode.fit.F0 + terms.damping + terms.mass) * scale));
    }
    fit.x = force.x;
    ResultPanel panel{"Time", heave ? "Heave force" : "Pitch moment", {force, fit}, {}, {}};
    panel.notes.push_back(fmt::format("A{0}{0}= {1:.6E}", mode.mode, mode.fit.A));
    panel.notes.push_back(fmt::format("B{0}{0}= {1:.6E}", mode.mode, mode.fit.B));
    plot.panels.push_back(panel);
  }
  return plot;
}

}  // namespace zaview
