// All state of a run, owned by main and handed on. Only the roof, script/ and views/ see it; everything below takes the
// records it needs.
#pragma once

#include "analysis/sensor_settings.h"
#include "base/platform.h"
#include "case/case_store.h"
#include "case/ensemble_store.h"
#include "case/output_settings.h"
#include "frame/file_units.h"
#include "frame/run_state.h"
#include "gks/gks_state.h"
#include "gks/plot_page.h"
#include "script/script_state.h"
#include "stats/statistics_state.h"
#include "views/data_plot_state.h"
#include "views/motion_view_state.h"
#include "views/plot_session_state.h"

namespace zaview {

struct Session {
  Platform platform;
  FileUnits units;
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
  SensorSettings sensor;
  ScriptState script;
  // Continues the script or shows the text menu until a view or the end is wanted (run_loop.h); the views call it.
  void (*dialogue)(Session& session) = nullptr;
};

}  // namespace zaview
