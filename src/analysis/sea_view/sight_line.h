// What hides the sea from a sensor along a line of sight. Lengths non-dimensional, s the horizontal distance from the
// sensor, h its height above the still water, R the radius of the earth, whose curvature drops the sea by s^2/(2R).
// Pure.
//   m(s) = (eta(s) - s^2/(2R) - h)/s, the slope of the ray that touches the sea at s;
//   M(s) = the largest m ahead of s; visible is what lies at or above z(s) = max(eta(s), h + M s + s^2/(2R)).
#pragma once

#include <span>
#include <vector>

#include "analysis/sea_view/sea_line.h"

namespace zaview {

struct Horizon {
  double distance = 0, angle_deg = 0;  // below the level; both 0 where h is not above 0
};
// distance D = sqrt((h + R) h), angle atan((D^2/R + h)/D).
[[nodiscard]] Horizon HorizonOf(double h, double R);

// Angle below the level, in degrees, of the direction that lies `down_deg` below the ship's deck plane at an azimuth
// from the bow, 90 to port. R: ship to earth.
[[nodiscard]] double LookdownAngle(const Rotation& R, double azimuth_deg, double down_deg);

struct Sensor {
  double h = 0, R = 1;
  double most = 1;  // the largest height that is told
};

struct RayTouch {  // a maximum of m that is larger than all ahead of it
  double s = 0, eta = 0, m = 0;
};

struct LineSamples {  // of the sea, at s = i step up to the last distance
  double step = 0;
  std::vector<double> eta;
  std::vector<RayTouch> touches;
};

// Between samples: a 16th of the shortest wave whose amplitude is at least 1 % of the largest, a quarter of the nearest
// distance at most, 1/200000 of the farthest at least; calm: 1/2000 of it.
[[nodiscard]] double SampleStep(const IncidentWave& wave, double nearest, double farthest);

// Takes the samples and finds the touches. Maxima of m that could be larger than all ahead are refined: from the
// parabola through three samples, one step of Newton on m'. False: memory is out.
[[nodiscard]] bool SampleLine(const SeaLine& line, const Sensor& sensor, double step, double farthest,
                              LineSamples& samples);

// z at the distances, whose elevations are eta. All are `most` where the sensor is not above the wave at its place.
void VisibleHeights(const Sensor& sensor, const LineSamples& samples, std::span<const double> distance,
                    std::span<const double> eta, std::span<float> z);

struct Crest {
  double s = 0, eta = 0;
};
// Local maxima of eta, refined in the same way. False: memory is out.
[[nodiscard]] bool FindCrests(const SeaLine& line, const LineSamples& samples, std::vector<Crest>& crests);

}  // namespace zaview
