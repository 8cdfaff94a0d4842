// The three passes: what a script text becomes, and what is said of a bad one.
#include <gtest/gtest.h>

#include "fake_platform.h"
#include "script/expand_includes.h"
#include "script/expand_loops.h"
#include "script/script_variables.h"
#include "script/substitute_variables.h"

namespace zaview {
namespace {

using Lines = std::vector<std::string>;

Lines Texts(const std::vector<ScriptLine>& lines) {
  Lines texts;
  for (const ScriptLine& line : lines) texts.push_back(line.text);
  return texts;
}

ScriptText TextOf(const Lines& lines) {
  ScriptText text;
  for (std::size_t i = 0; i < lines.size(); ++i)
    EXPECT_TRUE(AddScriptLine(text, {
                                        lines[i], {0, static_cast<int>(i) + 1}
    }));
  return text;
}

struct IncludeCase {
  const char* fault;
  std::string script;
  Lines clean;
  std::string said;
};

TEST(ExpandIncludes, DirectivesAndModules) {
  const std::string named =
      "ERR212 - $INCLUDE directive does not specify a file name\n"
      "         or is missing a colon (:) delimiter\n        at line 1 of d/s : ";
  const IncludeCase cases[] = {
      {"the directive is written",                  "$INCLUDE:inc\nz\n",                     {"a", "b", "z"},                 ""                              },
      {"case counts",                               "  $include: inc  \n",                   {"a", "b"},                      ""                              },
      {"a name behind a blank in a commented line", "$INCLUDE:inc ! note\n",                 {"a", "b"},                      ""                              },
      {"a commented line takes a far name",         "$INCLUDE: inc ! note\n",                {},                              named + "$INCLUDE: inc ! note\n"},
      {"no colon",                                  "$INCLUDE inc\n",                        {},                              named + "$INCLUDE inc\n"        },
      {"DEFAULT is taken for a file",               "$INCLUDE:Default\n$INCLUDE:DEFAULTS\n", {},                              ""                              },
      {"inclusion goes deeper",                     "$INCLUDE:nest\n",                       {"$INCLUDE:inc"},                ""                              },
      {"the end of an included file ends all",      "$INCLUDE:ended\nz\n",                   {"a", "z"},                      ""                              },
      {"the script's folder is not searched",       "$INCLUDE:near\n",                       {"n"},                           ""                              },
      {"not at the first column: text",             "x $INCLUDE:inc\n",                      {"x $INCLUDE:inc"},              ""                              },
      {"module line dropped, its header doubled",   "$MOD:mod\n",                            {"$MOD:mod", " ", "v", "$LATE"}, ""                              },
      {"module without name is an error",           "$MOD\n$MOD:\n",                         {"$MOD", "$MOD:"},               ""                              },
      {"an error stops the pass",
       "$INCLUDE:no1\n$MOD:no2\nz\n",                                                        {"$MOD:no2", "z"},
       "ERR212 - Error opening $INCLUDE file: no1\n        at line 1 of d/s : $INCLUDE:no1\n"
       "ERR212 - Error opening module file: no2\n        at line 2 of d/s : $MOD:no2\n"                                                                       },
  };
  for (const IncludeCase& c : cases) {
    FakePlatform fake;
    fake.Put("d/s", c.script);
    fake.Put("inc", "a\nb\n");
    fake.Put("nest", "$INCLUDE:inc\n");
    fake.Put("ended", "a\nEND_OF_FILE\nb\n");
    fake.Put("d/near", "n\n");
    fake.Put("mod", " !\n$MOD:\nv\n$LATE\n");
    const Platform platform = fake.Get();
    std::vector<std::string> files;
    ScriptText clean;
    const FileHandle file = platform.files.open_read(platform.files.self, "d/s");
    const IncludeStatus status = ExpandIncludes(platform, "d/s", file, files, clean);
    EXPECT_EQ(Texts(clean.lines), c.clean) << c.fault;
    EXPECT_EQ(fake.output, c.said) << c.fault;
    EXPECT_EQ(status == IncludeStatus::ok, c.said.empty()) << c.fault;
    EXPECT_EQ(fake.OpenHandles(), 1U) << c.fault;  // the script itself, closed by the caller
  }
}

TEST(ExpandIncludes, RemembersWhereALineWasWritten) {
  FakePlatform fake;
  fake.Put("s", "!\n$INCLUDE:inc\nz\n");
  fake.Put("inc", "a\nb\n");
  const Platform platform = fake.Get();
  std::vector<std::string> files;
  ScriptText clean;
  const FileHandle file = platform.files.open_read(platform.files.self, "s");
  ASSERT_EQ(ExpandIncludes(platform, "s", file, files, clean), IncludeStatus::ok);
  ASSERT_EQ(clean.lines.size(), 3U);
  EXPECT_EQ(AtLine(files, clean.lines[1].origin, " b "), "        at line 2 of inc : b");
  EXPECT_EQ(AtLine(files, clean.lines[2].origin, "z"), "        at line 3 of s : z");
}

struct LoopCase {
  const char* fault;
  Lines in, out;
};

TEST(ExpandLoops, Lists) {
  const LoopCase cases[] = {
      {"padding",                           {"FOR i IN SEQ 09 11 DO", "x", "DONE"},               {"i=\"09\"", "x", "i=\"10\"", "x", "i=\"11\"", "x"}},
      {"padding where lengths differ",      {"for i in seq 9 10 do", "done"},                     {"i=\"9\"", "i=\"10\""}                            },
      {"counting down",                     {"FOR i = SEQ 2 1 DO", "DONE"},                       {"i=\"2\"", "i=\"1\""}                             },
      {"two variables",
       {"FOR a|b IN 1|x 2 |y | z| DO", "DONE"},
       {"a=\"1\"", "b=\"x\"", "a=\"2\"", "b=\"2\"", "a=\"\"", "b=\"y\"", "a=\"\"", "b=\"\"", "a=\"z\"", "b=\"\""}                                    },
      {"a sequence for two",                {"FOR a|b IN SEQ 1 1 DO", "DONE"},                    {"a=\"1\"", "b=\"1\""}                             },
      {"a header over lines",               {"FOR", "", "i IN 1", "'2 3' DO rest", "DONE"},       {"i=\"1\"", "i=\"2 3\""}                           },
      {"empty quotes and words that touch", {"FOR i IN \"\"\"b\" DO", "DONE"},                    {"i=\"\"", "i=\"b\""}                              },
      {"a quoted do goes on",               {"FOR i IN 1 \"do\" 2", "x", "DONE"},                 {"i=\"1\"", "x"}                                   },
      {"outer first, inner again for each",
       {"FOR i IN 1 2 DO", " FOR j IN a DO", "  x", " DONE", "DONE", "y"},
       {"i=\"1\"", "j=\"a\"", "  x", "i=\"2\"", "j=\"a\"", "  x", "y"}                                                                               },
      {"mixed list",                        {"FOR i IN a SEQ 1 2 b DO", "DONE"},                  {"i=\"a\"", "i=\"1\"", "i=\"2\"", "i=\"b\""}       },
      {"a word that begins FOR",            {"FORCE 1", "DONEX"},                                 {"FORCE 1", "DONEX"}                               },
      {"long values",                       {"FOR i IN " + std::string(90, 'v') + " DO", "DONE"}, {"i=\"" + std::string(80, 'v') + "\""}             },
  };
  for (const LoopCase& c : cases) {
    FakePlatform fake;
    ScriptText text = TextOf(c.in);
    PassMessage message;
    EXPECT_TRUE(ExpandScriptLoops(fake.Get().console, text, message)) << c.fault << ": " << message.first;
    EXPECT_EQ(Texts(text.lines), c.out) << c.fault;
  }
}

struct LoopFault {
  Lines in;
  std::string message;
  int line;
};

TEST(ExpandLoops, Faults) {
  const LoopFault cases[] = {
      {{"x", "FOR"},                                                              "ERROR parsing script variable loop:  EOF while parsing variable name",      2},
      {{"FOR \"\" IN 1 DO", "DONE"},                                              "ERROR parsing script variable loop:  variable name cannot be null string",  1},
      {{"FOR ' ' IN 1 DO"},                                                       "ERROR parsing script variable loop:  variable name cannot be blank string", 1},
      {{"FOR a| IN 1 DO"},                                                        "ERROR parsing script variable a| misplaced separator |",                    1},
      {{"FOR |a IN 1 DO"},                                                        "ERROR parsing script variable |a misplaced separator |",                    1},
      {{"FOR a 1 DO"},                                                            "ERROR parsing script variable loop for variable a : token IN not found",    1},
      {{"FOR a"},                                                                 "ERROR parsing script variable loop for variable a : token IN not found",    1},
      {{"FOR a IN 1", "DONE"},                                                    "ERROR parsing script variable loop for variable a : token DO not found",    1},
      {{"FOR a IN DO", "x", "DONE"},                                              "ERROR parsing script variable loop for variable a : no values found",       1},
      {{"x", "DONE"},                                                             "ERROR parsing script variable loop for variable : no values found",         2},
      {{"FOR a IN 1 DO", "FOR b IN 1 DO", "DONE"},                                "ERROR parsing script variable loop : token DONE not found",                 1},
      {{"FOR a IN SEQ 1 DO", "DONE"},                                             "ERROR parsing SEQ specifier in script DO loop",                             1},
      {{"FOR a IN SEQ -1 2 DO", "DONE"},                                          "ERROR parsing SEQ specifier in script DO loop",                             1},
      {{"FOR a IN SEQ 1 99999999 DO", "DONE"},                                    "ERROR parsing SEQ specifier in script DO loop",                             1},
      {{"FOR a IN SEQ 1 99999999999999999999999 DO", "DONE"},                     "ERROR parsing SEQ specifier in script DO loop",                             1},
      {{"FOR a IN SEQ 1 9999999 DO", "DONE"},                                     TooLongMessage(),                                                            1},
      {{"FOR a IN SEQ 1 5000 DO", "FOR b IN SEQ 1 5000 DO", "x", "DONE", "DONE"}, TooLongMessage(),                                                            2},
  };
  for (const LoopFault& c : cases) {
    FakePlatform fake;
    ScriptText text = TextOf(c.in);
    PassMessage message;
    EXPECT_FALSE(ExpandScriptLoops(fake.Get().console, text, message)) << c.message;
    EXPECT_EQ(message.first, c.message);
    EXPECT_EQ(message.origin.line, c.line) << c.message;
  }
}

TEST(ExpandLoops, DeepNestingEnds) {
  Lines lines(200'000, "FOR a IN 1 DO");
  lines.insert(lines.end(), 200'000, "DONE");
  FakePlatform fake;
  ScriptText text = TextOf(lines);
  PassMessage message;
  EXPECT_FALSE(ExpandScriptLoops(fake.Get().console, text, message));
  EXPECT_EQ(message.first, "ERROR - script loops are nested deeper than 100 levels");
}

struct AssignmentCase {
  const char* line;
  bool is;
  const char* name;
  const char* value;
  bool fault;
};

TEST(ParseAssignment, Forms) {
  const AssignmentCase cases[] = {
      {"a=1",               true,  "a", "1",         false},
      {" a = 1 ",           true,  "a", "1",         false},
      {"a = \"two words\"", true,  "a", "two words", false},
      {"\"a\" = 1",         true,  "a", "1",         false},
      {"A=B C",             true,  "A", "B C",       false},
      {"TITLE A=B",         false, "",  "",          false}, // a blank ahead of the =
      {"a=",                true,  "a", "",          false},
      {"a=\"",              true,  "a", "\"",        false}, // just one quote is a value
      {"a='b'",             true,  "a", "'b'",       false}, // single quotes stay
      {"=1",                false, "",  "",          false}, // column 1: no assignment, no fault
      {" =1",               false, "",  "",          true },
      {"\"\"=1",            false, "",  "",          true },
      {"\"a=b\"",           false, "",  "",          false}, // inside quotes
      {"X 'a=b' c",         false, "",  "",          false},
      {"\"a\"=\"b\"",       true,  "a", "b",         false}, // even count ahead: not inside
      {"a b",               false, "",  "",          false},
      {"",                  false, "",  "",          false},
  };
  for (const AssignmentCase& c : cases) {
    Assignment assignment;
    EXPECT_EQ(ParseAssignment(c.line, assignment), c.is) << c.line;
    EXPECT_EQ(assignment.fault, c.fault) << c.line;
    EXPECT_EQ(assignment.name, c.name) << c.line;
    EXPECT_EQ(assignment.value, c.value) << c.line;
  }
}

struct SubstituteCase {
  const char* fault;
  Lines in, out;
  std::string message;
};

TEST(Substitute, TextAndFaults) {
  const SubstituteCase cases[] = {
      {"a value is not expanded in its turn",          {"a={v}{v}", "x {a}"},        {"x 11"},   ""                                                               },
      {"assignments act ahead of their line",          {"a=1", "{a}", "a=2", "{a}"}, {"1", "2"}, ""                                                               },
      {"leading blanks go",                            {"  x  "},                    {"  x"},    ""                                                               },
      {"the script doesn't win over the command line", {"v=9", "{v}"},               {"9"},      ""                                                               },
      {"an empty value leaves something",              {"e=", "<{e}>"},              {"<>"},     ""                                                               },
      {"a name is made of values",                     {"n=v", "{{n}}"},             {},         "Undefined script variable: {n"                                  },
      {"empty braces",                                 {"x{}"},                      {},         "Error - empty set of script variable delimiters: {}"            },
      {"no brace",                                     {"x{a"},                      {},         "Error - missing script variable delimiter }"                    },
      {"brace the wrong way round",                    {"a} {v}"},                   {},         "Error - missing script variable delimiter }"                    },
      {"blank name",                                   {"{ }"},                      {},         "ERROR blank script variable"                                    },
      {"case doesn't count",                           {"{V}"},                      {},         "Undefined script variable: V"                                   },
      {"no name",                                      {" = 3"},                     {},         "ERROR in script variable assignment:"                           },
      {"endless",                                      {"{loop}"},                   {},         "ERROR - more than 1000 script variables substituted in one line"},
      {"growing",                                      {"{grow}"},                   {},         "ERROR - more than 1000 script variables substituted in one line"},
  };
  for (const SubstituteCase& c : cases) {
    FakePlatform fake;
    ScriptState script;
    script.variables = {
        {"v",    "0"           },
        {"loop", "{loop}"      },
        {"grow", "{grow}{grow}"},
        {"v",    "1"           }
    };
    ScriptText text = TextOf(c.in);
    PassMessage message;
    EXPECT_EQ(SubstituteScriptVariables(fake.Get().console, script, text, message), c.message.empty()) << c.fault;
    EXPECT_EQ(message.first, c.message) << c.fault;
    if (c.message.empty()) {
      EXPECT_EQ(Texts(text.lines), c.out) << c.fault;
    }
    EXPECT_EQ(script.variables[0].name, "v") << c.fault;  // the later entry gave its value to the earlier place
  }
}

TEST(Substitute, LimitsOfTable) {
  FakePlatform fake;
  ScriptState script;
  const Console console = fake.Get().console;
  for (int i = 0; i < 99; ++i) AddScriptVariable(console, script, "v" + std::to_string(i), "x");
  PassMessage message;
  ScriptText good = TextOf({"new=1", "new=2", "v3=" + std::string(90, 'y')});
  EXPECT_TRUE(SubstituteScriptVariables(console, script, good, message));
  EXPECT_EQ(script.variables[3].value, std::string(80, 'y'));
  EXPECT_EQ(fake.output, "WARNING - value of script variable v3 cut to 80 characters\n");
  ScriptText bad = TextOf({"more=1"});
  EXPECT_FALSE(SubstituteScriptVariables(console, script, bad, message));
  EXPECT_EQ(message.first, "Limit of 100 script variables exceeded");
}

TEST(Substitute, CutsLinesAtTheirLimit) {
  FakePlatform fake;
  ScriptState script;
  script.variables = {
      {"v", std::string(80, 'y')}
  };
  std::string line;
  for (int i = 0; i < 20; ++i) line += "{v}";
  ScriptText text = TextOf({line});
  PassMessage message;
  ASSERT_TRUE(SubstituteScriptVariables(fake.Get().console, script, text, message));
  EXPECT_EQ(text.lines[0].text, std::string(1024, 'y').substr(0, text.lines[0].text.size()));
  EXPECT_GE(text.lines[0].text.size(), 1024U - 3U);
}

}  // namespace
}  // namespace zaview
