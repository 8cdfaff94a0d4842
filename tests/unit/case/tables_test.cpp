// Tables of histories and of load distributions.
#include <algorithm>

#include <gtest/gtest.h>

#include "case/tables/history_table.h"
#include "case/tables/load_table.h"
#include "fake_platform.h"
#include "small_case.h"

namespace zaview {
namespace {

struct Wanted {
  int iqnt = 1;
  OpenHow how = OpenHow::replace;
  std::string before = {};
  bool unformatted = false;
  std::string name = "out.txt";
  int steps = 2;
  PlotFault fault = PlotFault::none;
  int load_step = 0;  // above 0: a load distribution there
  int stride = 1, first_step = 1, smoothing = 0;
};

std::string Write(const Wanted& wanted) {  // the file, or what stands on the console
  FakePlatform fake;
  if (!wanted.before.empty()) fake.Put("out.txt", wanted.before);
  const Platform platform = fake.Get();
  CaseStore c = SmallCase(1, wanted.steps);
  AddLoads(c, 1, wanted.steps);
  c.first_step = wanted.first_step;
  OutputSettings settings = SettingsFor(c);
  settings.reading.step_stride = wanted.stride;
  settings.smoothing.option = wanted.smoothing;
  QuantityRequest request;
  request.iqnt = wanted.iqnt;
  request.point = {40.0, 0.0, 12.5};
  OutputFile out;
  EXPECT_TRUE(OpenOutput(platform, wanted.name, wanted.how, out));
  if (wanted.load_step > 0) {
    settings.units.scales.load_force = 2.0F;
    c.load_force[0].component[0] = {5.0F, -2.0F, 7.0F, 1.0F, -9.0F, 3.0F};
    EXPECT_EQ(LoadDistFil(platform.console, settings, wanted.iqnt, wanted.load_step, c, out), wanted.fault);
  } else {
    EXPECT_EQ(write_time_history(platform.console, settings, request, wanted.unformatted, c, out), wanted.fault);
  }
  EXPECT_TRUE(CloseOutput(out));
  return wanted.name.empty() ? fake.output : fake.Bytes("out.txt");
}

TEST(HistoryTable, Formatted) {
  const std::string once =
      "Time History of Vertical Shear Force for ZAVO file run.out\n"
      "      Time      Force, X=25 Force, X=-12.5\n"
      "    0.2499927  1.106078E+07   2.111602E+07\n"
      "    0.4999853  1.206630E+07   2.212155E+07\n";
  EXPECT_EQ(Write({.iqnt = 13}), once);
  EXPECT_EQ(Write({.iqnt = 13, .name = ""}), once);
  EXPECT_EQ(Write({.iqnt = 13, .how = OpenHow::append, .before = once}), once + "\n" + once);
  const std::string point = Write({.iqnt = 28});
  EXPECT_EQ(point.substr(0, point.find('\n')),
            "Time History of Velocity of a ship-fixed point for ZAVO file run.out point= 40 0 12.5");
  const std::string blocks = Write({.iqnt = 1, .steps = 3000});  // more text than one block
  EXPECT_EQ(std::count(blocks.begin(), blocks.end(), '\n'), 3002);
  EXPECT_EQ(blocks.substr(blocks.size() - 98, 13), "     749.9780");
  (void)Write({.iqnt = 49, .fault = PlotFault::logic});
}

TEST(HistoryTable, UnformattedRecords) {
  const std::string bytes = Write({.iqnt = 13, .unformatted = true});
  ASSERT_EQ(bytes.size(), 2U * (4 + 12 + 4));
  EXPECT_EQ(bytes.substr(0, 4), std::string("\x0C\0\0\0", 4));
  EXPECT_EQ(bytes.substr(16, 8), std::string("\x0C\0\0\0\x0C\0\0\0", 8));
  float time = 0;
  std::copy_n(bytes.data() + 24, 4, reinterpret_cast<char*>(&time));
  EXPECT_NEAR(time, 0.4999853F, 1e-6F);
  (void)Write({.iqnt = 13, .unformatted = true, .name = "", .fault = PlotFault::not_valid});
}

// The value is of any step in use; least and largest are of the points: with stride 2 these are steps 1, 3 and 5.
TEST(LoadTable, ARowACut) {
  EXPECT_EQ(Write({.iqnt = 13, .steps = 6, .load_step = 2, .stride = 2}),
            "Load Distribution of Vertical Shear Force for ZAVO file run.out at step 2 time= 0.4999853\n"
            "            X         Value       Minimum       Maximum\n"
            "     25.00000     -4.000000     -18.00000      14.00000\n"
            "    -12.50000   0.004400000   0.004200000   0.005000000\n");
  // Smoothed as the extremes are: (-3 12 17 12 -3)/35 about step 4 of 2 (-2 7 1 -9 3).
  const std::string smoothed = Write({.iqnt = 13, .steps = 6, .load_step = 4, .smoothing = 1});
  EXPECT_NEAR(std::stod(smoothed.substr(smoothed.find("25.00000") + 8)), 2 * (6 + 84 + 17 - 108 - 9) / 35.0, 1e-5);
  EXPECT_EQ(Write({.iqnt = 13, .name = "", .steps = 6, .fault = PlotFault::not_valid, .load_step = 1, .first_step = 7}),
            "ERROR - Too many steps skipped or trimmed - over\n");
  EXPECT_EQ(Write({.iqnt = 15, .steps = 6, .fault = PlotFault::not_valid, .load_step = 1}), "");
}

}  // namespace
}  // namespace zaview
