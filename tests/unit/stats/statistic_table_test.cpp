#include "stats/statistic_table.h"

#include <sstream>
#include <string>
#include <tuple>

#include <gtest/gtest.h>

namespace zaview {
namespace {

// Each word, its number, N, and + if an interval is asked for.
TEST(FindStatistic, Words) {
  std::istringstream cases(
      "TABLE 0 10 -  all 0 10 -  Average 1 10 -  st.dev 2 10 -  RMS_CI 2 10 +  var_ci 3 10 +  1/3rd 4 10 -  "
      "1/3RD_TOP_CI 5 10 +  sig_bot 6 10 -  Sig2 7 10 -  1/3RD_HGT 7 10 -  1/10TH 8 10 -  1/100th_amp 8 100 -  "
      "1/3TH_AMP 8 3 -  1/1TH_TOP 9 1 -  1/05th_bot 10 5 -  1/20TH_HGT_CI 11 20 +  "
      "1/2147483647TH_HEIGHT 11 2147483647 -  1/nTH 8 10 -  1/TH_TOP 9 10 -  MIN 12 10 -  maximum 13 10 -  "
      "ABS 14 10 -  NDTF_RAO 15 10 -  phase 16 10 -  PHASE_LEAD 17 10 -  AVG_BETWEEN_UPCROSSINGS 18 10 -  "
      "AVG_PEAKS 19 10 -  SSA_CI 24 10 +  tf 25 10 -  "
      // What is none; the ending must be in one case or the other.
      "VAR_Ci -1 10 -  MEANS -1 10 -  MEA -1 10 -  _CI -1 10 -  X_CI -1 10 +  MEAN_CI_CI -1 10 +  1/ -1 10 -  "
      "1/10 -1 10 -  1/0TH -1 10 -  1/-3TH -1 10 -  1/+3TH -1 10 -  1/3.5TH -1 10 -  1/2147483648TH -1 10 -  "
      "1/99999999999999999999TH -1 10 -  1/10TH_SIDE -1 10 -  1/5RD_AMP -1 10 -");
  std::string word;
  int number = 0, N = 0;
  for (char interval = 0; cases >> word >> number >> N >> interval;) {
    const StatisticName found = FindStatistic(word);
    EXPECT_EQ(std::tuple(found.number, found.N, found.interval), std::tuple(number, N, interval == '+')) << word;
  }
  EXPECT_EQ(FindStatistic("").number, -1);
  EXPECT_EQ(FindStatistic("1/100th AmpAvg").number, -1);  // a label, not a word
}

TEST(StatisticLabel, AllAreOfOneWidth) {
  for (int number = 1; number <= 25; ++number)
    for (const bool for_file : {false, true}) EXPECT_EQ(StatisticLabel(number, for_file).size(), 14U) << number;
  for (const int unknown : {-1, 0, 26, 1000}) EXPECT_EQ(StatisticLabel(unknown, false), "") << unknown;
}

}  // namespace
}  // namespace zaview
