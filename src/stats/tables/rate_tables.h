// Upcrossing table, exceedance report and block exceedance report of an ensemble, with their list files.
#pragma once

#include "frame/ground/output_file.h"
#include "stats/exceedances.h"
#include "stats/tables/ensemble_data.h"
#include "stats/tables/stat_table.h"

namespace zaview {

struct UpcrossingRequest {
  QuantityRequest quantity;
  float min = 0, max = 0, increment = 0;
};
[[nodiscard]] TableFault WriteUpcrossings(const Console& console, const OutputSettings& settings,
                                          const UpcrossingRequest& request, const EnsembleCases& cases,
                                          StatisticsState& state, OutputFile& out);

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
  int ndep = 0;                // below 1: ndti (unless ndep_is_given)
  bool ndep_is_given = false;  // typed at the prompt: 0 is 0
  Direction direction = Direction::both;
  ExceedanceResult result = ExceedanceResult::report;
};
// Report and tabular forms also write exceedance.list, block_exceedance.list, replaced each time; a list that can't be
// opened is left out.
[[nodiscard]] TableFault WriteExceedances(const Platform& platform, const OutputSettings& settings,
                                          const ExceedanceRequest& request, const EnsembleCases& cases,
                                          StatisticsState& state, OutputFile& out);
[[nodiscard]] TableFault WriteBlockExceedances(const Platform& platform, const OutputSettings& settings,
                                               const ExceedanceRequest& request, const EnsembleCases& cases,
                                               StatisticsState& state, OutputFile& out);

}  // namespace zaview
