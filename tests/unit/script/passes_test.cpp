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
  for (const std::string& line : lines) {
    const ScriptOrigin origin{0, static_cast<int>(text.lines.size()) + 1};
    EXPECT_TRUE(AddScriptLine(text, ScriptLine{line, origin}));
  }
  return text;
}

TEST(ExpandIncludes, DirectivesAndModules) {
  const std::string named =
      "ERR212 - $INCLUDE directive does not specify a file name\n"
      "         or is missing a colon (:) delimiter\n        at line 1 of d/s : ";
  // clang-format off
  const struct { std::string script; Lines clean; std::string said; } cases[] = {
      {"$INCLUDE:inc ! note\n", {"a", "b"}, ""},
      {"$INCLUDE: inc ! note\n", {}, named + "$INCLUDE: inc ! note\n"},  // a commented line takes no far name
      {"$INCLUDE:Default\n$INCLUDE:DEFAULTS\n", {}, ""},
      {"$INCLUDE:nest\n", {"$INCLUDE:inc"}, ""},  // inclusion goes no deeper
      {"$INCLUDE:ended\nz\n", {"a", "z"}, ""},
      {"$INCLUDE:near\n", {"n"}, ""},
      {"$MOD:mod\n", {"$MOD:mod", " ", "v", "$LATE"}, ""},
      {"$MOD\n$MOD:\n", {"$MOD", "$MOD:"}, ""},
      {"$INCLUDE:no1\n$MOD:no2\nz\n", {"$MOD:no2", "z"},
       "ERR212 - Error opening $INCLUDE file: no1\n        at line 1 of d/s : $INCLUDE:no1\n"
       "ERR212 - Error opening module file: no2\n        at line 2 of d/s : $MOD:no2\n"}};
  // clang-format on
  for (const auto& c : cases) {
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
    BlockStream stream;
    StartStream(stream, platform.files, file);
    const IncludeStatus status = ExpandIncludes(platform, "d/s", stream, files, clean);
    EXPECT_EQ(Texts(clean.lines), c.clean) << c.script;
    EXPECT_EQ(fake.output, c.said) << c.script;
    EXPECT_EQ(status == IncludeStatus::ok, c.said.empty()) << c.script;
    EXPECT_EQ(fake.OpenHandles(), 1U) << c.script;  // the script itself, closed by the caller
  }
}

TEST(ExpandLoops, Lists) {
  // clang-format off
  const struct { Lines in, out; } cases[] = {
      {{"FOR i IN SEQ 09 11 DO", "x", "DONE"}, {"i=\"09\"", "x", "i=\"10\"", "x", "i=\"11\"", "x"}},
      {{"FOR a|b IN 1|x 2 |y | z| DO", "DONE"},
       {"a=\"1\"", "b=\"x\"", "a=\"2\"", "b=\"2\"", "a=\"\"", "b=\"y\"", "a=\"\"", "b=\"\"", "a=\"z\"", "b=\"\""}},
      {{"FOR", "", "i IN 1", "'2 3' DO rest", "DONE"}, {"i=\"1\"", "i=\"2 3\""}},
      {{"FOR i IN \"\"\"b\" DO", "DONE"}, {"i=\"\"", "i=\"b\""}},
      {{"FOR i IN 1 \"do\" 2", "x", "DONE"}, {"i=\"1\"", "x"}},
      {{"FOR i IN 1 2 DO", " FOR j IN a DO", "  x", " DONE", "DONE", "y"},
       {"i=\"1\"", "j=\"a\"", "  x", "i=\"2\"", "j=\"a\"", "  x", "y"}},
      {{"FORCE 1", "DONEX"}, {"FORCE 1", "DONEX"}},
      {{"FOR i IN " + std::string(90, 'v') + " DO", "DONE"}, {"i=\"" + std::string(80, 'v') + "\""}}};
  // clang-format on
  for (const auto& c : cases) {
    FakePlatform fake;
    ScriptText text = TextOf(c.in);
    PassMessage message;
    EXPECT_TRUE(ExpandScriptLoops(fake.Get().console, text, message)) << c.in[0] << ": " << message.first;
    EXPECT_EQ(Texts(text.lines), c.out) << c.in[0];
  }
}

