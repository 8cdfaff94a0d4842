#include "stats/tables/interval_table.h"

#include <algorithm>
#include <iterator>
#include <vector>

#include "base/message.h"
#include "base/number_format.h"
#include "base/table_text.h"
#include "base/text.h"
#include "case/quantity_catalogue.h"
#include "case/quantity_label.h"
#include "stats/interval_cells.h"
#include "stats/tables/find_intervals.h"
#include "stats/tables/statistic_values.h"

namespace zaview {
namespace {

inline constexpr std::string_view kTooManySkipped =
    "ERR495 - Too many steps skipped or trimmed in confidence interval calculation";

constexpr std::string_view kQuantityHead = "Quantity      ";

struct IntervalRow {
  int number;  // of the statistic
  std::string_view label, ensemble_label;
};
constexpr IntervalRow kRows[] = {
    {kStatMean, " Mean          ", " Mean          "},      {kStatVariance, " Variance      ", " Variance      "},
    {kStatStdev, " Std. Deviation", " Std. Deviation"},     {kStatThird, " Significnt Amp", " Significnt Amp"},
    {kStatThird + 1, " 1/3rd Top Avg ", " 1/3rd Top Avg "}, {kStatThird + 2, " 1/3rd bot Avg ", " 1/3rd Bot Avg "},
    {kStatThird + 3, " Significnt Hgt", " Significnt Hgt"}, {kStatNth, " 1/10th Amp Avg", " 1/10th Amp Avg"},
    {kStatNth + 1, " 1/10th Top Avg", " 1/10th Top Avg"},   {kStatNth + 2, " 1/10th bot Avg", " 1/10th Bot Avg"},
    {kStatNth + 3, " 1/10th Dbl Amp", " 1/10th Dbl Avg"},   {kStatSsa, " SSA           ", " SSA           "},
};

// What stands in the column "Quantity      " of a curve; blank: there is no such column.
std::string QuantityOf(const StatRequest& request, const PlotData& data, std::size_t i) {
  const bool several = data.y.size() > 1;
  return several ? data.labels[i] : IsBlank(request.text) ? std::string() : request.text;
}

void AppendTitle(const OutputSettings& settings, const StatRequest& request, const CaseStore& c, const OutputFile& out,
                 std::string& text) {
  if (out.had_text) text += '\n';
  fmt::format_to(std::back_inserter(text), "Statistical estimates with confidence interval of {} for ZAVO file {}{}\n",
                 cQntLong(request.quantity.iqnt), c.file_name, PointNote(c, request.quantity));
  text += IntervalMethodLines(settings.statistics);
}

// One bare line: text as typed, then four cells a curve.
void AppendLine(const OutputSettings& settings, const StatRequest& request, std::span<const IntervalValues> curves,
                std::string& text) {
  std::vector<float> cells;
  for (const IntervalValues& values : curves) {
    const IntervalCells four = IntervalCellsOf(request.statistic.number, values);
    cells.insert(cells.end(), four.begin(), four.end());
  }
  AppendBareLine(settings.writing.separator, request.text, cells, text, NoInterval(settings.statistics));
}

DataFault WriteTable(const StatWork& work, const StatRequest& request, OutputFile& out) {
  const OutputSettings& settings = work.settings;
  const CaseStore& case_store = work.current();
  StatRecord record;
  const DataFault fault = TakeRecord(work, request.quantity, kTooManySkipped, kNoWorkingArrays, record);
  if (fault != DataFault::none) return fault;
  std::vector<IntervalValues> curves(record.data.y.size());
  StatisticName statistic = request.statistic;
  statistic.interval = true;
  for (std::size_t i = 0; i < curves.size(); ++i) {
    if (!FindIntervals(work.platform, settings.statistics, statistic, record.curve(i), curves[i]))
      return DataFault::said;
    WarnIfTooShort(work.console(), statistic, curves[i]);
  }

  std::string text;
  if (request.statistic.number == kStatTable) {
    const bool quantity_column = curves.size() > 1 || !IsBlank(request.text);
    AppendTitle(settings, request, case_store, out, text);
    AppendIntervalHeading(settings.writing.separator, quantity_column, text);
    for (std::size_t i = 0; i < curves.size(); ++i)
      AppendIntervalRows(settings, QuantityOf(request, record.data, i), IntervalWords::record, curves[i], text);
  } else {
    AppendLine(settings, request, curves, text);
  }
  WriteOutput(out, text);
  return DataFault::none;
}

}  // namespace

void AppendIntervalHeading(Separator separator, bool quantity_column, std::string& text) {
  std::vector<std::string> names{" Statistic     ", "Cnfdnce Intvl", " Low (est-CI)", "  Estimate   ", "High (est+CI)"};
  if (quantity_column) names.insert(names.begin(), std::string(kQuantityHead));
  AppendHeading(text, LayoutFor(separator, names), names);
}

void AppendIntervalRows(const OutputSettings& settings, std::string_view quantity, IntervalWords words,
                        const IntervalValues& values, std::string& text) {
  const Separator separator = settings.writing.separator;
  std::string ahead;
  if (!quantity.empty() && separator != Separator::space) ahead = QuotedName(separator, quantity);
  else if (!quantity.empty()) ahead = fmt::format("{:<{}}", TrimEnd(quantity), kQuantityHead.size());
  if (!quantity.empty()) ahead += static_cast<char>(separator);
  TableLayout layout;  // all cells are of the usual width
  layout.separator = separator;
  layout.no_number = NoInterval(settings.statistics);
  for (const IntervalRow& row : kRows) {
    text += ahead;
    const std::string_view label = words == IntervalWords::ensemble ? row.ensemble_label : row.label;
    AppendLabelledRow(text, layout, label, IntervalCellsOf(row.number, values));
  }
}

bool HasInterval(int number) {
  if (number == kStatTable) return true;
  return std::any_of(std::begin(kRows), std::end(kRows), [number](const IntervalRow& r) { return r.number == number; });
}

DataFault WriteIntervals(const StatWork& work, const StatRequest& request, OutputFile& out) {
  const Console& console = work.console();
  const int number = request.statistic.number;
  if (!HasInterval(number)) {
    Say(console, kHasNoInterval, number);
    return DataFault::said;
  }
  return MakeOrSay(console, kNoWorkingArrays, [&] { return WriteTable(work, request, out); });
}

}  // namespace zaview
