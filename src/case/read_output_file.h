// From a name to a case in store.
#pragma once

#include <cstdint>
#include <string>

#include "base/platform.h"
#include "case/case_store.h"
#include "case/output_settings.h"
#include "frame/run_state.h"

namespace zaview {

enum class ReadOutcome : std::uint8_t {
  ok,       // a new case is in store (with steps, or geometry only)
  failed,   // messages said; the case in store is as it was
  aborted   // the user gave up at the prompt
};

struct ReadRequest {
  std::string name;        // blank: asked for
  int ensemble_mode = 3;
  int restart_mode = -1;
  int ship = 1;
  float vcg = 0.0F;
};

[[nodiscard]] ReadOutcome read_output_file(const ReadRequest& request, const Platform& platform, RunState& run,
                                           OutputSettings& settings, CaseStore& case_store);

// Trims, flags, kmstep and the sectional-load summary of a case just read.
void finish_case_read(const Console& console, OutputSettings& settings, CaseStore& case_store);

// The trim rules alone (also for SET_TRIM_STEPS and menu option 11): sets first_step, last_step, skip_effective.
struct TrimOutcome {
  bool incomplete_trimmed = false;  // WRN500
  int abort_trim = 0;
  bool whole = false;               // WRN501: trimming would have left nothing
};
[[nodiscard]] TrimOutcome ApplyTrim(const OutputSettings& settings, CaseStore& case_store);

}  // namespace zaview
