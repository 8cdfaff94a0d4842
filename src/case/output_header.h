// The labelled header of a primary output file: preamble, control echo, parsing data, derived data. On return the
// stream stands at the first byte behind the END_OF_HEADER line.
#pragma once

#include <cstdint>
#include <string>

#include "base/line_source.h"
#include "base/platform.h"
#include "case/case_store.h"

namespace zaview {

enum class HeaderStatus : std::uint8_t { ok, failed };  // failed: the message has been said

// Fills labels, control, NSHIP, geometry_files, ships, loads of a fresh case. name: the file as opened.
[[nodiscard]] HeaderStatus ReadOutputHeader(const Console& console, LineSource& source, const std::string& name,
                                            CaseStore& fresh);

}  // namespace zaview
