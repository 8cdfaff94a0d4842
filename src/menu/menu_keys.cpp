#include "menu/menu_keys.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <vector>

#include "base/message.h"
#include "base/platform.h"
#include "gks/window/gks_window.h"
#include "menu/menu_build.h"
#include "menu/menu_press.h"
#include "menu/menu_window.h"
#include "menu/type_in.h"

namespace zaview {

namespace {

constexpr int kTab = 9, kReturn = 13, kEscape = 27, kSpace = ' ';

using Type = MenuElementType;
using Kind = MenuItemType;

bool CanBePressed(Kind type) {
  return type == Kind::button || type == Kind::check || type == Kind::colour || type == Kind::file || IsTypeIn(type);
}

// All that the keyboard can reach in a menu, in order; a list has one entry, of item 0.
std::vector<MenuPoint> Reachable(const MenuToolkit& kit, int im) {
  std::vector<MenuPoint> points;
  const std::vector<MenuElement>& elements = SlotOf(kit, im).elements;
  for (std::size_t e = 0; e < elements.size(); ++e) {
    const MenuElement& element = elements[e];
    const int number = static_cast<int>(e) + 1;
    if (element.disabled) continue;
    const bool whole = element.type == Type::check_box || element.type == Type::run_bar ||
                       (element.type == Type::list && !element.list.items.empty());
    if (whole) points.push_back({im, number, 0});
    for (std::size_t i = 0; i < element.items.size(); ++i)
      if (CanBePressed(element.items[i].type) && !element.items[i].disabled)
        points.push_back({im, number, static_cast<int>(i) + 1});
  }
  return points;
}

MenuPoint EntryOf(const MenuToolkit& kit, MenuPoint at) {
  if (at.menu == 0) return at;
  const std::vector<MenuElement>& elements = SlotOf(kit, at.menu).elements;
  const auto e = static_cast<std::size_t>(at.element) - 1;
  if (e < elements.size() && elements[e].type == Type::list) at.item = 0;
  return at;
}

// The next one, or the one before, that `wanted` is true for; the first if there is none at `from`.
template <typename Wanted>
MenuPoint Beside(const MenuToolkit& kit, int im, MenuPoint from, int way, Wanted wanted) {
  std::vector<MenuPoint> points = Reachable(kit, im);
  std::erase_if(points, [&](const MenuPoint& point) { return !wanted(point); });
  if (points.empty()) return {};
  const auto found = std::find(points.begin(), points.end(), EntryOf(kit, from));
  if (found == points.end()) return points.front();
  const auto count = static_cast<int>(points.size()), at = static_cast<int>(found - points.begin());
  return points[static_cast<std::size_t>((at + way + count) % count)];
}

void MoveFocus(MenuToolkit& kit, int im, int way) {
  kit.focus = Beside(kit, im, kit.focus, way, [](const MenuPoint&) { return true; });
  if (kit.focus.menu == 0) return;
  ShowElement(kit, im, kit.focus.element);
  MenuElement& element = ElementOf(kit, kit.focus);
  if (element.type != Type::list) return;
  kit.focus.item = std::max(FirstChosen(element.list), 1);
  ShowListItem(kit, im, kit.focus.element, kit.focus.item);
}

// How far a key goes in a list or along a run bar; none: it has another meaning.
std::optional<int> WayOf(int key, int page, int at, int count, bool upright) {
  if (key == (upright ? kKeyUp : kKeyLeft)) return -1;
  if (key == (upright ? kKeyDown : kKeyRight)) return 1;
  if (key == kKeyPageUp) return -page;
  if (key == kKeyPageDown) return page;
  if (key == kKeyHome) return 1 - at;
  if (key == kKeyEnd) return count - at;
  return std::nullopt;
}

bool KeyOfList(MenuToolkit& kit, int im, int key) {
  MenuElement& element = ElementOf(kit, kit.focus);
  const MenuPlaced placed = PlacedAt(kit, kit.focus);
  const int count = static_cast<int>(element.list.items.size());
  const std::optional<int> way = WayOf(key, placed.lines, kit.focus.item, count, true);
  if (!way) return false;
  const int to = std::clamp(kit.focus.item + *way, 1, count);
  if (to == kit.focus.item) return true;
  kit.focus.item = to;
  if (IsOneChoice(element.list) && !element.list.moved_by_keys) ChooseItem(kit, kit.focus);
  else ShowListItem(kit, im, kit.focus.element, to);
  return true;
}

bool KeyOfRunBar(MenuToolkit& kit, int key) {
  constexpr int kPages = 10;  // of a run
  const MenuRunBar& bar = ElementOf(kit, kit.focus).run_bar;
  const int count = bar.last_step - bar.first_step + 1, at = bar.step - bar.first_step + 1;
  const std::optional<int> way = WayOf(key, std::max(count / kPages, 1), at, count, false);
  if (way == -1 || way == 1) PressBarButton(kit, kit.focus, *way < 0 ? kBackButton : kOnButton);
  else if (way) GoToBarStep(kit, kit.focus, bar.step + *way);
  return way.has_value();
}

void PressFocus(MenuToolkit& kit) {
  const MenuPoint at = kit.focus;
  switch (ElementOf(kit, at).type) {
    case Type::list:
      return ChooseItem(kit, at);
    case Type::check_box:
      return ToggleCheckBox(kit, at);
    case Type::run_bar:
      return PressBarButton(kit, at, kPlayButton);
    default:
      return PressItem(kit, at);
  }
}

// The item that is chosen already is meant as if it were pressed twice.
void EnterListItem(MenuToolkit& kit, const MenuPoint& at) {
  const MenuList& list = ElementOf(kit, at).list;
  const MenuListItem& item = list.items[static_cast<std::size_t>(at.item) - 1];
  if (IsOneChoice(list) && item.chosen) TellChange(kit, at, MenuChange::list_twice, item.value);
  else ChooseItem(kit, at);
}

bool KeyOfFocus(MenuToolkit& kit, int im, int key) {
  const Type type = ElementOf(kit, kit.focus).type;
  if (type == Type::list && KeyOfList(kit, im, key)) return true;
  if (type == Type::run_bar && KeyOfRunBar(kit, key)) return true;
  if (key == kTab || key == kKeyRight || key == kKeyDown) MoveFocus(kit, im, 1);
  else if (key == kKeyLeft || key == kKeyUp) MoveFocus(kit, im, -1);
  else if (key == kReturn && type == Type::list) EnterListItem(kit, kit.focus);
  else if (key == kReturn || key == kSpace) PressFocus(kit);
  else if (key == kEscape) kit.focus = MenuPoint{};
  else return false;
  return true;
}

// The field is done with, and another one begun.
void GoToTypeIn(MenuToolkit& kit, int im, int way) {
  const MenuPoint from = kit.type_in.at;
  gksMenuFinishTypein(kit, TypeInEnd::if_changed);
  if (!gksMenuIsOpen(kit, im) || SlotOf(kit, im).status != MenuStatus::open || kit.type_in.at.menu != 0) return;
  const MenuPoint next = Beside(kit, im, from, way, [&](const MenuPoint& point) {
    const MenuRowItem* const item = gksMenuItemAt(kit, point);
    return item != nullptr && IsTypeIn(item->type);
  });
  if (next.menu != 0) {
    ShowElement(kit, im, next.element);
    StartTypeIn(kit, next);
  }
  if (kit.focus.menu == im) kit.focus = next;
}

bool KeyOfTypeIn(MenuToolkit& kit, int im, int key, const GksModifiers& held) {
  constexpr int kFirstFunctionKey = kKeyF1, kLastFunctionKey = kKeyF1 + 11;
  if (held.alt || (key >= kFirstFunctionKey && key <= kLastFunctionKey)) return false;
  const unsigned modifiers = (held.shift ? kShiftKey : 0U) | (held.control ? kControlKey : 0U);
  if (key == kReturn) gksMenuFinishTypein(kit, TypeInEnd::entered);
  else if (key == kEscape) {
    const MenuPoint at = kit.type_in.at;
    DropTypeIn(kit);
    if (SlotOf(kit, im).escape_tells) TellChange(kit, at, MenuChange::escape);
  } else if (key == kTab || key == kKeyDown) GoToTypeIn(kit, im, 1);
  else if (key == kKeyUp) GoToTypeIn(kit, im, -1);
  else if (EditTypeIn(kit.type_in, key, modifiers) == TypeInKey::typed) ScrollTypeIn(kit);
  return true;
}

}  // namespace

bool CanHaveFocus(const MenuToolkit& kit, const MenuPoint& at) {
  const std::vector<MenuPoint> points = Reachable(kit, at.menu);
  if (std::find(points.begin(), points.end(), EntryOf(kit, at)) == points.end()) return false;
  const MenuElement& element = SlotOf(kit, at.menu).elements[static_cast<std::size_t>(at.element) - 1];
  return element.type != Type::list || at.item <= static_cast<int>(element.list.items.size());
}

bool MenuKey(MenuToolkit& kit, int im, int key) {
  if (kit.gks->screen.mode != ScreenMode::plot) return false;
  const GksModifiers held = gksMouseButtons(*kit.gks);
  const MenuSlot& slot = SlotOf(kit, im);
  if (slot.status != MenuStatus::open || kit.inmenu_pending == im) return true;
  if (WaitsForSubMenu(kit, im)) return true;
  if (kit.type_in.at.menu == im) return KeyOfTypeIn(kit, im, key, held);
  if (held.alt || held.control) return false;
  if (kit.focus.menu == im) return KeyOfFocus(kit, im, key);
  if (key == kEscape && slot.escape_closes) {
    gksMenuClose(kit, im);
    return true;
  }
  if (key != kTab) return false;
  kit.focus = MenuPoint{};
  MoveFocus(kit, im, 1);
  return true;
}

}  // namespace zaview
