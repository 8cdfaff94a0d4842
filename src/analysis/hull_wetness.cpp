#include "analysis/hull_wetness.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "base/grow.h"
#include "case/ship_pose.h"
#include "case/size_history.h"
#include "waves/elevation_grid.h"
#include "waves/wave_scale.h"

namespace zaview {

namespace {

constexpr int kIntervals = 80;          // along the longer side of the footprint
constexpr double kLeastSpacing = 1e-6;  // of the reference length
constexpr std::size_t kMostPoints = (kIntervals + 2) * (kIntervals + 2);

struct Footprint {
  Vector3 low{}, high{};
};

Footprint FootprintOf(std::span<const Vector3> place) {
  Footprint box{place[0], place[0]};
  for (const Vector3& p : place)
    for (std::size_t k = 0; k < 2; ++k) {
      box.low[k] = std::min(box.low[k], p[k]);
      box.high[k] = std::max(box.high[k], p[k]);
    }
  return box;
}

// As many places as cover from low to high, and one interval at least.
void Places(double low, double high, double spacing, std::vector<double>& at) {
  const auto intervals = static_cast<std::size_t>(std::max((high - low) / spacing, 0.0)) + 1;
  at.resize(std::min<std::size_t>(intervals, kIntervals + 1) + 1);
  for (std::size_t i = 0; i < at.size(); ++i) at[i] = low + spacing * static_cast<double>(i);
}

// Immersion of all points at a step.
void Immerse(const CaseStore& store, std::span<const Vector3> points, int step, HullWetness& w) {
  const ShipPose pose = PoseAtStep(store, step);
  for (std::size_t i = 0; i < points.size(); ++i) w.place[i] = ShipToEarth(pose, points[i]);
  const Footprint box = FootprintOf(w.place);
  const double longer = std::max(box.high[0] - box.low[0], box.high[1] - box.low[1]);
  if (!std::isfinite(longer)) return std::fill(w.immersion.begin(), w.immersion.end(), 0.0F);
  const double spacing = std::max(longer / kIntervals, kLeastSpacing);
  Places(box.low[0], box.high[0], spacing, w.x);
  Places(box.low[1], box.high[1], spacing, w.y);
  const std::size_t nx = w.x.size(), ny = w.y.size();
  const WaveMoment moment{static_cast<double>(store.time.at(1, step)),
                          WaveScaleAtStep(store.seaway.scaling, step).scale};
  const std::span<float> eta = std::span(w.eta).first(nx * ny);
  static_cast<void>(ElevationGrid(store.wave, moment, w.x, w.y, eta));  // a fault: flat
  for (std::size_t i = 0; i < points.size(); ++i) {
    const Vector3& p = w.place[i];
    const double u = (p[0] - box.low[0]) / spacing, v = (p[1] - box.low[1]) / spacing;
    const std::size_t a = std::min(static_cast<std::size_t>(u), nx - 2),
                      b = std::min(static_cast<std::size_t>(v), ny - 2);
    const double s = u - static_cast<double>(a), t = v - static_cast<double>(b);
    const auto at = [&](std::size_t j, std::size_t k) { return static_cast<double>(eta[k * nx + j]); };
    const double wave =
        (1 - t) * ((1 - s) * at(a, b) + s * at(a + 1, b)) + t * ((1 - s) * at(a, b + 1) + s * at(a + 1, b + 1));
    w.immersion[i] = static_cast<float>(wave - p[2]);
  }
}

bool StartAnew(const CaseStore& store, std::size_t points, HullWetness& w) {
  w.case_serial = 0;
  if (!Grow(w.immersion, points) || !Grow(w.first_wet, points) || !Grow(w.place, points) || !Grow(w.eta, kMostPoints) ||
      !Reserve(w.x, kIntervals + 2) || !Reserve(w.y, kIntervals + 2))
    return false;
  std::fill(w.first_wet.begin(), w.first_wet.end(), kNeverWet);
  w.case_serial = store.serial;
  w.first_step = store.first_step;
  w.known_to = store.first_step - 1;
  return true;
}

}  // namespace

bool FollowWetness(const CaseStore& store, std::span<const Vector3> points, int step, HullWetness& wetness) {
  HullWetness& w = wetness;
  const bool same =
      w.case_serial == store.serial && w.first_step == store.first_step && w.first_wet.size() == points.size();
  if (!same && !StartAnew(store, points.size(), w)) return false;
  if (points.empty()) return true;
  if (step <= w.known_to) Immerse(store, points, step, w);
  for (int s = w.known_to + 1; s <= step; ++s) {
    Immerse(store, points, s, w);
    w.known_to = s;
    if (InGap(store, s)) continue;
    for (std::size_t i = 0; i < points.size(); ++i)
      if (w.immersion[i] > 0.0F) w.first_wet[i] = std::min(w.first_wet[i], s);
  }
  return true;
}

}  // namespace zaview
