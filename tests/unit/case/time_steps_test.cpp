#include "case/read/time_steps.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <tuple>
#include <vector>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "case/read/read_steps.h"
#include "case/read/unformatted_steps.h"
#include "control_draft.h"
#include "fake_platform.h"
#include "step_draft.h"

namespace zaview {
namespace {

struct TextRead {
  StepsRead steps;
  CaseStore fresh;
};

TextRead ReadAll(const std::string& text, CaseStore fresh, unsigned threads = 1, std::size_t block = kStepBlock) {
  TextFile file(text);
  TextRead read{{}, std::move(fresh)};
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
    const TextRead read = ReadAll(c.text, Planned(c.nstep));
    EXPECT_EQ(read.steps.end, c.end) << c.text;
    EXPECT_EQ(read.steps.kept, c.kept) << c.text;
    const StepHistory& last = read.fresh.prop_rps;
    EXPECT_EQ(last.components() == 0 ? 0U : last.component[0].size(), static_cast<std::size_t>(c.kept)) << c.text;
    EXPECT_TRUE(c.end != file_end || c.kept > 0 || read.steps.begun);
    EXPECT_TRUE(c.end != bad_value || c.kept == 0 ||
                read.steps.fault_offset == static_cast<std::int64_t>(two.size() + 4));
    EXPECT_TRUE(c.kept == 0 || last.component[0].capacity() < 100U) << "memory follows the file, not the count";
  }
  const TextRead equal = ReadAll(two + Step(1.5, 6), Planned(9));
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
    fresh.control.LENIN = 100, fresh.control.IRST = c.irst, fresh.control.TINIT = c.tinit;
    fresh.control.DTH = c.dth;
    const TextRead read = ReadAll(fmt::format("{:.7E} /\n{:.7E} /\n", c.t1 * scale, (c.t1 + 0.5) * scale), fresh);
    EXPECT_EQ(read.steps.first, c.first) << c.t1 << ' ' << c.dth;
    EXPECT_EQ(read.steps.kept, c.kept) << c.t1 << ' ' << c.dth;
    EXPECT_EQ(read.fresh.acc.first, c.first);
  }
}

void ExpectSame(const TextRead& a, const TextRead& b, const std::string& what) {
  const auto facts = [](const TextRead& r) {
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
      const TextRead whole = ReadAll(text, Planned(nstep));
      for (const std::size_t block : {std::size_t{90}, std::size_t{2000}, std::size_t{7001}, kStepBlock})
        for (const unsigned threads : {1U, 2U})
          ExpectSame(ReadAll(text, Planned(nstep), threads, block), whole,
                     fmt::format("{}..., {} x {}", text.substr(0, 300), threads, block));
    }
}

TEST(TimeSteps, CutAtEveryByte) {
  const std::string text = Many(3, [](int i) { return fmt::format(" {}.25E+00 2*-1.5E-01\n 47*0.0\n 1.0 +2.5\n", i); });
  const std::size_t step = text.size() / 3;
  for (std::size_t size = 0; size <= text.size(); ++size) {
    const TextRead one = ReadAll(text.substr(0, size), Planned(10), 1, 16);
    ExpectSame(ReadAll(text.substr(0, size), Planned(10), 2, 40), one, fmt::format("cut at {}", size));
    EXPECT_EQ(one.steps.end, size <= 1 ? StepsEnd::no_record : StepsEnd::file_end) << size;
    // "+2" and "+2." are numbers: the last value of the step is taken for whole.
    EXPECT_EQ(one.steps.kept, static_cast<int>(size / step) + (size % step + 3 >= step ? 1 : 0)) << size;
  }
}

CompanionRead ReadBytes(const std::string& bytes, CaseStore& fresh, std::size_t block = kStepBlock) {
  TextFile file(bytes);
  int version = 0;
  CompanionRead read;
  if (ReadCompanionVersion(file.stream, version))
    return ReadUnformattedSteps(file.stream, static_cast<std::int64_t>(bytes.size()), fresh, {}, block);
  read.steps.end = StepsEnd::bad_value;
  return read;
}

