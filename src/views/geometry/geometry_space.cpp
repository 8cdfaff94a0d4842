// The geometry in space, drawn by the 3-D layer.
#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "geometry/hull_cells.h"
#include "gks/kernel/gks_control.h"
#include "gks/plot/line_colours.h"
#include "gks/zb3d/zb3d.h"
#include "views/geometry/geometry_items.h"
#include "views/geometry/space_axes.h"
#include "views/state/start_plot.h"

namespace zaview {

namespace {

constexpr float kPageWidth = 11.0F, kPageHeight = 8.5F;  // at least
constexpr double kFitAround = 1.1;                       // of the box about the hull
constexpr double kNormalLength = 0.02;                   // of the largest extent
constexpr int kDot = 15;                                 // marker of points
constexpr float kDotSize = 0.4F;

// Pens of this view, behind those of the palette. Faces: the palette as it is before lines are made legible, and two of
// their own; then the edges of each, darker.
constexpr int kPalette = 15, kFirstFace = 20, kBackPen = 36, kHullPen = 37, kEdges = 20, kGridPen = 58, kPaperPen = 59;
constexpr GksColour kBack{0.5F, 0.5F, 0.5F}, kHull{0.45F, 0.62F, 0.78F}, kGrid{0.5F, 0.5F, 0.5F};
constexpr float kEdgePart = 0.35F;  // of the colour of the face

struct Scene {
  ZbDraw draw;
  const GeometryViewState& view;
  const Hull& input;
};

ScenePoint At(const Vector3& p) {
  return {p[0], p[1], p[2]};
}

// ---- The hull
template <typename Visit>
void VisitShownCells(const Scene& scene, Visit visit) {  // visit(cell, component, mirrored)
  VisitCells(scene.input, [&](const HullCell& cell) {
    const int component = cell.component > 0 ? cell.component : ComponentCount(scene.input);
    if (!IsShown(scene.view, component)) return;
    visit(cell, component, false);
    if (scene.view.geo_mirror) visit(MirroredCell(cell), component, true);
  });
}

// A structured cell has its normal inward, an element outward.
bool ShowsInside(const Scene& scene, const HullCell& cell, std::span<const ScenePoint> ring) {
  const float towards = zb3dShade(scene.draw.zb, ring);
  return cell.component > 0 ? towards > 0.0F : towards < 0.0F;
}

int Wrapped(int colour) {  // into the palette, as pens are
  return (colour - 2) % (kPalette - 1) + 2;
}

int EdgePen(const Scene& scene, int face) {
  if (scene.view.outline_ink == OutlineInk::foreground) return 1;
  return scene.view.outline_ink == OutlineInk::background ? kPaperPen : face + kEdges;
}

int FacePen(const Scene& scene, const HullCell& cell, int component, std::span<const ScenePoint> ring) {
  if (scene.view.geo_backface && ShowsInside(scene, cell, ring)) return -kBackPen;
  const int colour = ColourOf(scene.view, scene.input, component);
  return colour < 2 ? -kHullPen : -(kFirstFace + Wrapped(colour));
}

// The sides of a cell that lie on stations, or on waterlines; corners of a mirrored cell go round the other way. A
// neighbour that is drawn later paints over half of a side and draws it once more.
void AddSides(const Scene& scene, std::span<const ScenePoint> ring, bool mirrored) {
  const bool stations = scene.view.geo_draw == GeometryLines::stations;
  zb3dWithLast(scene.draw, true);
  for (std::size_t first = stations != mirrored ? 0 : 1; first < 4; first += 2) {
    const ScenePoint side[] = {ring[first], ring[(first + 1) % 4]};
    zb3dLine(scene.draw, side, false);
  }
  zb3dWithLast(scene.draw, false);
}

void AddCell(const Scene& scene, const HullCell& cell, int component, bool mirrored) {
  const GeometryViewState& view = scene.view;
  std::array<ScenePoint, 4> corner;
  for (std::size_t i = 0; i < corner.size(); ++i) corner[i] = At(cell.corner[i]);
  const auto ring = std::span(corner).first(static_cast<std::size_t>(cell.corners));
  const bool by_lines = cell.component > 0 && view.geo_draw != GeometryLines::both;
  const bool outlined = !view.geo_solid || view.geo_outline;
  zb3dPen(scene.draw, view.geo_solid ? FacePen(scene, cell, component, ring) : ColourOf(view, scene.input, component));
  const int edge = view.geo_solid ? EdgePen(scene, scene.draw.zb.pen) : scene.draw.zb.pen;
  if (view.geo_solid || view.zbuffer_wire) {
    const ZbFill fill = view.geo_solid ? ZbFill::shaded : ZbFill::paper;
    zb3dPolygon(scene.draw, ring, fill, outlined && !by_lines ? edge : 0);
  } else if (!by_lines) {
    zb3dLine(scene.draw, ring, true);
  }
  if (!outlined || !by_lines) return;
  zb3dPen(scene.draw, -edge);
  AddSides(scene, ring, mirrored);
}

void AddHull(const Scene& scene) {
  VisitShownCells(
      scene, [&](const HullCell& cell, int component, bool mirrored) { AddCell(scene, cell, component, mirrored); });
  zb3dPen(scene.draw, 1);
}

void AddNormals(const Scene& scene) {
  if (!scene.view.geo_normals) return;
  const double length = kNormalLength * LargestExtent(BoxOf(scene.input, 0, false));
  zb3dPen(scene.draw, kNormalColour);
  VisitShownCells(scene, [&](const HullCell& cell, int, bool) {
    const Vector3 from = CellCentre(cell), n = CellNormal(cell);
    const double size = std::hypot(n[0], n[1], n[2]);
    if (cell.component == 0 || !(size > 0)) return;
    const double by = length / size;
    const ScenePoint line[] = {At(from), {from[0] + by * n[0], from[1] + by * n[1], from[2] + by * n[2]}};
    zb3dLine(scene.draw, line, false);
  });
}

void AddDots(const Scene& scene) {
  if (scene.view.geo_mark_points == PointMarks::none) return;
  zb3dMarkerStyle(scene.draw, kDot, kDotSize * scene.view.mark_size);
  std::vector<ScenePoint> points;
  VisitShownCells(scene, [&](const HullCell& cell, int, bool) {
    for (const Vector3& p : cell.ring()) points.push_back(At(p));
  });
  const auto less = [](const ScenePoint& a, const ScenePoint& b) {
    return std::array{a.x, a.y, a.z} < std::array{b.x, b.y, b.z};
  };
  std::sort(points.begin(), points.end(), less);
  const auto same = [&less](const ScenePoint& a, const ScenePoint& b) { return !less(a, b); };  // in order
  points.erase(std::unique(points.begin(), points.end(), same), points.end());
  zb3dPen(scene.draw, scene.view.geo_solid ? -(kEdges + kHullPen) : 1);
  zb3dMarker(scene.draw, points);
}

// ---- What stands beside it
void AddAppendages(const Scene& scene, const ControlRecords& control) {
  for (const ShownAppendage& appendage : AppendagesOf(scene.view, control)) {
    std::array<ScenePoint, 4> ring;
    for (std::size_t i = 0; i < ring.size(); ++i) ring[i] = At(appendage.corner[i]);
    const bool solid = scene.view.geo_solid && scene.view.appendages_solid;
    zb3dPen(scene.draw, solid ? -(kFirstFace + kAppendageColour) : kAppendageColour);
    if (solid) zb3dPolygon(scene.draw, ring, ZbFill::shaded, kEdges + scene.draw.zb.pen);
    else if (scene.view.geo_solid) zb3dLine(scene.draw, ring, true);
    else if (scene.view.zbuffer_wire) zb3dPolygon(scene.draw, ring, ZbFill::paper, scene.draw.zb.pen);
    else zb3dLine(scene.draw, ring, true);
    if (!scene.view.geo_appendage_labels) continue;
    zb3dPen(scene.draw, 1);
    zb3dOnTop(scene.draw, true);
    zb3dText(scene.draw, appendage.label, ring[2]);
    zb3dOnTop(scene.draw, false);
  }
}

void LabelComponents(const Scene& scene) {
  if (!scene.view.geo_component_labels) return;
  zb3dPen(scene.draw, 1);
  zb3dOnTop(scene.draw, true);
  for (int component = 1; component <= ComponentCount(scene.input); ++component)
    if (IsShown(scene.view, component))
      zb3dText(scene.draw, ComponentLabel(component), At(LabelPlace(scene.input, component)));
  zb3dOnTop(scene.draw, false);
}

// They can be inside of the hull.
void AddPoints(const Scene& scene, const std::vector<PointGroup>& groups) {
  zb3dOnTop(scene.draw, true);
  for (const PointGroup& group : groups) {
    std::vector<ScenePoint> points;
    for (const Vector3& p : group.at) points.push_back(At(p));
    zb3dPen(scene.draw, group.colour);
    zb3dMarkerStyle(scene.draw, group.marker, group.size);
    zb3dMarker(scene.draw, points);
    zb3dPen(scene.draw, 1);
    for (std::size_t i = 0; group.numbered && i < points.size(); ++i)
      zb3dText(scene.draw, fmt::format(" {}", i + 1), points[i]);
  }
  zb3dOnTop(scene.draw, false);
}

// ---- The view
void SetSpacePage(PlotDraw draw) {
  const float aspect = static_cast<float>(draw.gks.window.width) / static_cast<float>(draw.gks.window.height);
  const float width = std::max(kPageWidth, kPageHeight * aspect);
  dgNoFrame(draw);
  dgPage(draw, width, width / aspect);
  dgArea(draw, width, width / aspect);
  draw.page.area_y = 0;
}

void AddCorners(ZbDraw draw, const HullBox& box) {
  for (const double x : {box.low[0], box.high[0]})
    for (const double y : {box.low[1], box.high[1]})
      for (const double z : {box.low[2], box.high[2]}) {
        const ScenePoint corner{x, y, z};
        zb3dMarker(draw, {&corner, 1});
      }
}

// The radius and, unless the user has chosen it, the centre with which the box about what is plotted fills the window.
void FitBox(const Scene& scene, bool keep_radius, bool keep_centre, Camera& camera) {
  const ZbDraw draw = scene.draw;
  const Zb3dState& zb = draw.zb;
  const HullBox box = BoxOf(scene.input, scene.view.geo_component, scene.view.geo_mirror);
  double reach = 0;
  if (!keep_centre)
    camera.view_centre = {0.5 * (box.low[0] + box.high[0]), 0.5 * (box.low[1] + box.high[1]),
                          0.5 * (box.low[2] + box.high[2])};
  for (std::size_t k = 0; k < 3; ++k) reach += 0.25 * (box.high[k] - box.low[k]) * (box.high[k] - box.low[k]);
  reach = reach > 0 ? std::sqrt(reach) : 1.0;
  if (!keep_radius) camera.view_radius = FittingRadius(camera, reach, draw.gks.window.width, draw.gks.window.height);
  draw.zb.zbuffer_on = true;
  const int rounds = camera.perspective ? 4 : 1;  // sizes depend on the distance there
  for (int round = 0; round < rounds; ++round) {
    zb3dView(draw, camera);
    zb3dStart(draw);
    VisitShownCells(scene, [&](const HullCell& cell, int, bool) {
      for (const Vector3& p : cell.ring()) {
        const ScenePoint point = At(p);
        zb3dMarker(draw, {&point, 1});
      }
    });
    if (scene.view.space_axes != SpaceAxes::none) AddCorners(draw, WithSpaceAxes(box, scene.view.space_axes));
    const ZbLimits limits = zb3dLimits(zb);
    if (!(limits.wx1 >= limits.wx0)) return;
    if (!keep_centre)
      camera.view_centre = zb3dScreenToModel(zb, 0.5F * (limits.wx0 + limits.wx1), 0.5F * (limits.wy0 + limits.wy1));
    const float wide = (limits.wx1 - limits.wx0) / (zb.window.wx1 - zb.window.wx0);
    const float high = (limits.wy1 - limits.wy0) / (zb.window.wy1 - zb.window.wy0);
    const double part = kFitAround * static_cast<double>(std::max(wide, high));
    if (!keep_radius && part > 0) camera.view_radius *= part;
  }
}

// ---- Texts, on the page
void DrawTexts(const GeometryViewState& view, const std::vector<std::string>& heading,
               const std::vector<PageNote>& notes, PlotDraw draw) {
  const float h = view.annot_size, pitch = LinePitch(draw, h);
  float y = draw.page.page_height - kGeometryMargin;
  for (const std::string& line : heading)
    PageText(draw, line, 0.5F * draw.page.page_width, y -= pitch, h, TextSide::centre);
  if (!notes.empty()) {
    const NotesSize size = SizeOfNotes(draw, notes, h);
    PaperNotes(draw, notes, draw.page.page_width - kGeometryMargin - size.width, kGeometryMargin + size.height, h);
  }
  if (!view.point_measured) return;
  const auto number = [](double value) { return ShortNumber(static_cast<float>(value)); };
  const ScenePoint& p = view.measured;
  const std::string text = fmt::format("Point=({:>8},{:>8},{:>8})", number(p.x), number(p.y), number(p.z));
  PageText(draw, text, kGeometryMargin, kGeometryMargin, h, TextSide::left);
}

void SetPens(ZbDraw draw) {
  const auto colour_of = [&draw](int pen) { return GQCR(draw.console, draw.gks, pen); };
  for (int colour = 2; colour <= kPalette; ++colour) ZB3DPENSET(draw, kFirstFace + colour, colour_of(colour));
  ZB3DPENSET(draw, kBackPen, kBack);
  ZB3DPENSET(draw, kHullPen, kHull);
  for (int face = kFirstFace + 2; face <= kHullPen; ++face) {
    const GksColour c = colour_of(face);
    ZB3DPENSET(draw, kEdges + face, {kEdgePart * c.red, kEdgePart * c.green, kEdgePart * c.blue});
  }
  ZB3DPENSET(draw, kGridPen, kGrid);
  ZB3DPENSET(draw, kPaperPen, colour_of(0));
}

}  // namespace

void UpdateSpaceView(Session& session) {
  GeometryViewState& view = session.geometry_view;
  const Hull input = ShownHull(session.case_store);
  GeometryFit wanted = FitOf(view, input);
  wanted.axes = view.space_axes;
  wanted.width = session.gks.window.width;
  wanted.height = session.gks.window.height;
  const bool fits = wanted == view.space_fit || (view.own_radius && view.own_centre);
  if (fits && view.view.view_radius > 0) return;
  view.space_fit = wanted;
  FitBox({{session.platform.console, session.gks, session.zb3d}, view, input},
         view.own_radius && view.view.view_radius > 0, view.own_centre, view.view);
}

void GeoRender3D(Session& session) {
  GeometryViewState& view = session.geometry_view;
  TakeReverse(session.run, session.gks);
  const PlotDraw page = GeometryDraw(session);
  if (!dgFrame(page, 2) || !dgFrame(page, 1)) return;
  const ZbDraw draw{session.platform.console, session.gks, session.zb3d};
  zb3dInit(draw);
  SetPens(draw);
  SetCurveColours(page);
  SetSpacePage(page);
  dgThickness(page, view.line_thickness);
  const Hull input = ShownHull(session.case_store);
  const ControlRecords& control = session.case_store.control;
  const std::vector<PointGroup> groups = PointGroupsOf(view, control);
  UpdateSpaceView(session);
  zb3dView(draw, view.view);
  draw.zb.shading = view.geo_shading;
  draw.zb.zbuffer_on = view.geo_solid || view.zbuffer_wire;
  zb3dCharHeight(draw, view.annot_size * (draw.zb.window.wy1 - draw.zb.window.wy0) / session.page.page_height);
  const Scene scene{draw, view, input};
  const SpaceFrame frame{draw, view.space_axes, BoxOf(input, view.geo_component, view.geo_mirror), -kGridPen};
  DrawFrameBehind(frame);
  zb3dStart(draw);
  AddHull(scene);
  AddAppendages(scene, control);
  AddPoints(scene, groups);
  LabelComponents(scene);
  zb3dFindable(draw);
  AddNormals(scene);
  AddDots(scene);
  AddFrameLines(frame);
  if (draw.zb.out_of_memory) {
    session.run.plot_module = PlotModule::none;
    session.run.redraw = false;
    return;
  }
  zb3dFlush(draw);
  DrawFrameInFront(frame);
  dgThickness(page, 0);
  dgColour(page, 1);
  DrawTexts(view, GeometryHeading(view, input, session.case_store.file_name), GeometryNotes(view, input, groups), page);
  DrawPopup(view.axes.popup, kGeometryPopup, page);
  dgSelectGraf(page, 0);  // clicks come on the page
  (void)dgFrame(page, -3);
  session.run.redraw = false;
}

}  // namespace zaview
