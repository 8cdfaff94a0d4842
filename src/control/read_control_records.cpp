#include "control/read_control_records.h"

#include "base/message.h"
#include "control/parse_modules.h"
#include "control/record_rows.h"

namespace zaview {
namespace {

constexpr int kSeawayRecord = 21;

enum class RowStatus : std::uint8_t { ok, bad_record, negative_count, bad_seaway, out_of_memory };

RowStatus ReadTextRow(HeaderText& text, const RecordRow& row, ControlRecords& records) {
  std::string_view line;
  if (NextDataLine(text, line) != TextEvent::line) return RowStatus::bad_record;
  records.*row.text = TextField(line, row.length);
  return RowStatus::ok;
}

RowStatus ReadListRow(HeaderText& text, const RecordRow& row, RecordState& state) {
  const std::int64_t count = row.count == nullptr ? 1 : row.count(state);
  if (count < 0) return RowStatus::negative_count;
  for (std::int64_t i = 0; i < count; ++i) {
    FieldList fields;
    if (!row.list(state, static_cast<std::size_t>(i), fields)) return RowStatus::out_of_memory;
    fields.SetToZero();
    if (ReadList(ListsOf(text), fields.items()) != ListStatus::ok) return RowStatus::bad_record;
  }
  const RecordCheck check = row.check == nullptr ? RecordCheck::ok : row.check(state);
  if (check == RecordCheck::bad_seaway) return RowStatus::bad_seaway;
  return check == RecordCheck::ok ? RowStatus::ok : RowStatus::bad_record;
}

ControlStatus SayBadRow(const Console& console, const ControlText& text, const HeaderText& lines, const RecordRow& row,
                        RowStatus status, const RecordState& state) {
  const std::int64_t line = text.source->line_number;
  if (lines.ended == TextEvent::too_long) {
    Say(console, kControlTooLong, text.file_name, line);
  } else if (status == RowStatus::out_of_memory) {
    if (row.record == kSeawayRecord) Say(console, kSeawayMemory, text.file_name, line);
    else Say(console, kControlMemory, text.file_name, line);
  } else if (status == RowStatus::bad_seaway) {
    Say(console, kSeawayKind, state.records.seaway.ISEA);
  } else if (status == RowStatus::negative_count && row.say_negative != nullptr) {
    row.say_negative(console, state);
  } else {
    Say(console, kBadRecord, row.record, text.file_name, line);
  }
  return ControlStatus::failed;
}

}  // namespace

ControlStatus ReadControlRecords(const Platform& platform, ControlText& text, ControlRecords& records) {
  const Console& console = platform.console;
  records = ControlRecords{};
  text.delimiter = Delimiter::none;
  HeaderText lines{text.source};
  RecordState state{records};
  for (const RecordRow& row : RecordRows()) {
    const RowStatus status = row.text != nullptr ? ReadTextRow(lines, row, records) : ReadListRow(lines, row, state);
    text.delimiter = lines.delimiter;
    if (status != RowStatus::ok) return SayBadRow(console, text, lines, row, status, state);
  }

  const ModuleStatus modules = KeepModules(lines, records.modules);
  if (modules != ModuleStatus::ok) {
    const std::int64_t line = text.source->line_number;
    if (modules == ModuleStatus::too_long) Say(console, kControlTooLong, text.file_name, line);
    else Say(console, kControlMemory, text.file_name, line);
    return ControlStatus::failed;
  }
  text.delimiter = lines.delimiter;
  ParseModules(platform, text.file_name, records);
  return ControlStatus::ok;
}

}  // namespace zaview
