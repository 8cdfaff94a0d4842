// The windows of menus, from gksMenuStart to gksMenuClose.
#pragma once

#include "menu/menu_layout.h"
#include "menu/menu_toolkit.h"

namespace zaview {

// Makes the menu real that is being built. A window that is there already is drawn again if what it shows has changed,
// and raised above others if `raise`: not for menus that follow what happens elsewhere. False: there is no window to be
// had (nobody sees one in memory); the slot is free again.
bool gksMenuStart(MenuToolkit& kit, bool raise = true);
// im 0: all. The handler is told MenuChange::closed, behind everything else.
void gksMenuClose(MenuToolkit& kit, int im);
void gksMenuClear(MenuToolkit& kit, int im);    // no elements any more; slot and window stay
void gksMenuDisable(MenuToolkit& kit, int im);  // greyed, deaf
void gksMenuEnable(MenuToolkit& kit, int im);
void gksMenuRefresh(MenuToolkit& kit, int im);  // im 0: all. Sizes and drawing as the start has them, nothing is built
void gksMenuFontUp(MenuToolkit& kit);           // steps 1 to 3, of all menus without one of their own
void gksMenuFontDown(MenuToolkit& kit);
[[nodiscard]] bool gksMenuIsOpen(const MenuToolkit& kit, int im);  // disabled ones too

// ---- For the room's own files
[[nodiscard]] MenuSlot& SlotOf(MenuToolkit& kit, int im);
[[nodiscard]] const MenuSlot& SlotOf(const MenuToolkit& kit, int im);
[[nodiscard]] MenuElement& ElementOf(MenuToolkit& kit, const MenuPoint& at);
[[nodiscard]] const MenuFont& FontOf(const MenuToolkit& kit, int im);
[[nodiscard]] MenuLayout LayoutOf(const MenuToolkit& kit, int im);               // in its window
[[nodiscard]] MenuPlaced PlacedAt(const MenuToolkit& kit, const MenuPoint& at);  // the element, there
[[nodiscard]] MenuBox BoxOf(const MenuToolkit& kit, const MenuPoint& at);        // the item of its row, there
void PostMenu(const MenuToolkit& kit, int im);                                   // is drawn soon
void TellApplication(const MenuToolkit& kit, const MenuEvent& event);
// Brings an element into view in a menu that is higher than its window; an item in its list.
void ShowElement(MenuToolkit& kit, int im, int element);
void ShowListItem(MenuToolkit& kit, int im, int element, int item);

}  // namespace zaview
