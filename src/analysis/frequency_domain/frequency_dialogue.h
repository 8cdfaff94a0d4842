// The dialogue of cases of impulse responses: coefficients of a record at a time, motion responses.
#pragma once

#include "analysis/frequency_domain/frequency_output.h"

namespace zaview {

// plot: the picture of what was transformed last.
void AskFrequencyDomain(const FrequencyWork& work, ResultPlot& plot);

// Frequencies, then headings with a file each, until 0 or QUIT is told. Needs HasResponses.
void AskResponses(const FrequencyWork& work, ResultPlot& plot);

inline constexpr int kMostFrequencies = 200;  // of responses

}  // namespace zaview
