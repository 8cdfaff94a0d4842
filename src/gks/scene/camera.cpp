#include "gks/scene/camera.h"

#include <algorithm>
#include <cmath>

#include "base/angles.h"

namespace zaview {

namespace {

constexpr double kNarrowest = 1.0;  // degrees
constexpr double kAround = 1.1;     // of the reach: a margin

double HalfWidth(const Camera& camera) {
  return 0.5 * std::max(camera.view_width, kNarrowest) * kRadians;
}

}  // namespace

CameraAxes AxesOf(const Camera& camera) {
  const double a = camera.view_azimuth * kRadians, e = camera.view_elevation * kRadians;
  const double ca = std::cos(a), sa = std::sin(a), ce = std::cos(e), se = std::sin(e);
  return {{-sa, ca, 0.0}, {-se * ca, -se * sa, ce}, {-ce * ca, -ce * sa, -se}};
}

double HalfHeight(const Camera& camera) {
  return camera.view_radius * std::tan(HalfWidth(camera));
}

double FittingRadius(const Camera& camera, double reach, int width, int height) {
  const double narrower = std::min(1.0, static_cast<double>(width) / height);
  return kAround * reach / (std::sin(HalfWidth(camera)) * narrower);
}

Eye EyeOf(const Camera& camera) {
  Eye eye;
  eye.axes = AxesOf(camera);
  eye.tangent = std::tan(HalfWidth(camera));
  eye.distance = camera.view_radius;
  eye.perspective = camera.perspective;
  const ScenePoint &c = camera.view_centre, &into = eye.axes.into;
  eye.place = {c.x - eye.distance * into.x, c.y - eye.distance * into.y, c.z - eye.distance * into.z};
  return eye;
}

PicturePoint ToPicture(const Eye& eye, ScenePoint point, int width, int height) {
  const ScenePoint q{point.x - eye.place.x, point.y - eye.place.y, point.z - eye.place.z};
  double scale = 1.0;
  if (eye.perspective) {
    const double away = Dot(q, eye.axes.into);
    if (!(away > 0.0)) return {0.0, 0.0, 0.0};
    scale = eye.distance / away;
  }
  const double pixels = scale * height / (2.0 * eye.distance * eye.tangent);  // a length
  return {0.5 * width + pixels * Dot(q, eye.axes.right), 0.5 * height - pixels * Dot(q, eye.axes.up), scale};
}

PicturePoint ToPicture(const Camera& camera, ScenePoint point, int width, int height) {
  return ToPicture(EyeOf(camera), point, width, height);
}

}  // namespace zaview
