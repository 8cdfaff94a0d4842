// Whatever the samples are, the routines end and stay inside their lists.
#include <limits>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "stats/autocovariance.h"
#include "stats/dependence_time.h"
#include "stats/highest_peaks.h"
#include "stats/peak_stats.h"

namespace zaview {
namespace {

constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kOdd[] = {
    std::numeric_limits<float>::quiet_NaN(), kInfinity, -kInfinity, 0.0F, -0.0F, 3.0e38F, 1.0e-45F};

// Small whole numbers, so that ties are many, and one odd value in `every`.
std::vector<float> OddRecord(std::mt19937& random, unsigned every) {
  std::vector<float> x(random() % 300);
  for (float& v : x)
    v = random() % every == 0 ? kOdd[random() % std::size(kOdd)] : static_cast<float>(random() % 9) - 4.0F;
  return x;
}

TEST(AnySamples, EveryRoutineEnds) {
  std::mt19937 random(11);
  const int N[] = {1, 3, std::numeric_limits<int>::max()};
  for (unsigned trial = 0; trial < 400; ++trial) {
    const std::vector<float> x = OddRecord(random, trial % 2 == 0 ? 4 : 200);
    const std::span<const float> record = x;
    const float threshold = kOdd[trial % std::size(kOdd)];

    Peaks peaks;
    GetPeaks(std::span(&record, 1), threshold, peaks);
    PeakAverage average;
    CalcPeakAvgN(3, 0, peaks.all, trial % 3 == 0 ? -1.0F : 1.0F, 5, 1.96F, average);
    EXPECT_LE(average.npN, static_cast<int>(peaks.all.value.size()));

    RecordPeakStats peak_stats[std::size(N)];
    EXPECT_EQ(StatFault::none, CalcRecordPeakStats(N, 0, x, 0.95F, peak_stats));
    RecordStats stats;
    EXPECT_EQ(StatFault::none, CalcRecordStats(1, x, 0.95F, stats));

    HighestPeaks highest[std::size(N)];
    CalcAvgHighestPeaks(N, x, threshold, highest);
    BetweenAverages between;
    CalcAvgBetween(x, x, threshold, between);

    Dependence dependence;
    RecordDependence(x, 0.05F, dependence);
    EXPECT_TRUE(0 <= dependence.ndti && dependence.ndti <= static_cast<int>(x.size() / 2)) << dependence.ndti;
  }
}

}  // namespace
}  // namespace zaview
