#include "case/read/read_output_file.h"

#include <gtest/gtest.h>

#include "control_draft.h"

namespace zaview {
namespace {

constexpr const char* kLabelled = " VERSION   : 4.1.7 / April 28, 2022\n ZAVO Primary Output File\n";

// A run without loads, planned for `planned` steps: 52 reals a step.
struct RunDraft {
  int planned = 3;
  int ships = 1;
  std::string preamble = kLabelled;
  const char* kind = "1 2 0";

  [[nodiscard]] std::string Text(const std::string& behind_header = "") const {
    ControlDraft draft;
    draft.record[13][0] = kind;
    draft.record[14][0] = "0.0 " + std::to_string(planned) + " 0.25 0";
    std::string text = preamble + "!---- INPUT_FILE_ECHO ----\n" + draft.Text() + "!---- FILE_PARSING_DATA ----\n" +
                       std::to_string(ships) + "\n0\n!---- DERIVED_DATA_ECHO ----\n";
    for (int ship = 0; ship < ships; ++ship) text += "0.0028\n1 0 0\n0 2 0\n0 0 3\n0 0 -0.0125\n";
    return text + "8*0\n0\n0\n!---- END_OF_HEADER ----\n" + behind_header;
  }
};

std::string Steps(int n) {
  std::string text;
  for (int i = 0; i < n; ++i) text += std::to_string(i * 0.25) + " 51*0.5\n";
  return text;
}

struct Reader {
  FakePlatform fake;
  Platform platform = fake.Get();
  RunState run;
  OutputSettings settings;
  CaseStore store;
  EnsembleStore ensemble;

