// The motions of a run with their time moved on.
#pragma once

#include "base/data_fault.h"
#include "base/platform.h"
#include "case/case_store.h"
#include "case/output_settings.h"
#include "frame/ground/output_file.h"

namespace zaview {

struct ExtrapolationRequest {
  int option = 0;   // 0: the motions as they are, a forecast that nothing changes; 1: of second order in time
  float T_out = 1;  // output time
};

// False: an illegal option or time, which is said.
[[nodiscard]] bool ExtrapolationAllowed(const Console& console, const CaseStore& store,
                                        const ExtrapolationRequest& request);

// Rows of time + T and six motions in output units and signs, over the steps in use; of option 1 those alone whose
// time + T lies within the record, so that each has a true value to compare with.
[[nodiscard]] DataFault WriteExtrapolatedMotion(const Console& console, const OutputSettings& settings,
                                                const ExtrapolationRequest& request, CaseStore& store, OutputFile& out);

}  // namespace zaview
