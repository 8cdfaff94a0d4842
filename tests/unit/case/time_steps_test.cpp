#include "case/time_steps.h"

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "fake_platform.h"

namespace zaview {
namespace {

constexpr int kPlain = 52;  // reals of a step without loads

struct Read {
  StepsRead steps;
  CaseStore fresh;
};

Read ReadText(const std::string& text, CaseStore fresh, unsigned threads = 1, std::size_t block = kStepBlock) {
  FakePlatform fake;
  fake.Put("run.out", text);
  const Platform platform = fake.Get();
  BlockStream stream;
  StartStream(stream, platform.files, platform.files.open_read(platform.files.self, "run.out"));
  Read read{{}, std::move(fresh)};
  read.steps = ReadTimeSteps(stream, static_cast<std::int64_t>(text.size()), read.fresh, {}, threads, block);
  return read;
}

CaseStore Planned(int nstep) {
  CaseStore fresh;
  fresh.control.NSTEP = nstep;
  return fresh;
}

// A step whose i-th real behind the time is time + i/64, `per_line` reals a line.
std::string Step(double time, int per_line, int reals = kPlain) {
  std::string text;
  for (int i = 0; i < reals; ++i) {
    fmt::format_to(std::back_inserter(text), " {:15.8E}", time + i / 64.0);
    if (i % per_line == per_line - 1 && i != reals - 1) text += '\n';
  }
  return text + '\n';
}

// A read from the disk fails in the middle of a number: the steps before stay, and half a number is none.
TEST(TimeSteps, FailingReadIsNoEndOfFile) {
  for (const unsigned threads : {1U, 2U}) {
    FakePlatform fake;
    std::string text;
    for (int i = 1; i <= 40; ++i) text += Step(i, kPlain);
    const std::size_t whole = text.size();
    text += Step(41, kPlain);
    fake.Put("run.out", text.substr(0, text.size() - 3));
    Files files = fake.Get().files;
    files.read = [](void* self, FileHandle file, char* to, std::size_t size) {
      FakePlatform& machine = FakePlatform::Of(self);
      const std::int64_t n = machine.Get().files.read(self, file, to, size);
      return n == 0 ? std::int64_t{-1} : n;
    };
    BlockStream stream;
    StartStream(stream, files, files.open_read(files.self, "run.out"));
    CaseStore fresh = Planned(100);
    const StepsRead steps = ReadTimeSteps(stream, -1, fresh, {}, threads, whole / 3);
    EXPECT_EQ(steps.end, StepsEnd::bad_value);
    EXPECT_EQ(steps.kept, 40);
  }
}

TEST(TimeSteps, EachRealHasItsPlace) {
  CaseStore fresh = Planned(100);
  fresh.loads.NBCA = 2;
  fresh.loads.nycut = 1;
  fresh.loads.x_kinds = {1, 3};
  fresh.loads.y_kinds = {5};
  constexpr int kReals = 52 + 2 * 2 * 2 + 2 * 1;
  const Read read = ReadText(Step(1, 6, kReals) + Step(2, 6, kReals), fresh);
  EXPECT_EQ(read.steps.end, StepsEnd::file_end);
  ASSERT_EQ(read.steps.kept, 2);
  const CaseStore& c = read.fresh;
  struct Place {
    const StepHistory& history;
    int components, first;  // place of component 1 in the list, from 0
  };
  const Place places[] = {
      {c.time,           1,  0 },
      {c.pmgg,           6,  1 },
      {c.vmg,            6,  7 },
      {c.acc,            6,  13},
      {c.force,          30, 19},
      {c.load_force[0],  2,  49},
      {c.load_moment[0], 2,  51},
      {c.load_force[2],  2,  53},
      {c.load_moment[2], 2,  55},
      {c.load_force[4],  1,  57},
      {c.load_moment[4], 1,  58},
      {c.rudder_cmd,     1,  59},
      {c.rudder_ang,     1,  60},
      {c.prop_rps,       1,  61},
      {c.load_force[1],  0,  0 },
      {c.load_moment[3], 0,  0 },
  };
  for (const Place& place : places) {
    ASSERT_EQ(place.history.components(), place.components) << place.first;
    for (int i = 1; i <= place.components; ++i)
      for (int step = 1; step <= 2; ++step)
        EXPECT_EQ(place.history.at(i, step), static_cast<float>(step + (place.first + i - 1) / 64.0)) << place.first;
  }
}

TEST(TimeSteps, ModesThatLeaveTheStepsInThePrimary) {
  const struct {
    int ships, mode, companion;
  } cases[] = {
      {1, 0,                               0},
      {1, 1,                               1},
      {1, -1,                              1},
      {0, 2,                               2},
      {1, -2,                              2},
      {1, 3,                               0},
      {1, std::numeric_limits<int>::min(), 0},
      {2, 1,                               0},
      {2, 2,                               0},
      {3, -1,                              1},
      {2, -2,                              2},
  };
  for (const auto& c : cases) {
    CaseStore fresh;
    fresh.NSHIP = c.ships;
    fresh.control.AUXOUT[0] = c.mode;
    EXPECT_EQ(CompanionMode(fresh), c.companion) << c.ships << ' ' << c.mode;
  }
}

TEST(TimeSteps, HowAReadEnds) {
  struct Case {
    const char* fault;
    std::string text;
    int nstep;
    StepsEnd end;
    int kept;
    bool begun;
  };
  const std::string two = Step(1, 6) + Step(2, 6);
  const Case cases[] = {
      {"no step at all",                    "",              5,                          StepsEnd::no_record,                   0,                           false         },
      {"blank lines only",                  "\n  \n\t\r\n",  5,                          StepsEnd::no_record,                   0,                           false         },
      {"cut in the first step",             "1.0 2.0\n",     5,                          StepsEnd::file_end,                    0,                           true          },
      {"stars in the first step",           "1.0 ****\n",    5,                          StepsEnd::bad_value,                   0,                           true          },
      {"all there",                         two,             2,                          StepsEnd::complete,                    2,                           false         },
      {"behind NSTEP nothing is looked at", two + "****\n",  2,                          StepsEnd::complete,                    2,                           false         },
      {"more steps than NSTEP",             two,             1,                          StepsEnd::complete,                    1,                           false         },
      {"shorter than planned",              two,             2147483647,                 StepsEnd::file_end,                    2,                           false         },
      {"cut in the third",                  two + "3.0 1*2", 5,                          StepsEnd::file_end,                    2,                           true          },
      {"bad in the third",                  two + "3.0 x",   5,                          StepsEnd::bad_value,                   2,                           true          },
      {"equal times",                       two + Step(2,    6),                         5,                                     StepsEnd::not_ascending,     2,              false},
      {"NaN time",                                   two + "NaN 51*0\n",                                         5,               StepsEnd::not_ascending,           2, false   },
      {"no planned step",                                   two,                                  0,                       StepsEnd::complete,                          0,             false},
      {"short forms",                                   "1 51*0\n2 /\n3,51*\n",                                      3,        StepsEnd::complete,       3,         false                  },
      {"huge repeats",                                   "1 99999999999*0\n2 51*0 \n",                                     2, StepsEnd::complete, 2,          false    },
  };
  for (const Case& c : cases) {
    const Read read = ReadText(c.text, Planned(c.nstep));
    EXPECT_EQ(read.steps.end, c.end) << c.fault;
    EXPECT_EQ(read.steps.kept, c.kept) << c.fault;
    EXPECT_EQ(read.fresh.time.components() == 0 ? 0U : read.fresh.prop_rps.component[0].size(),
              static_cast<std::size_t>(c.kept))
        << c.fault;
    if (c.end == StepsEnd::file_end && c.kept == 0) {
      EXPECT_TRUE(read.steps.begun) << c.fault;
    }
  }
  const Read equal = ReadText(two + Step(1.5, 6), Planned(9));
  EXPECT_TRUE(equal.steps.previous_time == 2.0F && equal.steps.new_time == 1.5F);
  EXPECT_EQ(ReadText(two + "3.0 x", Planned(9)).steps.fault_offset, static_cast<std::int64_t>(two.size() + 4));
}

TEST(TimeSteps, IndexOfTheFirstStep) {
  const double scale = std::sqrt(9.81 / 100.0);  // time to non-dimensional: LENIN 100
  struct Case {
    int irst;
    double tinit, dth, t1;  // input units
    int first, kept;        // NSTEP 50, two steps in the file
  };
  const Case cases[] = {
      {0, 0, 0.5,          20,   1,                               2},
      {1, 0, 0.5,          20,   41,                              2},
      {1, 5, 0.5,          20.2, 31,                              2},
      {1, 0, 0.5,          24.5, 50,                              1},
      {1, 0, 0.5,          -7,   1,                               2},
      {1, 0, 0,            20,   1,                               2},
      {1, 0, std::nan(""), 20,   1,                               2},
      {1, 0, 1E-300,       20,   std::numeric_limits<int>::max(), 0},
  };
  for (const Case& c : cases) {
    CaseStore fresh = Planned(50);
    fresh.control.LENIN = 100;
    fresh.control.IRST = c.irst;
    fresh.control.TINIT = c.tinit;
    fresh.control.DTH = c.dth;
    const Read read = ReadText(fmt::format("{:.7E} /\n{:.7E} /\n", c.t1 * scale, (c.t1 + 0.5) * scale), fresh);
    EXPECT_EQ(read.steps.first, c.first) << c.t1 << ' ' << c.dth;
    EXPECT_EQ(read.steps.kept, c.kept) << c.t1 << ' ' << c.dth;
    EXPECT_EQ(read.fresh.acc.first, c.first);
  }
}

void ExpectSame(const Read& a, const Read& b, const std::string& what) {
  EXPECT_EQ(a.steps.end, b.steps.end) << what;
  EXPECT_EQ(a.steps.kept, b.steps.kept) << what;
  EXPECT_EQ(a.steps.begun, b.steps.begun) << what;
  EXPECT_EQ(a.steps.fault_offset, b.steps.fault_offset) << what;
  EXPECT_EQ(a.steps.new_time, b.steps.new_time) << what;
  EXPECT_EQ(a.fresh.time.component, b.fresh.time.component) << what;
  EXPECT_EQ(a.fresh.force.component, b.fresh.force.component) << what;
  EXPECT_EQ(a.fresh.prop_rps.component, b.fresh.prop_rps.component) << what;
}

// Neither the second thread nor where a block ends may be seen in what is read.
void ExpectSameByAnyRoad(const std::string& text, int nstep, const std::string& what) {
  const Read whole = ReadText(text, Planned(nstep));
  for (const std::size_t block : {std::size_t{90}, std::size_t{2000}, std::size_t{7001}, kStepBlock})
    for (const unsigned threads : {1U, 2U})
      ExpectSame(ReadText(text, Planned(nstep), threads, block), whole,
                 fmt::format("{}, {} x {}", what, threads, block));
}

TEST(TimeSteps, ThreadsAndBlocksAreNotSeen) {
  const auto many = [](const auto& step, int n) {
    std::string text;
    for (int i = 1; i <= n; ++i) text += step(i);
    return text;
  };
  const auto with_cr = [](std::string text) {
    for (std::size_t i = text.find('\n'); i != std::string::npos; i = text.find('\n', i + 2)) text.insert(i, "\r");
    return text;
  };
  const std::string six = many([](int i) { return Step(i, 6); }, 40);
  ExpectSameByAnyRoad(six, 100, "six a line");
  ExpectSameByAnyRoad(six, 33, "NSTEP in the middle");
  ExpectSameByAnyRoad(with_cr(six), 100, "CRLF");
  ExpectSameByAnyRoad(many([](int i) { return Step(i, 1000); }, 40), 100, "a step a line");
  ExpectSameByAnyRoad(many([](int i) { return Step(i, 1); }, 20), 100, "a real a line");
  ExpectSameByAnyRoad(many([](int i) { return Step(i, 3 + i % 5); }, 40), 100, "varying lines");
  ExpectSameByAnyRoad(many([](int i) { return Step(i, 6) + std::string(static_cast<std::size_t>(i % 3), '\n'); }, 40),
                      100, "blank lines between");
  ExpectSameByAnyRoad(many([](int i) { return fmt::format("{},,2*3.5,\n 4*,5 /rest\n", i); }, 300), 1000, "commas");
  ExpectSameByAnyRoad(many([](int i) { return fmt::format("{} 51*{}\n", i, i % 7); }, 300), 1000, "repeats");
  const std::string long_item = "0." + std::string(9000, '3');
  ExpectSameByAnyRoad(many([&](int i) { return fmt::format("{} {} /\n", i, long_item); }, 9), 100,
                      "items beyond a block");
  // The first line of a step looks like a step of its own: a start guessed there would give times in order too.
  ExpectSameByAnyRoad(Step(1, 6) + many([](int i) { return fmt::format("{}\n{} 50*1\n", 2 * i, 2 * i + 1); }, 300),
                      1000, "starts that only look right");
  for (const int bad : {1, 17, 20, 21, 39}) {
    const auto spoiled = [bad](const char* what) {
      return [bad, what](int i) { return i == bad ? fmt::format("{} {} 50*0\n", i, what) : Step(i, 6); };
    };
    ExpectSameByAnyRoad(many(spoiled("****"), 40), 100, fmt::format("stars in {}", bad));
    ExpectSameByAnyRoad(many([bad](int i) { return Step(i == bad ? 0 : i, 6); }, 40), 100,
                        fmt::format("time of {}", bad));
  }
}

TEST(TimeSteps, CutAtEveryByte) {
  std::string text;
  for (int i = 1; i <= 3; ++i) text += fmt::format(" {}.25E+00 2*-1.5E-01\n 47*0.0\n 1.0 +2.5\n", i);
  const std::size_t step = text.size() / 3;
  for (std::size_t size = 0; size <= text.size(); ++size) {
    const std::string cut = text.substr(0, size);
    const Read one = ReadText(cut, Planned(10), 1, 16);
    ExpectSame(ReadText(cut, Planned(10), 2, 40), one, fmt::format("cut at {}", size));
    const std::size_t in_step = size % step;
    EXPECT_EQ(one.steps.end, size <= 1 ? StepsEnd::no_record : StepsEnd::file_end) << size;
    // "+2" and "+2." are numbers: the last value of the step is taken for whole.
    const int whole = static_cast<int>(size / step) + (in_step + 3 >= step ? 1 : 0);
    EXPECT_EQ(one.steps.kept, whole) << size;
  }
}

TEST(TimeSteps, MemoryFollowsTheFileNotTheCount) {
  CaseStore fresh = Planned(2'000'000'000);
  const Read read = ReadText(Step(1, 6) + Step(2, 6), std::move(fresh));
  EXPECT_EQ(read.steps.kept, 2);
  EXPECT_LT(read.fresh.time.component[0].capacity(), 100U);
}

}  // namespace
}  // namespace zaview
