// What is known of the hull in the waves, kept from step to step. Data only.
#pragma once

#include <cstdint>
#include <limits>
#include <vector>

#include "base/rotation.h"

namespace zaview {

inline constexpr int kNeverWet = std::numeric_limits<int>::max();

struct HullWetness {
  std::uint64_t case_serial = 0;  // of what is kept; 0: nothing
  int first_step = 1;             // steps first_step .. known_to are counted
  int known_to = 0;
  std::vector<float> immersion;  // of a vertex at the step that was asked for, wave less height: above 0 it is wet
  std::vector<int> first_wet;    // of the steps that are counted, the first at which the vertex is wet; kNeverWet

  std::vector<Vector3> place;  // room for the work: earth axes
  std::vector<double> x, y;
  std::vector<float> eta;
};

}  // namespace zaview
