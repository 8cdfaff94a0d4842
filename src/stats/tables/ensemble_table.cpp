#include "stats/tables/ensemble_table.h"

#include <algorithm>
#include <iterator>
#include <vector>

#include "base/message.h"
#include "base/number_format.h"
#include "base/table_text.h"
#include "base/text.h"
#include "case/quantity_catalogue.h"
#include "case/quantity_label.h"
#include "stats/ensemble_stats.h"
#include "stats/tables/find_intervals.h"
#include "stats/tables/interval_table.h"
#include "stats/tables/statistic_values.h"

namespace zaview {
namespace {

inline constexpr std::string_view kTooManySkipped = "ERR495 - Too many steps skipped or trimmed in statistics output";
inline constexpr std::string_view kNotRelevant = "ERR494 - NDTF/RAO and PHASE not relevant for ensemble statistics";
inline constexpr std::string_view kNotHere = "ERR496 - statistic option not implemented for ensemble statistics";
inline constexpr std::string_view kBadCurve = "ERROR - Invalid curve index for specified quantity";

constexpr int kThird = 3;
constexpr int kTableRows[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, kStatSsa};

// Can this statistic be had? If not, it has been said why.
bool Available(const Console& console, const StatisticName& statistic) {
  const int number = statistic.number;
  if (number >= kStatNdtf && number <= kStatPhaseLead) SayLine(console, kNotRelevant);
  else if (number > kStatAbsolute && number != kStatSsa) SayLine(console, kNotHere);
  else if (statistic.interval && !HasInterval(number)) Say(console, kHasNoInterval, number);
  else return true;
  return false;
}

struct RecordRow {
  float xm = 0, xs = 0, third = 0;
};

struct EnsembleValues {
  IntervalValues values;  // with or without half widths
  std::vector<RecordRow> records;
};

void FindRecords(EnsembleRecords X, float prob, std::vector<RecordRow>& rows) {
  for (const std::span<const float> x : X) {
    RecordStats stats;
    RecordPeakStats peaks;
    (void)CalcRecordStats(kNoHalfWidths, x, prob, stats);
    (void)CalcRecordPeakStats(kThird, kPeakAveragesOnly, x, prob, peaks);
    rows.push_back({stats.xm, stats.xs, peaks.xpkN});
  }
}

// False: it couldn't be found and it has been said.
bool FindValues(const StatWork& work, const StatisticName& statistic, EnsembleValues& out) {
  const std::vector<std::span<const float>> X = SamplesOf(work.state.ensemble);
  const StatisticSettings& settings = work.settings.statistics;
  if (!FindEnsembleIntervals(work.platform, settings, statistic, X, work.state.nmany, out.values)) return false;
  WarnIfTooShort(work.console(), statistic, out.values);
  if (statistic.number == kStatTable && !statistic.interval)
    FindRecords(X, settings.confidence_probability, out.records);
  return true;
}

float ValueOf(int number, const EnsembleValues& v) {
  constexpr std::size_t kEstimate = 2;
  if (number == kStatMinimum) return v.values.record.xmin;
  if (number == kStatMaximum) return v.values.record.xmax;
  if (number == kStatAbsolute) return std::max(v.values.record.xmax, -v.values.record.xmin);
  return IntervalCellsOf(number, v.values)[kEstimate];
}

void AppendRecordRows(Separator separator, const EnsembleValues& v, std::string& text) {
  const std::string names[] = {"Record stats:", "Mean", "StDev", "1/3rd Amp Avg"};
  const TableLayout layout = LayoutFor(separator, names);
  AppendHeading(text, layout, names);
  int number = 0;
  for (const RecordRow& row : v.records) {
    const float cells[] = {row.xm, row.xs, row.third};
    const std::string label = fmt::format("{:>{}}", ++number, layout.widths[0]);
    AppendLabelledRow(text, layout, label, cells);
  }
}

void AppendTable(const OutputSettings& settings, const StatRequest& request, const QuantityRequest& one,
                 const EnsembleCases& cases, const EnsembleValues& v, std::string& text) {
  std::string name = EnsembleCurveName(settings, one, cases);
  const bool titled = !IsBlank(request.text);
  if (titled && !request.statistic.interval)
    name = fmt::format("{}, {}", QuantityLabel(cases.current, one.iqnt), Trim(request.text));
  name += PointNote(cases.current, one);
  auto to = std::back_inserter(text);
  if (request.statistic.interval) {
    fmt::format_to(to, "Ensemble stats with Confidence Interval; {} records\n{}\n", cases.count(), name);
    text += IntervalMethodLines(settings.statistics);
    AppendIntervalHeading(settings.writing.separator, titled, text);
    AppendIntervalRows(settings, titled ? request.text : "", IntervalWords::ensemble, v.values, text);
    return;
  }
  fmt::format_to(to, "Ensemble stats; {} records\n{}\n", cases.count(), name);
  AppendRecordRows(settings.writing.separator, v, text);
  text += "Ensemble stats:\n";
  TableLayout layout;  // all cells are of the usual width
  layout.separator = settings.writing.separator;
  for (const int number : kTableRows) {
    const float cell[] = {ValueOf(number, v)};
    AppendLabelledRow(text, layout, StatisticLabel(number, false), cell);
  }
}

void AppendCells(const StatRequest& request, const EnsembleValues& v, std::vector<float>& cells) {
  const int number = request.statistic.number;
  if (!request.statistic.interval) return cells.push_back(ValueOf(number, v));
  const IntervalCells four = IntervalCellsOf(number, v.values);
  cells.insert(cells.end(), four.begin(), four.end());
}

DataFault WriteStatistics(const StatWork& work, const StatRequest& request, OutputFile& out) {
  const auto& [platform, settings, cases, state] = work;
  const Console& console = platform.console;
  const int curves = CurveCount(cases.current, request.quantity.iqnt);
  if (curves < 1) return DataFault::not_valid;
  if (request.quantity.curve > curves) {
    SayLine(console, kBadCurve);
    return DataFault::said;
  }
  const bool all = request.quantity.curve < 1;
  QuantityRequest one = request.quantity;
  std::string text;
  std::vector<float> cells;
  for (int curve = all ? 1 : one.curve; curve <= (all ? curves : request.quantity.curve); ++curve) {
    one.curve = curve;
    const DataFault fault = LoadEnsemble(work, one, kTooManySkipped);
    if (fault != DataFault::none) return fault;
    SayLine(console, "Computing statistics...");
    EnsembleValues values;
    if (!FindValues(work, request.statistic, values)) return DataFault::said;
    if (request.statistic.number != kStatTable) {
      AppendCells(request, values, cells);
      continue;
    }
    if (!text.empty() || out.had_text) text += '\n';
    AppendTable(settings, request, one, cases, values, text);
  }
  if (request.statistic.number != kStatTable)
    AppendBareLine(settings.writing.separator, request.text, cells, text, NoInterval(settings.statistics));
  WriteOutput(out, text);
  return DataFault::none;
}

// ---- Autocorrelation

void WriteRows(const TableLayout& layout, std::span<const float> lags, std::span<const float> values, float dt,
               std::string& text, OutputFile& out) {
  for (std::size_t i = 0; i < values.size(); ++i) {
    const float lag = lags.empty() ? static_cast<float>(i) : lags[i];
    const float cells[] = {lag * dt, values[i]};
    AppendRow(text, layout, cells);
    WriteGathered(out, text);
  }
}

void WriteAutoCorrelation(const OutputSettings& settings, const StatisticsState& state, OutputFile& out) {
  EnsembleAutoCov autocov;
  CalcEnsembleAutoCov(SamplesOf(state.ensemble), settings.statistics.autocorrelation_cutoff, true, autocov);
  const std::string names[] = {"dTime", "Rax"}, envelope_names[] = {"dTime", "Raxe"};
  const TableLayout layout = LayoutFor(settings.writing.separator, names);
  std::string text = out.had_text ? "\n" : "";
  text += "Ensemble Averaged Autocorrelation\n";
  AppendHeading(text, layout, names);
  WriteRows(layout, {}, autocov.ratio, state.ensemble.dt, text, out);
  text += "\nEnvelope curve\n";
  AppendHeading(text, layout, envelope_names);
  WriteRows(layout, autocov.env_lag, autocov.env_R, state.ensemble.dt, text, out);
  text += '\n' + DependenceLine(state.dependence) + '\n';
  WriteOutput(out, text);
}

}  // namespace

DataFault EnsembleStat(const StatWork& work, const StatRequest& request, OutputFile& out) {
  const Console& console = work.console();
  if (!Available(console, request.statistic)) return DataFault::said;
  return MakeOrSay(console, kNoWorkingArrays, [&] { return WriteStatistics(work, request, out); });
}

DataFault EnsembleAutoCorrelation(const StatWork& work, const QuantityRequest& request, bool dependence_only,
                                  OutputFile& out) {
  return MakeOrSay(work.console(), kNoWorkingArrays, [&] {
    const DataFault fault = UpdateDependence(work, request);
    if (fault != DataFault::none) return fault;
    if (dependence_only) WriteOutput(out, DependenceLine(work.state.dependence) + '\n');
    else WriteAutoCorrelation(work.settings, work.state, out);
    return DataFault::none;
  });
}

}  // namespace zaview
