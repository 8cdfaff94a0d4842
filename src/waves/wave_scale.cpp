#include "waves/wave_scale.h"

#include <algorithm>
#include <cstddef>

namespace zaview {
namespace {

WaveScale ScaleAt(const WaveScaling& scaling, double position) {
  const std::vector<double>& steps = scaling.WSCSTP;
  const std::size_t n = std::min(steps.size(), scaling.WSCFAC.size());
  if (n == 0) return {};
  // The last listed step at or ahead of the position.
  std::size_t i = n;
  while (i > 0 && !(steps[i - 1] <= position)) --i;
  if (i == 0) return {scaling.WSCFAC.front(), 0};
  if (i == n) return {scaling.WSCFAC[n - 1], 0};
  const double gap = steps[i] - steps[i - 1];
  const double t = (position - steps[i - 1]) / gap;
  const double f1 = scaling.WSCFAC[i - 1];
  const double f2 = scaling.WSCFAC[i];
  const double s = 3.0 * t * t - 2.0 * t * t * t;
  return {f1 * (1.0 - s) + f2 * s, 6.0 * (t - t * t) * (f2 - f1) / (scaling.DTH * gap)};
}

}  // namespace

WaveScale WaveScaleAtStep(const WaveScaling& scaling, int step) {
  return ScaleAt(scaling, step);
}

WaveScale WaveScaleAtTime(const WaveScaling& scaling, double time) {
  return ScaleAt(scaling, 1.0 + (time - scaling.TINIT) / scaling.DTH);
}

}  // namespace zaview
