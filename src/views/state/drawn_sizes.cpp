#include "views/state/drawn_sizes.h"

#include <algorithm>
#include <cmath>

namespace zaview {

void ScaleText(float& size, float factor) {
  size = std::clamp(size * factor, kLeastText, kMostText);
}

void ScaleMark(float& size, float factor) {
  size = std::clamp(size * factor, kLeastMark, kMostMark);
}

void NextThickness(float& thickness) {
  constexpr float kStep = 0.04F, kMost = 0.08F, kTolerance = 0.001F;
  if (std::abs(thickness) < kTolerance) thickness = kStep;
  else thickness = std::abs(thickness - kStep) < kTolerance ? kMost : 0.0F;
}

}  // namespace zaview