  Reader() {
    run.skip_prompt = SkipPrompt::silent;
    fake.Put("good.out", RunDraft{}.Text(Steps(3)));
  }
  ReadOutcome Read(const std::string& name, int ship = 1) {
    ReadRequest request;
    request.name = name, request.ship = ship, request.ship_named = true;
    fake.output.clear();
    const ReadOutcome outcome = read_output_file(request, platform, run, settings, store, ensemble);
    EXPECT_EQ(fake.OpenHandles(), 0U);
    EXPECT_EQ(fake.progress, "");
    return outcome;
  }
};

// How a read ends, its words, and what a failure leaves: the case held before, or the geometry when there was none.
TEST(ReadOutputFile, EndsOfTheSteps) {
  const std::string begun = "Reading time history data from run.out\n";
  const std::string two = "Time steps 1 through 2 read from ZAVO output file run.out\n";
  const std::string trimmed =
      two +
      "Skipping      0 time steps by default\nWRN500 - Last 200 time steps trimmed from incomplete ZAVO run\n"
      "         Use menu option 11 or script command SET_TRIM_ABORT 0 to restore\n"
      "         these steps or re-trim the record\nWRN501 - Specified trimming would elminate time history\n"
      "         Terminal trimming is not applied\n";
  const std::string still = "         The ZAVO run may still be running or may have terminated prematurely\n";
  const std::string irf = "!IRF   1        radiation in heave, ship 1, 2 steps\n0.0 6*1\n0.5 6*2\n";
  const std::string end = "!END OF INPUT FILE ECHO\n";
  const char* const motions = "1 2 0";
  // clang-format off
  const struct { const char* kind; int planned; std::string steps; int kept; ReadOutcome outcome; std::string words; } rows[] = {
      {motions, 2, Steps(4), 2, ReadOutcome::ok, begun + two + "Skipping      0 time steps by default\n"},
      {motions, 300, Steps(2) + "0.5 40*0.5\n", 2, ReadOutcome::ok,
       begun + "WRN417 - Unexpected file end after time step 2\n         Additional steps will not be available\n" + trimmed},
      {motions, 300, Steps(2) + "0.5 **** 50*0.5\n", 2, ReadOutcome::ok,
       begun + "WRN416 - Error reading file after time step 2\n         Additional steps will be not be available\n" + trimmed},
      {motions, 300, Steps(2) + "0.25 51*0.5\n", 2, ReadOutcome::ok,
       begun + "ERR408 - Time step not ascending in ZAVO output file:\n  time= 0.7981886 at step 2\n"
       "  time= 0.7981886 at step 3\n         Additional steps will not be available\n         File read aborted\n" + trimmed},
      {motions, 0, "", 0, ReadOutcome::ok, "Specified ZAVO file is for a geometry only (NSTEP=0) run\n"},
      {motions, 300, "", 0, ReadOutcome::ok,
       "ERR487 - The ZAVO file contains no steps.\n         Reading as geometry only (NSTEP=0) run\n"},
      {motions, 300, "0.0 20*0.5\n", 0, ReadOutcome::failed,
       begun + "ERR417 - Unexpected file end before any time steps were read\n" + still},
      {motions, 300, "0.0 x 50*0.5\n", 0, ReadOutcome::failed,
       begun + "ERR416 - Error reading file before any time steps were read\n" + still},
      // Functions alone are a case; what stands behind their end line is not looked at. Transient added mass needs steps.
      {"1 1 0", 3, irf + end + "**** not read\n", 0, ReadOutcome::ok, ""},
      {"1 1 0", 0, "\n", 0, ReadOutcome::ok, "Specified ZAVO file is for a geometry only (NSTEP=0) run\n"},
      {"1 1 2", 3, irf + end, 0, ReadOutcome::ok,
       "ERR487 - The ZAVO file contains no steps.\n         Reading as geometry only (NSTEP=0) run\n"},
      {"1 1 -2", 2, end + "0.0 12*1E6\n1.0 12*2E6\n", 2, ReadOutcome::ok, begun + two},
  };
  // clang-format on
  for (const auto& row : rows) {
    Reader first, held;
    first.fake.Put("run.out", RunDraft{row.planned, 1, kLabelled, row.kind}.Text(row.steps));
    EXPECT_EQ(first.Read("run"), row.outcome);
    EXPECT_EQ(first.fake.output,
              "Output file is labeled version 417\nReading ZAVO input data from output file...\n" + row.words);
    EXPECT_TRUE(first.store.has_case);
    EXPECT_EQ(first.store.last_read, row.kept);
    EXPECT_EQ(first.store.irfs.empty(), row.steps.find(irf) == std::string::npos);
    EXPECT_TRUE(row.kept == 0 || row.kind != motions || first.store.pmgg.at(6, 2) == 0.5F);
    held.fake.Put("run.out", first.fake.Bytes("run.out"));
    ASSERT_EQ(held.Read("good"), ReadOutcome::ok);
    EXPECT_EQ(held.Read("run"), row.outcome);
    EXPECT_EQ(held.store.file_name, row.outcome == ReadOutcome::failed ? "good.out" : "run.out");
  }
}

TEST(ReadOutputFile, NamesTriedInOrder) {
  // clang-format off
  const struct { const char* asked; std::vector<std::string> there; const char *opened, *base; } rows[] = {
      {"run", {"run", "run.out"}, "run", "run"},
      {"run", {"run.out", "run.out.XML"}, "run.out", "run"},
      {"dir/run", {"dir/run.out.XML", "dir/run.XML"}, "dir/run.out.XML", "run"},
      {"run", {"run.XML"}, "run.XML", "run"},
      {".out", {".out"}, ".out", ".out"}};
  // clang-format on
  for (const auto& row : rows) {
    Reader reader;
    for (const std::string& name : row.there) reader.fake.Put(name, reader.fake.Bytes("good.out"));
    EXPECT_EQ(reader.Read(row.asked), ReadOutcome::ok);
    EXPECT_EQ(reader.store.file_name, row.opened);
    EXPECT_EQ(reader.store.base_name, row.base);
  }
}

TEST(ReadOutputFile, RefusalsKeepTheHeldCase) {
  const RunDraft old_impulsive{3, 2, "RELEASE   : 2.9.1\n", "1 1 2"};
  // clang-format off
  const struct { const char* name; std::string text; int ship; std::string_view words; } rows[] = {
      {"run", RunDraft{-5}.Text(), 1,
       "ERR425 - The ZAVO output file has NSTEP= -5\n         File may be for an incompatible version of ZAVO\n"},
      {"run", old_impulsive.Text("!END OF INPUT FILE ECHO\n" + Steps(3)), 2,
       "oops - have not programmed this yet - contact Ned\n"},
      {"run", RunDraft{3, 2}.Text(Steps(3)), 3, "ERROR - ship 3 is not in the file (NSHIP= 2)\n"},
      {"run", RunDraft{}.Text(Steps(3)), 0, "ERROR - ship 0 is not in the file (NSHIP= 1)\n"},
      {"run", "nothing\n", 1,
       "ERR407 - Input echo section delimiters not found while reading run.out\n"
       "         File is probably not a ZAVO output file\n"},
      {"none", "", 1, "ERROR - Error opening ZAVO Output File : none\n"},  // and the name is not asked for again
  };
  // clang-format on
  for (const auto& row : rows) {
    Reader reader;
    reader.fake.input = {"good.out"};
    reader.fake.Put("run.out", row.text);
    ASSERT_EQ(reader.Read("good"), ReadOutcome::ok);
    EXPECT_EQ(reader.Read(row.name, row.ship), ReadOutcome::failed);
    EXPECT_NE(reader.fake.output.find(row.words), std::string::npos) << reader.fake.output;
    EXPECT_EQ(reader.store.file_name, "good.out");
    EXPECT_EQ(reader.store.last_read, 3);
    EXPECT_EQ(reader.fake.input.size(), 1U);
  }
}

TEST(ReadOutputFile, ABlankNameAsks) {
  Reader reader, empty;
  reader.fake.input = {"none", "", "good", "QUIT"};
  EXPECT_EQ(reader.Read(""), ReadOutcome::ok);
  const std::string prompt = "Enter ZAVO output file name (KINO for alternate input, QUIT to abort) ";
  EXPECT_EQ(reader.fake.output.substr(0, reader.fake.output.find("Output file is")),
            prompt + "none\nERROR - Error opening ZAVO Output File : none\n" + prompt.substr(0, prompt.size() - 1) +
                "\n file specification aborted ... re-specify\n" + prompt + "good\n");
  EXPECT_EQ(reader.Read(""), ReadOutcome::aborted);
  EXPECT_FALSE(reader.run.exit_requested);          // a case is held
  EXPECT_EQ(empty.Read(""), ReadOutcome::aborted);  // end of input
  EXPECT_TRUE(empty.run.exit_requested);
}

TEST(ReadOutputFile, ScriptsAreNotAskedAndUserScalesSurvive) {
  Reader reader;
  reader.run.skip_prompt = SkipPrompt::ask;
  reader.run.script_active = true;
  reader.settings.reading.trim_initial = 2;
  reader.settings.units.LENOUT = 1.0F, reader.settings.units.user_scale[2] = true;
  reader.settings.units.GRAVOUT = 32.0F;
  EXPECT_EQ(reader.Read("good"), ReadOutcome::ok);
  EXPECT_EQ(reader.fake.output.find("How many"), std::string::npos);
  EXPECT_EQ(reader.store.first_step, 3);
  EXPECT_EQ(reader.settings.units.LENOUT, 1.0F);
  EXPECT_EQ(reader.settings.units.GRAVOUT, 9.81F);
}

TEST(ReadOutputFile, LongReadsShowHowFarTheyAre) {
  static std::vector<std::string> shown;
  Reader slow;
  slow.fake.Put("run.out", RunDraft{150000}.Text(Steps(150000)));
  slow.platform.clock.seconds = [](void* self) { return FakePlatform::Of(self).seconds += 1.5; };
  slow.platform.console.show_progress = [](void*, std::string_view text) { shown.emplace_back(text); };
  EXPECT_EQ(slow.Read("run"), ReadOutcome::ok);
  EXPECT_FALSE(shown.empty());
  for (const std::string& line : shown)
    EXPECT_TRUE(line.rfind("Reading run.out", 0) == 0 && line.back() == '%') << line;
}

}  // namespace
}  // namespace zaview
