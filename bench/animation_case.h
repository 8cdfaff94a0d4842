// A case to be animated: a hull of 5000 cells in 500 waves, 200 steps of 0.05.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "case/case_store.h"
#include "random_sea.h"

namespace zaview {

inline constexpr int kWidth = 800, kHeight = 600, kSteps = 200;
inline constexpr int kStations = 51, kWaterlines = 51;  // of each side
inline constexpr std::size_t kComponents = 500;
inline constexpr float kLength = 100;

inline IncidentWave Sea() {
  return MakeSea({kComponents, 1.0F, 3.0F, 0.001F});
}

inline Hull ParabolicHull() {
  Hull hull;
  for (const double side : {1.0, -1.0}) {
    HullSurface surface;
    surface.KSTA = kStations;
    surface.KWL = kWaterlines;
    for (int i = 0; i < kStations; ++i)
      for (int j = 0; j < kWaterlines; ++j) {
        const double x = 0.5 - i / (kStations - 1.0), z = -0.06 + 0.1 * j / (kWaterlines - 1.0);
        const double depth = std::min(z / 0.06, 0.0);
        surface.points.push_back({x, side * 0.08 * (1 - 4 * x * x) * (1 - depth * depth), z});
      }
    hull.surfaces.push_back(surface);
  }
  return hull;
}

inline void MakeAnimationCase(CaseStore& c) {
  c.serial = 1;
  c.has_case = true;
  c.last_read = c.last_step = kSteps;
  c.time.component.assign(1, {});
  c.pmgg.component.assign(6, {});
  for (int i = 0; i < kSteps; ++i) {
    const float t = 0.05F * static_cast<float>(i);
    const float pose[] = {0.2F * t, 0, 0.01F * std::sin(t), 0.1F * std::sin(1.3F * t), 0.04F * std::cos(t), 0};
    c.time.component[0].push_back(t);
    for (std::size_t k = 0; k < 6; ++k) c.pmgg.component[k].push_back(pose[k]);
  }
  c.hull = ParabolicHull();
  c.wave = Sea();
  c.hull_tried = c.seaway_tried = Tried::there;
}

}  // namespace zaview
