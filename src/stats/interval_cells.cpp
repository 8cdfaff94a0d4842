#include "stats/interval_cells.h"

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

}  // namespace

IntervalCells IntervalCellsOf(int number, const IntervalValues& v) {
  if (number >= kStatNth && number < kStatNth + kStatSides) return PeakCells(number - kStatNth, v.nth);
  if (number >= kStatThird && number < kStatThird + kStatSides) return PeakCells(number - kStatThird, v.third);
  if (number == kStatMean) return Symmetric(v.record.xm, v.record.xmci);
  if (number == kStatVariance) return NotNegative(v.record.xv, v.record.xvci);
  IntervalCells cells = Symmetric(v.record.xs, v.record.xsci);
  if (number == kStatSsa)
    for (float& cell : cells) cell = 2.0F * cell;
  return cells;
}

bool IntervalNeedsPeaks(int number) {
  return number == kStatTable || (number >= kStatThird && number < kStatNth + kStatSides);
}

}  // namespace zaview
