// Sessions of the real program at a terminal: what no text of piped answers can tell.
#include <algorithm>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "project_places.h"
#include "pseudo_terminal.h"

namespace zaview {
namespace {

namespace fs = std::filesystem;

const std::string kUp = "\033[A";
constexpr std::string_view kAskFile = "Enter ZAVO output file name (KINO for alternate input, QUIT to abort) ";
constexpr std::string_view kAskMotions = "Enter an KINO format motions file ";
constexpr std::string_view kAskSkip = "How many time steps to skip=> [40] ";
constexpr std::string_view kLongScript = "READ run.out\nFOR i IN SEQ 1 20000 DO\n  WRITE_HISTORY MOT out.txt\nDONE\n";

struct TerminalSession : testing::Test, TemporaryFolder {  // with one run file
  TerminalSession() { fs::copy(ProjectFile("samples/regular_head.out"), Name("run.out")); }
};

TEST_F(TerminalSession, KeysAndInterrupts) {
  PseudoTerminal t(path, [] { return RunTestedProgram({}); });
  t.Answer("Hit RETURN to continue... ", "\r");
  t.Answer(kAskFile, "KIno\177\177NO\r");
  t.Answer(kAskMotions, "\003");  // gives this question up, not the program
  t.Answer(kAskFile, "ru\t");
  t.Expect("n.out");
  t.Type("\r");
  t.Answer(kAskSkip, kUp);
  t.Expect("run.out");  // the answer before
  t.Type("\0257\r");
  t.Expect("\n");
  t.Expect("Output Options:");
  t.Answer("Select option=> ", "4");
  t.Answer("4", "\003");
  EXPECT_EQ(t.End(), 0);  // as QUIT there
  EXPECT_TRUE(t.LinesAreCooked());
  EXPECT_EQ(FileBytes(Name("state/zaview/history")), "_HiStOrY_V2_\nKINO\nrun.out\n7\n");
}

TEST_F(TerminalSession, TwoInterruptsEndTheProgram) {
  PseudoTerminal t(path, [] { return RunTestedProgram({}); });
  t.Answer("Hit RETURN to continue... ", "\003");
  t.Answer(kAskFile, "\003");
  EXPECT_EQ(t.End(), -SIGINT);
  EXPECT_TRUE(t.LinesAreCooked());
}

// The file of the command that runs is finished; the next command doesn't start. With and without a terminal to read.
TEST_F(TerminalSession, AnInterruptEndsAScriptBetweenCommands) {
  std::ofstream(Name("s")) << kLongScript << "WRITE_TEXT late late.txt\n";
  for (const bool reads_terminal : {true, false}) {
    fs::remove(Name("out.txt"));
    PseudoTerminal t(path, [&] {
      if (!reads_terminal && std::freopen("/dev/null", "r", stdin) == nullptr) return 126;
      return RunTestedProgram({"-script", "s"});
    });
    t.Expect("written to file out.txt");
    t.Type("\003");
    t.Expect("ERROR - interrupted ahead of this command");
    t.Expect("at line 3 of s : WRITE_HISTORY MOT out.txt");
    t.Expect("Interrupted ZAVIEW script file : s");
    EXPECT_EQ(t.End(), -SIGINT);
    EXPECT_FALSE(fs::exists(Name("late.txt")));
    const std::string table = FileBytes(Name("out.txt"));
    EXPECT_EQ(std::count(table.begin(), table.end(), '\n'), 402);  // two lines ahead of 400 steps
    for (const auto& entry : fs::directory_iterator(path)) EXPECT_NE(entry.path().extension(), ".part") << entry.path();
  }
}

// A script that goes over to the menu: the first Ctrl-C ends the script, one more the program.
TEST_F(TerminalSession, AnInterruptedScriptLeavesTheMenu) {
  std::ofstream(Name("s")) << kLongScript;
  PseudoTerminal t(path, [] { return RunTestedProgram({"-init_script", "s"}); });
  t.Expect("written to file out.txt");
  t.Type("\003");
  t.Expect("ZAVIEW continuing...");
  t.Answer("Select option=> ", "\003");
  EXPECT_EQ(t.End(), -SIGINT);
}

}  // namespace
}  // namespace zaview
