// The steps of a run, from the primary file itself or from its binary companion, with the progress line of a long read
// and the words about the companion.
#pragma once

#include <string_view>

#include "base/line_source.h"
#include "base/platform.h"
#include "case/case_store.h"
#include "case/read/time_steps.h"

namespace zaview {

inline constexpr std::string_view kReadingHistory = "Reading time history data from {}";
inline constexpr std::string_view kCompanionUnopened = "ERROR opening unformatted output file {}{}";
inline constexpr std::string_view kCompanionUnparsed = "ERROR parsing unformatted output file {}";
inline constexpr std::string_view kVersionsDiffer[] = {
    "WARNING: version number mismatch between formatted and unformated files:", "  formatted   (.out)  file: {}",
    "  unformatted (.outu) file: {}", "Trying to read file anyway..."};

// The primary file, whose stream stands at its first step.
[[nodiscard]] StepsRead ReadFormattedSteps(const Platform& platform, BlockStream& stream, CaseStore& fresh);

// The companion of fresh.file_name; the loads of a file without forces are smoothed. False (told): there is none, or
// it is none.
[[nodiscard]] bool ReadCompanion(const Platform& platform, CaseStore& fresh, StepsRead& steps);

}  // namespace zaview
