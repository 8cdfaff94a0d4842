#include "stats/statistic_table.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <limits>

#include "base/text.h"

namespace zaview {
namespace {

struct StatisticRow {
  int number;
  std::array<std::string_view, 5> words;  // in capitals; unused ones are blank
  std::string_view label, file_label;     // 14 wide; the file's own label is blank where it is the same
  float (*value)(const RecordValues& v);  // null: what isn't made of a record alone
};

// A record without tops or without bottoms has no amplitude; its highest and lowest values are the mean.
using Peaks = HighestPeaks RecordValues::*;
template <Peaks of>
float Top(const RecordValues& v) {
  return (v.*of).iflag == 1 ? v.xm : (v.*of).top;
}
template <Peaks of>
float Bottom(const RecordValues& v) {
  return (v.*of).iflag == 1 ? v.xm : (v.*of).bot;
}
template <Peaks of>
float Height(const RecordValues& v) {
  return Top<of>(v) - Bottom<of>(v);
}
template <Peaks of>
float Amplitude(const RecordValues& v) {
  return Height<of>(v) / 2.0F;
}
constexpr Peaks kThird = &RecordValues::third, kNthPeaks = &RecordValues::nth, kHundredth = &RecordValues::hundredth;

using V = RecordValues;
// 20 to 23 have no words: only the table shows them.
// clang-format off
constexpr StatisticRow kStatistics[] = {
    {0, {"ALL", "TABLE"}, "", "", nullptr},
    {1, {"AVG", "MEAN", "AVERAGE"}, "Mean (Average)", "", [](const V& v) { return v.xm; }},
    {2, {"RMS", "ST.DEV", "STDEV"}, "Stdev         ", "", [](const V& v) { return std::sqrt(v.xv); }},
    {3, {"VARIANCE", "VAR"}, "Variance      ", "", [](const V& v) { return v.xv; }},
    {4, {"SIG_AMP", "SIG", "1/3RD_AMP", "1/3RD"}, "1/3rd Amp Avg ", "", Amplitude<kThird>},
    {5, {"SIG_TOP", "1/3RD_TOP"}, "1/3rd Top Avg ", "", Top<kThird>},
    {6, {"SIG_BOT", "1/3RD_BOT"}, "1/3rd Bot Avg ", "", Bottom<kThird>},
    {7, {"SIG_HEIGHT", "SIG_HGT", "SIG2", "1/3RD_HEIGHT", "1/3RD_HGT"}, "1/3rd Dbl Amp ", "", Height<kThird>},
    {8, {}, "1/10th Amp Avg", "", Amplitude<kNthPeaks>},
    {9, {}, "1/10th Top Avg", "", Top<kNthPeaks>},
    {10, {}, "1/10th Bot Avg", "", Bottom<kNthPeaks>},
    {11, {}, "1/10th Dbl Amp", "", Height<kNthPeaks>},
    {12, {"MINIMUM", "MIN"}, "Minimum       ", "", [](const V& v) { return v.xmin; }},
    {13, {"MAXIMUM", "MAX"}, "Maximum       ", "", [](const V& v) { return v.xmax; }},
    {14, {"ABSOLUTE", "ABS"}, "Maximum (ABS) ", "", [](const V& v) { return std::max(-v.xmin, v.xmax); }},
    {15, {"NDTF", "NDTF_RAO", "RAO"}, "NDTF/RAO      ", "", nullptr},
    {16, {"NDTF_PHASE", "PHASE"}, "Phase         ", "", nullptr},
    {17, {"NDTF_PHASE_LEAD", "PHASE_LEAD"}, "Phase_lead    ", "", nullptr},
    {18, {"AVGC", "AVG_UPCROSS", "AVG_BETWEEN_UPCROSS", "AVG_BETWEEN_UPCROSSINGS"}, "Avg btw upcrss", "",
     [](const V& v) { return v.between.avgc; }},
    {19, {"AVGP", "AVG_PEAKS", "AVG_BETWEEN_PEAKS"}, "Avg btw +peaks", "", [](const V& v) { return v.between.avgp; }},
    {20, {}, "1/100th AmpAvg", "", Amplitude<kHundredth>},
    {21, {}, "1/100th TopAvg", "", Top<kHundredth>},
    {22, {}, "1/100th BotAvg", "", Bottom<kHundredth>},
    {23, {}, "1/100th DblAmp", "", Height<kHundredth>},
    {24, {"SSA"}, "SSA           ", "", [](const V& v) { return 2.0F * std::sqrt(v.xv); }},
    {25, {"TF"}, "Transfer fnctn", "Trnsfr fnctn  ", nullptr},
};
// clang-format on
constexpr bool InOrder() {
  for (std::size_t i = 0; i < std::size(kStatistics); ++i)
    if (kStatistics[i].number != static_cast<int>(i)) return false;
  return true;
}
static_assert(InOrder());  // a number finds its row by counting
static_assert(kStatistics[kStatThird + kStatSides].number == kStatNth);

const StatisticRow* RowOf(int number) {
  return number >= 0 && static_cast<std::size_t>(number) < std::size(kStatistics) ? &kStatistics[number] : nullptr;
}

// What stands behind the number n of 1/nTH...
struct NthRow {
  int number;
  std::array<std::string_view, 2> words;
};
constexpr NthRow kNth[] = {
    {8, {"TH_AMP", "TH"}},
    {9, {"TH_TOP"}},
    {10, {"TH_BOT"}},
    {11, {"TH_HEIGHT", "TH_HGT"}},
};

constexpr std::string_view kInterval = "_CI", kSmallInterval = "_ci";
constexpr std::size_t kLeastIntervalWord = 4;  // letters, ending included

template <std::size_t n>
bool Holds(const std::array<std::string_view, n>& words, std::string_view word) {
  for (const std::string_view each : words)
    if (!each.empty() && each == word) return true;
  return false;
}

// Takes the digits at the front of a text. No digits: `value` stays. False: 0, or more than an int holds.
bool TakePositive(std::string_view& text, int& value) {
  constexpr int kMost = std::numeric_limits<int>::max();
  std::size_t digits = 0;
  int read = 0;
  for (; digits < text.size() && text[digits] >= '0' && text[digits] <= '9'; ++digits) {
    const int digit = text[digits] - '0';
    if (read > (kMost - digit) / 10) return false;
    read = 10 * read + digit;
  }
  if (digits == 0) return true;
  text.remove_prefix(digits);
  value = read;
  return read > 0;
}

// "1/10TH_TOP"; without a number ("1/TH", or the N of "1/NTH" itself) n is the 10 it has by default.
StatisticName FindNth(std::string_view capitals) {
  constexpr std::string_view kBegin = "1/", kLetter = "N";
  StatisticName found;
  if (!StartsWith(capitals, kBegin)) return found;
  std::string_view rest = capitals.substr(kBegin.size());
  if (StartsWith(rest, kLetter)) rest.remove_prefix(kLetter.size());
  else if (!TakePositive(rest, found.N)) return {};
  for (const NthRow& row : kNth)
    if (Holds(row.words, rest)) found.number = row.number;
  return found.number == kStatUnknown ? StatisticName{} : found;
}

StatisticName FindPlain(std::string_view word) {
  const std::string capitals = Capitals(word);
  for (const StatisticRow& row : kStatistics)
    if (Holds(row.words, capitals)) return {.number = row.number};
  return FindNth(capitals);
}

}  // namespace

StatisticName FindStatistic(std::string_view word) {
  const bool interval =
      word.size() >= kLeastIntervalWord && (word.ends_with(kInterval) || word.ends_with(kSmallInterval));
  if (interval) word.remove_suffix(kInterval.size());
  StatisticName found = FindPlain(word);
  found.interval = interval;
  return found;
}

std::vector<StatisticEntry> AllStatistics() {
  std::vector<StatisticEntry> entries;
  for (const StatisticRow& row : kStatistics) {
    StatisticEntry entry{"", std::string(row.number == kStatTable ? "All of them" : row.label)};
    const auto add = [&entry](std::string_view ahead, std::string_view word) {
      if (!word.empty()) entry.words.append(entry.words.empty() ? "" : ", ").append(ahead).append(word);
    };
    for (const std::string_view word : row.words) add("", word);
    for (const NthRow& nth : kNth)
      if (nth.number == row.number)
        for (const std::string_view word : nth.words) add("1/n", word);
    constexpr std::string_view kTenth = "1/10th";
    if (StartsWith(entry.label, kTenth)) entry.label.replace(0, kTenth.size(), "1/nth");
    if (!entry.words.empty()) entries.push_back(std::move(entry));
  }
  return entries;
}

std::string_view StatisticLabel(int number, bool for_file) {
  const StatisticRow* row = RowOf(number);
  if (row == nullptr) return {};
  return for_file && !row->file_label.empty() ? row->file_label : row->label;
}

float StatisticValue(int number, const RecordValues& values) {
  const StatisticRow* row = RowOf(number);
  return row == nullptr || row->value == nullptr ? 0.0F : row->value(values);
}

}  // namespace zaview
