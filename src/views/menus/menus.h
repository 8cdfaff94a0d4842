// The option menus: windows that show the state of the views in items and change it by them. What stands in them is
// told by tables (views/state/option_row.h), which are built anew whenever something may have changed.
#pragma once

#include <string>
#include <vector>

#include "frame/session.h"
#include "views/state/option_row.h"

namespace zaview {

enum class MenuMode : unsigned char {
  close,   // if it is open
  open,    // or raise
  rebuild  // in its window, if it is open
};

void InvokeOptionsMenu(Session& session, MenuMode mode);
void InvokeTimeStepMenu(Session& session, MenuMode mode);
void InvokeCurveSelectionMenu(Session& session, MenuMode mode);
void InvokePointMenu(Session& session, MenuMode mode);
// Lists, under one title; what is chosen there is set by the item that asked.
void InvokeQntMenu(Session& session, const OptionTarget& target);
void InvokeColorMenu(Session& session, const OptionTarget& target);
// False: there are no windows to be had.
bool InvokeShowFileMenu(Session& session, std::vector<std::string> lines);  // titled "Help"
bool InvokeMessageWindow(Session& session, std::vector<std::string> lines);

// Opens it, or closes it if it is open.
void ToggleMenu(Session& session, void (*invoke)(Session&, MenuMode), int MenuState::*window);

// All that are open show what is so now; those that don't fit any more close.
void RefreshMenus(Session& session);
// In run mode: the time-step menu alone, and that not oftener than it can be looked at, but for the end of the run.
void FollowRun(Session& session);

// What the user does in a menu. The picture is to be drawn again behind it.
void topMenuInput(Session& session, const MenuEvent& event);

[[nodiscard]] bool CanSelectCurves(const Session& session);  // has this view a menu for it
[[nodiscard]] bool CanSelectSteps(const Session& session);
[[nodiscard]] ViewOptions OptionsOf(const Session& session);  // of the view that is shown

}  // namespace zaview
