#include "analysis/frequency_domain/irf_transforms.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace zaview {
namespace {

constexpr double kNoWave = -1;
constexpr double kTurn = 360, kHalfTurn = 180;

double StepOf(std::span<const float> time) {
  if (time.size() < 2) return 0;
  return (double{time.back()} - time.front()) / static_cast<double>(time.size() - 1);
}

double LengthOf(std::span<const float> time) {
  return time.empty() ? 0 : double{time.back()} - time.front();
}

// No series: no component.
FourierSeries SeriesOf(std::span<const float> time, std::span<const float> x) {
  constexpr int kByHighest = 2;
  FourierRequest request;
  request.mode = kByHighest;
  request.maxfrq = MAXFRQ;
  FourierSeries series;
  if (!FourierCoefficients(request, StepOf(time), time, x, series)) series = FourierSeries{};
  return series;
}

std::vector<ForcePair> IntegralsOf(std::span<const float> time, const FourierSeries& series) {
  const double half = LengthOf(time) / 2;
  std::vector<ForcePair> pairs;
  for (std::size_t k = 0; k < series.w.size(); ++k) pairs.push_back({half * series.a[k], half * series.b[k]});
  return pairs;
}

}  // namespace

void TransformRadiation(int motion, std::span<const float> time, const SixRecords& force, RadiationTable& table) {
  table = RadiationTable{};
  table.motion = motion;
  table.T = LengthOf(time);
  for (std::size_t i = 0; i < kModes; ++i) {
    FourierSeries series = SeriesOf(time, force[i]);
    table.nskip = series.nskip;
    table.w = std::move(series.w);
    table.a[i] = std::move(series.a);
    table.b[i] = std::move(series.b);
  }
}

CoefficientPair CoefficientsAt(CoefficientForm form, const RadiationTable& table, const IndependentParts& parts,
                               std::size_t force, std::size_t component) {
  const auto j = static_cast<std::size_t>(table.motion - 1);
  const double Ainf = parts.A[force][j], Binf = parts.B[force][j];
  const double w = table.w[component], a = table.a[force][component], b = table.b[force][component];
  if (form == CoefficientForm::literal) return {Ainf - a / w, Binf + b * w};
  const double C = a * table.T / 2, S = b * table.T / 2;
  return {Ainf + C, Binf + w * S};
}

void TransformExcitation(std::span<const float> time, const SixRecords& diffraction, const SixRecords& froude_krylov,
                         double tau, ExcitationTable& table) {
  table.we.clear();
  table.w.clear();
  for (std::size_t i = 0; i < kModes; ++i) {
    FourierSeries series = SeriesOf(time, diffraction[i]);
    table.diffraction[i] = IntegralsOf(time, series);
    table.froude_krylov[i] = IntegralsOf(time, SeriesOf(time, froude_krylov[i]));
    table.nskip = series.nskip;
    table.we = std::move(series.w);
  }
  for (const double we : table.we) table.w.push_back(WaveFrequency(we, tau, table.branch));
}

ForcePair ExcitationAt(WavePart part, const ExcitationTable& table, std::size_t force, std::size_t component) {
  const ForcePair& d = table.diffraction[force][component];
  const ForcePair& k = table.froude_krylov[force][component];
  if (part == WavePart::diffraction) return d;
  if (part == WavePart::froude_krylov) return k;
  return {d.real + k.real, d.imaginary + k.imaginary};
}

double WaveFrequency(double we, double tau, int branch) {
  if (tau == 0) return we;
  if (branch == 3) {
    const double root = 1 + 4 * tau * we;
    return root < 0 ? kNoWave : (1 + std::sqrt(root)) / (2 * tau);
  }
  const double root = 1 - 4 * tau * we;
  if (root < 0) return kNoWave;
  // This form of the lower root holds for a tau that is all but 0, as the cosine of 90 degrees is.
  if (tau < 0 || branch == 1) return 2 * we / (1 + std::sqrt(root));
  return (1 + std::sqrt(root)) / (2 * tau);
}

Polar PolarOf(double real, double imaginary) {
  const double amplitude = std::sqrt(real * real + imaginary * imaginary);
  if (!(amplitude > 0)) return {};
  double phase = std::atan2(imaginary, real) * kHalfTurn / std::numbers::pi;
  if (phase < 0) phase += kTurn;
  return {amplitude, phase < kTurn ? phase : 0};
}

Polar Reversed(const Polar& pair) {
  if (!(pair.amplitude > 0)) return pair;
  return {pair.amplitude, pair.phase < kHalfTurn ? pair.phase + kHalfTurn : pair.phase - kHalfTurn};
}

}  // namespace zaview
