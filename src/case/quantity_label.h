// What a plot or a table is headed with, and the units of what it shows.
#pragma once

#include <string>
#include <string_view>

#include "case/case_store.h"
#include "case/output_settings.h"
#include "case/plot_data.h"

namespace zaview {

// The title of a plot: its own text where the long label is too short for one, point coordinates (INPUT axes and units)
// and coefficients of a missile included. "LOGIC ERROR in setqntlabel": no such number.
[[nodiscard]] std::string setqntlabel(const CaseStore& case_store, const QuantityRequest& request);

// " point= x y z", behind the long label of a table; blank where the quantity is of no point.
[[nodiscard]] std::string PointNote(const CaseStore& case_store, const QuantityRequest& request);

// Units as the output scales make them: "m" or "ft", "N", "kN" or "lb" and what is made of them, "deg" or "rad". They
// are known where gravity and reference length went from input to output by one factor, and gravity, density and angle
// factor are those of a usual system; else blank, as for impulsive runs. curve 0: blank unless all curves have one.
[[nodiscard]] std::string CurveUnit(const CaseStore& case_store, const OutputSettings& settings, int iqnt, int curve);
[[nodiscard]] std::string_view LengthUnit(const CaseStore& case_store, const OutputSettings& settings);
[[nodiscard]] std::string_view TimeUnit(const CaseStore& case_store, const OutputSettings& settings);

// "pmgg(3), m"; the text alone where the unit is blank.
[[nodiscard]] std::string WithUnit(std::string_view text, std::string_view unit);

}  // namespace zaview
