// What a menu window is told: keys, and what the mouse does. Each ends with the application being told, behind which
// the menu may be another one, or gone.
#pragma once

#include "menu/menu_toolkit.h"

namespace zaview {

// False: a key for the view. With nothing in the menu focused or being typed all are, but Tab, which focuses its first
// element. Focused: Tab, Left, Right and, but in lists, Up and Down go from one to the next; Return and the space bar
// press it; Escape gives the keys back to the view. Dialogues close by Escape.
[[nodiscard]] bool MenuKey(MenuToolkit& kit, int im, int key);
void MenuPress(MenuToolkit& kit, int im, int button, int x, int y);  // buttons 1 to 3 and the wheel
void MenuDragTo(MenuToolkit& kit, int im, int x, int y);
void MenuRelease(MenuToolkit& kit);

[[nodiscard]] bool CanHaveFocus(const MenuToolkit& kit, const MenuPoint& at);

}  // namespace zaview
