// Coefficients, wave forces and motion responses over frequency as pictures. Signs and units are those of the tables;
// what is 0 throughout is left out. A failure to allocate is thrown.
#pragma once

#include <vector>

#include "analysis/frequency_domain/coefficient_tables.h"
#include "analysis/result_plot.h"

namespace zaview {

// Added mass above damping, by the plain transforms, motion after motion; then the total wave forces of each heading
// and branch, amplitude above phase, over the wave frequency.
[[nodiscard]] ResultPlot CoefficientPlot(const FrequencyLooks& looks, const std::vector<RadiationResult>& radiation,
                                         const std::vector<ExcitationTable>& excitation);
// Amplitude above phase, over the wave frequency.
[[nodiscard]] ResultPlot ResponsePlot(const FrequencyLooks& looks, double heading,
                                      const std::vector<ResponseRow>& rows);

}  // namespace zaview
