// What the keyboard does in a menu window.
#pragma once

#include "menu/menu_toolkit.h"

namespace zaview {

// False: a key for the view. With nothing in the menu focused or being typed all are, but Tab, which focuses its first
// element. Focused: Tab, Left, Right and, but in lists, Up and Down go from one to the next; Return and the space bar
// press it; Escape gives the keys back to the view. Dialogues close by Escape.
[[nodiscard]] bool MenuKey(MenuToolkit& kit, int im, int key);

[[nodiscard]] bool CanHaveFocus(const MenuToolkit& kit, const MenuPoint& at);

}  // namespace zaview
