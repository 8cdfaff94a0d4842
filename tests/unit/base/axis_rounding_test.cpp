#include "base/axis_rounding.h"

#include <cmath>

#include <gtest/gtest.h>

namespace zaview {
namespace {

TEST(AxisRounding, Limits) {
  // clang-format off
  const struct { float low, high, ticks, length; RoundAxis want; } cases[] = {
      {0, 100, 1, 20, {0, 5, 100}}, {-4.882F, 4.273F, 1, 20, {-5, 0.5F, 4.5F}}};
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

}  // namespace
}  // namespace zaview
