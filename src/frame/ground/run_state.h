// What command line, menu, script and views tell each other. Data only.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zaview {

// Does a read take a file as one more record of the ensemble: where it seems to be one, or whenever it can be one.
enum class EnsembleMode : std::int8_t { forced = 1, automatic = 3 };
// Are parts of a restarted run joined?
enum class RestartMode : std::int8_t { ask = -1, keep_last = 0, combine = 1 };
enum class InitialPlot : std::uint8_t { none, history, animation, trajectory, geometry };
enum class SkipPrompt : std::int8_t { none = -1, ask = 1, silent = 2 };  // may a read ask for the steps to skip

enum class PlotModule : std::uint8_t { none, data_plot, animation, geometry };  // none: the text menu

struct RunState {
  PlotModule plot_module = PlotModule::none;
  PlotModule change_module = PlotModule::none;  // a view asks for that one next
  int plot_suboption = 0;                       // above 0: a plot is wanted (script) or to be continued (menu)
  bool view_is_new = false;
  bool menu_wanted = false;  // the main menu is next, also where a script waits
  bool exit_requested = false;
  int exit_status = 0;        // with exit_requested
  bool files_unread = false;  // some that a wild card of a script found: the run ends with status 1
  bool plot_failed = false;   // the view of a plot command had nothing to show
  bool redraw = false;
  bool script_active = false;
  bool script_is_init = false;  // the session stays open behind the script
  std::string script_file_name;
  std::string command_text;  // of -command: run once in place of the file of that name
  SkipPrompt skip_prompt = SkipPrompt::ask;

  InitialPlot initial_plot = InitialPlot::none;
  bool open_options_menu = false;
  EnsembleMode ensemble_mode = EnsembleMode::automatic;
  RestartMode restart_mode = RestartMode::ask;
  bool do_eta = false;
  int plot_colours = 0;  // 0 as they are, 1 reversed, 2 black, 3 white background
  bool quiet = false;    // -quiet
  int selected_ship = 1;
  float selected_vcg = 0.0F;
  std::vector<std::string> file_args;
};

}  // namespace zaview
