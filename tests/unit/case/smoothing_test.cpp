#include "case/smoothing.h"

#include <cmath>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

namespace zaview {
namespace {

// Expected values by numpy.polyfit over each window.
TEST(Smoothing, LeastSquaresFits) {
  constexpr float kSamples[] = {0.5F, -1.25F, 3, 2, 8, -4, 0.75F, 1, 6, -2.5F, 3.5F, 7};
  // clang-format off
  const struct { int option, width; std::vector<double> fits; } cases[] = {
      {1, 99, {0.264285714, -0.107142857, 0.985714286, 5.19285714, 2.87857143, 0.8, -1.86428571, 3.35714286, 2.03571429,
               1.35714286, 3.12857143, 6.54285714}},
      {1, 1, {-0.0625, 0.4375, 1.3125, 2.5625}}, {1, 1, {0.5, -1.25, 3.0}}, {1, 1, {0.5}},
      {3, 11, {-0.482517483, 1.21153846, 2.11247086, 2.4020979, 2.26223776, 1.87470862, 1.42249417, 0.730769231,
               0.554195804, 1.26515152, 3.23601399, 6.83916084}},
      {3, 6, {0.75, -1.51785714, 1.57142857, 5.39285714, 2.54365079, 0.325396825, -0.861111111, 3.08730159, 1.73412698,
              1.03174603, 1.8234127, 7.31746032}},
      {3, 50, {-0.6996337, 1.32009657, 2.32958708, 2.57398157, 2.2984238, 1.7480575, 1.16802642, 0.803474303, 0.8995449,
               1.70138195, 3.4541292, 6.4029304}},
      {3, 3, {0.5, -1.25, 3.0, 2.0}}, {3, 0, {0.5, -1.25, 3.0}}};
  // clang-format on
  for (const auto& c : cases) {
    std::vector<float> output(c.fits.size());
    ASSERT_EQ(TimeDataFilter(c.option, c.width, std::span(kSamples).first(output.size()), output), FilterStatus::ok);
    for (std::size_t i = 0; i < output.size(); ++i)
      EXPECT_NEAR(output[i], c.fits[i], 1e-6) << c.option << ' ' << c.width << ' ' << i;
  }
}

TEST(Smoothing, ConstantsStayAndOddInput) {
  const std::vector<float> constant(300, 0.1F);
  std::vector<float> smooth(300), samples(20, 1), output(20, 5);
  for (const int option : {1, 3})
    for (const int width : {5, 11, 12, 101}) {
      EXPECT_EQ(TimeDataFilter(option, width, constant, smooth), FilterStatus::ok);
      EXPECT_EQ(smooth, constant) << option << ' ' << width;
    }
  EXPECT_EQ(TimeDataFilter(2, 11, samples, output), FilterStatus::bad_option);
  EXPECT_EQ(output[0], 5);
  samples[10] = std::numeric_limits<float>::quiet_NaN();
  EXPECT_EQ(TimeDataFilter(1, 5, samples, output), FilterStatus::ok);
  for (std::size_t i = 0; i < 20; ++i) EXPECT_EQ(std::isnan(output[i]), i >= 8 && i <= 12) << i;
}

}  // namespace
}  // namespace zaview
