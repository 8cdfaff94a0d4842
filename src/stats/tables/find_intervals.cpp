#include "stats/tables/find_intervals.h"

#include <algorithm>
#include <iterator>
#include <vector>

#include <fmt/format.h>

#include "base/message.h"
#include "base/number_format.h"
#include "frame/ground/progress_line.h"
#include "stats/block_bootstrap.h"

namespace zaview {
namespace {

constexpr std::string_view kProbability = "Confidence Interval Probability= {}\n";
constexpr std::string_view kMethod = "Confidence Interval Method= Bootstrap, {} resamples, seed {}\n";
constexpr std::string_view kInterrupted = "Bootstrap interrupted at resample {}";
constexpr std::string_view kTooShort =
    "WARNING - Records too short for some confidence intervals: they cover {:.1f} dependence times,\n"
    "          {:.0f} are needed for mean and deviations, {:.0f} for 1/3rd, {:.0f} for 1/{}th averages";
constexpr int kBatch = 64;  // resamples from one look at the clock to the next

constexpr int kThird = 3;

// False: it was broken off.
bool FindBlockIntervals(const Platform& platform, const StatisticSettings& settings, const StatisticName& statistic,
                        EnsembleRecords X, IntervalValues& out) {
  BootstrapRequest request;
  request.N = std::max(1, statistic.N);
  request.prob = settings.confidence_probability;
  request.resamples = settings.bootstrap_resamples;
  request.seed = settings.bootstrap_seed;
  request.peaks = IntervalNeedsPeaks(statistic.number);
  Bootstrap bootstrap;
  BeginBootstrap(X, request, bootstrap);
  ProgressLine progress = StartProgress(platform, "Bootstrap");
  bool interrupted = false;
  while (!interrupted && MakeResamples(bootstrap, kBatch)) {
    ShowProgress(progress, static_cast<double>(bootstrap.made) / bootstrap.request.resamples);
    interrupted = TakeInterrupt(platform.console);
  }
  EndProgress(progress);
  if (interrupted) Say(platform.console, kInterrupted, bootstrap.made);
  out.by_blocks = true;
  out.blocks = IntervalsOf(bootstrap);
  return !interrupted;
}

bool SaidFaults(const Console& console, const std::vector<std::string>& lines) {
  for (const std::string& line : lines) SayLine(console, line);
  return !lines.empty();
}

bool ByBlocks(const StatisticSettings& settings, const StatisticName& statistic) {
  return statistic.interval && settings.interval_method == IntervalMethod::bootstrap;
}

bool NeedsMoments(int number) {
  return number == kStatTable || !IntervalNeedsPeaks(number);
}

bool IsMissing(const StatisticName& statistic, const BootstrapIntervals& blocks) {
  const int number = statistic.number;
  if (IsSideOf(kStatThird, number)) return !blocks.third[0].told;
  if (IsSideOf(kStatNth, number) || number == kStatTable) return !blocks.nth[0].told;
  return !blocks.mean.told;
}

}  // namespace

bool FindIntervals(const Platform& platform, const StatisticSettings& settings, const StatisticName& statistic,
                   std::span<const float> x, IntervalValues& out) {
  const Console& console = platform.console;
  const float prob = settings.confidence_probability;
  if (NeedsMoments(statistic.number)) {
    const StatFault fault = CalcRecordStats(kAllHalfWidths, x, prob, out.record);
    if (SaidFaults(console, StatFaultLines(fault, "CalcRecordStats", 0, kAllHalfWidths, prob))) return false;
  }
  if (IntervalNeedsPeaks(statistic.number)) {
    const int N[] = {kThird, std::max(1, statistic.N)};
    RecordPeakStats peaks[std::size(N)];
    const StatFault fault = CalcRecordPeakStats(N, kPeakHalfWidths, x, prob, peaks);
    if (SaidFaults(console, StatFaultLines(fault, "CalcRecordPeakStats", N[1], kPeakHalfWidths, prob))) return false;
    out.third = peaks[0];
    out.nth = peaks[1];
  }
  const std::span<const float> records[] = {x};
  return !ByBlocks(settings, statistic) || FindBlockIntervals(platform, settings, statistic, records, out);
}

bool FindEnsembleIntervals(const Platform& platform, const StatisticSettings& settings, const StatisticName& statistic,
                           EnsembleRecords X, int nmany, IntervalValues& out) {
  const Console& console = platform.console;
  const float prob = settings.confidence_probability;
  if (NeedsMoments(statistic.number)) {
    const int option = !statistic.interval             ? kNoHalfWidths
                       : statistic.number == kStatMean ? kMeanHalfWidth
                                                       : kAllHalfWidths;
    EnsembleStats stats;
    const StatFault fault = CalcEnsembleStats(option, X, prob, nmany, stats);
    if (SaidFaults(console, StatFaultLines(fault, "CalcEnsembleStats", 0, option, prob))) return false;
    out.record = {stats.xme, stats.xve, stats.xse, stats.xmeci, stats.xveci, stats.xseci, stats.xmin, stats.xmax};
  }
  if (IntervalNeedsPeaks(statistic.number)) {
    const int option = statistic.interval ? kPeakHalfWidths : kPeakAveragesOnly;
    const int N[] = {kThird, std::max(1, statistic.N)};
    RecordPeakStats peaks[std::size(N)];
    const StatFault fault = CalcEnsemblePeakStats(N, option, X, prob, peaks);
    if (SaidFaults(console, StatFaultLines(fault, "CalcEnsemblePeakStats", N[1], option, prob))) return false;
    out.third = peaks[0];
    out.nth = peaks[1];
  }
  return !ByBlocks(settings, statistic) || FindBlockIntervals(platform, settings, statistic, X, out);
}

int ResamplesInForce(const StatisticSettings& settings) {
  return ResamplesFor(settings.confidence_probability, settings.bootstrap_resamples);
}

std::string IntervalMethodLines(const StatisticSettings& settings) {
  std::string lines = fmt::format(kProbability, Shown{settings.confidence_probability});
  if (settings.interval_method == IntervalMethod::bootstrap)
    lines += fmt::format(kMethod, ResamplesInForce(settings), settings.bootstrap_seed);
  return lines;
}

std::string_view NoInterval(const StatisticSettings& settings) {
  return settings.interval_method == IntervalMethod::bootstrap ? "too-short" : "";
}

void WarnIfTooShort(const Console& console, const StatisticName& statistic, const IntervalValues& values) {
  if (!values.by_blocks || !IsMissing(statistic, values.blocks)) return;
  const int N = std::max(1, statistic.N);
  Say(console, kTooShort, values.blocks.dependence_times, kFewestDependenceTimes, FewestDependenceTimes(kThird),
      FewestDependenceTimes(N), N);
}

}  // namespace zaview
