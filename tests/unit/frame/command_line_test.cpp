#include "frame/command_line.h"

#include <gtest/gtest.h>

#include "fake_platform.h"
#include "frame/zaview_main.h"

namespace zaview {
namespace {

constexpr std::string_view kHead =
    " ======================================================================\n"
    " ======>           ZAVIEW - Plots of ZAVO output data           <======\n"
    " ======================================================================\n"
    "VERSION 4.1.7 / April 28, 2022\n";

std::vector<std::string> Words(std::string_view line) {  // apart by '|', so that a word may hold blanks
  std::vector<std::string> words;
  while (!line.empty()) {
    const std::size_t end = std::min(line.find('|'), line.size());
    words.emplace_back(line.substr(0, end));
    line.remove_prefix(std::min(end + 1, line.size()));
  }
  return words;
}

// What stands between the head and the usage text.
std::string Body(const FakePlatform& fake) {
  EXPECT_EQ(fake.output.substr(0, kHead.size()), kHead);
  const std::size_t usage = fake.output.find("usage : zaview [ -file ]");
  const std::size_t end = std::min(usage, fake.output.size());
  return fake.output.substr(kHead.size(), end - kHead.size());
}

struct ErrorCase {
  const char* line;
  std::string_view body;
};

TEST(CommandLine, ErrorsAreCollectedAndUsageFollowsOnce) {
  const ErrorCase cases[] = {
      {"-trajectory",            "ZAVIEW : ERROR - Unrecognized argument : -trajectory\n"                       },
      {"-Foo|-|-bar",
       "ZAVIEW : ERROR - Unrecognized argument : -Foo\nZAVIEW : ERROR - Unrecognized argument : -\n"
       "ZAVIEW : ERROR - Unrecognized argument : -bar\n"                                                        },
      {"-script",                "ERROR - missing qualifier for -script argument\n"                             },
      {"-s|a|-init_script",      "ERROR - missing qualifier for -init_script argument\n"                        },
      {"-s|a|-command|STOP",     "ERROR - only one of -script, -init_script, -command or -init_command can be\n"},
      {"-init_command",          "ERROR - missing command for -INIT_COMMAND\n"                                  },
      {"-file",                  "ERROR - missing file name for -file argument\n"                               },
      {"-ensemble|-restart|a|b", "ERROR - arguments -ensemble and -restart cannot both be specified\n"          },
      {"-restart|-ensm|a|b",     "ERROR - arguments -ensemble and -restart cannot both be specified\n"          },
      {"-v|a",                   "ERROR - insufficient qualifiers for -V argument\n"                            },
      {"-set",                   "ERROR - insufficient qualifiers for -SET argument\n"                          },
      {"-vscript|=a",            "ERROR parsing -VSCRIPT argument\n"                                            },
      {"-root=",                 "ERROR - incorrect syntax for -ROOT= argument\n"                               },
      {"-ship|1",                "ERROR - missing argument(s) to -SHIP\n"                                       },
      {"-ship|one|2",            "ERROR - illegal argument to -SHIP\n"                                          },
      {"-ship|1|x",              "ERROR - illegal argument to -SHIP\n"                                          },
      {"-help|-v|a",             "ERROR - insufficient qualifiers for -V argument\n"                            },
  };
  for (const ErrorCase& c : cases) {
    FakePlatform fake;
    EXPECT_EQ(zaview_main(fake.Get(), Words(c.line)), 2) << c.line;
    EXPECT_EQ(Body(fake), c.body);
    EXPECT_NE(fake.output.find(" -white_bg   : White plot background\n"), std::string::npos);
  }
}

TEST(CommandLine, HelpVersionAndDimensionsEndWell) {
  const ErrorCase cases[] = {
      {"-help",            ""                                                 },
      {"-bad|-vers|-help", "ZAVIEW : ERROR - Unrecognized argument : -bad\n\n"}
  };
  for (const ErrorCase& c : cases) {
    FakePlatform fake;
    EXPECT_EQ(zaview_main(fake.Get(), Words(c.line)), 0) << c.line;
    EXPECT_EQ(Body(fake), c.body);
  }
  FakePlatform fake;
  EXPECT_EQ(zaview_main(fake.Get(), Words("-D")), 0);
  const std::string body = Body(fake);
  EXPECT_EQ(body.substr(0, body.find("MAXSTA")),
            "Program dimensions ...\n"
            "MAXDYN         3   Max number of dynamic systems (ships)\n"
            "Geometry definition:\n"
            "MAXCMP       100   Max number of components in geometry\n"
            "                   (either input or generated)\n");
}

struct PlotCase {
  const char* word;
  int plot;
};

TEST(CommandLine, PlotWordsMatchByTheirBeginning) {
  const PlotCase cases[] = {
      {"-plot",            1},
      {"-plot_history",    1},
      {"-PLOTS",           1},
      {"-animate",         2},
      {"-animation",       2},
      {"-anim",            2},
      {"-plot_anim",       2},
      {"-plot_animation",  2},
      {"-plot_trajectory", 3},
      {"-plot_trajec",     3},
      {"-plot_geometry",   4},
      {"-plot_geo",        1}
  };
  for (const PlotCase& c : cases) {
    FakePlatform fake;
    Session session;
    session.platform = fake.Get();
    EXPECT_EQ(ParseCommandLine(session, Words(c.word)).end, LineEnd::go_on) << c.word;
    EXPECT_EQ(session.run.initial_plot, c.plot) << c.word;
  }
}

TEST(CommandLine, VariablesAndFiles) {
  FakePlatform fake;
  Session session;
  session.platform = fake.Get();
  const auto result = ParseCommandLine(
      session,
      Words("-v|a=1|-root|/x|-set| b = c=d |-v|e=|f g|-ROOTx/y|-s|s|run.out|-file|-odd.out|-deg|-ship|2|10.5"));
  ASSERT_EQ(result.end, LineEnd::go_on);
  std::string table;
  for (const ScriptVariable& variable : session.script.variables) table += variable.name + ":" + variable.value + ";";
  EXPECT_EQ(table, "a:1;ROOT:/x;b:c=d;e=:f g;ROOT:/y;");
  EXPECT_EQ(session.run.file_args, (std::vector<std::string>{"run.out", "-odd.out"}));
  EXPECT_EQ(session.run.script_file_name, "s");
  EXPECT_FALSE(session.run.script_is_init);
  EXPECT_EQ(session.output.ANGOUT, 57.29578F);
  EXPECT_TRUE(session.output.user_scale[3]);
  EXPECT_EQ(session.run.selected_ship, 2);
  EXPECT_EQ(session.run.selected_vcg, 10.5F);
}

struct RunCase {
  const char* line;
  std::string_view input;
  int status;
  std::string_view body;
};

constexpr std::string_view kAskName = "Enter ZAVO output file name (KINO for alternate input, QUIT to abort)";

TEST(CommandLine, Runs) {
  const std::string name(kAskName);
  const std::string stop =
      "Reading ZAVIEW script file : .zaview.tmp\nZAVIEW Scripting: STOP\n\n"
      "Successfully parsed ZAVIEW script file : .zaview.tmp\n";
  const std::string no_open = "ERROR - Error opening ZAVO Output File : ";
  const std::string no_match = "ERROR - no file(s) found which match no*.out\n";
  const std::string pause = "Hit RETURN to continue...\n";
  const std::string no_data = "Initial plot argument -plot* or -anim* ignored as data file not specified\n";
  const std::string asked = no_data + name + " QUIT\n", left = pause + name + "\n", done = stop + "ZAVIEW is done...\n";
  const std::string open_done = no_open + "none\n" + done, match_left = no_match + left;
  const std::string init = stop + "ZAVIEW continuing...\n" + name + "\n";
  const RunCase cases[] = {
      {"",                   "",       0, left      }, // given up without a file on the line
      {"no*.out",            "",       1, match_left}, // with one
      {"-plot",              "QUIT\n", 0, asked     }, // an initial plot does not pause
      {"-command|STOP",      "",       0, done      }, // no file is needed
      {"none|-command|STOP", "",       0, open_done },
      {"-init_command|STOP", "",       0, init      },
  };
  for (const RunCase& c : cases) {
    FakePlatform fake;
    fake.Type(c.input);
    EXPECT_EQ(zaview_main(fake.Get(), Words(c.line)), c.status) << c.line;
    EXPECT_EQ(Body(fake), c.body) << c.line;
    EXPECT_EQ(fake.OpenHandles(), 0U);
  }
}

TEST(CommandLine, CommandIsLeftBehindAsAScript) {
  FakePlatform fake;
  EXPECT_EQ(zaview_main(fake.Get(), Words("-command|NONSENSE \"a b\"")), 1);
  EXPECT_EQ(fake.Bytes(".zaview.tmp"), "NONSENSE \"a b\"\n");
  EXPECT_NE(fake.output.find("\nZAVIEW aborting...\n"), std::string::npos);

  FakePlatform full;
  full.no_new_files_in = {""};
  EXPECT_EQ(zaview_main(full.Get(), Words("-command|STOP")), 2);
  EXPECT_EQ(Body(full), "ERROR opening temporary file .zaview.tmp\n");
}

}  // namespace
}  // namespace zaview
