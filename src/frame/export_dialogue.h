// The dialogues of the main menu that write a run for other programs.
#pragma once

#include "base/platform.h"
#include "case/case_store.h"
#include "case/output_settings.h"

namespace zaview {

void AskNetcdf(const Platform& platform, const OutputSettings& settings, CaseStore& store);
void AskVtk(const Platform& platform, const OutputSettings& settings, CaseStore& store);

}  // namespace zaview
