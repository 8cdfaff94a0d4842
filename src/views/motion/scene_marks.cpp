#include "views/motion/scene_marks.h"

#include <cmath>
#include <string_view>

#include "geometry/input_transform.h"
#include "gks/kernel/gks_transform.h"
#include "views/motion/overlay_text.h"

namespace zaview {

namespace {

constexpr float kArm = 4;    // pixels of a mark to each side of its place
constexpr float kAside = 8;  // and of its letter

bool IsSeen(const MotionStage& stage, ScenePoint at, PlotDraw draw, GksPoint& pixel) {
  const int w = draw.gks.window.width, h = draw.gks.window.height;
  const PicturePoint p = ToPicture(stage.eye, at, w, h);
  pixel = {std::floor(static_cast<float>(p.x)), std::floor(static_cast<float>(p.y))};
  return p.scale > 0 && p.x >= 0 && p.y >= 0 && p.x < w && p.y < h;
}

void DrawCross(GksPoint at, PlotDraw draw) {
  const GksPaint& paint = draw.gks.paint;
  const auto line = [&](GksColour colour, float width, GksPoint from, GksPoint to) {
    const std::array ends = {from, to};
    paint.line(paint.self, {colour, width, kSolid}, ends);
  };
  // With an edge of the paper's colour, so that it is seen on everything.
  for (const bool edge : {true, false}) {
    const GksColour colour = draw.gks.colour[edge ? 0 : 1];
    const float arm = kArm + (edge ? 1 : 0), width = edge ? 3 : 1;
    line(colour, width, {at.x - arm, at.y}, {at.x + arm, at.y});
    line(colour, width, {at.x, at.y - arm}, {at.x, at.y + arm});
  }
}

// The letter stands to one side: those of two marks that are close don't touch.
void DrawMark(const MotionViewState& view, const MotionStage& stage, ScenePoint at, std::string_view letter,
              TextSide side, PlotDraw draw) {
  GksPoint pixel;
  if (!IsSeen(stage, at, draw, pixel)) return;
  DrawCross(pixel, draw);
  if (letter.empty()) return;
  const float aside = side == TextSide::left ? kAside : -kAside;
  const GksPoint text = gksToWorldExact(draw.gks, {pixel.x + aside, pixel.y + kArm});
  ClearText(draw, letter, text.x, text.y, view.text_size, side);
}

}  // namespace

void DrawSceneMarks(const MotionViewState& view, const CaseStore& store, const std::array<double, 3>& point,
                    const MotionStage& stage, PlotDraw draw) {
  if (view.show_centres) {
    const MotionSceneState& scene = view.scene;
    if (scene.wet_sums.V > 0)
      DrawMark(view, stage, {scene.wet_sums.B[0], scene.wet_sums.B[1], scene.wet_sums.B[2]}, "B", TextSide::right,
               draw);
    DrawMark(view, stage, {0, 0, stage.cg[2]}, "G", TextSide::left, draw);
  }
  if (!view.mark_point) return;
  const Vector3 ship = FromCentre(store, InputToShip(store.control, point));
  Vector3 global = ShipToEarth(stage.pose, ship);
  for (double& length : global) length *= stage.length;
  DrawMark(view, stage, InScene(stage, global), "", TextSide::left, draw);
}

}  // namespace zaview
