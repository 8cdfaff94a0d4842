#include "case/read/finish_case_read.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "base/grow.h"
#include "base/message.h"
#include "case/derived_arrays.h"
#include "case/output_scales.h"

namespace zaview {
namespace {

inline constexpr std::string_view kRestoreHint[] = {
    "         Use menu option 11 or script command SET_TRIM_ABORT 0 to restore",
    "         these steps or re-trim the record"};
inline constexpr std::string_view kTrimWhole[] = {"WRN501 - Specified trimming would elminate time history",
                                                  "         Terminal trimming is not applied"};
inline constexpr std::string_view kNoKeyStepMemory = "ERROR allocating kmstep - please report this to ZAVO developers";
constexpr std::array<std::string_view, 3> kLoadKinds = {"  Vertical Shear Force and Bending Moment",
                                                        "  Horizontal Shear Force and Bending Moment",
                                                        "  Compression Force and Torsional Moment"};

void SayCuts(const Console& console, int cuts, char axis, const std::vector<int>& kinds) {
  if (cuts < 1) return;
  Say(console, "Sectional loads computed at {} {}=const cut plane(s):", cuts, axis);
  for (const int kind : kinds) SayLine(console, kLoadKinds[static_cast<std::size_t>((kind - 1) % 3)]);
}

}  // namespace

void ApplySkip(const OutputSettings& settings, CaseStore& case_store) {
  const int most = std::max(0, case_store.last_step - 1);
  const int asked = settings.reading.skip_initial;
  if (asked < 0) case_store.skip_effective = std::min(case_store.skip_effective, most);
  else case_store.skip_effective = asked <= case_store.last_step ? asked : most;
}

TrimOutcome ApplyTrim(const OutputSettings& settings, CaseStore& case_store) {
  CaseStore& c = case_store;
  TrimOutcome outcome;
  c.first_step = c.first_read;
  c.last_step = c.last_read;
  if (c.has_steps()) {
    const std::int64_t count = std::int64_t{c.last_read} - c.first_read + 1;
    const int initial = std::max(0, settings.reading.trim_initial);
    int terminal = std::max(0, settings.reading.trim_terminal);
    if (c.last_read < c.nstep_expected && settings.reading.trim_abort > terminal) {
      outcome.incomplete_trimmed = true;
      outcome.abort_trim = terminal = settings.reading.trim_abort;
    }
    if (std::int64_t{terminal} + initial < count) {
      c.first_step = c.first_read + initial;
      c.last_step = c.last_read - terminal;
    } else {
      outcome.whole = true;
      c.first_step = static_cast<int>(std::min<std::int64_t>(std::int64_t{c.first_read} + initial, c.last_read));
    }
  }
  ApplySkip(settings, c);
  c.current_step = std::clamp(c.current_step, c.first_step, std::max(c.first_step, c.last_step));
  return outcome;
}

TrimOutcome RetrimCase(const OutputSettings& settings, CaseStore& case_store) {
  OutputSettings limited = settings;
  if (case_store.last_read < case_store.nstep_expected) {
    const std::int64_t first = std::int64_t{case_store.first_read} + std::max(0, settings.reading.trim_initial);
    const auto most = static_cast<int>(std::max<std::int64_t>(0, case_store.last_read - first));
    limited.reading.trim_terminal = std::min(limited.reading.trim_terminal, most);
    limited.reading.trim_abort = std::min(limited.reading.trim_abort, most);
  }
  return ApplyTrim(limited, case_store);
}

void SayTrim(const Console& console, const TrimOutcome& outcome) {
  if (outcome.incomplete_trimmed) {
    Say(console, "WRN500 - Last {} time steps trimmed from incomplete ZAVO run", outcome.abort_trim);
    SayLines(console, kRestoreHint);
  }
  SayTrimWhole(console, outcome);
}

void SayTrimWhole(const Console& console, const TrimOutcome& outcome) {
  if (outcome.whole) SayLines(console, kTrimWhole);
}

void SetCaseFlags(CaseStore& case_store) {
  const ControlRecords& control = case_store.control;
  const bool impulsive = control.MOTYPE == 1;
  const bool added_mass = control.MIXED == 2 || control.MIXED == -2;
  case_store.tadm_case = impulsive && added_mass;
  case_store.irf_case = impulsive && !added_mass;
}

bool FindKeySteps(const OutputSettings& settings, CaseStore& case_store) {
  const std::int64_t interval = std::max(1, settings.reading.kmstep_interval);
  const std::int64_t first = case_store.first_read;
  const std::int64_t last = case_store.last_read;
  case_store.kmstep.clear();
  if (!case_store.has_steps()) return true;
  const std::int64_t whole = (last - first) / interval;
  const bool add_last = 2 * (last - (first + whole * interval)) > interval;
  if (!Grow(case_store.kmstep, static_cast<std::size_t>(whole) + 1 + (add_last ? 1 : 0))) return false;
  for (std::int64_t k = 0; k <= whole; ++k)
    case_store.kmstep[static_cast<std::size_t>(k)] = static_cast<int>(first + k * interval);
  if (add_last) case_store.kmstep.back() = case_store.last_read;
  return true;
}

void finish_case_read(const Console& console, OutputSettings& settings, CaseStore& case_store) {
  DropDerived(case_store);
  SetCaseFlags(case_store);
  AdoptFileScales(settings, case_store);
  SayTrim(console, ApplyTrim(settings, case_store));
  case_store.current_step = case_store.first_step;
  if (!FindKeySteps(settings, case_store)) SayLine(console, kNoKeyStepMemory);
  SayCuts(console, case_store.loads.NBCA, 'X', case_store.loads.x_kinds);
  SayCuts(console, case_store.loads.nycut, 'Y', case_store.loads.y_kinds);
}

}  // namespace zaview
