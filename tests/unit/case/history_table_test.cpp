#include "case/tables/history_table.h"

#include <algorithm>

#include <gtest/gtest.h>

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
};

std::string Write(const Wanted& wanted) {  // the file, or what stands on the console
  FakePlatform fake;
  if (!wanted.before.empty()) fake.Put("out.txt", wanted.before);
  const Platform platform = fake.Get();
  CaseStore c = SmallCase(1, wanted.steps);
  AddLoads(c, 1, wanted.steps);
  QuantityRequest request;
  request.iqnt = wanted.iqnt;
  request.point = {40.0, 0.0, 12.5};
  OutputFile out;
  EXPECT_TRUE(OpenOutput(platform, wanted.name, wanted.how, out));
  EXPECT_EQ(write_time_history(platform.console, SettingsFor(c), request, wanted.unformatted, c, out), wanted.fault);
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

}  // namespace
}  // namespace zaview
