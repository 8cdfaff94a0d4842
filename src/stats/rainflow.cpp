#include "stats/rainflow.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace zaview {

namespace {

RainflowCycle CycleOf(float a, float b, bool half) {
  const double low = std::min(a, b), high = std::max(a, b);
  return {static_cast<float>(high - low), static_cast<float>((low + high) / 2), half};
}

double RangeOf(float a, float b) {
  return std::abs(static_cast<double>(a) - static_cast<double>(b));
}

}  // namespace

void TurningPoints(std::span<const float> x, std::vector<float>& points) {
  points.clear();
  for (const float value : x) {
    const std::size_t n = points.size();
    if (n > 0 && value == points[n - 1]) continue;
    const bool goes_on = n > 1 && (points[n - 1] > points[n - 2]) == (value > points[n - 1]);
    if (goes_on) points[n - 1] = value;
    else points.push_back(value);
  }
  if (points.size() == 1) points.clear();
}

void CountRainflow(std::span<const float> x, std::vector<RainflowCycle>& cycles) {
  std::vector<float> points, open;  // open: those that no full cycle has taken yet
  TurningPoints(x, points);
  for (const float point : points) {
    open.push_back(point);
    while (open.size() >= 3) {
      const std::size_t n = open.size();
      const float before = open[n - 3], middle = open[n - 2];
      if (RangeOf(middle, point) < RangeOf(before, middle)) break;
      const bool at_start = n == 3;
      cycles.push_back(CycleOf(before, middle, at_start));
      if (at_start) open.erase(open.begin());
      else {
        open.resize(n - 3);
        open.push_back(point);
      }
    }
  }
  for (std::size_t i = 1; i < open.size(); ++i) cycles.push_back(CycleOf(open[i - 1], open[i], true));
}

std::vector<RangeBin> BinRanges(std::span<const RainflowCycle> cycles, int bins) {
  const double largest = TotalsOf(cycles).largest;
  std::vector<RangeBin> rows;
  if (!(largest > 0) || bins < 1) return rows;
  rows.resize(static_cast<std::size_t>(bins));
  const double width = largest / bins;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    rows[i].low = static_cast<double>(i) * width;
    rows[i].high = i + 1 < rows.size() ? static_cast<double>(i + 1) * width : largest;
  }
  for (const RainflowCycle& cycle : cycles) {
    const auto place = static_cast<std::size_t>(static_cast<double>(cycle.range) / width);
    RangeBin& row = rows[std::min(place, rows.size() - 1)];
    row.cycles += cycle.count();
    row.mean += cycle.count() * static_cast<double>(cycle.mean);
  }
  double exceeding = 0;
  for (std::size_t i = rows.size(); i-- > 0;) {
    rows[i].exceeding = exceeding += rows[i].cycles;
    if (rows[i].cycles > 0) rows[i].mean /= rows[i].cycles;
  }
  return rows;
}

RainflowTotals TotalsOf(std::span<const RainflowCycle> cycles) {
  RainflowTotals totals;
  for (const RainflowCycle& cycle : cycles) {
    totals.cycles += cycle.count();
    totals.largest = std::max(totals.largest, static_cast<double>(cycle.range));
  }
  return totals;
}

double EquivalentRange(std::span<const RainflowCycle> cycles, double m) {
  const RainflowTotals totals = TotalsOf(cycles);
  if (!(totals.largest > 0)) return 0;
  double sum = 0;  // of powers of the ranges by the largest: none can overflow
  for (const RainflowCycle& cycle : cycles)
    sum += cycle.count() * std::pow(static_cast<double>(cycle.range) / totals.largest, m);
  return totals.largest * std::pow(sum / totals.cycles, 1 / m);
}

}  // namespace zaview
