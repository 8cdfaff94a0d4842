#include "gks/scene/camera.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zaview {

namespace {

constexpr double kRadians = std::numbers::pi / 180.0;
constexpr double kNarrowest = 1.0;  // degrees
constexpr double kAround = 1.1;     // of the reach: a margin

double HalfWidth(const Camera& camera) {
  return 0.5 * std::max(camera.view_width, kNarrowest) * kRadians;
}

double Dot(ScenePoint a, ScenePoint b) {
  return a.x * b.x + a.y * b.y + a.z * b.z;
}

}  // namespace

CameraAxes AxesOf(const Camera& camera) {
  const double a = camera.view_azimuth * kRadians, e = camera.view_elevation * kRadians;
  const double ca = std::cos(a), sa = std::sin(a), ce = std::cos(e), se = std::sin(e);
  return {{-sa, ca, 0.0}, {-se * ca, -se * sa, ce}, {-ce * ca, -ce * sa, -se}};
}

double FittingRadius(const Camera& camera, double reach, int width, int height) {
  const double narrower = std::min(1.0, static_cast<double>(width) / height);
  return kAround * reach / (std::sin(HalfWidth(camera)) * narrower);
}

PicturePoint ToPicture(const Camera& camera, ScenePoint point, int width, int height) {
  const CameraAxes axes = AxesOf(camera);
  const ScenePoint q{point.x - camera.view_centre.x, point.y - camera.view_centre.y, point.z - camera.view_centre.z};
  const double pixels = height / (2.0 * camera.view_radius * std::tan(HalfWidth(camera)));  // a length
  double scale = 1.0;
  if (camera.perspective) {
    const double away = camera.view_radius + Dot(q, axes.into);
    if (!(away > 0.0)) return {0.0, 0.0, 0.0};
    scale = camera.view_radius / away;
  }
  return {0.5 * width + pixels * scale * Dot(q, axes.right), 0.5 * height - pixels * scale * Dot(q, axes.up), scale};
}

}  // namespace zaview
