#include "views/menus/option_builder.h"

#include <algorithm>
#include <cmath>

#include "base/grow.h"
#include "menu/menu_build.h"

namespace zaview {

namespace {

constexpr int kMostInRow = 40;
constexpr int kThin = 1;           // separators, pixels
constexpr int kBetweenChecks = 6;  // pixels: the label of one stands ahead of the next

using Items = std::span<const OptionItem>;

// One row of a block as it is built.
struct Place {
  Session& s;
  int im;
  int index;
  KeyScope scope;
};

bool Stands(const OptionItem& item, const Place& at) {
  return (item.scope & at.scope) != 0 && (item.stands == nullptr || item.stands(at.s, at.index));
}

bool IsInRow(const OptionItem& item) {
  return item.kind != OptionKind::row && item.kind != OptionKind::separator && item.kind != OptionKind::text &&
         item.kind != OptionKind::element;
}

void Remember(const Place& at, const OptionItem& item) {
  MenuState& menus = at.s.menus;
  std::vector<OptionPlace>& places = menus.places;
  if (item.value.sets == nullptr && item.kind != OptionKind::point) return;
  if (!Grow(places, places.size() + 1)) return;
  const bool whole = item.kind == OptionKind::element;  // its events tell items of their own
  places.back() = {at.im, gksMenuElement(menus.kit), whole ? 0 : gksMenuItem(menus.kit), &item, at.index};
}

std::string_view TextOf(const OptionItem& item, const OptionValue& value) {
  return value.text.empty() ? item.text : std::string_view(value.text);
}

void AddCheck(MenuToolkit& kit, const OptionItem& item, const OptionValue& value) {
  gksMenuAddItemI(kit, MenuItemType::check, value.integer);
  gksMenuSetAttributeS(kit, MenuAttribute::text, TextOf(item, value));
  if (item.kind == OptionKind::radio) gksMenuSetAttribute(kit, MenuAttribute::style, kRoundCheck);
}

void AddTypeIn(MenuToolkit& kit, const OptionItem& item, const OptionValue& value) {
  if (item.kind == OptionKind::integer) gksMenuAddItemI(kit, MenuItemType::integer, value.integer);
  else if (item.kind == OptionKind::real) gksMenuAddItemF(kit, MenuItemType::real, value.real);
  else gksMenuAddItem(kit, MenuItemType::text, value.text);
  if (item.width > 0) gksMenuSetAttribute(kit, MenuAttribute::width, item.width);
}

void AddButton(MenuToolkit& kit, std::string_view text, const OptionItem& item, const OptionValue& value) {
  gksMenuAddItem(kit, MenuItemType::button, text, item.width);
  if (value.integer != 0 && item.kind == OptionKind::button)
    gksMenuSetAttribute(kit, MenuAttribute::style, kButtonDown);
}

void AddFile(MenuToolkit& kit, const OptionItem& item, const OptionValue& value) {
  gksMenuAddItem(kit, MenuItemType::file, value.text, item.width);
  gksMenuSetAttribute(kit, MenuAttribute::style, value.integer);
}

bool IsCheck(const OptionItem& item) {
  return item.kind == OptionKind::check || item.kind == OptionKind::radio;
}

bool IsTypeIn(const OptionItem& item) {
  return item.kind == OptionKind::integer || item.kind == OptionKind::real || item.kind == OptionKind::word;
}

// A label, but for that of a check, a button and a label itself, stands ahead as an item of its own.
bool HasLabelAhead(const OptionItem& item) {
  return !item.text.empty() && (IsTypeIn(item) || item.kind == OptionKind::colour || item.kind == OptionKind::file ||
                                item.kind == OptionKind::quantity);
}

void AddItem(const Place& at, const OptionItem& item) {
  MenuToolkit& kit = at.s.menus.kit;
  const OptionValue value = item.value.shows == nullptr ? OptionValue{} : item.value.shows(at.s, at.index);
  if (HasLabelAhead(item)) gksMenuAddItem(kit, MenuItemType::label, item.text);
  if (item.kind == OptionKind::tab) gksMenuAddItemI(kit, MenuItemType::tab_columns, item.width);
  else if (item.kind == OptionKind::label) gksMenuAddItem(kit, MenuItemType::label, TextOf(item, value), item.width);
  else if (item.kind == OptionKind::check || item.kind == OptionKind::radio) AddCheck(kit, item, value);
  else if (IsTypeIn(item)) AddTypeIn(kit, item, value);
  else if (item.kind == OptionKind::colour) gksMenuAddItemI(kit, MenuItemType::colour, value.integer);
  else if (item.kind == OptionKind::file) AddFile(kit, item, value);
  else
    AddButton(kit, item.kind == OptionKind::quantity ? std::string_view(value.text) : TextOf(item, value), item, value);
  if (value.disabled) gksMenuSetAttribute(kit, MenuAttribute::disabled, 1);
  Remember(at, item);
  const bool has_arrows = (item.kind == OptionKind::integer || item.kind == OptionKind::real) && item.step >= 0;
  if (has_arrows) gksMenuAddItemF(kit, MenuItemType::arrows, item.step);
  if (has_arrows && value.disabled) gksMenuSetAttribute(kit, MenuAttribute::disabled, 1);
}

// row: its items, its beginning first. A row of which nothing but its label would stand there is left out.
void AddRow(const Place& at, Items row) {
  const bool label_alone = row.size() == 1;
  const auto has_something = [&](const OptionItem& item) { return item.kind != OptionKind::tab && Stands(item, at); };
  if (!Stands(row.front(), at) || !(label_alone || std::any_of(row.begin() + 1, row.end(), has_something))) return;
  MenuToolkit& kit = at.s.menus.kit;
  gksMenuButtonRow(kit, kPlainRow, kMostInRow);
  const OptionItem& begin = row.front();
  const OptionValue value = begin.value.shows == nullptr ? OptionValue{} : begin.value.shows(at.s, at.index);
  if (!TextOf(begin, value).empty()) gksMenuAddItem(kit, MenuItemType::label, TextOf(begin, value), begin.width);
  bool set_apart = false;
  for (const OptionItem& item : row.subspan(1)) {
    if (!Stands(item, at)) continue;
    if (set_apart && IsCheck(item)) gksMenuAddItemI(kit, MenuItemType::gap_pixels, kBetweenChecks);
    AddItem(at, item);
    set_apart = IsCheck(item) || IsTypeIn(item);
  }
}

void AddElement(const Place& at, const OptionItem& item) {
  MenuToolkit& kit = at.s.menus.kit;
  if (!Stands(item, at)) return;
  if (item.kind == OptionKind::separator) return gksMenuSeparator(kit, kThin);
  if (item.kind == OptionKind::text) {
    const OptionValue value = item.value.shows == nullptr ? OptionValue{} : item.value.shows(at.s, at.index);
    return gksMenuText(kit, TextOf(item, value));
  }
  item.build(kit, at.s);
  Remember(at, item);
}

void AddBlock(const Place& at, Items items) {
  while (!items.empty()) {
    if (items.front().kind != OptionKind::row) {
      AddElement(at, items.front());
      items = items.subspan(1);
      continue;
    }
    const auto end = std::find_if_not(items.begin() + 1, items.end(), IsInRow);
    const auto count = static_cast<std::size_t>(end - items.begin());
    AddRow(at, items.first(count));
    items = items.subspan(count);
  }
}

}  // namespace

void clearMenuData(MenuState& menus, int im) {
  std::erase_if(menus.places, [im](const OptionPlace& place) { return place.menu == im; });
}

void AddOptions(Session& session, int im, const ViewOptions& options) {
  for (const OptionBlock& block : options.blocks)
    for (int index = 1; index <= block.times; ++index) AddBlock({session, im, index, options.scope}, block.items);
}

void AddCloseButton(MenuToolkit& kit) {
  gksMenuButtonRow(kit, kDialogueRow, 1);
  gksMenuAddItem(kit, MenuItemType::button, "Close");
}

const OptionPlace* FindOption(const MenuState& menus, const MenuEvent& event) {
  for (const OptionPlace& place : menus.places)
    if (place.menu == event.menu && place.element == event.element && (place.item == 0 || place.item == event.item))
      return &place;
  return nullptr;
}

std::string_view SetOption(Session& session, const OptionItem& item, const OptionEvent& event) {
  const bool is_number = item.kind == OptionKind::integer || item.kind == OptionKind::real;
  const float number = item.kind == OptionKind::integer ? static_cast<float>(event.integer) : event.real;
  if (is_number && !(std::isfinite(number) && number >= item.low && number <= item.high)) return kIllegalIgnored;
  return item.value.sets == nullptr ? std::string_view() : item.value.sets(session, event);
}

}  // namespace zaview
