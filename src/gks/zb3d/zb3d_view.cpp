// The view: projection, and the way back from a place on the screen.
#include <algorithm>
#include <cmath>

#include "gks/kernel/gks_transform.h"
#include "gks/zb3d/zb3d_project.h"

namespace zaview {

namespace {

constexpr float kFar = 1.0e20F;

}  // namespace

ScenePoint EyePlace(const Zb3dState& zb) {
  const ScenePoint &c = zb.view.view_centre, &d = zb.axes.into;
  const double R = zb.view.view_radius;
  return {c.x - R * d.x, c.y - R * d.y, c.z - R * d.z};
}

ZbPoint Projected(const Zb3dState& zb, ScenePoint point) {
  const ScenePoint& c = zb.view.view_centre;
  const ScenePoint q{zb.scale.x * (point.x - c.x), zb.scale.y * (point.y - c.y), zb.scale.z * (point.z - c.z)};
  const double into = Dot(q, zb.axes.into);
  double t = 1.0;
  if (zb.view.perspective) {
    const double R = zb.view.view_radius, away = R + into;
    t = away > 0.0 ? std::min(R / away, static_cast<double>(kMostRatio)) : static_cast<double>(kMostRatio);
  }
  const auto f = [](double value) { return static_cast<float>(value); };
  return {f(point.x), f(point.y), f(point.z), f(t * Dot(q, zb.axes.right)), f(t * Dot(q, zb.axes.up)), f(-into), f(t)};
}

bool InFront(const Zb3dState& zb, const ZbPoint& point) {
  return !zb.view.perspective || static_cast<double>(point.depth) < zb.view.view_radius;
}

void zb3dView(ZbDraw draw, const Camera& camera, int mode, ScenePoint scale) {
  struct Angles {
    double azimuth, elevation;
  };
  constexpr Angles kAlong[] = {{0, 0}, {90, 0}, {270, 90}};  // -X, -Y, -Z
  Zb3dState& zb = draw.zb;
  zb.view = camera;
  if (mode < 0) {
    const Angles& angles = kAlong[std::min(-mode, 3) - 1];
    zb.view.view_azimuth = angles.azimuth;
    zb.view.view_elevation = angles.elevation;
  }
  zb.axes = AxesOf(zb.view);
  zb.scale = scale;
  const auto high = static_cast<float>(HalfHeight(camera));
  const float wide = high * static_cast<float>(draw.gks.window.width) / static_cast<float>(draw.gks.window.height);
  zb.window = {-wide, wide, -high, high};
  GSWN(draw.gks, kSpaceTransform, {-wide, wide, -high, high});
  GSVP(draw.gks, kSpaceTransform, draw.gks.ws_window);
}

ZbLimits zb3dLimits(const Zb3dState& zb) {
  ZbLimits box{kFar, -kFar, kFar, -kFar};
  for (const ZbPoint& p : zb.zbufpt) {
    if (!InFront(zb, p)) continue;
    box.wx0 = std::min(box.wx0, p.sx);
    box.wx1 = std::max(box.wx1, p.sx);
    box.wy0 = std::min(box.wy0, p.sy);
    box.wy1 = std::max(box.wy1, p.sy);
  }
  return box;
}

ScenePoint zb3dScreenToModel(const Zb3dState& zb, float sx, float sy) {
  const ScenePoint &c = zb.view.view_centre, &r = zb.axes.right, &u = zb.axes.up;
  const double x = static_cast<double>(sx), y = static_cast<double>(sy);
  return {c.x + (x * r.x + y * u.x) / zb.scale.x, c.y + (x * r.y + y * u.y) / zb.scale.y,
          c.z + (x * r.z + y * u.z) / zb.scale.z};
}

void zb3dFindable(ZbDraw draw) {
  draw.zb.findable = draw.zb.zbufpt.size();
}

bool zb3dNearest(const Zb3dState& zb, float sx, float sy, std::size_t& index) {
  float least = kFar, depth = -kFar;
  bool found = false;
  for (std::size_t i = 0; i < std::min(zb.findable, zb.zbufpt.size()); ++i) {
    const ZbPoint& p = zb.zbufpt[i];
    const float dx = p.sx - sx, dy = p.sy - sy, distance = dx * dx + dy * dy;
    if (!InFront(zb, p) || distance > least || (distance == least && p.depth <= depth)) continue;
    least = distance;
    depth = p.depth;
    index = i;
    found = true;
  }
  return found;
}

}  // namespace zaview
