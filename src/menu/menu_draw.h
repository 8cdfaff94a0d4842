// The picture of a menu.
#pragma once

#include "gks/kernel/gks_paint.h"
#include "menu/menu_toolkit.h"

namespace zaview {

void DrawMenu(const MenuToolkit& kit, int im, const GksPaint& paint, int width, int height);

}  // namespace zaview
