// Time history of a quantity as a table: title, heading, a row per used step.
#pragma once

#include "case/plot_data.h"
#include "frame/output_file.h"

namespace zaview {

// unformatted: one framed record a step instead (time and curves, 4-byte reals), no heads.
[[nodiscard]] PlotFault write_time_history(const Console& console, const OutputSettings& settings,
                                           const QuantityRequest& request, bool unformatted, CaseStore& case_store,
                                           OutputFile& out);

}  // namespace zaview
