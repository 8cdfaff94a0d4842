// The geometry in two dimensions, projected along an axis of the input.
#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include <fmt/format.h>

#include "base/axis_rounding.h"
#include "geometry/hull_cells.h"
#include "gks/plot/line_colours.h"
#include "gks/plot/page_heading.h"
#include "gks/plot/plot_look.h"
#include "views/geometry/geometry_items.h"
#include "views/state/axes_limits.h"
#include "views/state/axes_marks.h"
#include "views/state/start_plot.h"

namespace zaview {

namespace {

constexpr PageMargins kMargins{0.9F, 0.35F};  // page units right of an area that fills the page
constexpr float kAround = 0.03F;              // of the extent stays free about the hull
constexpr int kDot = 15;                      // marker of points
constexpr float kDotSize = 0.4F;
constexpr double kNormalLength = 0.02;  // of the largest extent
constexpr int kFrameOption = 2;         // of axis_option, and the one above
constexpr float kLabelGap = 0.5F;       // character heights from a marker to its number

struct Plane {  // of the input axes
  std::size_t h, v;
  [[nodiscard]] PlotPoint of(const Vector3& p) const { return {static_cast<float>(p[h]), static_cast<float>(p[v])}; }
};

struct Points {
  std::vector<float> x, y;
  void Clear() { x.clear(), y.clear(); }
  void Add(PlotPoint at) { x.push_back(at.x), y.push_back(at.y); }
};

struct Drawing {
  PlotDraw draw;
  const GeometryViewState& view;
  const Hull& input;
  Plane plane;
  std::array<double, 2> sides{1, -1};  // signs of y
  std::size_t side_count = 1;
};

// ---- Limits
PlotLimits FittedLimits(const GeometryViewState& view, const Hull& input, Plane plane) {
  if (ComponentCount(input) == 0) return {-1, 0.5F, 1, -1, 0.5F, 1};
  const HullBox box = BoxOf(input, view.geo_component, view.geo_mirror);
  const PlotPoint low = plane.of(box.low), high = plane.of(box.high);
  const float around = kAround * std::max(high.x - low.x, high.y - low.y);
  PlotLimits limits{low.x - around, 0, high.x + around, low.y - around, 0, high.y + around};
  RoundX(limits, kGeometryArea.x);
  RoundY(limits, kGeometryArea.y);
  return limits;
}

// Increments that are no good on an axis that was widened.
float ReadableStep(float step, float range) {
  constexpr float kFewest = 3.0F, kMost = 10.0F, kWanted = 6.0F;
  const float intervals = std::abs(range / step);
  return intervals >= kFewest && intervals <= kMost ? step : dgRoundStep(std::abs(range) / kWanted);
}

void KeepProportions(PlotLimits& limits, AxesLength length) {
  const PlotLimits before = limits;
  KeepAspect(limits, length);
  if (limits.x_max - limits.x_min != before.x_max - before.x_min)
    limits.x_step = ReadableStep(limits.x_step, limits.x_max - limits.x_min);
  if (limits.y_max - limits.y_min != before.y_max - before.y_min)
    limits.y_step = ReadableStep(limits.y_step, limits.y_max - limits.y_min);
}

// For the area as it is on the page.
void UpdateLimits(const Hull& input, Plane plane, const PlotPage& page, GeometryViewState& view) {
  GeometryFit wanted = FitOf(view, input);
  wanted.plane = view.geo_plane;
  AxesState& axes = view.axes;
  if (wanted.plane != view.plane_fit.plane) {
    axes.use = LimitsUse::to_fit;
    axes.measure.on = false;  // its point was one of the other plane
  } else if (!(wanted == view.plane_fit)) FitUnlessChanged(axes);
  view.plane_fit = wanted;
  if (axes.use == LimitsUse::to_fit) {
    axes.fitted = FittedLimits(view, input, plane);
    axes.use = LimitsUse::fitted;
  }
  if (axes.use == LimitsUse::fitted) axes.limits = axes.fitted;
  if (view.aspect_adjust) KeepProportions(axes.limits, {page.area_width, page.area_height});
}

// ---- The hull
void DrawLine(const Drawing& d, const Points& points) {
  if (d.view.geo_mark_points != PointMarks::alone) dgCurve(d.draw, points.x, points.y, 0);
}

template <typename PointAt>
void DrawPolyline(const Drawing& d, int count, PointAt at) {
  Points points;
  for (std::size_t side = 0; side < d.side_count; ++side) {
    points.Clear();
    for (int i = 1; i <= count; ++i) {
      const Vector3& p = at(i);
      points.Add(d.plane.of({p[0], d.sides[side] * p[1], p[2]}));
    }
    DrawLine(d, points);
  }
}

void DrawSurface(const Drawing& d, const HullSurface& surface) {
  if (d.view.geo_draw != GeometryLines::waterlines)
    for (int i = 1; i <= surface.KSTA; ++i)
      DrawPolyline(d, surface.KWL, [&](int j) -> const Vector3& { return surface.at(i, j); });
  if (d.view.geo_draw != GeometryLines::stations)
    for (int j = 1; j <= surface.KWL; ++j)
      DrawPolyline(d, surface.KSTA, [&](int i) -> const Vector3& { return surface.at(i, j); });
}

// Each edge once, whatever number of elements share it.
void DrawMesh(const Drawing& d, const HullMesh& mesh) {
  std::vector<std::pair<int, int>> edges;
  for (const HullElement& element : mesh.elements)
    for (int k = 0; k < element.corners(); ++k) {
      const int a = element.node[static_cast<std::size_t>(k)];
      const int b = element.node[static_cast<std::size_t>((k + 1) % element.corners())];
      edges.emplace_back(std::min(a, b), std::max(a, b));
    }
  std::sort(edges.begin(), edges.end());
  edges.erase(std::unique(edges.begin(), edges.end()), edges.end());
  for (const auto& [a, b] : edges)
    DrawPolyline(d, 2, [&, a = a, b = b](int i) -> const Vector3& {
      return mesh.nodes[static_cast<std::size_t>((i == 1 ? a : b) - 1)];
    });
}

template <typename Visit>
void VisitPoints(const Drawing& d, int component, Visit visit) {
  const auto both = [&](const Vector3& p) {
    for (std::size_t side = 0; side < d.side_count; ++side) visit(Vector3{p[0], d.sides[side] * p[1], p[2]});
  };
  if (!IsMesh(d.input, component)) {
    for (const Vector3& p : d.input.surfaces[static_cast<std::size_t>(component - 1)].points) both(p);
    return;
  }
  std::vector<bool> used(d.input.mesh.nodes.size());
  for (const HullElement& element : d.input.mesh.elements)
    for (int k = 0; k < element.corners(); ++k)
      used[static_cast<std::size_t>(element.node[static_cast<std::size_t>(k)] - 1)] = true;
  for (std::size_t i = 0; i < used.size(); ++i)
    if (used[i]) both(d.input.mesh.nodes[i]);
}

void MarkPoints(const Drawing& d, int component) {
  if (d.view.geo_mark_points == PointMarks::none) return;
  Points points;
  VisitPoints(d, component, [&](const Vector3& p) { points.Add(d.plane.of(p)); });
  dgMarkerType(d.draw, kDot);
  dgMarkerScale(d.draw, kDotSize * d.view.mark_size);
  dgCurve(d.draw, points.x, points.y, -1);
}

void DrawNormals(const Drawing& d) {
  if (!d.view.geo_normals) return;
  const double length = kNormalLength * LargestExtent(BoxOf(d.input, 0, false));
  dgColour(d.draw, kNormalColour);
  const auto draw = [&](const HullCell& cell) {
    const Vector3 from = CellCentre(cell), n = CellNormal(cell);
    const double size = std::hypot(n[0], n[1], n[2]);
    if (!(size > 0)) return;
    Points points;
    points.Add(d.plane.of(from));
    points.Add(
        d.plane.of({from[0] + n[0] / size * length, from[1] + n[1] / size * length, from[2] + n[2] / size * length}));
    dgCurve(d.draw, points.x, points.y, 0);
  };
  VisitCells(d.input, [&](const HullCell& cell) {
    if (cell.component == 0 || !IsShown(d.view, cell.component)) return;
    draw(cell);
    if (d.side_count > 1) draw(MirroredCell(cell));
  });
}

void DrawComponents(const Drawing& d) {
  for (int component = 1; component <= ComponentCount(d.input); ++component) {
    if (!IsShown(d.view, component)) continue;
    dgColour(d.draw, ColourOf(d.view, d.input, component));
    if (IsMesh(d.input, component)) DrawMesh(d, d.input.mesh);
    else DrawSurface(d, d.input.surfaces[static_cast<std::size_t>(component - 1)]);
    MarkPoints(d, component);
  }
}

// ---- What stands beside it
// On paper of its own, as the lines of the hull run through it.
void DrawLabel(const Drawing& d, const std::string& text, PlotPoint at) {
  constexpr float kMargin = 0.15F;  // character heights
  if (!InPlot(d.draw.page, at)) return;
  const PlotPoint page = ToPage(d.draw.page, at);
  const float h = d.view.annot_size, x = page.x + kLabelGap * h, y = page.y + kLabelGap * h;
  PlainPaper(d.draw, x - kMargin * h, y - kMargin * h, TextWidth(d.draw, text, h) + 2.0F * kMargin * h,
             LetterHeight(d.draw, h) + kMargin * h);
  PageText(d.draw, text, x, y, h, TextSide::left);
}

void LabelComponents(const Drawing& d) {
  if (!d.view.geo_component_labels) return;
  for (int component = 1; component <= ComponentCount(d.input); ++component)
    if (IsShown(d.view, component)) DrawLabel(d, ComponentLabel(component), d.plane.of(LabelPlace(d.input, component)));
}

void DrawAppendages(const Drawing& d, const ControlRecords& control) {
  for (const ShownAppendage& appendage : AppendagesOf(d.view, control)) {
    Points points;
    for (std::size_t i = 0; i <= appendage.corner.size(); ++i)
      points.Add(d.plane.of(appendage.corner[i % appendage.corner.size()]));
    dgColour(d.draw, kAppendageColour);
    dgCurve(d.draw, points.x, points.y, 0);
    if (!d.view.geo_appendage_labels) continue;
    DrawLabel(d, appendage.label, {points.x[2], points.y[2]});
  }
}

void DrawPoints(const Drawing& d, const std::vector<PointGroup>& groups) {
  for (const PointGroup& group : groups) {
    Points points;
    for (const Vector3& p : group.at) points.Add(d.plane.of(p));
    dgColour(d.draw, group.colour);
    dgMarkerType(d.draw, group.marker);
    dgMarkerScale(d.draw, group.size);
    dgCurve(d.draw, points.x, points.y, -1);
    for (std::size_t i = 0; group.numbered && i < points.x.size(); ++i)
      DrawLabel(d, fmt::format("{}", i + 1), {points.x[i], points.y[i]});
  }
}

void DrawZeroLines(const GeometryViewState& view, PlotDraw draw) {
  const PlotLimits& l = view.axes.limits;
  const float across[] = {l.x_min, l.x_max}, up[] = {l.y_min, l.y_max}, zero[] = {0, 0};
  dgDash(draw);
  if (view.horizontal_zero) dgCurve(draw, across, zero, 0);
  if (view.vertical_zero) dgCurve(draw, zero, up, 0);
  dgReset(draw, "dash");
}

void DrawAxes(const GeometryViewState& view, PlotDraw draw) {
  const PlotLimits& l = view.axes.limits;
  dgGraf(draw, l.x_min, l.x_step, l.x_max, l.y_min, l.y_step, l.y_max);
  dgThickness(draw, 0);
  dgColour(draw, 1);
  DrawGridLines(draw, view.grid_on);
  if (view.axis_option >= kFrameOption || LookOf(draw.gks).boxed) DrawAreaFrame(draw);
  DrawZeroLines(view, draw);
}

}  // namespace

void GeoRender2D(Session& session) {
  constexpr std::string_view kNames[] = {"X", "Y", "Z"};
  GeometryViewState& view = session.geometry_view;
  TakeReverse(session.run, session.gks);
  const PlotDraw draw = GeometryDraw(session);
  if (!dgFrame(draw, 2) || !dgFrame(draw, 1)) return;
  SetCurveColours(draw);
  SetPlotPage(draw, {kGeometryArea.x, kGeometryArea.y}, kMargins);
  dgCharHeight(draw, view.annot_size);
  const Hull input = ShownHull(session.case_store);
  const ControlRecords& control = session.case_store.control;
  const Plane plane{AxisOf(view.geo_plane, true), AxisOf(view.geo_plane, false)};
  dgXName(draw, kNames[plane.h]);
  dgYName(draw, kNames[plane.v]);
  dgYName90(draw, view.axis_option % kFrameOption);
  const std::vector<PointGroup> groups = PointGroupsOf(view, control);
  const std::vector<PageNote> notes = GeometryNotes(view, input, groups);
  const std::vector<std::string> heading = GeometryHeading(view, input, session.case_store.file_name);
  const NotesPlace place = PlaceOfNotes(draw, notes, view.annot_size, view.annot_size);
  MakeRoom(draw, heading.size(), place.columns > 0 ? place.depth : 0.0F);
  UpdateLimits(input, plane, session.page, view);
  if (LookOf(draw.gks).fills_page) {
    MakeRoomLeft(draw, view.axes.limits.y_min, view.axes.limits.y_step, view.axes.limits.y_max);
    UpdateLimits(input, plane, session.page, view);
  }
  DrawHeading(draw, heading);
  DrawAxes(view, draw);
  const bool twice = view.geo_mirror && view.geo_plane != GeometryPlane::x_z;  // there both sides are one
  const Drawing drawing{draw, view, input, plane, {1, -1}, twice ? 2U : 1U};
  dgThickness(draw, view.line_thickness);
  DrawComponents(drawing);
  DrawNormals(drawing);
  DrawAppendages(drawing, control);
  dgThickness(draw, 0);
  dgColour(draw, 1);
  LabelComponents(drawing);
  DrawPoints(drawing, groups);
  dgColour(draw, 1);
  PageNotes(draw, notes, place);
  DrawAxesMarks(view.axes, view.annot_size, draw);
  DrawPopup(view.axes.popup, kGeometryPopup, draw);
  (void)dgFrame(draw, -3);
  session.run.redraw = false;
}

}  // namespace zaview
