// What the mouse does in a menu window.
#pragma once

#include "menu/menu_toolkit.h"

namespace zaview {

void MenuPress(MenuToolkit& kit, int im, int button, int x, int y);  // buttons 1 to 3 and the wheel
void MenuDragTo(MenuToolkit& kit, int im, int x, int y);
void MenuRelease(MenuToolkit& kit);

}  // namespace zaview
