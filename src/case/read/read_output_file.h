// From a name to a case in store. One that ends in .csv or .tsv is a table of measured data (table_input.h). Else the
// name is tried as it stands, then with .out, .out.XML and .XML behind it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/platform.h"
#include "case/case_store.h"
#include "case/ensemble_store.h"
#include "case/output_settings.h"
#include "frame/ground/run_state.h"

namespace zaview {

enum class ReadOutcome : std::uint8_t {
  ok,      // a new case is in store (with steps, impulse responses, or geometry only)
  failed,  // messages said; the case in store is as it was, but see read_output_file
  aborted  // the user gave up at the prompt
};

struct ReadRequest {
  std::string name;  // blank: asked for
  EnsembleMode ensemble_mode = EnsembleMode::automatic;
  RestartMode restart_mode = RestartMode::ask;
  int ship = 1;
  bool ship_named = false;  // by the command itself; else a file with one ship gives that one
  float vcg = 0.0F;
};

// A good header whose steps can't be read is a failure that leaves a held case alone; where none was held, the new case
// is kept without steps (its geometry is usable) and the outcome still is `failed`. So it is where the companion can't
// be opened, held case or not. Memory running out in the steps drops the case. A case with steps is joined to the one
// held or matched with the ensemble, as the modes say; one without steps empties the ensemble. Giving up at the prompt
// with no case in store sets run.exit_requested.
[[nodiscard]] ReadOutcome read_output_file(const ReadRequest& request, const Platform& platform, RunState& run,
                                           OutputSettings& settings, CaseStore& case_store, EnsembleStore& ensemble);

// The name without directory and without ".XML" and ".out" at its end.
[[nodiscard]] std::string BaseName(std::string_view name);

}  // namespace zaview
