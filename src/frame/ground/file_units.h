// Numbered file units. Console 5 and 6, script and case file 11, list of names 22; others come from a pool of 90.
#pragma once

#include <array>
#include <span>

#include "base/platform.h"

namespace zaview {

inline constexpr int kUnitPool = 90;
inline constexpr int kFirstPoolUnit = 100;  // units of the pool are kFirstPoolUnit .. kFirstPoolUnit + 89

struct FileUnits {
  std::array<bool, kUnitPool> in_use{};
  int above_pool = 0;  // units given out beyond the pool
};

// Gives units.size() free unit numbers. A pool that is used up says so and goes on above it.
void UNITLIST(const Console& console, FileUnits& file_units, std::span<int> units);
void FreeUnit(FileUnits& file_units, int unit);

}  // namespace zaview
