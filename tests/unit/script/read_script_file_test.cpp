// The interpreter and its commands on a small case in memory: console, files and status of whole scripts.
#include "script/read_script_file.h"

#include <gtest/gtest.h>

#include "unit/script/script_run.h"

namespace zaview {
namespace {

struct CommandCase {
  std::string script;
  int status;
  std::string said;  // ahead of the line that names file and line, and of the closing line
};

void ExpectRun(const CommandCase& c, bool with_case) {
  ScriptRun run(c.script, with_case);
  run.Run();
  EXPECT_EQ(run.status, c.status) << c.script << run.fake.output;
  const std::string end = c.status == 0 ? kEnd[0] : AfterFault(1, c.script.substr(0, c.script.find('\n')), c.status);
  EXPECT_EQ(Said(run.fake.output), c.said + end) << c.script;
  EXPECT_EQ(run.fake.OpenHandles(), 0U);
  EXPECT_FALSE(run.session.script.open);
}

TEST(Script, Errors) {
  // clang-format off
  const CommandCase cases[] = {
      {"FOO 1\n", 3, "\nERROR parsing script file - unrecognized command: FOO\n"},
      {"trim_step 1\n", 3,
       "\nERROR parsing script file - unrecognized command: trim_step\n        the nearest command is TRIM_STEPS\n"},
      {"animate on\n", 3,
       "\nERROR parsing script file - unrecognized command: animate\n"
       "        commands that begin so: ANIMATE_GRAPH ANIMATE_GRAPH_OPTION ANIMATE_OPTION ANIMATE_MOTIONS\n"},
      {"TBA\n", 3,
       "\nERROR parsing script file - unrecognized command: TBA\n        the nearest command is TAB\n"},
      {"READ KINO\n", 5, "ERROR - alternate input needs READ_KINO_FILES in a script\n"},
      {"SET_SCALE LENOUT 1m\n", 5, "ERROR - Insufficient arguments for SET_SCALE command...\n"},
      {"TRIM_STEPS 1e30 1e30\n", 4, "ERROR - All steps trimmed by TRIM_STEPS command...\n"},
      {"WRITE_HISTORY moot\n", 4,
       "ERROR - Invalid quantity specifier: moot\n        the nearest quantity is MOT\n"},
      {"WRITE_HISTORY heave\n", 4,
       "ERROR - Invalid quantity specifier: heave\n        zaview -help quantities tells them\n"},
      {"WRITE_HISTORY POINT_MISS 1 2 3 1 1 1 1\n", 5,
       "ERROR - Insufficient arguments for WRITE_HISTORY command for missile data...\n"},
      {"WRITE_HISTORY POINT_MISS 1 2 3 2 1 1 1 1\n", 5,
       "ERROR - Invalid option index for WRITE_HISTORY command for missile data...\n"},
      {"WRITE_HISTORY VSF never.txt\n", 0, "WARNING - Time history file quantity VSF not valid for this output file\n"},
      {"WRITE_HISTORY MOT x/y\n", 5, "ERROR opening output file: x/y\n"},
      {"WRITE_HISTORY MOT x:FORM\n", 5, "ERROR - unrecognized output file switch: FORM\n"},
      {"WRITE_HISTORY MOT :UNFORM\n", 5, "ERROR opening output file:\n"},
      {"WRITE_STAT MIN_CI MOT 1\n", 4, "ERROR - Invalid statistical option (MIN_CI) for WRITE_STAT\n"},
      {"write_stat MEAN mot 9 \"x\" out.txt\n", 4,
       "ERROR - Invalid curve index for WRITE_STAT option mot\n        mot has the curves 1 to 6\n"},
      {"WRITE_STAT MEAN MOT x\n", 4, "ERROR - Insufficient arguments for WRITE_STAT command ...\n"},
      {"WRITE_STAT MEAN VSF 1 x o\n", 4, "ERROR - Time history statistics quantity VSF not valid for this output file\n"},
      {"WRITE_CI POINT_ALL 1 2 3 4 o\n", 4, "ERROR - WRITE_CI option POINT_ALL not valid for this output file\n"},
      {"EXCEEDANCE+RATE MOT 3\n", 5, "ERROR - Insufficient arguments for EXCEEDANCE+RATE command...\n"},
      {"PLOT_HISTORY MOT 3\n", 5, "ERROR - PLOT_HISTORY cannot be run as graphics are not available\n"}};
  // clang-format on
  for (const CommandCase& c : cases) ExpectRun(c, true);
}

TEST(Script, Preconditions) {
  // clang-format off
  const CommandCase cases[] = {
      {"WRITE_HISTORY MOT\n", 5, "ERROR - WRITE_HISTORY cannot be run until an output\n   file has been read\n"},
      {"SET_STEPS 5\n", 5, "ERROR - SET_STEPS : cannot be run until an output\n   file has been read\n"},
      {"ENSEMBLE_STAT\n", 5, "ERROR - ENSEMBLE_STAT : cannot be run until one or more\n   output files have been read\n"},
      {"SKIP_STEPS 5\n", 0, "Setting # of initial time steps to skip in statistical calculations to 5\n"}};
  // clang-format on
  for (const CommandCase& c : cases) ExpectRun(c, false);
}

// Impulse response functions: a case without a range of steps, and without statistics.
TEST(Script, ImpulsiveCase) {
  const std::string none = "ERROR - {} not valid for impulsive motion and IRF calculations\n";
  std::vector<CommandCase> cases = {{"STAT_STEPS 1 2\n", 5, "ERROR - STAT_STEPS : the case has no time steps\n"}};
  for (const char* word : {"ENSEMBLE_STAT", "ENSEMBLE_CI", "PLOT_CI", "UPCROSSING", "EXCEEDANCE_RATE",
                           "BLOCK_EXCEEDANCE", "ANIMATE_GRAPH", "SMOOTH_INPUT"})
    cases.push_back({word + std::string("\n"), 5, fmt::format(fmt::runtime(none), word)});
  for (const CommandCase& c : cases) {
    ScriptRun run(c.script);
    CaseStore& store = run.session.case_store;
    store.irf_case = true;
    store.irfs.resize(1);
    store.last_read = store.last_step = 0;
    run.session.ensemble.nrec = 1;
    run.Run();
    EXPECT_EQ(run.status, c.status);
    EXPECT_EQ(Said(run.fake.output).find(c.said), 0U) << run.fake.output;
  }
}

TEST(Script, GoodLines) {
  // clang-format off
  const CommandCase cases[] = {
      {"", 0, ""}, {"STOP\nFOO\n", 0, ""}, {"TRIM_STEPS 0 0\n", 0, ""},
      {"SET_STEPS -1e30 1e30\n", 0, "Output set to time steps 1 to 100\n"},
      {"WRITE_LABEL x \"o p\"\n", 0, "WARNING - output file name cut at blank : o\n"},
      {"STOP and so on\n", 0, ""}, {"SET_DELIMITER\ntab\n", 0, ""}, {"WRITE_LABEL x\n\"STOP\"\n", 0, ""},
      {"TAB 1 2\n", 0, "WARNING - words left over on the line : 1 2\n"},
      {"WRITE_LABEL x\nStop\n", 0,
       "WARNING - WRITE_LABEL took the command Stop of the next line for its argument : \"\" stands for none\n"}};
  // clang-format on
  for (const CommandCase& c : cases) ExpectRun(c, true);
}

TEST(Script, AbortedCase) {
  ScriptRun run("TRIM_STEPS 1 2\nTRIM_ABORT 30\nTRIM_ABORT 500\nTRIM_ABORT 0\n");
  run.session.case_store.nstep_expected = 200;
  run.session.output.reading.trim_abort = 20;
  run.Run();
  EXPECT_EQ(Said(run.fake.output), std::string("1 steps trimmed from beginning of time history\n"
                                               "20 steps trimmed from end of aborted time history\n"
                                               "Trimming 30 steps from end of time history for aborted case\n"
                                               "Trimming 98 steps from end of time history for aborted case\n") +
                                       kEnd[0]);
  EXPECT_EQ(run.session.case_store.last_step, 98);
}

// Statistics of an ensemble see the same steps of all its records.
TEST(Script, TrimsEveryRecord) {
  ScriptRun run("TRIM_STEPS 10 5\n");
  EnsembleStore& ensemble = run.session.ensemble;
  ensemble.record.resize(2);
  GiveCase(ensemble.record[0]);
  ensemble.nrec = ensemble.irec = 2;
  run.Run();
  EXPECT_EQ(ensemble.record[0].first_step, 11);
  EXPECT_EQ(ensemble.record[0].last_step, 95);
}

TEST(Script, FilesAndSwitches) {
  ScriptRun run("WRITE_TEXT a n.txt:APPND:NEW\nWRITE_TEXT b " + std::string(129, 'n') + "\n");
  run.fake.Put("n.txt", "old\n");
  run.Run();
  EXPECT_EQ(run.status, kScriptFailed);
  EXPECT_EQ(run.fake.Bytes("n.txt"), "a\n");
  EXPECT_EQ(run.fake.files.size(), 2U);
}

TEST(Script, EchoAndLinesOfErrors) {
  ScriptRun run("x=MOT\n\n$INCLUDE:inc\n", false);
  run.fake.Put("inc", "! comment\nFOR i IN 7 DO\n  trim_steps {i}\n 8\n\nskip_steps\n\n foo {x}{i}\nDONE\n");
  run.Run();
  EXPECT_EQ(run.fake.output,
            "Reading ZAVIEW script file : s\n"
            "ZAVIEW Scripting:   trim_steps 7\n7 steps trimmed from beginning of time history\n"
            "7 steps trimmed from end of time history\n"
            "ZAVIEW Scripting:  8\n\nERROR parsing script file - unrecognized command: 8\n"
            "        at line 4 of inc : 8\nERROR parsing ZAVIEW script file : s\n");
}

TEST(Script, ArgumentsCrossLinesWithoutEcho) {
  ScriptRun run("\n SET_OUTPUT_SCALES 1 2\n\n3\n4 5\nSET_DELIMITER\ncomma\nCONF_PROB\n", false);
  run.Run();
  EXPECT_EQ(run.status, kScriptFailed);
  EXPECT_EQ(run.session.output.writing.separator, Separator::comma);
  const std::string& said = run.fake.output;
  EXPECT_NE(said.find("ZAVIEW Scripting:  SET_OUTPUT_SCALES 1 2\nChanging"), std::string::npos) << said;
  EXPECT_EQ(said.find("ZAVIEW Scripting: 3"), std::string::npos);
  EXPECT_NE(said.find("        at line 8 of s : CONF_PROB\n"), std::string::npos) << said;
}

TEST(Script, NamesAndPasses) {
  FakePlatform fake;
  fake.Put("a.script", "");
  fake.Put("b.scpt", "DONE\n");
  Session session;
  session.platform = fake.Get();
  EXPECT_EQ(OpenScriptFile(session, "a"), kScriptOk);
  EXPECT_EQ(OpenScriptFile(session, "b"), kScriptNotRun);
  EXPECT_EQ(OpenScriptFile(session, "none"), kScriptNotRun);
  EXPECT_EQ(fake.output,
            "Reading ZAVIEW script file : a.script\n\nSuccessfully parsed ZAVIEW script file : a.script\n"
            "Reading ZAVIEW script file : b.scpt\nERROR parsing Script File : b.scpt\n"
            "ERROR parsing script variable loop for variable : no values found\n        at line 1 of b.scpt : DONE\n"
            "ERROR opening Script File : none\n");
  EXPECT_EQ(fake.OpenHandles(), 0U);
}

TEST(Script, Interactive) {
  FakePlatform fake;
  fake.Put("s", "");
  fake.input = {"none", "again", "s", ""};
  Session session;
  session.platform = fake.Get();
  EXPECT_EQ(OpenScriptFile(session, ""), kScriptOk);
  EXPECT_TRUE(fake.input.empty());
  EXPECT_EQ(OpenScriptFile(session, ""), kScriptCancelled);  // end of input
  EXPECT_NE(fake.output.find("Script file open aborted ...\n"), std::string::npos);
  fake.input = {"none"};
  EXPECT_EQ(OpenScriptFile(session, ""), kScriptNotRun);  // nobody presses RETURN
}

TEST(Script, WordsOfCommandsAreUnique) {
  for (const CommandFamily& family : AllCommands())
    for (const Command& command : family)
      for (const std::string_view name : command.names) {
        if (name.empty()) continue;
        EXPECT_EQ(FindCommand(AllCommands(), name), &command) << name;
      }
}

}  // namespace
}  // namespace zaview
