#include "case/load_table.h"

#include <gtest/gtest.h>

#include "fake_platform.h"
#include "small_case.h"

namespace zaview {
namespace {

struct Written {
  PlotFault fault = PlotFault::none;
  std::string console;
};

Written Write(int iqnt, int step, int stride, int first_step) {
  FakePlatform fake;
  const Platform platform = fake.Get();
  CaseStore c = SmallCase(1, 6);
  AddLoads(c, 1, 6);
  c.load_force[0].component[0] = {5.0F, -2.0F, 7.0F, 1.0F, -9.0F, 3.0F};
  OutputSettings settings = SettingsFor(c);
  settings.scales.load_force = 2.0F;
  settings.step_stride = stride;
  c.first_step = first_step;
  OutputFile out;
  EXPECT_TRUE(OpenOutput(platform, "", OpenHow::replace, out));
  const PlotFault fault = LoadDistFil(platform.console, settings, iqnt, step, c, out);
  EXPECT_TRUE(CloseOutput(out));
  return {fault, fake.output};
}

TEST(LoadTable, ARowACut) {
  // The value is of any step; least and largest are of the points in use: with stride 2 these are steps 1, 3 and 5.
  EXPECT_EQ(Write(13, 2, 2, 1).console,
            "Load Distribution of Vertical Shear Force for ZAVO file run.out at step 2 time= 0.4999853\n"
            "            X         Value       Minimum       Maximum\n"
            "     25.00000     -4.000000     -18.00000      14.00000\n"
            "    -12.50000   0.004400000   0.004200000   0.005000000\n");
  EXPECT_NE(Write(13, 2, 1, 2).console.find("    -18.00000      14.00000\n"), std::string::npos);
  EXPECT_EQ(Write(24, 6, 1, 1).console.substr(0, 183),
            "Load Distribution of Torsional Moment (Y cut) for ZAVO file run.out at step 6 time= 1.499956\n"
            "            Y         Value       Minimum       Maximum\n"
            "     2.500000  4.625415E+09  4.122");
}

TEST(LoadTable, Refusals) {
  EXPECT_EQ(Write(12, 1, 1, 1).fault, PlotFault::logic);
  EXPECT_EQ(Write(12, 1, 1, 1).console, "Logic error in LoadDistFil : iqnt= 12\n");
  EXPECT_EQ(Write(15, 1, 1, 1).fault, PlotFault::not_valid);
  EXPECT_EQ(Write(13, 1, 1, 7).console, "ERROR - Too many steps skipped or trimmed - over\n");
  EXPECT_EQ(Write(13, 99, 1, 1).fault, PlotFault::none);  // a step beyond the store is its last one
}

}  // namespace
}  // namespace zaview
