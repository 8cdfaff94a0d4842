// From impulse response functions to coefficients over frequency. Everything non-dimensional. Pure; double precision
// from 4-byte samples. A failure to allocate is thrown: callers guard the whole work (base/grow.h).
//
// A radiation record f is the force that follows a unit step of velocity, taken so that a positive f is like an added
// mass. With C = int f cos wt dt and S = int f sin wt dt its coefficients are A = Ainf + C, B = Binf + w S: integrated
// by parts, the usual Ainf - (1/w) int K sin wt and Binf + int K cos wt of the kernel K = -f' (T. F. Ogilvie, Recent
// progress toward the understanding and prediction of ship motions, 5th Symposium on Naval Hydrodynamics, 1964).
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <vector>

#include "stats/fourier.h"

namespace zaview {

inline constexpr int MAXFRQ = 200;  // components of a record
inline constexpr std::size_t kModes = 6;

using SixBySix = std::array<std::array<double, kModes>, kModes>;  // [i][j]: force i by motion j, from 0
using SixRecords = std::array<std::span<const float>, kModes>;

struct IndependentParts {  // what does not depend on frequency: added mass, damping, stiffness; 0 where none was read
  bool read = false;
  SixBySix A{}, B{}, C{};
};

struct RadiationTable {  // of one motion
  int motion = 1;        // 1..6
  double T = 0;          // length of the record
  std::vector<double> w;
  std::array<std::vector<double>, kModes> a, b;  // [force][component]: (2/T) C, (2/T) S
  int nskip = 0;                                 // all components there would be, where MAXFRQ cut them; else 0
};

// time: at a constant step. A record of one sample, or so short that it holds no component, has no rows.
void TransformRadiation(int motion, std::span<const float> time, const SixRecords& force, RadiationTable& table);

// literal: A = Ainf - a/w, B = Binf + b w with the coefficients of the series, which depend on the length of the
// record: as tables of old had them. plain: the integrals, as told above.
enum class CoefficientForm : unsigned char { literal, plain };
struct CoefficientPair {
  double A = 0, B = 0;
};
[[nodiscard]] CoefficientPair CoefficientsAt(CoefficientForm form, const RadiationTable& table,
                                             const IndependentParts& parts, std::size_t force, std::size_t component);

struct ForcePair {  // per wave amplitude: real cos we t + imaginary sin we t
  double real = 0, imaginary = 0;
};

enum class WavePart : unsigned char { total, diffraction, froude_krylov };

// Branch of a following sea: 1 up to the highest encounter frequency there is, 2 behind it, 3 waves that are overtaken.
struct ExcitationTable {
  double heading = 0;      // degrees
  bool following = false;  // else head seas, which have one branch
  int branch = 1;          // 1..3
  std::vector<double> we;  // encounter frequency, of branch 3 without its sign
  std::vector<double> w;   // wave frequency that is met so; below 0: there is none
  std::array<std::vector<ForcePair>, kModes> diffraction, froude_krylov;  // [force][component], plain integrals
  int nskip = 0;
};

// tau = U cos(heading), U over sqrt(g L).
void TransformExcitation(std::span<const float> time, const SixRecords& diffraction, const SixRecords& froude_krylov,
                         double tau, ExcitationTable& table);
[[nodiscard]] ForcePair ExcitationAt(WavePart part, const ExcitationTable& table, std::size_t force,
                                     std::size_t component);

// Deep water: we = w - tau w^2, solved for w; we not negative, of branch 3 its amount. tau = 0: w = we. Below 0: no
// wave is met at that frequency.
[[nodiscard]] double WaveFrequency(double we, double tau, int branch);

struct Polar {
  double amplitude = 0, phase = 0;  // degrees, 0 <= phase < 360: a lag in time; 0 without an amplitude
};
[[nodiscard]] Polar PolarOf(double real, double imaginary);
[[nodiscard]] Polar Reversed(const Polar& pair);  // with the other sign: 180 degrees on

}  // namespace zaview
