// Impulsive runs as a whole: which of them are a case, with steps or without.
#include <gtest/gtest.h>

#include "case/read_output_file.h"
#include "control_draft.h"
#include "fake_platform.h"

namespace zaview {
namespace {

std::string ImpulsiveText(int NSTEP, int MIXED, const std::string& behind_header) {
  ControlDraft draft;
  draft.record[13][0] = "1 1 " + std::to_string(MIXED);
  draft.record[14][0] = "0.0 " + std::to_string(NSTEP) + " 0.25 0";
  return " VERSION   : 4.1.7 / April 28, 2022\n!---- INPUT_FILE_ECHO ----\n" + draft.Text() +
         "!---- FILE_PARSING_DATA ----\n1\n0\n!---- DERIVED_DATA_ECHO ----\n0.0028\n1 0 0\n0 2 0\n0 0 3\n"
         "0 0 -0.0125\n8*0\n0\n0\n!---- END_OF_HEADER ----\n" +
         behind_header;
}

const std::string kIrf = "!IRF   1        radiation in heave, ship 1, 2 steps\n0.0 6*1\n0.5 6*2\n";
const std::string kEnd = "!END OF INPUT FILE ECHO\n";
const std::string kHeaderWords =
    "Output file is labeled version 417\nReading ZAVO input data from output file...\n";
const std::string kOnlyGeometry = "Specified ZAVO file is for a geometry only (NSTEP=0) run\n";
const std::string kNoSteps =
    "ERR487 - The ZAVO file contains no steps.\n         Reading as geometry only (NSTEP=0) run\n";
const std::string kTwoSteps =
    "Reading time history data from run.out\nTime steps 1 through 2 read from ZAVO output file run.out\n";

struct Reader {
  FakePlatform fake;
  RunState run;
  OutputSettings settings;
  CaseStore store;
  EnsembleStore ensemble;

  ReadOutcome Read(std::string text) {
    fake.Put("run.out", std::move(text));
    fake.output.clear();
    ReadRequest request;
    request.name = "run.out";
    const ReadOutcome outcome = read_output_file(request, fake.Get(), run, settings, store, ensemble);
    EXPECT_EQ(fake.OpenHandles(), 0U);
    return outcome;
  }
};

// Functions alone are a case; what stands behind their end line is not looked at. Transient added mass needs steps.
TEST(ImpulsiveRun, FunctionsOrStepsAreACase) {
  const struct {
    int NSTEP, MIXED;
    std::string behind_header, words;
    int steps;
    std::size_t irfs;
    bool data;
  } rows[] = {
      {3, 0, kIrf + kEnd + "**** not read\n", "", 0, 1, true},
      {0, 0, kIrf + kEnd, "", 0, 1, true},
      {0, 0, "\n", kOnlyGeometry, 0, 0, false},
      {0, 2, kIrf + kEnd, kOnlyGeometry, 0, 1, false},
      {3, 2, kIrf + kEnd, kNoSteps, 0, 1, false},
      {2, -2, kEnd + "0.0 12*1E6\n1.0 12*2E6\n", kTwoSteps, 2, 0, true},
  };
  for (const auto& row : rows) {
    Reader reader;
    EXPECT_EQ(reader.Read(ImpulsiveText(row.NSTEP, row.MIXED, row.behind_header)), ReadOutcome::ok);
    EXPECT_EQ(reader.fake.output, kHeaderWords + row.words);
    EXPECT_TRUE(reader.store.has_case);
    EXPECT_EQ(reader.store.has_data(), row.data) << row.words;
    EXPECT_EQ(reader.store.last_read, row.steps);
    EXPECT_EQ(reader.store.irfs.size(), row.irfs);
    EXPECT_EQ(reader.store.skip_effective, 0);
    EXPECT_EQ(reader.settings.scales.force[2], 1.0F);
    EXPECT_NEAR(reader.settings.scales.T, 3.1927543, 1e-6);  // sqrt(100/9.81)
  }
}

TEST(ImpulsiveRun, FaultsKeepTheHeldCase) {
  for (const std::string& behind_header : {kEnd, kIrf, std::string("!IRF\n"), std::string()}) {
    Reader reader;
    ASSERT_EQ(reader.Read(ImpulsiveText(3, 0, kIrf + kIrf + kEnd)), ReadOutcome::ok);
    EXPECT_EQ(reader.Read(ImpulsiveText(3, 0, behind_header)), ReadOutcome::failed);
    EXPECT_EQ(reader.store.irfs.size(), 2U);
  }
}

}  // namespace
}  // namespace zaview
