// Autocorrelation of the current record as a table: the function, then its upper and lower envelope.
#pragma once

#include <vector>

#include "stats/tables/stat_table.h"

namespace zaview {

struct AutocorrelationCurves {
  std::vector<float> dtau, R;     // lag time, output units; autocovariance, scaled to 1 at lag 0 where that is above 0
  std::vector<int> upper, lower;  // places of the extremes in the two above
  float R0 = 0;                   // what R was at lag 0, unit of the quantity squared
};

// One curve of the quantity over the points in use, every n-th of them by the sampling rate of the settings: R(k) =
// 1/(n-1-k) times the sum of n-1-k products about the mean. Faults are said, but for not_valid. The data plot takes
// them as well.
[[nodiscard]] DataFault MakeAutocorrelation(const StatWork& work, const QuantityRequest& request,
                                            AutocorrelationCurves& curves);

[[nodiscard]] DataFault WriteAutocorrelation(const StatWork& work, const QuantityRequest& request, OutputFile& out);

}  // namespace zaview
