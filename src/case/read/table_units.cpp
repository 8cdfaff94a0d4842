#include "case/read/table_units.h"

#include <utility>

#include "base/angles.h"
#include "base/text.h"

namespace zaview {
namespace {

struct UnitRow {
  std::string_view name;
  TableUnit unit;
};
constexpr std::string_view kDegreeSign = "\xC2\xB0", kDegreeSignLatin = "\xB0";  // UTF-8, Latin 1
constexpr TableUnit kOther{TableUnitKind::other, 1};
constexpr TableUnit Length(double factor) {
  return {TableUnitKind::length, factor};
}
constexpr TableUnit Angle(double factor) {
  return {TableUnitKind::angle, factor};
}
constexpr TableUnit Time(double factor) {
  return {TableUnitKind::time, factor};
}
constexpr UnitRow kUnits[] = {
    {"m", Length(1)},
    {"cm", Length(0.01)},
    {"mm", Length(0.001)},
    {"km", Length(1000)},
    {"ft", Length(0.3048)},
    {"feet", Length(0.3048)},
    {"in", Length(0.0254)},
    {"deg", Angle(kRadians)},
    {"degree", Angle(kRadians)},
    {"degrees", Angle(kRadians)},
    {kDegreeSign, Angle(kRadians)},
    {kDegreeSignLatin, Angle(kRadians)},
    {"rad", Angle(1)},
    {"s", Time(1)},
    {"sec", Time(1)},
    {"seconds", Time(1)},
    {"ms", Time(0.001)},
    {"min", Time(60)},
    {"h", Time(3600)},
    {"m/s", kOther},
    {"m/s2", kOther},
    {"m/s^2", kOther},
    {"ft/s", kOther},
    {"ft/s^2", kOther},
    {"deg/s", kOther},
    {"deg/s2", kOther},
    {"deg/s^2", kOther},
    {"rad/s", kOther},
    {"rad/s2", kOther},
    {"rad/s^2", kOther},
    {"kn", kOther},
    {"N", kOther},
    {"kN", kOther},
    {"MN", kOther},
    {"Nm", kOther},
    {"kNm", kOther},
    {"MNm", kOther},
    {"N-m", kOther},
    {"kN-m", kOther},
    {"lb", kOther},
    {"ft-lb", kOther},
    {"Pa", kOther},
    {"kPa", kOther},
    {"MPa", kOther},
    {"bar", kOther},
    {"Hz", kOther},
    {"1/s", kOther},
    {"rpm", kOther},
    {"kW", kOther},
    {"V", kOther},
    {"%", kOther},
};

}  // namespace

TableUnit FindTableUnit(std::string_view unit) {
  for (const UnitRow& row : kUnits)
    if (row.name == unit) return row.unit;
  const std::string small = [&] {
    std::string text(unit);
    for (char& c : text) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    return text;
  }();
  for (const UnitRow& row : kUnits)
    if (row.unit.kind != TableUnitKind::other && row.name == small) return row.unit;
  return {};
}

void SplitHeading(std::string_view field, std::string& name, std::string& unit) {
  const std::string_view whole = Trim(field);
  name = whole;
  unit.clear();
  for (const auto& [open, close] : {std::pair{'[', ']'}, {'(', ')'}}) {
    const std::size_t at = whole.rfind(open);
    if (at == std::string_view::npos || at == 0 || whole.back() != close) continue;
    const std::string_view inside = Trim(whole.substr(at + 1, whole.size() - at - 2));
    if (open == '(' && FindTableUnit(inside).kind == TableUnitKind::none && !IsWhite(whole[at - 1]))
      continue;  // pmgg(3)
    name = Trim(whole.substr(0, at));
    unit = inside == "-" ? std::string_view{} : inside;
    return;
  }
  for (const char mark : {',', '_'}) {
    const std::size_t at = whole.rfind(mark);
    if (at == std::string_view::npos || at == 0) continue;
    const std::string_view behind = Trim(whole.substr(at + 1));
    if (FindTableUnit(behind).kind == TableUnitKind::none) continue;
    name = Trim(whole.substr(0, at));
    unit = behind;
    return;
  }
}

std::string PlainUnit(std::string_view unit) {
  if (unit == kDegreeSign || unit == kDegreeSignLatin) return "deg";
  std::string text(unit);
  for (const std::string_view square : {std::string_view("\xC2\xB2"), std::string_view("\xB2")})
    if (const std::size_t at = text.find(square); at != std::string::npos) text.replace(at, square.size(), "^2");
  return text;
}

}  // namespace zaview
