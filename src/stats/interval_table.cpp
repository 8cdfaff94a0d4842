#include "stats/interval_table.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <new>
#include <vector>

#include "base/message.h"
#include "base/number_format.h"
#include "base/table_text.h"
#include "base/text.h"
#include "case/quantity_catalogue.h"
#include "stats/peak_stats.h"
#include "stats/record_stats.h"
#include "stats/statistic_values.h"

namespace zaview {
namespace {

inline constexpr std::string_view kTooManySkipped =
    "ERR495 - Too many steps skipped or trimmed in confidence interval calculation";
inline constexpr std::string_view kNoMemory = "ERR493 - Error allocating working arrays for statistics";
inline constexpr std::string_view kNoInterval = "ERROR - statistic {} has no confidence interval";

constexpr std::string_view kQuantityHead = "Quantity      ";

struct IntervalRow {
  int number;  // of the statistic
  std::string_view label;
};
constexpr IntervalRow kRows[] = {
    {kStatMean,      " Mean          "},
    {kStatVariance,  " Variance      "},
    {kStatStdev,     " Std. Deviation"},
    {kStatThird,     " Significnt Amp"},
    {kStatThird + 1, " 1/3rd Top Avg "},
    {kStatThird + 2, " 1/3rd bot Avg "},
    {kStatThird + 3, " Significnt Hgt"},
    {kStatNth,       " 1/10th Amp Avg"},
    {kStatNth + 1,   " 1/10th Top Avg"},
    {kStatNth + 2,   " 1/10th bot Avg"},
    {kStatNth + 3,   " 1/10th Dbl Amp"},
    {kStatSsa,       " SSA           "},
};

using Cells = std::array<float, 4>;  // half width, low, estimate, high

struct IntervalValues {
  RecordStats record;
  RecordPeakStats third, nth;
};

Cells Symmetric(float estimate, float half_width) {
  return {half_width, estimate - half_width, estimate, estimate + half_width};
}

// A low end that can't be below 0.
Cells NotNegative(float estimate, float half_width) {
  Cells cells = Symmetric(estimate, half_width);
  if (cells[1] < 0.0F) cells[1] = 0.0F;
  return cells;
}

Cells PeakCells(int side, const RecordPeakStats& p) {
  if (side == 0) return NotNegative(p.xpkN, p.xpkNci);
  if (side == 1) return Symmetric(p.xpkNt, p.xpkNtci);
  if (side == 2) return Symmetric(p.xpkNb, p.xpkNbci);
  Cells cells = NotNegative(p.xpkNt - p.xpkNb, p.xpkNtci + p.xpkNbci);
  cells[3] = ((p.xpkNt + p.xpkNtci) + p.xpkNbci) - p.xpkNb;  // the top's high, then the bottom
  return cells;
}

Cells CellsOf(int number, const IntervalValues& v) {
  if (number >= kStatNth && number < kStatNth + kStatSides) return PeakCells(number - kStatNth, v.nth);
  if (number >= kStatThird && number < kStatThird + kStatSides) return PeakCells(number - kStatThird, v.third);
  if (number == kStatMean) return Symmetric(v.record.xm, v.record.xmci);
  if (number == kStatVariance) return NotNegative(v.record.xv, v.record.xvci);
  Cells cells = Symmetric(v.record.xs, v.record.xsci);
  if (number == kStatSsa)
    for (float& cell : cells) cell = 2.0F * cell;
  return cells;
}

bool NeedsPeaks(int number) {
  return number == kStatTable || (number >= kStatThird && number < kStatNth + kStatSides);
}

// Statistic 0: everything. False: an argument was refused and it has been said.
bool FindIntervals(const Console& console, const StatisticName& statistic, std::span<const float> x, float prob,
                   IntervalValues& out) {
  constexpr int kIntervals = 1, kPeakIntervals = 0;  // options of the two routines
  const int number = statistic.number;
  std::vector<std::string> lines;
  if (number == kStatTable || !NeedsPeaks(number)) {
    const StatFault fault = CalcRecordStats(kIntervals, x, prob, out.record);
    lines = StatFaultLines(fault, "CalcRecordStats", 0, kIntervals, prob);
  }
  if (lines.empty() && NeedsPeaks(number)) {
    const int N[] = {3, std::max(1, statistic.N)};
    RecordPeakStats peaks[std::size(N)];
    const StatFault fault = CalcRecordPeakStats(N, kPeakIntervals, x, prob, peaks);
    lines = StatFaultLines(fault, "CalcRecordPeakStats", N[1], kPeakIntervals, prob);
    out.third = peaks[0];
    out.nth = peaks[1];
  }
  for (const std::string& line : lines) SayLine(console, line);
  return lines.empty();
}

// What stands in the column "Quantity      " of a curve, separator included; blank: there is no such column.
std::string QuantityCell(const OutputSettings& settings, const StatRequest& request, const PlotData& data,
                         std::size_t i) {
  const bool several = data.y.size() > 1;
  if (!several && IsBlank(request.text)) return {};
  const std::string& name = several ? data.labels[i] : request.text;
  const char separator = static_cast<char>(settings.separator);
  if (settings.separator != Separator::space) return QuotedName(settings.separator, name) + separator;
  return fmt::format("{:<{}}{}", TrimEnd(name), kQuantityHead.size(), separator);
}

void AppendHeads(const OutputSettings& settings, const StatRequest& request, const CaseStore& c, const OutputFile& out,
                 bool quantity_column, std::string& text) {
  std::vector<std::string> names{" Statistic     ", "Cnfdnce Intvl", " Low (est-CI)", "  Estimate   ", "High (est+CI)"};
  if (quantity_column) names.insert(names.begin(), std::string(kQuantityHead));
  if (out.had_text) text += '\n';
  fmt::format_to(std::back_inserter(text),
                 "Statistical estimates with confidence interval of {} for ZAVO file {}\n"
                 "Confidence Interval Probability= {}\n",
                 cQntLong(request.quantity.iqnt), c.file_name, Shown{settings.confidence_probability});
  AppendHeading(text, LayoutFor(settings.separator, names), names);
}

void AppendRows(const OutputSettings& settings, const std::string& quantity, const IntervalValues& values,
                std::string& text) {
  TableLayout layout;  // all cells are of the usual width
  layout.separator = settings.separator;
  for (const IntervalRow& row : kRows) {
    text += quantity;
    AppendLabelledRow(text, layout, row.label, CellsOf(row.number, values));
  }
}

// One bare line: text as typed, then four cells a curve.
void AppendLine(const OutputSettings& settings, const StatRequest& request, std::span<const IntervalValues> curves,
                std::string& text) {
  std::vector<float> cells;
  for (const IntervalValues& values : curves) {
    const Cells four = CellsOf(request.statistic.number, values);
    cells.insert(cells.end(), four.begin(), four.end());
  }
  AppendBareLine(settings.separator, request.text, cells, text);
}

TableFault WriteTable(const Console& console, const OutputSettings& settings, const StatRequest& request,
                      CaseStore& case_store, OutputFile& out) {
  StatRecord record;
  const TableFault fault =
      TakeRecord(console, settings, request.quantity, kTooManySkipped, kNoMemory, case_store, record);
  if (fault != TableFault::none) return fault;
  std::vector<IntervalValues> curves(record.data.y.size());
  for (std::size_t i = 0; i < curves.size(); ++i)
    if (!FindIntervals(console, request.statistic, record.curve(i), settings.confidence_probability, curves[i]))
      return TableFault::said;

  std::string text;
  if (request.statistic.number == kStatTable) {
    const bool quantity_column = curves.size() > 1 || !IsBlank(request.text);
    AppendHeads(settings, request, case_store, out, quantity_column, text);
    for (std::size_t i = 0; i < curves.size(); ++i)
      AppendRows(settings, QuantityCell(settings, request, record.data, i), curves[i], text);
  } else {
    AppendLine(settings, request, curves, text);
  }
  WriteOutput(out, text);
  return TableFault::none;
}

}  // namespace

bool HasInterval(int number) {
  if (number == kStatTable) return true;
  return std::any_of(std::begin(kRows), std::end(kRows), [number](const IntervalRow& r) { return r.number == number; });
}

TableFault WriteIntervals(const Console& console, const OutputSettings& settings, const StatRequest& request,
                          CaseStore& case_store, OutputFile& out) {
  const int number = request.statistic.number;
  if (!HasInterval(number)) {
    Say(console, kNoInterval, number);
    return TableFault::said;
  }
  try {
    return WriteTable(console, settings, request, case_store, out);
  } catch (const std::bad_alloc&) {
    SayLine(console, kNoMemory);
    return TableFault::said;
  }
}

}  // namespace zaview
