// Typing into a field of a menu.
#pragma once

#include <cstdint>

#include "menu/menu_toolkit.h"

namespace zaview {

// Begins with the value of the item; what was being typed elsewhere is to be finished by then.
void StartTypeIn(MenuToolkit& kit, const MenuPoint& at);

// The value is stored and the application told; if Return did not enter it, only if it is another one. A bad number, an
// empty one too, leaves the old value, and nobody is told.
enum class TypeInEnd : std::uint8_t { entered, if_changed };
void gksMenuFinishTypein(MenuToolkit& kit, TypeInEnd how);
void DropTypeIn(MenuToolkit& kit);  // the old value stays

// What a key does to the buffer. other: none for it; shift selects.
enum class TypeInKey : std::uint8_t { typed, other };
[[nodiscard]] TypeInKey EditTypeIn(TypeIn& type_in, int key, unsigned modifiers);

void ScrollTypeIn(MenuToolkit& kit);                                   // so that the caret is seen
[[nodiscard]] std::size_t TypeInPlace(const MenuToolkit& kit, int x);  // between two letters, nearest to a pixel

}  // namespace zaview
