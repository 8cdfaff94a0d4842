// Steps from the binary companion of a primary output file: records framed by their 4-byte length, little-endian. The
// first one is the version of its writer; then each step is a header (index, time, a number that is dropped) and a
// body, or a body for each ship.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/line_source.h"
#include "case/case_store.h"
#include "case/read/time_steps.h"

namespace zaview {

inline constexpr std::string_view kInvalidIndex = "WRN??? Invalid step index in output file";

// "run.out" gives "run.outu", "run.out.XML" gives "run.outu.XML".
[[nodiscard]] std::string CompanionName(std::string_view primary);

// The first record. False: there is no such record.
[[nodiscard]] bool ReadCompanionVersion(BlockStream& stream, int& version);

// Does the writer's version call for a warning? A version of 0 is unknown; writers that say 407 may be any.
[[nodiscard]] bool VersionsDiffer(int formatted, int unformatted);

struct CompanionRead {
  StepsRead steps;
  int bad_indices = 0;  // steps whose index lay outside 1..MostSteps: they took place and time by position
};

// Reads what follows the first record into the histories of fresh, by its mode (AUXOUT(1)), of ship fresh.ship.
// file_size: bytes, -1 unknown. A length other than that of the record expected is a bad value. Where the header of
// the first step stands twice the second one is dropped. block matters for speed alone.
[[nodiscard]] CompanionRead ReadUnformattedSteps(BlockStream& stream, std::int64_t file_size, CaseStore& fresh,
                                                 const StepProgress& progress, std::size_t block = kStepBlock);

}  // namespace zaview
