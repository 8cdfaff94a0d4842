// Upcrossing table, exceedance report and block exceedance report of an ensemble, with their list files. Thresholds and
// values in output units, times and rates by the output time, over the sum of the records' lengths (a rate over no time
// is 0). Faults are said, but for not_valid.
#pragma once

#include "frame/ground/output_file.h"
#include "stats/exceedances.h"
#include "stats/tables/ensemble_data.h"
#include "stats/tables/stat_table.h"

namespace zaview {

struct UpcrossingRequest {
  QuantityRequest quantity;
  float min = 0, max = 0, increment = 0;  // of the thresholds
};
[[nodiscard]] DataFault WriteUpcrossings(const StatWork& work, const UpcrossingRequest& request, OutputFile& out);

enum class ExceedanceResult : std::uint8_t {
  report = 0,
  rate_ci = 1,
  rate = 2,
  number = 3,
  time_fraction = 4,
  total = 5,
  time = 6,
  list = 7
};

struct ExceedanceRequest {
  QuantityRequest quantity;
  float threshold = 0;
  int ndep = 0;                // points; below 1: ndti (unless ndep_is_given)
  bool ndep_is_given = false;  // typed at the prompt: 0 is 0
  Direction direction = Direction::both;
  ExceedanceResult result = ExceedanceResult::report;
};
// Report and tabular forms also write exceedance.list, block_exceedance.list, replaced each time; a list that can't be
// opened is left out, with a warning, and one that can't be written leaves the old one, which is said.
[[nodiscard]] DataFault WriteExceedances(const StatWork& work, const ExceedanceRequest& request, OutputFile& out);
[[nodiscard]] DataFault WriteBlockExceedances(const StatWork& work, const ExceedanceRequest& request, OutputFile& out);

}  // namespace zaview
