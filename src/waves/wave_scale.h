// The factor that all wave amplitudes have in time. Between two listed steps it follows s = 3t^2 - 2t^3, t from 0 to 1:
// f1 (1 - s) + f2 s, with the rate 6 (t - t^2) (f2 - f1) / (dt gap). Ahead of the first and behind the last listed step
// it is that end's factor, rate 0. Of equal steps in the list the later factor holds. Double precision.
#pragma once

#include "waves/seaway.h"

namespace zaview {

struct WaveScale {
  double scale = 1;
  double rate = 0;  // change of the scale in non-dimensional time
};

[[nodiscard]] WaveScale WaveScaleAtStep(const WaveScaling& scaling, int step);
// At a non-dimensional time: position 1 + (time - TINIT)/DTH, not rounded.
[[nodiscard]] WaveScale WaveScaleAtTime(const WaveScaling& scaling, double time);

}  // namespace zaview
