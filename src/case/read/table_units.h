// Units in the heading of a table of measured data.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zaview {

// "roll [deg]", "roll (deg)", "roll, deg", "roll_deg": name and unit. The last form has a unit only if it is a known
// one.
void SplitHeading(std::string_view field, std::string& name, std::string& unit);

// What a number of this unit is in metres, radians or seconds. none: no such unit, or a blank one.
enum class TableUnitKind : std::uint8_t { none, length, angle, time, other };
struct TableUnit {
  TableUnitKind kind = TableUnitKind::none;
  double factor = 1;
};
[[nodiscard]] TableUnit FindTableUnit(std::string_view unit);

// The unit in letters that every picture has: deg for the sign of degrees, ^2 for a raised 2.
[[nodiscard]] std::string PlainUnit(std::string_view unit);

}  // namespace zaview
