// The largest and smallest values to be expected of a curve, by Weibull distributions of its peaks and Gumbel
// distributions of the extremes of blocks, over the current record or the records of an ensemble.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "case/plot_data.h"
#include "stats/extreme_fits.h"
#include "stats/tables/ensemble_data.h"

namespace zaview {

enum class ExtremeFitKind : std::uint8_t { weibull, gumbel };

// One fit. Its values are distances from the mean (Weibull), values as they are (Gumbel); of minima turned round.
struct ExtremeFit {
  ExtremeFitKind kind = ExtremeFitKind::weibull;
  bool of_minima = false;
  std::string refused;  // why there is none; blank: it is there
  WeibullFit weibull;
  GumbelFit gumbel;
  std::vector<float> values;         // ascending
  double expected = 0;               // number of peaks or blocks in the time asked for
  Estimate most_probable, quantile;  // of the curve: the largest, of minima the smallest (low is the smaller one)
};

struct BlockDependence {
  float cutoff = 0;    // of the autocorrelation
  bool known = false;  // if not, it is longer
  double steps = 0, time = 0;
};

struct CurveExtremes {
  int records = 1;
  double mean = 0, total_time = 0;
  BlockDependence dependence;
  double block_time = 0;           // length of a block; 0: there are none
  std::array<ExtremeFit, 4> fits;  // Weibull's and Gumbel's of maxima, then of minima
};

// A peak is the largest distance from the mean over all samples in a half cycle that is whole; the higher half of them
// is fitted. Blocks: equal parts of the records, at least three dependence times and eight peaks long, and at most 24;
// of kFewestRecords records or more, the records. The dependence time is that at which the envelope of the
// autocorrelation falls to the cut-off of the settings, or to 0.2 where that is higher. Loads the ensemble.
[[nodiscard]] DataFault FindExtremes(const StatWork& work, const QuantityRequest& request, CurveExtremes& extremes);

// Straight on the paper of its kind.
[[nodiscard]] double PositionOf(const ExtremeFit& fit, std::size_t i);              // probability of values[i]
[[nodiscard]] double ReducedOf(const ExtremeFit& fit, double probability);          // what is drawn upwards
[[nodiscard]] double FittedValue(const ExtremeFit& fit, double reduced);            // like values
[[nodiscard]] double CurveValue(const ExtremeFit& fit, double value, double mean);  // value of the curve

}  // namespace zaview
