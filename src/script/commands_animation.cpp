// Settings of the motion animation: its options and its overlay graphs.
#include <algorithm>
#include <cmath>
#include <vector>

#include "base/number_parse.h"
#include "base/text.h"
#include "script/command_table.h"
#include "script/selectors.h"
#include "script/setting_words.h"
#include "views/state/motion_settings.h"

namespace zaview {

namespace {

constexpr std::string_view kBadWordOf = "Illegal value for KINO_OPT {} : {}";
constexpr std::string_view kBadOpacity =
    "Illegal opacity value for KINO_OPT SEA TRANSPARENT; should be between 0.0 and 1.0";
constexpr std::string_view kBadKey = "ERROR - Invalid quantity for {} command: {}";

// Anything that isn't a yes is a no.
bool IsYes(std::string_view word) {
  bool value = false;
  return ReadBoolean(word, value) && value;
}

// ---- ANIMATE_OPTION

struct OptionCall {
  ScriptCall& call;
  MotionViewState& view;
  std::string word;  // the value, in capitals
};

template <bool MotionViewState::*flag>
int SetFlag(OptionCall& option) {
  option.view.*flag = IsYes(option.word);
  return kScriptOk;
}

int ReadNumber(const OptionCall& option, const NumberRule& rule, float& value) {
  return ReadLimited(option.call, option.word, rule, value);
}

constexpr NumberRule kAmbient{"KINO_OPT AMBIENT", 0, 1, true, "between 0.0 and 1.0"};
constexpr NumberRule kAperture{"KINO_OPT APERTURE", 0, 90, true, "between 0.0 and 90.0"};
constexpr NumberRule kRadius{"KINO_OPT RADIUS", 0, kNoLimit, false, "> 0.0"};
constexpr NumberRule kAzimuth{"KINO_OPT AZIMUTH", 0, 360, true, "between 0.0 and 360.0"};
constexpr NumberRule kElevation{"KINO_OPT ELEVATION", -90, 90, true, "between -90.0 and 90.0"};
constexpr NumberRule kGridSize{"KINO_OPT GRIDSIZE", 0, kNoLimit, false, "> 0.0"};
constexpr NumberRule kThick{"KINO_OPT THICK", 0, kNoLimit, true, "=> 0.0"};
constexpr NumberRule kGraphThick{"KINO_OPT GRAPH_THICK", 0, kNoLimit, true, "=> 0.0"};
constexpr NumberRule kSyncFactor{"KINO_OPT SYNC_FACTOR", -kNoLimit, kNoLimit, true, "a number"};
constexpr NumberRule kStep{"KINO_OPT STEP", -kNoLimit, kNoLimit, true, "a number"};

template <const NumberRule& rule, float MotionViewState::*field>
int SetNumber(OptionCall& option) {
  return ReadNumber(option, rule, option.view.*field);
}

template <const NumberRule& rule, double Camera::*field>
int SetView(OptionCall& option) {
  float value = 0;
  const int status = ReadNumber(option, rule, value);
  if (status == kScriptOk) option.view.view.*field = static_cast<double>(value);
  return status;
}

int SetPerspective(OptionCall& option) {
  option.view.view.perspective = IsYes(option.word);
  return kScriptOk;
}

int SetBody(OptionCall& option) {
  const bool wire = StartsWith(option.word, "W");
  if (!wire && !StartsWith(option.word, "S"))
    return Fail(option.call, kScriptBadArgument, "Illegal value for KINO_OPT SEA");  // deliberate: SEA here too
  option.view.hull_solid = !wire;
  option.view.hull_wire = wire;
  return kScriptOk;
}

int SetSea(OptionCall& option) {
  MotionViewState& view = option.view;
  if (StartsWith(option.word, "S")) {
    view.fs_solid = true;
    view.fs_opacity = 1;
    return kScriptOk;
  }
  if (!StartsWith(option.word, "T")) return Fail(option.call, kScriptBadArgument, "Illegal value for KINO_OPT SEA");
  std::vector<float> opacity;
  if (!ParseRealList(option.call.words, -1, opacity) || opacity.empty())
    return Fail(option.call, kScriptBadArgument, "ERROR parsing value for KINO_OPT {}", "SEA TRANSPARENT");
  const bool good = opacity[0] >= 0 && opacity[0] <= 1;
  view.fs_solid = true;
  view.fs_opacity = good ? opacity[0] : 1;
  if (!good) SayLine(option.call.console(), kBadOpacity);
  return kScriptOk;
}

constexpr NumberRule kCenter{"KINO_OPT CENTER", -kNoLimit, kNoLimit, true, "a number"};

int SetCentre(OptionCall& option) {
  ScenePoint centre;
  for (double ScenePoint::*axis : {&ScenePoint::x, &ScenePoint::y, &ScenePoint::z}) {
    if (axis != &ScenePoint::x) option.word = NextScriptWord(option.call.words, kKeyword);
    float value = 0;
    if (const int status = ReadNumber(option, kCenter, value); status != kScriptOk) return status;
    centre.*axis = static_cast<double>(value);
  }
  option.view.view.view_centre = centre;
  return kScriptOk;
}

// From where, or what it goes along with.
int SetCamera(OptionCall& option) {
  for (const CameraPreset& preset : CameraPresets()) {
    if (option.word != preset.word) continue;
    LookFrom(option.view.view, preset);
    return kScriptOk;
  }
  const std::span<const std::string_view> stands = StandWords();
  const auto found = std::find(stands.begin(), stands.end(), option.word);
  if (found == stands.end()) return Fail(option.call, kScriptBadArgument, kBadWordOf, "CAMERA", option.word);
  ChooseStand(option.view, static_cast<CameraStand>(found - stands.begin()));
  return kScriptOk;
}

int SetColours(OptionCall& option) {
  constexpr std::string_view kColours[] = {"PLAIN", "WETNESS"};  // by HullColour
  const auto found = std::find(std::begin(kColours), std::end(kColours), option.word);
  if (found == std::end(kColours)) return Fail(option.call, kScriptBadArgument, kBadWordOf, "COLOR", option.word);
  option.view.hull_colour = static_cast<HullColour>(found - std::begin(kColours));
  return kScriptOk;
}

int SetWetness(OptionCall& option) {
  option.view.hull_colour = IsYes(option.word) ? HullColour::wetness : HullColour::plain;
  return kScriptOk;
}

// 0 turns it off; the sign tells the sense.
int SetSync(OptionCall& option) {
  float factor = 0;
  if (const int status = ReadNumber(option, kSyncFactor, factor); status != kScriptOk) return status;
  PlotSessionState& run = option.call.session.plot_session;
  run.run_sync = factor != 0;
  if (factor == 0) return kScriptOk;
  run.sync_real_time = factor > 0;
  run.run_sync_factor = std::fabs(factor);
  return kScriptOk;
}

int SetStep(OptionCall& option) {
  float value = 0;
  if (const int status = ReadNumber(option, kStep, value); status != kScriptOk) return status;
  const CaseStore& store = option.call.session.case_store;
  const int step = RoundToInt(static_cast<double>(value));
  option.view.initial_step =
      store.has_steps() ? std::clamp(step, store.first_step, std::max(store.first_step, store.last_step)) : step;
  return kScriptOk;
}

struct OptionRow {
  std::string_view key;
  NameMatch match;
  int (*set)(OptionCall& option);
};
using enum NameMatch;
constexpr OptionRow kOptionRows[] = {
    // the first that fits counts
    {"RUD", beginning, SetFlag<&MotionViewState::show_rudders>},
    {"TIME", beginning, SetFlag<&MotionViewState::show_time>},
    {"TITLE", whole, SetFlag<&MotionViewState::show_title>},
    {"PERS", beginning, SetPerspective},
    {"SHAD", beginning, SetFlag<&MotionViewState::shading_on>},
    {"TR", beginning, SetFlag<&MotionViewState::body_transparent>},
    {"BODY", whole, SetBody},
    {"SEA", whole, SetSea},
    {"AMB", beginning, SetNumber<kAmbient, &MotionViewState::ambient>},
    {"APER", beginning, SetView<kAperture, &Camera::view_width>},
    {"VIEW_RAD", beginning, SetView<kRadius, &Camera::view_radius>},
    {"RAD", beginning, SetView<kRadius, &Camera::view_radius>},
    {"VIEW_AZIM", beginning, SetView<kAzimuth, &Camera::view_azimuth>},
    {"AZIM", beginning, SetView<kAzimuth, &Camera::view_azimuth>},
    {"VIEW_ELEV", beginning, SetView<kElevation, &Camera::view_elevation>},
    {"ELEV", beginning, SetView<kElevation, &Camera::view_elevation>},
    {"SYNC", beginning, SetSync},
    {"GRID", whole, SetNumber<kGridSize, &MotionViewState::fs_grid_size>},
    {"GRIDSIZE", whole, SetNumber<kGridSize, &MotionViewState::fs_grid_size>},
    {"GRID_SIZE", whole, SetNumber<kGridSize, &MotionViewState::fs_grid_size>},
    {"THICK", whole, SetNumber<kThick, &MotionViewState::line_thickness>},
    {"INIT_STEP", whole, SetStep},
    {"STEP", beginning, SetStep},
    {"CGTRACK", whole, SetFlag<&MotionViewState::show_track>},
    {"WIRE", whole, SetFlag<&MotionViewState::hull_wire>},
    {"SURFACE", whole, SetFlag<&MotionViewState::fs_solid>},
    {"SURFACE_WIRE", whole, SetFlag<&MotionViewState::fs_wire>},
    {"CENTER", whole, SetCentre},
    {"POINT_MARK", whole, SetFlag<&MotionViewState::mark_point>},
    {"CAMERA", whole, SetCamera},
    {"COLOR", whole, SetColours},
    {"WETNESS", whole, SetWetness},
    {"WATERLINE", whole, SetFlag<&MotionViewState::show_waterline>},
    {"CENTRES", whole, SetFlag<&MotionViewState::show_centres>},
    {"HORIZON", whole, SetFlag<&MotionViewState::horizon>},
    {"EVENTS", whole, SetFlag<&MotionViewState::show_events>},
    {"GRAPH_THICK", whole, SetNumber<kGraphThick, &MotionViewState::graph_thickness>},
    {"FRAME_TOO", whole, SetFlag<&MotionViewState::frame_too>},
};

bool Fits(NameMatch match, std::string_view name, std::string_view word) {
  return match == whole ? word == name : StartsWith(word, name);
}

int RunAnimateOption(ScriptCall& call) {
  const std::string typed = NextScriptWord(call.words, kKeyword);
  const std::string key = Capitals(typed);
  for (const OptionRow& row : kOptionRows) {
    if (!Fits(row.match, row.key, key)) continue;
    TakeCase(call.session.platform, call.session.motion_view, call.session.case_store);
    OptionCall option{call, call.session.motion_view, Capitals(NextScriptWord(call.words, kKeyword))};
    return row.set(option);
  }
  return Fail(call, kScriptBadArgument, kBadKey, call.command, typed);
}

// ---- Graphs

// A graph index from `least` to 4.
int ReadGraph(ScriptCall& call, int least, int& graph) {
  std::vector<float> values;
  const bool read = ParseRealList(call.words, 1, values);
  graph = read ? RoundToInt(static_cast<double>(values[0])) : least - 1;
  if (graph >= least && graph <= kScriptedGraphs) return kScriptOk;
  return Fail(call, kScriptFailed, "ERROR - Invalid graph index for {} value must be {}-{}", call.command, least,
              kScriptedGraphs);
}

int RunAnimateGraph(ScriptCall& call) {
  int index = 0;
  TakeCase(call.session.platform, call.session.motion_view, call.session.case_store);
  if (const int status = ReadGraph(call, 1, index); status != kScriptOk) return status;
  MotionGraph& graph = call.session.motion_view.graphs[static_cast<std::size_t>(index - 1)];
  if (Capitals(PeekScriptWord(call.words, kKeyword)) == "OFF") {
    (void)NextScriptWord(call.words, kKeyword);
    graph.on = false;
    return kScriptOk;
  }
  Selector selector;
  QuantityRequest request;
  if (const int status = ReadCurve(call, selector, request); status != kScriptOk) return status;
  if (selector.form == TailForm::missile) {  // here alone a curve index stands behind its eight numbers
    std::vector<float> curve;
    if (!ParseRealList(call.words, 1, curve)) return Fail(call, kScriptFailed, kFewMissile, call.command);
    request.curve = RoundToInt(static_cast<double>(curve[0]));
    if (const int status = CheckCurve(call, selector, request); status != kScriptOk) return status;
  }
  graph.request = request;
  graph.on = true;
  return kScriptOk;
}

int SetColour(ScriptCall& call, const std::string& word, MotionGraph& graph) {
  const auto name = std::find(std::begin(kColourNames), std::end(kColourNames), Capitals(word));
  if (name == std::end(kColourNames)) return Fail(call, kScriptBadArgument, "ERROR - unrecognized color= {}", word);
  graph.colour = static_cast<int>(name - std::begin(kColourNames));
  return kScriptOk;
}

struct GraphFlagRow {
  std::string_view key;
  bool MotionGraph::*flag;
};
constexpr GraphFlagRow kGraphFlags[] = {
    {"BL", &MotionGraph::blank}, {"SCR", &MotionGraph::scroll}, {"T", &MotionGraph::time_bar},
    {"MAR", &MotionGraph::mark}, {"VAL", &MotionGraph::value},
};

int SetGraphOption(ScriptCall& call, const std::string& key, const std::string& word, MotionGraph& graph) {
  const std::string capitals = Capitals(key);
  if (StartsWith(capitals, "COL")) return SetColour(call, word, graph);
  for (const GraphFlagRow& row : kGraphFlags) {
    if (!StartsWith(capitals, row.key)) continue;
    graph.*row.flag = IsYes(word);
    return kScriptOk;
  }
  return Fail(call, kScriptBadArgument, kBadKey, call.command, key);
}

int RunAnimateGraphOption(ScriptCall& call) {
  int index = 0;
  if (const int status = ReadGraph(call, 0, index); status != kScriptOk) return status;
  const std::string key = NextScriptWord(call.words, kKeyword);
  const std::string word = NextScriptWord(call.words, kKeyword);
  for (int i = 1; i <= kScriptedGraphs; ++i) {
    if (index != 0 && index != i) continue;
    MotionGraph& graph = call.session.motion_view.graphs[static_cast<std::size_t>(i - 1)];
    if (const int status = SetGraphOption(call, key, word, graph); status != kScriptOk) return status;
  }
  return kScriptOk;
}

constexpr Command kAnimation[] = {
    {{"ANIMATE_GRAPH", "KINO_GRAPH"},
     kNeedsCase | kNeedsMotion,
     RunAnimateGraph,
     "graph sel|OFF tail",
     "A curve on a graph of the animation"},
    {{"ANIMATE_GRAPH_OPTION", "ANIMATE_GRAPH_OPT", "KINO_GRAPH_OPTION", "KINO_GRAPH_OPT"},
     kNone,
     RunAnimateGraphOption,
     "graphs look value",
     "Looks of the graphs of the animation: COLOR name; BLANK, SCROLL, TIME, MARK, VALUE yes or no"},
    {{"ANIMATE_OPTION", "ANIMATE_OPT", "KINO_OPTION", "KINO_OPT"},
     kNone,
     RunAnimateOption,
     "setting value",
     "Settings of the animation: RUDDER, TIME, TITLE, PERSPECTIVE, SHADING, TRANSPARENT, WIRE, SURFACE, "
     "SURFACE_WIRE, CGTRACK, WATERLINE, CENTRES, POINT_MARK, HORIZON, EVENTS, FRAME_TOO yes or no; BODY, SEA solid or "
     "not; COLOR PLAIN or WETNESS; CAMERA BOW, STERN, PORT, STARBOARD, TOP, QUARTER, and SHIP, HEADING, EARTH, BRIDGE; "
     "CENTER x y z; numbers RADIUS, AZIMUTH, ELEVATION, APERTURE, GRID, AMBIENT, SYNC, STEP, THICK, GRAPH_THICK. "
     "POINT_MARK marks the last point that a point quantity was given"},
};

}  // namespace

CommandFamily AnimationSettings() {
  return kAnimation;
}

}  // namespace zaview
