// Every $NAME: module that a control text may hold, a row each. A module is added here, with its field list in a
// modules_<kind>.cpp if its fields are known; reader, writer and notice go by the row, so they cannot differ.
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
  std::string_view name;             // as kept, in capitals
  std::string_view also, also_too;   // other words for it
  std::string_view prefix;           // of its data set comment lines
  std::string_view purpose;          // of the comment line that the writer opens it with
  bool repeats = false;              // each block adds an entry
  bool of_run = false;               // ignored in the texts of later ships
  const ModuleForm* form = nullptr;  // null: kept by data set as it stands
};

inline constexpr std::string_view kOptionsModule = "OPTIONS";
inline constexpr std::string_view kAddedGeometryModule = "ADDGEOM";

[[nodiscard]] std::span<const ModuleRow> ModuleRows();
[[nodiscard]] const ModuleRow* FindModule(std::string_view name);  // by any of its words, capitals; null: unknown

// The comment line that the writer puts ahead of the module's $ line.
[[nodiscard]] std::string ModuleHeader(const ModuleRow& row);

// Appends all modules of the records: known fields by their lists, all else as it was read. What came from a file of
// its own stands in the text itself.
void WriteModules(const ControlRecords& records, std::string& text);

// The checks of all modules; the number of errors.
[[nodiscard]] int CheckModules(const Console& console, const ControlRecords& records);

// "WRN??? - Module .. ignored in input file for" the ship, for modules that belong to the run and stand in a later
// ship's text.
void SayIgnoredModules(const Console& console, const ControlRecords& records, int ship);

}  // namespace zaview
