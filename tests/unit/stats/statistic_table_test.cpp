#include "stats/statistic_table.h"

#include <gtest/gtest.h>

namespace zaview {
namespace {

TEST(FindStatistic, Words) {
  const struct {
    const char* word;
    int number, N;
    bool interval;
  } cases[] = {
      {"TABLE",                    0,  10,         false},
      {"all",                      0,  10,         false},
      {"Average",                  1,  10,         false},
      {"st.dev",                   2,  10,         false},
      {"RMS_CI",                   2,  10,         true },
      {"var_ci",                   3,  10,         true },
      {"VAR_Ci",                   -1, 10,         false}, // the ending in one case or the other
      {"1/3rd",                    4,  10,         false},
      {"1/3RD_TOP_CI",             5,  10,         true },
      {"sig_bot",                  6,  10,         false},
      {"Sig2",                     7,  10,         false},
      {"1/3RD_HGT",                7,  10,         false},
      {"1/10TH",                   8,  10,         false},
      {"1/100th_amp",              8,  100,        false},
      {"1/3TH_AMP",                8,  3,          false},
      {"1/1TH_TOP",                9,  1,          false},
      {"1/05th_bot",               10, 5,          false},
      {"1/20TH_HGT_CI",            11, 20,         true },
      {"1/2147483647TH_HEIGHT",    11, 2147483647, false},
      {"1/nTH",                    8,  10,         false}, // no number given
      {"1/TH_TOP",                 9,  10,         false},
      {"MIN",                      12, 10,         false},
      {"maximum",                  13, 10,         false},
      {"ABS",                      14, 10,         false},
      {"NDTF_RAO",                 15, 10,         false},
      {"phase",                    16, 10,         false},
      {"PHASE_LEAD",               17, 10,         false},
      {"AVG_BETWEEN_UPCROSSINGS",  18, 10,         false},
      {"AVG_PEAKS",                19, 10,         false},
      {"SSA_CI",                   24, 10,         true },
      {"tf",                       25, 10,         false},
 // What is none.
      {"",                         -1, 10,         false},
      {"MEANS",                    -1, 10,         false},
      {"MEA",                      -1, 10,         false},
      {"_CI",                      -1, 10,         false},
      {"X_CI",                     -1, 10,         true },
      {"MEAN_CI_CI",               -1, 10,         true },
      {"1/",                       -1, 10,         false},
      {"1/10",                     -1, 10,         false},
      {"1/0TH",                    -1, 10,         false},
      {"1/-3TH",                   -1, 10,         false},
      {"1/+3TH",                   -1, 10,         false},
      {"1/3.5TH",                  -1, 10,         false},
      {"1/2147483648TH",           -1, 10,         false},
      {"1/99999999999999999999TH", -1, 10,         false},
      {"1/10TH_SIDE",              -1, 10,         false},
      {"1/5RD_AMP",                -1, 10,         false},
      {"1/100th AmpAvg",           -1, 10,         false}, // a label, not a word
  };
  for (const auto& c : cases) {
    const StatisticName found = FindStatistic(c.word);
    EXPECT_EQ(found.number, c.number) << c.word;
    EXPECT_EQ(found.N, c.N) << c.word;
    EXPECT_EQ(found.interval, c.interval) << c.word;
  }
}

TEST(StatisticLabel, AllAreOfOneWidth) {
  for (int number = 1; number <= 25; ++number)
    for (const bool for_file : {false, true}) EXPECT_EQ(StatisticLabel(number, for_file).size(), 14U) << number;
  EXPECT_EQ(StatisticLabel(25, false), "Transfer fnctn");
  EXPECT_EQ(StatisticLabel(25, true), "Trnsfr fnctn  ");
  EXPECT_EQ(StatisticLabel(8, true), "1/10th Amp Avg");
  for (const int unknown : {-1, 0, 26, 1000}) EXPECT_EQ(StatisticLabel(unknown, false), "") << unknown;
}

}  // namespace
}  // namespace zaview
