// Ensemble statistics, autocorrelation, upcrossings and exceedances from the menu.
#pragma once

#include "base/platform.h"
#include "case/output_settings.h"
#include "stats/exceedances.h"
#include "stats/tables/ensemble_data.h"

namespace zaview {

struct EnsembleDialogue {  // what all of them work on
  const Platform& platform;
  OutputSettings& settings;
  EnsembleCases cases;
  StatisticsState& state;
};

void AskEnsembleFile(const EnsembleDialogue& dialogue, const QuantityRequest& request, bool intervals);
// Of one record the table of the record, of an ensemble the averaged one; the cut-off is asked for first. True: the
// user wants the graph instead.
[[nodiscard]] bool AskAutocorrelationFile(const EnsembleDialogue& dialogue, const QuantityRequest& request);
void AskUpcrossings(const EnsembleDialogue& dialogue, const QuantityRequest& request);
void AskExceedances(const EnsembleDialogue& dialogue, const QuantityRequest& request);
void AskBlockExceedances(const EnsembleDialogue& dialogue, const QuantityRequest& request);

}  // namespace zaview
