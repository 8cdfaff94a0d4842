// What ends a script from outside its own lines: a question nobody answers, Ctrl-C.
#include <utility>

#include <gtest/gtest.h>

#include "fake_platform.h"
#include "frame/ground/prompts.h"
#include "script/open_script_file.h"
#include "script/read_script_file.h"

namespace zaview {
namespace {

// Two lines of one command.
struct OneCommand {
  FakePlatform fake;
  Session session;
  Command command[1];
  CommandFamily families[1] = {command};

  explicit OneCommand(int (*run)(ScriptCall& call)) : command{{{"TRY"}, kNone, run}} {
    session.platform = fake.Get();
    session.script.files = {"s"};
    session.script.final_text = {{"TRY", {0, 1}}, {"TRY", {0, 2}}};
  }
};

// A question in a script finds no answer, even if somebody sits there; what the command made of it doesn't count.
TEST(ScriptEnds, QuestionsEndTheScript) {
  OneCommand one([](ScriptCall& call) {
    int number = 0;
    while (ask_integer(call.console(), "How many?", false, number) == Answer::ok) {
    }
    return number == 0 ? kScriptOk : kScriptNotRun;
  });
  one.fake.Type("1\n2\n");
  one.fake.input_is_terminal = true;
  EXPECT_EQ(ReadScriptFile(one.session, one.families), kScriptFailed);
  EXPECT_EQ(one.fake.output,
            "ZAVIEW Scripting: TRY\nHow many?\nERROR - a script has no answer to this question\n"
            "        at line 1 of s : TRY\n");
  EXPECT_EQ(one.fake.input.size(), 2U);
  std::string line;
  EXPECT_TRUE(one.session.platform.console.read_line(one.session.platform.console.self, line));  // behind it as before
}

TEST(ScriptEnds, CtrlCEndsAheadOfTheNextCommand) {
  static bool pending = false;  // the record of the console takes no state of a test
  OneCommand one([](ScriptCall&) {
    pending = true;
    return kScriptOk;
  });
  one.session.platform.console.take_interrupt = [](void*) { return std::exchange(pending, false); };
  EXPECT_EQ(ReadScriptFile(one.session, one.families), kScriptInterrupted);
  EXPECT_EQ(one.fake.output,
            "ZAVIEW Scripting: TRY\nERROR - interrupted ahead of this command\n        at line 2 of s : TRY\n");
}

// Long work looks for it as well, and ends with what it says itself.
TEST(ScriptEnds, CtrlCEndsACommandThatLooksForIt) {
  OneCommand one([](ScriptCall& call) { return TakeInterrupt(call.console()) ? kScriptFailed : kScriptOk; });
  EXPECT_EQ(ReadScriptFile(one.session, one.families), kScriptOk);
  one.session.script.next_line = 0;
  one.session.platform.console.take_interrupt = [](void*) {
    static int looks = 0;  // ahead of the command, then in it
    return ++looks == 2;
  };
  EXPECT_EQ(ReadScriptFile(one.session, one.families), kScriptInterrupted);
}

}  // namespace
}  // namespace zaview
