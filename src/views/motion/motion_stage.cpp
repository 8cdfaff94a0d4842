#include "views/motion/motion_stage.h"

#include <algorithm>
#include <cmath>

#include "base/angles.h"
#include "geometry/hull_cells.h"

namespace zaview {

namespace {

constexpr double kLeastWidth = 1.0;  // degrees, of the aperture

// Half of a ship of length 1 where no hull is known.
constexpr double kHalfLength = 0.5, kHalfBeam = 0.08, kHeight = 0.05;

constexpr double kGridOfLength = 1.5;
constexpr double kFarther = 1000.0;  // sizes are drawn within so many parts or times of what fits
constexpr double kHorizon = 20.0;    // grid sizes

constexpr double kBridgeFromStern = 0.2, kBridgeHeight = 0.08;  // of the hull's length, the latter above its top
constexpr double kLooksDown = 4.0;                              // degrees
constexpr double kBridgeNearest = 0.002;                        // of the reach

void Take(const Vector3& point, HullExtent& extent) {
  for (std::size_t i = 0; i < 3; ++i) {
    extent.low[i] = std::min(extent.low[i], point[i]);
    extent.high[i] = std::max(extent.high[i], point[i]);
  }
  extent.reach = std::max(extent.reach, std::hypot(point[0], point[1], point[2]));
}

Vector3 Turned(const Vector3& v, double angle) {  // about z
  const double c = std::cos(angle), s = std::sin(angle);
  return {c * v[0] - s * v[1], s * v[0] + c * v[1], v[2]};
}

ScenePoint Point(const Vector3& v) {
  return {v[0], v[1], v[2]};
}

double YawOf(const CaseStore& store, int step) {
  return static_cast<double>(store.pmgg.at(6, step));
}

Camera CameraOf(const MotionViewState& view, const MotionStage& stage, const StageInput& input) {
  Camera camera = view.view;
  camera.view_radius = ShownRadius(view, input);
  const ScenePoint c = camera.view_centre;
  if (view.stand == CameraStand::heading) {
    const double yaw = YawOf(input.store, stage.step);
    camera.view_azimuth += yaw / kRadians;
    camera.view_centre = Point(Turned({c.x, c.y, c.z}, yaw));
  }
  if (view.stand == CameraStand::earth && view.earth.chosen && view.earth.case_serial == input.store.serial)
    camera.view_centre = {c.x + view.earth.x - stage.cg[0], c.y + view.earth.y - stage.cg[1], c.z};
  return camera;
}

// Above the deck, looking ahead over the bow, whatever the ship does.
Eye BridgeEye(const MotionViewState& view, const MotionStage& stage) {
  const HullExtent& hull = view.scene.extent;
  const double length = hull.high[0] - hull.low[0], down = kLooksDown * kRadians;
  const Vector3 at =
      ToGlobal(stage.pose.R, {hull.low[0] + kBridgeFromStern * length, 0.5 * (hull.low[1] + hull.high[1]),
                              hull.high[2] + kBridgeHeight * length});
  const auto axis = [&](const Vector3& ship) { return Point(ToGlobal(stage.pose.R, ship)); };
  Eye eye;
  eye.place = {at[0], at[1], at[2] + stage.cg[2]};
  eye.axes = {axis({0, -1, 0}), axis({std::sin(down), 0, std::cos(down)}), axis({std::cos(down), 0, -std::sin(down)})};
  eye.tangent = std::tan(0.5 * std::max(view.view.view_width, kLeastWidth) * kRadians);
  eye.distance = length;
  eye.nearest = kBridgeNearest * hull.reach;
  return eye;
}

Eye EyeFor(const MotionViewState& view, const MotionStage& stage, const StageInput& input) {
  const bool on_bridge = view.stand == CameraStand::bridge;
  Eye eye = on_bridge ? BridgeEye(view, stage) : EyeOf(CameraOf(view, stage, input));
  constexpr double kNear = 0.1, kFar = 10.0;  // of the distance
  eye.farthest = kFar * eye.distance + 3.0 * stage.grid + 2.0 * view.scene.extent.reach + 2.0 * stage.horizon;
  if (!on_bridge) eye.nearest = eye.perspective ? kNear * eye.distance : -eye.farthest;
  return eye;
}

}  // namespace

HullExtent ExtentOf(const StageInput& input) {
  const double L = input.length;
  HullExtent extent;
  if (input.store.hull.empty()) {
    Take({-kHalfLength * L, -kHalfBeam * L, -kHeight * L}, extent);
    Take({kHalfLength * L, kHalfBeam * L, kHeight * L}, extent);
    extent.reach = kHalfLength * L;
    return extent;
  }
  extent.low.fill(HUGE_VAL);
  extent.high.fill(-HUGE_VAL);
  VisitCells(input.store.hull, [&](const HullCell& cell) {
    for (const Vector3& corner : cell.ring()) {
      const Vector3 r = FromCentre(input.store, corner);
      Take({r[0] * L, r[1] * L, r[2] * L}, extent);
    }
  });
  return extent;
}

double ShownRadius(const MotionViewState& view, const StageInput& input) {
  const double fitting = FittingRadius(view.view, view.scene.extent.reach, input.width, input.height);
  return view.view.view_radius > 0 ? std::clamp(view.view.view_radius, fitting / kFarther, fitting * kFarther)
                                   : fitting;
}

double ShownGridSize(const MotionViewState& view, const StageInput& input) {
  const double hull = view.scene.extent.high[0] - view.scene.extent.low[0];
  const double fitting = kGridOfLength * (hull > 0 ? hull : input.length);
  const auto chosen = static_cast<double>(view.fs_grid_size);
  return chosen > 0 ? std::clamp(chosen, fitting / kFarther, fitting * kFarther) : fitting;
}

MotionStage StageOf(const MotionViewState& view, const StageInput& input) {
  MotionStage stage;
  stage.step = input.store.current_step;
  stage.length = input.length;
  stage.pose = PoseAtStep(input.store, stage.step);
  for (std::size_t i = 0; i < 3; ++i) stage.cg[i] = stage.pose.cg[i] * input.length;
  stage.grid = ShownGridSize(view, input);
  if (view.horizon) stage.horizon = kHorizon * stage.grid;
  stage.eye = EyeFor(view, stage, input);
  return stage;
}

ScenePoint InScene(const MotionStage& stage, const Vector3& global) {
  return {global[0] - stage.cg[0], global[1] - stage.cg[1], global[2]};
}

}  // namespace zaview
