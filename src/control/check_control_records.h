// Whether a control text can be what the simulation ran with: each error found is told, warnings too.
#pragma once

#include "base/platform.h"
#include "control/control_records.h"

namespace zaview {

// The number of errors (not of warnings), the checks of the modules included. 0: the case can be read.
[[nodiscard]] int CheckControlRecords(const Console& console, const ControlRecords& records);

// ERR230 or WRN231 for files of versions older or newer than this program reads; says nothing for others.
void ReportVersion(const Console& console, int VERSION);

}  // namespace zaview
