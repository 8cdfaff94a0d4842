// A table of elevations over a rectangle of x and y at one time, asked for by the $IWINTERP: module. Global axes,
// non-dimensional, 4-byte elevations.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "waves/incident_wave.h"

namespace zaview {

inline constexpr int kWaveTableX = 81, kWaveTableY = 41;  // most points; 0 asked gives these
inline constexpr double kSameWaveTime = 1e-5;             // non-dimensional
inline constexpr std::string_view kWaveTableLogic = "LOGIC error in SetupIncidentWaveInterpHS";

struct WaveTable {
  double time = 0;
  double x0 = 0, y0 = 0, dx = 0, dy = 0;
  int nx = 0, ny = 0;      // 0: no table
  std::vector<float> eta;  // x fastest
};

struct WaveTableRequest {
  int NBASEX = 0, NBASEY = 0;     // points; 0: the most
  double XINTRP = 0, YINTRP = 0;  // size of the rectangle; 0: from the ship's extent, 10 % added at both ends
  double centre_x = 0, centre_y = 0;
  double ship_x_min = 0, ship_x_max = 0;  // global extent of the ship in x, for a size of 0; y has the same span
};

// False, and no table: more points than it holds (the caller says kWaveTableLogic), a kind of seaway that
// EvalIncidentWave doesn't know, or memory is out.
[[nodiscard]] bool SetupIncidentWaveInterpHS(const IncidentWave& wave, WaveMoment moment,
                                             const WaveTableRequest& request, WaveTable& table);

// Bilinear elevations at the points. False: another time, no table, or one point outside: nothing is taken, the caller
// sums directly. Points on the border are inside.
[[nodiscard]] bool ElevationFromTable(const WaveTable& table, double time, std::span<const Vector3> points,
                                      std::span<float> eta);

}  // namespace zaview
