// Reads and writes a module by its field list: rows of data sets, each with its comment line and the places of its
// values. The owner of module_table.cpp shapes this header.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "control/control_records.h"
#include "control/record_rows.h"

namespace zaview {

struct ModuleState {  // the records, and which entry of a repeated module is worked on
  ControlRecords& records;
  std::size_t entry = 0;
  int count = 0;  // of the repeated list that follows, as written in the text
};

struct ModuleField {
  int set = 1;               // data set number, from 1
  std::string_view comment;  // the writer's comment line(s), each ended by \n
  // A text field ...
  std::string* (*text)(ModuleState& state) = nullptr;
  // ... or a list: the places of its i-th repetition (from 0), made if it is the next one; false: memory is out.
  bool (*list)(ModuleState& state, std::size_t i, FieldList& fields) = nullptr;
  std::int64_t (*count)(const ModuleState& state) = nullptr;  // how often the list stands; null: once
};

enum class ModuleFault : std::uint8_t { none, bad_data, end_of_file, dimension, fatal };

// Reads the kept lines of a module into the records. set: the data set that can't be read.
[[nodiscard]] ModuleFault ReadModule(std::span<const ModuleField> fields, const ModuleText& module, ModuleState& state,
                                     int& set);
void WriteModule(std::span<const ModuleField> fields, ModuleState& state, std::string& text);

}  // namespace zaview
