// What a press of something in a menu does, by mouse or by key. Each ends with the application being told, behind which
// the menu may be another one, or gone.
#pragma once

#include "menu/menu_toolkit.h"

namespace zaview {

// Is another menu, the file selector, to be answered first? That is said.
[[nodiscard]] bool WaitsForSubMenu(const MenuToolkit& kit, int im);

void TellChange(const MenuToolkit& kit, const MenuPoint& at, MenuChange change, int integer = 0);

void PressItem(MenuToolkit& kit, const MenuPoint& at);  // of a row, but arrows: they are pressed by halves
void StepTypeIn(MenuToolkit& kit, const MenuPoint& arrows, bool up);  // of the type-in ahead of them; Shift: ten times
void ChooseItem(MenuToolkit& kit, const MenuPoint& at);               // of a list; of several choices it is turned over
void ToggleCheckBox(MenuToolkit& kit, const MenuPoint& at);
void GoToBarStep(MenuToolkit& kit, const MenuPoint& at, int step);       // within those of the run bar
void PressBarButton(MenuToolkit& kit, const MenuPoint& at, int button);  // of menu_layout.h

}  // namespace zaview
