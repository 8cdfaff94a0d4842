#include "stats/tables/stat_table.h"

#include <algorithm>
#include <cmath>
#include <random>
#include <sstream>

#include "stats/tables/interval_table.h"
#include "stats/tables/statistic_values.h"
#include "worked_case.h"

namespace zaview {
namespace {

struct Wanted {
  const char* word = "TABLE";
  int iqnt = 1, curve = 1;
  std::string text{};
  OutputSettings settings{};
  CaseStore c = WorkedCase();
  std::string name = "out.txt", before{};
  int skip = 0;
};

Written Write(const Wanted& w) {
  StatRequest request;
  request.statistic = FindStatistic(w.word);
  request.quantity.iqnt = w.iqnt;
  request.quantity.curve = w.curve;
  request.text = w.text;
  CaseStore c = w.c;
  if (w.skip > 0) c.skip_effective = w.skip;
  const auto write = request.statistic.interval ? WriteIntervals : WRSTAT;
  return WriteWorked([&](const StatWork& work, OutputFile& out) { return write(work, request, out); }, c, w.settings,
                     w.name, w.before);
}

// With g, L, rho, the angle factor 8, 2, 10, 50: a = 1, ka = 16, we = (0.8 + 0.25 0.64) 2 = 1.92.
CaseStore OneWave() {
  CaseStore c = WorkedCase();
  c.control.USHIP = 0.25;
  c.control.seaway.ISEA = 1;
  c.control.seaway.waves = {{.FREQW = 0.8, .PHASEW = 0.0, .AMPW0 = 0.5, .HEADW = 180.0}};
  return c;
}
OutputSettings WaveSettings() {
  OutputSettings settings;
  settings.units.GRAVOUT = 8.0F, settings.units.LENOUT = 2.0F, settings.units.RHOOUT = 10.0F;
  settings.units.ANGOUT = 50.0F;
  return settings;
}

constexpr std::string_view kSurge =
    "Statistics of Position of CG for ZAVO file run.out\n"
    // clang-format off
    "Statistic            pmgg(1)\n" "Mean (Average)    0.06195313\n" "Stdev               1.924047\n"
    "Variance            3.701955\n" "1/3rd Amp Avg       3.392750\n" "1/3rd Top Avg       3.338000\n"
    "1/3rd Bot Avg      -3.447500\n" "1/3rd Dbl Amp       6.785500\n" "1/10th Amp Avg      4.165500\n"
    "1/10th Top Avg      4.273000\n" "1/10th Bot Avg     -4.058000\n" "1/10th Dbl Amp      8.330999\n"
    "Minimum            -4.058000\n" "Maximum             4.273000\n" "Maximum (ABS)       4.273000\n"
    "Avg btw upcrss     0.4858140\n" "Avg btw +peaks     0.4111951\n" "SSA                 3.848093\n"
    "1/100th AmpAvg      0.000000\n" "1/100th TopAvg    0.06195313\n" "1/100th BotAvg    0.06195313\n"
    "1/100th DblAmp      0.000000\n";
// clang-format on

TEST(StatTable, OneCurve) {
  EXPECT_EQ(Write({}).text, kSurge);
  EXPECT_EQ(Write({.name = ""}).console, kSurge);
  EXPECT_EQ(Write({.before = "old\n"}).text, "old\n\n" + std::string(kSurge));
}

TEST(StatTable, AllCurvesStandInColumns) {
  const std::string text = Write({.curve = 0}).text;
  const std::string begin =
      "Statistics of Position of CG for ZAVO file run.out\n"
      "Statistic            pmgg(1)       pmgg(2)       pmgg(3)       pmgg(4)       pmgg(5)       pmgg(6)\n"
      "Mean (Average)    0.06195313     0.2381875      0.000000      0.000000      0.000000      0.000000\n"
      "Stdev               1.924047      1.004927      0.000000      0.000000      0.000000      0.000000\n";
  EXPECT_EQ(text.substr(0, begin.size()), begin);
}

TEST(StatTable, TextHeadsOneCurve) {
  const auto head = [](const Written& written) {
    const std::size_t second = written.text.find('\n') + 1;
    return written.text.substr(second, written.text.find("\nMean") - second);
  };
  EXPECT_EQ(head(Write({.text = "  "})), "Statistic            pmgg(1)");
  EXPECT_EQ(head(Write({.text = "Surge, m"})), "Statistic           Surge, m");
  EXPECT_EQ(head(Write({.text = "Surge of the motions test"})), "Statistic      Surge of the motions test");
  Wanted csv{.text = "Surge, m"};
  csv.settings.writing.separator = Separator::comma;
  EXPECT_EQ(head(Write(csv)), "Statistic,\"Surge, m\"");
  EXPECT_NE(Write(csv).text.find("\nMaximum (ABS),4.273000\n"), std::string::npos);
}

TEST(StatTable, SingleStatisticsAreBareLines) {
  // clang-format off
  const struct { const char* word; int curve; std::string text, line; } cases[] = {
      {"MEAN", 1, "18 180", "18 180    0.06195313\n"}, {"rms", 2, "", "     1.004927\n"}, {"VAR", 2, "v", "v      1.009879\n"},
      {"SIG", 2, "a, b", "a, b      1.127500\n"}, {"SIG_TOP", 2, "", "     1.364600\n"}, {"1/3RD_BOT", 2, "", "   -0.8903999\n"},
      {"SIG2", 2, "", "     2.255000\n"}, {"1/3TH_AMP", 2, "", "     1.127500\n"}, {"1/10TH_TOP", 1, "", "     4.273000\n"},
      {"1/nTH_HGT", 2, "", "     2.380000\n"}, {"MIN", 1, "", "    -4.058000\n"}, {"ABS", 1, "", "     4.273000\n"},
      {"AVGC", 1, "", "    0.4858140\n"}, {"AVGP", 1, "", "    0.4111951\n"}, {"SSA", 2, "", "     2.009854\n"},
      {"MAX", 0, "all", "all      4.273000      1.479000      0.000000      0.000000      0.000000      0.000000\n"}};
  // clang-format on
  for (const auto& c : cases)
    EXPECT_EQ(Write({.word = c.word, .curve = c.curve, .text = c.text}).text, c.line) << c.word;
  Wanted csv{.text = "18,180", .before = "17,180,0.1\n"};
  csv.word = "MEAN";
  csv.settings.writing.separator = Separator::comma;
  EXPECT_EQ(Write(csv).text, "17,180,0.1\n18,180,0.06195313\n");
}

TEST(StatTable, SkippedStepsCountNot) {
  Wanted w{.word = "MAX"};
  w.c.skip_effective = 3;                 // the first of use is the fourth sample
  w.settings.reading.skip_terminal = 55;  // and the ninth the last
  EXPECT_EQ(Write(w).text, "     2.036000\n");
  w.settings.reading.skip_terminal = 60;
  EXPECT_EQ(Write(w).text, "     2.036000\n");  // one sample
  w.word = "RMS";
  EXPECT_EQ(Write(w).text, "     0.000000\n");  // of which there is no variance
  w.settings.reading.skip_terminal = 61;
  const Written none = Write(w);
  EXPECT_EQ(none.fault, DataFault::said);
  EXPECT_EQ(none.console, "ERR495 - Too many steps skipped or trimmed in statistics output\n");
}

TEST(StatTable, RegularWavesHaveTransferFunctions) {
  const Written file = Write({.settings = WaveSettings(), .c = OneWave()});
  EXPECT_NE(file.text.find("Maximum (ABS)       4.273000\n"
                           "NDTF/RAO            3.392750\n"
                           "Phase "),
            std::string::npos)
      << file.text;
  const Written console = Write({.settings = WaveSettings(), .c = OneWave(), .name = ""});
  EXPECT_NE(console.console.find("\nTransfer fnctn      3.392750\n"), std::string::npos);
  EXPECT_EQ(Write({.word = "RAO", .iqnt = 2, .settings = WaveSettings(), .c = OneWave()}).text, "     1.767057\n");
  EXPECT_EQ(Write({.word = "TF", .iqnt = 2, .settings = WaveSettings(), .c = OneWave()}).text, "     3.392750\n");
}

// Global velocities have a divisor for the first three components only.
TEST(StatTable, NotDefinedIsZeroBesideOthers) {
  const std::string all = Write({.iqnt = 39, .curve = 0, .settings = WaveSettings(), .c = OneWave()}).text;
  const std::size_t row = all.find("NDTF/RAO");
  ASSERT_NE(row, std::string::npos);
  EXPECT_EQ(all.substr(row + 56, 42), "      0.000000      0.000000      0.000000");
  EXPECT_EQ(Write({.iqnt = 39, .curve = 4, .settings = WaveSettings(), .c = OneWave()}).text.find("NDTF"),
            std::string::npos);
}

// All parts of three curves, noise about a wave, by one thread and by two.
TEST(RecordValues, SameBitsForAnyThreads) {
  constexpr int n = 3000;
  StatRecord record;
  record.range = {7, n - 11};
  record.data.y.resize(3);
  for (int i = 0; i < n; ++i) {
    record.data.x.push_back(0.1F * static_cast<float>(i));
    for (std::size_t j = 0; j < 3; ++j)
      record.data.y[j].push_back(std::sin(0.02F * static_cast<float>(i)) + 0.1F * static_cast<float>((i * 7919) % 31));
  }
  WavePhase wave;
  ASSERT_TRUE(FindWavePhase(record.t(), record.curve(1), wave));
  const auto all = [&](int threads) {
    std::vector<RecordValues> values;
    std::vector<float> cells;
    FindRecordValues(FindStatistic("TABLE"), record, &wave, threads, values, cells);
    for (const RecordValues& v : values)
      for (int number = 1; number <= kStatSsa; ++number) cells.push_back(StatisticValue(number, v));
    return cells;
  };
  const std::vector<float> alone = all(1);
  for (int again = 0; again < 20; ++again) ASSERT_EQ(all(2), alone);
}

// The phase of the wave is kept from table to table, for as long as the record is the same.
TEST(StatTable, PhasesAfterOtherStepsAreNew) {
  CaseStore c = OneWave();
  StatRequest request;
  request.statistic = FindStatistic("PHASE");
  request.quantity.curve = 1;
  const auto write = [&](const StatWork& work, OutputFile& out) { return WRSTAT(work, request, out); };
  const auto twice = [&](const StatWork& work, OutputFile& out) {
    const DataFault fault = write(work, out);
    work.current().skip_effective = 9;
    return fault == DataFault::none ? write(work, out) : fault;
  };
  const std::string both = WriteWorked(twice, c, WaveSettings()).text,
                    first = WriteWorked(write, c, WaveSettings()).text;
  c.skip_effective = 9;
  EXPECT_EQ(both, first + WriteWorked(write, c, WaveSettings()).text);
}

TEST(StatTable, Refusals) {
  const std::string irregular = "ERR494 - NDTF/RAO and phase statistics only available for regular wave cases\n";
  // clang-format off
  const struct { const char* word; int iqnt, curve; bool regular; std::string said; } cases[] = {
      {"NDTF", 1, 1, false, irregular}, {"PHASE", 1, 1, false, irregular}, {"TF", 1, 1, false, irregular},
      {"NDTF", 39, 5, true, "ERROR - NDTF/RAO is not defined for Velocity in global coordinates, vmgg(5)\n"},
      {"NOTHING", 1, 1, false, "LOGIC ERROR in WRSTAT : isel0= -1\n"},
      {"MEAN", 13, 1, false, ""}, {"MEAN", 1, 7, false, ""}};
  // clang-format on
  for (const auto& c : cases) {
    const Written written =
        Write({.word = c.word, .iqnt = c.iqnt, .curve = c.curve, .c = c.regular ? OneWave() : WorkedCase()});
    EXPECT_EQ(written.fault, c.said.empty() ? DataFault::not_valid : DataFault::said) << c.word;
    EXPECT_EQ(written.console, c.said) << c.word;
  }
}

TEST(Normalisers, ByQuantityAndComponent) {
  constexpr double a = 1.0, ka = 16.0, we = 1.92, force = 320.0, moment = 640.0, none = 0.0;
  // clang-format off
  const struct { int iqnt, component; double value; } cases[] = {
      {1, 3, a}, {1, 4, ka}, {4, 6, ka}, {27, 1, a}, {1, 7, none}, {2, 1, a * we}, {5, 6, ka * we}, {28, 3, a * we},
      {28, 4, ka * we}, {3, 2, a * we * we}, {29, 5, ka * we * we}, {6, 3, force}, {12, 4, moment}, {13, 25, force},
      {24, 9, moment}, {25, 1, a}, {31, 3, a}, {32, 4, a * we}, {31, 9, a * we * we}, {31, 10, none}, {30, 1, a},
      {33, 2, a * we}, {48, 1, a}, {47, 3, a * we * we}, {33, 4, none}};
  // clang-format on
  Normalisers normals;
  ASSERT_TRUE(FindNormalisers(OneWave().control, WaveSettings(), nullptr, normals));
  for (const auto& c : cases) {
    SCOPED_TRACE(c.iqnt * 100 + c.component);
    Normal kind = Normal::a;
    EXPECT_EQ(FindNormal(c.iqnt, c.component, kind), c.value != none);
    if (c.value != none) ExpectClose(normals.of(kind), c.value, "divisor");
  }
}

TEST(Normalisers, LengthBeamAndFollowingSeas) {
  OutputSettings settings = WaveSettings();
  settings.statistics.ndtf_beam = 3.0F;
  settings.statistics.ndtf_length = 4.0F;
  CaseStore c = OneWave();
  c.control.seaway.waves[0].HEADW = 0.0;
  c.control.USHIP = 1.25;  // as fast as the wave: its own frequency instead of none
  Normalisers normals;
  ASSERT_TRUE(FindNormalisers(c.control, settings, nullptr, normals));
  ExpectClose(normals.of(Normal::force), 960.0, "force");
  ExpectClose(normals.of(Normal::moment), 3840.0, "moment");
  ExpectClose(normals.of(Normal::a_we), 1.6, "a we");
  c.control.USHIP = 2.5;  // overtaking
  ASSERT_TRUE(FindNormalisers(c.control, settings, nullptr, normals));
  ExpectClose(normals.of(Normal::ka_we2), 16.0 * 1.6 * 1.6, "ka we^2");
  settings.statistics.ndtf_beam = 0.0F;  // then the hull is as long as its x extent, here 1.5 of 2
  Hull hull;
  hull.mesh.nodes = {{-0.75, 0.1, 0.0}, {0.25, 0.0, -0.2}, {9.0, 0.0, 0.0}};  // the last is no element's
  hull.mesh.elements = {{{1, 2, 2, 0}}};
  hull.surfaces.emplace_back().points = {{0.0, 0.0, 0.0}, {0.75, 0.0, 0.0}};
  ASSERT_TRUE(FindNormalisers(c.control, settings, &hull, normals));
  ExpectClose(normals.of(Normal::force), 8.0 * 3.0 * 4.0 * 10.0, "force by the hull");
  c.control.seaway.ISEA = 2;
  EXPECT_FALSE(FindNormalisers(c.control, settings, nullptr, normals));
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
  EXPECT_EQ(Write({.word = "TABLE_CI", .curve = 2}).text, table);
  EXPECT_EQ(Write({.word = "TABLE_CI", .curve = 2, .before = "old\n"}).text, "old\n\n" + table);
}

TEST(IntervalTable, QuantityColumn) {
  const std::string head =
      std::string(kTitle) + "Quantity        Statistic      Cnfdnce Intvl  Low (est-CI)   Estimate    High (est+CI)\n";
  const std::string surge =
      "pmgg(1)         Mean               0.7350832    -0.6731301    0.06195313     0.7970363\n"
      "pmgg(1)         Variance            1.715054      1.986901      3.701955      5.417009\n";
  const std::string all = Write({.word = "TABLE_CI", .curve = 0}).text;
  EXPECT_EQ(all.substr(0, head.size() + surge.size()), head + surge);
  EXPECT_NE(all.find("\npmgg(1)         SSA                0.8913785      2.956715      3.848093      4.739472\n"
                     "pmgg(2)         Mean              0.04243039     0.1957571     0.2381875     0.2806179\n"),
            std::string::npos);
  EXPECT_EQ(std::count(all.begin(), all.end(), '\n'), 3 + 6 * 12);

  const std::string text = Write({.word = "TABLE_CI", .curve = 1, .text = "Surge"}).text;
  EXPECT_EQ(text.substr(0, head.size()), head);
  EXPECT_EQ(text.substr(head.size(), 47), "Surge           Mean               0.7350832   ");

  Wanted csv{.word = "TABLE_CI", .text = "U 10, head"};
  csv.settings.writing.separator = Separator::comma;
  EXPECT_NE(Write(csv).text.find("\nQuantity,Statistic,Cnfdnce Intvl,Low (est-CI),Estimate,High (est+CI)\n"
                                 "\"U 10, head\",Mean,0.7350832,-0.6731301,0.06195313,0.7970363\n"),
            std::string::npos);
}

TEST(IntervalTable, SingleLines) {
  // clang-format off
  const struct { const char* word; int curve; std::string text, line; } cases[] = {
      {"MEAN_CI", 1, "18 180", "18 180     0.7350832    -0.6731301    0.06195313     0.7970363\n"},
      {"SIG_BOT_ci", 1, "", "    0.8461081     -4.293608     -3.447500     -2.601392\n"},
      {"1/10TH_HGT_CI", 2, "", "   0.05133066      2.328670      2.380000      2.431331\n"},
  };
  // clang-format on
  for (const auto& c : cases)
    EXPECT_EQ(Write({.word = c.word, .curve = c.curve, .text = c.text}).text, c.line) << c.word;
}

TEST(IntervalTable, Refusals) {
  Wanted certain{.word = "TABLE_CI"};
  certain.settings.statistics.confidence_probability = 1.0F;
  EXPECT_EQ(Write(certain).console, "ERROR in CalcRecordStats: invalid confidence probability = 1\n");
  EXPECT_EQ(Write(certain).fault, DataFault::said);
  certain.word = "SIG_CI";
  EXPECT_EQ(Write(certain).console, "ERROR in CalcRecordPeakStats: invalid confidence probability = 1\n");
  EXPECT_EQ(Write({.word = "TABLE_CI", .skip = 64}).console,
            "ERR495 - Too many steps skipped or trimmed in confidence interval calculation\n");
  EXPECT_EQ(Write({.word = "MAX_CI"}).console, "ERROR - statistic 13 has no confidence interval\n");
  EXPECT_EQ(Write({.word = "TABLE_CI", .iqnt = 13}).fault, DataFault::not_valid);
}

TEST(IntervalTable, BootstrapStandsInPlaceOfTheFormula) {
  Wanted wanted{.word = "TABLE_CI", .curve = 1};
  wanted.settings.statistics.interval_method = IntervalMethod::bootstrap;
  const Written few = Write(wanted);
  EXPECT_EQ(few.console,
            "WARNING - Records too short for some confidence intervals: they cover 1.0 dependence times,\n"
            "          15 are needed for mean and deviations, 15 for 1/3rd, 25 for 1/10th averages\n");
  EXPECT_NE(few.text.find("Probability= 0.95\nConfidence Interval Method= Bootstrap, 1000 resamples, seed 1\n"),
            std::string::npos);
  EXPECT_NE(few.text.find("\n Mean               too-short     too-short    0.06195313     too-short\n"),
            std::string::npos);
  wanted.word = "SIG_CI";
  wanted.settings.writing.separator = Separator::comma;
  EXPECT_EQ(Write(wanted).text, "too-short,too-short,3.743317,too-short\n");
  wanted.settings.statistics.confidence_probability = 1.0F;
  EXPECT_EQ(Write(wanted).console, "ERROR in CalcRecordPeakStats: invalid confidence probability = 1\n");

  // Enough samples, independent and even between 0 and 1: the half width is 1.96/sqrt(12 n).
  Wanted many{.word = "MEAN_CI", .curve = 1};
  many.settings.statistics.interval_method = IntervalMethod::bootstrap;
  constexpr std::size_t kSteps = 10'000;
  many.c.last_read = many.c.last_step = static_cast<int>(kSteps);
  many.c.time.component[0].resize(kSteps);
  for (std::vector<float>& curve : many.c.pmgg.component) curve.resize(kSteps);
  std::mt19937 random(1);
  for (float& x : many.c.pmgg.component[0]) x = static_cast<float>(static_cast<double>(random()) / 4294967296.0);
  std::istringstream line(Write(many).text);
  double half_width = 0, low = 0, estimate = 0, high = 0;
  ASSERT_TRUE(line >> half_width >> low >> estimate >> high);
  EXPECT_NEAR(half_width, 1.96 / std::sqrt(12.0 * kSteps), 0.0006);
  EXPECT_NEAR(high - low, 2 * half_width, 1e-6);
  EXPECT_TRUE(low < 0.5 && 0.5 < high && low < estimate && estimate < high);
}

}  // namespace
}  // namespace zaview
