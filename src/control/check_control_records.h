// Whether a control text can be what the simulation ran with: each error found is told, warnings too.
#pragma once

#include "base/platform.h"
#include "control/control_records.h"

namespace zaview {

inline constexpr int kOldestVersion = 290;  // of the files that are still supported
inline constexpr int kProgramVersion = 417;

// The number of errors (not of warnings), the checks of the modules included. 0: the case can be read.
// VERSION: of the file; 0 and below: the newest.
[[nodiscard]] int CheckControlRecords(const Console& console, const ControlRecords& records, int VERSION);

// The part of it that looks at a ship's own records and modules: the texts of further ships.
[[nodiscard]] int CheckShipRecords(const Console& console, const ControlRecords& records, int VERSION);

// ERR230 or WRN231 for files of versions older or newer than this program reads; says nothing for others. Files of both
// kinds are read as far as they go.
void ReportVersion(const Console& console, int VERSION);

}  // namespace zaview
