#include "base/number_format.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

#include <gtest/gtest.h>

namespace zaview {
namespace {

constexpr float kInf = std::numeric_limits<float>::infinity();
constexpr float kNan = std::numeric_limits<float>::quiet_NaN();

struct NumberCase {
  float value;
  std::string_view cell;  // 13 columns
  std::string_view sentence;
};

TEST(NumberFormat, CellsAndSentences) {
  const NumberCase cases[] = {
      {0.0F,           "     0.000000", "0"           },
      {-0.0F,          "     0.000000", "0"           },
      {1e-30F,         " 1.000000E-30", "1e-30"       },
      {123456789.0F,   " 1.234568E+08", "1.234568e+08"},
      {0.1F,           "    0.1000000", "0.1"         },
      {-2.5e10F,       "-2.500000E+10", "-2.5e+10"    },
      {9.81F,          "     9.810000", "9.81"        },
      {749.75F,        "     749.7500", "749.75"      },
      {1234567.0F,     "    1234567.0", "1234567"     },
      {0.000123456F,   " 0.0001234560", "0.000123456" },
      {-0.000123456F,  "-0.0001234560", "-0.000123456"}, // the widest cell
      {-1.6595603e-5F, "-1.659560E-05", "-1.65956e-05"},
      {9999999.0F,     "    9999999.0", "9999999"     },
      {10000000.0F,    " 1.000000E+07", "1e+07"       },
      {9.9999997e-05F, " 0.0001000000", "0.0001"      },
      {1234567.5F,     "    1234568.0", "1234568"     }, // a tie to even, upwards
      {1234566.5F,     "    1234566.0", "1234566"     }, // a tie to even, downwards
      {1.4e-45F,       " 1.401298E-45", "1.401298e-45"},
      {3.4028235e38F,  " 3.402823E+38", "3.402823e+38"},
      {kInf,           "          Inf", "Inf"         },
      {-kInf,          "         -Inf", "-Inf"        },
      {kNan,           "          NaN", "NaN"         },
      {-kNan,          "          NaN", "NaN"         },
  };
  for (const NumberCase& c : cases) {
    std::string cell;
    AppendPaddedCell(cell, c.value);
    EXPECT_EQ(cell, c.cell);
    EXPECT_EQ(SentenceNumber(c.value), c.sentence);
  }
}

// The short path of ours against the general one, where a digit could go wrong.
std::string General(float value) {
  return fmt::format("{:#.7G}", value + 0.0F);
}

void ExpectGeneral(std::uint32_t bits) {
  const float value = std::bit_cast<float>(bits);
  if (!std::isfinite(value)) return;
  std::string cell;
  AppendCell(cell, value);
  ASSERT_EQ(cell, General(value)) << "bits " << bits;
  ASSERT_LE(cell.size(), 13U);
}

TEST(NumberFormat, SameDigitsAroundPowersOfTen) {
  for (int k = -45; k <= 38; ++k) {
    const std::uint32_t middle = std::bit_cast<std::uint32_t>(static_cast<float>(std::pow(10.0, k)));
    for (std::uint32_t d = 0; d < 2000; ++d) {
      ExpectGeneral(middle + d);
      if (d <= middle) ExpectGeneral(middle - d);
    }
  }
}

TEST(NumberFormat, SameDigitsForRandomBits) {
  std::mt19937 random(20260101);
  for (int i = 0; i < 2'000'000; ++i) ExpectGeneral(static_cast<std::uint32_t>(random()));
}

TEST(NumberFormat, SameDigitsAtTies) {  // k + 1/2 and decimals with eight digits that end in 5
  for (std::uint32_t k = 1'048'576; k < 8'388'608; k += 97)
    ExpectGeneral(std::bit_cast<std::uint32_t>(static_cast<float>(k) + 0.5F));
  for (int k = 10'000'005; k < 99'999'999; k += 7310)
    ExpectGeneral(std::bit_cast<std::uint32_t>(static_cast<float>(k) * 1e-3F));
}

TEST(NumberFormat, DefaultsReadBack) {
  for (const float value : {57.29578F, 0.95F, 0.1F, 1025.0F, 16777217.0F, 1e-7F, 0.33333334F, 3.4028235e38F})
    EXPECT_EQ(std::stof(DefaultNumber(value)), value);
  EXPECT_EQ(DefaultNumber(57.29578F), "57.29578");
  EXPECT_EQ(DefaultNumber(1025.0F), "1025");
}

TEST(NumberFormat, ShownInAMessage) {
  EXPECT_EQ(fmt::format("  time= {} at", Shown{99.75F}), "  time= 99.75 at");
}

}  // namespace
}  // namespace zaview
