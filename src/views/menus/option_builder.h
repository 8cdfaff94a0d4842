// From the rows of a table to the items of a menu that is being built, and from an event back to its row. Private to
// the option menus.
#pragma once

#include "views/state/option_row.h"

namespace zaview {

void clearMenuData(MenuState& menus, int im);  // forgets the items of a menu
// Adds what stands there now to the menu being built.
void AddOptions(Session& session, int im, const ViewOptions& options);
[[nodiscard]] const OptionPlace* FindOption(const MenuState& menus, const MenuEvent& event);  // null: none of a table
// What is said of a value that is refused; blank: it was set.
[[nodiscard]] std::string_view SetOption(Session& session, const OptionItem& item, const OptionEvent& event);

// ---- Parts of menus without a table
void AddCloseButton(MenuToolkit& kit);  // in the middle of a row of its own

// ---- The parts of the options menu that are the same in every view
[[nodiscard]] std::span<const OptionBlock> FirstOptions();  // kinds of plot, other menus
[[nodiscard]] std::span<const OptionBlock> LastOptions();   // picture, colours, font

// ---- The other menus
[[nodiscard]] ViewOptions TimeStepOptions(const Session& session);
[[nodiscard]] ViewOptions CurveOptions(const Session& session);
[[nodiscard]] ViewOptions PointOptions(const Session& session);
void BuildQuantities(Session& session);  // of "Select"
void BuildColours(Session& session);

}  // namespace zaview
