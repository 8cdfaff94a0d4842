// Commands whose work this system does not do yet: they say so.
#include "script/command_table.h"
#include "script/open_script_file.h"

namespace zaview {

namespace {

int RunNotYet(ScriptCall& call) {
  return Fail(call, kScriptFailed, "ERROR - {} : this command is not available yet", call.command);
}

constexpr Needs D = kNeedsCase, R = kNeedsMotion, G = kNeedsGraphics, E = kNeedsEnsemble, M = kNeedsGeometry;

constexpr Command kLater[] = {
  // Settings.
    {{"PLOT_STATS", "STATS", "STATISTICS", "PEAK_STATS"},                                           kNone,               RunNotYet},
    {{"ENSEMBLE_NMANY", "NMANY"},                                                                   kNone,               RunNotYet},
    {{"HISTOGRAM_DATA", "HISTOGRAM_TYPE", "HIST_DATA", "HIST_TYPE"},                                kNone,               RunNotYet},
    {{"HISTOGRAM_STYLE", "HIST_STYLE"},                                                             kNone,               RunNotYet},
    {{"HISTOGRAM_DIST_OVERLAY", "HISTOGRAM_DIST", "HISTOGRAM_OVERLAY", "HIST_DIST_OVERLAY", "HIST_DIST",
      "HIST_OVERLAY"},
     kNone,                                                                                                              RunNotYet},
    {{"HISTOGRAM_YAXIS", "HISTOGRAM_Y", "HIST_YAXIS", "HIST_Y"},                                    kNone,               RunNotYet},
    {{"HISTOGRAM_SAMPLE_RATE", "HISTOGRAM_SAMPLE", "HIST_SAMPLE_RATE", "HIST_SAMPLE"},              kNone,               RunNotYet},
    {{"HISTOGRAM_PLOT_SIZE", "HISTOGRAM_AXES_SIZE", "HISTOGRAM_AXIS_SIZE", "HIST_PLOT_SIZE", "HIST_AXES_SIZE",
      "HIST_AXIS_SIZE"},
     kNone,                                                                                                              RunNotYet},
    {{"PLOT_SIZE", "AXES_SIZE", "AXIS_SIZE"},                                                       kNone,               RunNotYet},
    {{"PLOT_GRID", "SHOW_GRID", "GRID"},                                                            kNone,               RunNotYet},
    {{"MATCH_SCALES"},                                                                              kNone,               RunNotYet},
    {{"SHOW_SHIP"},                                                                                 kNone,               RunNotYet},
    {{"WINDOW_SIZE", "WINDOW"},                                                                     kNone,               RunNotYet},
    {{"REVERSE"},                                                                                   kNone,               RunNotYet},
    {{"BLACK", "BLACKBG", "BLACK_BG"},                                                              kNone,               RunNotYet},
    {{"WHITE", "WHITEBG", "WHITE_BG"},                                                              kNone,               RunNotYet},
    {{"EARTH_RADIUS", "RADIUS_EARTH", "R_EARTH"},                                                   kNone,               RunNotYet},
    {{"MAXIXUM_SENSOR_VIEW_HEIGHT", "MAX_SENSOR_VIEW_HEIGHT", "MAX_SV_HEIGHT"},                     kNone,               RunNotYet}, // spelled so
  // Plots, views and analyses.
    {{"PLOT_HISTORY"},                                                                              D | G | kShortWords, RunNotYet},
    {{"PLOT_TRAJECTORY"},                                                                           D | R | G,           RunNotYet},
    {{"PLOT_GEOMETRY", "PLOT_GEOM", "PLOT_CONFIGURATION", "PLOT_CONFIG"},                           G | M,               RunNotYet},
    {{"ANIMATE_MOTIONS", "MOTION_ANIMATION", "ANIMATION", "KINO"},                                  D | R | G,           RunNotYet},
    {{"ENSEMBLE_STAT", "ENSEMBLE_STATS"},                                                           E,                   RunNotYet},
    {{"PLOT_HISTOGRAM", "PLOT_ENSEMBLE_HISTOGRAM"},                                                 D | R | G,           RunNotYet},
    {{"WRITE_HISTOGRAM", "WRITE_ENSEMBLE_HISTOGRAM"},                                               D | R,               RunNotYet}, // a table needs nothing to draw on
    {{"PLOT_AUTOCORRELATION", "PLOT_AUTOCORELATION", "PLOT_AUTOC"},                                 D | R | G,           RunNotYet},
    {{"ENSEMBLE_CONFIDENCE_INTERVAL", "ENSEMBLE_CONFIDENCE", "ENSEMBLE_CONF", "ENSEMBLE_CI"},       E,                   RunNotYet},
    {{"PLOT_CONFIDENCE_INTERVAL", "PLOT_CONFIDENCE", "PLOT_CONF", "PLOT_CI"},                       E | G,               RunNotYet},
    {{"ENSEMBLE_AUTOCORRELATION", "ENSEMBLE_AUTOCORELATION", "ENSEMBLE_AUTOC", "WRITE_ENSEMBLE_AUTOCORRELATION",
      "WRITE_ENSEMBLE_AUTOCORELATION", "WRITE_ENSEMBLE_AUTOC", "PLOT_ENSEMBLE_AUTOCORRELATION",
      "PLOT_ENSEMBLE_AUTOCORELATION", "PLOT_ENSEMBLE_AUTOC", "DEPENDENCE_TIME", "DEPENDENCE"},
     D | R,
     RunNotYet                                                                                                                    },
    {{"UPCROSSING", "UPCROSSINGS"},                                                                 D,                   RunNotYet},
    {{"PLOT_LOAD_DISTRIBUTION", "PLOT_LOAD_DIST", "PLOT_LOADDIST"},                                 D | R | G,           RunNotYet},
    {{"ANIMATE_GRAPH", "KINO_GRAPH"},                                                               D,                   RunNotYet},
    {{"ANIMATE_GRAPH_OPTION", "ANIMATE_GRAPH_OPT", "KINO_GRAPH_OPTION", "KINO_GRAPH_OPT"},          kNone,               RunNotYet},
    {{"ANIMATE_OPTION", "ANIMATE_OPT", "KINO_OPTION", "KINO_OPT"},                                  kNone,               RunNotYet},
    {{"GZ_CURVES", "GZCURVES", "WRITE_GZ_CURVES", "WRITE_GZCURVES"},                                D | M,               RunNotYet},
    {{"GZL_CURVES", "GZLCURVES", "WRITE_GZL_CURVES", "WRITE_GZLCURVES"},                            D | M,               RunNotYet},
    {{"WAVE_CELERITY", "ANALYZE_WAVE"},                                                             D | M,               RunNotYet},
    {{"WRITE_MOVING_MESH", "WRITE_MOVING_HRL_MESH", "MOVING_MESH", "MOVING_HRL_MESH"},              R,                   RunNotYet},
    {{"WRITE_ROLL_DECAY_COEF", "WRITE_RDC", "ROLL_DECAY_COEF", "RDC"},                              D | R,               RunNotYet},
    {{"WRITE_ROLL_DECAY_COEF_BIAS", "WRITE_RDC_BIAS", "ROLL_DECAY_COEF_BIAS", "RDC_BIAS"},          D | R,               RunNotYet},
    {{"WRITE_POINT_SLAMS"},                                                                         D,                   RunNotYet},
    {{"EXTRAPOLATE_MOTION"},                                                                        kNone,               RunNotYet},
    {{"CRANE_AND_CARGO", "CRANE"},                                                                  D | R,               RunNotYet},
    {{"FORCED_MOTION_ANALYSIS", "FORCED_MOTION"},                                                   D | R,               RunNotYet},
    {{"NNDATA"},                                                                                    kNone,               RunNotYet},
};

constexpr Command kLaterBeginnings[] = {
    {{"EXCEEDANCE", "BLOCK_EXCEEDANCE"}, D, RunNotYet, NameMatch::beginning},
    {{"SENSOR_VIEW"},                    D, RunNotYet, NameMatch::beginning},
};

}  // namespace

CommandFamily LaterCommands() {
  return kLater;
}

CommandFamily LaterBeginnings() {
  return kLaterBeginnings;
}

}  // namespace zaview
