#include "menu/menu_events.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>

#include "base/message.h"
#include "base/number_format.h"
#include "base/number_parse.h"
#include "base/platform.h"
#include "gks/window/gks_window.h"
#include "menu/file_selector.h"
#include "menu/menu_build.h"
#include "menu/menu_window.h"
#include "menu/type_in.h"

namespace zaview {

namespace {

constexpr std::string_view kDuringUpdate[] = {
    "Menu input received during menu update and might be ignored - It may be",
    " necessary to pause animation (mouse click in main window) to access menu options"};
constexpr std::string_view kSubMenu = "Input disabled due to pending sub-menu";

constexpr int kTab = 9, kReturn = 13, kEscape = 27, kSpace = ' ';
constexpr int kLeftButton = 1, kWheelLines = 3;
constexpr double kTwice = 0.4;  // seconds between the presses of a double click

using Type = MenuElementType;
using Kind = MenuItemType;

MenuElement& ElementOf(MenuToolkit& kit, const MenuPoint& at) {
  return SlotOf(kit, at.menu).elements[static_cast<std::size_t>(at.element) - 1];
}

void Tell(const MenuToolkit& kit, const MenuPoint& at, MenuChange change, int integer = 0) {
  MenuEvent event;
  event.menu = at.menu;
  event.element = at.element;
  event.item = at.item;
  event.change = change;
  event.integer = integer;
  TellApplication(kit, event);
}

// ---- What a press of an element does, by mouse or by key

void StepTypeIn(MenuToolkit& kit, const MenuPoint& arrows, bool up) {
  constexpr float kCoarse = 10.0F, kTenth = 0.1F;
  const MenuPoint field = {arrows.menu, arrows.element, arrows.item - 1};
  MenuRowItem* const item = gksMenuItemAt(kit, field);
  if (item == nullptr || item->disabled) return;
  const float given = gksMenuItemAt(kit, arrows)->real;
  const float factor = (up ? 1.0F : -1.0F) * (gksMouseButtons(*kit.gks).shift ? kCoarse : 1.0F);
  MenuEvent event = {field.menu, field.element, field.item, MenuChange::integer, 0, 0, {}};
  if (item->type == Kind::integer) {
    item->value = RoundToInt(item->value + static_cast<double>(factor) * (given > 0 ? std::round(given) : 1.0F));
    event.integer = item->value;
  } else if (item->type == Kind::real) {
    // By their decimals: 0.3 less 0.1 is 0.2.
    double value = 0, step = 0;
    const float tenth = item->real == 0 ? kTenth : std::abs(item->real) * kTenth;
    if (!ParseDouble(DefaultNumber(item->real), value) || !ParseDouble(DefaultNumber(given > 0 ? given : tenth), step))
      return;
    item->real = Finite(static_cast<float>(value + static_cast<double>(factor) * step));
    event.change = MenuChange::real;
    event.real = item->real;
  } else return;
  TellApplication(kit, event);
}

void PressItem(MenuToolkit& kit, const MenuPoint& at) {
  MenuRowItem* const item = gksMenuItemAt(kit, at);
  if (item == nullptr || item->disabled) return;
  switch (item->type) {
    case Kind::button:
      return Tell(kit, at, MenuChange::button);
    case Kind::check:
      if (item->style != kRoundCheck) item->value = item->value == 0 ? 1 : 0;
      else item->value = 1;
      return Tell(kit, at, MenuChange::check, item->value);
    case Kind::colour:
      return Tell(kit, at, MenuChange::colour, item->value);
    case Kind::file:
      return dgFileSelector(kit, at, item->style, item->text);
    case Kind::integer:
    case Kind::real:
    case Kind::text:
      return StartTypeIn(kit, at);
    default:
      return;  // arrows are pressed by halves; labels, gaps and tabs have nothing to press
  }
}

bool IsOneChoice(const MenuList& list) {
  return list.mode == ListMode::one || list.mode == ListMode::one_in_box;
}

// at.item: the item of the list.
void ChooseItem(MenuToolkit& kit, const MenuPoint& at) {
  MenuElement& element = ElementOf(kit, at);
  const auto index = static_cast<std::size_t>(at.item) - 1;
  if (element.disabled || index >= element.list.items.size()) return;
  MenuListItem& chosen = element.list.items[index];
  if (IsOneChoice(element.list)) {
    for (MenuListItem& item : element.list.items) item.chosen = false;
    chosen.chosen = true;
  } else chosen.chosen = !chosen.chosen;
  ShowListItem(kit, at.menu, at.element, at.item);
  Tell(kit, at, MenuChange::list, chosen.value);
}

// What the first press made of the menu may be another one: the second means no more than that it came.
void ClickItem(MenuToolkit& kit, const MenuPoint& at) {
  const double now = kit.platform->clock.seconds(kit.platform->clock.self);
  const MenuList& list = ElementOf(kit, at).list;
  const bool twice = IsOneChoice(list) && kit.clicked == at && now - kit.clicked_at <= kTwice;
  kit.clicked = twice ? MenuPoint{} : at;
  kit.clicked_at = now;
  if (SlotOf(kit, at.menu).list_keys) kit.focus = at;
  if (twice) Tell(kit, at, MenuChange::list_twice, list.items[static_cast<std::size_t>(at.item) - 1].value);
  else ChooseItem(kit, at);
}

void PressBar(MenuToolkit& kit, const MenuPoint& at, int step) {
  MenuRunBar& bar = ElementOf(kit, at).run_bar;
  step = std::clamp(step, bar.first_step, bar.last_step);
  if (std::exchange(bar.step, step) != step) Tell(kit, at, MenuChange::step, step);
}

void PressBarButton(MenuToolkit& kit, const MenuPoint& at, int button) {
  MenuRunBar& bar = ElementOf(kit, at).run_bar;
  if (button == kBackButton) return PressBar(kit, {at.menu, at.element, button}, bar.step - 1);
  if (button == kOnButton) return PressBar(kit, {at.menu, at.element, button}, bar.step + 1);
  bar.running = !bar.running;
  Tell(kit, at, bar.running ? MenuChange::play : MenuChange::pause);
}

// ---- Mouse

// The label behind a check belongs to it.
int PressedItem(const MenuElement& row, int item) {
  if (item < 2) return item;
  const MenuRowItem& before = row.items[static_cast<std::size_t>(item) - 2];
  const bool label = row.items[static_cast<std::size_t>(item) - 1].type == Kind::label;
  return label && before.type == Kind::check && before.text.empty() ? item - 1 : item;
}

void ScrollList(MenuToolkit& kit, const MenuPoint& at, int lines) {
  MenuSlot& slot = SlotOf(kit, at.menu);
  const MenuPlaced placed = LayoutOf(kit, at.menu).elements[static_cast<std::size_t>(at.element) - 1];
  const int count = static_cast<int>(ElementOf(kit, at).list.items.size());
  if (slot.top.size() == slot.elements.size())
    slot.top[static_cast<std::size_t>(at.element) - 1] =
        std::clamp(placed.top + lines, 0, std::max(count - placed.lines, 0));
}

// Over a list its lines, elsewhere the menu itself, if it is higher than its window.
void TurnWheel(MenuToolkit& kit, int im, const MenuHit& hit, int way) {
  MenuSlot& slot = SlotOf(kit, im);
  const MenuPoint at = {im, hit.element, 0};
  if (hit.element > 0 && ElementOf(kit, at).type == Type::list) return ScrollList(kit, at, way * kWheelLines);
  const int below = std::max(LayoutOf(kit, im).height - slot.height, 0);
  slot.scroll = std::clamp(slot.scroll + way * kWheelLines * FontOf(kit, im).pitch, 0, below);
}

void PressList(MenuToolkit& kit, const MenuPoint& at, const MenuHit& hit, int y) {
  const MenuPlaced placed = LayoutOf(kit, at.menu).elements[static_cast<std::size_t>(at.element) - 1];
  if (!hit.on_bar) {
    if (hit.item > 0 && !ElementOf(kit, at).disabled) ClickItem(kit, {at.menu, at.element, hit.item});
    return;
  }
  const int page = placed.lines;
  if (y < placed.thumb.y) return ScrollList(kit, at, -page);
  if (y >= placed.thumb.y + placed.thumb.height) return ScrollList(kit, at, page);
  kit.drag = MenuDrag::scroll_bar;
  kit.pressed = at;
  kit.drag_offset = y - placed.thumb.y;
}

int StepAt(const MenuRunBar& bar, const MenuPlaced& placed, int left) {
  const int way = std::max(placed.inner.width - placed.thumb.width, 1);
  const double part = std::clamp((left - placed.inner.x) / static_cast<double>(way), 0.0, 1.0);
  return bar.first_step + RoundToInt(part * (bar.last_step - bar.first_step));
}

void PressRunBar(MenuToolkit& kit, const MenuPoint& at, int x, int y) {
  const MenuPlaced placed = LayoutOf(kit, at.menu).elements[static_cast<std::size_t>(at.element) - 1];
  kit.pressed = at;
  if (at.item != kWholeBar) return PressBarButton(kit, {at.menu, at.element, 0}, at.item);
  if (!placed.inner.Holds(x, y)) return;
  kit.drag = MenuDrag::slider;
  const bool on_thumb = placed.thumb.Holds(x, y);
  kit.drag_offset = on_thumb ? x - placed.thumb.x : placed.thumb.width / 2;
  if (!on_thumb) MenuDragTo(kit, at.menu, x, y);
}

void PressRow(MenuToolkit& kit, MenuPoint at, int y) {
  MenuElement& row = ElementOf(kit, at);
  if (at.item == 0 || row.disabled) return;
  at.item = PressedItem(row, at.item);
  kit.pressed = at;
  if (row.items[static_cast<std::size_t>(at.item) - 1].type != Kind::arrows) return PressItem(kit, at);
  const MenuBox box = LayoutOf(kit, at.menu)
                          .elements[static_cast<std::size_t>(at.element) - 1]
                          .items[static_cast<std::size_t>(at.item) - 1];
  kit.pressed_lower = y >= box.y + box.height / 2;
  StepTypeIn(kit, at, !kit.pressed_lower);
}

void ToggleCheckBox(MenuToolkit& kit, const MenuPoint& at) {
  MenuElement& element = ElementOf(kit, at);
  if (element.disabled) return;
  element.value = element.value == 0 ? 1 : 0;
  Tell(kit, at, MenuChange::check, element.value);
}

void PressElement(MenuToolkit& kit, int im, int x, int y) {
  const MenuHit hit = HitMenu(SlotOf(kit, im), LayoutOf(kit, im), x, y);
  if (hit.element == 0) return;
  const MenuPoint at = {im, hit.element, 0};
  switch (ElementOf(kit, at).type) {
    case Type::list:
      return PressList(kit, at, hit, y);
    case Type::check_box:
      return ToggleCheckBox(kit, at);
    case Type::button_row:
      return PressRow(kit, {im, hit.element, hit.item}, y);
    case Type::run_bar:
      return PressRunBar(kit, {im, hit.element, hit.item}, x, y);
    default:
      return;
  }
}

// May the user do something here now? While the main window asks for text, only that answers.
bool IsListening(const MenuToolkit& kit, int im) {
  if (kit.gks->screen.mode != ScreenMode::plot || SlotOf(kit, im).status == MenuStatus::free) return false;
  const Console& console = kit.platform->console;
  if (kit.sub_menu != 0 && kit.sub_menu != im) {
    SayLine(console, kSubMenu);
    return false;
  }
  if (kit.inmenu_pending == im) {
    for (const std::string_view line : kDuringUpdate) SayLine(console, line);
    return false;
  }
  return SlotOf(kit, im).status == MenuStatus::open;
}

// In the field where the caret is: it moves there. True: that was all.
bool PressTypeIn(MenuToolkit& kit, int im, int x, int y) {
  TypeIn& t = kit.type_in;
  if (t.at.menu != im) return false;
  const MenuHit hit = HitMenu(SlotOf(kit, im), LayoutOf(kit, im), x, y);
  if (hit.element != t.at.element || hit.item != t.at.item) return false;
  const std::size_t place = TypeInPlace(kit, x);
  t.caret = place;
  if (!gksMouseButtons(*kit.gks).shift) t.anchor = place;
  kit.drag = MenuDrag::selection;
  kit.pressed = t.at;
  return true;
}

// ---- Keys

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

// The item of a list at which the keys stand: the one that is chosen, else the first.
int KeyItem(const MenuElement& element) {
  const auto& items = element.list.items;
  const auto found = std::find_if(items.begin(), items.end(), [](const auto& item) { return item.chosen; });
  return found == items.end() ? 1 : static_cast<int>(found - items.begin()) + 1;
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
  kit.focus.item = KeyItem(element);
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
  const MenuPlaced placed = LayoutOf(kit, im).elements[static_cast<std::size_t>(kit.focus.element) - 1];
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
  else if (way) PressBar(kit, kit.focus, bar.step + *way);
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
  if (IsOneChoice(list) && item.chosen) Tell(kit, at, MenuChange::list_twice, item.value);
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
    if (SlotOf(kit, im).escape_tells) Tell(kit, at, MenuChange::escape);
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
  if (kit.sub_menu != 0 && kit.sub_menu != im) {
    SayLine(kit.platform->console, kSubMenu);
    return true;
  }
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

void MenuPress(MenuToolkit& kit, int im, int button, int x, int y) {
  if (!IsListening(kit, im)) return;
  if (button == kWheelUp || button == kWheelDown)
    return TurnWheel(kit, im, HitMenu(SlotOf(kit, im), LayoutOf(kit, im), x, y), button == kWheelUp ? -1 : 1);
  if (button != kLeftButton || PressTypeIn(kit, im, x, y)) return;
  gksMenuFinishTypein(kit, TypeInEnd::if_changed);
  if (!gksMenuIsOpen(kit, im) || SlotOf(kit, im).status != MenuStatus::open) return;
  if (kit.focus.menu != 0) PostMenu(kit, kit.focus.menu);
  kit.focus = MenuPoint{};
  PressElement(kit, im, x, y);
}

void MenuDragTo(MenuToolkit& kit, int im, int x, int y) {
  const MenuPoint at = kit.pressed;
  if (kit.drag == MenuDrag::none || at.menu != im) return;
  const MenuElement* const element = gksMenuElementAt(kit, im, at.element);
  if (element == nullptr) return;
  const MenuPlaced placed = LayoutOf(kit, im).elements[static_cast<std::size_t>(at.element) - 1];
  if (kit.drag == MenuDrag::slider && element->type == Type::run_bar)
    return PressBar(kit, {im, at.element, 0}, StepAt(element->run_bar, placed, x - kit.drag_offset));
  if (kit.drag == MenuDrag::selection && kit.type_in.at == at) {
    kit.type_in.caret = TypeInPlace(kit, x);
    ScrollTypeIn(kit);
  }
  if (kit.drag != MenuDrag::scroll_bar || element->type != Type::list) return;
  const int way = placed.bar.height - placed.thumb.height;
  const int lines = static_cast<int>(element->list.items.size()) - placed.lines;
  if (way < 1) return;
  const double part = (y - kit.drag_offset - placed.bar.y) / static_cast<double>(way);
  ScrollList(kit, at, RoundToInt(part * lines) - placed.top);
}

void MenuRelease(MenuToolkit& kit) {
  kit.pressed = MenuPoint{};
  kit.drag = MenuDrag::none;
}

}  // namespace zaview
