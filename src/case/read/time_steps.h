// The step records as text. Two threads convert a block where the start of a list in its middle is certain; the result
// never depends on that.
#pragma once

#include <cstddef>
#include <cstdint>

#include "base/line_source.h"
#include "case/case_store.h"

namespace zaview {

enum class StepsEnd : std::uint8_t {
  complete,       // NSTEP reached, which an impulsive run may exceed (MostSteps)
  no_record,      // the file ends where the first step should begin
  file_end,       // the file ends after (or inside the step after) the last step kept
  bad_value,      // a value, or the file itself, can't be read in the step after the last kept
  not_ascending,  // the step after the last kept has no later time
  out_of_memory
};

struct StepsRead {
  StepsEnd end = StepsEnd::complete;
  int first = 1;                          // index of the first step
  int kept = 0;                           // steps kept
  bool begun = false;                     // kept 0: the first step had begun
  float previous_time = 0, new_time = 0;  // not_ascending
  std::int64_t fault_offset = -1;         // bad_value: byte of the item
};

// progress (may be null) is called now and then with the bytes taken so far, counted from the begin of the file.
struct StepProgress {
  void* self = nullptr;
  void (*taken)(void* self, std::int64_t bytes) = nullptr;
};

// The file end at or past NSTEP steps of an impulsive run is no fault.
void AcceptEnd(const CaseStore& fresh, StepsRead& read);

inline constexpr std::size_t kStepBlock = 1U << 18;  // bytes read at a time: they stay in the second cache

// Reads from the stream into the histories of fresh (sized to the steps kept). file_size: bytes, -1 unknown.
// threads: 1, or 2 from there on. block matters for speed alone.
[[nodiscard]] StepsRead ReadTimeSteps(BlockStream& stream, std::int64_t file_size, CaseStore& fresh,
                                      const StepProgress& progress, unsigned threads, std::size_t block = kStepBlock);

}  // namespace zaview
