#include "analysis/sea_view/sea_line.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <numbers>

#include "base/grow.h"
#include "base/vector_clones.h"
#include "waves/wave_sums.h"

namespace zaview {
namespace {

constexpr std::size_t kLanes = 16;               // places side by side
constexpr std::size_t kTurns = 64;               // then all is begun anew, so that no error gathers
constexpr std::size_t kBlock = kLanes * kTurns;  // places

struct Turn {  // cosine and sine of an angle
  double c = 1, s = 0;
};
Turn TurnOf(double angle) {
  return {std::cos(angle), std::sin(angle)};
}
Turn Both(Turn a, Turn b) {
  return {a.c * b.c - a.s * b.s, a.s * b.c + a.c * b.s};
}

struct ComponentRow {  // a component at one row of places, and its turn to the next row
  double c[kLanes], s[kLanes];
  Turn next;
};

using Four __attribute__((vector_size(4 * sizeof(double)))) = double;
struct FourPlaces {
  Four c, s;
};

void Take(const ComponentRow& row, std::size_t first, FourPlaces& places) {
  std::memcpy(&places.c, row.c + first, sizeof places.c);
  std::memcpy(&places.s, row.s + first, sizeof places.s);
}

inline void AddAndTurn(double* eta, const Four& turn_c, const Four& turn_s, FourPlaces& at) {
  Four sum;
  std::memcpy(&sum, eta, sizeof sum);
  sum += at.c;
  std::memcpy(eta, &sum, sizeof sum);
  const Four c = at.c * turn_c - at.s * turn_s;
  at.s = at.s * turn_c + at.c * turn_s;
  at.c = c;
}

// In four groups with names of their own: as an array they would not stay in registers.
ZAVIEW_VECTOR_CLONES
void AddComponent(const ComponentRow& row, std::size_t rows, double* eta) {
  const Four turn_c = {row.next.c, row.next.c, row.next.c, row.next.c};
  const Four turn_s = {row.next.s, row.next.s, row.next.s, row.next.s};
  FourPlaces a, b, c, d;
  Take(row, 0, a);
  Take(row, 4, b);
  Take(row, 8, c);
  Take(row, 12, d);
  for (std::size_t r = 0; r < rows; ++r, eta += kLanes) {
    AddAndTurn(eta, turn_c, turn_s, a);
    AddAndTurn(eta + 4, turn_c, turn_s, b);
    AddAndTurn(eta + 8, turn_c, turn_s, c);
    AddAndTurn(eta + 12, turn_c, turn_s, d);
  }
}

// The row from `first` on: each half of it is the other one, turned.
void BeginRow(double a, Turn first, Turn step, ComponentRow& row) {
  row.c[0] = a * first.c;
  row.s[0] = a * first.s;
  for (std::size_t n = 1; n < kLanes; n *= 2, step = Both(step, step)) {
    for (std::size_t j = 0; j < n; ++j) {
      const Turn turned = Both({row.c[j], row.s[j]}, step);
      row.c[n + j] = turned.c;
      row.s[n + j] = turned.s;
    }
  }
}

struct Spacing {  // what a component turns from place to place, and from row to row
  Turn place, row;
};

bool SumLinear(const SeaLine& line, double from, double step, std::span<double> eta) {
  std::vector<Spacing> spacing;
  if (!Grow(spacing, line.a.size())) return false;
  for (std::size_t i = 0; i < line.a.size(); ++i) {
    const double angle = line.K[i] * step;
    spacing[i] = {TurnOf(angle), TurnOf(static_cast<double>(kLanes) * angle)};
  }
  double block[kBlock];
  for (std::size_t first = 0; first < eta.size(); first += kBlock) {
    const std::size_t n = std::min(kBlock, eta.size() - first);
    const std::size_t rows = (n + kLanes - 1) / kLanes;
    const double s = from + static_cast<double>(first) * step;
    std::fill_n(block, rows * kLanes, 0.0);
    for (std::size_t i = 0; i < line.a.size(); ++i) {
      ComponentRow row;
      row.next = spacing[i].row;
      BeginRow(line.a[i], TurnOf(line.K[i] * s + line.p[i]), spacing[i].place, row);
      AddComponent(row, rows, block);
    }
    std::copy_n(block, n, eta.begin() + static_cast<std::ptrdiff_t>(first));
  }
  return true;
}

constexpr std::size_t kPart = 64;  // components at one place, taken at once

// Of phases up to 1e6, to 1e-15 and the rounding of the phase itself: the nearest quarter turn is taken off, the rest
// is a Taylor series. Adding 1.5 * 2^52 leaves no place for a fraction, and the count of quarter turns in the last
// bits.
ZAVIEW_VECTOR_CLONES
void SinesAndCosines(const double* psi, double* sine, double* cosine) {
  constexpr double kNoFraction = 6755399441055744.0;
  constexpr double kQuarter = 0x1.921fb544p0;  // a quarter turn, in two parts
  constexpr double kQuarterRest = 0x1.0b4611a626331p-34;
  for (std::size_t i = 0; i < kPart; ++i) {
    const double counted = psi[i] * (2.0 * std::numbers::inv_pi) + kNoFraction;
    const double quarters = counted - kNoFraction;
    const double r = (psi[i] - quarters * kQuarter) - quarters * kQuarterRest;
    const double q = r * r;
    const double s =
        r +
        r * q *
            (-1.0 / 6 +
             q * (1.0 / 120 +
                  q * (-1.0 / 5040 + q * (1.0 / 362880 + q * (-1.0 / 39916800 + q * (1.0 / 6227020800.0 +
                                                                                     q * (-1.0 / 1307674368000.0)))))));
    const double c =
        1.0 +
        q * (-0.5 +
             q * (1.0 / 24 +
                  q * (-1.0 / 720 +
                       q * (1.0 / 40320 + q * (-1.0 / 3628800 + q * (1.0 / 479001600 + q * (-1.0 / 87178291200.0)))))));
    const auto n = std::bit_cast<std::uint64_t>(counted);
    const std::uint64_t odd = 0 - (n & 1U);  // all bits, where sine and cosine change places
    const auto s_bits = std::bit_cast<std::uint64_t>(s);
    const auto c_bits = std::bit_cast<std::uint64_t>(c);
    sine[i] = std::bit_cast<double>(((s_bits & ~odd) | (c_bits & odd)) ^ ((n & 2U) << 62U));
    cosine[i] = std::bit_cast<double>(((c_bits & ~odd) | (s_bits & odd)) ^ (((n + 1U) & 2U) << 62U));
  }
}

Vector3 PlaceOn(const SeaLine& line, double s) {
  return {line.origin[0] + s * line.direction[0], line.origin[1] + s * line.direction[1], 0.0};
}

constexpr WaveOptions kElevationOnly{.elevation_only = true};

void SumPointwise(const SeaLine& line, double from, double step, std::span<double> eta) {
  Vector3 points[kSideBySide];
  float values[kSideBySide];
  for (std::size_t first = 0; first < eta.size(); first += kSideBySide) {
    const std::size_t n = std::min(kSideBySide, eta.size() - first);
    for (std::size_t j = 0; j < n; ++j) points[j] = PlaceOn(line, from + static_cast<double>(first + j) * step);
    WaveOutputs out;
    out.eta = std::span(values, n);
    (void)EvalIncidentWave(*line.wave, line.moment, kElevationOnly, std::span(points, n), out);  // a kind that it knows
    for (std::size_t j = 0; j < n; ++j) eta[first + j] = static_cast<double>(values[j]);
  }
}

bool IsLinear(const IncidentWave& wave) {
  return KindOf(wave) == WaveKind::linear;
}

}  // namespace

bool SetSeaLine(const IncidentWave& wave, WaveMoment moment, const Vector3& origin, const double direction[2],
                SeaLine& line) {
  line.moment = moment;
  line.origin = origin;
  std::copy_n(direction, 2, line.direction);
  line.wave = &wave;
  const std::size_t n = IsLinear(wave) ? wave.size() : 0;
  if (!Grow(line.a, n) || !Grow(line.K, n) || !Grow(line.p, n)) return false;
  for (std::size_t i = 0; i < n; ++i) {
    line.a[i] = static_cast<double>(wave.a[i]) * moment.scale;
    line.K[i] = wave.kx[i] * direction[0] + wave.ky[i] * direction[1];
    line.p[i] = ((wave.kx[i] * origin[0] + wave.ky[i] * origin[1]) - wave.w[i] * moment.time) + wave.p[i];
  }
  return true;
}

bool ElevationsAlong(const SeaLine& line, double from, double step, std::span<double> eta) {
  if (IsLinear(*line.wave)) return SumLinear(line, from, step, eta);
  SumPointwise(line, from, step, eta);
  return true;
}

LineSlopes SlopesAt(const SeaLine& line, double s) {
  LineSlopes at;
  if (!IsLinear(*line.wave)) {
    const Vector3 point = PlaceOn(line, s);
    float eta = 0, eta_x = 0, eta_y = 0;
    WaveOutputs out;
    out.eta = {&eta, 1};
    out.eta_x = {&eta_x, 1};
    out.eta_y = {&eta_y, 1};
    (void)EvalIncidentWave(*line.wave, line.moment, kElevationOnly, {&point, 1}, out);
    return {eta, static_cast<double>(eta_x) * line.direction[0] + static_cast<double>(eta_y) * line.direction[1], 0};
  }
  double psi[kPart] = {};
  double sine[kPart];
  double cosine[kPart];
  for (std::size_t first = 0; first < line.a.size(); first += kPart) {
    const std::size_t n = std::min(kPart, line.a.size() - first);
    for (std::size_t j = 0; j < n; ++j) psi[j] = line.K[first + j] * s + line.p[first + j];
    SinesAndCosines(psi, sine, cosine);
    for (std::size_t j = 0; j < n; ++j) {
      const double K = line.K[first + j];
      const double ac = line.a[first + j] * cosine[j];
      at.eta += ac;
      at.d1 -= K * line.a[first + j] * sine[j];
      at.d2 -= K * K * ac;
    }
  }
  return at;
}

}  // namespace zaview
