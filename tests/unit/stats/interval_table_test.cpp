#include "stats/tables/interval_table.h"

#include <algorithm>

#include "worked_case.h"

namespace zaview {
namespace {

struct Wanted {
  const char* word = "TABLE_CI";
  int iqnt = 1, curve = 1;
  std::string text{};
  OutputSettings settings{};
  std::string before{};
  int skip = 0;
};

Written Write(const Wanted& w) {
  StatRequest request;
  request.statistic = FindStatistic(w.word);
  request.quantity.iqnt = w.iqnt;
  request.quantity.curve = w.curve;
  request.text = w.text;
  CaseStore c = WorkedCase();
  c.skip_effective = w.skip;
  return WriteWorked([&](const StatWork& work, OutputFile& out) { return WriteIntervals(work, request, out); }, c,
                     w.settings, "out.txt", w.before);
}

constexpr std::string_view kTitle =
    "Statistical estimates with confidence interval of Position of CG for ZAVO file run.out\n"
    "Confidence Interval Probability= 0.95\n";

TEST(IntervalTable, OneCurve) {
  const std::string table = std::string(kTitle) +
                            " Statistic      Cnfdnce Intvl  Low (est-CI)   Estimate    High (est+CI)\n"
                            " Mean              0.04243039     0.1957571     0.2381875     0.2806179\n"
                            " Variance          0.04951499     0.9603636      1.009879      1.059394\n"
                            " Std. Deviation    0.02463611     0.9802911      1.004927      1.029563\n"
                            " Significnt Amp    0.01733823      1.106843      1.124182      1.141520\n"
                            " 1/3rd Top Avg     0.03093250      1.333668      1.364600      1.395533\n"
                            " 1/3rd bot Avg     0.01969611    -0.9100960    -0.8903999    -0.8707038\n"
                            " Significnt Hgt    0.05062862      2.204371      2.255000      2.305629\n"
                            " 1/10th Amp Avg    0.02321106      1.166789      1.190000      1.213211\n"
                            " 1/10th Top Avg    0.03298301      1.408350      1.441333      1.474316\n"
                            " 1/10th bot Avg    0.01834766    -0.9570143    -0.9386666    -0.9203190\n"
                            " 1/10th Dbl Amp    0.05133066      2.328670      2.380000      2.431331\n"
                            " SSA               0.04927222      1.960582      2.009854      2.059127\n";
  EXPECT_EQ(Write({.curve = 2}).text, table);
  EXPECT_EQ(Write({.curve = 2, .before = "old\n"}).text, "old\n\n" + table);
}

TEST(IntervalTable, QuantityColumn) {
  const std::string head =
      std::string(kTitle) + "Quantity        Statistic      Cnfdnce Intvl  Low (est-CI)   Estimate    High (est+CI)\n";
  const std::string surge =
      "pmgg(1)         Mean               0.7350832    -0.6731301    0.06195313     0.7970363\n"
      "pmgg(1)         Variance            1.715054      1.986901      3.701955      5.417009\n";
  const std::string all = Write({.curve = 0}).text;
  EXPECT_EQ(all.substr(0, head.size() + surge.size()), head + surge);
  EXPECT_NE(all.find("\npmgg(1)         SSA                0.8913785      2.956715      3.848093      4.739472\n"
                     "pmgg(2)         Mean              0.04243039     0.1957571     0.2381875     0.2806179\n"),
            std::string::npos);
  EXPECT_EQ(std::count(all.begin(), all.end(), '\n'), 3 + 6 * 12);

  const std::string text = Write({.curve = 1, .text = "Surge"}).text;
  EXPECT_EQ(text.substr(0, head.size()), head);
  EXPECT_EQ(text.substr(head.size(), 47), "Surge           Mean               0.7350832   ");

  Wanted csv{.text = "U 10, head"};
  csv.settings.writing.separator = Separator::comma;
  EXPECT_NE(Write(csv).text.find("\nQuantity,Statistic,Cnfdnce Intvl,Low (est-CI),Estimate,High (est+CI)\n"
                                 "\"U 10, head\",Mean,0.7350832,-0.6731301,0.06195313,0.7970363\n"),
            std::string::npos);
}

TEST(IntervalTable, SingleLines) {
  // clang-format off
  const struct { const char* word; int curve; std::string text, line; } cases[] = {
      {"MEAN_CI", 1, "18 180", "18 180     0.7350832    -0.6731301    0.06195313     0.7970363\n"},
      {"VAR_CI", 1, "", "     1.715054      1.986901      3.701955      5.417009\n"},
      {"RMS_CI", 1, "", "    0.4456893      1.478357      1.924047      2.369736\n"},
      {"SIG_CI", 1, "", "    0.6769403      3.066377      3.743317      4.420258\n"},
      {"SIG_TOP_CI", 1, "", "     1.295841      2.042159      3.338000      4.633841\n"},
      {"SIG_BOT_ci", 1, "", "    0.8461081     -4.293608     -3.447500     -2.601392\n"},
      {"SIG2_CI", 1, "", "     2.141949      4.643551      6.785500      8.927448\n"},
      {"1/10TH_TOP_CI", 2, "", "   0.03298301      1.408350      1.441333      1.474316\n"},
      {"1/nTH_BOT_CI", 2, "", "   0.01834766    -0.9570143    -0.9386666    -0.9203190\n"},
      {"1/10TH_HGT_CI", 2, "", "   0.05133066      2.328670      2.380000      2.431331\n"},
      {"SSA_CI", 1, "", "    0.8913785      2.956715      3.848093      4.739472\n"},
  };
  // clang-format on
  for (const auto& c : cases)
    EXPECT_EQ(Write({.word = c.word, .curve = c.curve, .text = c.text}).text, c.line) << c.word;
}

TEST(IntervalTable, Refusals) {
  Wanted certain{};
  certain.settings.statistics.confidence_probability = 1.0F;
  EXPECT_EQ(Write(certain).console, "ERROR in CalcRecordStats: invalid confidence probability = 1\n");
  EXPECT_EQ(Write(certain).fault, DataFault::said);
  certain.word = "SIG_CI";
  EXPECT_EQ(Write(certain).console, "ERROR in CalcRecordPeakStats: invalid confidence probability = 1\n");
  EXPECT_EQ(Write({.skip = 64}).console,
            "ERR495 - Too many steps skipped or trimmed in confidence interval calculation\n");
  EXPECT_EQ(Write({.word = "MAX_CI"}).console, "ERROR - statistic 13 has no confidence interval\n");
  EXPECT_EQ(Write({.iqnt = 13}).fault, DataFault::not_valid);
}

}  // namespace
}  // namespace zaview
