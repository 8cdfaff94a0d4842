#include "analysis/motion_tests/roll_decay.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zaview {
namespace {

constexpr std::size_t kNeighbours = 3;

// Is sample i a top of sign * roll?
bool IsTop(std::span<const float> roll, std::size_t i, float sign) {
  const float x = sign * roll[i];
  for (std::size_t k = i - std::min(i, kNeighbours); k < i; ++k)
    if (!(x > sign * roll[k])) return false;
  const std::size_t last = std::min(i + kNeighbours, roll.size() - 1);
  for (std::size_t k = i + 1; k < last; ++k)
    if (!(x >= sign * roll[k])) return false;
  return x > sign * roll[last];
}

double RefinedTime(std::span<const float> t, std::span<const float> x, std::size_t i) {
  const double a = std::abs(double{x[i]} - x[i - 1]), b = std::abs(double{x[i]} - x[i + 1]);
  if (a + b <= 0) return t[i];
  const double te = (t[i - 1] * a + t[i + 1] * b) / (a + b);
  return (t[i] + te) / 2;
}

double Decrement(double first, double second) {
  return first > 0 && second > 0 ? std::log(first / second) / std::numbers::pi : 0;
}

RollCycle HalfCycle(const RollPeak& first, const RollPeak& second) {
  const double p1 = std::abs(first.value), p2 = std::abs(second.value);
  return {(p1 + p2) / 2, Decrement(p1, p2), 2 * (second.time - first.time)};
}

RollCycle FullCycle(const RollPeak& first, const RollPeak& second, const RollPeak& third) {
  const double d1 = std::abs(first.value - second.value), d2 = std::abs(second.value - third.value);
  return {(d1 + d2) / 4, Decrement(d1, d2), third.time - first.time};
}

double MeanPeriod(std::span<const RollCycle> cycles) {
  double sum = 0;
  for (const RollCycle& cycle : cycles) sum += cycle.period;
  return cycles.empty() ? 0 : sum / static_cast<double>(cycles.size());
}

}  // namespace

void FindRollPeaks(std::span<const float> time, std::span<const float> roll, std::vector<RollPeak>& peaks) {
  peaks.clear();
  const std::size_t n = std::min(time.size(), roll.size());
  roll = roll.first(n);
  for (std::size_t i = 1; i + 1 < n; ++i)
    if (IsTop(roll, i, 1.0F) || IsTop(roll, i, -1.0F)) peaks.push_back({i, roll[i], RefinedTime(time, roll, i)});
}

void FindRollCycles(std::span<const RollPeak> peaks, bool bias, std::vector<RollCycle>& cycles) {
  cycles.clear();
  const std::size_t needs = bias ? 3 : 2;
  for (std::size_t i = 0; i + needs <= peaks.size(); ++i)
    cycles.push_back(bias ? FullCycle(peaks[i], peaks[i + 1], peaks[i + 2]) : HalfCycle(peaks[i], peaks[i + 1]));
}

RollPeriods MeanPeriods(std::span<const RollCycle> cycles) {
  constexpr std::size_t kLeast = 5;
  const std::size_t n = cycles.size();
  const std::size_t ns = std::min(n, std::max(kLeast, n / 5));
  return {MeanPeriod(cycles), MeanPeriod(cycles.last(ns)), ns};
}

}  // namespace zaview
