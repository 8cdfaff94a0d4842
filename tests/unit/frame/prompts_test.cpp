#include "frame/prompts.h"

#include <gtest/gtest.h>

#include "fake_platform.h"
#include "frame/option_menu.h"

namespace zaview {
namespace {

struct TextCase {
  std::string_view prompt, fallback;
  std::deque<std::string> input;
  Answer status;
  std::string_view answer;  // "untouched" where the question was left
  std::string_view output;
};

TEST(Prompts, Text) {
  const TextCase cases[] = {
      {"Enter name",   "",        {"a b  \t\r"}, Answer::ok,           "a b",       "Enter name a b\n"        },
      {"Enter name  ", "x.out  ", {""},          Answer::ok,           "x.out",     "Enter name [x.out]\n"    },
      {"Enter name",   "x",       {"BLANKET"},   Answer::ok,           "",          "Enter name [x] BLANKET\n"},
      {"Enter name",   "x",       {"Blank"},     Answer::ok,           "Blank",     "Enter name [x] Blank\n"  }, // only BLANK and blank
      {"Enter name",   "",        {"QUITTER"},   Answer::quit,         "untouched", "Enter name QUITTER\n"    },
      {"Enter name",   "",        {"qUIT"},      Answer::ok,           "qUIT",      "Enter name qUIT\n"       },
      {"Enter name",   "",        {" quit"},     Answer::ok,           " quit",     "Enter name  quit\n"      }, // the first four characters count
      {"Enter name",   "x",       {},            Answer::end_of_input, "untouched", "Enter name [x]\n"        },
      {"",             "x",       {"y"},         Answer::ok,           "y",         "[x] y\n"                 },
      {"Two\nlines",   "",        {"y"},         Answer::ok,           "y",         "Two\nlines y\n"          },
  };
  for (const TextCase& c : cases) {
    FakePlatform fake;
    fake.input = c.input;
    std::string answer = "untouched";
    EXPECT_EQ(ask_text(fake.Get().console, c.prompt, c.fallback, answer), c.status) << c.output;
    EXPECT_EQ(answer, c.answer);
    EXPECT_EQ(fake.output, c.output);
  }
}

TEST(Prompts, LongAnswerIsCut) {
  FakePlatform fake;
  fake.input = {std::string(300, 'a')};
  std::string answer;
  ASSERT_EQ(ask_text(fake.Get().console, "?", "", answer), Answer::ok);
  EXPECT_EQ(answer.size(), 256U);
}

TEST(Prompts, TerminalShowsItsOwnAnswer) {
  FakePlatform fake;
  fake.input_is_terminal = true;
  fake.input = {"a"};
  std::string answer;
  ASSERT_EQ(ask_text(fake.Get().console, "Name", "b", answer), Answer::ok);
  EXPECT_EQ(fake.output, "Name [b] ");
  ASSERT_EQ(ask_text(fake.Get().console, "Name", "", answer), Answer::end_of_input);
  EXPECT_EQ(fake.output, "Name [b] Name \n");
}

struct IntegerCase {
  std::deque<std::string> input;
  Answer status;
  int value;
};

TEST(Prompts, Integers) {  // 7 stands before
  const IntegerCase cases[] = {
      {{"2.5"},       Answer::ok,           3         },
      {{"-2.5"},      Answer::ok,           -3        },
      {{""},          Answer::ok,           7         },
      {{"none", "4"}, Answer::ok,           4         },
      {{"quit"},      Answer::quit,         7         },
      {{"x"},         Answer::end_of_input, 7         },
      {{"1e20"},      Answer::ok,           2147483647}
  };
  for (const IntegerCase& c : cases) {
    FakePlatform fake;
    fake.input = c.input;
    int value = 7;
    EXPECT_EQ(ask_integer(fake.Get().console, "n", true, value), c.status);
    EXPECT_EQ(value, c.value);
  }
}

TEST(Prompts, RealKeepsItsValueBehindARoundedDefault) {
  FakePlatform fake;
  fake.input = {"", "1.5D3", "1e39", "BLANK", "0.5"};
  const Platform platform = fake.Get();
  float value = 57.29578F;
  ASSERT_EQ(ask_real(platform.console, "ANGOUT :", true, value), Answer::ok);
  EXPECT_EQ(value, 57.29578F);
  ASSERT_EQ(ask_real(platform.console, "ANGOUT :", true, value), Answer::ok);
  EXPECT_EQ(value, 1500.0F);
  ASSERT_EQ(ask_real(platform.console, "ANGOUT :", false, value), Answer::ok);  // too big, and no number: asked again
  EXPECT_EQ(value, 0.5F);
  EXPECT_EQ(fake.output,
            "ANGOUT : [57.29578]\nANGOUT : [57.29578] 1.5D3\nANGOUT : 1e39\nANGOUT : BLANK\nANGOUT : 0.5\n");
}

TEST(Prompts, Lists) {
  FakePlatform fake;
  fake.input = {"1, 2", "1 -2e1 3 4", ""};
  const Platform platform = fake.Get();
  std::array<float, 3> values{};
  ASSERT_EQ(VINPUT(platform.console, "xyz", false, values), Answer::ok);  // two are too few, the fourth is dropped
  EXPECT_EQ(values, (std::array<float, 3>{1, -20, 3}));
  ASSERT_EQ(VINPUT(platform.console, "xyz", true, values), Answer::ok);
  EXPECT_EQ(values, (std::array<float, 3>{1, -20, 3}));
  EXPECT_EQ(fake.output, "xyz 1, 2\nxyz 1 -2e1 3 4\nxyz [1 -20 3]\n");
  EXPECT_EQ(VINPUT(platform.console, "xyz", true, values), Answer::end_of_input);
}

TEST(Prompts, StepLists) {
  struct ListCase {
    bool offers_all;
    std::deque<std::string> input;
    Answer status;
    std::vector<int> indices;  // of the steps 1 to 9
  };
  const ListCase cases[] = {
      {false, {"3", "5 7", "1 9 4", "0"},        Answer::ok,           {3, 5, 6, 7, 1, 5, 9}      },
      {false, {"-1", "8 12", "2 4 0", "x", "0"}, Answer::ok,           {}                         }, // each asked again
      {true,  {"2", "-1"},                       Answer::ok,           {2, 1, 2, 3, 4, 5, 6, 7, 8, 9}},
      {true,  {"4", "quit"},                     Answer::quit,         {4}                        },
      {true,  {"4"},                             Answer::end_of_input, {4}                        },
      {false, {"1 9 99999999999", "0"},          Answer::ok,           {1}                        },
  };
  for (const ListCase& c : cases) {
    FakePlatform fake;
    fake.input = c.input;
    std::vector<int> indices;
    EXPECT_EQ(ask_step_list(fake.Get().console, c.offers_all, 1, 9, indices), c.status) << c.input.front();
    EXPECT_EQ(indices, c.indices) << c.input.front();
  }
}

TEST(Prompts, PauseGoesOnAtTheEnd) {
  FakePlatform fake;
  pause_for_return(fake.Get().console);
  EXPECT_EQ(fake.output, "Hit RETURN to continue...\n");
}

struct MenuCase {
  std::deque<std::string> input;
  int fallback;
  Answer status;
  int value;                 // -7 where none is chosen
  std::string_view replies;  // behind the listing
};

constexpr MenuItem kItems[] = {
    {" 0 - Exit"},
    {" 1 - One" },
    {" 2 - Two",  false},
    {" 3 - Three"          }
};

TEST(OptionMenu, Choices) {
  const MenuCase cases[] = {
      {{"0.6"},                  -1, Answer::ok,           1,  "Select => 0.6\n"                                              },
      {{"qx"},                   -1, Answer::quit,         -7, "Select => qx\n"                                               },
      {{},                       -1, Answer::end_of_input, -7, "Select =>\n"                                                  },
      {{""},                     3,  Answer::ok,           3,  "Select => [3]\n"                                              },
      {{"", "0"},                -1, Answer::ok,           0,  "Select =>\nInvalid option - please reenter\nSelect => 0\n"    },
      {{"1.5", "3"},             -1, Answer::ok,           3,  "Select => 1.5\nInvalid option - please reenter\nSelect => 3\n"},
      {{"4", "-1", "1e30", "3"},
       -1,
       Answer::ok,
       3,                                                      "Select => 4\nSelection out of range - please reenter\nSelect => -1\nSelection out of range - please reenter\n"
       "Select => 1e30\nSelection out of range - please reenter\nSelect => 3\n"                                      },
  };
  for (const MenuCase& c : cases) {
    FakePlatform fake;
    fake.input = c.input;
    int value = -7;
    EXPECT_EQ(select_option(fake.Get().console, "Title:", "Select =>", kItems, c.fallback, value), c.status);
    EXPECT_EQ(value, c.value);
    EXPECT_EQ(fake.output, "\nTitle:\n 0 - Exit\n 1 - One\n 3 - Three\n" + std::string(c.replies));
  }
}

TEST(OptionMenu, FiveAvailableItemsStandInTwoColumns) {
  const MenuItem items[] = {
      {" 0 - a"},
      {" 1 - b"},
      {" 2 - c", false},
      {" 3 - d"       },
      {" 4 - e"},
      {" 5 - f"       }
  };
  FakePlatform fake;
  int value = 0;
  EXPECT_EQ(select_option(fake.Get().console, "", "Select option=>", items, -1, value), Answer::end_of_input);
  EXPECT_EQ(fake.output, " 0 - a" + std::string(49, ' ') + " 1 - b\n 3 - d" + std::string(49, ' ') +
                             " 4 - e\n 5 - f\nSelect option=>\n");
}

}  // namespace
}  // namespace zaview
