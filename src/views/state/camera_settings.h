// What keys do with the eye of any view in space.
#pragma once

#include "gks/scene/camera.h"

namespace zaview {

void TurnEye(Camera& view, double azimuth, double elevation);  // degrees to go on; azimuth 0 to 360, elevation to +-90
void WidenView(Camera& view, double degrees);                  // within 5 to 90

}  // namespace zaview
