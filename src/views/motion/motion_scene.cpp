#include "views/motion/motion_scene.h"

#include <algorithm>
#include <span>

#include "case/case_hull.h"
#include "case/wave_at_cg.h"
#include "gks/kernel/gks_control.h"
#include "gks/scene/scene_draw.h"
#include "views/motion/hull_parts.h"
#include "views/motion/motion_stage.h"
#include "views/motion/sea_parts.h"
#include "views/motion/track_part.h"
#include "views/motion/wet_parts.h"
#include "views/state/motion_settings.h"
#include "views/state/step_run.h"

namespace zaview {

namespace {

constexpr double kReferenceLength = 1.0;  // as hulls are stored
constexpr unsigned char kHalf = 128;      // cover of a transparent hull
constexpr float kUnseen = 0.05F;          // a sea of less opacity isn't drawn
constexpr SceneColour kSeaWire{20, 60, 95, 255}, kTrackInk{240, 200, 40, 255}, kWaterlineInk{250, 240, 120, 255};
constexpr float kClearWidth = 2;  // pixels, of lines that are no wires
constexpr std::uint16_t kHiddenPattern = 0x3333;

// ---- What is made ahead of drawing

bool MakeHull(const StageInput& input, const MotionViewState& view, unsigned generation, MotionSceneState& scene) {
  const HullDrawnKey key{input.store.serial, static_cast<float>(input.length), view.body_transparent, view.hull_colour};
  if (scene.hull_of == key) return true;
  DropMesh(scene.hull, generation);
  SceneColour colour = kHullInk;
  if (view.body_transparent) colour[3] = kHalf;
  scene.hull_of = {};
  scene.hull_points.clear();
  scene.extent = ExtentOf(input);
  const double longest = SmallEdge(scene.extent);
  const bool coloured = view.hull_colour == HullColour::wetness;
  if (!MakeHullMesh(input.store, input.length, colour, coloured ? longest : 0, scene.hull)) return false;
  if (!CloseHull(input.store.hull, kReferenceLength, scene.closed)) return false;
  if (!MakeStrips(input.store, input.length, scene.closed, scene.strips)) return false;
  if (!RefineHull(longest / input.length, scene.closed)) return false;
  if (!MakePlates(input.store, input.length, scene.plates)) return false;
  scene.hull_of = key;
  return true;
}

bool SeaIsDrawn(const MotionViewState& view) {
  return (view.fs_solid && view.fs_opacity >= kUnseen) || view.fs_wire;
}

SeaLooks LooksOf(const MotionViewState& view) {
  return {view.fs_opacity, view.shading_on, view.ambient};
}

bool MakeParts(const Session& s, const MotionStage& stage, MotionViewState& view) {
  const StageInput input = InputOf(s);
  if (!MakeFins(s.case_store, stage.length, stage.step, view.scene.fins)) return false;
  const bool coloured = view.hull_colour == HullColour::wetness && !s.case_store.hull.empty();
  if (coloured && !ColourByWetness(s.case_store, stage.length, stage.step, view.scene)) return false;
  const bool wet = !s.case_store.hull.empty() && (view.show_waterline || view.show_centres);
  if ((SeaIsDrawn(view) || wet) && !MakeSea(s.case_store, stage, LooksOf(view), view.scene)) return false;
  if (wet && !MakeWettedHull(stage, ShipCentre(s.case_store), view.scene)) return false;
  return !view.show_track || MakeTrack(stage, input, StepStride(s), view.scene.track);
}

// ---- Drawing

float LineWidth(const MotionViewState& view) {
  constexpr float kPixelsPerUnit = 500.0F / 11.0F;  // as curves have it
  return std::max(1.0F, view.line_thickness * kPixelsPerUnit);
}

SceneLine WireOf(const MotionViewState& view, bool over_faces, SceneColour over, SceneColour alone) {
  SceneLine line;
  line.colour = over_faces ? over : alone;
  line.width = LineWidth(view);
  return line;
}

void DrawLit(const SceneMesh& mesh, const MotionViewState& view) {
  SceneStyle style;
  style.lit = view.shading_on;
  style.behind_lines = view.hull_wire;
  DrawFaces(mesh, style);
}

// Faces that are seen from behind ahead of the others, so that each covers what is farther away.
void DrawThrough(const SceneMesh& from_behind, const SceneMesh& from_front, SceneStyle style) {
  style.faces = SceneFaces::back;
  DrawFaces(from_behind, style);
  style.faces = SceneFaces::front;
  DrawFaces(from_front, style);
}

void DrawShip(const MotionViewState& view, const MotionStage& stage) {
  const MotionSceneState& scene = view.scene;
  PlaceInScene(stage.pose.R, {0, 0, stage.cg[2]});
  const bool solid = view.hull_solid && !view.body_transparent;
  if (solid) DrawLit(scene.hull, view);
  if (view.hull_wire) DrawWires(scene.hull, WireOf(view, view.hull_solid, kHullWire, kHullInk));
  if (view.hull_solid || view.hull_wire) DrawLit(scene.plates, view);
  if (view.show_rudders) DrawLit(scene.fins, view);
  PlaceAsItComes();
}

SceneLine TrackLine(const MotionViewState& view, SceneDepth depth) {
  SceneLine line;
  line.colour = kTrackInk;
  line.width = std::max(kClearWidth, LineWidth(view));
  line.depth = depth;
  if (depth == SceneDepth::hidden) line.pattern = kHiddenPattern;
  return line;
}

// What keeps the sea out of the hull, and a hull that the water inside may be seen through.
void DrawInside(const MotionViewState& view, const MotionStage& stage) {
  if (!view.hull_solid) return;
  PlaceInScene(stage.pose.R, {0, 0, stage.cg[2]});
  SceneStyle style;
  if (!view.body_transparent) {
    style.write_colour = false;
    DrawFaces(view.scene.strips, style);
  } else {
    style.lit = view.shading_on;
    style.blend = true;
    style.write_depth = false;
    DrawThrough(view.scene.hull, view.scene.hull, style);
  }
  PlaceAsItComes();
}

void DrawSea(const MotionViewState& view, const MotionStage& stage) {
  const MotionSceneState& scene = view.scene;
  if (view.fs_solid && view.fs_opacity >= kUnseen) {
    SceneStyle style;
    style.write_depth = view.fs_opacity >= 1;
    style.blend = !style.write_depth || stage.horizon > 0;
    style.behind_lines = view.fs_wire;
    DrawThrough(scene.sea_below, scene.sea, style);
  }
  if (view.fs_wire) DrawWires(scene.sea, WireOf(view, view.fs_solid, kSeaWire, {90, 150, 195, 255}));
}

// A little nearer than the faces that meet there.
void DrawWaterline(const MotionViewState& view) {
  SceneLine line;
  line.colour = kWaterlineInk;
  line.width = std::max(kClearWidth, LineWidth(view));
  line.closer = true;
  DrawSegments(view.scene.waterline, line);
}

void DrawAll(const Session& s, const MotionStage& stage) {
  const MotionViewState& view = s.motion_view;
  const GksColour paper = s.gks.colour[0];
  BeginScene(stage.eye, s.gks.window.width, s.gks.window.height, {paper.red, paper.green, paper.blue},
             {view.shading_on, view.ambient});
  DrawShip(view, stage);
  if (view.show_track) DrawStrip(view.scene.track, TrackLine(view, SceneDepth::nearer));
  DrawInside(view, stage);
  DrawSea(view, stage);
  if (view.show_waterline) DrawWaterline(view);
  if (view.show_track) DrawStrip(view.scene.track, TrackLine(view, SceneDepth::hidden));
  EndScene();
}

bool IsSmooth(const Session& s) {
  const bool stored = s.plot_session.run_dump || s.gks.dump.dump_only || s.gks.dump.waiting;
  return stored || !s.plot_session.run_on;
}

}  // namespace

StageInput InputOf(const Session& s) {
  return {s.case_store, static_cast<double>(s.output.units.scales.position[0]), s.gks.window.width,
          s.gks.window.height};
}

SeenSizes SizesOf(Session& s) {
  MotionViewState& view = s.motion_view;
  const StageInput input = InputOf(s);
  if (!(view.scene.extent.reach > 0)) view.scene.extent = ExtentOf(input);
  const double fitting = FittingRadius(view.view, view.scene.extent.reach, input.width, input.height);
  return {ShownRadius(view, input), fitting, ShownGridSize(view, input)};
}

SceneFault DrawMotionScene(Session& session, MotionStage& stage, std::string& why) {
  Session& s = session;
  const WindowSystem& windows = s.platform.window;
  static_cast<void>(EnsureHull(s.platform, s.case_store));  // without one the sea is shown
  if (s.case_store.seaway_tried == Tried::not_yet) static_cast<void>(EnsureSeaway(s.platform.console, s.case_store));
  if (!gksBeginScene(windows, s.gks, IsSmooth(s), why)) return SceneFault::no_opengl;
  MotionViewState& view = s.motion_view;
  const unsigned generation = windows.context_generation(windows.self);
  const StageInput input = InputOf(s);
  const bool has_hull = MakeHull(input, view, generation, view.scene);
  ChooseEarth(view, s.case_store, s.output.units.scales);
  stage = StageOf(view, input);
  const bool made = has_hull && MakeParts(s, stage, view);
  if (made && view.hull_colour == HullColour::plain) KeepMesh(view.scene.hull, generation);  // else it changes
  if (made) DrawAll(s, stage);
  if (!gksEndScene(windows, s.gks, why)) return SceneFault::no_opengl;
  return made ? SceneFault::none : SceneFault::no_memory;
}

}  // namespace zaview