TEST(ExpandLoops, Faults) {
  Lines deep(200'000, "FOR a IN 1 DO");
  deep.insert(deep.end(), 200'000, "DONE");
  const std::string loop = "ERROR parsing script variable loop", seq = "ERROR parsing SEQ specifier in script DO loop";
  // clang-format off
  const struct { Lines in; std::string message; int line; } cases[] = {
      {{"x", "FOR"}, loop + ":  EOF while parsing variable name", 2},
      {{"FOR \"\" IN 1 DO", "DONE"}, loop + ":  variable name cannot be null string", 1},
      {{"FOR ' ' IN 1 DO"}, loop + ":  variable name cannot be blank string", 1},
      {{"FOR |a IN 1 DO"}, "ERROR parsing script variable |a misplaced separator |", 1},
      {{"FOR a 1 DO"}, loop + " for variable a : token IN not found", 1},
      {{"FOR a IN 1", "DONE"}, loop + " for variable a : token DO not found", 1},
      {{"FOR a IN DO", "x", "DONE"}, loop + " for variable a : no values found", 1},
      {{"x", "DONE"}, loop + " for variable : no values found", 2},
      {{"FOR a IN 1 DO", "FOR b IN 1 DO", "DONE"}, loop + " : token DONE not found", 1},
      {{"FOR a IN SEQ -1 2 DO", "DONE"}, seq, 1},
      {{"FOR a IN SEQ 1 99999999999999999999999 DO", "DONE"}, seq, 1},
      {{"FOR a IN SEQ 1 9999999 DO", "DONE"}, TooLongMessage(), 1},
      {deep, "ERROR - script loops are nested deeper than 100 levels", 1},
      {{"FOR a IN SEQ 1 5000 DO", "FOR b IN SEQ 1 5000 DO", "x", "DONE", "DONE"}, TooLongMessage(), 2}};
  // clang-format on
  for (const auto& c : cases) {
    FakePlatform fake;
    ScriptText text = TextOf(c.in);
    PassMessage message;
    EXPECT_FALSE(ExpandScriptLoops(fake.Get().console, text, message)) << c.message;
    EXPECT_EQ(message.first, c.message);
    EXPECT_EQ(message.origin.line, c.line) << c.message;
  }
}

TEST(ParseAssignment, Forms) {
  // clang-format off
  const struct { const char* line; bool is, fault; const char* name_value; } cases[] = {
      {" a = 1 ", true, false, "a|1"}, {"a = \"two words\"", true, false, "a|two words"}, {"\"a\" = 1", true, false, "a|1"},
      {"TITLE A=B", false, false, "|"},  // a blank ahead of the =
      {"a=", true, false, "a|"}, {"a=\"", true, false, "a|\""}, {"a='b'", true, false, "a|'b'"},  // one quote, other quotes
      {"=1", false, false, "|"}, {" =1", false, true, "|"},  // column 1: no assignment, no fault
      {"\"a=b\"", false, false, "|"}, {"\"a\"=\"b\"", true, false, "a|b"}};  // inside quotes; even count ahead: not inside
  // clang-format on
  for (const auto& c : cases) {
    Assignment assignment;
    EXPECT_EQ(ParseAssignment(c.line, assignment), c.is) << c.line;
    EXPECT_EQ(assignment.fault, c.fault) << c.line;
    EXPECT_EQ(std::string(assignment.name) + "|" + std::string(assignment.value), c.name_value) << c.line;
  }
}

TEST(Substitute, TextAndFaults) {
  const std::string endless = "ERROR - more than 1000 script variables substituted in one line";
  // clang-format off
  const struct { Lines in, out; std::string message; } cases[] = {
      {{"a={v}{v}", "x {a}"}, {"x 11"}, ""},  // by what it holds where it is set
      {{"a=1", "{a}", "a=2", "{a}"}, {"1", "2"}, ""},
      {{"v=9", "{v}"}, {"9"}, ""},
      {{"e=", "<{e}>"}, {"<>"}, ""},
      {{"n=v", "{{n}}"}, {}, "Undefined script variable: {n"},
      {{"x{}"}, {}, "Error - empty set of script variable delimiters: {}"},
      {{"a} {v}"}, {}, "Error - missing script variable delimiter }"},
      {{"{ }"}, {}, "ERROR blank script variable"},
      {{"{V}"}, {}, "Undefined script variable: V"},
      {{" = 3"}, {}, "ERROR in script variable assignment:"},
      {{"{loop}"}, {}, endless}, {{"{grow}"}, {}, endless}};
  // clang-format on
  for (const auto& c : cases) {
    FakePlatform fake;
    ScriptState script;
    for (const auto& [name, value] : {std::pair{"v", "0"}, {"loop", "{loop}"}, {"grow", "{grow}{grow}"}, {"v", "1"}})
      script.variables.push_back({name, value});
    ScriptText text = TextOf(c.in);
    PassMessage message;
    EXPECT_EQ(SubstituteScriptVariables(fake.Get().console, script, text, message), c.message.empty()) << c.in[0];
    EXPECT_EQ(message.first, c.message) << c.in[0];
    if (c.message.empty()) {
      EXPECT_EQ(Texts(text.lines), c.out) << c.in[0];
    }
    EXPECT_EQ(script.variables[0].name, "v") << c.in[0];  // the later entry gave its value to the earlier place
  }
}

TEST(Substitute, Limits) {
  FakePlatform fake;
  ScriptState script;
  const Console console = fake.Get().console;
  for (int i = 0; i < 99; ++i) AddScriptVariable(console, script, "v" + std::to_string(i), "x");
  PassMessage message;
  std::string line;
  for (int i = 0; i < 20; ++i) line += "{v3}";
  ScriptText good = TextOf({"new=1", "new=2", "v3=" + std::string(90, 'y'), line});
  EXPECT_TRUE(SubstituteScriptVariables(console, script, good, message));
  EXPECT_EQ(script.variables[3].value, std::string(80, 'y'));
  EXPECT_EQ(good.lines[0].text, std::string(1024, 'y').substr(0, good.lines[0].text.size()));
  EXPECT_GE(good.lines[0].text.size(), 1024U - 4U);
  EXPECT_EQ(fake.output.find("WARNING - value of script variable v3 cut to 80 characters\n"), 0U);
  ScriptText bad = TextOf({"more=1"});
  EXPECT_FALSE(SubstituteScriptVariables(console, script, bad, message));
  EXPECT_EQ(message.first, "Limit of 100 script variables exceeded");
}

}  // namespace
}  // namespace zaview
