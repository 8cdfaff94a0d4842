#include "stats/peaks.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "near.h"
#include "worked_records.h"

namespace zaview {
namespace {

void ExpectList(const PeakList& got, const std::vector<int>& steps, const std::vector<double>& values) {
  EXPECT_EQ(got.step, steps);
  ASSERT_EQ(got.value.size(), values.size());
  for (std::size_t i = 0; i < values.size(); ++i) EXPECT_NEAR(static_cast<double>(got.value[i]), values[i], 1e-6) << i;
}

TEST(GetPeaks, WorkedRecord) {
  const std::span<const float> x = WorkedRecord(1);
  Peaks peaks;
  GetPeaks(std::span(&x, 1), 0.41592675F, peaks);
  ExpectList(peaks.bottom, {9, 21, 31, 42, 61, 71, 80, 91, 97, 108, 117, 128, 140},
             {-4.058, -1.072, -2.837, -2.71, -2.603, -1.742, 0.045, -0.325, -2.23, -4.882, -1.492, -1.556, -1.002});
  ExpectList(peaks.top, {16, 26, 36, 52, 68, 76, 85, 93, 102, 113, 123, 135},
             {1.859, 4.273, 1.17, 2.403, 3.177, 2.735, 3.513, 1.104, 2.853, 3.984, 3.282, 3.008});
  ASSERT_EQ(peaks.all.value.size(), 25U);
  for (std::size_t i = 0; i < 25; ++i) {  // bottoms and tops in turn, both as heights above the mean
    const PeakList& from = i % 2 == 0 ? peaks.bottom : peaks.top;
    EXPECT_EQ(peaks.all.step[i], from.step[i / 2]);
    EXPECT_NEAR(peaks.all.value[i], std::abs(from.value[i / 2] - 0.41592675F), 1e-6);
  }
}

TEST(GetPeaks, HalfCyclesAboutZero) {
  constexpr float tiny = std::numeric_limits<float>::min();
  constexpr float nan = std::numeric_limits<float>::quiet_NaN();
  const struct {
    const char* name;
    std::vector<float> x;
    std::vector<int> bottom_steps, top_steps;
    std::vector<double> bottoms, tops;
    bool crossing;
  } cases[] = {
      {"a half cycle from 0 on is below", {1, 0, 2, -1}, {2}, {3}, {0.0}, {2.0}, true},
      {"0 belongs to the running one", {0, 1, 2, 0, -1, -3, 0, 2, 1, -1}, {6}, {3, 8}, {-3.0}, {2.0, 2.0}, true},
      {"the first of equal extremes", {-1, 1, 2, 2, -1, -1, 1}, {5}, {3}, {-1.0}, {2.0}, true},
      {"what is open at the end is none", {-1, 1, 5}, {}, {}, {}, {}, true},
      {"touching the last sample", {1, 2, 0}, {}, {}, {}, {}, false},
      {"on one side", {1, 2, 1, 2}, {}, {}, {}, {}, false},
      {"everywhere 0", {0, 0, 0, 0}, {}, {}, {}, {}, true},
      {"a product that underflows", {tiny, tiny, -1, 1, -1}, {3}, {2, 4}, {-1.0}, {0.0, 1.0}, true},
      {"none", {}, {}, {}, {}, {}, false},
      {"not a number", {nan, 1, nan, -1}, {}, {}, {}, {}, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    const std::span<const float> x = c.x;
    Peaks peaks;
    std::vector<int> none;
    GetPeaks(std::span(&x, 1), 0.0F, peaks, &none);
    ExpectList(peaks.bottom, c.bottom_steps, c.bottoms);
    ExpectList(peaks.top, c.top_steps, c.tops);
    EXPECT_EQ(peaks.all.step.size(), c.bottom_steps.size() + c.top_steps.size());
    EXPECT_EQ(none.empty(), c.crossing);
  }
}

TEST(GetPeaks, RecordsKeepTheirNumbers) {
  const float a[] = {-1, 2, -3, 1}, b[] = {1, 1, 1};
  const std::span<const float> records[] = {a, {}, b, a};
  Peaks peaks;
  std::vector<int> none;
  GetPeaks(records, 0.0F, peaks, &none);
  EXPECT_EQ(peaks.all.record, (std::vector<int>{1, 1, 4, 4}));
  EXPECT_EQ(peaks.all.step, (std::vector<int>{2, 3, 2, 3}));
  EXPECT_EQ(none, (std::vector<int>{2, 3}));
}

}  // namespace
}  // namespace zaview
