#include "stats/interval_cells.h"

#include <cmath>
#include <limits>

#include "base/number_format.h"
#include "stats/statistic_table.h"

namespace zaview {
namespace {

IntervalCells Symmetric(float estimate, float half_width) {
  return {half_width, estimate - half_width, estimate, estimate + half_width};
}

// A low end that can't be below 0.
IntervalCells NotNegative(float estimate, float half_width) {
  IntervalCells cells = Symmetric(estimate, half_width);
  if (cells[1] < 0.0F) cells[1] = 0.0F;
  return cells;
}

IntervalCells PeakCells(int side, const RecordPeakStats& p) {
  if (side == 0) return NotNegative(p.xpkN, p.xpkNci);
  if (side == 1) return Symmetric(p.xpkNt, p.xpkNtci);
  if (side == 2) return Symmetric(p.xpkNb, p.xpkNbci);
  IntervalCells cells = NotNegative(p.xpkNt - p.xpkNb, p.xpkNtci + p.xpkNbci);
  cells[3] = ((p.xpkNt + p.xpkNtci) + p.xpkNbci) - p.xpkNb;  // the top's high, then the bottom
  return cells;
}

IntervalCells FormulaCells(int number, const IntervalValues& v) {
  if (IsSideOf(kStatNth, number)) return PeakCells(number - kStatNth, v.nth);
  if (IsSideOf(kStatThird, number)) return PeakCells(number - kStatThird, v.third);
  if (number == kStatMean) return Symmetric(v.record.xm, v.record.xmci);
  if (number == kStatVariance) return NotNegative(v.record.xv, v.record.xvci);
  IntervalCells cells = Symmetric(v.record.xs, v.record.xsci);
  if (number == kStatSsa)
    for (float& cell : cells) cell = 2.0F * cell;
  return cells;
}

const BootstrapInterval& BlockInterval(int number, const BootstrapIntervals& blocks) {
  const auto side = [number](int first) { return static_cast<std::size_t>(number - first); };
  if (IsSideOf(kStatNth, number)) return blocks.nth[side(kStatNth)];
  if (IsSideOf(kStatThird, number)) return blocks.third[side(kStatThird)];
  return number == kStatMean ? blocks.mean : blocks.variance;
}

// The intervals of standard deviation and SSA are those of the variance.
float FromVariance(int number, float variance) {
  return (number == kStatSsa ? 2.0F : 1.0F) * std::sqrt(variance);
}

}  // namespace

IntervalCells IntervalCellsOf(int number, const IntervalValues& v) {
  IntervalCells cells = FormulaCells(number, v);
  if (!v.by_blocks) return cells;
  const float estimate = Finite(cells[2]);
  const BootstrapInterval& interval = BlockInterval(number, v.blocks);
  if (!interval.told) {
    constexpr float kNone = std::numeric_limits<float>::quiet_NaN();
    return {kNone, kNone, estimate, kNone};
  }
  float low = interval.low, high = interval.high;
  if (number == kStatStdev || number == kStatSsa) {
    low = FromVariance(number, low);
    high = FromVariance(number, high);
  }
  return {(high - low) / 2.0F, low, estimate, high};
}

bool IsTold(const IntervalCells& cells) {
  return !std::isnan(cells[0]);
}

bool IntervalNeedsPeaks(int number) {
  return number == kStatTable || IsSideOf(kStatThird, number) || IsSideOf(kStatNth, number);
}

}  // namespace zaview
