// Whether a sea given by a spectrum can be, for the first seaway and the second one.
#pragma once

#include <string_view>

#include "base/platform.h"
#include "control/control_records.h"

namespace zaview {

struct SpectrumWords {
  std::string_view values;                     // first line of what is wrong with them
  std::string_view headings{}, frequencies{};  // of NHEAD below 1, NFREQ below 2; blank: those are taken as 1
};

[[nodiscard]] constexpr bool IsSpectrum(int ISEA) {
  return ISEA == 2 || (ISEA >= 6 && ISEA <= 8);
}

inline constexpr int kMostComponents = 100'000;  // NFREQ NHEAD of a spectrum: no sea is told by more

// The number of errors; warnings are told of a sea without any.
[[nodiscard]] int CheckSpectrum(const Console& console, const SeawayInput& sea, const SpectrumWords& words);

}  // namespace zaview
