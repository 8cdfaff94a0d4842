// The option menus that are open. What they show stands in the states of the views. Data only.
#pragma once

namespace zaview {

struct MenuState {
  int m_omenu = 0, m_tsmenu = 0, m_csmenu = 0;  // windows: options, time step, curve selection; 0: closed
  int m_select = 0;                             // quantities or colours: one window
  int m_point = 0, m_help = 0, m_message = 0;
  int menu_font_step = 2;      // 1 to 3
  int last_colour_target = 0;  // which item asked for the colours
};

}  // namespace zaview
