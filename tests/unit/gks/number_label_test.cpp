#include "gks/plot/number_label.h"

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace zaview {
namespace {

TEST(NumberLabel, Texts) {
  // clang-format off
  const struct { float v, c; const char* want; } cases[] = {
      {0, 0.01F, " 0.00"}, {0.004F, 0.005F, " 0.00"}, {-0.004F, 0.005F, " 0.00"}, {0, -1, " 0.00"},
      {0.5F, 0.001F, ".5000"}, {0.00996F, 0.001F, ".0100"}, {0.00123F, 1e-4F, "1.2E-3"}, {1, 0.01F, "1.000"},
      {9.9997F, 0.01F, "10.00"}, {99.996F, 0.1F, "100.0"}, {250, 1, "250.0"}, {999.96F, 1, "1000"}, {1234, 1, "1234"},
      {99999, 1, "99999"}, {123456, 100, "1.2E+5"}, {9.96e6F, 1e4F, "1.0E+7"}, {3.2e12F, 1e9F, "3.2E+12"},
      {-0.5F, 0.001F, "-.500"}, {-0.0075F, 1e-4F, "-7.5E-3"}, {-5.25F, 0.01F, "-5.25"}, {-50, 0.1F, "-50.0"},
      {-99.96F, 1, "-100"}, {-9999, 10, "-9999"}, {-25000, 10, "-2.5E+4"}, {-3.2e12F, 1e9F, "-3.2E+12"},
      {1e-5F, 0, "1.0E-5"}, {1e-45F, 0, "1.4E-45"},
  };
  // clang-format on
  for (const auto& c : cases) EXPECT_EQ(dgFormatNumber(c.v, c.c), c.want) << c.v << ' ' << c.c;
  const float infinite = std::numeric_limits<float>::infinity();
  EXPECT_EQ(dgFormatNumber(infinite, 1), "Inf");
  EXPECT_EQ(dgFormatNumber(-infinite, 1), "-Inf");
  EXPECT_EQ(dgFormatNumber(std::numeric_limits<float>::quiet_NaN(), 1), "NaN");
}

// Every number with a plain form has at most five characters, whatever it rounds to.
TEST(NumberLabel, FitsFiveCharacters) {
  for (const float end : {0.00995F, 0.009995F, 0.99995F, 0.9995F, 9.9995F, 9.995F, 99.995F, 99.95F, 999.95F, 9999.5F})
    for (const float v : {end, std::nextafter(end, 0.0F), -end, -std::nextafter(end, 0.0F)}) {
      const std::string text = dgFormatNumber(v, 0);
      EXPECT_TRUE(text.size() <= 5 || text.find('E') != std::string::npos) << v << ' ' << text;
    }
}

// From the first value on, by the step: the labels of an axis have the same decimals, and no two are equal.
TEST(NumberLabel, OfAnAxis) {
  // clang-format off
  const struct { std::vector<float> values; float step; const char* want; } cases[] = {
      {{-1001, -1000.5F, -1000, -999.5F, -999}, 0.5F, "-1001.0 -1000.5 -1000.0 -999.5 -999.0"},
      {{19.075F, 19.1F, 19.125F, 19.15F}, 0.025F, "19.075 19.100 19.125 19.150"},
      {{0, 2.5F, 5, 7.5F}, 2.5F, "0.0 2.5 5.0 7.5"}, {{0, 7.5F, 15, 22.5F}, -7.5F, "0.0 7.5 15.0 22.5"},
      {{0, 20, 40, 59.75F}, 20, "0.0 20.0 40.0 59.8"},  // off by less than 1/100 of the step
      {{-5.25e7F, -5e7F, 0, 2.5e6F}, 2.5e6F, "-5.25E+7 -5.00E+7 0.00 0.25E+7"},
      {{0, 50000, 100000}, 50000, "0 50000 100000"},
      {{-0.0005F, -0.00025F, 0, 0.00025F}, 0.00025F, "-5.0E-4 -2.5E-4 0.0 2.5E-4"},
      {{-1e-4F, -5e-5F, 0, 5e-5F, 1e-4F}, 5e-5F, "-1.0E-4 -0.5E-4 0.0 0.5E-4 1.0E-4"},
      {{0, 0.001F, 0.002F}, 0.001F, "0.000 0.001 0.002"}, {{-0.1F, -1e-9F, 0.1F}, 0.1F, "-0.1 0.0 0.1"}, {{0}, 1, "0"},
      {{-1e-10F, 1e-10F}, 1e-4F, "-1E-10 1E-10"},  // of one instant
  };
  // clang-format on
  for (const auto& c : cases) {
    const AxisFormat format = dgAxisFormat(c.values, c.step);
    std::string got;
    for (const float value : c.values) got += (got.empty() ? "" : " ") + dgAxisLabel(value, format);
    EXPECT_EQ(got, c.want);
  }
}

}  // namespace
}  // namespace zaview
