// All histories of a run as a NetCDF file, for programs that read data by name.
#pragma once

#include <string_view>

#include "base/platform.h"
#include "case/case_store.h"
#include "case/output_settings.h"
#include "frame/ground/output_file.h"

namespace zaview {

inline constexpr std::string_view kNetcdfWritten = "Histories written to NetCDF file";

// The steps in use, in output units, smoothed as the settings say. A variable a curve: the first word of its quantity
// and its number, "mot_3"; of a quantity with one curve the word alone. What needs a point or coefficients is left out.
// Global attributes: title, source, run_file, control_text. False: nothing is written, and it has been said why.
[[nodiscard]] bool WriteRunNetcdf(const Console& console, const OutputSettings& settings, CaseStore& store,
                                  OutputFile& out);

}  // namespace zaview
