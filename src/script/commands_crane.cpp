// The crane and its cargo.
#include <string>

#include "analysis/crane/crane_analysis.h"
#include "analysis/crane/crane_files.h"
#include "base/text.h"
#include "script/command_table.h"
#include "script/output_argument.h"
#include "views/state/result_choice.h"

namespace zaview {

namespace {

constexpr std::string_view kBlankName = "ERROR - {} requires non-blank crane+cargo input file name";
constexpr std::string_view kBlankRoot = "        and root for crane+cargo output file names";

int RunCraneAndCargo(ScriptCall& call) {
  Session& session = call.session;
  const std::string name(Trim(NextScriptWord(call.words, kFreeText)));
  const std::string root(Trim(NextScriptWord(call.words, kFreeText)));
  if (name.empty() || root.empty()) {
    Say(call.console(), kBlankName, call.command);
    return Fail(call, kScriptBadArgument, kBlankRoot);
  }
  CraneInput input;
  if (!TakeCraneInput(session.platform, name, input)) return kScriptFailed;
  OutputFile motions, geometry;
  if (const int status = OpenNamedOutput(call, root + ".crane_out", motions); status != kScriptOk) return status;
  if (const int status = OpenNamedOutput(call, root + ".crane_gt", geometry); status != kScriptOk) {
    DiscardOutput(motions);
    return status;
  }
  CraneRun run;
  const CraneWork work{session.platform, session.output, session.case_store};
  const bool written = RunCrane(work, input, name, {&motions, &geometry}, run);
  if (!run.steps.empty()) KeepResult(session.data_plot, CranePlot(session.output, run));
  return written ? kScriptOk : kScriptFailed;
}

constexpr Command kCrane[] = {
    {{"CRANE_AND_CARGO", "CRANE"},
     kNeedsCase | kNeedsMotion,
     RunCraneAndCargo,
     "name root",
     "Moves a cargo on a crane of the ship: root.crane_out its motions, root.crane_gt its geometry"},
};

}  // namespace

CommandFamily CraneCommands() {
  return kCrane;
}

}  // namespace zaview
