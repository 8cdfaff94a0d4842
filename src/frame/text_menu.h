// The main menu on the console.
#pragma once

#include <string_view>
#include <vector>

#include "frame/session.h"

namespace zaview {

// Shows the menu and does what is chosen, until a view is wanted (run.plot_module) or the end
// (run.exit_requested).
void text_menu(Session& session);

[[nodiscard]] std::vector<std::string_view> MainMenu();  // " 1 - ..", all of them

}  // namespace zaview
