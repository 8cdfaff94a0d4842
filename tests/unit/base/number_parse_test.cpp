#include "base/number_parse.h"

#include <cmath>
#include <limits>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

namespace zaview {
namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();

TEST(NumberParse, TakesTheRealsOfTheFormats) {
  // Each text and the same for the C library.
  std::istringstream pairs(
      "1 1  +1 1  -1.5 -1.5  .5 .5  5. 5  -.5 -.5  1.5E3 1500  1.5e+3 1500  1.5D-3 .0015  1.5d3 1500  1.5-3 .0015  "
      "1.5+3 1500  1-2 .01  007 7  1E-400 0  0E99999999999999999999 0  -0.0 0  1E-99999999999999999999 0  inf inf  "
      "-Infinity -inf  +INF inf  3.4028235E38 3.4028235E38  -3.4028235E38 -3.4028235E38  NaN nan  -nan nan");
  for (std::string text, same; pairs >> text >> same;) {
    const double expected = std::strtod(same.c_str(), nullptr);
    double value = 99;
    float single = 99;
    EXPECT_TRUE(ParseDouble(text, value) && ParseFloat(text, single)) << text;
    EXPECT_TRUE(std::isnan(expected) ? std::isnan(value) && std::isnan(single)
                                     : value == expected && single == static_cast<float>(expected))
        << text << ' ' << value << ' ' << single;
  }
}

TEST(NumberParse, RefusesEverythingElse) {
  std::istringstream texts(
      "+ - . -. E5 1.5E 1.5E+ 1.5- 1..5 1.5.2 1E5.0 1E5E5 1.5-3-2 --1 +-1 1,5 0x10 1F3 nanx in infinit nan(1) **** "
      "1_000 3.4028236E38 -1E39 1E99999999999999999999 3.40282355E38");
  double value = 7;
  float single = 7;
  for (std::string text; texts >> text;) EXPECT_FALSE(ParseDouble(text, value) || ParseFloat(text, single)) << text;
  for (const char* text : {"", "1 ", " 1"}) EXPECT_FALSE(ParseDouble(text, value) || ParseFloat(text, single)) << text;
}

TEST(NumberParse, RoundsOnceToFourBytes) {
  const float above_one = std::nextafter(1.0F, 2.0F), two_up = std::nextafter(above_one, 2.0F);
  const std::string midpoint = "1.000000059604644775390625";  // 1 + 2^-24
  const std::string zeros(900, '0'), many_zeros(5000, '0');
  // clang-format off
  const struct { std::string text; float value; } cases[] = {
      {midpoint, 1.0F},  // a tie goes to the even one
      {midpoint + "00000000000000000000000001", above_one},  // through a double it would be a tie
      {"1.0000000596046447753906249999999999999999", 1.0F},  // likewise from below
      {midpoint + zeros + "1", above_one},  // told only by a digit far behind
      {midpoint + zeros, 1.0F}, {"1.000000178813934326171875", two_up},  // 1 + 3*2^-24: the even one is above
      {"1.4E-45", std::numeric_limits<float>::denorm_min()}, {"0.7E-45", 0.0F},  // below half of the smallest denormal
      {"0.71E-45", std::numeric_limits<float>::denorm_min()},
      {"0." + many_zeros + "15E5001", 1.5F},  // the exponent brings it back
      {"15" + many_zeros + "E-5001", 1.5F},
  };
  // clang-format on
  for (const auto& c : cases) {
    float value = 99;
    EXPECT_TRUE(ParseFloat(c.text, value)) << c.text;
    EXPECT_EQ(value, c.value) << c.text;
  }
}

TEST(NumberParse, IntegersTakeWholeReals) {
  std::istringstream pairs(
      "12 12  -3 -3  3. 3  3.0 3  3E2 300  1200E-2 12  0.5E1 5  0E-5 0  2147483647 2147483647  "
      "-2147483648 -2147483648  2147483648 no  -2147483649 no  3.5 no  1E10 no  1E999999999999 no  nan no  3E no  "
      "1.00000000000000000000001 no");
  for (std::string text, same; pairs >> text >> same;) {
    int value = 0;
    EXPECT_EQ(ParseInteger(text, value) ? std::to_string(value) : "no", same) << text;
  }
}

// The number found in each text from a position on, the position behind it, and whether the text goes on there.
TEST(NumberParse, PromptScannerFindsTheNextNumber) {
  // clang-format off
  const std::tuple<const char*, std::size_t, ParseEnd, double, std::size_t> cases[] = {
      {"1.5D3", 0, ParseEnd::end, 1500, 5}, {"1e+", 0, ParseEnd::end, 1, 3}, {"1-2", 0, ParseEnd::more, 1, 1},
      {"1-2", 1, ParseEnd::end, -2, 3}, {"x = 7 ", 0, ParseEnd::end, 7, 5}, {"- 5", 0, ParseEnd::end, 5, 3},
      {"e5", 0, ParseEnd::end, 5, 2}, {"1.2.3", 0, ParseEnd::more, 1.2, 3}, {"--5", 0, ParseEnd::end, -5, 3},
      {"+ . -", 0, ParseEnd::none, 99, 0}, {"1e999", 0, ParseEnd::none, 99, 0}, {"12", 5, ParseEnd::none, 99, 5},
  };
  // clang-format on
  for (const auto& [text, from, end, expected, behind] : cases) {
    std::size_t position = from;
    double value = 99;
    EXPECT_EQ(parse_real(text, position, value), end) << text;
    EXPECT_EQ(std::pair(value, position), std::pair(expected, behind)) << text;
  }
}

TEST(NumberParse, AFourByteValueStandsForItsShortestText) {
  for (const double number : {9.81, -0.1, 1025.0, 57.29578, 3.4028235e38, 1e-45, 0.0})
    EXPECT_EQ(AsWritten(static_cast<float>(number)), number);
}

TEST(NumberParse, NearestIntegerIsLimited) {
  EXPECT_EQ(RoundToInt(-2.5), -3);
  EXPECT_EQ(RoundToInt(0.49999999999999994), 0);
  EXPECT_EQ(RoundToInt(-kInf), std::numeric_limits<int>::min());
  EXPECT_EQ(RoundToInt(std::nan("")), 0);
}

}  // namespace
}  // namespace zaview
