#include "menu/menu_mouse.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "base/message.h"
#include "base/number_parse.h"
#include "base/platform.h"
#include "gks/window/gks_window.h"
#include "menu/menu_build.h"
#include "menu/menu_press.h"
#include "menu/menu_window.h"
#include "menu/type_in.h"

namespace zaview {

namespace {

constexpr std::string_view kDuringUpdate[] = {
    "Menu input received during menu update and might be ignored - It may be",
    " necessary to pause animation (mouse click in main window) to access menu options"};

constexpr int kLeftButton = 1, kWheelLines = 3;
constexpr double kTwice = 0.4;  // seconds between the presses of a double click

using Type = MenuElementType;
using Kind = MenuItemType;

// The label behind a check belongs to it.
int PressedItem(const MenuElement& row, int item) {
  if (item < 2) return item;
  const MenuRowItem& before = row.items[static_cast<std::size_t>(item) - 2];
  const bool label = row.items[static_cast<std::size_t>(item) - 1].type == Kind::label;
  return label && before.type == Kind::check && before.text.empty() ? item - 1 : item;
}

void ScrollList(MenuToolkit& kit, const MenuPoint& at, int lines) {
  MenuSlot& slot = SlotOf(kit, at.menu);
  const MenuPlaced placed = PlacedAt(kit, at);
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

// What the first press made of the menu may be another one: the second means no more than that it came.
void ClickItem(MenuToolkit& kit, const MenuPoint& at) {
  const double now = kit.platform->clock.seconds(kit.platform->clock.self);
  const MenuList& list = ElementOf(kit, at).list;
  const bool twice = IsOneChoice(list) && kit.clicked == at && now - kit.clicked_at <= kTwice;
  kit.clicked = twice ? MenuPoint{} : at;
  kit.clicked_at = now;
  if (SlotOf(kit, at.menu).list_keys) kit.focus = at;
  if (twice) TellChange(kit, at, MenuChange::list_twice, list.items[static_cast<std::size_t>(at.item) - 1].value);
  else ChooseItem(kit, at);
}

void PressList(MenuToolkit& kit, const MenuPoint& at, const MenuHit& hit, int y) {
  const MenuPlaced placed = PlacedAt(kit, at);
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
  const MenuPlaced placed = PlacedAt(kit, at);
  kit.pressed = at;
  if (at.item != kWholeBar) return PressBarButton(kit, {at.menu, at.element, 0}, at.item);
  if (!placed.inner.Holds(x, y)) return;
  kit.drag = MenuDrag::slider;
  const bool on_thumb = placed.thumb.Holds(x, y);
  kit.drag_offset = on_thumb ? x - placed.thumb.x : placed.thumb.width / 2;
  if (!on_thumb) MenuDragTo(kit, at.menu, x, y);
}

void PressRow(MenuToolkit& kit, MenuPoint at, int y) {
  const MenuElement& row = ElementOf(kit, at);
  if (at.item == 0 || row.disabled) return;
  at.item = PressedItem(row, at.item);
  const MenuRowItem& item = row.items[static_cast<std::size_t>(at.item) - 1];
  if (item.disabled) return;
  kit.pressed = at;
  if (item.type != Kind::arrows) return PressItem(kit, at);
  const MenuBox box = BoxOf(kit, at);
  kit.pressed_lower = y >= box.y + box.height / 2;
  StepTypeIn(kit, at, !kit.pressed_lower);
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
  if (WaitsForSubMenu(kit, im)) return false;
  if (kit.inmenu_pending == im) {
    for (const std::string_view line : kDuringUpdate) SayLine(kit.platform->console, line);
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

}  // namespace

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
  const MenuPlaced placed = PlacedAt(kit, at);
  if (kit.drag == MenuDrag::slider && element->type == Type::run_bar)
    return GoToBarStep(kit, {im, at.element, 0}, StepAt(element->run_bar, placed, x - kit.drag_offset));
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
