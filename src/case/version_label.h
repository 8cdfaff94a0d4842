// What the preamble of a run file says of itself: the version of the program that wrote it and the kind of file.
#pragma once

#include <cstdint>
#include <string_view>

#include "base/platform.h"
#include "case/case_store.h"

namespace zaview {

inline constexpr std::string_view kNoVersion = "Version label not found in output file: assuming current version";

enum class VersionVariant : std::uint8_t { none, rvm, wexmark, gyre, tambrine };

struct VersionLabel {  // of the last version line that could be used
  bool found = false;
  VersionVariant variant = VersionVariant::none;
  int value = 0;  // 100a + 10b + c of the first three numbers
};

// Looks at one preamble line (cut by the caller): a version line replaces label, a kind line replaces kind.
// Numbers are the groups of digits in columns 12 and up; a line with fewer than two is ignored. WEXMARK lines pass over
// the first, which belongs to the name.
void ScanPreambleLine(std::string_view line, VersionLabel& label, FileKind& kind);

// Says what was found and sets VERSION (RVM 293, TAMBRINE 407, GYRE -1, no label 0) and the GYRE mark.
void AdoptVersionLabel(const Console& console, const VersionLabel& label, OutputLabels& labels);

// Is this file's layout that of `version` or newer? 0 and below count as newest.
[[nodiscard]] constexpr bool VersionFrom(const OutputLabels& labels, int version) {
  return labels.VERSION <= 0 || labels.VERSION >= version;
}

}  // namespace zaview
