// Building a menu: calls between gksMenuInit and gksMenuStart. Each wrong use prints its line and changes nothing else.
// What the application keeps to know an event again are the numbers that gksMenuElement and gksMenuItem give.
#pragma once

#include <string_view>

#include "menu/menu_toolkit.h"

namespace zaview {

// Once, by whoever starts the graphics; all three outlive the toolkit.
void gksMenuAttach(MenuToolkit& kit, Platform& platform, GksState& gks, MenuHandler application);

// The slot, 1 to 8, or 0. A menu of the same title is built anew in its window; its attributes stay.
[[nodiscard]] int gksMenuInit(MenuToolkit& kit, std::string_view title);
// Events of the menu being built go there instead of to the application.
void gksMenuSetHandler(MenuToolkit& kit, MenuHandler handler);

void gksMenuText(MenuToolkit& kit, std::string_view text);  // lines apart by \n
void gksMenuSeparator(MenuToolkit& kit, int thickness);     // pixels
// mode: a ListMode. mitem: most items, above 0. value: that of the item that is chosen, in a list of one choice.
// box_lines: height of a box.
void gksMenuSelectionList(MenuToolkit& kit, int mode, int mitem, int value, int box_lines = 10);
inline constexpr int kOneChoice = 0, kSeveralChoices = 1, kSeveralInBox = 2, kOneInBox = 3;  // modes, by ListMode
void gksMenuCheckBox(MenuToolkit& kit, std::string_view label, int value);
void gksMenuButtonRow(MenuToolkit& kit, int mode, int mitem);
inline constexpr int kPlainRow = 0, kDialogueRow = 1;  // modes; the second is centred, at the end of a dialogue
void gksMenuRunBar(MenuToolkit& kit, int step0, int step1, float t0, float t1, int step, bool running);

void gksMenuAddListItem(MenuToolkit& kit, std::string_view text, int value);
// label, button, file (length: columns, 0: as the text needs) and text (length: most bytes; columns too, up to 40).
void gksMenuAddItem(MenuToolkit& kit, MenuItemType itype, std::string_view text, int length = 0);
// gaps, tabs, check, integer, colour, arrows (value: the step, 0: by the type-in).
void gksMenuAddItemI(MenuToolkit& kit, MenuItemType itype, int value);
void gksMenuAddItemF(MenuToolkit& kit, MenuItemType itype, float value);  // real, arrows

// Of the menu, or of the last item of a row or list, else the element.
enum class MenuAttribute : std::uint8_t {
  resize_policy = 0,  // menu; 1: only grows
  width = 1,          // columns
  colour = 2,
  value = 3,
  disabled = 4,
  least_width = 5,  // menu, as the next ones; pixels
  style = 6,        // item; of an item of a list 1: chosen
  least_height = 7,
  largest_width = 8,
  text = 9,  // by gksMenuSetAttributeS
  largest_height = 11,
  font_step = 12,
  stretched_list = 13,  // element that takes surplus height; 0: all lists in boxes alike
};
void gksMenuSetAttribute(MenuToolkit& kit, MenuAttribute attribute, int value);
void gksMenuSetAttributeS(MenuToolkit& kit, MenuAttribute attribute, std::string_view text);

[[nodiscard]] int gksMenuElement(const MenuToolkit& kit);  // number of the last element of the menu being built
[[nodiscard]] int gksMenuItem(const MenuToolkit& kit);     // number of its last item

// To be changed in an open menu; gksMenuRefresh shows it. Null: there is none.
[[nodiscard]] MenuElement* gksMenuElementAt(MenuToolkit& kit, int im, int element);
[[nodiscard]] MenuRowItem* gksMenuItemAt(MenuToolkit& kit, const MenuPoint& at);

}  // namespace zaview
