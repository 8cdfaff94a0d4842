// Sectional load distribution as a table: a row per cut with its coordinate, the value at one step, least and largest
// over the used steps (trim and stride, no skip).
#pragma once

#include "base/data_fault.h"
#include "base/platform.h"
#include "case/case_store.h"
#include "case/output_settings.h"
#include "frame/ground/output_file.h"

namespace zaview {

// iqnt 13 to 24 (others: said). step: absolute index, limited to the steps in use; its value is that of the curve,
// smoothed if the settings say so, whatever the stride.
[[nodiscard]] DataFault LoadDistFil(const Console& console, const OutputSettings& settings, int iqnt, int step,
                                    CaseStore& case_store, OutputFile& out);

}  // namespace zaview
