#include "case/tables/load_table.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <string>

#include "base/message.h"
#include "base/number_format.h"
#include "base/table_text.h"
#include "case/plot_data.h"
#include "case/quantity_catalogue.h"

namespace zaview {
namespace {

constexpr std::string_view kTooManySkipped = "ERROR - Too many steps skipped or trimmed - over";

struct Extremes {
  float low, high;
};

// Of the points in use: every stride-th one.
Extremes ExtremesOf(std::span<const float> y, std::size_t stride) {
  Extremes e{y[0], y[0]};
  for (std::size_t j = 0; j < y.size(); j += stride) {
    if (y[j] < e.low) e.low = y[j];
    if (y[j] > e.high) e.high = y[j];
  }
  return e;
}

}  // namespace

DataFault LoadDistFil(const Console& console, const OutputSettings& settings, int iqnt, int step, CaseStore& case_store,
                      OutputFile& out) {
  const QuantityRow* row = FindQuantity(iqnt);
  if (row == nullptr || row->load_kind == 0) {
    Say(console, "Logic error in LoadDistFil : iqnt= {}", iqnt);
    return DataFault::said;
  }
  QuantityRequest request;
  request.iqnt = iqnt;
  OutputSettings every = settings;  // the value may stand between two points in use
  every.reading.step_stride = 1;
  PlotData data;
  const DataFault fault = SetPlotData(console, every, request, case_store, data);
  if (fault != DataFault::none) return fault;
  if (data.n == 0) {
    SayLine(console, kTooManySkipped);
    return DataFault::said;
  }

  step = std::clamp(step, case_store.first_step, case_store.last_step);
  const auto at = static_cast<std::size_t>(step - case_store.first_step);
  const auto stride = static_cast<std::size_t>(std::max(1, settings.reading.step_stride));
  const std::string names[] = {row->need == QuantityNeed::x_cuts ? "X" : "Y", "Value", "Minimum", "Maximum"};
  const TableLayout layout = LayoutFor(settings.writing.separator, names);
  std::string text = out.had_text ? "\n" : "";
  fmt::format_to(std::back_inserter(text), "Load Distribution of {} for ZAVO file {} at step {} time= {}\n",
                 row->long_label, case_store.file_name, step,
                 Shown{case_store.time.at(1, step) * settings.units.scales.T});
  AppendHeading(text, layout, names);
  for (std::size_t i = 0; i < data.y.size(); ++i) {
    const int cut = static_cast<int>(i) + 1;
    const Extremes extremes = ExtremesOf(data.y[i], stride);
    const float cells[] = {CutCoordinate(case_store, settings, iqnt, cut), data.y[i][at], extremes.low, extremes.high};
    AppendRow(text, layout, cells);
  }
  WriteOutput(out, text);
  return DataFault::none;
}

}  // namespace zaview
