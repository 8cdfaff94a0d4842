// The layout of the numbered records as a table: one row for each text field or list, in the order of the text. A row
// gives the places of its values, so reader and writer go through the same rows.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "base/grow.h"
#include "base/list_read.h"
#include "base/platform.h"
#include "control/control_records.h"

namespace zaview {

struct FieldList {  // places of the items of one list
  std::array<ListItem, 20> item;
  std::size_t size = 0;

  void Add(int& field) { item[size++] = &field; }
  void Add(double& field) { item[size++] = &field; }
  template <typename T, std::size_t n>
  void Add(std::array<T, n>& fields) {
    for (T& field : fields) Add(field);
  }
  template <typename... T>
  void AddAll(T&... fields) {
    (Add(fields), ...);
  }
  [[nodiscard]] std::span<const ListItem> items() const { return {item.data(), size}; }

  // Items that a text leaves out are 0, also where the record itself has another default.
  void SetToZero() const {
    for (const ListItem& place : items()) std::visit([](auto* value) { *value = 0; }, place);
  }
};

// The places of one list, as rows give them.
template <typename... T>
bool Fields(FieldList& list, T&... fields) {
  list.AddAll(fields...);
  return true;
}

// Entry i of a repeated list, made if it is the next one; null when memory is out.
template <typename T>
T* EntryAt(std::vector<T>& entries, std::size_t i) {
  if (i >= entries.size() && !Grow(entries, i + 1)) return nullptr;
  return &entries[i];
}

// The records and the counts that steer repeated lists. The counts are as written in the text: the arrays grow as
// their lines really come.
struct RecordState {
  ControlRecords& records;
  int NWAVES = 0, WAVE_NMODE = 0, NCOMP0 = 0, NBCA = 0, NBMX = 0, NFIN = 0, NBK = 0;
};

enum class RecordCheck : std::uint8_t { ok, bad_record, bad_seaway };

struct RecordRow {
  int record = 0;
  std::string_view comment{};  // the writer's comment lines ahead of it, a \n between them
  // A text field and its greatest length ...
  std::string ControlRecords::*text = nullptr;
  std::size_t length = 0;
  // ... or a list: the places of entry i (from 0), made if it is the next one; false when memory is out.
  bool (*list)(RecordState& state, std::size_t i, FieldList& fields) = nullptr;
  // How often the list stands; null: once. A negative count is a bad record, told by say_negative if there is one.
  std::int64_t (*count)(const RecordState& state) = nullptr;
  // Whether the values just read can be; null: always.
  RecordCheck (*check)(const RecordState& state) = nullptr;
  void (*say_negative)(const Console& console, const RecordState& state) = nullptr;
  // What the simulation has room for, and the name of that limit; blank: any count.
  int limit = 0;
  std::string_view limit_name{};
  std::size_t a_line = 4;  // values that the writer puts on a line
};

inline constexpr std::string_view kNoWaves = "ERR105 - Seaway specified but {} = {}";

[[nodiscard]] std::span<const RecordRow> RecordRows();

}  // namespace zaview
