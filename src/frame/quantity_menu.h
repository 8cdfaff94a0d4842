// The menu of quantities, for each task of the main menu.
#pragma once

#include <cstdint>

#include "base/platform.h"
#include "case/case_store.h"
#include "case/output_settings.h"
#include "case/plot_data.h"

namespace zaview {

enum class QuantityTask : std::uint8_t {
  history_plot,
  histogram,
  history_file,
  statistics,
  load_plot,
  intervals,
  ensemble,
  ensemble_intervals,
  interval_plot,
  autocorrelation,
  ensemble_autocorrelation,
  rates,
  spectrum,
  extremes,
  rainflow
};

// Asks for a quantity that the case has, for the point of one that needs it (the last point is the default) and, for
// tasks on one curve, for the curve; else request.curve is 0. False: back to the main menu.
[[nodiscard]] bool quantity_menu(const Console& console, OutputSettings& settings, QuantityTask itask,
                                 CaseStore& case_store, QuantityRequest& request);

}  // namespace zaview
