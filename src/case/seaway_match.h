// Do two cases have the same sea, or another realization of it? Compared by what defines the wave components, such that
// the answer is the one that their arrays (non-dimensional 4-byte frequencies, amplitudes, headings; phases) would
// give.
#pragma once

#include <cstdint>

#include "control/control_records.h"

namespace zaview {

enum class Match : std::uint8_t {
  none,
  realization,  // other phases of the same components
  identical
};

// Kinds 1, 3, 4, 5 by their lists; the order of a Stokes wave and the wave scaling are not looked at. Spectra by their
// parameters and options: IWVRLZ, SPEC_PHASEOPTION and SPEC_PHASEFILE choose phases, but a negative IWVRLZ asks for
// even spacing, and with SPEC_DISTOPT 2 and 3 the frequencies move with it. $ADDSEA: in the same way. Calm seas are
// identical.
[[nodiscard]] Match CompareSeaways(const ControlRecords& held, const ControlRecords& fresh);

}  // namespace zaview
