#include "stats/tables/rate_tables.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "base/message.h"
#include "base/number_format.h"
#include "base/table_text.h"
#include "case/quantity_catalogue.h"
#include "case/quantity_label.h"
#include "stats/tables/statistic_values.h"
#include "stats/upcrossings.h"

namespace zaview {
namespace {

inline constexpr std::string_view kList = "exceedance.list";
inline constexpr std::string_view kBlockList = "block_exceedance.list";

// ---- Cells of several widths in a line

// Joins cells with the separator; with SPACE each is right-justified in its width.
class Line {
 public:
  Line(Separator separator, std::string& text) : separator_(separator), text_(text) {}
  Line& Integer(std::int64_t value, int width) {
    Begin();
    if (separator_ == Separator::space) fmt::format_to(std::back_inserter(text_), "{:>{}}", value, width);
    else fmt::format_to(std::back_inserter(text_), "{}", value);
    return *this;
  }
  Line& Cell(float value) {
    Begin();
    if (separator_ == Separator::space) AppendPaddedCell(text_, value);
    else AppendCell(text_, value);
    return *this;
  }
  void End() { text_ += '\n'; }

 private:
  void Begin() {
    if (!first_) text_ += static_cast<char>(separator_);
    first_ = false;
  }
  Separator separator_;
  std::string& text_;
  bool first_ = true;
};

// A head that stands as it is with SPACE, else as names.
struct Head {
  std::string_view lines;  // with their line ends
  std::span<const std::string_view> names;
};

void AppendHead(Separator separator, const Head& head, std::string& text) {
  if (separator == Separator::space) {
    text += head.lines;
    return;
  }
  for (std::size_t i = 0; i < head.names.size(); ++i) {
    if (i > 0) text += static_cast<char>(separator);
    text += QuotedName(separator, head.names[i]);
  }
  text += '\n';
}

// ---- What all three have in common

float TotalTime(const EnsembleData& data) {
  float total = 0;
  for (const std::vector<float>& t : data.t)
    if (!t.empty()) total += t.back() - t.front();
  return total;
}

// Of a total time of 0 (one step) there is no rate: 0.
float PerTime(float amount, float total_time) {
  return total_time > 0.0F ? amount / total_time : 0.0F;
}

// File step of a sample; both numbers from 1.
int StepOf(const EnsembleData& data, int record, int position) {
  return data.first_step[static_cast<std::size_t>(record - 1)] + (position - 1) * data.stride;
}

// The time of a dependence length: as interpolated where it is the computed one.
float DependenceTime(const StatisticsState& state, int ndep) {
  if (ndep == state.dependence.ndti) return state.dependence.dti;
  return state.ensemble.dt * static_cast<float>(ndep);
}

// Writes a list beside the report, in place of the one before. A list that can't be written is left out.
void WriteList(const Platform& platform, std::string_view name, std::string_view done, const std::string& text) {
  OutputFile list;
  if (!OpenOutput(platform, name, OpenHow::replace, list))
    return Say(platform.console, "WARNING - {} is not written{}", name, Because(list.why));
  WriteOutput(list, text);
  if (CloseOutput(list)) Say(platform.console, "{} {}", done, name);
  else Say(platform.console, kFileNotWritten, name, Because(list.why));
}

// One value of a report: its label in the sentence form, in the tabular form, and what stands behind the value.
struct ReportItem {
  std::string_view label, short_label, behind;
  bool count = false;
  float value = 0;
  std::int64_t number = 0;
};

// SPACE: a line each. COMMA, TAB: a row, under a head if the file is new or empty.
void AppendReport(Separator separator, bool head, std::span<const ReportItem> items, std::string& text) {
  if (separator == Separator::space) {
    for (const ReportItem& item : items) {
      const std::string value = item.count ? std::to_string(item.number) : SentenceNumber(item.value);
      fmt::format_to(std::back_inserter(text), "{} {}{}\n", item.label, value, item.behind);
    }
    return;
  }
  for (std::size_t i = 0; head && i < items.size(); ++i) {
    if (i > 0) text += static_cast<char>(separator);
    text += QuotedName(separator, items[i].short_label);
  }
  if (head) text += '\n';
  Line line(separator, text);
  for (const ReportItem& item : items) {
    if (item.count) line.Integer(item.number, 0);
    else line.Cell(item.value);
  }
  line.End();
}

// ---- Upcrossings

constexpr std::string_view kUpcrossingNames[] = {"Threshold Value", "Total Upcross", "Upcross Rate",  "Min Record",
                                                 "Max Record",      "Avg Record",    "Indep. Upcross"};
constexpr Head kUpcrossingHead{
    "Threshold    Total    Upcross     Min     Max     Avg  Indep.\n"
    "   Value     Upcross  Rate        Record  Record  Record Upcross\n",
    kUpcrossingNames};

DataFault Upcrossings(const StatWork& work, const UpcrossingRequest& request, OutputFile& out) {
  const auto& [platform, settings, cases, state] = work;
  const DataFault fault = UpdateDependence(work, request.quantity);
  if (fault != DataFault::none) return fault;
  const EnsembleData& data = state.ensemble;
  const std::vector<float> thresholds = Thresholds(request.min, request.max, request.increment);
  std::vector<UpcrossingRow> rows;
  UpCrossing(SamplesOf(data), MeanOfAll(data), thresholds, state.dependence.ndti, rows);

  const float T = TotalTime(data);
  constexpr int kCount = 7;
  std::string text = out.had_text ? "\n" : "";
  fmt::format_to(std::back_inserter(text), "Upcrossing Statistics for {}{}\nSimulation time= {}\nDependence time= {}\n",
                 QuantityLabel(cases.current, request.quantity.iqnt), PointNote(cases.current, request.quantity),
                 Shown{T}, Shown{state.dependence.dti});
  AppendHead(settings.writing.separator, kUpcrossingHead, text);
  for (const UpcrossingRow& row : rows) {
    Line line(settings.writing.separator, text);
    line.Cell(row.threshold).Integer(row.total, kCount).Cell(PerTime(static_cast<float>(row.total), T));
    line.Integer(row.min_record, kCount).Integer(row.max_record, kCount);
    line.Integer(row.total / cases.count(), kCount).Integer(row.independent, kCount).End();
  }
  WriteOutput(out, text);
  return DataFault::none;
}

// ---- Exceedances

constexpr std::string_view kListNames[] = {"Record", "Step", "Time"};
constexpr Head kListHead{"Record    Step     Time\n", kListNames};

std::string ListOf(Separator separator, const EnsembleData& data, const ExceedanceCount& count) {
  std::string text;
  AppendHead(separator, kListHead, text);
  for (const Exceedance& each : count.list) {
    Line line(separator, text);
    line.Integer(each.record, 6).Integer(StepOf(data, each.record, each.position), 7).Cell(each.time).End();
  }
  return text;
}

// The line of one selection, threshold first; a count stands as an integer.
void AppendSelected(Separator separator, const ExceedanceRequest& request, const ExceedanceCount& count,
                    const ExceedanceLimits& limits, float T, std::string& text) {
  const auto nind = static_cast<float>(count.nind);
  Line line(separator, text);
  line.Cell(request.threshold);
  switch (request.result) {
    case ExceedanceResult::rate_ci:
      line.Cell(PerTime(limits.low, T)).Cell(PerTime(nind, T)).Cell(PerTime(limits.high, T));
      break;
    case ExceedanceResult::rate:
      line.Cell(PerTime(nind, T));
      break;
    case ExceedanceResult::number:
      line.Integer(count.nind, kCellWidth);
      break;
    case ExceedanceResult::time_fraction:
      line.Cell(PerTime(count.Tex, T));
      break;
    case ExceedanceResult::total:
      line.Integer(count.total, kCellWidth);
      break;
    case ExceedanceResult::time:
      line.Cell(count.Tex);
      break;
    case ExceedanceResult::report:
    case ExceedanceResult::list:
      break;
  }
  line.End();
}

DataFault Exceedances(const StatWork& work, const ExceedanceRequest& request, OutputFile& out) {
  const auto& [platform, settings, cases, state] = work;
  const DataFault fault = UpdateDependence(work, request.quantity);
  if (fault != DataFault::none) return fault;
  const EnsembleData& data = state.ensemble;
  const int ndep = request.ndep < 1 && !request.ndep_is_given ? state.dependence.ndti : request.ndep;
  ExceedanceCount count;
  CountExceedances(SamplesOf(data), TimesOf(data), request.threshold, request.direction, ndep, count);
  const ExceedanceLimits limits = LimitsOf(count.nind, SampleCount(data), settings.statistics.confidence_probability);
  const float T = TotalTime(data);
  std::string text;
  if (request.result == ExceedanceResult::list) {
    WriteOutput(out, ListOf(settings.writing.separator, data, count));
    return DataFault::none;
  }
  if (request.result != ExceedanceResult::report) {
    AppendSelected(settings.writing.separator, request, count, limits, T, text);
    WriteOutput(out, text);
    return DataFault::none;
  }
  WriteList(platform, kList, "Independent Exceedances written to", ListOf(settings.writing.separator, data, count));
  const auto nind = static_cast<float>(count.nind);
  const ReportItem items[] = {
      {"Threshold             =", "Threshold", "", false, request.threshold, 0},
      {"Total Time            =", "Total Time", "", false, T, 0},
      {"Dependence time       =", "Dependence time", "", false, DependenceTime(state, ndep), 0},
      {"Dependence steps      =", "Dependence steps", "", true, 0, ndep},
      {"Number of Exceedances =", "Number of Exceedances (indepdnent)", " (independent)", true, 0, count.nind},
      {"Number of Exceedances =", "Number of Exceedances (total)", " (total)", true, 0, count.total},
      {"Exceedance rate       =", "Exceedance rate", "", false, PerTime(nind, T), 0},
      {"Exceedance rate low   =", "Exceedance rate low", "", false, PerTime(limits.low, T), 0},
      {"Exceedance rate high  =", "Exceedance rate high", "", false, PerTime(limits.high, T), 0},
      {"Confidence probility  =", "Confidence probability.", "", false, settings.statistics.confidence_probability, 0},
      {"Exceedance time total =", "Exceedance time total", "", false, count.Tex, 0},
      {"Exceedance time frac. =", "Exceedance time frac.", "", false, PerTime(count.Tex, T), 0},
  };
  if (settings.writing.separator == Separator::space && out.had_text) text += '\n';
  AppendReport(settings.writing.separator, !out.had_text, items, text);
  WriteOutput(out, text);
  return DataFault::none;
}

// ---- Blocks

constexpr std::string_view kBlockNames[] = {"Block", "Record", "Step1", "Step2", "Min", "Max"};
constexpr Head kBlockHead{"Block Record Step1   Step2   Min         Max\n", kBlockNames};

std::string BlockListOf(Separator separator, const EnsembleData& data, const BlockCount& count) {
  std::string text;
  AppendHead(separator, kBlockHead, text);
  std::int64_t number = 0;
  for (const Block& block : count.blocks) {
    Line line(separator, text);
    line.Integer(++number, 5).Integer(block.record, 6);
    line.Integer(StepOf(data, block.record, block.first), 7).Integer(StepOf(data, block.record, block.last), 7);
    line.Cell(block.min).Cell(block.max).End();
  }
  return text;
}

DataFault BlockExceedances(const StatWork& work, const ExceedanceRequest& request, OutputFile& out) {
  const auto& [platform, settings, cases, state] = work;
  const DataFault fault = UpdateDependence(work, request.quantity);
  if (fault != DataFault::none) return fault;
  const EnsembleData& data = state.ensemble;
  const int ndep = std::max(1, request.ndep < 1 ? state.dependence.ndti : request.ndep);
  BlockCount count;
  CountBlocks(SamplesOf(data), request.threshold, request.direction, ndep, count);
  WriteList(platform, kBlockList, "Block min/max written to", BlockListOf(settings.writing.separator, data, count));
  const float T = TotalTime(data);
  const ReportItem items[] = {
      {"Total Time           =", "Total Time", "", false, T, 0},
      {"Dependence time      =", "Dependence time", "", false, data.dt * static_cast<float>(ndep), 0},
      {"Dependence steps     =", "Dependence steps", "", true, 0, ndep},
      {"Number of blocks     =", "Number of blocks", "", true, 0, static_cast<std::int64_t>(count.blocks.size())},
      {"Blocks w/exceedances =", "Blocks w/exceedances", "", true, 0, count.exceeding},
      {"Exceedance rate      =", "Exceedance rate", "", false, PerTime(static_cast<float>(count.exceeding), T), 0},
      {"Average block min    =", "Average block min", "", false, count.average_min, 0},
      {"Average block max    =", "Average block max", "", false, count.average_max, 0},
  };
  std::string text;
  if (settings.writing.separator == Separator::space && out.had_text) text += '\n';
  AppendReport(settings.writing.separator, !out.had_text, items, text);
  WriteOutput(out, text);
  return DataFault::none;
}

}  // namespace

DataFault WriteUpcrossings(const StatWork& work, const UpcrossingRequest& request, OutputFile& out) {
  return MakeOrSay(work.console(), kNoWorkingArrays, [&] { return Upcrossings(work, request, out); });
}

DataFault WriteExceedances(const StatWork& work, const ExceedanceRequest& request, OutputFile& out) {
  return MakeOrSay(work.console(), kNoWorkingArrays, [&] { return Exceedances(work, request, out); });
}

DataFault WriteBlockExceedances(const StatWork& work, const ExceedanceRequest& request, OutputFile& out) {
  return MakeOrSay(work.console(), kNoWorkingArrays, [&] { return BlockExceedances(work, request, out); });
}

}  // namespace zaview
