#include "menu/menu_press.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
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

constexpr std::string_view kSubMenu = "Input disabled due to pending sub-menu";

}  // namespace

bool WaitsForSubMenu(const MenuToolkit& kit, int im) {
  if (kit.sub_menu == 0 || kit.sub_menu == im) return false;
  SayLine(kit.platform->console, kSubMenu);
  return true;
}

void TellChange(const MenuToolkit& kit, const MenuPoint& at, MenuChange change, int integer) {
  MenuEvent event;
  event.menu = at.menu;
  event.element = at.element;
  event.item = at.item;
  event.change = change;
  event.integer = integer;
  TellApplication(kit, event);
}

void StepTypeIn(MenuToolkit& kit, const MenuPoint& arrows, bool up) {
  constexpr float kCoarse = 10.0F, kTenth = 0.1F;
  const MenuPoint field = {arrows.menu, arrows.element, arrows.item - 1};
  MenuRowItem* const item = gksMenuItemAt(kit, field);
  if (item == nullptr || item->disabled) return;
  const float given = gksMenuItemAt(kit, arrows)->real;
  const float factor = (up ? 1.0F : -1.0F) * (gksMouseButtons(*kit.gks).shift ? kCoarse : 1.0F);
  MenuEvent event = {field.menu, field.element, field.item, MenuChange::integer, 0, 0, {}};
  if (item->type == MenuItemType::integer) {
    item->value = RoundToInt(item->value + static_cast<double>(factor) * (given > 0 ? std::round(given) : 1.0F));
    event.integer = item->value;
  } else if (item->type == MenuItemType::real) {
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
    case MenuItemType::button:
      return TellChange(kit, at, MenuChange::button);
    case MenuItemType::check:
      if (item->style != kRoundCheck) item->value = item->value == 0 ? 1 : 0;
      else item->value = 1;
      return TellChange(kit, at, MenuChange::check, item->value);
    case MenuItemType::colour:
      return TellChange(kit, at, MenuChange::colour, item->value);
    case MenuItemType::file:
      return dgFileSelector(kit, at, item->style, item->text);
    case MenuItemType::integer:
    case MenuItemType::real:
    case MenuItemType::text:
      return StartTypeIn(kit, at);
    default:
      return;  // arrows are pressed by halves; labels, gaps and tabs have nothing to press
  }
}

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
  TellChange(kit, at, MenuChange::list, chosen.value);
}

void ToggleCheckBox(MenuToolkit& kit, const MenuPoint& at) {
  MenuElement& element = ElementOf(kit, at);
  if (element.disabled) return;
  element.value = element.value == 0 ? 1 : 0;
  TellChange(kit, at, MenuChange::check, element.value);
}

void GoToBarStep(MenuToolkit& kit, const MenuPoint& at, int step) {
  MenuRunBar& bar = ElementOf(kit, at).run_bar;
  step = std::clamp(step, bar.first_step, bar.last_step);
  if (std::exchange(bar.step, step) != step) TellChange(kit, at, MenuChange::step, step);
}

void PressBarButton(MenuToolkit& kit, const MenuPoint& at, int button) {
  MenuRunBar& bar = ElementOf(kit, at).run_bar;
  if (button == kBackButton) return GoToBarStep(kit, {at.menu, at.element, button}, bar.step - 1);
  if (button == kOnButton) return GoToBarStep(kit, {at.menu, at.element, button}, bar.step + 1);
  bar.running = !bar.running;
  TellChange(kit, at, bar.running ? MenuChange::play : MenuChange::pause);
}

}  // namespace zaview
