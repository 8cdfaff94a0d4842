// The step records. A layout is a row: what one list of a step holds, in order. Two threads convert a block where the
// start of a list in its middle is certain; the result never depends on that.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/line_source.h"
#include "base/platform.h"
#include "case/case_store.h"

namespace zaview {

enum class StepsEnd : std::uint8_t {
  complete,       // NSTEP reached
  no_record,      // the file ends where the first step should begin
  file_end,       // the file ends after (or inside the step after) the last step kept
  bad_value,      // a value can't be read in the step after the last kept
  not_ascending,  // the step after the last kept has no later time
  out_of_memory
};

struct StepsRead {
  StepsEnd end = StepsEnd::complete;
  int first = 1;           // index of the first step
  int kept = 0;            // steps kept
  bool begun = false;      // kept 0: the first step had begun
  float previous_time = 0, new_time = 0;  // not_ascending
  std::int64_t fault_offset = -1;         // bad_value: byte of the item
};

// Where each of the reals of a step goes, in file order.
struct StepColumns {
  std::vector<std::vector<float>*> column;
};
[[nodiscard]] bool PrepareColumns(CaseStore& fresh, StepColumns& columns);  // false: no such layout yet

// Reads from the stream into the histories of fresh (sized to the steps kept). file_size: bytes, -1 unknown.
// progress (may be null) is called now and then with the bytes taken so far.
struct StepProgress {
  void* self = nullptr;
  void (*taken)(void* self, std::int64_t bytes) = nullptr;
};
[[nodiscard]] StepsRead ReadTimeSteps(BlockStream& stream, std::int64_t file_size, CaseStore& fresh,
                                      const StepProgress& progress, unsigned threads);

}  // namespace zaview
