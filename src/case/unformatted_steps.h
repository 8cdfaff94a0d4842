// Steps from the binary companion of a primary output file: records framed by their 4-byte length, little-endian.
#pragma once

#include <string>

#include "base/platform.h"
#include "case/case_store.h"
#include "case/time_steps.h"

namespace zaview {

// "run.out" gives "run.outu", "run.out.XML" gives "run.outu.XML".
[[nodiscard]] std::string CompanionName(const std::string& primary);

struct CompanionRead {
  StepsRead steps;
  bool first_record_bad = false;  // no version can be parsed
  int version = 0;                // of the writer
  int bad_indices = 0;            // steps whose index lay outside 1..NSTEP
};

// Reads the open companion into the histories of fresh by its mode (AUXOUT(1)), ship `ship` of NSHIP.
[[nodiscard]] CompanionRead ReadUnformattedSteps(const Files& files, FileHandle file, int ship, CaseStore& fresh,
                                                 const StepProgress& progress);

}  // namespace zaview
