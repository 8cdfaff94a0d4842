#include "views/state/view_key.h"

#include <cmath>

namespace zaview {

void NextThickness(float& thickness) {
  constexpr float kStep = 0.04F, kMost = 0.08F, kTolerance = 0.001F;
  if (std::abs(thickness) < kTolerance) thickness = kStep;
  else thickness = std::abs(thickness - kStep) < kTolerance ? kMost : 0.0F;
}

}  // namespace zaview
