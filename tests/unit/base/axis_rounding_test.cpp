#include "base/axis_rounding.h"

#include <cmath>

#include <gtest/gtest.h>

namespace zaview {
namespace {

TEST(AxisRounding, Limits) {
  const struct {
    float low, high, ticks, length;
    RoundAxis want;
  } cases[] = {
      {0,       1,        1,     5,  {0, 0.2F, 1}                    },
      {0,       10,       1,     9,  {0, 2, 10}                      },
      {0,       100,      1,     20, {0, 5, 100}                     },
      {-4.882F, 4.273F,   1,     20, {-5, 0.5F, 4.5F}                },
      {-1.3F,   7.9F,     1,     5,  {-2, 2, 8}                      },
      {2.5F,    7.5F,     0.75F, 5,  {2, 2, 8}                       },
      {0,       0.137F,   0.75F, 5,  {0, 0.05F, 0.15F}               },
      {5,       5,        1,     5,  {4.9995F, 0.0005F, 5.0005F}     },
      {0,       0,        1,     5,  {-0.0001F, 0.0001F, 0.0001F}    },
      {10,      0,        1,     5,  {10, -2, 0}                     },
      {-9,      -1,       1,     5,  {-10, 2, 0}                     },
      {-7.9F,   1.3F,     0.5F,  5,  {-10, 5, 5}                     },
      {0.3F,    0.9F,     1,     6,  {0.3F, 0.1F, 0.9F}              },
      {1e-13F,  2e-13F,   1,     5,  {0, 1e-12F, 1e-12F}             },
      {0,       750,      1,     9,  {0, 100, 800}                   },
      {1000,    1001,     1,     5,  {1000, 0.2F, 1001.2F}           },
      {0,       3,        0.1F,  5,  {0, 3, 3}                       },
      {-3,      -3.0001F, 1,     5,  {-2.99975F, -0.0003F, -3.00035F}},
      {0,       7.6F,     1,     1,  {0, 10, 10}                     },
      {NAN,     1,        1,     5,  {0, 1, 1}                       },
      {0,       INFINITY, 1,     5,  {0, 1, 1}                       },
      {-3e38F,  3e38F,    1,     5,  {0, 1, 1}                       },
      {0,       1,        NAN,   5,  {0, 1, 1}                       },
  };
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
