#include "frame/ground/file_units.h"

#include "base/message.h"

namespace zaview {

namespace {

constexpr std::string_view kPoolUsedUp = "WRN??? - Ran out of I/O Unit numbers";

}  // namespace

void UNITLIST(const Console& console, FileUnits& file_units, std::span<int> units) {
  for (int& unit : units) {
    int entry = 0;
    while (entry < kUnitPool && file_units.in_use[static_cast<std::size_t>(entry)]) ++entry;
    if (entry < kUnitPool) {
      file_units.in_use[static_cast<std::size_t>(entry)] = true;
      unit = kFirstPoolUnit + entry;
      continue;
    }
    SayLine(console, kPoolUsedUp);
    unit = kFirstPoolUnit + kUnitPool + file_units.above_pool++;
  }
}

void FreeUnit(FileUnits& file_units, int unit) {
  if (unit >= kFirstPoolUnit && unit < kFirstPoolUnit + kUnitPool)
    file_units.in_use[static_cast<std::size_t>(unit - kFirstPoolUnit)] = false;
}

}  // namespace zaview
