#include "case/read/time_steps.h"

#include <cmath>
#include <limits>
#include <string>
#include <tuple>
#include <vector>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "control_draft.h"

namespace zaview {
namespace {

struct Read {
  StepsRead steps;
  CaseStore fresh;
};

Read ReadText(const std::string& text, CaseStore fresh, unsigned threads = 1, std::size_t block = kStepBlock) {
  TextFile file(text);
  Read read{{}, std::move(fresh)};
  read.steps = ReadTimeSteps(file.stream, static_cast<std::int64_t>(text.size()), read.fresh, {}, threads, block);
  return read;
}

CaseStore Planned(int nstep) {
  CaseStore fresh;
  fresh.control.NSTEP = nstep;
  return fresh;
}

// A step of 52 reals, the i-th behind the time being time + i/64, `per_line` reals a line.
std::string Step(double time, int per_line) {
  std::string text;
  for (int i = 0; i < 52; ++i)
    text += fmt::format(" {:15.8E}{}", time + i / 64.0, i % per_line == per_line - 1 && i != 51 ? "\n" : "");
  return text + '\n';
}

template <typename MakeStep>
std::string Many(int n, const MakeStep& step) {
  std::string text;
  for (int i = 1; i <= n; ++i) text += step(i);
  return text;
}

// A read from the disk fails in the middle of a number: the steps before stay, and half a number is none.
TEST(TimeSteps, FailingReadIsNoEndOfFile) {
  for (const unsigned threads : {1U, 2U}) {
    const std::string text = Many(41, [](int i) { return Step(i, 52); });
    TextFile file(text.substr(0, text.size() - 3));
    file.platform.files.read = [](void* self, FileHandle handle, char* to, std::size_t size) {
      const std::int64_t n = FakePlatform::Of(self).Get().files.read(self, handle, to, size);
      return n == 0 ? std::int64_t{-1} : n;
    };
    CaseStore fresh = Planned(100);
    const StepsRead steps = ReadTimeSteps(file.stream, -1, fresh, {}, threads, text.size() / 3);
    EXPECT_EQ(steps.end, StepsEnd::bad_value);
    EXPECT_EQ(steps.kept, 40);
  }
}

TEST(TimeSteps, HowAReadEnds) {
  const std::string two = Step(1, 6) + Step(2, 6);
  using enum StepsEnd;
  // clang-format off
  const struct { std::string text; int nstep; StepsEnd end; int kept; } cases[] = {
      {"", 5, no_record, 0},
      {"\n  \n\t\r\n", 5, no_record, 0},
      {"1.0 2.0\n", 5, file_end, 0},
      {"1.0 ****\n", 5, bad_value, 0},
      {two + "****\n", 2, complete, 2},  // behind NSTEP nothing is looked at
      {two, 1, complete, 1},
      {two, 2147483647, file_end, 2},
      {two + "3.0 1*2", 5, file_end, 2},
      {two + "3.0 x", 5, bad_value, 2},
      {two + Step(1.5, 6), 5, not_ascending, 2},
      {two + "NaN 51*0\n", 5, not_ascending, 2},
      {two, 0, complete, 0},
      {"1 51*0\n2 /\n3,51*\n", 3, complete, 3},
      {"1 99999999999*0\n2 51*0 \n", 2, complete, 2}};
  // clang-format on
  for (const auto& c : cases) {
    const Read read = ReadText(c.text, Planned(c.nstep));
    EXPECT_EQ(read.steps.end, c.end) << c.text;
    EXPECT_EQ(read.steps.kept, c.kept) << c.text;
    const StepHistory& last = read.fresh.prop_rps;
    EXPECT_EQ(last.components() == 0 ? 0U : last.component[0].size(), static_cast<std::size_t>(c.kept)) << c.text;
    EXPECT_TRUE(c.end != file_end || c.kept > 0 || read.steps.begun);
    EXPECT_TRUE(c.end != bad_value || c.kept == 0 ||
                read.steps.fault_offset == static_cast<std::int64_t>(two.size() + 4));
    EXPECT_TRUE(c.kept == 0 || last.component[0].capacity() < 100U) << "memory follows the file, not the count";
  }
  const Read equal = ReadText(two + Step(1.5, 6), Planned(9));
  EXPECT_TRUE(equal.steps.previous_time == 2.0F && equal.steps.new_time == 1.5F);
}

TEST(TimeSteps, IndexOfTheFirstStep) {
  const double scale = std::sqrt(9.81 / 100.0);  // time to non-dimensional: LENIN 100
  // clang-format off
  const struct {
    int irst;
    double tinit, dth, t1;  // input units
    int first, kept;        // NSTEP 50, two steps in the file
  } cases[] = {{0, 0, 0.5, 20, 1, 2}, {1, 0, 0.5, 20, 41, 2}, {1, 5, 0.5, 20.2, 31, 2}, {1, 0, 0.5, 24.5, 50, 1},
               {1, 0, 0.5, -7, 1, 2}, {1, 0, 0, 20, 1, 2}, {1, 0, std::nan(""), 20, 1, 2},
               {1, 0, 1E-300, 20, std::numeric_limits<int>::max(), 0}};
  // clang-format on
  for (const auto& c : cases) {
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
  const auto facts = [](const Read& r) {
    return std::tie(r.steps.end, r.steps.kept, r.steps.begun, r.steps.fault_offset, r.steps.new_time,
                    r.fresh.time.component, r.fresh.force.component, r.fresh.prop_rps.component);
  };
  EXPECT_TRUE(facts(a) == facts(b)) << what;
}

// Neither the second thread nor where a block ends may be seen in what is read.
TEST(TimeSteps, ThreadsAndBlocksAreNotSeen) {
  const std::string six = Many(40, [](int i) { return Step(i, 6); }), long_item = "0." + std::string(9000, '3');
  std::string cr = six;
  for (std::size_t i = cr.find('\n'); i != std::string::npos; i = cr.find('\n', i + 2)) cr.insert(i, "\r");
  std::vector<std::string> texts = {
      six,
      cr,
      Many(40, [](int i) { return Step(i, 1000); }),
      Many(20, [](int i) { return Step(i, 1); }),
      Many(40, [](int i) { return Step(i, 3 + i % 5) + std::string(static_cast<std::size_t>(i % 3), '\n'); }),
      Many(300, [](int i) { return fmt::format("{},,2*3.5,\n 4*,5 /rest\n", i); }),
      Many(300, [](int i) { return fmt::format("{} 51*{}\n", i, i % 7); }),
      Many(9, [&](int i) { return fmt::format("{} {} /\n", i, long_item); }),  // items beyond a block
      // The first line of a step looks like a step of its own: a start guessed there would give times in order too.
      Step(1, 6) + Many(300, [](int i) { return fmt::format("{}\n{} 50*1\n", 2 * i, 2 * i + 1); }),
  };
  for (const int bad : {1, 17, 20, 21, 39}) {
    texts.push_back(Many(40, [&](int i) { return i == bad ? fmt::format("{} **** 50*0\n", i) : Step(i, 6); }));
    texts.push_back(Many(40, [&](int i) { return Step(i == bad ? 0 : i, 6); }));
  }
  for (const std::string& text : texts)
    for (const int nstep : {33, 1000}) {
      const Read whole = ReadText(text, Planned(nstep));
      for (const std::size_t block : {std::size_t{90}, std::size_t{2000}, std::size_t{7001}, kStepBlock})
        for (const unsigned threads : {1U, 2U})
          ExpectSame(ReadText(text, Planned(nstep), threads, block), whole,
                     fmt::format("{}..., {} x {}", text.substr(0, 300), threads, block));
    }
}

TEST(TimeSteps, CutAtEveryByte) {
  const std::string text = Many(3, [](int i) { return fmt::format(" {}.25E+00 2*-1.5E-01\n 47*0.0\n 1.0 +2.5\n", i); });
  const std::size_t step = text.size() / 3;
  for (std::size_t size = 0; size <= text.size(); ++size) {
    const Read one = ReadText(text.substr(0, size), Planned(10), 1, 16);
    ExpectSame(ReadText(text.substr(0, size), Planned(10), 2, 40), one, fmt::format("cut at {}", size));
    EXPECT_EQ(one.steps.end, size <= 1 ? StepsEnd::no_record : StepsEnd::file_end) << size;
    // "+2" and "+2." are numbers: the last value of the step is taken for whole.
    EXPECT_EQ(one.steps.kept, static_cast<int>(size / step) + (size % step + 3 >= step ? 1 : 0)) << size;
  }
}

}  // namespace
}  // namespace zaview
