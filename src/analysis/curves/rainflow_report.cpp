#include "analysis/curves/rainflow_report.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <string>
#include <vector>

#include "analysis/curves/curve_stretches.h"
#include "base/message.h"
#include "base/number_format.h"
#include "base/table_text.h"
#include "case/quantity_label.h"
#include "stats/rainflow.h"
#include "stats/tables/statistic_values.h"

namespace zaview {
namespace {

constexpr std::string_view kTooManySkipped = "ERR495 - Too many steps skipped or trimmed in rainflow counting";
constexpr std::string_view kNoMemory = "ERR493 - Error allocating working arrays for rainflow counting";
constexpr std::string_view kNoCycles = "ERROR - there are no cycles in {}";

constexpr double kSlopes[] = {3, 4, 5};  // of S-N curves
constexpr std::size_t kPointsOfLine = 500;

struct Counted {
  std::vector<RainflowCycle> cycles;
  RainflowTotals totals;
  double time = 0;
};

DataFault Count(const StatWork& work, const QuantityRequest& request, Counted& counted) {
  QuantityRequest one = request;
  one.curve = std::max(1, request.curve);
  one.wave_overlay = false;
  StatRecord record;
  if (const DataFault fault = TakeRecord(work, one, kTooManySkipped, kNoMemory, record); fault != DataFault::none)
    return fault;
  const int stride = std::max(1, work.settings.reading.step_stride);
  const CaseStore& c = work.current();
  std::vector<CurveStretch> stretches;
  AppendStretches(c, {record.curve(0), record.t(), c.first_step + record.range.first * stride, stride}, 1, stretches);
  for (const CurveStretch& stretch : stretches) CountRainflow(stretch.x, counted.cycles);
  counted.totals = TotalsOf(counted.cycles);
  counted.time = TimeOf(stretches);
  if (!counted.cycles.empty()) return DataFault::none;
  Say(work.console(), fmt::runtime(kNoCycles), EnsembleCurveName(work.settings, one, work.cases));
  return DataFault::said;
}

std::string NameOf(const StatWork& work, const QuantityRequest& request) {
  return EnsembleCurveName(work.settings, request, work.cases) + PointNote(work.current(), request);
}

// ---- The table

void WriteTable(const StatWork& work, const QuantityRequest& request, const Counted& counted, OutputFile& out) {
  std::string text = out.had_text ? "\n" : "";
  fmt::format_to(std::back_inserter(text),
                 "Rainflow counts of {} for ZAVO file {}\nTotal time= {}\nNumber of cycles= {}\nLargest range= {}\n",
                 NameOf(work, request), work.current().file_name, ShownOf(counted.time), ShownOf(counted.totals.cycles),
                 ShownOf(counted.totals.largest));
  text +=
      "Equivalent range of N cycles for the slope m of an S-N curve: (sum n S^m / N)^(1/m), N the number of cycles\n";
  for (const double m : kSlopes)
    fmt::format_to(std::back_inserter(text), "Equivalent range m={}= {}\n", ShownOf(m),
                   ShownOf(EquivalentRange(counted.cycles, m)));
  const std::string names[] = {"Range from", "Range to", "Cycles", "Cycles above", "Average mean"};
  const TableLayout layout = LayoutFor(work.settings.writing.separator, names);
  AppendHeading(text, layout, names);
  for (const RangeBin& bin : BinRanges(counted.cycles, work.settings.statistics.rainflow_bins)) {
    float cells[std::size(names)];
    std::size_t i = 0;
    for (const double value : {bin.low, bin.high, bin.cycles, bin.exceeding, bin.mean})
      cells[i++] = static_cast<float>(value);
    AppendRow(text, layout, cells);
    WriteGathered(out, text);
  }
  WriteOutput(out, text);
}

// ---- The picture

// How many cycles are at least as large, from the largest range on; where the curve steps close together every so many.
ResultCurve ExceedanceLine(std::vector<RainflowCycle> cycles) {
  std::sort(cycles.begin(), cycles.end(), [](const auto& a, const auto& b) { return a.range > b.range; });
  ResultCurve line{"cycles", {}, {}};
  const float least_step = cycles.front().range / static_cast<float>(kPointsOfLine);
  double count = 0;
  for (std::size_t i = 0; i < cycles.size(); ++i) {
    count += cycles[i].count();
    const bool last_of_its_range = i + 1 == cycles.size() || cycles[i + 1].range != cycles[i].range;
    if (!last_of_its_range) continue;
    if (!line.x.empty() && i + 1 < cycles.size() && line.x.back() - cycles[i].range < least_step) continue;
    line.x.push_back(cycles[i].range);
    line.y.push_back(static_cast<float>(std::log10(count)));
  }
  return line;
}

ResultCurve BinPoints(std::span<const RangeBin> bins) {
  ResultCurve points{"bins", {}, {}, ResultStyle::points};
  for (const RangeBin& bin : bins) {
    points.x.push_back(static_cast<float>(bin.low));
    points.y.push_back(static_cast<float>(std::log10(bin.exceeding)));
  }
  return points;
}

DataFault MakePlot(const StatWork& work, const QuantityRequest& request, ResultPlot& plot) {
  Counted counted;
  if (const DataFault fault = Count(work, request, counted); fault != DataFault::none) return fault;
  plot.title = fmt::format("Rainflow counts: {}", NameOf(work, request));
  ResultPanel panel;
  panel.x_name = WithUnit("Range", CurveUnit(work.current(), work.settings, request.iqnt, request.curve));
  panel.y_name = "Cycles above";
  panel.log_y = true;
  panel.curves.push_back(ExceedanceLine(counted.cycles));
  panel.curves.push_back(BinPoints(BinRanges(counted.cycles, work.settings.statistics.rainflow_bins)));
  panel.notes.push_back(fmt::format("{} cycles", ShownOf(counted.totals.cycles)));
  panel.notes.push_back(fmt::format("largest range {:.4g}", counted.totals.largest));
  for (const double m : kSlopes)
    panel.notes.push_back(
        fmt::format("equivalent range, m = {}: {:.4g}", ShownOf(m), EquivalentRange(counted.cycles, m)));
  plot.panels.push_back(std::move(panel));
  return DataFault::none;
}

}  // namespace

DataFault MakeRainflowPlot(const StatWork& work, const QuantityRequest& request, ResultPlot& plot) {
  plot = ResultPlot{};
  return MakeOrSay(work.console(), kNoMemory, [&] { return MakePlot(work, request, plot); });
}

DataFault WriteRainflow(const StatWork& work, const QuantityRequest& request, OutputFile& out) {
  return MakeOrSay(work.console(), kNoMemory, [&] {
    Counted counted;
    const DataFault fault = Count(work, request, counted);
    if (fault == DataFault::none) WriteTable(work, request, counted, out);
    return fault;
  });
}

}  // namespace zaview
