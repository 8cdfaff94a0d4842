// Ensemble statistics, autocorrelation, upcrossings and exceedances from the menu.
#pragma once

#include "base/platform.h"
#include "case/output_settings.h"
#include "stats/exceedances.h"
#include "stats/tables/ensemble_data.h"
#include "stats/tables/table_dialogues.h"

namespace zaview {

void AskEnsembleFile(const StatDialogue& dialogue, const QuantityRequest& request, bool intervals);
// Of one record the table of the record, of an ensemble the averaged one; the cut-off is asked for first. True: the
// user wants the graph instead.
[[nodiscard]] bool AskAutocorrelationFile(const StatDialogue& dialogue, const QuantityRequest& request);
void AskUpcrossings(const StatDialogue& dialogue, const QuantityRequest& request);
void AskExceedances(const StatDialogue& dialogue, const QuantityRequest& request);
void AskBlockExceedances(const StatDialogue& dialogue, const QuantityRequest& request);

}  // namespace zaview
