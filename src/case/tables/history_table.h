// Time history of a quantity as a table: title, heading, a row per used step.
#pragma once

#include "case/plot_data.h"
#include "frame/ground/output_file.h"

namespace zaview {

// Behind older text of the file title and heading repeat, set off by an empty line.
// unformatted: one framed record a step instead (4-byte length, time and curves, the length again; little-endian,
// 4-byte reals), no heads; the console takes none of these (not_valid). Quantities 34 and 35 are KINO files
// (kino_output.h), never unformatted.
[[nodiscard]] DataFault write_time_history(const Console& console, const OutputSettings& settings,
                                           const QuantityRequest& request, bool unformatted, CaseStore& case_store,
                                           OutputFile& out);

}  // namespace zaview
