#include "case/read/unformatted_steps.h"

#include <algorithm>

#include <gtest/gtest.h>

#include "control_draft.h"
#include "step_draft.h"

namespace zaview {
namespace {

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

}  // namespace
}  // namespace zaview
