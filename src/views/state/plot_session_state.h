// State of the frame around the views: run mode, and the question that stands on the text screen. Data only.
#pragma once

#include <string>
#include <vector>

namespace zaview {

struct PlotSessionState {
  bool graphics_started = false;  // the event loop runs
  int menu_font_step = 0;         // of the menu windows, up and down from their usual size
  bool menu_pending = false;      // the options menu opens at the next idle call

  // Run mode: steps one after the other (CaseStore::current_step).
  bool run_on = false;
  bool run_dump = false;    // a picture file of each step
  bool step_stale = false;  // the time-step window shows an older step
  int idle_count = 0;
  float run_t0 = 0;       // time of the first step of the run, seconds as simulated
  double run_clock0 = 0;  // the clock at its start

  // The question on the text screen. option: screen_dialogue.h; step, of file output: 1 the name, 2 may it be
  // overwritten.
  int screen_io_option = 0;
  int screen_io_step = 1;
  std::string screen_io_file;
  std::vector<int> screen_io_steps;  // the list that is being typed
};

}  // namespace zaview
