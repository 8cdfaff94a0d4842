#include "waves/wave_elevation.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "base/side_by_side.h"
#include "waves/wave_sums.h"

namespace zaview {
namespace {

constexpr double kLeastDivisor = 1e-20;
constexpr std::size_t kStretchOfSteps = 2048;    // handed to a thread at once; a multiple of kSideBySide
constexpr std::size_t kParallelTerms = 200'000;  // below this a second thread costs more than it saves

struct DirectionSums {  // a times powers of K and w, with cos and sin
  double c = 0, Ks = 0, KKc = 0, KKKs = 0;
  double s = 0, wc = 0, ws = 0, Kc = 0, Kwc = 0;
};

DirectionSums SumAlong(const IncidentWave& wave, WaveMoment moment, const Vector3& point, const double direction[2]) {
  DirectionSums sum;
  for (std::size_t i = 0; i < wave.size(); ++i) {
    const double psi = PhaseOf(wave, i, point[0], point[1], moment.time);
    const double a = static_cast<double>(wave.a[i]) * moment.scale;
    const double K = wave.kx[i] * direction[0] + wave.ky[i] * direction[1];
    const double ac = a * std::cos(psi);
    const double as = a * std::sin(psi);
    sum.c += ac;
    sum.Ks += K * as;
    sum.KKc += K * K * ac;
    sum.KKKs += K * K * K * as;
    sum.s += as;
    sum.wc += wave.w[i] * ac;
    sum.ws += wave.w[i] * as;
    sum.Kc += K * ac;
    sum.Kwc += K * wave.w[i] * ac;
  }
  return sum;
}

double Quotient(double above, double below) {
  return std::abs(below) < kLeastDivisor ? 0.0 : above / below;
}

void Put(std::span<double> values, std::size_t i, double value) {
  if (i < values.size()) values[i] = value;
}

void Zero(std::span<double> values) {
  std::fill(values.begin(), values.end(), 0.0);
}

WaveFault LinearOnly(WaveKind kind) {
  if (kind == WaveKind::unknown) return WaveFault::unknown_kind;
  return kind == WaveKind::stokes || kind == WaveKind::second_order ? WaveFault::not_supported : WaveFault::none;
}

WaveFault FaultAlong(const IncidentWave& wave) {
  return wave.ISEA == 4 ? WaveFault::not_supported : LinearOnly(KindOf(wave));
}

struct History {
  std::span<const float> time, x, y, scale;
  std::span<float> eta;
};

void Elevate(const IncidentWave& wave, WaveKind kind, const History& history, std::size_t from, std::size_t to) {
  for (std::size_t first = from; first < to; first += kSideBySide) {
    PointBlock block;
    block.n = std::min(kSideBySide, to - first);
    for (std::size_t j = 0; j < block.n; ++j) {
      block.x[j] = static_cast<double>(history.x[first + j]);
      block.y[j] = static_cast<double>(history.y[first + j]);
      block.t[j] = static_cast<double>(history.time[first + j]);
      block.scale[j] = history.scale.empty() ? 1.0F : history.scale[first + j];
    }
    const BlockValues eta = BlockElevations(wave, kind, block);
    std::copy_n(eta.begin(), block.n, history.eta.begin() + static_cast<std::ptrdiff_t>(first));
  }
}

}  // namespace

WaveFault IncidentWaveElev(const IncidentWave& wave, WaveMoment moment, std::span<const Vector3> points,
                           const double direction[2], const ElevationSlopes& out) {
  for (const std::span<double>& values : {out.eta, out.d1, out.d2, out.d3}) Zero(values);
  const WaveFault fault = FaultAlong(wave);
  if (fault != WaveFault::none) return fault;
  if (wave.size() == 0) return WaveFault::none;
  for (std::size_t i = 0; i < points.size(); ++i) {
    const DirectionSums sum = SumAlong(wave, moment, points[i], direction);
    Put(out.eta, i, sum.c);
    Put(out.d1, i, -sum.Ks);
    Put(out.d2, i, -sum.KKc);
    Put(out.d3, i, sum.KKKs);
  }
  return WaveFault::none;
}

WaveFault IncidentWaveCelerity(const IncidentWave& wave, WaveMoment moment, std::span<const Vector3> points,
                               const double direction[2], const CelerityTerms& out) {
  for (const std::span<double>& values :
       {out.eta, out.d1, out.d2, out.d3, out.crest, out.frequency, out.number, out.celerity, out.envelope}) {
    Zero(values);
  }
  const WaveFault fault = FaultAlong(wave);
  if (fault != WaveFault::none) return fault;
  if (wave.size() == 0) return WaveFault::none;
  for (std::size_t i = 0; i < points.size(); ++i) {
    const DirectionSums sum = SumAlong(wave, moment, points[i], direction);
    const double envelope = sum.c * sum.c + sum.s * sum.s;
    const double frequency = Quotient(sum.c * sum.wc + sum.s * sum.ws, envelope);
    const double number = Quotient(sum.c * sum.Kc + sum.s * sum.Ks, envelope);
    Put(out.eta, i, sum.c);
    Put(out.d1, i, -sum.Ks);
    Put(out.d2, i, -sum.KKc);
    Put(out.d3, i, sum.KKKs);
    Put(out.crest, i, Quotient(-sum.Kwc, -sum.KKc));
    Put(out.frequency, i, frequency);
    Put(out.number, i, number);
    Put(out.celerity, i, Quotient(frequency, number));
    Put(out.envelope, i, envelope);
  }
  return WaveFault::none;
}

WaveFault ElevationHistory(const IncidentWave& wave, std::span<const float> time, std::span<const float> x,
                           std::span<const float> y, std::span<const float> scale, std::span<float> eta, int threads) {
  std::fill(eta.begin(), eta.end(), 0.0F);
  const WaveKind kind = KindOf(wave);
  if (kind == WaveKind::unknown) return WaveFault::unknown_kind;
  std::size_t steps = std::min({time.size(), x.size(), y.size(), eta.size()});
  if (!scale.empty()) steps = std::min(steps, scale.size());
  if (kind == WaveKind::calm || wave.size() == 0 || steps == 0) return WaveFault::none;

  const History history{time, x, y, scale, eta};
  const std::size_t stretches = (steps + kStretchOfSteps - 1) / kStretchOfSteps;
  SideBySide(stretches, wave.size() > kParallelTerms / steps ? threads : 1, [&](std::size_t i) {
    const std::size_t from = i * kStretchOfSteps;
    Elevate(wave, kind, history, from, std::min(from + kStretchOfSteps, steps));
  });
  return WaveFault::none;
}

}  // namespace zaview
