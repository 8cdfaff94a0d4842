// All state of a run, owned by main and handed on. Only the roof, script/ and views/ see it; everything below takes the
// records it needs.
#pragma once

#include "analysis/sensor_settings.h"
#include "base/platform.h"
#include "case/case_store.h"
#include "case/ensemble_store.h"
#include "case/output_settings.h"
#include "frame/ground/quiet_console.h"
#include "frame/ground/run_state.h"
#include "gks/kernel/gks_state.h"
#include "gks/plot/plot_layer.h"
#include "gks/zb3d/zb3d_state.h"
#include "script/script_state.h"
#include "stats/statistics_state.h"
#include "views/state/data_plot_state.h"
#include "views/state/geometry_view_state.h"
#include "views/state/menu_state.h"
#include "views/state/motion_view_state.h"
#include "views/state/plot_session_state.h"

namespace zaview {

struct Session {
  Platform platform;
  QuietConsole quiet_console;  // in use with -quiet, until its script is over
  RunState run;
  OutputSettings output;
  CaseStore case_store;  // the current record of the ensemble
  EnsembleStore ensemble;
  StatisticsState statistics;
  GksState gks;
  PlotPage page;
  PlotSessionState plot_session;
  DataPlotState data_plot;
  MotionViewState motion_view;
  GeometryViewState geometry_view;
  Zb3dState zb3d;  // of the geometry view
  MenuState menus;
  SensorSettings sensor;
  ScriptState script;
  // Continues the script or shows the text menu until a view or the end is wanted (run_loop.h); the views call it.
  void (*dialogue)(Session& session) = nullptr;
};

}  // namespace zaview
