// Statistics of the current record as tables and single lines.
#pragma once

#include <cstdint>
#include <string>

#include "case/plot_data.h"
#include "frame/ground/output_file.h"
#include "stats/statistic_table.h"

namespace zaview {

enum class TableFault : std::uint8_t {
  none,
  said,       // the message has been said
  not_valid,  // the quantity is not in this file
  no_memory
};

struct StatRequest {
  StatisticName statistic;
  QuantityRequest quantity;  // curve 0: all curves in columns
  std::string text;          // label of a single line; column heading of a table with one curve
};

// Statistic 0: the whole table; else one bare line: text, separator, value. Reads the hull where NDTF needs its extent.
[[nodiscard]] TableFault WRSTAT(const Platform& platform, const OutputSettings& settings, const StatRequest& request,
                                CaseStore& case_store, OutputFile& out);

}  // namespace zaview
