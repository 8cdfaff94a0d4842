// The control text of a case, written so that it can be read again: comment lines that name the fields, then the data.
// Reals are the shortest text that reads back to the same double, `.0` behind a whole one, right-justified in 18
// columns, at most 4 a line.
#pragma once

#include <string>

#include "control/control_records.h"

namespace zaview {

// Appends records 01 to 33, the modules (module_table.h) and an END_OF_FILE line. A count above its limit is marked by
// "!WRN359 - Dimensioning parameter .. exceeded - data echo not accurate"; all its lines are written nevertheless.
// False: memory is out, the text is not whole.
[[nodiscard]] bool WriteControlRecords(const ControlRecords& records, std::string& text);

}  // namespace zaview
