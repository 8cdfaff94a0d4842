#include "case/tables/load_table.h"

#include <algorithm>
#include <iterator>

#include "base/message.h"
#include "base/number_format.h"
#include "base/table_text.h"
#include "case/quantity_catalogue.h"

namespace zaview {
namespace {

inline constexpr std::string_view kTooManySkipped = "ERROR - Too many steps skipped or trimmed - over";

struct Extremes {
  float low, high;
};

Extremes ExtremesOf(std::span<const float> y) {
  Extremes e{y[0], y[0]};
  for (const float value : y) {
    if (value < e.low) e.low = value;
    if (value > e.high) e.high = value;
  }
  return e;
}

// The shown value at a step that need not be one of the points in use.
float ValueAt(const CaseStore& c, const OutputSettings& settings, const QuantityRow& row, int cut, int step) {
  const auto kind = static_cast<std::size_t>(row.load_kind - 1);
  return row.scale == ScaleKind::load_force ? c.load_force[kind].at(cut, step) * settings.units.scales.load_force
                                            : c.load_moment[kind].at(cut, step) * settings.units.scales.load_moment;
}

}  // namespace

PlotFault LoadDistFil(const Console& console, const OutputSettings& settings, int iqnt, int step, CaseStore& case_store,
                      OutputFile& out) {
  const QuantityRow* row = FindQuantity(iqnt);
  if (row == nullptr || row->load_kind == 0) {
    Say(console, "Logic error in LoadDistFil : iqnt= {}", iqnt);
    return PlotFault::logic;
  }
  QuantityRequest request;
  request.iqnt = iqnt;
  PlotData data;
  const PlotFault fault = SetPlotData(console, settings, request, case_store, data);
  if (fault != PlotFault::none) return fault;
  if (data.n == 0) {
    SayLine(console, kTooManySkipped);
    return PlotFault::not_valid;
  }

  step = std::clamp(step, case_store.first_read, case_store.last_read);
  const std::string names[] = {row->need == QuantityNeed::x_cuts ? "X" : "Y", "Value", "Minimum", "Maximum"};
  const TableLayout layout = LayoutFor(settings.writing.separator, names);
  std::string text = out.had_text ? "\n" : "";
  fmt::format_to(std::back_inserter(text), "Load Distribution of {} for ZAVO file {} at step {} time= {}\n",
                 row->long_label, case_store.file_name, step,
                 Shown{case_store.time.at(1, step) * settings.units.scales.T});
  AppendHeading(text, layout, names);
  for (std::size_t i = 0; i < data.y.size(); ++i) {
    const int cut = static_cast<int>(i) + 1;
    const Extremes extremes = ExtremesOf(data.y[i]);
    const float cells[] = {CutCoordinate(case_store, settings, iqnt, cut),
                           ValueAt(case_store, settings, *row, cut, step), extremes.low, extremes.high};
    AppendRow(text, layout, cells);
  }
  WriteOutput(out, text);
  return PlotFault::none;
}

}  // namespace zaview
