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
    {{"WRITE_ROLL_DECAY_COEF", "WRITE_RDC", "ROLL_DECAY_COEF", "RDC"},
     D | R,
     RunNotYet,
     "file",
     "Coefficients of a roll decay test"},
    {{"WRITE_ROLL_DECAY_COEF_BIAS", "WRITE_RDC_BIAS", "ROLL_DECAY_COEF_BIAS", "RDC_BIAS"},
     D | R,
     RunNotYet,
     "file",
     "The same with a bias"},
    {{"EXTRAPOLATE_MOTION"}, kNone, RunNotYet, "option time file", "Motion beyond the end of the record"},
    {{"FORCED_MOTION_ANALYSIS", "FORCED_MOTION"},
     D | R,
     RunNotYet,
     "file file",
     "Added mass and damping of a forced motion"},
};

}  // namespace

CommandFamily LaterCommands() {
  return kLater;
}

}  // namespace zaview
