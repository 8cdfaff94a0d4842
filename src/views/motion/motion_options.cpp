// The options of the animation: the rows of its menu, in their order.
#include <limits>
#include <string>

#include <fmt/format.h>

#include "base/number_format.h"
#include "case/quantity_catalogue.h"
#include "views/motion/motion_scene.h"
#include "views/motion/motion_view.h"
#include "views/state/drawn_sizes.h"
#include "views/state/motion_settings.h"

namespace zaview {

namespace {

constexpr fmt::string_view kPoint = "({}, {}, {})";
constexpr std::string_view kAllCurves = "all";
constexpr std::string_view kNoPoint = "none yet";
constexpr std::string_view kNoSuchQuantity =
    "ILLEGAL value ignored - this case has no such curves, or no point is given";

constexpr float kMost = std::numeric_limits<float>::max();
constexpr OptionRange kPositive{std::numeric_limits<float>::denorm_min(), kMost};
constexpr OptionRange kPart{0, 1}, kThick{0, kMost}, kText{kLeastText, kMostText};
constexpr float kTenth = 0.1F, kTurn = 5, kThicker = 0.02F;  // of arrows
constexpr int kTextColumns = 25, kNarrow = 6;                // of a quantity's name, of a short number

template <bool MotionViewState::*flag>
constexpr OptionItem Toggle(std::string_view text) {
  return Check(text, Flag<&Session::motion_view, flag>);
}

template <auto field>
constexpr OptionBinding View = Number<&Session::motion_view, &MotionViewState::view, field>;

bool ShowsHull(const Session& s, int) {
  return s.case_store.hull_tried == Tried::there;
}

// ---- Sizes that may be to fit: shown as they are drawn
constexpr OptionBinding kRadius = {
    [](Session& s, int) { return OptionValue{.real = static_cast<float>(SizesOf(s).radius)}; },
    View<&Camera::view_radius>.sets};
constexpr OptionBinding kGrid = {
    [](Session& s, int) { return OptionValue{.real = static_cast<float>(SizesOf(s).grid)}; },
    Number<&Session::motion_view, &MotionViewState::fs_grid_size>.sets};

constexpr OptionBinding kWetness = {
    [](Session& s, int) { return OptionValue{.integer = s.motion_view.hull_colour == HullColour::wetness ? 1 : 0}; },
    [](Session& s, const OptionEvent& event) {
      s.motion_view.hull_colour = event.integer != 0 ? HullColour::wetness : HullColour::plain;
      return std::string_view();
    }};

// ---- Camera
template <std::size_t preset>
constexpr OptionItem From(std::string_view text) {
  return Button(
      text,
      [](Session& s, const OptionEvent&) {
        LookFrom(s.motion_view.view, CameraPresets()[preset]);
        return std::string_view();
      },
      [](Session& s, int) {
        return OptionValue{.integer = LooksFrom(s.motion_view.view, CameraPresets()[preset]) ? 1 : 0};
      });
}

std::string_view AsAtFirst(Session& s, const OptionEvent&) {
  LookAsAtFirst(s.motion_view);
  return {};
}

template <CameraStand stand>
constexpr OptionItem Stand(std::string_view text) {
  return Radio(
      text, {Choice<stand, &Session::motion_view, &MotionViewState::stand>.shows, [](Session& s, const OptionEvent&) {
               ChooseStand(s.motion_view, stand);
               ChooseEarth(s.motion_view, s.case_store, s.output.units.scales);
               return std::string_view();
             }});
}

// ---- Graphs
MotionGraph& GraphOf(Session& s, int index) {
  return s.motion_view.graphs[static_cast<std::size_t>(index) - 1];
}

template <bool MotionGraph::*flag>
constexpr OptionBinding GraphFlag = {
    [](Session& s, int index) { return OptionValue{.integer = GraphOf(s, index).*flag ? 1 : 0}; },
    [](Session& s, const OptionEvent& event) {
      GraphOf(s, event.index).*flag = event.integer != 0;
      return std::string_view();
    }};

constexpr OptionBinding kGraph = {[](Session& s, int index) {
                                    return OptionValue{.integer = GraphOf(s, index).on ? 1 : 0,
                                                       .text = fmt::format(" Graph {}", index)};
                                  },
                                  GraphFlag<&MotionGraph::on>.sets};

constexpr OptionBinding kGraphQuantity = {[](Session& s, int index) {
                                            const int iqnt = GraphOf(s, index).request.iqnt;
                                            return OptionValue{.integer = iqnt, .text = std::string(cQntMed(iqnt))};
                                          },
                                          [](Session& s, const OptionEvent& event) {
                                            const bool taken = TakeGraphQuantity(GraphOf(s, event.index), s.case_store,
                                                                                 s.output.point, event.integer);
                                            return taken ? std::string_view() : kNoSuchQuantity;
                                          }};

constexpr OptionBinding kGraphCurve = {
    [](Session& s, int index) { return OptionValue{.integer = GraphOf(s, index).request.curve}; },
    [](Session& s, const OptionEvent& event) {
      const bool taken = TakeGraphCurve(GraphOf(s, event.index), s.case_store, event.integer);
      return taken ? std::string_view() : kIllegalIgnored;
    }};

constexpr OptionBinding kGraphColour = {
    [](Session& s, int index) { return OptionValue{.integer = GraphOf(s, index).colour}; },
    [](Session& s, const OptionEvent& event) {
      if (event.integer < 0 || event.integer >= kColours) return kIllegalIgnored;
      GraphOf(s, event.index).colour = event.integer;
      return std::string_view();
    }};

constexpr OptionBinding kScrollTime = {
    [](Session& s, int index) { return OptionValue{.real = GraphOf(s, index).scroll_time}; },
    [](Session& s, const OptionEvent& event) {
      GraphOf(s, event.index).scroll_time = event.real;
      return std::string_view();
    }};

OptionValue PointText(Session& s, int) {
  const PointSettings& point = s.output.point;
  const auto shown = [&](std::size_t i) { return Shown{static_cast<float>(point.point[i])}; };
  return {.text = point.given ? fmt::format(kPoint, shown(0), shown(1), shown(2)) : std::string(kNoPoint)};
}

constexpr OptionBinding kCurveName = {
    [](Session& s, int index) {
      const QuantityRequest& request = GraphOf(s, index).request;
      const bool one = request.curve > 0 && request.curve <= CurveCount(s.case_store, request.iqnt);
      return OptionValue{.text = one ? CurveLabel(s.case_store, s.output, request.iqnt, request.curve)
                                     : std::string(kAllCurves)};
    },
    nullptr};

constexpr OptionItem Narrow(OptionItem item) {
  item.width = kNarrow;
  return item;
}

// Columns at which items stand below each other.
constexpr OptionItem k1 = Tab(14), k2 = Tab(27), k3 = Tab(44), k4 = Tab(55);

constexpr OptionItem kScene[] = {
    Row("Hull: "),
    k1,
    If(ShowsHull, Toggle<&MotionViewState::hull_solid>("Solid")),
    k2,
    If(ShowsHull, Toggle<&MotionViewState::hull_wire>("Wireframe;")),
    k3,
    Toggle<&MotionViewState::show_rudders>("Rudders"),
    k4,
    Toggle<&MotionViewState::show_track>("Track of CG"),
    Row(),
    k1,
    If(ShowsHull, Toggle<&MotionViewState::body_transparent>("Transparent")),
    k2,
    If(ShowsHull, Check("Color by wetness", kWetness)),
    k3,
    If(ShowsHull, Toggle<&MotionViewState::show_waterline>("Waterline")),
    k4,
    If(ShowsHull, Toggle<&MotionViewState::show_centres>("CG and buoyancy")),
    Row("Free Surface:"),
    k1,
    Toggle<&MotionViewState::fs_solid>("Solid"),
    k2,
    Toggle<&MotionViewState::fs_wire>("Wireframe;"),
    k3,
    Toggle<&MotionViewState::horizon>("Up to horizon"),
    Row(),
    k1,
    Real(" Opacity=", Number<&Session::motion_view, &MotionViewState::fs_opacity>, kPart, kTenth),
    k3,
    Real(" Grid size=", kGrid, kPositive),
    Row(),
    Toggle<&MotionViewState::shading_on>("Shading;"),
    k1,
    Real(" Ambient Light Factor=", Number<&Session::motion_view, &MotionViewState::ambient>, kPart, kTenth),
    Separator(),
    Row(),
    Real("View radius=", kRadius, kPositive),
    k2,
    Real(" azim=", View<&Camera::view_azimuth>, {0, 360}, kTurn),
    Tab(49),
    Real(" elev=", View<&Camera::view_elevation>, {-90, 90}, kTurn),
    Row(),
    Check("Perspective;", Flag<&Session::motion_view, &MotionViewState::view, &Camera::perspective>),
    k1,
    Real(" view aperture=", View<&Camera::view_width>, {0, 90}, kTurn),
    Row("Center"),
    Tab(8),
    Real(" X=", Number<&Session::motion_view, &MotionViewState::view, &Camera::view_centre, &ScenePoint::x>),
    Tab(30),
    Real(" Y=", Number<&Session::motion_view, &MotionViewState::view, &Camera::view_centre, &ScenePoint::y>),
    Tab(52),
    Real(" Z=", Number<&Session::motion_view, &MotionViewState::view, &Camera::view_centre, &ScenePoint::z>),
    Row("From"),
    Tab(8),
    From<0>("Bow"),
    From<1>("Stern"),
    From<2>("Port"),
    From<3>("Starboard"),
    From<4>("Top"),
    From<5>("Quarter"),
    Button("As at first", AsAtFirst),
    Row("Goes along with"),
    k1,
    Stand<CameraStand::ship>("Ship"),
    Tab(23),
    Stand<CameraStand::heading>("Ship and heading"),
    k3,
    Stand<CameraStand::earth>("Nothing"),
    k4,
    Stand<CameraStand::bridge>("Bridge"),
    Separator(),
    Row("Show"),
    k1,
    Toggle<&MotionViewState::show_title>("Title"),
    Tab(23),
    Toggle<&MotionViewState::show_time>("Time"),
    Tab(32),
    Toggle<&MotionViewState::show_events>("Events"),
    k3,
    Narrow(Real(" Text size=", Number<&Session::motion_view, &MotionViewState::text_size>, kText)),
    Row("Line Thickness:"),
    k1,
    Narrow(Real(" geometry=", Number<&Session::motion_view, &MotionViewState::line_thickness>, kThick, kThicker)),
    Tab(35),
    Narrow(Real(" graphs=", Number<&Session::motion_view, &MotionViewState::graph_thickness>, kThick, kThicker)),
    k4,
    Toggle<&MotionViewState::frame_too>(" frame,too?"),
    Separator(),
};

constexpr OptionItem kGraphRows[] = {
    Row(),
    Check(" Graph", kGraph),
    Tab(10),
    {.kind = OptionKind::quantity, .text = " Qnt:", .value = kGraphQuantity, .width = kTextColumns},
    {.kind = OptionKind::integer, .text = " Crv:", .value = kGraphCurve, .width = 3, .low = 0, .high = kMost},
    {.kind = OptionKind::label, .value = kCurveName, .width = 13},
    {.kind = OptionKind::colour, .text = " ", .value = kGraphColour},
    Row(),
    Tab(10),
    Check("Scroll", GraphFlag<&MotionGraph::scroll>),
    Tab(19),
    Check("Blank", GraphFlag<&MotionGraph::blank>),
    Tab(27),
    Check("Value", GraphFlag<&MotionGraph::value>),
    Tab(35),
    Check("Mark", GraphFlag<&MotionGraph::mark>),
    Tab(42),
    Check("Tbar", GraphFlag<&MotionGraph::time_bar>),
    Tab(50),
    Narrow(Real(" Scroll Time=", kScrollTime, kPositive)),
};

constexpr OptionItem kPointRows[] = {
    Separator(),
    Row("Point for ship-fixed point motions:"),
    Label("", PointText),
    {.kind = OptionKind::point, .text = "Change"},
    If(ShowsHull, Toggle<&MotionViewState::mark_point>("Mark point on ship")),
};

constexpr OptionBlock kBlocks[] = {{kScene}, {kGraphRows, kGraphs}, {kPointRows}};

}  // namespace

ViewOptions MotionOptions(const Session&) {
  return {kBlocks, kAlways};
}

}  // namespace zaview
