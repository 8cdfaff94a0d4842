#include "frame/start_up.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "base/message.h"
#include "case/case_hull.h"
#include "case/read/read_output_file.h"
#include "frame/ground/prompts.h"
#include "frame/ground/wildcards.h"
#include "frame/run_loop.h"
#include "views/state/run_pictures.h"
#include "views/state/start_plot.h"

namespace zaview {

namespace {

using Lines = std::span<const std::string_view>;
constexpr std::string_view kNotOneEnsembleLines[] = {
    "ERR411 - Multiple output files were specified on the command line but",
    "         they could not be read as different realizations of the same", "         configuration and conditions."};
constexpr std::string_view kNotSeeminglyLines[] = {
    "ERR411 - Multiple output files were specified on the command line but",
    "         they do not seem to be for different realizations of the same", "         configuration and conditions.",
    "         Use the -ensemble flag to force ZAVIEW to consider them so."};
constexpr Lines kNotOneEnsemble = kNotOneEnsembleLines;
constexpr Lines kNotSeemingly = kNotSeeminglyLines;
constexpr std::string_view kPlotFromScript =
    "Initial plot argument -plot* or -anim* ignored as plot was invoked from script file";
constexpr std::string_view kPlotWithoutData =
    "Initial plot argument -plot* or -anim* ignored as data file not specified";
constexpr std::string_view kPlotWithoutMotions =
    "Initial plot argument -anim* ignored as it is not valid for impulsive motion and IRF calculations";
constexpr std::string_view kPlotWithoutGraphics =
    "Initial plot argument -plot* or -anim* ignored as graphics are not avialable";

ReadOutcome ReadNamed(Session& session, const std::string& name) {
  const RunState& run = session.run;
  const ReadRequest request{name, run.ensemble_mode, run.restart_mode, run.selected_ship, false, run.selected_vcg};
  return read_output_file(request, session.platform, session.run, session.output, session.case_store, session.ensemble);
}

struct FilesRead {
  int named = 0, cases = 0;  // a wild card is as many names as it matches, and one that nothing was read of if none
};

FilesRead ReadNamedFiles(Session& session) {
  RunState& run = session.run;
  if (run.script_active && !run.file_args.empty()) run.skip_prompt = SkipPrompt::silent;
  std::vector<std::string> all;
  FilesRead read;
  for (const std::string& argument : run.file_args) {
    std::vector<std::string> names = {argument};
    if (is_pattern(session.platform.files, argument)) {
      list_matching_files(session.platform.files, argument, names);
      if (names.empty()) Say(session.platform.console, kNoMatch, argument);
    }
    read.named += std::max(1, static_cast<int>(names.size()));
    all.insert(all.end(), names.begin(), names.end());
  }
  for (const std::string& name : all) {
    const ReadOutcome outcome = ReadNamed(session, name);
    if (outcome == ReadOutcome::aborted) break;
    if (outcome == ReadOutcome::ok) ++read.cases;
  }
  return read;
}

bool SeveralFilesMatch(const Session& session, int cases) {
  if (cases < 2 || session.case_store.combined || session.run.restart_mode == RestartMode::combine) return true;
  return cases <= session.ensemble.nrec || !session.case_store.time_history();
}

// A script needs all files that were named; several must be one ensemble, or parts of one run. False: they aren't,
// which has been said.
bool CheckFiles(const Session& session, const FilesRead& read) {
  const RunState& run = session.run;
  const Console& console = session.platform.console;
  const bool unread = read.cases < read.named, needed = unread && run.script_active;
  const bool good = !needed && SeveralFilesMatch(session, read.cases);
  if (!good && read.named > 1)
    for (const std::string_view line : run.ensemble_mode == EnsembleMode::forced ? kNotOneEnsemble : kNotSeemingly)
      SayLine(console, line);
  if (needed || (unread && read.named > 1)) Say(console, kSomeUnread, read.named - read.cases, read.named);
  return good;
}

void StartInitialPlot(Session& session) {
  RunState& run = session.run;
  const Console& console = session.platform.console;
  if (run.plot_module != PlotModule::none) return SayLine(console, kPlotFromScript);
  const bool of_hull = run.initial_plot == InitialPlot::geometry && EnsureHull(session.platform, session.case_store);
  if (!of_hull && !session.case_store.has_steps()) return SayLine(console, kPlotWithoutData);
  if (session.platform.choose_window == nullptr) return SayLine(console, kPlotWithoutGraphics);
  const PlotKind kind = run.initial_plot == InitialPlot::trajectory ? PlotKind::trajectory : PlotKind::history;
  if (run.initial_plot == InitialPlot::history || run.initial_plot == InitialPlot::trajectory) {
    run.view_is_new = StartPlot(session, {.kind = kind, .quantity = {.iqnt = 1, .curve = 1}}, 0);
    return;
  }
  if (run.initial_plot == InitialPlot::animation) {
    if (!session.case_store.time_history()) return SayLine(console, kPlotWithoutMotions);
    run.view_is_new = StartAnimation(session, {}, 0);
    return;
  }
  run.view_is_new = StartView(session, PlotModule::geometry, 0);
}

// Without a case there is nothing to do: one is asked for until there is. A case of geometry only is a case.
CommandLineResult AskForCase(Session& session) {
  const CaseStore& store = session.case_store;
  while (!store.has_steps() && !store.has_case)
    if (ReadNamed(session, "") == ReadOutcome::aborted)
      return {LineEnd::stop, session.run.file_args.empty() ? kRunOk : kRunFailed};
  return {};
}

}  // namespace

CommandLineResult read_defaults_and_arguments(Session& session, std::span<const std::string> arguments) {
  const CommandLineResult line = ParseCommandLine(session, arguments);
  if (line.end == LineEnd::stop) return line;
  RunState& run = session.run;
  if (!CheckFiles(session, ReadNamedFiles(session))) return {LineEnd::stop, kRunFailed};
  if (!run.script_active && run.initial_plot == InitialPlot::none) pause_for_return(session.platform.console);
  run.plot_module = PlotModule::none;
  run.change_module = PlotModule::none;
  run.view_is_new = false;
  if (run.script_active) {
    RunScript(session, run.script_file_name);
    if (run.exit_requested) return {LineEnd::stop, run.exit_status};
  }
  if (run.initial_plot != InitialPlot::none) StartInitialPlot(session);
  return AskForCase(session);
}

}  // namespace zaview
