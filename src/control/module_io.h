// Reads and writes a module by its field list: rows of data sets, each with its comment line and the places of its
// values. Reader and writer go through the same rows. Modules without a list are kept by data set as they stand.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/list_read.h"
#include "base/platform.h"
#include "control/control_lines.h"
#include "control/control_records.h"
#include "control/record_rows.h"

namespace zaview {

struct ModuleState {  // the records, and which entry of them is worked on
  ControlRecords& records;
  std::size_t entry = 0;
  int count = 0;  // of the repeated list that follows, as written in the text
};

struct ModuleField {
  int set = 1;               // data set number, from 1
  std::string_view comment;  // the writer's comment line(s), a \n between them
  // A text field ...
  std::string* (*text)(ModuleState& state) = nullptr;
  // ... or a list: the places of its i-th repetition (from 0), made if it is the next one; false: memory is out.
  bool (*list)(ModuleState& state, std::size_t i, FieldList& fields) = nullptr;
  std::int64_t (*count)(const ModuleState& state) = nullptr;  // how often the list stands; null: once
  bool may_be_missing = false;  // a text that ends ahead of it is whole: it and all behind it stay at their defaults
  std::size_t a_line = kControlValues;
};

// What a module with known fields is made of: one entry of an array of the records a block.
struct ModuleForm {
  std::span<const ModuleField> fields;
  bool (*resize)(ControlRecords& records, std::size_t entries) = nullptr;  // false: memory is out
  std::size_t (*entries)(const ControlRecords& records) = nullptr;
  std::size_t (*length)(const ModuleState& state) = nullptr;  // of the entry's repeated list; null: there is none
  // Tells what can't be; the number of errors. Null: anything can be.
  int (*check)(const Console& console, const ControlRecords& records) = nullptr;
};

enum class ModuleFault : std::uint8_t { none, bad_data, end_of_file, dimension, fatal };

// Reads the kept lines of a module into its entry and notes where the rest of them begins. set: the data set that
// can't be read. dimension: a count below 0; fatal: memory is out.
[[nodiscard]] ModuleFault ReadModule(std::span<const ModuleField> fields, ModuleText& module, ModuleState& state,
                                     int& set);

// The fields, and behind them the rest of the kept lines.
void WriteModule(const ModuleForm& form, const ModuleText& module, ModuleState& state, std::string& text);

// A data set of a module whose fields are not known. The lines live as long as the module.
struct ModuleDataSet {
  int number = 1;
  std::vector<std::string_view> lines;  // that are no comments, in order; blank ones are left out
};

// By their comment lines !PREFIXnn; lines ahead of the first belong to set 1. A number that is announced again begins
// another set. False: memory is out.
[[nodiscard]] bool SplitDataSets(const ModuleText& module, std::string_view prefix, std::vector<ModuleDataSet>& sets);

}  // namespace zaview
