#include "case/read/read_steps.h"

#include <gtest/gtest.h>

#include "fake_platform.h"
#include "step_draft.h"

namespace zaview {
namespace {

constexpr StepDraft kForces{"t pva12345LYcrn", 417, false, 1, 1, 1, 2};
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
  DraftWriter writer(kForces, expected);
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
    const Read out = ReadWith(kForces, c.name, c.bytes);
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
