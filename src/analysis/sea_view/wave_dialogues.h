// The dialogues of the wave field and of the wave analysis.
#pragma once

#include "analysis/sea_view/wave_analysis.h"
#include "base/platform.h"
#include "case/case_store.h"
#include "case/output_settings.h"

namespace zaview {

void AskWaveField(const Platform& platform, const OutputSettings& settings, CaseStore& case_store);

// result: of the analysis that was written, if any.
void AskWaveAnalysis(const Platform& platform, const OutputSettings& settings, CaseStore& case_store,
                     WaveAnalysisResult& result);

}  // namespace zaview
