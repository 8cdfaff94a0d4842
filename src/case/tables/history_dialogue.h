// Writing a time history, or the KINO files of a case, from the menu.
#pragma once

#include "base/platform.h"
#include "case/case_store.h"
#include "case/output_settings.h"
#include "case/plot_data.h"

namespace zaview {

// Asks for the file of a quantity (34 and 35 are KINO motions and seaway), writes it and waits for RETURN.
void AskHistoryFile(const Platform& platform, const OutputSettings& settings, const QuantityRequest& request,
                    CaseStore& case_store);

// Asks for the root name of the three KINO files and writes them.
void AskKinoFiles(const Platform& platform, const OutputSettings& settings, CaseStore& case_store);

}  // namespace zaview
