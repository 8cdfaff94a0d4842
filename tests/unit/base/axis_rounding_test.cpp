#include "base/axis_rounding.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

namespace zaview {
namespace {

TEST(AxisRounding, Limits) {
  // clang-format off
  const struct { float low, high, ticks, length; RoundAxis want; } cases[] = {
      {0, 100, 1, 20, {0, 5, 100}},    {-4.882F, 4.273F, 1, 20, {-5, 0.5F, 4.5F}},
      {2.5F, 7.5F, 0.75F, 5, {2, 2, 8}},  // ticks times length is truncated, not ticks
      {0.3F, 0.9F, 1, 6, {0.3F, 0.1F, 0.9F}}, {-7.9F, 1.3F, 0.5F, 5, {-10, 5, 5}},
      {10, 0, 1, 5, {10, -2, 0}},         // falling
      {5, 5, 1, 5, {4.9995F, 0.0005F, 5.0005F}}, {0, 0, 1, 5, {-0.0001F, 0.0001F, 0.0001F}},  // no range at all
      {1e-13F, 2e-13F, 1, 5, {0, 1e-12F, 1e-12F}}, {0, 750, 1, 9, {0, 100, 800}}};
  // clang-format on
  for (const auto& c : cases) {
    const RoundAxis got = dgRoundAxis(c.low, c.high, c.ticks, c.length);
    SCOPED_TRACE(testing::Message() << c.low << ' ' << c.high);
    EXPECT_FLOAT_EQ(got.low, c.want.low);
    EXPECT_NEAR(got.step, c.want.step, 1e-4F * std::abs(c.want.step));
    EXPECT_FLOAT_EQ(got.high, c.want.high);
    EXPECT_FALSE(std::signbit(got.low) && got.low == 0.0F);
  }
}

TEST(AxisRounding, Steps) {
  // clang-format off
  const struct { float value, step, fine; } cases[] = {
      {1, 1, 1}, {1.01F, 2, 2}, {2.2F, 2.5F, 2.5F}, {2.6F, 3, 3}, {5.5F, 7.5F, 6}, {6.5F, 7.5F, 7.5F}, {7.6F, 10, 10},
      {0.03F, 0.03F, 0.03F},       // on an entry of both
      {0.00075F, 0.001F, 0.00075F},
      {8e-6F, 1e-5F, 8e-6F},       // below the fine table
      {12000, 20000, 12000},       // above it
      {6200, 7500, 7500}, {0, 0, 0}};
  // clang-format on
  for (const auto& c : cases) {
    SCOPED_TRACE(c.value);
    EXPECT_FLOAT_EQ(dgRoundStep(c.value), c.step);
    EXPECT_FLOAT_EQ(dgRoundStep(-c.value), -c.step);
    EXPECT_FLOAT_EQ(dgRoundFine(c.value), c.fine);
  }
  const float infinite = std::numeric_limits<float>::infinity();
  EXPECT_EQ(dgRoundStep(infinite), infinite);
  EXPECT_TRUE(std::isnan(dgRoundFine(std::nanf(""))));
  EXPECT_GT(dgRoundStep(1e-45F), 0.0F);  // the smallest there is
}

TEST(AxisRounding, Decades) {
  const struct {
    float low, high;
    LogLimits want;
  } cases[] = {
      {1, 1000, {0, 3}},        {0.5F, 20, {-1, 2}},     {3, 7, {0, 1}},     {10, 10, {1, 2}},  // no range at all
      {0, 100, {-1, 2}},        {0, 0, {0, 1}},          {-3, -1, {0, 1}},   {0.001F, 0.0010001F, {-3, -2}},
      {1e-12F, 1e5F, {-12, 5}}, {99.9F, 100.1F, {1, 3}}, {2000, 30, {3, 4}},  // the wrong way round
      {0, 1, {-3, 0}},          {5, -1, {0, 1}}};
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.low << ' ' << c.high);
    const LogLimits got = dgRoundLog(c.low, c.high);
    EXPECT_EQ(got.low, c.want.low);
    EXPECT_EQ(got.high, c.want.high);
  }
}

}  // namespace
}  // namespace zaview
