#include "gks/window/text_screen.h"

#include <string>
#include <vector>

#include "unit/gks/view_window.h"

namespace zaview {
namespace {

constexpr int kEnter = 13, kEscape = 27, kBackspace = 8, kDelete = 127;

TEST(TextScreen, TakesWhatItsModeAllows) {
  using enum ScreenMode;
  // clang-format off
  const struct { ScreenMode mode; std::vector<int> keys; const char *told, *typed; bool open; } cases[] = {  // open: still
      {free, {'a', ' ', 'q', kKeyLeft, 5, 200}, "", "a q", true},
      {free, {'a', 'b', ' ', kEnter}, "answer 'ab'; ", "", false}, {free, {kEnter}, "answer ''; ", "", false},
      {free, {'a', kEscape}, "answer ''; ", "", false},
      {free, {kDelete, 'a', 'b', kBackspace, 'c', kDelete}, "", "a", true},
      {integer, {'-', '1', '.', 'e', '2', '+', ' ', 'x'}, "", "-12+ ", true},
      {real, {'-', '1', '.', 'e', '2', 'E', 'x', kEnter}, "answer '-1.e2E'; ", "", false},
      {one_key, {kKeyF1, kKeyPageUp, 'y', 'z'}, "answer 'y'; key 122; ", "", false},
      {text, {'q', 'x'}, "key 113; key 120; ", "", false}, {text, {kBackspace}, "key 8; ", "", false},
      {text, {kKeyLeft}, "key 65361; ", "", false},
      {text, {kKeyPageDown, kKeyPageUp, kEscape}, "answer ''; ", "", false}, {text, {kEnter}, "answer ''; ", "", false},
      {plot, {kEnter, kEscape}, "key 13; key 27; ", "", false},
  };
  // clang-format on
  for (const auto& c : cases) {
    Drawing d(500, 400);
    std::string told;
    d.gks.hooks.self = &told;
    d.gks.hooks.keyboard = [](void* self, int key, float, float) {
      *static_cast<std::string*>(self) += fmt::format("key {}; ", key);
    };
    d.gks.hooks.screen_input = [](void* self, std::string_view text) {
      *static_cast<std::string*>(self) += fmt::format("answer '{}'; ", text);
    };
    gksScreenLine(d.gks, "old", 0);
    gksScreenLine(d.gks, "one", 0);
    if (c.mode == text) gksScreenShow(d.platform, d.gks);
    else if (c.mode != plot) gksScreenPrompt(d.platform, d.gks, c.mode, "?", "none");
    for (const int key : c.keys) gksKey(d.gks, key, 0, 0);
    EXPECT_EQ(told, c.told);
    EXPECT_EQ(d.gks.screen.typed, c.typed) << c.told;
    EXPECT_EQ(d.gks.screen.mode != plot, c.open) << c.told;
    EXPECT_EQ(d.gks.screen.lines.size(), c.open || c.mode == plot ? 1U : 0U) << c.told;
  }
}

TEST(TextScreen, KeepsAHundredLinesAndAsManyColumnsAsItHas) {
  Drawing d(500, 400);
  for (int i = 0; i < 120; ++i) gksScreenLine(d.gks, std::string(300, 'x') + " \t", i);
  gksScreenPrompt(d.platform, d.gks, ScreenMode::free, "?", "");
  for (int i = 0; i < 300; ++i) gksKey(d.gks, 'y', 0, 0);
  EXPECT_EQ(d.gks.screen.lines.size(), 100U);
  EXPECT_EQ(d.gks.screen.lines[0].size(), 256U);
  EXPECT_EQ(d.gks.screen.typed.size(), 256U);
  DrawTextScreen(d.platform, d.gks);
  EXPECT_GT(d.Lit().count, 1000);
}

// 200 pixels have room for 20 letters.
TEST(TextScreen, BreaksLongLinesAtBlanks) {
  Drawing d(200, 200);
  gksScreenLine(d.gks, " w      Write the data of the plot", 0);
  gksScreenLine(d.gks, "twenty letters, fits", 1);
  gksScreenLine(d.gks, "a_word_that_is_longer_than_the_window", 2);
  const std::vector<std::string> lines = {" w      Write the", "        data of the", "        plot",
                                          "twenty letters, fits", "a_word_that_is_longer_than_the_window"};
  EXPECT_EQ(d.gks.screen.lines, lines);
}

// Drawn letters are of many widths, most wider than those of pixels: no line runs off the edge.
TEST(TextScreen, BreaksLinesOfDrawnLetters) {
  Drawing d(300, 200);
  d.gks.window.bitmap_font = false;
  for (int i = 0; i < 4; ++i) gksScreenLine(d.gks, "MMMM WWWW MMMM WWWW MMMM WWWW mmmm", i);
  gksScreenShow(d.platform, d.gks);
  DrawTextScreen(d.platform, d.gks);
  EXPECT_LT(d.Lit().right, 292);
}

// 170 pixels: 9 lines a page.
TEST(TextScreen, PagesAheadOfTheAnswer) {
  const struct {
    int key, first, last;
  } steps[] = {
      {0, 0, 8},           {kKeyPageUp, 0, 8}, {kEnter, 9, 17},  {kKeyPageDown, 18, 19}, {kKeyPageDown, 18, 19},
      {kKeyPageUp, 9, 17}, {'a', 9, 17},       {kEnter, 18, 19},
  };
  Drawing d(300, 170);
  std::string answer = "none";
  d.gks.hooks.self = &answer;
  d.gks.hooks.screen_input = [](void* self, std::string_view text) { *static_cast<std::string*>(self) = text; };
  for (int i = 0; i < 20; ++i) gksScreenLine(d.gks, "line", i);
  gksScreenPrompt(d.platform, d.gks, ScreenMode::free, "?", "");
  for (const auto& step : steps) {
    if (step.key != 0) gksKey(d.gks, step.key, 0, 0);
    DrawTextScreen(d.platform, d.gks);
    EXPECT_EQ(d.gks.screen.first, step.first);
    EXPECT_EQ(d.gks.screen.last, step.last);
    EXPECT_EQ(answer, "none");
  }
  const Box box = d.Lit();  // two lines of the page at 17, then the question
  EXPECT_NEAR(box.top, 17 - 10, 2);
  EXPECT_NEAR(box.bottom, 3 * 17, 4);
  gksKey(d.gks, kEnter, 0, 0);
  EXPECT_EQ(answer, "a");
  d.gks.window.height = 10;  // not even a line
  for (int i = 0; i < 20; ++i) gksScreenLine(d.gks, "line", i);
  gksScreenShow(d.platform, d.gks);
  DrawTextScreen(d.platform, d.gks);
  EXPECT_EQ(d.gks.screen.last, 0);
}

TEST(TextScreen, StandsInTheMiddleWithItsQuestionBelow) {
  for (const bool bitmap : {true, false}) {
    Drawing d(400, 300);
    d.gks.window.bitmap_font = bitmap;
    const auto lit = [&] {
      DrawTextScreen(d.platform, d.gks);
      return d.Lit();
    };
    for (int i = 0; i < 4; ++i) gksScreenLine(d.gks, i == 0 ? "H\tH\t\tH" : "", i);
    gksScreenShow(d.platform, d.gks);
    const Box line = lit();  // baseline 300/2 - 15 * 2
    EXPECT_NEAR(line.bottom, 120, 2);
    EXPECT_NEAR(line.height(), bitmap ? 10 : 13, 3);
    const int tab = bitmap ? 45 : 60;
    EXPECT_NEAR(line.left, 10, 3);
    EXPECT_NEAR(line.right, 10 + 3 * tab + 9, 4);

    gksScreenLine(d.gks, "", 0);
    gksScreenPrompt(d.platform, d.gks, ScreenMode::free, "H", "H");
    Box box = lit();  // the question at 150 + 17, green below
    EXPECT_NEAR(box.top, 150 + 17 - 11, 3);
    EXPECT_NEAR(box.bottom, 150 + 2 * 17, 2);
    EXPECT_EQ(d.At(box.left, box.bottom) | d.At(box.left + 1, box.bottom - 3), 0x00FF00U);
    gksKey(d.gks, 'H', 0, 0);
    box = lit();  // behind the question, after a blank; the default is gone
    EXPECT_NEAR(box.bottom, 150 + 17, 2);
    EXPECT_NEAR(box.right, bitmap ? 10 + 3 * 9 : 10 + 2 * 11 + 13, bitmap ? 2 : 6);
    gksSetReverse(d.gks, true);
    lit();
    EXPECT_EQ(d.At(0, 0), 0xFFFFFFU);
    EXPECT_EQ(d.At(box.left, box.bottom - 3) & d.At(box.left + 1, box.bottom - 3), 0U);
  }
}

}  // namespace
}  // namespace zaview
