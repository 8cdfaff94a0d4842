#include "stats/upcrossings.h"

#include <array>
#include <cmath>

#include <gtest/gtest.h>

#include "worked_records.h"

namespace zaview {
namespace {

using Rows = std::vector<std::array<int, 4>>;  // total, least, most, independent

Rows Count(EnsembleRecords X, float mean, std::span<const float> thresholds, int ndti) {
  std::vector<UpcrossingRow> rows;
  UpCrossing(X, mean, thresholds, ndti, rows);
  Rows counts;
  for (const UpcrossingRow& row : rows) counts.push_back({row.total, row.min_record, row.max_record, row.independent});
  return counts;
}

TEST(UpCrossing, WorkedEnsemble) {
  const std::vector<float> v = Thresholds(4.0F, -4.0F, 1.5F);
  EXPECT_EQ(v, (std::vector<float>{-4, -2.5, -1, 0.5, 2, 4}));
  const Rows want = {{2, 0, 2, 2}, {11, 0, 5, 11}, {24, 0, 11, 24}, {30, 0, 13, 30}, {23, 0, 10, 23}, {4, 0, 3, 4}};
  EXPECT_EQ(Count(WorkedEnsemble(), 0.41798905F, v, 7), want);
}

TEST(UpCrossing, ThresholdsAreClamped) {
  // clang-format off
  const struct { float min, max, increment; std::size_t count; } cases[] = {
      {1, 1, 1, 1}, {0, 1, 0, 2}, {0, 1, -1, 2}, {0, 1, 9, 2}, {0, 1, 0.25F, 5}, {0, 1, 1e-30F, 999}, {0, 1, INFINITY, 2},
      {-INFINITY, INFINITY, 1, 999}, {NAN, 1, 1, 1}, {0, 1, NAN, 2}, {-3e38F, 3e38F, 1, 999}};
  // clang-format on
  for (const auto& c : cases) {
    const std::vector<float> v = Thresholds(c.min, c.max, c.increment);
    EXPECT_EQ(v.size(), c.count) << c.min << ' ' << c.max << ' ' << c.increment;
    EXPECT_TRUE(c.count == 1 || (v.front() == c.min && v.back() == c.max));
  }
}

// The definition, threshold by threshold, on samples that often equal a threshold or the mean.
TEST(UpCrossing, SearchFindsWhatEachThresholdFinds) {
  std::vector<float> x(5000);
  unsigned random = 12345;
  for (float& v : x) {
    random = random * 1664525U + 1013904223U;
    v = random % 97U == 0 ? NAN : static_cast<float>((random >> 16U) % 21U) * 0.25F - 2.5F;
  }
  const std::vector<float> v = Thresholds(-3.0F, 3.0F, 0.125F);
  const std::span<const float> record = x;
  for (const float mean : {0.25F, 0.3F, -9.0F, 9.0F, NAN}) {
    Rows want;
    for (const float level : v) {
      int total = 0, independent = 0;
      std::size_t before = 0;
      const float s = mean <= level ? 1.0F : -1.0F;
      for (std::size_t i = 0; i + 1 < x.size() && mean == mean; ++i) {
        if (!(s * x[i] <= s * level && s * level < s * x[i + 1])) continue;
        if (++total == 1 || i - before >= 5) ++independent;
        before = i;
      }
      want.push_back({total, total, total, independent});
    }
    const Rows got = Count(std::span(&record, 1), mean, v, 5);
    EXPECT_EQ(got, mean == mean ? want : Rows(v.size())) << mean;
  }
}

}  // namespace
}  // namespace zaview
