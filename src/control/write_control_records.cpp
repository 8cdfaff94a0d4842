#include "control/write_control_records.h"

#include <iterator>

#include <fmt/format.h>

#include "base/grow.h"
#include "control/control_lines.h"
#include "control/control_text.h"
#include "control/module_table.h"
#include "control/record_rows.h"

namespace zaview {
namespace {

constexpr std::string_view kLimitPassed = "!WRN359 - Dimensioning parameter {} exceeded - data echo not accurate\n";

void AppendComment(const RecordRow& row, std::int64_t count, std::string& text) {
  text += row.comment;
  text += '\n';
  if (!row.limit_name.empty() && count > row.limit)
    fmt::format_to(std::back_inserter(text), kLimitPassed, row.limit_name);
}

void AppendListRow(const RecordRow& row, RecordState& state, std::string& text) {
  const std::int64_t count = row.count == nullptr ? 1 : row.count(state);
  if (count <= 0) return;
  AppendComment(row, count, text);
  for (std::int64_t i = 0; i < count; ++i) {
    FieldList fields;
    if (!row.list(state, static_cast<std::size_t>(i), fields)) return;
    AppendControlList(fields.items(), row.a_line, text);
  }
}

RecordState StateOf(ControlRecords& records) {
  const auto count = [](const auto& entries) { return static_cast<int>(entries.size()); };
  RecordState state{records};
  state.NWAVES = count(records.seaway.waves);
  if (records.seaway.ISEA == 5) state.WAVE_NMODE = count(records.seaway.modes);
  state.NCOMP0 = count(records.components);
  state.NBCA = count(records.XMC);
  state.NBMX = count(records.mass_points);
  state.NFIN = count(records.fins);
  state.NBK = count(records.bilge_keels);
  return state;
}

void AppendRecords(const ControlRecords& records, std::string& text) {
  ControlRecords copy = records;  // the rows give places to write to
  RecordState state = StateOf(copy);
  for (const RecordRow& row : RecordRows()) {
    if (row.text == nullptr) {
      AppendListRow(row, state, text);
    } else {
      AppendComment(row, 1, text);
      AppendControlText(copy.*row.text, text);
    }
  }
  WriteModules(records, text);
  text += kEndOfText;
  text += '\n';
}

}  // namespace

bool WriteControlRecords(const ControlRecords& records, std::string& text) {
  return Guarded([&] { return AppendRecords(records, text), true; }, false);
}

}  // namespace zaview
