// The control texts of the ships behind the first one. The first text gives what belongs to the run: records 05 to 15
// and 21 to 23, and the modules of the run; the other records and modules are each ship's own.
#pragma once

#include <string>
#include <vector>

#include "base/line_source.h"
#include "base/platform.h"
#include "case/case_store.h"
#include "control/control_text.h"

namespace zaview {

struct FurtherTexts {
  std::vector<ControlRecords> texts;  // as read, of ships 2, 3 ..
  std::string said;                   // by reading them: nothing that matters unless the file has several ships
  bool failed = false;
};

// Reads to the delimiter behind the last text, and gives it; blank lines and comments between texts are passed over.
[[nodiscard]] Delimiter ReadFurtherTexts(const Platform& platform, LineSource& source, const std::string& name,
                                         FurtherTexts& further);

// Makes control that of the selected ship and keeps all texts as they were read. Several ships have no sectional loads.
// False (told): a text can't be read, or what it says can't be.
[[nodiscard]] bool AdoptShipText(const Console& console, FurtherTexts& further, CaseStore& fresh);

}  // namespace zaview
