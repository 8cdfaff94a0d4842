// Statistics of the current record as tables and single lines.
#pragma once

#include <string>

#include "case/plot_data.h"
#include "frame/ground/output_file.h"
#include "stats/statistic_table.h"
#include "stats/tables/ensemble_data.h"

namespace zaview {

struct StatRequest {
  StatisticName statistic;
  QuantityRequest quantity;  // curve 0: all curves in columns
  std::string text;          // label of a single line; column heading of a table with one curve
};

// Statistic 0: the whole table; else one bare line: text, separator, value. Reads the hull where NDTF needs its extent.
[[nodiscard]] DataFault WRSTAT(const StatWork& work, const StatRequest& request, OutputFile& out);

}  // namespace zaview
