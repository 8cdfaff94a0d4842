#include "control/input_scales.h"

#include <cmath>

namespace zaview {

InputScales InputScalesOf(const ControlRecords& records) {
  const double L = records.LENIN;
  const double g = records.GRAVIN;
  const double r = records.RHOIN;
  const double a = records.ANGIN;
  InputScales scales;
  scales.length = 1.0 / L;
  scales.time = std::sqrt(g / L);
  scales.frequency = std::sqrt(L / g);
  scales.velocity = 1.0 / std::sqrt(g * L);
  scales.angle = 1.0 / a;
  scales.rate = std::sqrt(L / g) / a;
  scales.mass = 1.0 / (r * (L * L * L));
  scales.inertia = 1.0 / (r * (L * L * L * L * L));
  return scales;
}

}  // namespace zaview
