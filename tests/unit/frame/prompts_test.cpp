#include "frame/ground/prompts.h"

#include <gtest/gtest.h>

#include "fake_platform.h"
#include "frame/ground/option_menu.h"

namespace zaview {
namespace {

TEST(Prompts, Text) {
  const std::string many(300, 'a'), cut = many.substr(0, 256), asked = "Two\nlines " + cut + "\n";
  const struct {
    std::string_view prompt, fallback;
    std::deque<std::string> input;
    Answer status;
    std::string answer;  // "untouched" where the question was left
    std::string output;
  } cases[] = {
      {"Name", "", {"a b  \t\r"}, Answer::ok, "a b", "Name a b\n"},
      {"Name  ", "x.out  ", {""}, Answer::ok, "x.out", "Name [x.out]\n"},
      {"Name", "x", {"BLANKET"}, Answer::ok, "", "Name [x] BLANKET\n"},
      {"Name", "x", {"Blank"}, Answer::ok, "Blank", "Name [x] Blank\n"},
      {"Name", "", {"QUITTER"}, Answer::quit, "untouched", "Name QUITTER\n"},
      {"Name", "", {"qUIT"}, Answer::ok, "qUIT", "Name qUIT\n"},
      {"Name", "", {" quit"}, Answer::ok, " quit", "Name  quit\n"},
      {"Name", "x", {}, Answer::end_of_input, "untouched", "Name [x]\n"},
      {"Two\nlines", "", {many}, Answer::ok, cut, asked},
  };
  for (const auto& c : cases) {
    FakePlatform fake;
    fake.input = c.input;
    std::string answer = "untouched";
    EXPECT_EQ(ask_text(fake.Get().console, c.prompt, c.fallback, answer), c.status) << c.output;
    EXPECT_EQ(answer, c.answer);
    EXPECT_EQ(fake.output, c.output);
  }
}

TEST(Prompts, TerminalShowsItsOwnAnswer) {
  FakePlatform fake;
  fake.input_is_terminal = true;
  fake.input = {"a"};
  std::string answer;
  ASSERT_EQ(ask_text(fake.Get().console, "Name", "b", answer), Answer::ok);
  ASSERT_EQ(ask_text(fake.Get().console, "Name", "", answer), Answer::end_of_input);
  EXPECT_EQ(fake.output, "Name [b] Name \n");
}

// It gives the question up; it does not take the default, as an empty answer does.
TEST(Prompts, CtrlCIsQuit) {
  FakePlatform fake;
  fake.input_is_terminal = true;
  Console console = fake.Get().console;
  console.take_interrupt = [](void*) { return true; };
  const MenuItem items[] = {{"0 - leave", true}, {"1 - stay", true}};
  std::string text = "kept";
  int number = 7, option = 1;
  EXPECT_EQ(ask_text(console, "Name", "other", text), Answer::quit);
  EXPECT_EQ(ask_integer(console, "n", true, number), Answer::quit);
  EXPECT_EQ(select_option(console, "", "=>", items, 1, option), Answer::quit);
  EXPECT_EQ(text, "kept");
  EXPECT_EQ(fake.output.rfind("Name [other] \nn [7] \n", 0), 0U);
}

TEST(Prompts, Numbers) {
  // clang-format off
  const struct {
    std::deque<std::string> input;
    Answer status;
    int value;  // 7 stands before
  } cases[] = {
      {{"2.5"}, Answer::ok, 3}, {{"-2.5"}, Answer::ok, -3}, {{""}, Answer::ok, 7}, {{"none", "4"}, Answer::ok, 4},
      {{"quit"}, Answer::quit, 7}, {{"x"}, Answer::end_of_input, 7}, {{"1e20"}, Answer::ok, 2147483647},
  };
  // clang-format on
  FakePlatform fake;
  const Console console = fake.Get().console;
  for (const auto& c : cases) {
    fake.input = c.input;
    int value = 7;
    EXPECT_EQ(ask_integer(console, "n", true, value), c.status);
    EXPECT_EQ(value, c.value);
  }
  fake.output.clear();
  fake.input = {"", "1.5D3", "1e39", "BLANK", "0.5", "1, 2", "1 -2e1 3 4", ""};
  float value = 57.29578F;
  ASSERT_EQ(ask_real(console, "ANGOUT :", true, value), Answer::ok);
  EXPECT_EQ(value, 57.29578F);  // though its default was rounded
  ASSERT_EQ(ask_real(console, "ANGOUT :", true, value), Answer::ok);
  EXPECT_EQ(value, 1500.0F);
  ASSERT_EQ(ask_real(console, "ANGOUT :", false, value), Answer::ok);  // too big, and no number: asked again
  EXPECT_EQ(value, 0.5F);
  std::array<float, 3> values{};
  ASSERT_EQ(VINPUT(console, "xyz", false, values), Answer::ok);  // two are too few, the fourth is dropped
  ASSERT_EQ(VINPUT(console, "xyz", true, values), Answer::ok);
  EXPECT_EQ(values, (std::array<float, 3>{1, -20, 3}));
  EXPECT_EQ(fake.output,
            "ANGOUT : [57.29578]\nANGOUT : [57.29578] 1.5D3\nANGOUT : 1e39\nANGOUT : BLANK\nANGOUT : 0.5\n"
            "xyz 1, 2\nxyz 1 -2e1 3 4\nxyz [1 -20 3]\n");
}

TEST(Prompts, StepLists) {
  const struct {
    bool offers_all;
    std::deque<std::string> input;
    Answer status;
    std::vector<int> indices;  // of the steps 1 to 9
  } cases[] = {
      {false, {"3", "5 7", "1 9 4", "0"}, Answer::ok, {3, 5, 6, 7, 1, 5, 9}},
      {false, {"-1", "8 12", "2 4 0", "x", "0"}, Answer::ok, {}},  // each asked again
      {true, {"2", "-1"}, Answer::ok, {2, 1, 2, 3, 4, 5, 6, 7, 8, 9}},
      {true, {"4", "quit"}, Answer::quit, {4}},
      {true, {"4"}, Answer::end_of_input, {4}},
      {false, {"1 9 99999999999", "0"}, Answer::ok, {1}},
  };
  for (const auto& c : cases) {
    FakePlatform fake;
    fake.input = c.input;
    std::vector<int> indices;
    EXPECT_EQ(ask_step_list(fake.Get().console, c.offers_all, 1, 9, indices), c.status) << c.input.front();
    EXPECT_EQ(indices, c.indices) << c.input.front();
  }
}

TEST(OptionMenu, Choices) {
  // clang-format off
  const MenuItem items[] = {
      {" 0 - a", true}, {" 1 - b", true}, {" 2 - c", false}, {" 3 - d", true}, {" 4 - e", true}, {" 5 - f", true},
  };
  // clang-format on
  const std::string invalid = "\nInvalid option - please reenter\n=> ";
  const std::string range = "\nSelection out of range - please reenter\n=> ";
  const struct {
    std::deque<std::string> input;
    int fallback;
    Answer status;
    int value;            // -7: none is chosen
    std::string replies;  // behind the listing
  } cases[] = {
      {{"0.6"}, -1, Answer::ok, 1, "=> 0.6\n"},
      {{"qx"}, -1, Answer::quit, -7, "=> qx\n"},
      {{}, -1, Answer::end_of_input, -7, "=>\n"},
      {{""}, 3, Answer::ok, 3, "=> [3]\n"},
      {{"", "1.5", "0"}, -1, Answer::ok, 0, "=>" + invalid + "1.5" + invalid + "0\n"},
      {{"6", "-1", "1e30", "3"}, -1, Answer::ok, 3, "=> 6" + range + "-1" + range + "1e30" + range + "3\n"},
  };
  const std::string gap(49, ' ');  // five items that can be chosen stand in two columns
  for (const auto& c : cases) {
    FakePlatform fake;
    fake.input = c.input;
    int value = -7;
    EXPECT_EQ(select_option(fake.Get().console, "Title:", "=>", items, c.fallback, value), c.status);
    EXPECT_EQ(value, c.value);
    EXPECT_EQ(fake.output, "\nTitle:\n 0 - a" + gap + " 1 - b\n 3 - d" + gap + " 4 - e\n 5 - f\n" + c.replies);
  }
}

}  // namespace
}  // namespace zaview
