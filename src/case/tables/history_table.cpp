#include "case/tables/history_table.h"

#include <bit>
#include <iterator>

#include "base/message.h"
#include "base/number_format.h"
#include "base/table_text.h"
#include "case/quantity_catalogue.h"
#include "case/quantity_label.h"
#include "case/tables/kino_output.h"

namespace zaview {
namespace {

constexpr std::string_view kTimeHead = "  Time   ";
constexpr std::string_view kWritingMotions = "Writing KINO motion data...";
constexpr std::string_view kWritingSeaway = "Writing KINO seaway data...";

void AppendTitle(std::string& text, const QuantityRequest& request, const CaseStore& c) {
  fmt::format_to(std::back_inserter(text), "Time History of {} for ZAVO file {}", QuantityLabel(c, request.iqnt),
                 c.file_name);
  text += PointNote(c, request) + '\n';
}

// Time and the curves of one point, as they stand in a row.
void TakeRow(const PlotData& data, std::size_t point, std::vector<float>& cells) {
  cells[0] = data.x[point];
  for (std::size_t k = 0; k < data.y.size(); ++k) cells[k + 1] = data.y[k][point];
}

void AppendBytes(std::string& text, std::uint32_t word) {
  for (int shift = 0; shift < 32; shift += 8) text += static_cast<char>((word >> shift) & 0xFFU);
}

void AppendRecord(std::string& text, std::span<const float> cells) {
  const auto length = static_cast<std::uint32_t>(cells.size() * sizeof(float));
  AppendBytes(text, length);
  for (const float cell : cells) AppendBytes(text, std::bit_cast<std::uint32_t>(cell));
  AppendBytes(text, length);
}

DataFault WriteKinoFile(const Console& console, const OutputSettings& settings, int iqnt, CaseStore& case_store,
                        OutputFile& out) {
  if (!QuantityValid(case_store, iqnt)) return DataFault::not_valid;
  const bool seaway = iqnt == kKinoSeaway;
  SayLine(console, seaway ? kWritingSeaway : kWritingMotions);
  if (seaway) return WriteKinoSeaway(console, settings, case_store, out) ? DataFault::none : DataFault::no_wave;
  WriteKinoMotions(settings, case_store, out);
  return DataFault::none;
}

}  // namespace

DataFault write_time_history(const Console& console, const OutputSettings& settings, const QuantityRequest& request,
                             bool unformatted, CaseStore& case_store, OutputFile& out) {
  if (case_store.time_history() && IsKinoFile(request.iqnt))
    return WriteKinoFile(console, settings, request.iqnt, case_store, out);
  if (unformatted && out.to_console) return DataFault::not_valid;
  PlotData data;
  const DataFault fault = SetPlotData(console, settings, request, case_store, data);
  if (fault != DataFault::none) return fault;

  std::string text;
  std::vector<std::string> names{std::string(kTimeHead)};
  names.insert(names.end(), data.labels.begin(), data.labels.end());
  const TableLayout layout = LayoutFor(settings.writing.separator, names);
  if (!unformatted) {
    if (out.had_text) text += '\n';
    AppendTitle(text, request, case_store);
    AppendHeading(text, layout, names);
  }
  std::vector<float> cells(names.size());
  for (std::size_t point = 0; point < data.x.size(); ++point) {
    TakeRow(data, point, cells);
    if (unformatted) AppendRecord(text, cells);
    else AppendRow(text, layout, cells);
    WriteGathered(out, text);
  }
  WriteOutput(out, text);
  return DataFault::none;
}

}  // namespace zaview
