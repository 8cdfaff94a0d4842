// The control text of a case as a run file has it: those of all its ships.
#pragma once

#include <string>

#include "case/case_store.h"

namespace zaview {

// Appends it; nothing where the case has none (KINO files, a table). False: memory is out, the text is not whole.
[[nodiscard]] bool AppendControlText(const CaseStore& store, std::string& text);

}  // namespace zaview