TEST(UnformattedSteps, EachModeHasItsBody) {
  // clang-format off
  const StepDraft drafts[] = {
      {"t pva12345LYcrn", 417, false, 1, 1, 1}, {"t pva12345LYcrn", 298, false, 1, 1, -1},
      {"t pvaLYcrn", 417, false, 1, 1, 2}, {"t pvaLYcrn", -1, true, 0, 1, -2},
      {"t Spva12345crn", 300, false, 2, 2, -1}, {"t Spva12345crn", 417, false, 3, 1, -1},
      {"t Spvacrn", 417, false, 3, 3, -2}, {"t mi", 417, false, 1, 1, 1, 1}, {"t mi", 291, false, 3, 2, -1, 1}};
  // clang-format on
  constexpr int kSteps = 150;
  for (const StepDraft& draft : drafts) {
    CaseStore expected;
    DraftWriter writer(draft, expected);
    std::string bytes = VersionRecord(417);
    for (int step = 1; step <= kSteps; ++step)
      bytes += StepRecords(step, writer.Step(step, 0.25F * static_cast<float>(step)));
    for (const std::size_t block : {std::size_t{1}, std::size_t{1000}, kStepBlock}) {
      CaseStore fresh = DraftCase(draft, draft.motype == 1 ? kSteps / 2 : kSteps);  // impulsive: up to twice NSTEP
      const std::string what = fmt::format("{} mode {} ship {}", draft.lists, draft.mode, draft.ship);
      const CompanionRead read = ReadBytes(bytes, fresh, block);
      EXPECT_EQ(read.steps.end, StepsEnd::complete) << what;
      EXPECT_EQ(read.steps.kept, kSteps) << what;
      EXPECT_EQ(read.bad_indices, 0) << what;
      ExpectStored(fresh, expected, what);
    }
  }
}

constexpr StepDraft kPlain{"t pva12345LYcrn", 417, false, 1, 1, 1, 2};

// Steps 1, 2, 3 at times 1, 2, 3.
struct Companion {
  Companion() {
    DraftWriter writer(kPlain, expected);
    for (int i = 1; i <= 3; ++i) {
      lists.push_back(writer.Step(i, static_cast<float>(i)));
      bytes += StepRecords(i, lists.back());
    }
    step = (bytes.size() - 12) / 3;
  }
  CaseStore expected;
  std::vector<Lists> lists;
  std::string bytes = VersionRecord(417);
  std::size_t step = 0;  // bytes of each
};

