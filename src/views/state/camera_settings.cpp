#include "views/state/camera_settings.h"

#include <algorithm>
#include <cmath>

namespace zaview {

void TurnEye(Camera& view, double azimuth, double elevation) {
  constexpr double kAround = 360.0, kUpright = 90.0;
  const double turned = std::fmod(view.view_azimuth + azimuth, kAround);
  view.view_azimuth = turned < 0 ? turned + kAround : turned;
  view.view_elevation = std::clamp(view.view_elevation + elevation, -kUpright, kUpright);
}

void WidenView(Camera& view, double degrees) {
  constexpr double kNarrowest = 5.0, kWidest = 90.0;
  view.view_width = std::clamp(view.view_width + degrees, kNarrowest, kWidest);
}

}  // namespace zaview
