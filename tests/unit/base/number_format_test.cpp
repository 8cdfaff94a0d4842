#include "base/number_format.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

#include <gtest/gtest.h>

namespace zaview {
namespace {

TEST(NumberFormat, CellsAndSentences) {
  constexpr float inf = std::numeric_limits<float>::infinity(), nan = std::numeric_limits<float>::quiet_NaN();
  // clang-format off
  const struct {
    float value;
    std::string_view cell;  // 13 columns
    std::string_view sentence;
  } cases[] = {
      {-0.0F, "     0.000000", "0"}, {0.1F, "    0.1000000", "0.1"}, {-2.5e10F, "-2.500000E+10", "-2.5e+10"},
      {1234567.0F, "    1234567.0", "1234567"}, {-0.000123456F, "-0.0001234560", "-0.000123456"},  // the widest cell
      {-1.6595603e-5F, "-1.659560E-05", "-1.65956e-05"}, {10000000.0F, " 1.000000E+07", "1e+07"},
      {9.9999997e-05F, " 0.0001000000", "0.0001"}, {1234567.5F, "    1234568.0", "1234568"},  // a tie to even, upwards
      {1234566.5F, "    1234566.0", "1234566"},  // a tie to even, downwards
      {3.4028235e38F, " 3.402823E+38", "3.402823e+38"}, {inf, " 3.402823E+38", "3.402823e+38"},
      {-inf, "-3.402823E+38", "-3.402823e+38"}, {nan, "     0.000000", "0"}, {-nan, "     0.000000", "0"},
  };
  // clang-format on
  for (const auto& c : cases) {
    std::string cell;
    AppendPaddedCell(cell, c.value);
    EXPECT_EQ(cell, c.cell);
    EXPECT_EQ(SentenceNumber(c.value), c.sentence);
  }
}

// The short path of ours against the general one, where a digit could go wrong.
void ExpectGeneral(std::uint32_t bits) {
  const float value = std::bit_cast<float>(bits);
  if (!std::isfinite(value)) return;
  std::string cell;
  AppendCell(cell, value);
  ASSERT_EQ(cell, fmt::format("{:#.7G}", value + 0.0F)) << "bits " << bits;
  ASSERT_LE(cell.size(), 13U);
}

TEST(NumberFormat, SameDigitsAsTheGeneralPath) {
  for (int k = -45; k <= 38; ++k) {
    const std::uint32_t middle = std::bit_cast<std::uint32_t>(static_cast<float>(std::pow(10.0, k)));
    for (std::uint32_t d = 0; d < 4000; ++d)
      if (d <= middle + 2000) ExpectGeneral(middle + 2000 - d);
  }
  std::mt19937 random(20260101);
  for (int i = 0; i < 2'000'000; ++i) ExpectGeneral(static_cast<std::uint32_t>(random()));
  for (std::uint32_t k = 1'048'576; k < 8'388'608; k += 97)  // ties: k + 1/2, and eight digits that end in 5
    ExpectGeneral(std::bit_cast<std::uint32_t>(static_cast<float>(k) + 0.5F));
  for (int k = 10'000'005; k < 99'999'999; k += 7310)
    ExpectGeneral(std::bit_cast<std::uint32_t>(static_cast<float>(k) * 1e-3F));
}

TEST(NumberFormat, DefaultsReadBack) {
  for (const float value : {57.29578F, 0.95F, 0.1F, 1025.0F, 16777217.0F, 1e-7F, 0.33333334F, 3.4028235e38F})
    EXPECT_EQ(std::stof(DefaultNumber(value)), value);
  EXPECT_EQ(DefaultNumber(57.29578F), "57.29578");
}

}  // namespace
}  // namespace zaview
