#include "stats/exceedances.h"

#include <array>

#include <gtest/gtest.h>

#include "worked_records.h"

namespace zaview {
namespace {

constexpr float kTotalTime = 178.5F;

ExceedanceCount Count(EnsembleRecords X, float v, Direction option, int ndep) {
  std::vector<std::vector<float>> times;
  for (const auto& x : X) times.push_back(WorkedTimes(x.size()));
  ExceedanceCount out;
  CountExceedances(X, ViewsOf(times), v, option, ndep, out);
  EXPECT_EQ(static_cast<int>(out.list.size()), out.nind);
  return out;
}

TEST(Exceedances, WorkedEnsemble) {
  // clang-format off
  const struct {
    float v; Direction option; int ndep, nind, total; double rate_low, rate_high, Tex;
    std::size_t j; Exceedance want;  // entry j of the list
  } cases[] = {
      {2, Direction::both, 7, 29, 37, 0.105765566, 0.2191644, 58.702152, 12, {3, 20, 9.450557F}},
      {1.5F, Direction::up, 0, 27, 27, 0.09638612, 0.20613489, 55.054634, 26, {4, 90, 44.484077F}},
      {-1.5F, Direction::down, 5, 18, 18, 0.055434156, 0.14624652, 29.608982, 0, {1, 6, 2.3824317F}},
      {1.5F, Direction::up, 7, 25, 27, 0.08709479, 0.19301724, 55.054634, 20, {4, 33, 15.780462F}}};
  // clang-format on
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Tex);
    const ExceedanceCount out = Count(WorkedEnsemble(), c.v, c.option, c.ndep);
    ASSERT_EQ((std::array{out.nind, out.total}), (std::array{c.nind, c.total}));
    ExpectClose(out.Tex, c.Tex, "Tex");
    const Exceedance& entry = out.list[c.j];
    EXPECT_TRUE(entry.record == c.want.record && entry.position == c.want.position);
    ExpectClose(entry.time, static_cast<double>(c.want.time), "time");
    const ExceedanceLimits limits = LimitsOf(out.nind, 360, 0.95F);
    ExpectClose(limits.low / kTotalTime, c.rate_low, "low");
    ExpectClose(limits.high / kTotalTime, c.rate_high, "high");
  }
  EXPECT_EQ(LimitsOf(0, 360, 0.95F).high, 0.0F);
  EXPECT_EQ(LimitsOf(1, 360, 0.95F).low, 0.0F);
}

// By hand, steps 0.5 s apart.
TEST(Exceedances, EdgesOfTheState) {
  // clang-format off
  const struct { const char* what; std::vector<float> x; float v; Direction option; int total; float Tex; } cases[] = {
      {"starts and ends beyond: one entry", {3, 3, 0, 0, 2, 3}, 1, Direction::up, 1, 0.8333333F + 0.75F},
      {"starts below -v", {-3, -1, 1, 0}, 2, Direction::both, 0, 0.25F},
      {"jumps from one side to the other", {0, 4, -4, 0}, 2, Direction::both, 2, 0.375F + 0.375F},
      {"reaches the level, then higher: once", {0, 1, 2, 0}, 1, Direction::up, 1, 0.75F},
      {"leaves from the level exactly", {0, 2, 1, 0}, 1, Direction::up, 1, 0.25F + 0.5F},
      {"one sample is no walk", {5}, 1, Direction::up, 0, 0}};
  // clang-format on
  for (const auto& c : cases) {
    const std::span<const float> x = c.x;
    const ExceedanceCount out = Count(std::span(&x, 1), c.v, c.option, 1);
    EXPECT_EQ(out.total, c.total) << c.what;
    EXPECT_FLOAT_EQ(out.Tex, c.Tex) << c.what;
  }
}

TEST(Exceedances, BlocksOfTheWorkedEnsemble) {
  // clang-format off
  const struct { float v; Direction option; int ndep; std::size_t blocks; int exceeding; double min, max; } cases[] = {
      {2, Direction::both, 7, 50, 43, -1.6411002, 2.32186},
      {3.6F, Direction::up, 25, 13, 6, -2.765231, 3.643461},
      {-4.5F, Direction::down, 500, 3, 1, -4.147, 4.253},
      {2, Direction::up, 0, 360, 81, 0.41798905, 0.41798905}};
  // clang-format on
  BlockCount out;
  for (const auto& c : cases) {
    SCOPED_TRACE(c.ndep);
    CountBlocks(WorkedEnsemble(), c.v, c.option, c.ndep, out);
    EXPECT_EQ(out.blocks.size(), c.blocks);
    EXPECT_EQ(out.exceeding, c.exceeding);
    ExpectClose(out.average_min, c.min, "min");
    ExpectClose(out.average_max, c.max, "max");
  }
  CountBlocks(WorkedEnsemble(), 2, Direction::up, 7, out);  // 150 = 21 blocks of 7 or 8
  EXPECT_TRUE(out.blocks[1].first == 8 && out.blocks[1].last == 14 && out.blocks[20].last == 150);
  EXPECT_TRUE(out.blocks[21].record == 3 && out.blocks[21].first == 1);
}

}  // namespace
}  // namespace zaview
