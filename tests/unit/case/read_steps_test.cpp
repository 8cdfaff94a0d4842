#include "case/read_steps.h"

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

Read ReadWith(const StepDraft& draft, const char* companion, const std::string& bytes) {
  FakePlatform fake;
  if (companion != nullptr) fake.Put(companion, bytes);
  Read out;
  out.fresh = DraftCase(draft, 9);
  out.fresh.file_name = "run.out";
  out.read = ReadCompanion(fake.Get(), out.fresh, out.steps);
  out.console = fake.output;
  EXPECT_EQ(fake.OpenHandles(), 0U);
  return out;
}

std::string Bytes(const StepDraft& draft, int version, int steps, CaseStore& expected) {
  DraftWriter writer(draft, expected);
  std::string bytes = VersionRecord(version);
  for (int i = 1; i <= steps; ++i) bytes += StepRecords(i, writer.Step(i * i, static_cast<float>(i)));
  return bytes;
}

TEST(ReadSteps, WordsAboutTheCompanion) {
  CaseStore expected;
  const std::string good = Bytes(kForces, 417, 2, expected), other = Bytes(kForces, 416, 2, expected);
  const std::string reading = "Reading time history data from run.outu\n";
  const struct {
    const char* name;
    std::string bytes;
    bool read;
    int kept;
    StepsEnd end;
    std::string words;
  } cases[] = {
      {nullptr,             "",                                false, 0,                                              StepsEnd::complete,                   "ERROR opening unformatted output file run.outu\n"},
      {"run.out.outu",      good,                              false, 0,                                              StepsEnd::complete,                   "ERROR opening unformatted output file run.outu\n"},
      {"run.outu",          "",                                false, 0,                                              StepsEnd::complete,                   "ERROR parsing unformatted output file run.outu\n"},
      {"run.outu",          "text\n",                          false, 0,                                              StepsEnd::complete,                   "ERROR parsing unformatted output file run.outu\n"},
      {"run.outu",          good.substr(0,                     12),   true,                                           0,                                    StepsEnd::no_record,                                ""},
      {"run.outu",                   good,                                           true,                          2,                          StepsEnd::file_end,                                    reading                                          },
      {"run.outu",                   good.substr(0,                                           12) + HeaderRecord(0,                 1) + good.substr(32), true, 2,     StepsEnd::file_end,
       reading + "WRN??? Invalid step index in output file\n"},
      {"run.outu", other, true,      2,                                           StepsEnd::file_end,
       "WARNING: version number mismatch between formatted and unformated files:\n"
       "  formatted   (.out)  file: 417\n  unformatted (.outu) file: 416\nTrying to read file anyway...\n" +
           reading                                                                                                                       },
  };
  for (const auto& c : cases) {
    const Read out = ReadWith(kForces, c.name, c.bytes);
    EXPECT_EQ(out.read, c.read) << c.words;
    EXPECT_EQ(out.console, c.words);
    EXPECT_EQ(out.steps.kept, c.kept) << c.words;
    EXPECT_EQ(out.steps.end, c.end) << c.words;
  }
}

// A file without forces has its loads smoothed, and nothing else. Step i holds i^2 + constant: a parabola is its own
// least-squares fit, a spike is not.
TEST(ReadSteps, LoadsAreSmoothedWithoutForces) {
  CaseStore expected;
  Read out = ReadWith(kNoForces, "run.outu", Bytes(kNoForces, 417, 7, expected));
  ASSERT_EQ(out.steps.kept, 7);
  ExpectHistory(out.fresh.pmgg, expected.pmgg, "pmgg");
  ExpectHistory(out.fresh.force, expected.force, "force");
  ExpectHistory(out.fresh.load_force[0], expected.load_force[0], "parabola");

  CaseStore spiked;
  DraftWriter writer(kNoForces, spiked);
  std::string bytes = VersionRecord(417);
  for (int i = 1; i <= 7; ++i) bytes += StepRecords(i, writer.Step(i == 4 ? 35 : 0, static_cast<float>(i)));
  out = ReadWith(kNoForces, "run.outu", bytes);
  const float constant = spiked.load_moment[4].component[0][0];
  const float weights[] = {0, -3, 12, 17, 12, -3, 0};  // of 35, but for the ends
  for (std::size_t i = 2; i < 5; ++i)
    EXPECT_NEAR(out.fresh.load_moment[4].component[0][i], constant + weights[i], 1e-5) << i;
  EXPECT_EQ(out.fresh.acc.component[5], spiked.acc.component[5]);
}

}  // namespace
}  // namespace zaview
