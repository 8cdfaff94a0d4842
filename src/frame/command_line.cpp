#include "frame/command_line.h"

#include <algorithm>
#include <string_view>

#include "base/message.h"
#include "base/number_parse.h"
#include "base/text.h"
#include "case/settings/output_form.h"
#include "frame/ground/output_file.h"
#include "frame/reference.h"
#include "frame/title_box.h"
#include "script/nearest_word.h"
#include "script/script_variables.h"

namespace zaview {

namespace {

constexpr std::string_view kTitle = "ZAVIEW - Plots of ZAVO output data";
constexpr std::string_view kCommandFile = ".zaview.tmp";
constexpr int kNoShip = -1;

constexpr std::string_view kUnrecognized = "ZAVIEW : ERROR - Unrecognized argument : {}";
constexpr std::string_view kDidYouMean = "         did you mean {} ?";
constexpr std::string_view kPointer = "         Nothing is read or run : zaview -help tells the options";
constexpr std::string_view kSecondScript =
    "ERROR - only one of -script, -init_script, -command or -init_command can be";
constexpr std::string_view kMissingScript = "ERROR - missing qualifier for {} argument";
constexpr std::string_view kNoCommand = "ERROR - missing command for {}";
constexpr std::string_view kNoCommandFile = "ERROR opening temporary file {}{}";
constexpr std::string_view kNoFileName = "ERROR - missing file name for -file argument";
constexpr std::string_view kEnsembleAndRestart = "ERROR - arguments -ensemble and -restart cannot both be specified";
constexpr std::string_view kShipMissing = "ERROR - missing argument(s) to {}";
constexpr std::string_view kShipIllegal = "ERROR - illegal argument to {}";
constexpr std::string_view kVariableSyntax = "ERROR parsing {} argument";
constexpr std::string_view kVariableMissing = "ERROR - insufficient qualifiers for {} argument";
constexpr std::string_view kRootSyntax = "ERROR - incorrect syntax for {} argument";

// One walk over the arguments. Qualifiers are taken from `next` on.
struct Walk {
  Session& session;
  std::span<const std::string> arguments;
  std::size_t next = 0;
  std::string option{};  // the argument at hand, as typed
  std::string word{};    // the same in capitals
  bool error = false;
  std::string faults{};  // said once more below the usage text
  bool help = false;
  std::string topic{};    // of -help
  bool finished = false;  // -version, -dims: the run ends at once

