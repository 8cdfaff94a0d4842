#include "case/read_output_file.h"

#include <gtest/gtest.h>

#include "control_draft.h"
#include "fake_platform.h"

namespace zaview {
namespace {

// A run of `steps` steps without loads, planned for `planned`: 52 reals a step.
struct RunDraft {
  int planned = 3;
  std::string preamble = " VERSION   : 4.1.7 / April 28, 2022\n ZAVO Primary Output File\n";
  std::string ships = "1";
  ControlDraft control{};
  std::vector<std::string> steps{};

  [[nodiscard]] std::string Text() const {
    ControlDraft draft = control;
    draft.record[14][0] = "0.0 " + std::to_string(planned) + " 0.25 0";
    std::string text = preamble + "!---- INPUT_FILE_ECHO ----\n" + draft.Text() + "!---- FILE_PARSING_DATA ----\n" +
                       ships + "\n0\n!---- DERIVED_DATA_ECHO ----\n";
    for (int ship = 0; ship < std::stoi(ships); ++ship) text += "0.0028\n1 0 0\n0 2 0\n0 0 3\n0 0 -0.0125\n";
    text += "8*0\n0\n0\n!---- END_OF_HEADER ----\n";
    for (const std::string& step : steps) text += step;
    return text;
  }
};

std::string Step(double time) {
  return std::to_string(time) + " 51*0.5\n";
}

RunDraft RunOf(int planned, int written) {
  RunDraft run;
  run.planned = planned;
  for (int i = 0; i < written; ++i) run.steps.push_back(Step(i * 0.25));
  return run;
}

struct Reader {
  FakePlatform fake;
  RunState run;
  OutputSettings settings;
  CaseStore store;
  EnsembleStore ensemble;

