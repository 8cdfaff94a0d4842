#include "stats/tables/histogram_table.h"

#include <iterator>

#include "base/message.h"
#include "base/number_format.h"
#include "case/quantity_catalogue.h"
#include "case/quantity_label.h"

namespace zaview {
namespace {

inline constexpr std::string_view kTooManySkipped = "ERR495 - Too many steps skipped or trimmed in histogram setup";

constexpr std::string_view kHeads =
    "    Bucket        Bucket        Bucket      Number        Fraction of\n"
    "    Min           Max           Mid         Data Pts      Total Points\n";
constexpr std::string_view kFit = "Theoretical Probability Distribution Fit:\n";
constexpr std::string_view kFitHeads =
    "               Expected #     Expect Frac\n"
    "    Value       Data Pts      Total Points\n";

// The current record alone, as an ensemble of one.
struct OneRecord {
  EnsembleStore none;
  StatisticsState state;
};

struct FitLine {
  Overlay overlay;
  std::string_view label;
  float Histogram::*value;  // null: a line of words
};
constexpr FitLine kFitLines[] = {
    {Overlay::uniform, "Uniform distribution", nullptr},
    {Overlay::normal, "Normal (Gaussian) distribution", nullptr},
    {Overlay::normal, "Mean        =", &Histogram::mean},
    {Overlay::normal, "Variance    =", &Histogram::variance},
    {Overlay::gramm_charlier, "Gramm-Charlier distribution", nullptr},
    {Overlay::gramm_charlier, "Mean        =", &Histogram::mean},
    {Overlay::gramm_charlier, "Variance    =", &Histogram::variance},
    {Overlay::gramm_charlier, "Skew        =", &Histogram::skew},
    {Overlay::gramm_charlier, "Excess      =", &Histogram::excess},
    {Overlay::rayleigh, "Rayleigh distribution", nullptr},
    {Overlay::rayleigh, "Variance    =", &Histogram::variance},
    {Overlay::exponential, "Exponential distribution", nullptr},
    {Overlay::exponential, "Lambda      =", &Histogram::lambda},
};

void AppendCells(std::span<const float> cells, std::string& text) {
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (i > 0) text += ' ';
    AppendPaddedCell(text, cells[i]);
  }
  text += '\n';
}

// Number and fraction of what is held in the unit asked for.
struct Pair {
  float number, fraction;
};
Pair BothUnits(const HistogramRequest& request, const Histogram& h, float value) {
  const auto npts = static_cast<float>(h.npts);
  if (!request.counts) return {value * npts, value};
  return {value, h.npts == 0 ? 0.0F : value / npts};
}

void AppendFit(const HistogramRequest& request, const Histogram& h, std::string& text) {
  text += '\n';
  text += kFit;
  for (const std::string& line : DistributionLines(request.overlay, h)) text.append(line) += '\n';
  text += kFitHeads;
  for (std::size_t j = 0; j < h.expected.size(); ++j) {
    const Pair expected = BothUnits(request, h, h.expected[j]);
    const float cells[] = {h.mid[j], expected.number, expected.fraction};
    AppendCells(cells, text);
  }
}

void AppendTable(const HistogramRequest& request, const CaseStore& c, const QuantityRequest& quantity,
                 const Histogram& h, std::string& text) {
  fmt::format_to(std::back_inserter(text), "Histogram of {} for ZAVO file {}{}\n Total data points = {}\n",
                 QuantityLabel(c, quantity.iqnt), c.file_name, PointNote(c, quantity), h.npts);
  text += kHeads;
  for (std::size_t j = 0; j < h.count.size(); ++j) {
    const float low = h.edges[j], high = h.edges[j + 1];
    const Pair points = BothUnits(request, h, h.count[j]);
    const float cells[] = {low, high, (low + high) / 2.0F, points.number, points.fraction};
    AppendCells(cells, text);
  }
  if (request.overlay != Overlay::none) AppendFit(request, h, text);
}

DataFault Make(const StatWork& work, const QuantityRequest& request, const HistogramRequest& how,
               Histogram& histogram) {
  const Console& console = work.console();
  const DataFault fault = LoadEnsemble(work, request, kTooManySkipped);
  if (fault != DataFault::none) return fault;
  const EnsembleData& data = work.state.ensemble;
  const bool one_record = data.X.size() == 1;
  if (one_record && data.X[0].size() < 2) {
    SayLine(console, kTooManySkipped);
    return DataFault::said;
  }
  // Positions count from the first point in use; the points skipped are the same for all records.
  const int skip = data.key.skip_initial == 0 ? 0 : (data.key.skip_initial + data.stride - 1) / data.stride;
  if (!SetHistogramData(how, SamplesOf(data), skip, histogram)) {
    SayLine(console, kNoWorkingArrays);
    return DataFault::said;
  }
  if (how.overlay != Overlay::none) Say(console, "chi2= {}", Shown{histogram.chi2});
  return DataFault::none;
}

}  // namespace

std::vector<std::string> DistributionLines(Overlay overlay, const Histogram& histogram) {
  std::vector<std::string> lines;
  for (const FitLine& line : kFitLines) {
    if (line.overlay != overlay) continue;
    lines.push_back(line.value == nullptr ? std::string(line.label)
                                          : fmt::format("{} {}", line.label, Shown{histogram.*line.value}));
  }
  return lines;
}

DataFault MakeHistogram(const StatWork& work, const QuantityRequest& request, bool of_ensemble, Histogram& histogram) {
  const HistogramRequest& how = work.state.histogram;
  return MakeOrSay(work.console(), kNoWorkingArrays, [&] {
    if (of_ensemble) return Make(work, request, how, histogram);
    OneRecord one;
    return Make({work.platform, work.settings, {work.current(), one.none}, one.state}, request, how, histogram);
  });
}

DataFault WriteHistogram(const StatWork& work, const QuantityRequest& request, bool of_ensemble, OutputFile& out) {
  Histogram histogram;
  const DataFault fault = MakeHistogram(work, request, of_ensemble, histogram);
  if (fault != DataFault::none) return fault;
  return MakeOrSay(work.console(), kNoWorkingArrays, [&] {
    std::string text = out.had_text ? "\n" : "";
    AppendTable(work.state.histogram, work.current(), request, histogram, text);
    WriteOutput(out, text);
    return DataFault::none;
  });
}

}  // namespace zaview
