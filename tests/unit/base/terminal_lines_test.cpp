// The console at a terminal: edited lines, history, names, signals.
#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sys/stat.h>

#include <gtest/gtest.h>

#include "base/line_editor.h"
#include "base/platform_posix.h"
#include "project_places.h"
#include "pseudo_terminal.h"

namespace zaview {
namespace {

namespace fs = std::filesystem;

struct TerminalLines : testing::Test, TemporaryFolder {};

// Asks until the input ends and shows each answer; an interrupted question is told.
int Echo() {
  const Platform p = PosixPlatform();
  const Console& c = p.console;
  std::string line;
  for (;;) {
    c.write(c.self, "first line\nask [");
    c.flush(c.self);
    c.write(c.self, "5] ");
    c.flush(c.self);
    const bool got = c.read_line(c.self, line);
    const bool interrupted = TakeInterrupt(c);
    if (!got && !interrupted) return 0;
    c.write(c.self, got ? "<" + line + ">\n" : "\ninterrupted\n");
  }
}

const std::string kLeft = "\033[D", kUp = "\033[A";

TEST_F(TerminalLines, EditingKeepsThePrompt) {
  PseudoTerminal t(path, Echo);
  // clang-format off
  const struct { std::string keys, line; } cases[] = {
      {"abd" + kLeft + "c\r", "abcd"},
      {"abc\177\177x\r", "ax"},
      {"gone\025kept\r", "kept"},
      {"\xC3\xB6\x61\177\r", "\xC3\xB6"},  // one key, one character
      {"\xFFz\r", "z"},  // no character of this encoding
      {kUp + "!\r", "z!"},
      {"  \r", "  "},
      {kUp + "\r", "z!"},  // blank lines are not kept
      {std::string(200, 'w') + "\001v\r", "v" + std::string(200, 'w')}};  // over several rows of the screen
  // clang-format on
  for (const auto& c : cases) {
    t.Answer("ask [5] ", c.keys);
    t.Expect("<" + c.line + ">");
  }
  t.Answer("ask [5] ", "\004");
  EXPECT_EQ(t.End(), 0);
  EXPECT_TRUE(t.LinesAreCooked());
}

TEST_F(TerminalLines, HistoryOutlivesTheRun) {
  const auto run = [&](std::string_view keys, const std::string& line) {
    PseudoTerminal t(path, Echo);
    t.Answer("ask [5] ", keys);
    t.Expect("<" + line + ">");
    t.Answer("ask [5] ", "\004");
    EXPECT_EQ(t.End(), 0);
  };
  run("kept one\r", "kept one");
  run(kUp + "\r", "kept one");
  struct stat facts {};
  EXPECT_EQ(::stat(Name("state/zaview").c_str(), &facts), 0);
  EXPECT_EQ(facts.st_mode & 0777U, 0700U);
  std::ofstream many(Name("state/zaview/history"));
  many << "_HiStOrY_V2_\n";
  for (int i = 0; i < 3000; ++i) many << "l" << i << '\n';
  many.close();
  run(kUp + "\r", "l2999");
  const std::string kept = FileBytes(Name("state/zaview/history"));
  EXPECT_EQ(std::count(kept.begin(), kept.end(), '\n'), 1 + kHistoryLines);
  for (const bool pipe : {true, false}) {  // no history, but no harm: a pipe nobody reads, a text of something else
    fs::remove(Name("state/zaview/history"));
    if (pipe) EXPECT_EQ(::mkfifo(Name("state/zaview/history").c_str(), 0600), 0);
    else std::ofstream(Name("state/zaview/history")) << "something else";
    run("x\r", "x");
  }
  fs::remove_all(Name("state"));
  std::ofstream(Name("state")) << "a file where the folder should be";
  run("x\r", "x");
}

TEST_F(TerminalLines, TabCompletesNames) {
  for (const char* name : {"regular_head.out", "regular_beam.out", "a b.txt", ".hidden"})
    std::ofstream(Name(name)) << 1;
  fs::create_directory(Name("folder"));
  std::ofstream(Name("folder/inner.geo")) << 1;
  PseudoTerminal t(path, Echo);
  // clang-format off
  const std::pair<std::string, std::string> cases[] = {
      {"reg\th\t\r", "regular_head.out"}, {"ZAVO:fo\tin\t\r", "ZAVO:folder/inner.geo"},
      {"a\t APPEND\r", "a b.txt APPEND"}, {"a b\t\r", "a b.txt"}, {"x re\tb\t\r", "x regular_beam.out"},
      {".h\t\r", ".hidden"}, {"none\t\r", "none"},
  };
  // clang-format on
  for (const auto& [keys, line] : cases) {
    t.Answer("ask [5] ", keys);
    t.Expect("<" + line + ">");
  }
  t.Answer("ask [5] ", "reg\t\t");  // the second time the names are shown, then the question again
  t.Expect("regular_beam.out  regular_head.out");
  t.Expect("ask [5] regular_");
  t.Type("\r");
  t.Expect("<regular_>");
}

TEST_F(TerminalLines, Interrupts) {
  PseudoTerminal t(path, Echo);
  for (const std::string_view keys : {"typed", "a key lies between"}) {
    t.Answer("ask [5] ", keys);
    t.Answer(keys, "\003");
    t.Expect("interrupted");
    if (keys != "typed") break;
    t.Answer("ask [5] ", "a line lies between\r");
    t.Expect("<a line lies between>");
    t.Answer("ask [5] ", "\003");
    t.Expect("interrupted");
  }
  t.Answer("ask [5] ", "\003");
  EXPECT_EQ(t.End(), -SIGINT);
  EXPECT_TRUE(t.LinesAreCooked());
}

// What a shell does: the program runs in the foreground, is told of when it stops, and goes on.
int ShellOfEcho() {
  static_cast<void>(std::signal(SIGTTOU, SIG_IGN));
  const pid_t child = ::fork();
  if (child == 0) {
    ::setpgid(0, 0);
    ::tcsetpgrp(STDIN_FILENO, ::getpid());
    return Echo();
  }
  int status = 0;
  while (::waitpid(child, &status, WUNTRACED) == child && WIFSTOPPED(status)) {
    termios mode{};
    ::tcgetattr(STDIN_FILENO, &mode);
    static_cast<void>(::write(STDOUT_FILENO, (mode.c_lflag & ECHO) != 0 ? "\nstopped\n" : "raw", 9) == 9);
    ::kill(child, SIGCONT);
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : 1;
}

TEST_F(TerminalLines, WindowAndSuspension) {
  PseudoTerminal t(path, ShellOfEcho);
  t.Answer("ask [5] ", "ab");
  t.Expect("ab");
  t.Resize(40);
  t.Type("\032");
  t.Expect("stopped");
  t.Answer("ask [5] ab", "c\r");
  t.Expect("<abc>");
}

TEST_F(TerminalLines, TerminationRestoresTheTerminal) {
  PseudoTerminal t(path, Echo);
  t.Answer("ask [5] ", "ab");
  t.Expect("ab");
  ::kill(t.Child(), SIGTERM);
  EXPECT_EQ(t.End(), -SIGTERM);
  EXPECT_TRUE(t.LinesAreCooked());
}

// Half a file, an empty one just made, an old one about to be appended to: nothing is left of the first two.
TEST_F(TerminalLines, EndLeavesWholeFiles) {
  std::ofstream(Name("old")) << "old";
  std::ofstream(Name("empty"));
  PseudoTerminal t(path, [] {
    const Platform p = PosixPlatform();
    const Files& f = p.files;
    const FileHandle part = f.open_write(f.self, "part", WriteHow::create_new, 0);
    const bool good = f.write(f.self, part, "half");
    for (const char* name : {"made", "old", "empty"})
      static_cast<void>(f.open_write(f.self, name, WriteHow::append, 0));
    static_cast<void>(f.close(f.self, f.open_write(f.self, "closed", WriteHow::append, 0)));
    std::string line;
    p.console.write(p.console.self, good ? "ask " : "full");
    while (!p.console.read_line(p.console.self, line)) {
      const bool taken = TakeInterrupt(p.console);
      p.console.write(p.console.self, taken ? "\nagain " : "end");
    }
    return 0;
  });
  t.Answer("ask ", "\003");
  t.Answer("again ", "\003");
  EXPECT_EQ(t.End(), -SIGINT);
  EXPECT_FALSE(fs::exists(Name("part")) || fs::exists(Name("made")));
  EXPECT_TRUE(fs::exists(Name("empty")) && fs::exists(Name("closed")));
  EXPECT_EQ(fs::file_size(Name("old")), 3U);
}

}  // namespace
}  // namespace zaview
