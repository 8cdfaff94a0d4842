#include "frame/command_line.h"

#include <gtest/gtest.h>

#include "fake_platform.h"
#include "frame/zaview_main.h"

namespace zaview {
namespace {

std::vector<std::string> Words(std::string_view line) {  // apart by '|', so that a word may hold blanks
  std::vector<std::string> words;
  while (!line.empty()) {
    const std::size_t end = std::min(line.find('|'), line.size());
    words.emplace_back(line.substr(0, end));
    line.remove_prefix(std::min(end + 1, line.size()));
  }
  return words;
}

// What stands between the head and the usage text, of which there may be one only.
std::string Body(const FakePlatform& fake) {
  const std::string& text = fake.output;
  const std::string version = "VERSION 4.1.7 / April 28, 2022\n";
  const std::size_t begin = text.find(version) + version.size();
  const std::size_t usage = std::min(text.find("usage : zaview [ -file ]"), text.size());
  EXPECT_EQ(text.find("usage :", usage + 1), std::string::npos);
  return text.substr(begin, usage - begin);
}

TEST(CommandLine, EndsAndErrors) {
  const std::string name = "Enter ZAVO output file name (KINO for alternate input, QUIT to abort)";
  const std::string stop =
      "Reading ZAVIEW script file : .zaview.tmp\nZAVIEW Scripting: STOP\n\n"
      "Successfully parsed ZAVIEW script file : .zaview.tmp\n";
  const std::string bad = "ZAVIEW : ERROR - Unrecognized argument : ",
                    left = "Hit RETURN to continue...\n" + name + "\n";
  const std::string both = "ERROR - arguments -ensemble and -restart cannot both be specified\n";
  const std::string ignored = "Initial plot argument -plot* or -anim* ignored as data file not specified\n";
  // clang-format off
  const struct { const char* line; int status; std::string body; } cases[] = {
      {"-Foo|-|-bar", 2, bad + "-Foo\n" + bad + "-\n" + bad + "-bar\n"},
      {"-s|a|-init_script", 2, "ERROR - missing qualifier for -init_script argument\n"},
      {"-s|a|-command|STOP", 2, "ERROR - only one of -script, -init_script, -command or -init_command can be\n"},
      {"-init_command", 2, "ERROR - missing command for -INIT_COMMAND\n"},
      {"-file", 2, "ERROR - missing file name for -file argument\n"}, {"-ensemble|-restart|a|b", 2, both},
      {"-restart|-ensm|a|b", 2, both}, {"-set", 2, "ERROR - insufficient qualifiers for -SET argument\n"},
      {"-vscript|=a", 2, "ERROR parsing -VSCRIPT argument\n"},
      {"-root=", 2, "ERROR - incorrect syntax for -ROOT= argument\n"},
      {"-ship|1", 2, "ERROR - missing argument(s) to -SHIP\n"}, {"-ship|1|x", 2, "ERROR - illegal argument to -SHIP\n"},
      {"-help|-v|a", 2, "ERROR - insufficient qualifiers for -V argument\n"}, {"-bad|-vers|-help", 0, bad + "-bad\n\n"},
      {"no*.out", 1, "ERROR - no file(s) found which match no*.out\n" + left},  // given up
      {"-plot", 0, ignored + name + "\n"},  // no pause
      {"none|-command|STOP", 1,
       "ERROR - Error opening ZAVO Output File : none\n1 of 1 files could not be read\n"},
      {"no*.out|-command|STOP", 1, "ERROR - no file(s) found which match no*.out\n1 of 1 files could not be read\n"},
      {"-plot_hist0ry|-scrip", 2, bad + "-scrip\n         did you mean -SCRIPT ?\n"},  // by its beginning, no error
      {"-init_command|STOP", 0, stop + "ZAVIEW continuing...\n" + name + "\n"},
  };
  // clang-format on
  for (const auto& c : cases) {
    FakePlatform fake;
    EXPECT_EQ(zaview_main(fake.Get(), Words(c.line)), c.status) << c.line;
    EXPECT_EQ(Body(fake), c.body) << c.line;
    EXPECT_EQ(fake.OpenHandles(), 0U);
  }
}

TEST(CommandLine, WordsVariablesAndFiles) {
  FakePlatform fake;
  const std::string_view plots[] = {"", "-plot -plot_history -PLOTS -plot_geo ", "-animate -anim -plot_anim ",
                                    "-plot_trajectory -plot_trajec ", "-plot_geometry "};  // matched by their beginning
  for (int plot = 1; plot <= 4; ++plot) {
    for (std::string_view words = plots[plot]; !words.empty(); words.remove_prefix(words.find(' ') + 1)) {
      Session session;
      session.platform = fake.Get();
      EXPECT_EQ(ParseCommandLine(session, Words(words.substr(0, words.find(' ')))).end, LineEnd::go_on);
      EXPECT_EQ(static_cast<int>(session.run.initial_plot), plot) << words;
    }
  }
  Session session;
  session.platform = fake.Get();
  const std::string line =
      "-v|a=1|-root|/x|-set| b = c=d |-v|e=|f g|-ROOTx/y|-s|s|run.out|-file|-odd.out|-deg|-ship|2|10.5";
  ASSERT_EQ(ParseCommandLine(session, Words(line)).end, LineEnd::go_on);
  std::string table;
  for (const ScriptVariable& variable : session.script.variables) table += variable.name + ":" + variable.value + ";";
  EXPECT_EQ(table, "a:1;ROOT:/x;b:c=d;e=:f g;ROOT:/y;");
  EXPECT_EQ(session.run.file_args, (std::vector<std::string>{"run.out", "-odd.out"}));
  EXPECT_TRUE(session.run.script_file_name == "s" && !session.run.script_is_init);
  EXPECT_TRUE(session.output.units.ANGOUT == 57.29578F && session.output.units.user_scale[3]);
  EXPECT_TRUE(session.run.selected_ship == 2 && session.run.selected_vcg == 10.5F);
}

TEST(CommandLine, CommandIsLeftBehindAsAScript) {
  FakePlatform fake, full;
  EXPECT_EQ(zaview_main(fake.Get(), Words("-command|NONSENSE \"a b\"")), 1);
  EXPECT_EQ(fake.Bytes(".zaview.tmp"), "NONSENSE \"a b\"\n");
  fake.links[".zaview.tmp"] = "run.out";
  fake.Put("run.out", "a run");
  EXPECT_EQ(zaview_main(fake.Get(), Words("-command|STOP")), 0);
  EXPECT_EQ(fake.Bytes("run.out"), "a run");
  EXPECT_EQ(fake.Bytes(".zaview.tmp"), "STOP\n");
  full.no_new_files_in = {""};
  EXPECT_EQ(zaview_main(full.Get(), Words("-command|STOP")), 0);  // it runs all the same
  EXPECT_TRUE(Body(full).starts_with("ERROR opening temporary file .zaview.tmp\nReading"));
}

}  // namespace
}  // namespace zaview
