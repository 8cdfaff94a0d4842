// Keys of the geometry views, with the lines of the help.
#include "base/message.h"
#include "views/geometry/geometry_items.h"
#include "views/geometry/geometry_switches.h"
#include "views/geometry/geometry_view.h"
#include "views/state/axes_limits.h"
#include "views/state/camera_settings.h"
#include "views/state/drawn_sizes.h"
#include "views/state/geometry_settings.h"

namespace zaview {

namespace {

constexpr std::string_view kGreyBacks = "NOTE: Panel sides facing away from fluid domain are colored grey";

constexpr KeyScope kPlane = 1U, kSpace = 2U, kBoth = kAlways;
constexpr double kShift = 0.1;  // of the radius

GeometryViewState& Of(Session& s) {
  return s.geometry_view;
}

// The same with a view in space that there is, though it may not have been drawn yet.
GeometryViewState& FittedOf(Session& s) {
  if (Of(s).geo_3d) UpdateSpaceView(s);
  return Of(s);
}

int CountOf(const Session& s) {
  return ComponentCount(ShownHull(s.case_store));
}

template <bool GeometryViewState::*flag>
bool Toggle(Session& s) {
  Of(s).*flag = !(Of(s).*flag);
  return true;
}

template <auto GeometryViewState::*field, int count>
bool Cycle(Session& s) {
  NextOf(Of(s).*field, count);
  return true;
}

enum class Way : bool { smaller, larger };

template <Way way>
bool Text(Session& s) {
  ScaleText(Of(s).annot_size, way == Way::larger ? kTextFactor : 1.0F / kTextFactor);
  return true;
}

template <Way way>
bool Marks(Session& s) {
  ScaleMark(Of(s).mark_size, way == Way::larger ? kMarkFactor : 1.0F / kMarkFactor);
  return true;
}

bool Thickness(Session& s) {
  NextThickness(Of(s).line_thickness);
  return true;
}

template <auto verb>
bool OnView(Session& s) {
  return verb(Of(s));
}

template <auto verb>
bool OnAxes(Session& s) {
  return verb(Of(s).axes);
}

// Upright letters are none of bitmap fonts: options that differ in this alone are passed over.
bool NextAxes(Session& s) {
  constexpr int kOptions = 4, kSpaceOptions = 5;
  GeometryViewState& view = Of(s);
  if (view.geo_3d) NextOf(view.space_axes, kSpaceOptions);
  else view.axis_option = (view.axis_option + (s.gks.window.bitmap_font ? 2 : 1)) % kOptions;
  return true;
}

bool BackOut(Session& s) {
  GeometryViewState& view = FittedOf(s);
  return view.geo_3d ? ZoomSpace(view, kSpaceZoom) : ZoomOut(view.axes);
}

template <auto verb>
bool Colour(Session& s) {
  verb(Of(s));
  SayColouring(s);
  return true;
}

bool SwitchBacks(Session& s) {
  Toggle<&GeometryViewState::geo_backface>(s);
  if (Of(s).geo_backface) SayLine(s.platform.console, kGreyBacks);
  return true;
}

bool SwitchMirror(Session& s) {
  return TakeMirror(Of(s), !Of(s).geo_mirror);
}

bool SwitchAllPoints(Session& s) {
  return SwitchPoints(Of(s), s.case_store.control);
}

bool SwitchPerspective(Session& s) {
  bool& perspective = Of(s).view.perspective;
  perspective = !perspective;
  return true;
}

template <int direction>
bool OtherComponent(Session& s) {
  return NextComponent(Of(s), CountOf(s), direction);
}

template <int component>
bool Component(Session& s) {
  return TakeComponent(Of(s), CountOf(s), component);
}

template <GeometryPlane plane>
bool Plane(Session& s) {
  return TakePlane(Of(s), plane);
}

template <int x, int y, int z>
bool Shift3(Session& s) {
  return MoveCentre(FittedOf(s), {kShift * x, kShift * y, kShift * z});
}

template <Way way>
bool Zoom(Session& s) {
  return ZoomSpace(FittedOf(s), way == Way::larger ? kSpaceZoom : 1.0 / kSpaceZoom);
}

template <int direction>
bool Width(Session& s) {
  WidenView(Of(s).view, direction * kSpaceWidthStep);
  return true;
}

// Pans by half a range, or moves the eye.
template <int x, int y>
bool Arrow(Session& s) {
  constexpr float kPart = 0.5F;
  GeometryViewState& view = Of(s);
  if (!view.geo_3d) return Pan(view.axes, kPart * static_cast<float>(x), kPart * static_cast<float>(y));
  TurnEye(view.view, x * kSpaceTurn, y * kSpaceTurn);
  return true;
}

// What acts in every view has its place in the help here.
constexpr auto kOfSession = nullptr;

// In the order of the help.
// clang-format off
constexpr ViewKey kKeys[] = {
    {'a',             kBoth,  NextAxes,
     {" a      Toggle axis plot options"}},
    {'b',             kBoth,  BackOut,
     {" b      Backs view out (zooms out)"}},
    {Ctrl('b'),       kBoth,  SwitchBacks,
     {"^b      Toggle backface coloring of solid plot (3-D view)"}},
    {'c',             kBoth,  Colour<SwitchColours>,
     {" c      Toggle color"}},
    {Ctrl('c'),       kBoth,  Colour<SwitchColouring>,
     {"^c      Toggle color by component/type"}},
    {'e',             kBoth,  Text<Way::smaller>,
     {" e/E    Decrease/increase size of annotation text"}},
    {'E',             kBoth,  Text<Way::larger>},
    {'f',             kBoth,  OnView<FitPlotted>,
     {" f      Change axis limits/view to fit currently plotted geometry"}},
    {'g',             kBoth,  Toggle<&GeometryViewState::geo_mark_cg>,
     {" g      Mark center of gravity"}},
    {'k',             kPlane, OnAxes<KeepLimits>,
     {" k      Keep current (zoomed/panned) 2-D axis limits"}},
    {'l',             kBoth,  SwitchAllPoints,
     {" l      Toggle weight/load calculation points"}},
    {'L',             kBoth,  Toggle<&GeometryViewState::geo_load_numbers>,
     {" L      Toggle numbering of load calculation points"}},
    {Ctrl('l'),       kBoth,  Toggle<&GeometryViewState::geo_shading>,
     {"^l      Toggle light-shading of solid plots (3-D view)"}},
    {'m',             kBoth,  Cycle<&GeometryViewState::geo_mark_points, 3>,
     {" m      Toggle marking of points"}},
    {'n',             kBoth,  SwitchNormals,
     {" n      Toggle plot of surface normal vectors"}},
    {Ctrl('o'),       kBoth,  Toggle<&GeometryViewState::geo_outline>,
     {"^o      Toggle polygon outlines on solid plots (3-D view)"}},
    {Alt('o'),        kBoth,  kOfSession,
     {"Alt+o bar - Invoke plot options menu"}},
    {'p',             kBoth,  Marks<Way::smaller>,
     {" p/P    Decrease/increase size of symbols used to mark CG, etc."}},
    {'P',             kBoth,  Marks<Way::larger>},
    {Ctrl('p'),       kSpace, SwitchPerspective,
     {" ^p     Switch between perspective and orthographic projection", " (3-D view)"}},
    {'R',             kBoth,  SwitchMirror,
     {" R      Include reflection in Y=0"}},
    {'s',             kBoth,  OtherComponent<1>,
     {" s      Select surface/curve to plot (cycles through  1,2, ..., and all)"}},
    {'S',             kBoth,  Component<0>,
     {" S      Select all surfaces/curves"}},
    {Ctrl('s'),       kBoth,  Toggle<&GeometryViewState::geo_solid>,
     {"^s      Toggle ``solid' vs. wireframe plot (3-D view)"}},
    {'t',             kBoth,  Thickness,
     {" t      Change line thickness"}},
    {'T',             kBoth,  Toggle<&GeometryViewState::show_title>,
     {" T      Toggle plot title"}},
    {'v',             kBoth,  Toggle<&GeometryViewState::geo_appendages>,
     {" v      Toggle plot of viscous appendages"}},
    {'V',             kBoth,  Toggle<&GeometryViewState::geo_3d>,
     {" V      Switch between 2-D and 3-D views"}},
    {Ctrl('v'),       kBoth,  Toggle<&GeometryViewState::geo_appendage_labels>,
     {"^v      Toggle labeling of viscous appendages"}},
    {'w',             kBoth,  Cycle<&GeometryViewState::geo_draw, 3>,
     {" w      Plot waterlines, stations or both"}},
    {'x',             kPlane, Plane<GeometryPlane::y_z>,
     {" x      Change to Y-Z view (along X-axis) (2-D view)"}},
    {'x',             kSpace, Shift3<-1, 0, 0>,
     {" x/X    Shift view center in -/+ X (3-D view)"}},
    {'X',             kSpace, Shift3<1, 0, 0>},
    {Ctrl('x'),       kPlane, OnAxes<WidenXStep>,
     {"^x      Increase horizontal axis increment (2-D view)"}},
    {'y',             kPlane, Plane<GeometryPlane::x_z>,
     {" y      Change to X-Z view (along Y-axis) (2-D view)"}},
    {'y',             kSpace, Shift3<0, -1, 0>,
     {" y/Y    Shift view center in -/+ Y (3-D view)"}},
    {'Y',             kSpace, Shift3<0, 1, 0>},
    {Ctrl('y'),       kPlane, OnAxes<WidenYStep>,
     {"^y      Increase vertical axis increment (2-D view)"}},
    {'z',             kPlane, Plane<GeometryPlane::x_y>,
     {" z      Change to X-Y view (along Z-axis) (2-D view)"}},
    {'z',             kSpace, Shift3<0, 0, -1>,
     {" z/Z    Shift view center in -/+ Z (3-D view)"}},
    {'Z',             kSpace, Shift3<0, 0, 1>},
    {Ctrl('z'),       kBoth,  SwitchBuffer,
     {"^z      Toggle Z-buffering of wireframe plots (3-D view)"}},
    {'1',             kBoth,  Component<1>,
     {" 1-9    Plot specified surface/curve"}},
    {'2',             kBoth,  Component<2>},
    {'3',             kBoth,  Component<3>},
    {'4',             kBoth,  Component<4>},
    {'5',             kBoth,  Component<5>},
    {'6',             kBoth,  Component<6>},
    {'7',             kBoth,  Component<7>},
    {'8',             kBoth,  Component<8>},
    {'9',             kBoth,  Component<9>},
    {'[',             kBoth,  OtherComponent<-1>,
     {" [/]    Plot previous/next surface/curve"}},
    {']',             kBoth,  OtherComponent<1>},
    {'{',             kSpace, Width<-1>,
     {" {/}    Decrease/increase view width (3-D perspective view)"}},
    {'}',             kSpace, Width<1>},
    {'-',             kSpace, Zoom<Way::larger>,
     {" -/+    Zoom out/in (3-D view)"}},
    {'+',             kSpace, Zoom<Way::smaller>},
    {'=',             kSpace, Zoom<Way::smaller>},
    {kKeyLeft,        kBoth,  Arrow<-1, 0>,
     {"Arrows  Pan    view left, right, up, down (2-D view)", "Arrows  Rotate view left, right, up, down (3-D view)"}},
    {kKeyRight,       kBoth,  Arrow<1, 0>},
    {kKeyUp,          kBoth,  Arrow<0, 1>},
    {kKeyDown,        kBoth,  Arrow<0, -1>},
};
// clang-format on

constexpr std::string_view kMouseHelp[] = {
    "The plot is controlled by the mouse and keyboard...",
    "In 2-D view mode...",
    "   Two LEFT mouse clicks in the picture zooms in to the",
    "         rectangle defined by the clicks.",
    "   LEFT mouse click outside the picture returns to the original view.",
    "   RIGHT mouse click in the picture measures the value of that",
    "         point on the plot.",
    "In 3-D view mode...",
    "   LEFT  mouse button centers view on nearest point to mouse pointer",
    "   MIDDLE mouse button zooms view based on vertical position of mouse pointer:",
    "         Click in top 1/2 of screen increases view radius (zooms out)",
    "         Click in top 1/2 of screen decreases view radius (zooms in)",  // deliberate: the bottom one does
    "   RIGHT mouse button measures the coordinates of nearest point",
    " Key    Function",
};

}  // namespace

ViewKeys GeometryKeys(const Session& session) {
  ViewKeys keys{kKeys, session.geometry_view.geo_3d ? kSpace : kPlane, kMouseHelp};
  keys.whole_help = true;
  return keys;
}

}  // namespace zaview