  [[nodiscard]] const Console& console() const { return session.platform.console; }
  // A blank argument is none.
  [[nodiscard]] bool Take(std::string& qualifier) {
    if (next >= arguments.size()) return false;
    qualifier = TrimEnd(arguments[next++]);
    return !qualifier.empty();
  }
  template <typename... Args>
  void Fail(fmt::format_string<Args...> text, Args&&... args) {
    const std::string line = fmt::format(text, std::forward<Args>(args)...);
    SayLine(console(), line);
    faults += line + '\n';
    error = true;
  }
};

void TakeScript(Walk& walk) {
  RunState& run = walk.session.run;
  const bool init = StartsWith(walk.word, "-INIT");
  std::string name;
  if (!walk.Take(name)) return walk.Fail(kMissingScript, init ? "-init_script" : "-script");
  if (run.script_active) return walk.Fail(kSecondScript);
  run.script_active = true;
  run.script_is_init = init;
  run.script_file_name = name;
}

// The file is for the user alone: programs side by side in one folder write it over each other's, and the folder may
// take none. A link of this name goes, and not what it leads to, which may be the run that is read next.
void WriteCommandFile(const Platform& platform, std::string_view text) {
  const Files& files = platform.files;
  const std::string name(kCommandFile);
  OutputFile out;
  const bool free = files.facts(files.self, name).target == name || files.remove(files.self, name);
  const bool opened = free && OpenOutput(platform, name, OpenHow::replace, out);
  if (!free) out.why = files.why(files.self);
  if (opened) WriteOutput(out, text);
  if (!opened || !CloseOutput(out)) Say(platform.console, kNoCommandFile, kCommandFile, Because(out.why));
}

void TakeCommand(Walk& walk) {
  RunState& run = walk.session.run;
  std::string command;
  if (!walk.Take(command)) return walk.Fail(kNoCommand, walk.word);
  if (run.script_active) return walk.Fail(kSecondScript);
  run.command_text = command + '\n';
  WriteCommandFile(walk.session.platform, run.command_text);
  run.script_active = true;
  run.script_is_init = Contains(walk.word, "INIT");
  run.script_file_name = kCommandFile;
}

void TakeFile(Walk& walk) {
  std::string name;
  if (!walk.Take(name)) return walk.Fail(kNoFileName);
  walk.session.run.file_args.push_back(name);
}

void TakeEnsemble(Walk& walk) {
  RunState& run = walk.session.run;
  run.ensemble_mode = EnsembleMode::forced;
  if (run.restart_mode == RestartMode::combine) return walk.Fail(kEnsembleAndRestart);
  run.restart_mode = RestartMode::keep_last;
}

void TakeRestart(Walk& walk) {
  RunState& run = walk.session.run;
  run.restart_mode = RestartMode::combine;
  if (run.ensemble_mode == EnsembleMode::forced) walk.Fail(kEnsembleAndRestart);
}

void TakeShip(Walk& walk) {
  RunState& run = walk.session.run;
  std::string index, vcg;
  if (!walk.Take(index) || !walk.Take(vcg)) return walk.Fail(kShipMissing, walk.word);
  std::size_t position = 0;
  double value = 0;
  const bool index_read = ParseInteger(Trim(index), run.selected_ship);
  const bool vcg_read = parse_real(vcg, position, value) != ParseEnd::none;
  if (!index_read) run.selected_ship = kNoShip;
  run.selected_vcg = vcg_read ? static_cast<float>(value) : -1.0F;
  if (!index_read || !vcg_read) walk.Fail(kShipIllegal, walk.word);
}

// "name=value" or two arguments. An equals sign at the end stays part of the name.
void TakeVariable(Walk& walk) {
  std::string name, value;
  if (!walk.Take(name)) return walk.Fail(kVariableMissing, walk.word);
  const std::size_t equals = name.find('=');
  if (equals == 0) return walk.Fail(kVariableSyntax, walk.word);
  if (equals != std::string::npos && equals + 1 < name.size()) {
    AddScriptVariable(walk.console(), walk.session.script, Trim(std::string_view(name).substr(0, equals)),
                      Trim(std::string_view(name).substr(equals + 1)));
    return;
  }
  if (walk.next >= walk.arguments.size()) return walk.Fail(kVariableMissing, walk.word);
  AddScriptVariable(walk.console(), walk.session.script, name, walk.arguments[walk.next++]);
}

void TakeRoot(Walk& walk) {
  if (walk.next >= walk.arguments.size()) return walk.Fail(kVariableMissing, walk.word);
  AddScriptVariable(walk.console(), walk.session.script, "ROOT", walk.arguments[walk.next++]);
}

// "-ROOT=value"; deliberate: nobody looks at the character between the word and the value.
void TakeRootWithValue(Walk& walk) {
  constexpr std::size_t kValueAt = 6;
  if (walk.option.size() <= kValueAt) return walk.Fail(kRootSyntax, walk.word);
  AddScriptVariable(walk.console(), walk.session.script, "ROOT", std::string_view(walk.option).substr(kValueAt));
}

void TakeVersion(Walk& walk) {
  SayLine(walk.console(), "");
  walk.finished = true;
}

void TakeDimensions(Walk& walk) {
  print_dimension_list(walk.console());
  walk.finished = true;
}

void TakeHelp(Walk& walk) {
  walk.help = true;
  if (walk.next < walk.arguments.size() && !StartsWith(walk.arguments[walk.next], "-")) (void)walk.Take(walk.topic);
}

void TakeDegrees(Walk& walk) {
  (void)SetScale(kAngleScale, kDegreesPerRadian, walk.session.case_store, walk.session.output.units);
}

template <InitialPlot plot>
void TakePlot(Walk& walk) {
  walk.session.run.initial_plot = plot;
}

template <int colours>
void TakeColours(Walk& walk) {
  walk.session.run.plot_colours = colours;
}

constexpr std::string_view kUsage =
    "usage : zaview [ -file ] ZAVO_output_file [ ZAVO_output_file ... ]\n"
    "        [ -v var value ] [ -root ROOT ] [ -script | -init_script script_file |\n"
    "          -command script_command | -init_command script_command ]\n"
    " -or-   zaview -version\n"
    " -or-   zaview -dims\n"
    " Multiple output files should only be specified when they are different\n"
    "  realizations of the same conditions or different parts of a restarted\n"
    "  run (with -restart)\n"
    " Other options:";

struct OptionRow {
  std::size_t first;  // characters compared; 0: the whole word
  std::string_view words[4];
  void (*take)(Walk& walk);
  std::string_view help = {};  // its lines below "Other options:"
};

// In the order of the help. Of the rows that match, the one that compares most characters wins. "-TRAJECTORY" has none,
// deliberately: only "-PLOT_TRAJ..." asks for that plot. "-SHIP" has no short form, as "-S" is a script.
constexpr OptionRow kOptions[] = {
    {0, {"-S", "-SCRIPT"}, TakeScript},
    {0, {"-INIT_SCRIPT"}, TakeScript},
    {0, {"-COMMAND", "-INIT_COMMAND"}, TakeCommand},
    {0, {"-FILE"}, TakeFile},
    {0, {"-V", "-VSCRIPT", "-V_SCRIPT", "-SET"}, TakeVariable},
    {0, {"-ROOT"}, TakeRoot},
    {5, {"-ROOT"}, TakeRootWithValue},
    {0, {"-VERS", "-VERSION", "--VERSION"}, TakeVersion},
    {0, {"-D", "-DIMS", "-DIMENSIONS", "-DIMENSION_LIST"}, TakeDimensions},
    {0, {"-HELP", "--HELP", "-H"}, TakeHelp},
    {0, {"-DEBUG_FLOW"}, [](Walk& walk) { walk.session.platform.console.trace = true; }},
    {0,
     {"-DO_ETA"},
     [](Walk& walk) { walk.session.run.do_eta = true; },
     " -do_eta : calculate incident wave elevation at CG and origin on file read;\n"
     "           by default, these are calculated only when needed"},
    {0, {"-DEG", "-DEGREES"}, TakeDegrees, " -degrees : reset ANGOUT so rotations (e.g. roll) are output in degrees"},
    {0,
     {"-ENSEMBLE", "-ENSM"},
     TakeEnsemble,
     " -ensemble : assume multiple files are different realizations of same case"},
    {0,
     {"-RESTARTED", "-RESTARTS", "-RESTART"},
     TakeRestart,
     " -restart : try to read multiple files as different parts of a restarted case"},
    {0,
     {"-SHIP"},
     TakeShip,
     " -ship index VCG : index of ship for which data is to be read from a\n"
     "            multi-ship ZAVO output file + value of VCG to use;\n"
     "            by default, data is read for 1st ship;\n"
     "            actual VCG value is only required for very old output files\n"
     "            (ZAVO v2.9.1) - a nominal value can be specified for newer output"},
    {5, {"-ANIM"}, TakePlot<InitialPlot::animation>, " -animate_motion  : start with motion animation plot"},
    {10, {"-PLOT_ANIM"}, TakePlot<InitialPlot::animation>},
    {5, {"-PLOT"}, TakePlot<InitialPlot::history>, " -plot_history    : start with time history plot"},
    {10, {"-PLOT_TRAJ"}, TakePlot<InitialPlot::trajectory>, " -plot_trajectory : start with trajectory plot"},
    {10, {"-PLOT_GEOM"}, TakePlot<InitialPlot::geometry>, " -plot_geometry   : start with geometry plot"},
    {0,
     {"-MENU", "-GUI"},
     [](Walk& walk) { walk.session.run.open_options_menu = true; },
     " -menu            : open GUI Options Menu with initial plot"},
    {0, {"-REVERSE", "-R"}, TakeColours<1>, " -reverse    : Swap black/white in plots"},
    {0, {"-BLACK_BG", "-BLACK"}, TakeColours<2>, " -black_bg   : Black plot background"},
    {0, {"-WHITE_BG", "-WHITE"}, TakeColours<3>, " -white_bg   : White plot background"},
    {0,
     {"-QUIET"},
     [](Walk& walk) { walk.session.run.quiet = true; },
     " -quiet      : a script prints nothing but tables with a blank file name;\n"
     "               faults go to the error output"},
};

// How many characters of the word the row compares; none: it doesn't match.
std::size_t Matches(const OptionRow& row, std::string_view word) {
  for (const std::string_view name : row.words)
    if (!name.empty() && (row.first == 0 ? word == name : word.substr(0, row.first) == name))
      return row.first == 0 ? word.size() : row.first;
  return 0;
}

void SayUnrecognized(Walk& walk) {
  walk.Fail(kUnrecognized, walk.option);
  NearestWord nearest{walk.word};
  for (const OptionRow& row : kOptions)
    for (const std::string_view name : row.words) nearest.Offer(name);
  if (!nearest.nearest.empty()) walk.Fail(kDidYouMean, nearest.nearest);
}

void TakeArgument(Walk& walk) {
  const OptionRow* best = nullptr;
  std::size_t most = 0;
  for (const OptionRow& row : kOptions) {
    const std::size_t compared = Matches(row, walk.word);
    if (compared > most) best = &row;
    most = std::max(most, compared);
  }
  if (best != nullptr) return best->take(walk);
  if (walk.word[0] == '-') return SayUnrecognized(walk);
  walk.session.run.file_args.push_back(walk.option);
}

void PrintUsage(const Console& console) {
  SayLine(console, kUsage);
  for (const OptionRow& row : kOptions)
    if (!row.help.empty()) SayLine(console, row.help);
}

// What the line makes of the run, and what it has to be told of it.
CommandLineResult SayEnd(const Walk& walk, bool quiet) {
  const Console& console = walk.console();
  if (walk.finished) return {LineEnd::stop, kRunOk};
  if (!walk.error && !walk.help) return {};
  if (!walk.error && !walk.topic.empty())
    return {LineEnd::stop, PrintTopic(console, walk.topic) ? kRunOk : kRunBadArguments};
  if (!quiet) PrintUsage(console);
  if (walk.help) PrintTopicNames(console);
  if (walk.error) SayLine(console, walk.faults + std::string(kPointer));
  return {LineEnd::stop, walk.error ? kRunBadArguments : kRunOk};
}

}  // namespace

std::vector<OptionWords> CommandLineOptions() {
  std::vector<OptionWords> options;
  for (const OptionRow& row : kOptions) options.push_back({row.words, row.first > 0});
  return options;
}

CommandLineResult ParseCommandLine(Session& session, std::span<const std::string> arguments) {
  Console& console = session.platform.console;
  const Console shown = console;
  std::string held;  // until it is known whether -quiet has a script to act on
  console.self = &held;
  console.write = [](void* self, std::string_view text) { static_cast<std::string*>(self)->append(text); };
  console.flush = [](void*) {};
  PrintTitleBox(console, kTitle);
  PrintVersionLine(console, "");
  Walk walk{session, arguments};
  while (walk.next < arguments.size() && !walk.finished) {
    walk.option = TrimEnd(arguments[walk.next++]);
    walk.word = Capitals(walk.option);
    if (!walk.option.empty()) TakeArgument(walk);
  }
  const bool quiet = session.run.quiet && (session.run.script_active || walk.error) && !walk.help && !walk.finished;
  const CommandLineResult result = SayEnd(walk, quiet);
  session.run.quiet = quiet;
  const bool trace = console.trace;
  console = quiet ? MakeQuiet(shown, session.quiet_console) : shown;
  console.trace = trace;
  console.write(console.self, held);
  console.flush(console.self);
  return result;
}

}  // namespace zaview
