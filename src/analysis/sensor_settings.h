// What the user has set for sensor views. Data only.
#pragma once

#include <array>

namespace zaview {

struct SensorPlace {
  std::array<float, 3> position{};  // INPUT axes and lengths
  float lookdown_deg = 0;           // half of its field of view, from the level of the ship at rest
};

struct SensorSettings {
  float earth_radius = -1;    // input lengths; 0 and below: by GRAVIN
  float height_maximum = -1;  // of visible heights, input lengths; negative: the ship length
  bool sensor_given = false;  // in the dialogue
  SensorPlace sensor;
};

}  // namespace zaview
