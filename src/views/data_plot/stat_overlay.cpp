#include "views/data_plot/stat_overlay.h"

#include <fmt/format.h>

#include "base/number_format.h"
#include "stats/peak_stats.h"
#include "stats/record_stats.h"

namespace zaview {

namespace {

constexpr int kMeanColour = 2, kFirstColour = 3, kSecondColour = 4;
constexpr std::string_view kMean = "Mean", kMeanText = "Mean (avg)  =";

struct PeakTexts {
  int N;
  std::string_view top_name, bottom_name, top, bottom, amplitude, double_amplitude;
};
constexpr PeakTexts kPeakTexts[] = {
    {3, "Avg top 1/3", "Avg bot 1/3", "Avg top 1/3 =", "Avg bot 1/3 =", "1/3 Amp Avg =", "Dbl Amp Avg ="},
    {10, "Avg top 1/10", "Avg bot 1/10", "Avg top 1/10=", "Avg bot 1/10=", "1/10 Amp Avg=", "Dbl  Amp Avg="},
};

void AddText(StatOverlay& out, std::string_view label, float value) {
  out.texts.push_back(fmt::format("{} {}", label, SentenceNumber(value)));
}

void AddPeaks(const PeakTexts& texts, std::span<const float> x, float prob, StatOverlay& out) {
  RecordPeakStats peaks;
  const StatFault fault = CalcRecordPeakStats(texts.N, kPeakAveragesOnly, x, prob, peaks);
  // Of fewer peaks than N no average is made.
  if (fault != StatFault::none || peaks.Npks <= texts.N) {
    out.texts.emplace_back(kNoPeaks);
    return;
  }
  if (peaks.Npkst > texts.N) {
    out.lines.push_back({peaks.xpkNt, kFirstColour, std::string(texts.top_name)});
    AddText(out, texts.top, peaks.xpkNt);
  }
  if (peaks.Npksb > texts.N) {
    out.lines.push_back({peaks.xpkNb, kSecondColour, std::string(texts.bottom_name)});
    AddText(out, texts.bottom, peaks.xpkNb);
  }
  AddText(out, texts.amplitude, peaks.xpkN);
  if (peaks.Npkst > texts.N && peaks.Npksb > texts.N) AddText(out, texts.double_amplitude, peaks.xpkNt - peaks.xpkNb);
}

void AddDeviation(const RecordStats& stats, StatOverlay& out) {
  constexpr std::string_view kName = "Avg +/- StDev";
  out.lines.push_back({stats.xm + stats.xs, kFirstColour, std::string(kName)});
  out.lines.push_back({stats.xm - stats.xs, kSecondColour, std::string(kName)});
  AddText(out, "StDev       =", stats.xs);
  AddText(out, "Variance    =", stats.xv);
  AddText(out, "SSA=", 2.0F * stats.xs);
}

void AddExtremes(const RecordStats& stats, StatOverlay& out) {
  out.lines.push_back({stats.xmax, kFirstColour, "Maximum"});
  out.lines.push_back({stats.xmin, kSecondColour, "Minimum"});
  AddText(out, "Maximum =", stats.xmax);
  AddText(out, "Minimum =", stats.xmin);
}

}  // namespace

void MakeStatOverlay(int show_stats, std::span<const float> x, float prob, StatOverlay& out) {
  out.lines.clear();
  out.texts.clear();
  if (show_stats < 1 || show_stats > 4 || x.empty()) return;
  RecordStats stats;
  if (CalcRecordStats(kNoHalfWidths, x, prob, stats) != StatFault::none) return;
  out.lines.push_back({stats.xm, kMeanColour, std::string(kMean)});
  AddText(out, kMeanText, stats.xm);
  if (show_stats <= 2) AddPeaks(kPeakTexts[show_stats - 1], x, prob, out);
  else if (show_stats == 3) AddDeviation(stats, out);
  else AddExtremes(stats, out);
}

}  // namespace zaview
