// Do two cases have the same sea, or another realization of it? Compared by the lists of their components: the stored
// 4-byte values, exactly.
#pragma once

#include <cstdint>

#include "waves/seaway.h"

namespace zaview {

enum class Match : std::uint8_t {
  none,
  realization,  // other phases of the same components
  identical
};

// ISEA 4 and 5 by their own lists; the order of a Stokes wave and the wave scaling are not looked at. Calm seas are
// identical. That both were defined by the same kind of seaway is the caller's to see.
[[nodiscard]] Match CompareSeaways(const Seaway& held, const Seaway& fresh);

}  // namespace zaview
