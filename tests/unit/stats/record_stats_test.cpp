#include "stats/record_stats.h"

#include <array>
#include <cmath>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

#include "stats/gauss_probability.h"
#include "worked_records.h"

namespace zaview {
namespace {

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

TEST(RecordStats, OddRecords) {
  RecordStats s;
  EXPECT_EQ(CalcRecordStats(1, std::vector<float>(50, 2.5F), 0.95F, s), StatFault::none);
  EXPECT_EQ(s.xm, 2.5F);  // no width at all about a constant
  for (const float zero : {s.xv, s.xs, s.xmci, s.xvci, s.xsci}) EXPECT_EQ(zero, 0.0F);
  EXPECT_EQ(CalcRecordStats(1, {}, 0.95F, s), StatFault::none);
  EXPECT_TRUE(s.xm == 0.0F && s.xmax == 0.0F);

  const float one[] = {3.0F}, three[] = {1.0F, 2.0F, 3.0F};
  EXPECT_EQ(CalcRecordStats(3, one, 0.95F, s), StatFault::none);
  EXPECT_TRUE(s.xm == 3.0F && std::isnan(s.xv) && s.xs == 0.0F);  // the divisor is 0 and nobody guards it
  // m is 1: no lag enters. Rx(0)/np = (2/3)/3, times 0.674493 for one half.
  EXPECT_EQ(CalcRecordStats(1, three, 0.5F, s), StatFault::none);
  EXPECT_NEAR(s.xmci, std::sqrt(2.0 / 9.0) * 0.674493, 1e-5);
  EXPECT_EQ(CalcRecordStats(2, three, 0.5F, s), StatFault::none);
  EXPECT_TRUE(s.xmci > 0.0F && s.xv == 0.0F && s.xvci == 0.0F);  // the mean alone
  EXPECT_EQ(CalcRecordStats(3, three, 0.5F, s), StatFault::none);
  EXPECT_TRUE(s.xv == 1.0F && s.xmci == 0.0F);  // no intervals

  const float holed[] = {1.0F, kNaN, 3.0F, 4.0F, 2.0F};
  EXPECT_EQ(CalcRecordStats(1, holed, 0.95F, s), StatFault::none);
  EXPECT_TRUE(std::isnan(s.xm) && s.xmin == 1.0F && s.xmax == 4.0F);
}

TEST(RecordStats, RefusedArguments) {
  const std::string option = "ERROR in CalcRecordStats: invalid statistics option= ";
  const std::string peaks = "Peak statistics now calculated in CalcRecordPeakStats()";
  const std::string probability = "ERROR in CalcRecordStats: invalid confidence probability = ";
  // clang-format off
  const struct { int iopt; float prob; std::vector<std::string> lines; } cases[] = {
      {4, 0.95F, {option + "4", peaks}}, {5, 0.95F, {option + "5"}}, {-1, 0.0F, {option + "-1", probability + "0"}},
      {1, 1.0F, {probability + "1"}}, {1, kNaN, {probability + "0"}},
  };
  // clang-format on
  for (const auto& c : cases) {
    RecordStats s;
    s.xm = 7.0F;
    const StatFault faults = CalcRecordStats(c.iopt, WorkedRecord(1), c.prob, s);
    EXPECT_EQ(StatFaultLines(faults, "CalcRecordStats", 0, c.iopt, c.prob), c.lines) << c.iopt;
    EXPECT_EQ(s.xm, 0.0F);
  }
}

TEST(GaussProbability, Multipliers) {
  // clang-format off
  const struct { float Pa; double ka, within; } cases[] = {
      {0.1F, 0.12566146, 1e-6}, {0.6826895F, 1.0000004, 2e-6}, {0.95F, 1.9599957, 2e-6}, {0.99F, 2.5758789, 6e-6},
      {0.999F, 3.2927504, 2e-5}, {1.0F, 5.0, 0.0},  // P there is within 1e-5 of 1: no refinement
  };
  // clang-format on
  for (const auto& c : cases) {
    float ka = -1.0F;
    EXPECT_TRUE(getGaussPDFka(c.Pa, ka));
    EXPECT_NEAR(static_cast<double>(ka), c.ka, c.within) << c.Pa;
  }
}

TEST(GaussProbability, EndsForAnyNumber) {
  for (const float Pa : {0.0F, -0.5F, 1.0000001F, 2.0F, std::numeric_limits<float>::quiet_NaN()}) {
    float ka = -1.0F;
    EXPECT_FALSE(getGaussPDFka(Pa, ka)) << Pa;
    EXPECT_EQ(ka, 0.0F);
  }
  for (const float Pa : {std::numeric_limits<float>::denorm_min(), 1e-30F, 1e-6F, 0.99999994F}) {
    float ka = -1.0F;
    EXPECT_TRUE(getGaussPDFka(Pa, ka)) << Pa;
    EXPECT_TRUE(0.0F <= ka && ka <= 10.0F) << ka;
  }
}

}  // namespace
}  // namespace zaview
