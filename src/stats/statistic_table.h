// The statistics a user can name: number, keywords, row labels.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zaview {

// Numbers of the statistics. Four of them follow each other from kStatThird, kStatNth and kStatHundredth on: amplitude,
// top, bottom, double amplitude.
inline constexpr int kStatUnknown = -1, kStatTable = 0, kStatMean = 1, kStatStdev = 2, kStatVariance = 3,
                     kStatThird = 4, kStatNth = 8, kStatMinimum = 12, kStatMaximum = 13, kStatAbsolute = 14,
                     kStatNdtf = 15, kStatPhase = 16, kStatPhaseLead = 17, kStatBetweenUpcrossings = 18,
                     kStatBetweenPeaks = 19, kStatHundredth = 20, kStatSsa = 24, kStatTransfer = 25;
inline constexpr int kStatSides = 4;

struct StatisticName {
  int number = kStatUnknown;
  int N = 10;             // of statistics 8 to 11
  bool interval = false;  // the word ended in _CI
};

// Exact, case-blind; "1/nTH.." forms with any positive n. _CI or _ci behind a word of at least four letters is taken
// off.
[[nodiscard]] StatisticName FindStatistic(std::string_view word);

struct StatisticEntry {
  std::string words, label;  // "AVG, MEAN"; of the highest peaks "1/nTH_AMP, 1/nTH"
};
[[nodiscard]] std::vector<StatisticEntry> AllStatistics();  // those that have words

// The label of a table row, as wide as printed ("Mean (Average)"). for_file: the file's own words.
[[nodiscard]] std::string_view StatisticLabel(int number, bool for_file);

}  // namespace zaview
