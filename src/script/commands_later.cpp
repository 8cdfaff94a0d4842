// Commands whose work this system does not do yet: they say so.
#include "script/command_table.h"
#include "script/open_script_file.h"

namespace zaview {

namespace {

int RunNotYet(ScriptCall& call) {
  return Fail(call, kScriptFailed, "ERROR - {} : this command is not available yet", call.command);
}

constexpr Needs D = kNeedsCase, R = kNeedsMotion, G = kNeedsGraphics, M = kNeedsGeometry;

constexpr Command kLater[] = {
    {{"PLOT_GEOMETRY", "PLOT_GEOM", "PLOT_CONFIGURATION", "PLOT_CONFIG"}, G | M, RunNotYet},
    {{"ANIMATE_MOTIONS", "MOTION_ANIMATION", "ANIMATION", "KINO"}, D | R | G, RunNotYet},
    {{"GZ_CURVES", "GZCURVES", "WRITE_GZ_CURVES", "WRITE_GZCURVES"}, D | M, RunNotYet},
    {{"GZL_CURVES", "GZLCURVES", "WRITE_GZL_CURVES", "WRITE_GZLCURVES"}, D | M, RunNotYet},
    {{"WAVE_CELERITY", "ANALYZE_WAVE"}, D | M, RunNotYet},
    {{"WRITE_MOVING_MESH", "WRITE_MOVING_HRL_MESH", "MOVING_MESH", "MOVING_HRL_MESH"}, R, RunNotYet},
    {{"WRITE_ROLL_DECAY_COEF", "WRITE_RDC", "ROLL_DECAY_COEF", "RDC"}, D | R, RunNotYet},
    {{"WRITE_ROLL_DECAY_COEF_BIAS", "WRITE_RDC_BIAS", "ROLL_DECAY_COEF_BIAS", "RDC_BIAS"}, D | R, RunNotYet},
    {{"WRITE_POINT_SLAMS"}, D, RunNotYet},
    {{"EXTRAPOLATE_MOTION"}, kNone, RunNotYet},
    {{"CRANE_AND_CARGO", "CRANE"}, D | R, RunNotYet},
    {{"FORCED_MOTION_ANALYSIS", "FORCED_MOTION"}, D | R, RunNotYet},
    {{"NNDATA"}, kNone, RunNotYet},
};

constexpr Command kLaterBeginnings[] = {
    {{"SENSOR_VIEW"}, D, RunNotYet, NameMatch::beginning},
};

}  // namespace

CommandFamily LaterCommands() {
  return kLater;
}

CommandFamily LaterBeginnings() {
  return kLaterBeginnings;
}

}  // namespace zaview
