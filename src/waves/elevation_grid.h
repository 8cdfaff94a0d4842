// Elevation at all points of a rectangular grid at one moment: the sea of a picture. Pure; no memory is asked for.
#pragma once

#include <span>

#include "waves/incident_wave.h"

namespace zaview {

// eta[j * x.size() + i] at (x[i], y[j]), global, in any order; lengths and eta non-dimensional. Any kind of seaway; on
// a fault eta is 0. For linear seaways the sines of k X x and of k Y y are taken apart, cos(u + v) = cos u cos v - sin
// u sin v, so that a component costs a row and a column of them and not the whole grid: within 1e-6 of the largest
// elevation of the sum in double, but not the bits of EvalIncidentWave, which writes tables.
[[nodiscard]] WaveFault ElevationGrid(const IncidentWave& wave, WaveMoment moment, std::span<const double> x,
                                      std::span<const double> y, std::span<float> eta);

}  // namespace zaview
