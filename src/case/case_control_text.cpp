#include "case/case_control_text.h"

#include <algorithm>

#include "control/write_control_records.h"

namespace zaview {

bool AppendControlText(const CaseStore& store, std::string& text) {
  if (store.kino_input) return true;
  if (store.ship_texts.empty()) return WriteControlRecords(store.control, text);
  return std::all_of(store.ship_texts.begin(), store.ship_texts.end(),
                     [&text](const ControlRecords& ship) { return WriteControlRecords(ship, text); });
}

}  // namespace zaview