  ReadOutcome Read(const std::string& name, int ship = 1) {
    ReadRequest request;
    request.name = name;
    request.ship = ship;
    fake.output.clear();
    const ReadOutcome outcome = read_output_file(request, fake.Get(), run, settings, store, ensemble);
    EXPECT_EQ(fake.OpenHandles(), 0U);
    EXPECT_EQ(fake.progress, "");
    return outcome;
  }
  Reader() { run.skip_prompt = SkipPrompt::silent; }
};

constexpr std::string_view kHeaderWords =
    "Output file is labeled version 417\nReading ZAVO input data from output file...\n";

TEST(ReadOutputFile, EndsOfTheSteps) {
  RunDraft half = RunOf(300, 2);
  half.steps.push_back("0.5 40*0.5\n");
  RunDraft bad = RunOf(300, 2);
  bad.steps.push_back("0.5 **** 50*0.5\n");
  RunDraft equal = RunOf(300, 2);
  equal.steps.push_back(Step(0.25));
  RunDraft more = RunOf(2, 4);
  const std::string trimmed =
      "Skipping      0 time steps by default\nWRN500 - Last 200 time steps trimmed from incomplete ZAVO run\n"
      "         Use menu option 11 or script command SET_TRIM_ABORT 0 to restore\n"
      "         these steps or re-trim the record\nWRN501 - Specified trimming would elminate time history\n"
      "         Terminal trimming is not applied\n";
  const struct {
    RunDraft run;
    std::string words;
  } rows[] = {
      {more, "Time steps 1 through 2 read from ZAVO output file run.out\nSkipping      0 time steps by default\n"},
      {half,
       "WRN417 - Unexpected file end after time step 2\n         Additional steps will not be available\n"
       "Time steps 1 through 2 read from ZAVO output file run.out\n" +
           trimmed},
      {bad,
       "WRN416 - Error reading file after time step 2\n         Additional steps will be not be available\n"
       "Time steps 1 through 2 read from ZAVO output file run.out\n" +
           trimmed},
      {equal,
       "ERR408 - Time step not ascending in ZAVO output file:\n  time= 0.7981886 at step 2\n  time= 0.7981886 at step 3\n"
       "         Additional steps will not be available\n         File read aborted\n"
       "Time steps 1 through 2 read from ZAVO output file run.out\n" +
           trimmed},
  };
  for (const auto& row : rows) {
    Reader reader;
    reader.fake.Put("run.out", row.run.Text());
    EXPECT_EQ(reader.Read("run"), ReadOutcome::ok);
    EXPECT_EQ(reader.fake.output, std::string(kHeaderWords) + "Reading time history data from run.out\n" + row.words);
    EXPECT_EQ(reader.store.last_read, 2);
    EXPECT_EQ(reader.store.pmgg.at(6, 2), 0.5F);
  }
}

TEST(ReadOutputFile, NoSteps) {
  RunDraft cut = RunOf(300, 0);
  cut.steps.push_back("0.0 20*0.5\n");
  RunDraft bad = RunOf(300, 0);
  bad.steps.push_back("0.0 x 50*0.5\n");
  const std::string still = "         The ZAVO run may still be running or may have terminated prematurely\n";
  const std::string begun = "Reading time history data from run.out\n";
  const struct {
    RunDraft run;
    ReadOutcome outcome;
    std::string words;  // while no case is held
  } rows[] = {
      {RunOf(0, 0), ReadOutcome::ok, "Specified ZAVO file is for a geometry only (NSTEP=0) run\n"},
      {RunOf(300, 0), ReadOutcome::ok,
       "ERR487 - The ZAVO file contains no steps.\n         Reading as geometry only (NSTEP=0) run\n"},
      {cut, ReadOutcome::failed, begun + "ERR417 - Unexpected file end before any time steps were read\n" + still},
      {bad, ReadOutcome::failed, begun + "ERR416 - Error reading file before any time steps were read\n" + still},
  };
  for (const auto& row : rows) {
    Reader first;
    first.fake.Put("run.out", row.run.Text());
    EXPECT_EQ(first.Read("run.out"), row.outcome);
    EXPECT_EQ(first.fake.output, std::string(kHeaderWords) + row.words);
    EXPECT_TRUE(first.store.has_case);  // its geometry is usable
    EXPECT_FALSE(first.store.has_steps());

    Reader held;
    held.fake.Put("good.out", RunOf(3, 3).Text());
    held.fake.Put("run.out", row.run.Text());
    ASSERT_EQ(held.Read("good"), ReadOutcome::ok);
    EXPECT_EQ(held.Read("run"), row.outcome);
    EXPECT_EQ(held.store.has_steps(), row.outcome == ReadOutcome::failed);  // a failure leaves the held case
  }
}

TEST(ReadOutputFile, NamesTriedInOrder) {
  const struct {
    const char* asked;
    std::vector<std::string> there;
    const char* opened;
    const char* base;
  } rows[] = {{"run", {"run", "run.out"}, "run", "run"},
              {"run", {"run.out", "run.out.XML"}, "run.out", "run"},
              {"dir/run", {"dir/run.out.XML", "dir/run.XML"}, "dir/run.out.XML", "run"},
              {"run", {"run.XML"}, "run.XML", "run"},
              {".out", {".out"}, ".out", ".out"}};
  for (const auto& row : rows) {
    Reader reader;
    for (const std::string& name : row.there) reader.fake.Put(name, RunOf(3, 3).Text());
    EXPECT_EQ(reader.Read(row.asked), ReadOutcome::ok);
    EXPECT_EQ(reader.store.file_name, row.opened);
    EXPECT_EQ(reader.store.base_name, row.base);
  }
}

TEST(ReadOutputFile, RefusalsKeepTheHeldCase) {
  RunDraft negative = RunOf(-5, 0);
  RunDraft two_ships = RunOf(3, 3);
  two_ships.ships = "2";
  RunDraft old_impulsive = two_ships;
  old_impulsive.preamble = "RELEASE   : 2.9.1\n";
  old_impulsive.control.record[13][0] = "1 1 2";
  old_impulsive.steps.insert(old_impulsive.steps.begin(), "!END OF INPUT FILE ECHO\n");
  const struct {
    std::string text;
    int ship;
    std::string_view words;
  } rows[] = {
      {negative.Text(), 1,
       "ERR425 - The ZAVO output file has NSTEP= -5\n         File may be for an incompatible version of ZAVO\n"},
      {old_impulsive.Text(), 2, "oops - have not programmed this yet - contact Ned\n"},
      {two_ships.Text(), 3, "ERROR - ship 3 is not in the file (NSHIP= 2)\n"},
      {RunOf(3, 3).Text(), 0, "ERROR - ship 0 is not in the file (NSHIP= 1)\n"},
      {"nothing\n", 1,
       "ERR407 - Input echo section delimiters not found while reading run.out\n"
       "         File is probably not a ZAVO output file\n"},
  };
  for (const auto& row : rows) {
    Reader reader;
    reader.fake.Put("good.out", RunOf(3, 3).Text());
    reader.fake.Put("run.out", row.text);
    ASSERT_EQ(reader.Read("good"), ReadOutcome::ok);
    EXPECT_EQ(reader.Read("run", row.ship), ReadOutcome::failed);
    EXPECT_NE(reader.fake.output.find(row.words), std::string::npos) << reader.fake.output;
    EXPECT_EQ(reader.store.file_name, "good.out");
    EXPECT_EQ(reader.store.last_read, 3);
  }
}

TEST(ReadOutputFile, NamedFilesAreNotAskedForAgain) {
  Reader reader;
  reader.fake.input = {"run.out"};
  EXPECT_EQ(reader.Read("none"), ReadOutcome::failed);
  EXPECT_EQ(reader.fake.output, "ERROR - Error opening ZAVO Output File : none\n");
  EXPECT_EQ(reader.Read(std::string(300, 'x')), ReadOutcome::failed);
  EXPECT_EQ(reader.Read("KINO"), ReadOutcome::failed);
  EXPECT_EQ(reader.fake.output, "ERROR - alternate input cannot be read yet : KINO\n");
  reader.run.script_active = true;
  EXPECT_EQ(reader.Read("text.mot"), ReadOutcome::failed);
  EXPECT_EQ(reader.fake.output, "ERROR - alternate input needs READ_KINO_FILES in a script\n");
  EXPECT_EQ(reader.fake.input.size(), 1U);
}

TEST(ReadOutputFile, ABlankNameAsks) {
  Reader reader;
  reader.fake.Put("run.out", RunOf(3, 3).Text());
  reader.fake.input = {"none", "", "run"};
  EXPECT_EQ(reader.Read(""), ReadOutcome::ok);
  const std::string prompt = "Enter ZAVO output file name (KINO for alternate input, QUIT to abort) ";
  EXPECT_EQ(reader.fake.output.substr(0, reader.fake.output.find("Output file is")),
            prompt + "none\nERROR - Error opening ZAVO Output File : none\n" + prompt.substr(0, prompt.size() - 1) +
                "\n file specification aborted ... re-specify\n" + prompt + "run\n");

  reader.fake.input = {"QUIT"};
  EXPECT_EQ(reader.Read(""), ReadOutcome::aborted);
  EXPECT_FALSE(reader.run.exit_requested);  // a case is held
  Reader empty;
  EXPECT_EQ(empty.Read(""), ReadOutcome::aborted);  // end of input
  EXPECT_TRUE(empty.run.exit_requested);
}

TEST(ReadOutputFile, ScriptsAreNeverAsked) {
  Reader reader;
  reader.fake.Put("run.out", RunOf(3, 3).Text());
  reader.run.skip_prompt = SkipPrompt::ask;
  reader.run.script_active = true;
  EXPECT_EQ(reader.Read("run"), ReadOutcome::ok);
  EXPECT_EQ(reader.run.skip_prompt, SkipPrompt::silent);
  EXPECT_EQ(reader.fake.output.find("How many"), std::string::npos);
}

TEST(ReadOutputFile, TrimsAndUserScalesSurviveScalesOfTheFileDoNot) {
  Reader reader;
  reader.fake.Put("run.out", RunOf(10, 10).Text());
  reader.settings.trim_initial = 2;
  reader.settings.LENOUT = 1.0F;
  reader.settings.user_scale[2] = true;
  reader.settings.GRAVOUT = 32.0F;
  EXPECT_EQ(reader.Read("run"), ReadOutcome::ok);
  EXPECT_EQ(reader.store.first_step, 3);
  EXPECT_EQ(reader.settings.LENOUT, 1.0F);
  EXPECT_EQ(reader.settings.GRAVOUT, 9.81F);
}

TEST(ReadOutputFile, LongReadsShowHowFarTheyAre) {
  struct Slow {
    FakePlatform fake;
    double now = 0.0;
    std::vector<std::string> lines;
    bool removed = false;
  } slow;
  slow.fake.Put("run.out", RunOf(150000, 150000).Text());
  Platform platform = slow.fake.Get();
  platform.clock = {&slow, [](void* self) { return static_cast<Slow*>(self)->now += 1.5; }};
  platform.console.write = [](void*, std::string_view) {};
  platform.console.self = &slow;
  platform.console.show_progress = [](void* self, std::string_view text) {
    static_cast<Slow*>(self)->lines.emplace_back(text);
  };
  platform.console.remove_progress = [](void* self) { static_cast<Slow*>(self)->removed = true; };
  RunState run;
  run.skip_prompt = SkipPrompt::silent;
  OutputSettings settings;
  CaseStore store;
  EnsembleStore ensemble;
  ReadRequest request;
  request.name = "run";
  EXPECT_EQ(read_output_file(request, platform, run, settings, store, ensemble), ReadOutcome::ok);
  EXPECT_FALSE(slow.lines.empty());
  for (const std::string& line : slow.lines) {
    EXPECT_EQ(line.substr(0, 15), "Reading run.out");
    EXPECT_EQ(line.substr(line.size() - 2), " %");
  }
  EXPECT_TRUE(slow.removed);
  EXPECT_EQ(store.last_read, 150000);
}

}  // namespace
}  // namespace zaview
