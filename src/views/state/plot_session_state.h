// State of the frame around the views: run mode, and the question that stands on the text screen. Data only.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "analysis/run_event.h"
#include "gks/picture/run_output.h"

namespace zaview {

// What a view asks the frame for, which opens it behind the event.
enum class ViewAsk : std::uint8_t { none, options_menu, curve_menu, time_step_menu, help, help_on_console, image_file };

// What the animation does when it is entered.
struct AnimationOrder {
  bool pictures = false;    // of the whole run, with nobody watching, and then the view is left
  RunOutputOrder output{};  // where they go; count and rate come with the steps
  bool about_event = false;
  RunEventKind event = RunEventKind::slam;  // the steps about it, `seconds` of them in all, output units
  double seconds = 0;
};

struct OrderedRun {  // a run that nobody watches
  bool on = false;
  int last = 0;  // no step behind that
};

struct PlotSessionState {
  bool graphics_started = false;  // the event loop runs
  bool menu_pending = false;      // the options menu opens at the next idle call
  ViewAsk ask = ViewAsk::none;

  // Run mode, of all views: steps one after the other (CaseStore::current_step).
  bool run_on = false;
  bool run_dump = false;    // a picture file of each step; set ahead of a run, it is for the next one
  RunOutputPtr run_output;  // where the pictures of this run go
  AnimationOrder order;     // until it is carried out
  OrderedRun ordered;
  bool step_stale = false;  // the time-step window shows an older step
  int idle_count = 0;
  bool run_sync = false;       // in step with the wall clock
  bool sync_real_time = true;  // the factor counts against real time: late steps are left out
  float run_sync_factor = 1;   // of the time as simulated
  float run_t0 = 0;            // time of the first step of the run, seconds as simulated
  double run_clock0 = 0;       // the clock at its start

  // The question on the text screen. option: screen_question.h; step, of file output: 1 the name, 2 may it be
  // overwritten.
  int screen_io_option = 0;
  int screen_io_step = 1;
  std::string screen_io_file;
  std::vector<int> screen_io_steps;  // the list that is being typed
};

}  // namespace zaview
