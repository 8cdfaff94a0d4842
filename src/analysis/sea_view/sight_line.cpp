#include "analysis/sea_view/sight_line.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>

#include "base/angles.h"
#include "base/grow.h"

namespace zaview {
namespace {

constexpr double kLowest = -std::numeric_limits<double>::infinity();

constexpr double kSamplesAWave = 16.0;
constexpr double kLeastShare = 0.01;      // of the largest amplitude: shorter waves of less are not looked for
constexpr double kNearestShare = 4.0;     // samples up to the nearest distance
constexpr double kMostSamples = 200'000;  // of a line
constexpr double kCalmSamples = 2'000;

double Drop(const Sensor& sensor, double s) {
  return s * s / (2.0 * sensor.R);
}

double RaySlope(const Sensor& sensor, double s, double eta) {
  return s > 0.0 ? (eta - Drop(sensor, s) - sensor.h) / s : kLowest;
}

// The top of the parabola through three samples, in steps from the middle one and above it.
struct Top {
  double place = 0, rise = 0, bend = 0;
};
Top ParabolaTop(double before, double middle, double behind) {
  const double bend = (middle - before) + (middle - behind);
  if (!std::isfinite(bend) || !(bend > 0.0)) return {};
  const double lean = behind - before;
  return {0.5 * lean / bend, lean * lean / (8.0 * bend), bend};
}

// The step of Newton to f' = 0, inside of one sample step of the middle one. 0 where there is no maximum near.
double NewtonStep(double d1, double d2, double place, double step) {
  if (!(d2 < 0.0)) return 0.0;
  return std::clamp(place - d1 / d2, -step, step) - place;
}

RayTouch Touch(const SeaLine& line, const Sensor& sensor, double middle, Top top, double step) {
  const double s = middle + top.place * step;
  const LineSlopes at = SlopesAt(line, s);
  const double m = RaySlope(sensor, s, at.eta);
  const double m1 = ((at.d1 - s / sensor.R) - m) / s;
  const double m2 = ((at.d2 - 1.0 / sensor.R) - 2.0 * m1) / s;
  const double on = at.d2 == 0.0 ? 0.0 : NewtonStep(m1, m2, s - middle, step);  // 0: the bend isn't known
  if (!(s + on > 0.0)) return {s, at.eta, m};
  return {s + on, at.eta + on * (at.d1 + 0.5 * on * at.d2), m + on * (m1 + 0.5 * on * m2)};
}

bool Append(std::vector<RayTouch>& touches, const RayTouch& touch) {
  return Guarded([&] { return touches.push_back(touch), true; }, false);
}

bool FindTouches(const SeaLine& line, const Sensor& sensor, LineSamples& samples) {
  const std::vector<double>& eta = samples.eta;
  samples.touches.clear();
  double largest = kLowest;
  double before = kLowest;  // m of the sample ahead
  double middle = kLowest;
  for (std::size_t i = 1; i < eta.size(); ++i) {
    const double behind = RaySlope(sensor, static_cast<double>(i) * samples.step, eta[i]);
    if (middle > before && middle >= behind) {
      const Top top = ParabolaTop(before, middle, behind);
      if (middle + top.rise + top.bend / 8.0 > largest) {  // the true one is not further above the parabola
        const RayTouch touch = Touch(line, sensor, static_cast<double>(i - 1) * samples.step, top, samples.step);
        if (touch.m > largest && !Append(samples.touches, touch)) return false;
        largest = std::max(largest, touch.m);
      }
    }
    largest = std::max(largest, middle);
    before = middle;
    middle = behind;
  }
  return true;
}

}  // namespace

Horizon HorizonOf(double h, double R) {
  if (!(h > 0.0)) return {};
  const double D = std::sqrt((h + R) * h);
  return {D, std::atan((D * D / R + h) / D) * kDegrees};
}

double LookdownAngle(const Rotation& R, double azimuth_deg, double down_deg) {
  const double a = azimuth_deg / kDegrees;
  const double e = down_deg / kDegrees;
  const Vector3 g = ToGlobal(R, {std::cos(a) * std::cos(e), std::sin(a) * std::cos(e), -std::sin(e)});
  return std::atan2(-g[2], std::hypot(g[0], g[1])) * kDegrees;
}

double SampleStep(const IncidentWave& wave, double nearest, double farthest) {
  double largest = 0.0;
  for (const float a : wave.a) largest = std::max(largest, std::abs(static_cast<double>(a)));
  double k = 0.0;
  for (std::size_t i = 0; i < wave.size(); ++i) {
    if (largest > 0.0 && std::abs(static_cast<double>(wave.a[i])) >= kLeastShare * largest) k = std::max(k, wave.k[i]);
  }
  const double step = k > 0.0 ? kTwoPi / (kSamplesAWave * k) : farthest / kCalmSamples;
  return std::max(std::min(step, nearest / kNearestShare), farthest / kMostSamples);
}

bool SampleLine(const SeaLine& line, const Sensor& sensor, double step, double farthest, LineSamples& samples) {
  const auto steps = static_cast<std::size_t>(std::clamp(std::ceil(farthest / step), 1.0, kMostSamples));
  samples.step = farthest / static_cast<double>(steps);  // the last one stands at the farthest distance
  if (!Grow(samples.eta, steps + 1) || !ElevationsAlong(line, 0.0, samples.step, samples.eta)) return false;
  return FindTouches(line, sensor, samples);
}

void VisibleHeights(const Sensor& sensor, const LineSamples& samples, std::span<const double> distance,
                    std::span<const double> eta, std::span<float> z) {
  if (samples.eta.empty() || !(sensor.h > samples.eta[0])) {
    std::fill(z.begin(), z.end(), static_cast<float>(sensor.most));
    return;
  }
  for (std::size_t j = 0; j < distance.size(); ++j) {
    const double s = distance[j];
    double M = kLowest;
    for (const RayTouch& touch : samples.touches) {
      if (!(touch.s < s)) break;
      M = touch.m;
    }
    // Where m rises on to s, the last sample ahead of it is larger than all touches.
    auto last = static_cast<std::size_t>(s / samples.step);
    if (!(static_cast<double>(last) * samples.step < s) && last > 0) --last;
    last = std::min(last, samples.eta.size() - 1);
    M = std::max(M, RaySlope(sensor, static_cast<double>(last) * samples.step, samples.eta[last]));
    const double ray = M == kLowest ? kLowest : sensor.h + M * s + Drop(sensor, s);
    z[j] = static_cast<float>(std::min(sensor.most, std::max(eta[j], ray)));
  }
}

bool FindCrests(const SeaLine& line, const LineSamples& samples, std::vector<Crest>& crests) {
  const std::vector<double>& eta = samples.eta;
  crests.clear();
  for (std::size_t i = 1; i + 1 < eta.size(); ++i) {
    if (!(eta[i] > eta[i - 1] && eta[i] >= eta[i + 1])) continue;
    const double middle = static_cast<double>(i) * samples.step;
    const double s = middle + ParabolaTop(eta[i - 1], eta[i], eta[i + 1]).place * samples.step;
    const LineSlopes at = SlopesAt(line, s);
    const double on = NewtonStep(at.d1, at.d2, s - middle, samples.step);
    if (!Guarded([&] { return crests.push_back({s + on, at.eta + on * (at.d1 + 0.5 * on * at.d2)}), true; }, false))
      return false;
  }
  return true;
}

}  // namespace zaview
