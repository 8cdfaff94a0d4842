// The statistics a user can name: number, keywords, row labels, and what each is of a record.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "stats/highest_peaks.h"

namespace zaview {

// Numbers of the statistics. Four of them follow each other from kStatThird, kStatNth and kStatHundredth on: amplitude,
// top, bottom, double amplitude.
inline constexpr int kStatUnknown = -1, kStatTable = 0, kStatMean = 1, kStatStdev = 2, kStatVariance = 3,
                     kStatThird = 4, kStatNth = 8, kStatMinimum = 12, kStatMaximum = 13, kStatAbsolute = 14,
                     kStatNdtf = 15, kStatPhase = 16, kStatPhaseLead = 17, kStatBetweenUpcrossings = 18,
                     kStatBetweenPeaks = 19, kStatHundredth = 20, kStatSsa = 24, kStatTransfer = 25;
inline constexpr int kStatSides = 4;
[[nodiscard]] constexpr bool IsSideOf(int first, int number) {  // first: kStatThird, kStatNth or kStatHundredth
  return first <= number && number < first + kStatSides;
}

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

// All that statistics 1 to 14 and 18 to 24 are made of, in the unit of the record (xv: its square).
struct RecordValues {
  float xm = 0, xv = 0, xmin = 0, xmax = 0;
  HighestPeaks third, nth, hundredth;
  BetweenAverages between;
};
// Numbers 1 to 14 and 18 to 24; 0 for all others. Amplitudes are half of top less bottom.
[[nodiscard]] float StatisticValue(int number, const RecordValues& values);

}  // namespace zaview
