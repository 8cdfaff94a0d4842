// The dialogues that change how a case is shown: scales and signs, trims and skips, smoothing.
#pragma once

#include "base/platform.h"
#include "case/case_store.h"
#include "case/ensemble_store.h"
#include "case/output_settings.h"
#include "frame/ground/prompts.h"

namespace zaview {

// Scales, then the coordinate convention. QUIT leaves the dialogue; what was answered before stays.
void AskOutputScales(const Console& console, OutputSettings& settings, const CaseStore& case_store);

// Trims of all records, then the steps that statistics skip.
void retrim_record(const Console& console, OutputSettings& settings, CaseStore& case_store, EnsembleStore& ensemble);

void AskSmoothing(const Console& console, OutputSettings& settings);

// Method of confidence intervals; of a bootstrap its resamples and seed.
void AskIntervalMethod(const Console& console, OutputSettings& settings);

// The separator of tables, the present one as the default. QUIT leaves it.
[[nodiscard]] Answer AskSeparator(const Console& console, OutputSettings& settings);

}  // namespace zaview
