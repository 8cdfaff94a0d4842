// Every $NAME: module that a control text may hold, a row each. A module is added here, with its field list in a
// modules_<kind>.cpp; reader, writer and notice go by the list, so they cannot differ.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "base/platform.h"
#include "control/control_records.h"
#include "control/module_io.h"

namespace zaview {

struct ModuleRow {
  std::string_view name;                // as kept, in capitals
  std::string_view also, also_too;      // other words for it
  std::string_view prefix;              // of its data set comment lines
  std::string_view header;              // comment line that the writer opens it with
  bool repeats = false;                 // each block adds an entry
  std::span<const ModuleField> fields;  // empty: kept by data set as it stands
  int (*check)(const Console& console, const ControlRecords& records) = nullptr;  // errors found; null: none
};

[[nodiscard]] std::span<const ModuleRow> ModuleRows();
[[nodiscard]] const ModuleRow* FindModule(std::string_view name);  // by any of its words, capitals; null: unknown

// Appends all modules of the records: known fields by their lists, all else as it was read.
void WriteModules(const ControlRecords& records, std::string& text);

// The checks of all modules; the number of errors.
[[nodiscard]] int CheckModules(const Console& console, const ControlRecords& records);

// "WRN??? - Module .. ignored in input file for" the ship, for modules that belong to the run and stand in a later
// ship's text.
void SayIgnoredModules(const Console& console, const ControlRecords& records, int ship);

}  // namespace zaview
