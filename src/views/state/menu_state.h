// The option menus that are open, and which of their items is which. What they show stands in the states of the views.
// Data only.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "frame/ground/run_state.h"
#include "menu/menu_toolkit.h"

namespace zaview {

struct OptionItem;

struct OptionPlace {  // of an item in an open menu
  int menu = 0, element = 0, item = 0;
  const OptionItem* option = nullptr;
  int index = 1;  // of a block that is there several times
};

struct OptionTarget {  // an item of a menu that another menu is to set
  const OptionItem* option = nullptr;
  int index = 1;
  int colour_or_quantity = 0;  // as it was when the menu was opened
};

enum class SelectUse : std::uint8_t { nothing, quantities, colours };

struct MenuState {
  MenuToolkit kit;
  // Windows: options, time step, curve selection, "Select" of quantities or colours, point, help, message; 0: closed.
  int m_omenu = 0, m_tsmenu = 0, m_csmenu = 0, m_select = 0, m_point = 0, m_help = 0, m_message = 0;
  std::vector<OptionPlace> places;
  SelectUse select_use = SelectUse::nothing;
  OptionTarget last_colour_target;                // what the list of "Select" sets
  PlotModule select_view = PlotModule::none;      // in whose menu that stands
  std::vector<std::string> shown_lines, message;  // of help, of the message
  double refreshed_at = -1.0e9;                   // clock, seconds: the time-step menu in run mode
};

}  // namespace zaview
