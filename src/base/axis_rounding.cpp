#include "base/axis_rounding.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

namespace zaview {

namespace {

constexpr float kNarrow = 0.0001F;  // of the middle: limits closer than this are set apart
constexpr float kSmallestStep = 1.0e-12F;
constexpr float kOnTick = 0.0001F;  // of a step: how far a limit may pass a tick that still holds it
constexpr double kLargest = std::numeric_limits<float>::max();
constexpr double kSteps[] = {10, 7.5, 5, 4, 3, 2.5, 2, 1, 0.75, 0.5, 0.4, 0.3, 0.25, 0.2, 0.1};
constexpr double kFineDigits[] = {7.5, 6, 5, 4, 3, 2.5, 2, 1};
constexpr double kFinePowers[] = {1e3, 1e2, 1e1, 1e0, 1e-1, 1e-2, 1e-3, 1e-4, 1e-5};
constexpr double kOnDecade = 1e-6;  // of a decade: as near as this is on it
constexpr int kDecadesBelow = 3;    // shown of a logarithmic axis whose low limit isn't positive

// The first step of the table that isn't below d.
float RoundUp(float d) {
  const double power = std::pow(10.0, std::floor(std::log10(static_cast<double>(d))));
  const float ratio = d / static_cast<float>(power);
  const auto below = std::find_if(std::begin(kSteps) + 1, std::end(kSteps) - 1,
                                  [ratio](double entry) { return ratio > static_cast<float>(entry); });
  return static_cast<float>(std::min(*std::prev(below) * power, kLargest));
}

RoundAxis Rising(float low, float high, float ticks, float length) {
  const float range = high - low;
  const float middle = 0.5F * low + 0.5F * high;
  const float narrow = kNarrow * std::abs(middle);
  if (range < narrow) return {middle - narrow, narrow, middle + narrow};
  if (!(range > 0.0F)) return {middle - kNarrow, kNarrow, middle + kNarrow};
  const float t = std::trunc(ticks * length);
  const float step = RoundUp(std::max(range / (t >= 1.0F ? t : 1.0F), kSmallestStep));
  RoundAxis out;
  out.step = step;
  out.high = (high > 0.0F ? std::trunc(high / step - kOnTick) + 1.0F : std::trunc(high / step)) * step;
  out.low = (low >= 0.0F ? std::trunc(low / step) : std::trunc(low / step + kOnTick) - 1.0F) * step;
  return out;
}

double Decades(float value) {
  const double decades = std::log10(static_cast<double>(value));
  const double whole = std::round(decades);
  return std::abs(decades - whole) <= kOnDecade ? whole : decades;
}

}  // namespace

RoundAxis dgRoundAxis(float low, float high, float ticks, float length) {
  if (!std::isfinite(high - low)) return {0.0F, 1.0F, 1.0F};
  RoundAxis out;
  if (high < low) {
    out = Rising(-low, -high, ticks, length);
    out = {-out.low, -out.step, -out.high};
  } else {
    out = Rising(low, high, ticks, length);
  }
  out.low += 0.0F;  // -0 becomes 0
  out.high += 0.0F;
  return out;
}

float dgRoundStep(float step) {
  if (step == 0.0F || !std::isfinite(step)) return step;
  return std::copysign(RoundUp(std::abs(step)), step);
}

float dgRoundFine(float value) {
  float above = value;  // the entry before; none is before the first
  for (const double power : kFinePowers) {
    for (const double digits : kFineDigits) {
      const float entry = static_cast<float>(digits * power);
      if (value > entry) return above;
      above = entry;
    }
  }
  return value;
}

LogLimits dgRoundLog(float low, float high) {
  if (!std::isfinite(low) || !std::isfinite(high) || (!(low > 0.0F) && !(high > 0.0F))) return {};
  LogLimits out;
  const int top = high > 0.0F ? static_cast<int>(std::ceil(Decades(high))) : 0;
  out.low = low > 0.0F ? static_cast<int>(std::floor(Decades(low))) : top - kDecadesBelow;
  out.high = high > low && top > out.low ? top : out.low + 1;
  return out;
}

}  // namespace zaview
