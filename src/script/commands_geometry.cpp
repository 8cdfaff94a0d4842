// The geometry view, and its settings.
#include <string>

#include "base/text.h"
#include "script/command_table.h"
#include "script/plot_commands.h"
#include "script/setting_words.h"
#include "views/state/axes_limits.h"
#include "views/state/geometry_settings.h"

namespace zaview {

namespace {

constexpr std::string_view kBadKey = "ERROR - Invalid quantity for {} command: {}";
constexpr std::string_view kBadValue = "Illegal value for {}";

int RunPlotGeometry(ScriptCall& call) {
  return HandOverView(call, PlotModule::geometry);
}

// ---- GEOMETRY_OPTION
struct OptionCall {
  ScriptCall& call;
  GeometryViewState& view;
  std::string_view name;  // of the setting, in messages
  std::string word;       // the value, in capitals
};

int BadValue(const OptionCall& option) {
  return Fail(option.call, kScriptBadArgument, kBadValue, option.name);
}

template <bool GeometryViewState::*flag>
int SetFlag(OptionCall& option) {
  return ReadBoolean(option.word, option.view.*flag) ? kScriptOk : BadValue(option);
}

int SetMirror(OptionCall& option) {
  bool on = false;
  if (!ReadBoolean(option.word, on)) return BadValue(option);
  TakeMirror(option.view, on);
  return kScriptOk;
}

int SetPoints(OptionCall& option) {
  bool on = false;
  if (!ReadBoolean(option.word, on)) return BadValue(option);
  option.view.geo_mark_points = on ? PointMarks::with_lines : PointMarks::none;
  return kScriptOk;
}

int SetLoads(OptionCall& option) {
  bool on = false;
  if (!ReadBoolean(option.word, on)) return BadValue(option);
  option.view.geo_weight_points = option.view.geo_x_cuts = option.view.geo_y_cuts = on;
  return kScriptOk;
}

int SetPerspective(OptionCall& option) {
  return ReadBoolean(option.word, option.view.view.perspective) ? kScriptOk : BadValue(option);
}

int SetWire(OptionCall& option) {
  bool wire = false;
  if (!ReadBoolean(option.word, wire)) return BadValue(option);
  option.view.geo_solid = !wire;
  return kScriptOk;
}

int SetView(OptionCall& option) {
  constexpr WordValue kViews[] = {{"XY", 0}, {"XZ", 1}, {"YZ", 2}, {"3D", 3}};
  constexpr int kSpace = 3;
  int view = 0;
  if (!FindWord(kViews, option.word, view)) return BadValue(option);
  option.view.geo_3d = view == kSpace;
  if (view != kSpace) TakePlane(option.view, static_cast<GeometryPlane>(view));
  return kScriptOk;
}

template <typename Enum>
int SetByWord(const OptionCall& option, std::span<const WordValue> words, Enum& value) {
  int number = 0;
  if (!FindWord(words, option.word, number)) return BadValue(option);
  value = static_cast<Enum>(number);
  return kScriptOk;
}

int SetDraw(OptionCall& option) {
  constexpr WordValue kWords[] = {{"BOTH", 0}, {"STATIONS", 1}, {"WATERLINES", 2}};
  return SetByWord(option, kWords, option.view.geo_draw);
}

int SetColour(OptionCall& option) {
  constexpr WordValue kWords[] = {{"SAME", 0}, {"COMPONENT", 1}, {"TYPE", 2}};
  GeometryColour colour = GeometryColour::same;
  const int status = SetByWord(option, kWords, colour);
  if (status == kScriptOk) TakeColouring(option.view, colour);
  return status;
}

int SetAxes(OptionCall& option) {
  constexpr WordValue kWords[] = {{"OFF", 0}, {"NONE", 0}, {"LINES", 1}, {"NUMBERS", 2}, {"BOX", 3}, {"GRID", 4}};
  return SetByWord(option, kWords, option.view.space_axes);
}

constexpr NumberRule kRadius{"GEOM_OPT RADIUS", 0, kNoLimit, false, "> 0.0"};
constexpr NumberRule kAzimuth{"GEOM_OPT AZIMUTH", 0, 360, true, "between 0.0 and 360.0"};
constexpr NumberRule kElevation{"GEOM_OPT ELEVATION", -90, 90, true, "between -90.0 and 90.0"};
constexpr NumberRule kAperture{"GEOM_OPT APERTURE", 0, 90, true, "between 0.0 and 90.0"};
constexpr NumberRule kThickness{"GEOM_OPT THICKNESS", 0, kNoLimit, true, "=> 0.0"};
constexpr NumberRule kComponent{"GEOM_OPT COMPONENT", 0, 100, true, "between 0 and 100"};

// What isn't chosen is fitted anew when the eye moves.
template <const NumberRule& rule, double Camera::*field>
int SetCamera(OptionCall& option) {
  float value = 0;
  if (const int status = ReadLimited(option.call, option.word, rule, value); status != kScriptOk) return status;
  option.view.view.*field = static_cast<double>(value);
  option.view.space_fit = {};
  return kScriptOk;
}

int SetRadius(OptionCall& option) {
  float value = 0;
  if (const int status = ReadLimited(option.call, option.word, kRadius, value); status != kScriptOk) return status;
  TakeRadius(option.view, static_cast<double>(value));
  option.view.space_fit = {};
  return kScriptOk;
}

int SetThickness(OptionCall& option) {
  return ReadLimited(option.call, option.word, kThickness, option.view.line_thickness);
}

// One that the case hasn't got shows all. A script has no key to fit the view by: what isn't chosen is fitted anew.
int SetComponent(OptionCall& option) {
  float value = 0;
  if (const int status = ReadLimited(option.call, option.word, kComponent, value); status != kScriptOk) return status;
  option.view.geo_component = static_cast<int>(value);
  option.view.space_fit = {};
  FitUnlessChanged(option.view.axes);
  return kScriptOk;
}

struct OptionRow {
  std::string_view key;
  std::string_view name;  // in messages
  int (*set)(OptionCall& option);
};
// By their first letters, the first that fits.
constexpr OptionRow kOptionRows[] = {
    {"VIEW", "GEOM_OPT VIEW", SetView},
    {"COMP", "GEOM_OPT COMPONENT", SetComponent},
    {"DRAW", "GEOM_OPT DRAW", SetDraw},
    {"MIRR", "GEOM_OPT MIRROR", SetMirror},
    {"NORM", "GEOM_OPT NORMALS", SetFlag<&GeometryViewState::geo_normals>},
    {"CG", "GEOM_OPT CG", SetFlag<&GeometryViewState::geo_mark_cg>},
    {"POINT", "GEOM_OPT POINTS", SetPoints},
    {"LOAD", "GEOM_OPT LOADS", SetLoads},
    {"NUMBER", "GEOM_OPT NUMBERS", SetFlag<&GeometryViewState::geo_load_numbers>},
    {"APPENDAGE_LABEL", "GEOM_OPT APPENDAGE_LABELS", SetFlag<&GeometryViewState::geo_appendage_labels>},
    {"APPEND", "GEOM_OPT APPENDAGES", SetFlag<&GeometryViewState::geo_appendages>},
    {"SOLID", "GEOM_OPT SOLID", SetFlag<&GeometryViewState::geo_solid>},
    {"WIRE", "GEOM_OPT WIRE", SetWire},
    {"ZBUF", "GEOM_OPT ZBUFFER", SetFlag<&GeometryViewState::zbuffer_wire>},
    {"SHAD", "GEOM_OPT SHADING", SetFlag<&GeometryViewState::geo_shading>},
    {"OUTLINE", "GEOM_OPT OUTLINE", SetFlag<&GeometryViewState::geo_outline>},
    {"BACKFACE", "GEOM_OPT BACKFACE", SetFlag<&GeometryViewState::geo_backface>},
    {"PERS", "GEOM_OPT PERSPECTIVE", SetPerspective},
    {"TITLE", "GEOM_OPT TITLE", SetFlag<&GeometryViewState::show_title>},
    {"GRID", "GEOM_OPT GRID", SetFlag<&GeometryViewState::grid_on>},
    {"ASPECT", "GEOM_OPT ASPECT", SetFlag<&GeometryViewState::aspect_adjust>},
    {"AXES", "GEOM_OPT AXES", SetAxes},
    {"COLO", "GEOM_OPT COLOR", SetColour},
    {"RAD", "GEOM_OPT RADIUS", SetRadius},
    {"AZIM", "GEOM_OPT AZIMUTH", SetCamera<kAzimuth, &Camera::view_azimuth>},
    {"ELEV", "GEOM_OPT ELEVATION", SetCamera<kElevation, &Camera::view_elevation>},
    {"APER", "GEOM_OPT APERTURE", SetCamera<kAperture, &Camera::view_width>},
    {"THICK", "GEOM_OPT THICKNESS", SetThickness},
};

int RunGeometryOption(ScriptCall& call) {
  const std::string typed = NextScriptWord(call.words, kKeyword);
  const std::string key = Capitals(typed);
  for (const OptionRow& row : kOptionRows) {
    if (!StartsWith(key, row.key)) continue;
    OptionCall option{call, call.session.geometry_view, row.name, Capitals(NextScriptWord(call.words, kKeyword))};
    return row.set(option);
  }
  return Fail(call, kScriptBadArgument, kBadKey, call.command, typed);
}

constexpr Command kGeometry[] = {
    {{"PLOT_GEOMETRY", "PLOT_GEOM", "PLOT_CONFIGURATION", "PLOT_CONFIG"},
     kNeedsGraphics | kNeedsGeometry,
     RunPlotGeometry,
     "picture",
     "The hull as it was input, in two dimensions or in space"},
    {{"GEOMETRY_OPTION", "GEOM_OPTION", "GEOM_OPT"},
     kNone,
     RunGeometryOption,
     "setting value",
     "Settings of the geometry view: VIEW XY, XZ, YZ or 3D; COMPONENT number; DRAW BOTH, STATIONS or WATERLINES; COLOR "
     "SAME, COMPONENT or TYPE; MIRROR, NORMALS, CG, POINTS, LOADS, NUMBERS, APPENDAGES, APPENDAGE_LABELS, TITLE, GRID, "
     "ASPECT yes or no; in space SOLID, WIRE, ZBUFFER, SHADING, OUTLINE, BACKFACE, PERSPECTIVE yes or no; AXES NONE, "
     "LINES, NUMBERS, BOX or GRID; RADIUS, AZIMUTH, ELEVATION, APERTURE, THICKNESS number"},
};

}  // namespace

CommandFamily GeometryCommands() {
  return kGeometry;
}

}  // namespace zaview
