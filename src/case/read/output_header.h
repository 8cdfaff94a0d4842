// The labelled header of a primary output file: preamble, control echo, parsing data, derived data. On return the
// stream stands at the first byte behind the END_OF_HEADER line.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/line_source.h"
#include "base/platform.h"
#include "case/case_store.h"

namespace zaview {

inline constexpr std::string_view kNoDelimiters = "ERR407 - Input echo section delimiters not found while reading {}";
inline constexpr std::string_view kNotAnOutputFile = "         File is probably not a ZAVO output file";
inline constexpr std::string_view kNotPrimary = "ERR485 - File is not a ZAVO Primary Output File: {}";
inline constexpr std::string_view kReadingInput = "Reading ZAVO input data from output file...";

enum class HeaderStatus : std::uint8_t { ok, failed };  // failed: the message has been said

// Fills labels, control, NSHIP, geometry_files, ships, loads, unnamed_derived and nstep_expected (NSTEP, not checked)
// of a fresh case. name: the file as opened. NSHIP may be 0; of several ships control is that of fresh.ship, which may
// be none of them.
[[nodiscard]] HeaderStatus ReadOutputHeader(const Platform& platform, LineSource& source, const std::string& name,
                                            CaseStore& fresh);

}  // namespace zaview
