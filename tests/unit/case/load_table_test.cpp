#include "case/tables/load_table.h"

#include <gtest/gtest.h>

#include "fake_platform.h"
#include "small_case.h"

namespace zaview {
namespace {

std::string Write(int iqnt, int step, int stride, int first_step, int smoothing = 0) {
  FakePlatform fake;
  const Platform platform = fake.Get();
  CaseStore c = SmallCase(1, 6);
  AddLoads(c, 1, 6);
  c.load_force[0].component[0] = {5.0F, -2.0F, 7.0F, 1.0F, -9.0F, 3.0F};
  OutputSettings settings = SettingsFor(c);
  settings.units.scales.load_force = 2.0F;
  settings.reading.step_stride = stride;
  settings.smoothing.option = smoothing;
  c.first_step = first_step;
  OutputFile out;
  EXPECT_TRUE(OpenOutput(platform, "", OpenHow::replace, out));
  (void)LoadDistFil(platform.console, settings, iqnt, step, c, out);
  EXPECT_TRUE(CloseOutput(out));
  return fake.output;
}

// The value is of any step; least and largest are of the points in use: with stride 2 these are steps 1, 3 and 5.
TEST(LoadTable, ARowACut) {
  EXPECT_EQ(Write(13, 2, 2, 1),
            "Load Distribution of Vertical Shear Force for ZAVO file run.out at step 2 time= 0.4999853\n"
            "            X         Value       Minimum       Maximum\n"
            "     25.00000     -4.000000     -18.00000      14.00000\n"
            "    -12.50000   0.004400000   0.004200000   0.005000000\n");
  // Parabolas over five: (-3 12 17 12 -3)/35 about step 4 of 2 x (-2 7 1 -9 3), as in the extremes: -2.4 - 1.2/3.5.
  const std::string smoothed = Write(13, 4, 1, 1, 1);
  EXPECT_NEAR(std::stod(smoothed.substr(smoothed.find("25.00000") + 8)),
              2 * (-3 * -2 + 12 * 7 + 17 - 12 * 9 - 3 * 3) / 35.0, 1e-5);
  EXPECT_EQ(Write(13, 1, 1, 7), "ERROR - Too many steps skipped or trimmed - over\n");
  EXPECT_EQ(Write(15, 1, 1, 1), "");
}

}  // namespace
}  // namespace zaview
