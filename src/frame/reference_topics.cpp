#include "frame/reference_topics.h"

#include <algorithm>
#include <iterator>

#include <fmt/format.h>

#include "base/text.h"
#include "case/quantity_catalogue.h"
#include "frame/command_line.h"
#include "frame/ground/zaview_exit.h"
#include "frame/text_menu.h"
#include "script/argument_forms.h"
#include "script/script_variables.h"
#include "script/selectors.h"
#include "stats/statistic_table.h"
#include "views/data_plot/data_plot.h"
#include "views/frame/session_keys.h"
#include "views/motion/motion_view.h"

namespace zaview {

namespace {

struct FixedRow {
  std::string_view term, text;
};

std::vector<ReferenceRow> RowsOf(std::span<const FixedRow> fixed) {
  std::vector<ReferenceRow> rows;
  for (const FixedRow& row : fixed) rows.push_back({std::string(row.term), {std::string(row.text)}});
  return rows;
}

std::string LowerCase(std::string_view text) {
  std::string lower(text);
  for (char& c : lower)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return lower;
}

}  // namespace

// ---- Commands

ReferenceRow CommandEntry(const Command& command) {
  const std::string_view name = command.names[0];
  ReferenceRow row{std::string(name), {std::string(command.meaning) + '.'}};
  if (command.match == NameMatch::beginning) row.term += "..";
  if (!command.arguments.empty()) row.term.append(" ").append(command.arguments);
  std::string more, others;
  for (const std::string_view other : command.names)
    if (!other.empty() && other != name) others.append(others.empty() ? "" : ", ").append(other);
  if (!others.empty()) more += "Also " + others + ". ";
  if (const std::string needs = NeedsInWords(command.needs); !needs.empty()) more += "Needs " + needs + ". ";
  if (!command.preset.empty()) more.append("At the start: ").append(command.preset).append(". ");
  if (!more.empty()) row.text.emplace_back(TrimEnd(more));
  return row;
}

ReferenceTopic CommandTopic() {
  ReferenceTopic topic{"commands", "the commands of scripts", {}};
  const std::span<const CommandFamily> families = AllCommands();
  for (std::size_t i = 0; i < families.size(); ++i) {
    ReferencePart part{std::string(FamilyTitle(i)), {}, {}};
    for (const Command& command : families[i])
      if (!command.meaning.empty()) part.rows.push_back(CommandEntry(command));
    topic.parts.push_back(std::move(part));
  }
  topic.parts.front().ahead = {
      "A command and its words may be typed in any case; names in one entry are equal. Small letters stand for an "
      "argument (topic arguments), words with a bar between them are the choice, brackets stand around what may be "
      "left out."};
  return topic;
}

ReferenceTopic ArgumentTopic() {
  ReferencePart part;
  for (const ArgumentForm& form : ArgumentForms())
    if (!form.meaning.empty()) part.rows.push_back({std::string(form.name), {std::string(form.meaning) + '.'}});
  return {"arguments", "what the arguments of commands stand for", {part}};
}

// ---- Quantities

namespace {

// In the units of a case in metres, kilograms and seconds.
struct UnitRow {
  ScaleKind scale;
  std::string_view unit;
};
constexpr UnitRow kUnits[] = {
    {ScaleKind::position, "m; rad"}, {ScaleKind::velocity, "m/s; rad/s"}, {ScaleKind::acceleration, "m/s2; rad/s2"},
    {ScaleKind::force, "N; N m"},    {ScaleKind::load_force, "N"},        {ScaleKind::load_moment, "N m"},
    {ScaleKind::length, "m"},        {ScaleKind::speed, "m/s; rad; 1/s"},
};

std::string UnitOf(const QuantityRow& quantity) {
  if (IsPointQuantity(quantity.iqnt)) return "as the motions";
  for (const UnitRow& row : kUnits)
    if (row.scale == ScaleOf(quantity)) return std::string(row.unit);
  return {};
}

std::string CurvesOf(const QuantityRow& row) {
  if (row.load_kind > 0) return "a curve a cut";
  if (row.need == QuantityNeed::table) return "a curve a column, as the table has it";
  const int curves = CurveCount({}, row.iqnt);
  if (curves == 0) return "a file of its own form";
  const auto label = [&row](int curve) { return CurveLabel({}, {}, row.iqnt, curve); };
  if (curves == 1) return label(1);
  if (curves > 6 || !row.groups.front().stem.empty()) return fmt::format("{} .. {}", label(1), label(curves));
  std::string labels = label(1);
  for (int curve = 2; curve <= curves; ++curve) labels += ", " + label(curve);
  return labels;
}

std::string QuantityText(const QuantityRow& row) {
  std::string text = fmt::format("{}: {}", row.long_label, CurvesOf(row));
  if (const std::string unit = UnitOf(row); !unit.empty()) text += fmt::format(" ({})", unit);
  if (row.need == QuantityNeed::file_only) text += "; WRITE_HISTORY only";
  return text;
}

}  // namespace

ReferenceTopic QuantityTopic() {
  ReferencePart part;
  part.ahead = {
      "The words of quantities, what they are, their curves (numbered from 1) and units. Units are those of GRAVOUT, "
      "RHOOUT and LENOUT: these if they are in m/s2, kg/m3 and m. Rotations are multiplied by ANGOUT: 1 gives radians, "
      "57.29578 degrees.",
      "COORDS turns the signs of motions, forces and points; not those of sectional loads, elevations, VMNVR, and the "
      "fourth curve of POINT_VEL, POINT_ACC and POINT_REL.",
      "Points stand in the axes and the unit of the ship's geometry, as the run has it."};
  for (int iqnt = 1; iqnt <= kQuantities; ++iqnt) {
    std::string words;
    for (const SelectorRow& row : SelectorWords(false))
      if (row.iqnt == iqnt) words.append(words.empty() ? "" : ", ").append(row.word);
    part.rows.push_back({words, {fmt::format("{}. {}", iqnt, QuantityText(*FindQuantity(iqnt)))}});
  }
  ReferencePart impulsive{"Runs of transient added mass", {}, {}};
  for (const SelectorRow& row : SelectorWords(true))
    impulsive.rows.push_back(
        {std::string(row.word), {row.iqnt == kImpulse ? "Impulse response function" : "Transient added mass"}});
  return {"quantities", "what can be plotted, tabled and evaluated", {part, impulsive}};
}

ReferenceTopic StatisticTopic() {
  ReferencePart part;
  part.ahead = {
      "The words of statistics. _CI behind one of the first eleven, of SSA and of TABLE asks for its confidence "
      "interval as well: half width, low, estimate, high. n is any number from 1."};
  for (const StatisticEntry& row : AllStatistics()) part.rows.push_back({row.words, {std::string(TrimEnd(row.label))}});
  return {"statistics", "words of WRITE_STAT and ENSEMBLE_STAT", {part}};
}

// ---- Scripts

ReferenceTopic ScriptTopic() {
  static const std::string variables = fmt::format(
      "Sets a variable; {{name}} stands for its value in all lines below. At most {} variables, {} characters "
      "each. -v name=value on the command line sets one ahead of the script, which may set it anew",
      kScriptVariables, kScriptValue);
  const FixedRow rows[] = {
      {"COMMAND argument ..",
       "One command a line, in any case. Arguments stand apart by blanks; one with blanks in it, or a "
       "blank one, in quotes of either kind. An argument that is missing is taken from the next line"},
      {"! comment", "The rest of the line is nothing, in quotes as well"},
      {"name = value", variables},
      {"FOR name IN value .. DO", "The lines up to DONE, once for each value. Loops may stand in loops"},
      {"FOR name IN SEQ 01 20 DO",
       "The same for whole numbers, up or down; of equal length (01 20) they keep their zeros"},
      {"FOR a|b IN 1|x 2|y DO", "Two variables at once"},
      {"DONE", "Ends a loop"},
      {"$INCLUDE:file",
       "The lines of another file, which includes no further ones. It is looked for in the working "
       "directory, then beside the script. A comment may follow if nothing stands between colon and name"},
      {"END_OF_FILE", "At the begin of a line: nothing behind it is read"},
      {"STOP", "Ends the script at this command"},
  };
  ReferencePart part{
      "",
      {"A script is a text of commands (topic commands). zaview run.out -script s runs s, or s.script, or "
       "s.scpt; -command 'LINE' runs one line. Comments and included files are taken first, then loops, then "
       "variables; what is left runs line after line. An error names file and line, and ends the script."},
      RowsOf(rows)};
  return {"scripts", "comments, variables, loops, included files", {part}};
}

// ---- What the rest of the program knows by name

ReferenceTopic MenuTopic() {
  ReferencePart part{"", {"The options of the main menu, which a run without a script comes to."}, {}};
  for (const std::string_view entry : MainMenu()) {
    const std::size_t dash = entry.find(" - ");
    part.rows.push_back({std::string(Trim(entry.substr(0, dash))), {std::string(entry.substr(dash + 3))}});
  }
  return {"menu", "the options of the main menu", {part}};
}

namespace {

// As the help of a view has them, and the rows of all views among them.
std::vector<ReferenceRow> RowsOfKeys(const ViewKeys& view) {
  std::vector<ReferenceRow> rows;
  for (const KeyInHelp& in_help : KeysInOrder(view)) {
    const ViewKey& key = *in_help.row;
    const auto own = [&](const ViewKey& row) { return &row == &key; };
    const bool of_other_views = std::none_of(view.rows.begin(), view.rows.end(), own);
    if (of_other_views && !in_help.acts && view.by_step) continue;
    for (std::string_view line : key.help) {
      constexpr std::size_t kText = 8;  // column of a help line; a long name has a dash behind it
      if (line.size() <= kText) continue;
      const std::size_t dash = line.find(" - ");
      const bool named = dash != std::string_view::npos && line[0] >= 'A' && line[0] <= 'Z';
      const std::string name(Trim(line.substr(0, named ? dash : kText)));
      const std::string text(Trim(line.substr(named ? dash + 3 : kText)));
      if (name.empty() && !rows.empty()) rows.back().text[0].append(" ").append(text);
      else rows.push_back({name, {text}});
    }
  }
  return rows;
}

}  // namespace

ReferenceTopic KeyTopic() {
  const ReferencePart plots{
      "",
      {"In the window of a data plot; h shows those that act on the plot at hand. ^ is the Ctrl key. Two left "
       "clicks zoom into their rectangle, one outside the axes goes back, a right click measures."},
      RowsOfKeys(DataPlotKeys(Session{}))};
  const ReferencePart animation{
      "The animation",
      {"A left click runs and stops it, or goes to its step on the bar of events; a click with Alt or Ctrl opens the "
       "menu of menus."},
      RowsOfKeys(MotionKeys(Session{}))};
  return {"keys", "keys and mouse of the views", {plots, animation}};
}

namespace {

struct OptionMeaning {
  std::string_view word;  // the first of the option's words
  std::string_view behind, meaning;
  std::string_view spelling{};  // of an option that is known by its beginning
};
// clang-format off
constexpr OptionMeaning kOptionMeanings[] = {
    {"-S",           "file",       "Runs a script, and ends"},
    {"-INIT_SCRIPT", "file",       "Runs a script; the menu follows"},
    {"-COMMAND",     "line",       "Runs one line of script, and ends; after -init_command the menu follows"},
    {"-ANIM",        "",           "Starts with the animation", "-animate_motion"},
    {"-PLOT_ANIM",   "",           "The same", "-plot_animation"},
    {"-PLOT_TRAJ",   "",           "Starts with the trajectory", "-plot_trajectory"},
    {"-PLOT_GEOM",   "",           "Starts with the hull", "-plot_geometry"},
    {"-PLOT",        "",           "Starts with a time history", "-plot_history"},
    {"-MENU",        "",           "Opens the options menu with the first plot"},
    {"-ENSEMBLE",    "",           "Several files are realizations of one case, whatever their heads say"},
    {"-RESTARTED",   "",           "Several files are parts of one restarted run"},
    {"-DO_ETA",      "",           "Wave elevations are made when a file is read, not when they are needed"},
    {"-DEBUG_FLOW",  "",           "Traces the way of the program"},
    {"-HELP",        "[topic]",    "This text; of a topic, or of a command by its name"},
    {"-FILE",        "name",       "A run whose name begins with a minus sign"},
    {"-SHIP",        "index vcg",  "The ship of a run with several, and the height of its centre of gravity (any number for a run that tells it)"},
    {"-V",           "name=value", "Sets a variable of scripts; name and value may be two words"},
    {"-ROOT",        "value",      "Sets the variable ROOT; -root=value does so too"},
    {"-VERS",        "",           "The version"},
    {"-D",           "",           "The dimensions of the simulation"},
    {"-DEG",         "",           "Rotations in degrees"},
    {"-REVERSE",     "",           "Black and white exchanged in plots"},
    {"-BLACK_BG",    "",           "Plots on black paper"},
    {"-WHITE_BG",    "",           "Plots on white paper"},
    {"-QUIET",       "",           "A script prints nothing but tables with a blank file name; faults go to the error output"},
};
// clang-format on

ReferenceRow OptionEntry(const OptionWords& option) {
  ReferenceRow row;
  for (const std::string_view word : option.words)
    if (!word.empty()) row.term.append(row.term.empty() ? "" : ", ").append(LowerCase(word));
  for (const OptionMeaning& meaning : kOptionMeanings) {
    if (meaning.word != option.words[0]) continue;
    if (option.beginning) row.term = meaning.spelling;
    if (!meaning.behind.empty()) row.term.append(" ").append(meaning.behind);
    row.text = {std::string(meaning.meaning)};
  }
  return row;
}

}  // namespace

ReferenceTopic OptionTopic() {
  ReferencePart part{"",
                     {"zaview [option ..] [run.out ..]: options may stand anywhere, in any case; * ? and [..] match "
                      "several runs. A name that ends in .csv or .tsv is a table of measured data."},
                     {}};
  for (const OptionWords& option : CommandLineOptions()) {
    const bool form_of_another = option.words[0] == "-ROOT" && option.beginning;
    if (!form_of_another) part.rows.push_back(OptionEntry(option));
  }
  return {"options", "options of the command line", {part}};
}

ReferenceTopic EnvironmentTopic() {
  constexpr FixedRow kRows[] = {
      {"GLWINDOWSIZE=1100x850", "Size of the window and of pictures in pixels; WINDOW_SIZE in a script comes first"},
      {"GLREVERSE=on", "Black on white"},
      {"GLBITFONT=off", "Drawn letters, which scale with the window and can turn, in place of fonts of pixels"},
      {"GLDUMPONLY=yes", "Every view goes into the next numbered file and is left"},
      {"DISPLAY", "The display of the window; without one pictures are drawn in memory"},
      {"XDG_STATE_HOME, HOME",
       "Answers of earlier sessions are kept in zaview/history below the first, or in "
       ".local/state below the second"},
      {"TERM", "What the terminal can do, for the editing of answers"},
  };
  return {"environment", "environment variables", {{"", {}, RowsOf(kRows)}}};
}

ReferenceTopic StatusTopic() {
  struct Row {
    int status;
    std::string_view text;
  };
  constexpr Row kRows[] = {
      {kRunOk, "All went well; -help, -version, -dims; the user gave up at a question"},
      {kRunFailed, "A line of the script failed, files could not be read or do not belong together"},
      {kRunBadArguments, "The command line was wrong"},
      {kRunInterrupted, "Ended by Ctrl-C (a shell's number for it)"},
  };
  ReferencePart part;
  for (const Row& row : kRows) part.rows.push_back({std::to_string(row.status), {std::string(row.text)}});
  return {"status", "exit statuses", {part}};
}

}  // namespace zaview
