// What the user has set for sensor views. Data only.
#pragma once

namespace zaview {

struct SensorSettings {
  float earth_radius = -1;    // input lengths; negative: by GRAVIN
  float height_maximum = -1;  // of visible heights, input lengths; negative: the ship length
};

}  // namespace zaview
