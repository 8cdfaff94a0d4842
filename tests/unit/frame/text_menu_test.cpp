// The main menu on an ensemble of three records: every question of its dialogues can be given up, and none asks for
// ever when the input ends.
#include "frame/text_menu.h"

#include <algorithm>
#include <sstream>

#include <gtest/gtest.h>

#include "fake_platform.h"
#include "project_places.h"
#include "script/open_script_file.h"

namespace zaview {
namespace {

struct MenuSession {
  FakePlatform fake;
  Session session;
  std::size_t files = 0;

  MenuSession() {
    for (const char* const name : {"sea_1.out", "sea_2.out", "sea_3.out"}) fake.Put(name, SampleBytes(name));
    fake.Put("s", "READ *.out\n");
    session.platform = fake.Get();
    EXPECT_EQ(OpenScriptFile(session, "s"), kScriptOk);
    EXPECT_EQ(session.ensemble.nrec, 3) << fake.output;
    files = fake.files.size();
  }
  // Answers apart by "|".
  void Answer(const std::string& answers) {
    std::istringstream in(answers);
    for (std::string answer; std::getline(in, answer, '|');) fake.input.push_back(answer);
    fake.output.clear();
    session.run.exit_requested = false;
    text_menu(session);
  }
};

int Count(const std::string& text, const std::string& word) {
  int count = 0;
  for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + 1)) ++count;
  return count;
}

// The answers up to the question that is given up.
// clang-format off
constexpr const char* kAsked[] = {
    "2", "2|1", "2|27", "2|27|1", "2|27|1|2", "2|48|1|2|3", "2|34", "2|35", "4", "4|1", "8", "8|1", "8|1|", "8|1||x",
    "9", "13", "17", "10", "10|", "10||", "10|||", "10||||", "11", "11|y", "11|y|0", "11|y|0|0", "11|y|0|0|0",
    "11|y|0|0|0|0", "18", "18|3", "20", "20|1", "20|1|x", "21", "21|1", "21|1|", "21|1||x", "23", "23|1", "23|1|3",
    "23|1|3|", "24", "24|1", "24|1|1", "24|1|1|3", "24|1|1|3|0 1 1", "24|2|1|3", "24|2|1|3|0", "24|2|1|3|0|2",
    "24|2|1|3|0|2|5", "2|1|s", "8|1||s", "25", "25|1", "25|1|0 0 9", "25|1|0 0 9|10|2", "25|2|",
    "25|3", "25|4|0", "25|4|0|0 0 0", "25|4|0|0 0 0|9 9 0", "25|7|0|0", "25|7|0|0|2", "25|7|0|0|2|5 6",
    "16", "16|0", "16|0|2", "19", "19|1", "19|1|y", "19|1|n|1", "19|1|n|1|", "19|1|n|1||", "19|2", "19|2|1",
    "19|2|1|0 1 2", "19|2|1|0 1 2|0 0 1", "19|2|1|0 1 2|0 0 1|0 0 1"
};
// clang-format on

TEST(TextMenu, EveryQuestionCanBeGivenUp) {
  MenuSession menu;
  for (const std::string asked : kAsked) {
    menu.Answer(asked + "|QUIT|0");
    EXPECT_TRUE(menu.fake.input.empty()) << asked;
    EXPECT_EQ(Count(menu.fake.output, "Select option=> "), 2) << asked << menu.fake.output;
    EXPECT_EQ(menu.fake.files.size(), menu.files) << asked;
    EXPECT_EQ(menu.fake.OpenHandles(), 0U) << asked;
  }
  EXPECT_EQ(menu.session.output.smoothing.option, 0);  // given up at the width
}

TEST(TextMenu, EndOfInputEndsEveryQuestion) {
  MenuSession menu;
  for (const std::string asked : kAsked) {
    menu.Answer(asked + (asked.back() == '|' ? "|" : ""));
    EXPECT_TRUE(menu.session.run.exit_requested) << asked;
    EXPECT_LT(Count(menu.fake.output, "\n"), 120) << asked << menu.fake.output;
    EXPECT_EQ(menu.fake.OpenHandles(), 0U) << asked;
  }
}

}  // namespace
}  // namespace zaview
