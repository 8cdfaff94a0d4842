// Autocorrelation of the current record as a table: the function, then its upper and lower envelope.
#pragma once

#include "stats/stat_table.h"

namespace zaview {

[[nodiscard]] TableFault WriteAutocorrelation(const Console& console, const OutputSettings& settings,
                                              const QuantityRequest& request, CaseStore& case_store, OutputFile& out);

}  // namespace zaview
