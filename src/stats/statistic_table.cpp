#include "stats/statistic_table.h"

#include <array>
#include <limits>

#include "base/text.h"

namespace zaview {
namespace {

struct StatisticRow {
  int number;
  std::array<std::string_view, 5> words;  // in capitals; unused ones are blank
  std::string_view label, file_label;     // 14 wide; the file's own label is blank where it is the same
};

// 20 to 23 have no words: only the table shows them.
constexpr StatisticRow kStatistics[] = {
    {0, {"ALL", "TABLE"}, "", ""},
    {1, {"AVG", "MEAN", "AVERAGE"}, "Mean (Average)", ""},
    {2, {"RMS", "ST.DEV", "STDEV"}, "Stdev         ", ""},
    {3, {"VARIANCE", "VAR"}, "Variance      ", ""},
    {4, {"SIG_AMP", "SIG", "1/3RD_AMP", "1/3RD"}, "1/3rd Amp Avg ", ""},
    {5, {"SIG_TOP", "1/3RD_TOP"}, "1/3rd Top Avg ", ""},
    {6, {"SIG_BOT", "1/3RD_BOT"}, "1/3rd Bot Avg ", ""},
    {7, {"SIG_HEIGHT", "SIG_HGT", "SIG2", "1/3RD_HEIGHT", "1/3RD_HGT"}, "1/3rd Dbl Amp ", ""},
    {8, {}, "1/10th Amp Avg", ""},
    {9, {}, "1/10th Top Avg", ""},
    {10, {}, "1/10th Bot Avg", ""},
    {11, {}, "1/10th Dbl Amp", ""},
    {12, {"MINIMUM", "MIN"}, "Minimum       ", ""},
    {13, {"MAXIMUM", "MAX"}, "Maximum       ", ""},
    {14, {"ABSOLUTE", "ABS"}, "Maximum (ABS) ", ""},
    {15, {"NDTF", "NDTF_RAO", "RAO"}, "NDTF/RAO      ", ""},
    {16, {"NDTF_PHASE", "PHASE"}, "Phase         ", ""},
    {17, {"NDTF_PHASE_LEAD", "PHASE_LEAD"}, "Phase_lead    ", ""},
    {18, {"AVGC", "AVG_UPCROSS", "AVG_BETWEEN_UPCROSS", "AVG_BETWEEN_UPCROSSINGS"}, "Avg btw upcrss", ""},
    {19, {"AVGP", "AVG_PEAKS", "AVG_BETWEEN_PEAKS"}, "Avg btw +peaks", ""},
    {20, {}, "1/100th AmpAvg", ""},
    {21, {}, "1/100th TopAvg", ""},
    {22, {}, "1/100th BotAvg", ""},
    {23, {}, "1/100th DblAmp", ""},
    {24, {"SSA"}, "SSA           ", ""},
    {25, {"TF"}, "Transfer fnctn", "Trnsfr fnctn  "},
};

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
  for (const StatisticRow& row : kStatistics)
    if (row.number == number) return for_file && !row.file_label.empty() ? row.file_label : row.label;
  return {};
}

}  // namespace zaview
