#include "case/history_table.h"

#include <bit>
#include <cstring>

#include <gtest/gtest.h>

#include "fake_platform.h"
#include "small_case.h"

namespace zaview {
namespace {

struct Written {
  PlotFault fault = PlotFault::none;
  std::string text, console;
};

struct Wanted {
  int iqnt = 1;
  OpenHow how = OpenHow::replace;
  std::string before = {};
  bool unformatted = false;
  Separator separator = Separator::space;
  std::string name = "out.txt";
  int steps = 2;
};

Written Write(const Wanted& wanted) {
  FakePlatform fake;
  if (!wanted.before.empty()) fake.Put("out.txt", wanted.before);
  const Platform platform = fake.Get();
  CaseStore c = SmallCase(1, wanted.steps);
  AddLoads(c, 1, wanted.steps);
  OutputSettings settings = SettingsFor(c);
  settings.separator = wanted.separator;
  QuantityRequest request;
  request.iqnt = wanted.iqnt;
  request.point = {40.0, 0.0, 12.5};
  OutputFile out;
  Written written;
  EXPECT_TRUE(OpenOutput(platform, wanted.name, wanted.how, out));
  written.fault = write_time_history(platform.console, settings, request, wanted.unformatted, c, out);
  EXPECT_TRUE(CloseOutput(out));
  written.text = fake.Bytes("out.txt");
  written.console = fake.output;
  return written;
}

TEST(HistoryTable, TitleHeadRows) {
  EXPECT_EQ(Write({.iqnt = 13}).text,
            "Time History of Vertical Shear Force for ZAVO file run.out\n"
            "      Time      Force, X=25 Force, X=-12.5\n"
            "    0.2499927  1.106078E+07   2.111602E+07\n"
            "    0.4999853  1.206630E+07   2.212155E+07\n");
}

TEST(HistoryTable, CommasMakeCsv) {
  EXPECT_EQ(Write({.iqnt = 14, .separator = Separator::comma}).text,
            "Time History of Vertical Bending Moment for ZAVO file run.out\n"
            "Time,\"Moment, X=25\",\"Moment, X=-12.5\"\n"
            "0.2499927,-1.910498E+09,-3.921548E+09\n"
            "0.4999853,-1.809945E+09,-3.820995E+09\n");
}

TEST(HistoryTable, AppendRepeatsTheHeads) {
  const std::string once = Write({.iqnt = 13}).text;
  EXPECT_EQ(Write({.iqnt = 13, .how = OpenHow::append, .before = once}).text, once + "\n" + once);
}

TEST(HistoryTable, PointsStandInTheTitle) {
  const Written written = Write({.iqnt = 28});
  EXPECT_EQ(written.text.substr(0, written.text.find("\n  ")),
            "Time History of Velocity of a ship-fixed point for ZAVO file run.out point= 40 0 12.5");
  EXPECT_EQ(written.console.substr(0, 42), "Calculating motion for ship fixed point...");
}

TEST(HistoryTable, TheConsoleGetsTheSameLines) {
  EXPECT_EQ(Write({.iqnt = 13, .name = ""}).console, Write({.iqnt = 13}).text);
}

TEST(HistoryTable, UnformattedRecords) {
  const std::string bytes = Write({.iqnt = 13, .unformatted = true}).text;
  ASSERT_EQ(bytes.size(), 2U * (4 + 12 + 4));
  EXPECT_EQ(bytes.substr(0, 4), std::string("\x0C\0\0\0", 4));
  EXPECT_EQ(bytes.substr(16, 8), std::string("\x0C\0\0\0\x0C\0\0\0", 8));
  float time = 0;
  std::memcpy(&time, bytes.data() + 24, 4);
  EXPECT_NEAR(time, 0.4999853F, 1e-6F);
  EXPECT_EQ(Write({.iqnt = 13, .unformatted = true, .name = ""}).fault, PlotFault::not_valid);
}

TEST(HistoryTable, RowsSurviveTheBlocks) {  // more text than one block
  const std::string text = Write({.iqnt = 1, .steps = 3000}).text;
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 3002);
  EXPECT_EQ(text.substr(text.size() - 98, 13), "     749.9780");
}

TEST(HistoryTable, WithoutDataNothingIsWritten) {
  EXPECT_EQ(Write({.iqnt = 34}).fault, PlotFault::not_valid);
  EXPECT_EQ(Write({.iqnt = 25}).fault, PlotFault::no_wave);
  EXPECT_EQ(Write({.iqnt = 25}).text, "");
}

}  // namespace
}  // namespace zaview
