#include "script/script_words.h"

#include <gtest/gtest.h>

#include "fake_platform.h"

namespace zaview {
namespace {

struct Words {
  FakePlatform fake;
  Console console = fake.Get().console;
  std::vector<ScriptLine> lines;
  std::size_t next_line = 0;
  WordScanner scanner;

  explicit Words(const std::vector<std::string>& texts) {
    for (const std::string& text : texts) lines.push_back({text, {}});
    scanner = {&console, lines, &next_line, {}, 0};
  }
};

TEST(ScriptWords, Words) {
  // clang-format off
  const struct { const char* fault; std::vector<std::string> lines, words; bool warned; } cases[] = {
      {"next line not taken", {"a\tb", "", "  c"}, {"a", "b", "c", ""}, false},
      {"quotes not dropped", {"\"a b\"'c\"'d\"e"}, {"a b", "c\"", "d\"e"}, false},
      {"an empty pair is passed over", {"\"\" x"}, {"", "x"}, false},
      {"a quote goes on to the next line", {"x \"a b ", "c\""}, {"x", "a b", "c\""}, true},
      {"a quote at the end", {"'"}, {"", ""}, true},
  };
  // clang-format on
  for (const auto& c : cases) {
    Words words(c.lines);
    for (const std::string& expected : c.words) EXPECT_EQ(NextScriptWord(words.scanner, 80), expected) << c.fault;
    EXPECT_EQ(words.fake.output, c.warned ? "WARNING - missing closing quote\n" : "") << c.fault;
  }
  Words words({std::string(100, 'w')});
  EXPECT_EQ(NextScriptWord(words.scanner, 80), std::string(80, 'w'));
}

// On a further line as well: what comes behind the look still finds that line whole.
TEST(ScriptWords, APeekTakesNothing) {
  Words words({"a", "", "2 3"});
  EXPECT_EQ(PeekScriptWord(words.scanner, 80), "a");
  EXPECT_EQ(NextScriptWord(words.scanner, 80), "a");
  EXPECT_EQ(PeekScriptWord(words.scanner, 80), "2");
  EXPECT_EQ(RestOfLine(words.scanner), "");
  std::vector<float> values;
  EXPECT_TRUE(ParseRealList(words.scanner, 2, values));
  EXPECT_EQ(values, (std::vector<float>{2, 3}));
}

TEST(ScriptWords, Reals) {
  // clang-format off
  const struct {
    const char* fault;
    std::vector<std::string> lines;
    int n;
    bool good;
    std::vector<float> values;
  } cases[] = {
      {"exponent letters", {"1e2 1E2 1d2 1D+2 -.5"}, 5, true, {100, 100, 100, 100, -0.5F}},
      {"more lines", {"1", "", "2 3"}, 2, true, {1, 2}}, {"the end", {"1"}, 2, false, {1}},
      {"unit behind a number", {"3m"}, 1, false, {}}, {"a comma", {"1,2"}, 1, false, {}},
      {"no value", {"Inf"}, 1, false, {}}, {"beyond the range", {"1e99"}, 1, false, {}},
      {"this line alone", {"1", "2"}, -2, true, {1}}, {"none at all", {" ", "2"}, -2, true, {}},
      {"a bad one on the line", {"1 x"}, -2, false, {1}},
  };
  // clang-format on
  for (const auto& c : cases) {
    Words words(c.lines);
    words.scanner.line = words.lines[0].text;
    words.next_line = 1;
    std::vector<float> values;
    EXPECT_EQ(ParseRealList(words.scanner, c.n, values), c.good) << c.fault;
    EXPECT_EQ(values, c.values) << c.fault;
  }
}

TEST(ScriptWords, StepCounts) {
  EXPECT_EQ(StepCount(3.6F), 4);
  EXPECT_EQ(StepCount(3.4F), 3);
  EXPECT_EQ(StepCount(-0.4F), 0);
  EXPECT_EQ(StepCount(-1.0F), -1);  // dropped towards 0 it would pass for none
  EXPECT_EQ(StepCount(1e30F), 2147483647);
  EXPECT_EQ(StepCount(-1e30F), -2147483647);
}

}  // namespace
}  // namespace zaview
