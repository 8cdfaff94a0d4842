#include "menu/menu_build.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <utility>

#include <fmt/format.h>

#include "base/grow.h"
#include "base/message.h"
#include "base/platform.h"
#include "base/text.h"
#include "menu/menu_window.h"

namespace zaview {

namespace {

constexpr std::string_view kNoneFree = "ERROR - gksMenuInit - no menus available";
constexpr std::string_view kStillPending = "LOGIC ERROR - gksMenuInit - inmenu_pending already set";
constexpr fmt::string_view kNotPending = "LOGIC ERROR in {}: inmenu_pending not set";
constexpr fmt::string_view kNoElement = "LOGIC ERROR in {}: nelem=0";
constexpr fmt::string_view kFull = "ERROR in {}: too many elements...";
constexpr fmt::string_view kNoItem = "ERROR in {}: invalid attribute";
constexpr fmt::string_view kTag = "{}";
constexpr fmt::string_view kDone = "{}: done...";

constexpr std::string_view kInit = "gksMenuInit", kAddList = "gksMenuAddListItem", kAttribute = "gksMenuSetAttribute",
                           kAttributeS = "gksMenuSetAttributeS";

struct ElementRow {
  MenuElementType type;
  int most;  // of a menu
  std::string_view routine, tag;
  std::string_view too_many;
};
// clang-format off
constexpr ElementRow kElements[] = {
    {MenuElementType::text,       10,  "gksMenuText",          "gksMenutext",
     "ERROR in gksMenuText: too many text elements..."},
    {MenuElementType::list,       4,   "gksMenuSelectionList", "gksMenuSelectionList",
     "ERROR in gksMenuSelectionList: too many list elements"},
    {MenuElementType::check_box,  100, "gksMenuCheckBox",      "gksMenuCheckBox",
     "ERROR in gksMenuCheckBox: too many checkbox elements"},
    {MenuElementType::separator,  20,  "gksMenuSeparator",     "gksMenuSeparator",
     "ERROR in gksMenuSeparator: too many separator elements..."},
    {MenuElementType::button_row, 100, "gksMenuButtonRow",     "gksMenuButtonRow",
     "ERROR in gksMenuButtonRow: too many button row elements"},
    {MenuElementType::run_bar,    1,   "gksMenuRunBar",        "gksMenuRunBar",
     "ERROR in gksMenuRunBar: too many run bar elements"},
};

enum class Adder : std::uint8_t { text, integer, real };
constexpr std::string_view kAdders[] = {"gksMenuAddItem", "gksMenuAddItemI", "gksMenuAddItemF"};
struct ItemRow {
  MenuItemType type;
  bool by[3];  // adders
};
constexpr ItemRow kItems[] = {
    {MenuItemType::tab_columns, {false, true,  false}},
    {MenuItemType::tab_pixels,  {false, true,  false}},
    {MenuItemType::gap_columns, {false, true,  false}},
    {MenuItemType::gap_pixels,  {false, true,  false}},
    {MenuItemType::label,       {true,  false, false}},
    {MenuItemType::button,      {true,  false, false}},
    {MenuItemType::check,       {false, true,  false}},
    {MenuItemType::integer,     {false, true,  false}},
    {MenuItemType::real,        {false, false, true}},
    {MenuItemType::text,        {true,  false, false}},
    {MenuItemType::colour,      {false, true,  false}},
    {MenuItemType::file,        {true,  false, false}},
    {MenuItemType::arrows,      {false, true,  true}},
};
constexpr fmt::string_view kBadType = "ERROR in {}: Invalid itype";
constexpr fmt::string_view kTooMany = "ERROR in {}: Too many items";
constexpr fmt::string_view kNoRow = "LOGIC ERROR in {}: current item is not a button row";
constexpr std::string_view kNoList = "LOGIC ERROR in gksMenuAddListItem: current item is not a selection list";
constexpr std::string_view kBadMode = "ERROR in gksMenuSelectionList: invalid value for mode";
constexpr std::string_view kBadListSize = "ERROR in gksMenuSelectionList: invalid value for mitem";
constexpr std::string_view kBadRowSize = "ERROR in gksMenuButtonRow: invalid value for mitem";
constexpr std::string_view kBadSteps = "ERROR in gksMenuRunBar: invalid time step indices";
constexpr std::string_view kBadTimes = "ERROR in gksMenuRunBar: invalid time values";
// clang-format on

const Console& ConsoleOf(const MenuToolkit& kit) {
  return kit.platform->console;
}

// The menu being built; null, which is said: there is none.
MenuSlot* Pending(MenuToolkit& kit, std::string_view routine) {
  if (kit.inmenu_pending > 0) return &SlotOf(kit, kit.inmenu_pending);
  Say(ConsoleOf(kit), kNotPending, routine);
  return nullptr;
}

// Its last element, in the same way.
MenuElement* Current(MenuToolkit& kit, std::string_view routine) {
  MenuSlot* const slot = Pending(kit, routine);
  if (slot == nullptr) return nullptr;
  if (!slot->elements.empty()) return &slot->elements.back();
  Say(ConsoleOf(kit), kNoElement, routine);
  return nullptr;
}

const ElementRow& RowOf(MenuElementType type) {
  return *std::find_if(std::begin(kElements), std::end(kElements), [&](const auto& row) { return row.type == type; });
}

// A new element at the end of the menu, if `fault` is blank and there is room.
MenuElement* AddElement(MenuToolkit& kit, MenuElementType type, std::string_view fault = {}) {
  const ElementRow& row = RowOf(type);
  Trace(ConsoleOf(kit), kTag, row.tag);
  MenuSlot* const slot = Pending(kit, row.routine);
  if (slot == nullptr) return nullptr;
  std::vector<MenuElement>& elements = slot->elements;
  const auto same = std::count_if(elements.begin(), elements.end(), [&](const auto& e) { return e.type == type; });
  if (same >= row.most) SayLine(ConsoleOf(kit), row.too_many);
  else if (static_cast<int>(elements.size()) >= kMostElements) Say(ConsoleOf(kit), kFull, row.routine);
  else if (!fault.empty()) SayLine(ConsoleOf(kit), fault);
  else if (Grow(elements, elements.size() + 1)) {
    elements.back().type = type;
    Trace(ConsoleOf(kit), kDone, row.tag);
    return &elements.back();
  }
  return nullptr;
}

MenuRowItem* AddItem(MenuToolkit& kit, MenuItemType itype, Adder adder) {
  const auto by = static_cast<std::size_t>(adder);
  const std::string_view routine = kAdders[by];
  Trace(ConsoleOf(kit), kTag, routine);
  MenuElement* const row = Current(kit, routine);
  if (row == nullptr) return nullptr;
  const auto* const known = std::find_if(std::begin(kItems), std::end(kItems),
                                         [&](const ItemRow& item) { return item.type == itype && item.by[by]; });
  if (row->type != MenuElementType::button_row) Say(ConsoleOf(kit), kNoRow, routine);
  else if (known == std::end(kItems)) Say(ConsoleOf(kit), kBadType, routine);
  else if (static_cast<int>(row->items.size()) >= row->capacity) Say(ConsoleOf(kit), kTooMany, routine);
  else if (Grow(row->items, row->items.size() + 1)) {
    row->items.back().type = itype;
    Trace(ConsoleOf(kit), kDone, routine);
    return &row->items.back();
  }
  return nullptr;
}

int FreeSlot(const MenuToolkit& kit) {
  for (int im = 1; im <= kMenuSlots; ++im)
    if (SlotOf(kit, im).status == MenuStatus::free) return im;
  return 0;
}

int SlotOfTitle(const MenuToolkit& kit, std::string_view title) {
  for (int im = 1; im <= kMenuSlots; ++im) {
    const MenuSlot& slot = SlotOf(kit, im);
    if (slot.status != MenuStatus::free && slot.title == title) return im;
  }
  return 0;
}

// ---- Attributes

int* OfMenu(MenuSlot& slot, MenuAttribute attribute) {
  switch (attribute) {
    case MenuAttribute::resize_policy:
      return &slot.resize_policy;
    case MenuAttribute::least_width:
      return &slot.least_width;
    case MenuAttribute::least_height:
      return &slot.least_height;
    case MenuAttribute::largest_width:
      return &slot.largest_width;
    case MenuAttribute::largest_height:
      return &slot.largest_height;
    case MenuAttribute::font_step:
      return &slot.font_step;
    case MenuAttribute::stretched_list:
      return &slot.stretched_list;
    default:
      return nullptr;
  }
}

bool SetOfItem(MenuRowItem& item, MenuAttribute attribute, int value) {
  if (attribute == MenuAttribute::width) item.width = value;
  else if (attribute == MenuAttribute::colour) item.colour = value;
  else if (attribute == MenuAttribute::value) item.value = value;
  else if (attribute == MenuAttribute::disabled) item.disabled = value != 0;
  else if (attribute == MenuAttribute::style) item.style = value;
  else return false;
  return true;
}

bool SetOfListItem(MenuListItem& item, MenuAttribute attribute, int value) {
  if (attribute == MenuAttribute::colour) item.colour = value;
  else if (attribute == MenuAttribute::value) item.value = value;
  else if (attribute == MenuAttribute::style) item.chosen = value == kItemChosen;
  else return false;
  return true;
}

bool SetOfElement(MenuElement& element, MenuAttribute attribute, int value) {
  if (!element.items.empty()) return SetOfItem(element.items.back(), attribute, value);
  if (attribute == MenuAttribute::disabled) element.disabled = value != 0;
  else if (element.type == MenuElementType::list && element.list.items.empty() && attribute == MenuAttribute::style)
    element.list.moved_by_keys = value == kMovedByKeys;
  else if (!element.list.items.empty()) return SetOfListItem(element.list.items.back(), attribute, value);
  else if (attribute == MenuAttribute::colour) element.colour = value;
  else if (attribute == MenuAttribute::value) element.value = value;
  else return false;
  return true;
}

}  // namespace

void gksMenuAttach(MenuToolkit& kit, Platform& platform, GksState& gks, MenuHandler application) {
  kit.platform = &platform;
  kit.gks = &gks;
  kit.application = application;
}

int gksMenuInit(MenuToolkit& kit, std::string_view title) {
  Trace(ConsoleOf(kit), kTag, "gksMenuInit:");
  const std::string name(CutAtLetter(TrimEnd(title), kMenuTitle));
  if (kit.inmenu_pending != 0) {
    SayLine(ConsoleOf(kit), kStillPending);
    return 0;
  }
  const int found = SlotOfTitle(kit, name), im = found != 0 ? found : FreeSlot(kit);
  if (im == 0) {
    SayLine(ConsoleOf(kit), kNoneFree);
    return 0;
  }
  MenuSlot& slot = SlotOf(kit, im);
  if (found != 0) {
    slot.before = std::move(slot.elements);
    slot.elements.clear();
  } else {
    slot = MenuSlot{};
    slot.kit = &kit;
    slot.number = im;
    slot.title = name;
    slot.handler = kit.application;
    slot.status = MenuStatus::pending;
  }
  kit.inmenu_pending = im;
  Trace(ConsoleOf(kit), kDone, kInit);
  return im;
}

void gksMenuSetHandler(MenuToolkit& kit, MenuHandler handler) {
  if (MenuSlot* const slot = Pending(kit, "gksMenuSetHandler")) slot->handler = handler;
}

void gksMenuText(MenuToolkit& kit, std::string_view text) {
  if (MenuElement* const element = AddElement(kit, MenuElementType::text)) element->text = text;
}

void gksMenuSeparator(MenuToolkit& kit, int thickness) {
  if (MenuElement* const element = AddElement(kit, MenuElementType::separator)) element->value = thickness;
}

void gksMenuSelectionList(MenuToolkit& kit, int mode, int mitem, int value, int box_lines) {
  const int last = static_cast<int>(ListMode::one_in_box);
  const std::string_view fault = mode < 0 || mode > last ? kBadMode : mitem < 1 ? kBadListSize : std::string_view();
  MenuElement* const element = AddElement(kit, MenuElementType::list, fault);
  if (element == nullptr) return;
  element->value = value;
  element->list.mode = static_cast<ListMode>(mode);
  element->list.capacity = mitem;
  element->list.box_lines = box_lines;
}

void gksMenuCheckBox(MenuToolkit& kit, std::string_view label, int value) {
  MenuElement* const element = AddElement(kit, MenuElementType::check_box);
  if (element == nullptr) return;
  element->text = label;
  element->value = value;
}

void gksMenuButtonRow(MenuToolkit& kit, int mode, int mitem) {
  MenuElement* const element =
      AddElement(kit, MenuElementType::button_row, mitem < 1 ? kBadRowSize : std::string_view());
  if (element == nullptr) return;
  element->centred = mode == kDialogueRow;
  element->capacity = mitem;
}

void gksMenuRunBar(MenuToolkit& kit, int step0, int step1, float t0, float t1, int step, bool running) {
  const bool times = std::isfinite(t0) && std::isfinite(t1) && t0 <= t1;
  const std::string_view fault = step0 < 1 || step1 < step0 ? kBadSteps : times ? std::string_view() : kBadTimes;
  MenuElement* const element = AddElement(kit, MenuElementType::run_bar, fault);
  if (element != nullptr) element->run_bar = {step0, step1, std::clamp(step, step0, step1), t0, t1, running};
}

void gksMenuAddListItem(MenuToolkit& kit, std::string_view text, int value) {
  MenuElement* const element = Current(kit, kAddList);
  if (element == nullptr) return;
  if (element->type != MenuElementType::list) return SayLine(ConsoleOf(kit), kNoList);
  MenuList& list = element->list;
  const std::size_t count = list.items.size();
  if (static_cast<int>(count) >= list.capacity) return Say(ConsoleOf(kit), kTooMany, kAddList);
  if (!Grow(list.items, count + 1)) return;
  list.items.back() = {std::string(text), value, 1, IsOneChoice(list) && value == element->value};
}

void gksMenuAddItem(MenuToolkit& kit, MenuItemType itype, std::string_view text, int length) {
  MenuRowItem* const item = AddItem(kit, itype, Adder::text);
  if (item == nullptr) return;
  item->text = text;
  (itype == MenuItemType::text ? item->capacity : item->width) = length;
}

void gksMenuAddItemI(MenuToolkit& kit, MenuItemType itype, int value) {
  MenuRowItem* const item = AddItem(kit, itype, Adder::integer);
  if (item == nullptr) return;
  item->value = value;
  if (itype == MenuItemType::arrows) item->real = static_cast<float>(value);
}

void gksMenuAddItemF(MenuToolkit& kit, MenuItemType itype, float value) {
  if (MenuRowItem* const item = AddItem(kit, itype, Adder::real)) item->real = value;
}

void gksMenuSetAttribute(MenuToolkit& kit, MenuAttribute attribute, int value) {
  MenuSlot* const slot = Pending(kit, kAttribute);
  if (slot == nullptr) return;
  if (int* const field = OfMenu(*slot, attribute)) {
    *field = value;
    return;
  }
  MenuElement* const element = Current(kit, kAttribute);
  if (element != nullptr && !SetOfElement(*element, attribute, value)) Say(ConsoleOf(kit), kNoItem, kAttribute);
}

void gksMenuSetAttributeS(MenuToolkit& kit, MenuAttribute attribute, std::string_view text) {
  MenuElement* const element = Current(kit, kAttributeS);
  if (element == nullptr) return;
  if (attribute != MenuAttribute::text) return Say(ConsoleOf(kit), kNoItem, kAttributeS);
  (element->items.empty() ? element->text : element->items.back().text) = text;
}

int gksMenuElement(const MenuToolkit& kit) {
  if (kit.inmenu_pending == 0) return 0;
  return static_cast<int>(SlotOf(kit, kit.inmenu_pending).elements.size());
}

int gksMenuItem(const MenuToolkit& kit) {
  if (gksMenuElement(kit) == 0) return 0;
  const MenuElement& last = SlotOf(kit, kit.inmenu_pending).elements.back();
  return static_cast<int>(last.type == MenuElementType::list ? last.list.items.size() : last.items.size());
}

MenuElement* gksMenuElementAt(MenuToolkit& kit, int im, int element) {
  if (im < 1 || im > kMenuSlots || element < 1) return nullptr;
  std::vector<MenuElement>& elements = SlotOf(kit, im).elements;
  return static_cast<std::size_t>(element) > elements.size() ? nullptr
                                                             : &elements[static_cast<std::size_t>(element) - 1];
}

MenuRowItem* gksMenuItemAt(MenuToolkit& kit, const MenuPoint& at) {
  MenuElement* const element = gksMenuElementAt(kit, at.menu, at.element);
  if (element == nullptr || at.item < 1 || static_cast<std::size_t>(at.item) > element->items.size()) return nullptr;
  return &element->items[static_cast<std::size_t>(at.item) - 1];
}

}  // namespace zaview
