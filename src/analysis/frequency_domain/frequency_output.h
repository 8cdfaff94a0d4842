// Files of coefficients and motion responses of a case of impulse responses.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "analysis/frequency_domain/coefficient_tables.h"
#include "analysis/frequency_domain/frequency_case.h"
#include "analysis/result_plot.h"
#include "base/data_fault.h"
#include "base/platform.h"
#include "case/output_settings.h"
#include "frame/ground/output_file.h"

namespace zaview {

struct FrequencyWork {
  const Platform& platform;
  const OutputSettings& settings;
  const CaseStore& store;
};

// What is known of some blocks, in the order of the file.
struct FrequencyResults {
  std::vector<RadiationResult> radiation;
  std::vector<IndependentParts> matrices;  // that are written on their own
  std::vector<ExcitationTable> excitation;
};

// Of one block, the matrices of its ship included, or (null) of the whole case: a transient added mass run is one
// radiation record. Says what is transformed, and what was cut. False (said): memory is out.
[[nodiscard]] bool MakeFrequencyResults(const FrequencyWork& work, const IrfBlock* block, FrequencyResults& results);

// A file of coefficients: all that the results have of a kind; blank: nothing.
[[nodiscard]] std::string CoefficientText(const FrequencyLooks& looks, CoefficientKind kind,
                                          const FrequencyResults& results);
[[nodiscard]] std::string ExcitationText(const FrequencyLooks& looks, const FrequencyResults& results);

// All of the case to root.adm, root.dmp, root.stf and root.exc, each only if there is anything for it: all of them, or
// none. plot: their picture. False: it was said why.
[[nodiscard]] bool WriteCoefficientFiles(const FrequencyWork& work, std::string_view root, ResultPlot& plot);

// Responses at wave frequencies, rad per output time, of one heading of the model (from 0); those that no block was
// read for are left out. Transforms, which is said. out is open. plot: their picture.
[[nodiscard]] DataFault WriteResponses(const FrequencyWork& work, std::size_t heading, const std::vector<double>& w_out,
                                       OutputFile& out, ResultPlot& plot);

}  // namespace zaview