TEST(UnformattedSteps, CutAtEveryByte) {
  const Companion whole;
  for (std::size_t size = 0; size < whole.bytes.size(); ++size) {
    CaseStore fresh = DraftCase(kPlain, 9);
    const CompanionRead read = ReadBytes(whole.bytes.substr(0, size), fresh, size % 400 + 1);
    const bool no_version = size < 12;
    const std::size_t kept = no_version ? 0 : (size - 12) / whole.step;
    EXPECT_EQ(read.steps.kept, static_cast<int>(kept)) << size;
    const StepsEnd behind_version = size == 12 ? StepsEnd::no_record : StepsEnd::file_end;
    EXPECT_EQ(read.steps.end, no_version ? StepsEnd::bad_value : behind_version) << size;
    EXPECT_EQ(read.steps.begun, !no_version && (size - 12) % whole.step > 0) << size;
    const std::vector<float>& all = whole.expected.prop_rps.component[0];
    EXPECT_TRUE(no_version || std::equal(all.begin(), all.begin() + read.steps.kept,
                                         fresh.prop_rps.component[0].begin(), fresh.prop_rps.component[0].end()));
  }
  CaseStore fresh = DraftCase(kPlain, 2'000'000'000);
  EXPECT_EQ(ReadBytes(whole.bytes, fresh).steps.kept, 3);
  EXPECT_LT(fresh.time.component[0].capacity(), 100U) << "memory follows the file, not the count";
}

TEST(UnformattedSteps, LengthsThatAreWrong) {
  const Companion whole;
  const std::size_t second = 12 + whole.step;
  // clang-format off
  const struct { std::size_t at; std::int32_t word; int kept; } cases[] = {
      {0, 8, 0}, {8, 0, 0},                      // of the version
      {12, 16, 0}, {second + 16, 11, 1},         // of a header, ahead and behind
      {second + 20, 2147483647, 1}, {second + 20, -8, 1}, {32, 0, 0}, {second + whole.step - 4, 0, 1},  // of a body
      {second + 20, 12, 1}};                     // header twice, but not of step 1
  // clang-format on
  for (const auto& c : cases) {
    std::string bytes = whole.bytes;
    bytes.replace(c.at, 4, BytesOf(c.word));
    CaseStore fresh = DraftCase(kPlain, 9);
    const CompanionRead read = ReadBytes(bytes, fresh);
    EXPECT_EQ(read.steps.end, StepsEnd::bad_value) << c.at << ' ' << c.word;
    EXPECT_EQ(read.steps.kept, c.kept) << c.at << ' ' << c.word;
  }
}

TEST(UnformattedSteps, HeadersThatAreOdd) {
  const Companion whole;
  const auto with = [&](std::vector<std::pair<int, float>> headers) {
    std::string bytes = VersionRecord(417);
    for (std::size_t i = 0; i < headers.size(); ++i) {
      Lists lists = whole.lists[i];
      lists[0][0] = headers[i].second;
      bytes += StepRecords(headers[i].first, lists);
    }
    return bytes;
  };
  using enum StepsEnd;
  // clang-format off
  const struct {
    const char* what; std::string bytes; int nstep, irst; StepsEnd end; int first, kept, bad; float last_time;
  } cases[] = {
      {"header of step 1 twice", VersionRecord(417) + HeaderRecord(1, 1) + whole.bytes.substr(12), 9, 0, file_end, 1, 3, 0, 3},
      {"NSTEP reached", whole.bytes, 2, 0, complete, 1, 2, 0, 2},
      {"more than NSTEP", whole.bytes + "no record", 3, 0, complete, 1, 3, 0, 3},
      {"index 0: time by position", with({{1, 0.F}, {0, 77.F}}), 9, 0, file_end, 1, 2, 1, 0.25F},
      {"index beyond NSTEP", with({{1, 0.F}, {10, 0.3F}}), 9, 0, file_end, 1, 2, 1, 0.25F},
      {"index of another step", with({{1, 0.F}, {7, 0.3F}}), 9, 0, file_end, 1, 2, 0, 0.3F},
      {"all indices bad", with({{-1, 9.F}, {-2147483647, 9.F}, {2147483647, 9.F}}), 9, 0, file_end, 1, 3, 3, 0.5F},
      {"equal times", with({{1, 1.F}, {2, 1.F}}), 9, 0, not_ascending, 1, 1, 0, 1},
      {"restarted part", with({{5, 1.F}, {6, 2.F}}), 9, 1, file_end, 5, 2, 0, 2},
      {"restarted part up to NSTEP", with({{5, 1.F}, {6, 2.F}}), 5, 1, complete, 5, 1, 0, 1},
      {"restarted part, bad index: by its time", with({{0, 1.F}, {6, 2.F}}), 9, 1, file_end, 5, 2, 1, 2}};
  // clang-format on
  for (const auto& c : cases) {
    CaseStore fresh = DraftCase(kPlain, c.nstep);
    fresh.control.IRST = c.irst;
    fresh.control.DTH = 0.25;
    fresh.control.GRAVIN = fresh.control.LENIN = 1;
    const CompanionRead read = ReadBytes(c.bytes, fresh);
    EXPECT_EQ(read.steps.end, c.end) << c.what;
    EXPECT_EQ(fresh.force.first, c.first) << c.what;
    EXPECT_EQ(read.bad_indices, c.bad) << c.what;
    ASSERT_EQ(read.steps.kept, c.kept) << c.what;
    EXPECT_EQ(fresh.time.component[0].back(), c.last_time) << c.what;
    EXPECT_EQ(fresh.pmgg.component[0][0], whole.expected.pmgg.component[0][0]) << c.what;
  }
}

TEST(UnformattedSteps, Versions) {
  for (const auto& [formatted, unformatted, differ] :
       {std::tuple{417, 417, false}, {417, 407, false}, {407, 417, true}, {0, 417, false}, {417, 0, false}})
    EXPECT_EQ(VersionsDiffer(formatted, unformatted), differ) << formatted << ' ' << unformatted;
  EXPECT_EQ(CompanionName("run") + ' ' + CompanionName("d.out/run.out.XML"), "runu d.out/run.outu.XML");
}

StepsRead ReadText(const std::string& text, CaseStore& fresh) {
  TextFile file(text);
  return ReadTimeSteps(file.stream, static_cast<std::int64_t>(text.size()), fresh, {}, 2);
}

TEST(StepLayouts, EachVersionHasItsOwn) {
  // clang-format off
  const StepDraft drafts[] = {
      {"tpva12345LYcrn", 417}, {"tpva12345LYcrn", 362}, {"tpva12345LYcrn", 0}, {"tpva12345LYcrn", -1},
      {"tpva12345F", 361}, {"tpva12345F", 299}, {"tpva123F", 298}, {"tpva123F", 293}, {"t pva123F dM", 291},
      {"tpva123F", 290}, {"tpva123F", 1}, {"tpva123dF", -1, true},
      {"t Spva12345", 357, false, 2, 2}, {"t Spva12345", 291, false, 3, 1}, {"t Spva12345", 1, false, 2, 1},
      {"t Spva12345cr", 358, false, 3, 2}, {"t Spva12345cr", 361, false, 2, 2}, {"t Spva12345crn", 362, false, 2, 1},
      {"t Spva12345crn", 0, false, 3, 3}, {"t Spva12345crn", -1, true, 2, 2},
      {"t Spva12345crn", 417, false, 2, 2, 1},  // several ships: a positive mode leaves the steps here
      {"tpva12345LYcrn", 417, false, 1, 1, 3},  // no mode that there is
      {"tmi", 417, false, 1, 1, 0, 1}, {"tmi", 291, false, 1, 1, 0, 1}, {"tmi", 350, false, 3, 2, 0, 1},
      {"tmi", 0, false, 2, 2, 2, 1}};
  // clang-format on
  constexpr int kSteps = 40;
  for (const StepDraft& draft : drafts) {
    CaseStore expected;
    DraftWriter writer(draft, expected);
    std::string text;
    for (int step = 1; step <= kSteps; ++step) text += ListText(writer.Step(step, 0.25F * static_cast<float>(step)));
    const std::string what = fmt::format("{} version {} ship {}", draft.lists, draft.version, draft.ship);
    const int least = draft.motype == 1 ? kSteps / 2 : kSteps;  // an impulsive run may have up to twice NSTEP steps
    for (const int nstep : {least, kSteps, kSteps + 1}) {
      CaseStore fresh = DraftCase(draft, nstep);
      const StepsRead read = ReadText(nstep == least ? text + "****\n" : text, fresh);
      EXPECT_EQ(read.end, nstep > kSteps ? StepsEnd::file_end : StepsEnd::complete) << what << ", NSTEP " << nstep;
      EXPECT_EQ(read.kept, kSteps) << what;
      ExpectStored(fresh, expected, what);
      // Loads that a layout lacks are taken away.
      EXPECT_EQ(fresh.loads.y_kinds.empty(), what.find('Y') == std::string::npos) << what;
    }
  }
}

// The step behind the last whole one never leaves a trace, wherever in its lists it ends.
TEST(StepLayouts, CutBetweenLists) {
  const StepDraft draft{"t Spva12345cr", 360, false, 2, 2};
  CaseStore expected, dropped;
  const std::string one = ListText(DraftWriter(draft, expected).Step(1, 1));
  Lists two = DraftWriter(draft, dropped).Step(2, 2);
  while (!two.empty()) {
    two.pop_back();
    CaseStore fresh = DraftCase(draft, 9);
    const StepsRead read = ReadText(one + ListText(two), fresh);
    EXPECT_EQ(read.end, StepsEnd::file_end);
    EXPECT_EQ(read.begun, !two.empty());
    ExpectStored(fresh, expected, fmt::format("{} lists", two.size()));
  }
}

constexpr StepDraft kNoForces{"t pvaLYcrn", 417, false, 1, 1, -2, 2};

struct Read {
  bool read = false;
  StepsRead steps;
  CaseStore fresh;
  std::string console;
};

Read ReadWith(const StepDraft& draft, const std::string& companion, const std::string& bytes) {
  FakePlatform fake;
  fake.Put(companion, bytes);
  Read out;
  out.fresh = DraftCase(draft, 9);
  out.fresh.file_name = "run.out";
  out.read = ReadCompanion(fake.Get(), out.fresh, out.steps);
  out.console = fake.output;
  EXPECT_EQ(fake.OpenHandles(), 0U);
  return out;
}

TEST(ReadSteps, WordsAboutTheCompanion) {
  CaseStore expected;
  DraftWriter writer(kPlain, expected);
  const std::string one = StepRecords(1, writer.Step(1, 1)), two = StepRecords(2, writer.Step(4, 2));
  const std::string reading = "Reading time history data from run.outu\n";
  // clang-format off
  const struct { const char* name; std::string bytes; bool read; int kept; std::string words; } cases[] = {
      {"run.out.outu", "", false, 0, "ERROR opening unformatted output file run.outu\n"},
      {"run.outu", "", false, 0, "ERROR parsing unformatted output file run.outu\n"},
      {"run.outu", "text\n", false, 0, "ERROR parsing unformatted output file run.outu\n"},
      {"run.outu", VersionRecord(417), true, 0, ""},
      {"run.outu", VersionRecord(417) + one + two, true, 2, reading},
      {"run.outu", VersionRecord(417) + HeaderRecord(0, 1) + one.substr(20) + two, true, 2,
       reading + "WRN??? Invalid step index in output file\n"},
      {"run.outu", VersionRecord(416) + one + two, true, 2,
       "WARNING: version number mismatch between formatted and unformated files:\n"
       "  formatted   (.out)  file: 417\n  unformatted (.outu) file: 416\nTrying to read file anyway...\n" + reading}};
  // clang-format on
  for (const auto& c : cases) {
    const Read out = ReadWith(kPlain, c.name, c.bytes);
    EXPECT_EQ(out.read, c.read) << c.words;
    EXPECT_EQ(out.console, c.words);
    EXPECT_EQ(out.steps.kept, c.kept) << c.words;
  }
}

// A file without forces has its loads smoothed, and nothing else.
TEST(ReadSteps, LoadsAreSmoothedWithoutForces) {
  CaseStore spiked;
  DraftWriter writer(kNoForces, spiked);
  std::string bytes = VersionRecord(417);
  for (int i = 1; i <= 7; ++i) bytes += StepRecords(i, writer.Step(i == 4 ? 35 : 0, static_cast<float>(i)));
  const Read out = ReadWith(kNoForces, "run.outu", bytes);
  const float constant = spiked.load_moment[4].component[0][0];
  const float weights[] = {0, -3, 12, 17, 12, -3, 0};  // of 35, but for the ends
  for (std::size_t i = 2; i < 5; ++i)
    EXPECT_NEAR(out.fresh.load_moment[4].component[0].at(i), constant + weights[i], 1e-5) << i;
  EXPECT_EQ(out.fresh.acc.component[5], spiked.acc.component[5]);
}

}  // namespace
}  // namespace zaview
