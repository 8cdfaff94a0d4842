#include "stats/gauss_probability.h"

#include <limits>

#include <gtest/gtest.h>

namespace zaview {
namespace {

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
