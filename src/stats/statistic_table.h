// The statistics a user can name: number, keywords, row labels.
#pragma once

#include <string_view>

namespace zaview {

inline constexpr int kStatTable = 0, kStatUnknown = -1, kStatNdtf = 15, kStatPhase = 16, kStatPhaseLead = 17,
                     kStatTransfer = 25;

struct StatisticName {
  int number = kStatUnknown;
  int N = 10;  // of statistics 8 to 11
  bool interval = false;  // the word ended in _CI
};

// Exact, case-blind; "1/nTH.." forms with any positive n. _CI or _ci behind a word of at least four letters is taken off.
[[nodiscard]] StatisticName FindStatistic(std::string_view word);

// The label of a table row, as wide as printed ("Mean (Average)"). for_file: the file's own words.
[[nodiscard]] std::string_view StatisticLabel(int number, bool for_file);

}  // namespace zaview
