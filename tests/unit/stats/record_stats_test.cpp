#include "stats/record_stats.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "near.h"
#include "worked_records.h"

namespace zaview {
namespace {

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

TEST(RecordStats, WorkedRecords) {
  const struct {
    int record, iopt;
    double xm, xv, xs, xmci, xvci, xsci, xmin, xmax;
  } cases[] = {
      {1, 1, 0.41592675, 3.633801,  1.9062531, 0.40298116, 1.2235639,  0.32093424, -4.882, 4.273},
      {1, 2, 0.41592675, 0,         0,         0.40298116, 0,          0,          -4.882, 4.273},
      {1, 3, 0.41592675, 3.633801,  1.9062531, 0,          0,          0,          -4.882, 4.273},
      {2, 1, 0.23818752, 1.0098786, 1.0049272, 0.04243039, 0.04951499, 0.02463611, -0.961, 1.479},
  };
  for (const auto& c : cases) {
    RecordStats s;
    EXPECT_EQ(CalcRecordStats(c.iopt, WorkedRecord(c.record), 0.95F, s), StatFault::none);
    ExpectClose(s.xm, c.xm, "xm");
    ExpectClose(s.xv, c.xv, "xv");
    ExpectClose(s.xs, c.xs, "xs");
    ExpectClose(s.xmci, c.xmci, "xmci");
    ExpectClose(s.xvci, c.xvci, "xvci");
    ExpectClose(s.xsci, c.xsci, "xsci");
    ExpectClose(s.xmin, c.xmin, "xmin");
    ExpectClose(s.xmax, c.xmax, "xmax");
  }
}

TEST(RecordStats, ConstantRecordHasNoWidthAtAll) {
  const std::vector<float> x(50, 2.5F);
  RecordStats s;
  EXPECT_EQ(CalcRecordStats(1, x, 0.95F, s), StatFault::none);
  EXPECT_EQ(s.xm, 2.5F);
  for (const float zero : {s.xv, s.xs, s.xmci, s.xvci, s.xsci}) EXPECT_EQ(zero, 0.0F);
}

TEST(RecordStats, ShortRecords) {
  RecordStats s;
  EXPECT_EQ(CalcRecordStats(1, {}, 0.95F, s), StatFault::none);
  EXPECT_EQ(s.xm, 0.0F);
  EXPECT_EQ(s.xmax, 0.0F);

  const float one[] = {3.0F};
  EXPECT_EQ(CalcRecordStats(3, one, 0.95F, s), StatFault::none);
  EXPECT_EQ(s.xm, 3.0F);
  EXPECT_TRUE(std::isnan(s.xv));  // the divisor is 0 and nobody guards it
  EXPECT_EQ(s.xs, 0.0F);

  // m is 1: no lag enters. Rx(0)/np = (2/3)/3, times 0.674493 for one half.
  const float three[] = {1.0F, 2.0F, 3.0F};
  EXPECT_EQ(CalcRecordStats(1, three, 0.5F, s), StatFault::none);
  EXPECT_NEAR(s.xmci, std::sqrt(2.0 / 9.0) * 0.674493, 1e-5);
}

TEST(RecordStats, NotANumberIsData) {
  const float x[] = {1.0F, kNaN, 3.0F, 4.0F, 2.0F};
  RecordStats s;
  EXPECT_EQ(CalcRecordStats(1, x, 0.95F, s), StatFault::none);
  EXPECT_TRUE(std::isnan(s.xm));
  EXPECT_EQ(s.xmin, 1.0F);
  EXPECT_EQ(s.xmax, 4.0F);
}

TEST(RecordStats, RefusedArguments) {
  const std::string option = "ERROR in CalcRecordStats: invalid statistics option= ";
  const std::string peaks = "Peak statistics now calculated in CalcRecordPeakStats()";
  const std::string probability = "ERROR in CalcRecordStats: invalid confidence probability = ";
  const struct {
    int iopt;
    float prob;
    std::vector<std::string> lines;
  } cases[] = {
      {0,  0.95F, {option + "0", peaks}                      },
      {4,  0.95F, {option + "4", peaks}                      },
      {5,  0.95F, {option + "5"}                             },
      {-1, 0.0F,  {option + "-1", probability + "0"}         },
      {1,  1.0F,  {probability + "1"}                        },
      {1,  kNaN,  {probability + "NaN"}                      },
      {4,  -0.5F, {option + "4", peaks, probability + "-0.5"}},
  };
  for (const auto& c : cases) {
    RecordStats s;
    s.xm = 7.0F;
    const StatFault faults = CalcRecordStats(c.iopt, WorkedRecord(1), c.prob, s);
    EXPECT_EQ(StatFaultLines(faults, "CalcRecordStats", 0, c.iopt, c.prob), c.lines) << c.iopt;
    EXPECT_EQ(s.xm, 0.0F);
  }
}

// A trace wants all lags and must not change a result; without it only the first m are made.
TEST(RecordStats, TraceHoldsAllLags) {
  RecordStats plain, traced;
  RecordStatsTrace trace;
  EXPECT_EQ(CalcRecordStats(1, WorkedRecord(1), 0.95F, plain), StatFault::none);
  EXPECT_EQ(CalcRecordStats(1, WorkedRecord(1), 0.95F, traced, &trace), StatFault::none);
  EXPECT_EQ(plain.xmci, traced.xmci);
  EXPECT_EQ(plain.xsci, traced.xsci);
  EXPECT_EQ(trace.m, 12);
  EXPECT_EQ(trace.Rx.size(), 76U);
  EXPECT_NEAR(trace.probCoef, 1.9599957, 2e-6);
}

}  // namespace
}  // namespace zaview
