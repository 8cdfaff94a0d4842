#include "base/number_parse.h"

#include <cmath>
#include <limits>
#include <string>

#include <gtest/gtest.h>

namespace zaview {
namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();

TEST(NumberParse, TakesTheRealsOfTheFormats) {
  struct Case {
    const char* text;
    double value;
  };
  const Case cases[] = {
      {"1",                       1            },
      {"+1",                      1            },
      {"-1.5",                    -1.5         },
      {".5",                      0.5          },
      {"5.",                      5            },
      {"-.5",                     -0.5         },
      {"1.5E3",                   1500         },
      {"1.5e+3",                  1500         },
      {"1.5D-3",                  0.0015       },
      {"1.5d3",                   1500         },
      {"1.5-3",                   0.0015       },
      {"1.5+3",                   1500         },
      {"1-2",                     0.01         },
      {"007",                     7            },
      {"1E-400",                  0            },
      {"0E99999999999999999999",  0            },
      {"-0.0",                    0            },
      {"1E-99999999999999999999", 0            },
      {"inf",                     kInf         },
      {"-Infinity",               -kInf        },
      {"+INF",                    kInf         },
      {"3.4028235E38",            3.4028235E38 },
      {"-3.4028235E38",           -3.4028235E38},
  };
  for (const Case& c : cases) {
    double value = 99;
    float single = 99;
    EXPECT_TRUE(ParseDouble(c.text, value)) << c.text;
    EXPECT_EQ(value, c.value) << c.text;
    EXPECT_TRUE(ParseFloat(c.text, single)) << c.text;
    EXPECT_EQ(single, static_cast<float>(c.value)) << c.text;
  }
  double value = 0;
  EXPECT_TRUE(ParseDouble("NaN", value) && std::isnan(value));
  EXPECT_TRUE(ParseDouble("-nan", value) && std::isnan(value));
}

TEST(NumberParse, RefusesEverythingElse) {
  for (const char* text : {"",
                           "+",
                           "-",
                           ".",
                           "-.",
                           "E5",
                           "1.5E",
                           "1.5E+",
                           "1.5-",
                           "1..5",
                           "1.5.2",
                           "1E5.0",
                           "1E5E5",
                           "1.5-3-2",
                           "--1",
                           "+-1",
                           "1 ",
                           " 1",
                           "1,5",
                           "0x10",
                           "1F3",
                           "nanx",
                           "in",
                           "infinit",
                           "nan(1)",
                           "****",
                           "1_000",
                           "3.4028236E38",
                           "-1E39",
                           "1E99999999999999999999",
                           "3.40282355E38"}) {
    double value = 7;
    float single = 7;
    EXPECT_FALSE(ParseDouble(text, value)) << text;
    EXPECT_FALSE(ParseFloat(text, single)) << text;
  }
}

TEST(NumberParse, RoundsOnceToFourBytes) {
  struct Case {
    std::string text;
    float value;  // written as bits of hand: the neighbours of the midpoint
  };
  const float above_one = std::nextafter(1.0F, 2.0F), two_up = std::nextafter(above_one, 2.0F);
  const std::string midpoint = "1.000000059604644775390625";  // 1 + 2^-24
  const std::string zeros(900, '0'), many_zeros(5000, '0');
  const Case cases[] = {
      {midpoint,                                     1.0F                                    }, // a tie goes to the even one
      {midpoint + "00000000000000000000000001",      above_one                               }, // through a double it would be a tie
      {"1.0000000596046447753906249999999999999999", 1.0F                                    }, // likewise from below
      {midpoint + zeros + "1",                       above_one                               }, // told only by a digit far behind
      {midpoint + zeros,                             1.0F                                    },
      {"1.000000178813934326171875",                 two_up                                  }, // 1 + 3*2^-24: the even one is above
      {"1.4E-45",                                    std::numeric_limits<float>::denorm_min()},
      {"0.7E-45",                                    0.0F                                    }, // below half of the smallest denormal
      {"0.71E-45",                                   std::numeric_limits<float>::denorm_min()},
      {"0." + many_zeros + "15E5001",                1.5F                                    }, // the exponent brings it back
      {"15" + many_zeros + "E-5001",                 1.5F                                    },
  };
  for (const Case& c : cases) {
    float value = 99;
    EXPECT_TRUE(ParseFloat(c.text, value)) << c.text;
    EXPECT_EQ(value, c.value) << c.text;
  }
}

TEST(NumberParse, IntegersTakeWholeReals) {
  struct Case {
    const char* text;
    bool good;
    int value;
  };
  const Case cases[] = {
      {"12",                        true,  12                             },
      {"-3",                        true,  -3                             },
      {"3.",                        true,  3                              },
      {"3.0",                       true,  3                              },
      {"3E2",                       true,  300                            },
      {"1200E-2",                   true,  12                             },
      {"0.5E1",                     true,  5                              },
      {"0E-5",                      true,  0                              },
      {"2147483647",                true,  2147483647                     },
      {"-2147483648",               true,  std::numeric_limits<int>::min()},
      {"2147483648",                false, 0                              },
      {"-2147483649",               false, 0                              },
      {"3.5",                       false, 0                              },
      {"1E10",                      false, 0                              },
      {"1E999999999999",            false, 0                              },
      {"nan",                       false, 0                              },
      {"3E",                        false, 0                              },
      {"1.00000000000000000000001", false, 0                              },
      {"",                          false, 0                              },
  };
  for (const Case& c : cases) {
    int value = 0;
    EXPECT_EQ(ParseInteger(c.text, value), c.good) << c.text;
    EXPECT_EQ(value, c.value) << c.text;
  }
}

TEST(NumberParse, PromptScannerFindsTheNextNumber) {
  struct Case {
    const char* text;
    std::size_t from;
    ParseEnd end;
    double value;
    std::size_t position;
  };
  const Case cases[] = {
      {"1.5D3",  0, ParseEnd::end,  1500, 5},
      {"1e",     0, ParseEnd::end,  1,    2},
      {"1e+",    0, ParseEnd::end,  1,    3},
      {"-.5",    0, ParseEnd::end,  -0.5, 3},
      {"1-2",    0, ParseEnd::more, 1,    1},
      {"1-2",    1, ParseEnd::end,  -2,   3},
      {"3,4",    0, ParseEnd::more, 3,    1},
      {"3,4",    1, ParseEnd::end,  4,    3},
      {"x = 7 ", 0, ParseEnd::end,  7,    5},
      {"- 5",    0, ParseEnd::end,  5,    3},
      {"e5",     0, ParseEnd::end,  5,    2},
      {"1.2.3",  0, ParseEnd::more, 1.2,  3},
      {"5.",     0, ParseEnd::end,  5,    2},
      {"--5",    0, ParseEnd::end,  -5,   3},
      {"1e5x",   0, ParseEnd::more, 1E5,  3},
      {"no",     0, ParseEnd::none, 99,   0},
      {"+ . -",  0, ParseEnd::none, 99,   0},
      {"",       0, ParseEnd::none, 99,   0},
      {"1e999",  0, ParseEnd::none, 99,   0},
      {"12",     2, ParseEnd::none, 99,   2},
      {"12",     5, ParseEnd::none, 99,   5},
  };
  for (const Case& c : cases) {
    std::size_t position = c.from;
    double value = 99;
    EXPECT_EQ(parse_real(c.text, position, value), c.end) << c.text;
    EXPECT_EQ(value, c.value) << c.text;
    EXPECT_EQ(position, c.position) << c.text;
  }
}

TEST(NumberParse, NearestIntegerIsLimited) {
  EXPECT_EQ(RoundToInt(0.5), 1);
  EXPECT_EQ(RoundToInt(-2.5), -3);
  EXPECT_EQ(RoundToInt(0.49999999999999994), 0);
  EXPECT_EQ(RoundToInt(kInf), std::numeric_limits<int>::max());
  EXPECT_EQ(RoundToInt(-1E300), std::numeric_limits<int>::min());
  EXPECT_EQ(RoundToInt(std::nan("")), 0);
}

}  // namespace
}  // namespace zaview
