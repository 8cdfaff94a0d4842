// Autocorrelation of the current record as a table: the function, then its upper and lower envelope.
#pragma once

#include <vector>

#include "stats/tables/stat_table.h"

namespace zaview {

struct AutocorrelationCurves {
  std::vector<float> dtau, R;     // lag time; autocovariance, scaled to 1 at lag 0 where that is above 0
  std::vector<int> upper, lower;  // places of the extremes in the two above
  float R0 = 0;                   // what R was at lag 0
};

// By the sampling rate of the settings; the data plot takes them as well.
[[nodiscard]] TableFault MakeAutocorrelation(const Console& console, const OutputSettings& settings,
                                             const QuantityRequest& request, CaseStore& case_store,
                                             AutocorrelationCurves& curves);

[[nodiscard]] TableFault WriteAutocorrelation(const Console& console, const OutputSettings& settings,
                                              const QuantityRequest& request, CaseStore& case_store, OutputFile& out);

}  // namespace zaview
