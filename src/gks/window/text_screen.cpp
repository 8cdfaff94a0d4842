#include "gks/window/text_screen.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <fmt/format.h>

#include "base/text.h"
#include "gks/kernel/fonts.h"
#include "gks/kernel/gks_control.h"
#include "gks/kernel/gks_transform.h"
#include "gks/window/gks_window.h"

namespace zaview {

namespace {

constexpr std::size_t kMostLines = 100, kColumns = 256;
constexpr int kLeft = 10, kPitch = 17;  // pixels
constexpr int kHalfPitch = 15;          // of two lines above the middle of the window
constexpr int kBitmapTab = 45, kStrokeTab = 60;
constexpr float kStrokeScale = 0.126F;
constexpr std::string_view kFurtherIn = "        ";  // where a broken line goes on
constexpr GksColour kFallbackColour{0.0F, 1.0F, 0.0F};
constexpr int kEnter = 13, kEscape = 27, kBackspace = 8, kDelete = 127;

int Count(const TextScreen& screen) {
  return static_cast<int>(screen.lines.size());
}

// One line stays for the question, another for its default.
int LinesPerPage(const GksState& gks) {
  const int fallback = gks.screen.fallback.empty() ? 0 : 1;
  return std::max(gks.window.height / kPitch - 1 - fallback, 1);
}

bool Fits(const GksState& gks, std::string_view text) {
  const bool bitmap = gks.window.bitmap_font;
  float width = 0.0F;
  for (const char c : text)
    width += static_cast<float>(gksCharWidth(bitmap ? Font::fixed_9_15 : Font::stroke, static_cast<unsigned char>(c)));
  return width * (bitmap ? 1.0F : kStrokeScale) <= static_cast<float>(gks.window.width - 2 * kLeft);
}

// ---- Drawing

void DrawPiece(const GksState& gks, GksColour colour, int x, int y, std::string_view text) {
  const GksPoint at{static_cast<float>(x), static_cast<float>(y)};
  if (gks.window.bitmap_font) gksDrawBitmapText(gks.paint, colour, at, Font::fixed_9_15, /*upward=*/false, text);
  else gksDrawStrokeText(gks.paint, {colour}, {at, 0.0F, kStrokeScale, 0.0F, 0.0F}, text);
}

// A tab goes on from where the last one was, whatever the text between: columns of one width.
void DrawLine(const GksState& gks, GksColour colour, int y, std::string_view line) {
  const int tab = gks.window.bitmap_font ? kBitmapTab : kStrokeTab;
  int x = kLeft;
  for (std::size_t end = line.find('\t'); end != std::string_view::npos; end = line.find('\t')) {
    DrawPiece(gks, colour, x, y, line.substr(0, end));
    line.remove_prefix(end + 1);
    x += tab;
  }
  DrawPiece(gks, colour, x, y, line);
}

void TurnPage(GksState& gks, int pages) {
  TextScreen& screen = gks.screen;
  const int page = LinesPerPage(gks), first = std::max(screen.first + pages * page, 0);
  if (first < Count(screen)) screen.first = first;
}

// The baseline of the first line shown. The window may have another size than when the page was turned to.
int FirstBaseline(const GksState& gks, TextScreen& screen) {
  const int count = Count(screen), page = LinesPerPage(gks);
  if (count <= page) screen.first = 0;
  screen.last = std::min(screen.first + page, count) - 1;
  return count <= page ? gks.window.height / 2 - kHalfPitch * (count / 2) : kPitch;
}

// Of a line that is too long its end, where the user types.
std::string InputLine(const GksState& gks) {
  const TextScreen& screen = gks.screen;
  const std::string_view between = screen.prompt.empty() || screen.typed.empty() ? "" : " ";
  std::string line = fmt::format("{}{}{}", screen.prompt, between, screen.typed);
  while (line.size() > 1 && !Fits(gks, line)) line.erase(0, 1);
  return line;
}

// Where a line has to be broken for a window of this width: at its last blank that fits. Its own end if it fits, or has
// no such blank, or columns.
std::size_t LineEnd(const GksState& gks, std::string_view line) {
  if (line.find('\t') != std::string_view::npos || Fits(gks, line)) return line.size();
  std::size_t blank = line.rfind(' ');
  while (blank != std::string_view::npos && blank > 0 && !Fits(gks, line.substr(0, blank)))
    blank = line.rfind(' ', blank - 1);
  const std::size_t begin = line.find_first_not_of(' ');
  return blank == std::string_view::npos || blank < begin || blank <= kFurtherIn.size() ? line.size() : blank;
}

// ---- Keys

void Open(const Platform& platform, GksState& gks, ScreenMode mode) {
  TextScreen& screen = gks.screen;
  screen.mode = mode;
  screen.first = 0;
  screen.last = -1;
  screen.prompt.clear();
  screen.fallback.clear();
  screen.typed.clear();
  gksPostRedisplay(platform, gks);
}

// The plot comes back. What was typed, if the answer counts.
std::string Close(GksState& gks) {
  std::string typed = std::move(gks.screen.typed);
  gks.screen = TextScreen{};
  gks.window.force = true;
  if (gks.window.idle_on) gks.platform->window.set_idle(gks.platform->window.self, true);  // it rested meanwhile
  return typed;
}

void Answer(GksState& gks) {
  const std::string typed = Close(gks);
  gks.hooks.screen_input(gks.hooks.self, TrimEnd(typed));
}

void KeyOfPlot(GksState& gks, int key, int x, int y) {
  const GksPoint world = gksToWorld(gks, x, y);
  gks.hooks.keyboard(gks.hooks.self, key, world.x, world.y);
}

bool IsPrintable(int key) {
  return key >= 32 && key <= 126;
}

bool IsTakenBy(ScreenMode mode, int key) {
  constexpr std::string_view kOfInteger = "0123456789 +-", kOfReal = "0123456789 +-.Ee";
  if (!IsPrintable(key)) return false;
  const char c = static_cast<char>(key);
  if (mode == ScreenMode::integer) return kOfInteger.find(c) != std::string_view::npos;
  if (mode == ScreenMode::real) return kOfReal.find(c) != std::string_view::npos;
  return true;
}

void TypeKey(GksState& gks, int key) {
  TextScreen& screen = gks.screen;
  if (key == kBackspace || key == kDelete) {
    if (!screen.typed.empty()) screen.typed.pop_back();
    return;
  }
  if (!IsTakenBy(screen.mode, key) || screen.typed.size() == kColumns) return;
  screen.typed += static_cast<char>(key);
  if (screen.mode == ScreenMode::one_key) Answer(gks);
}

}  // namespace

void gksScreenPrompt(const Platform& platform, GksState& gks, ScreenMode mode, std::string_view prompt,
                     std::string_view fallback) {
  Open(platform, gks, mode);
  gks.screen.prompt = TrimEnd(prompt).substr(0, kColumns);
  gks.screen.fallback = TrimEnd(fallback).substr(0, kColumns);
}

void gksScreenLine(GksState& gks, std::string_view text, int number) {
  std::vector<std::string>& lines = gks.screen.lines;
  if (number == 0) lines.clear();
  std::string rest(TrimEnd(text).substr(0, kColumns));
  for (std::size_t end = LineEnd(gks, rest); end < rest.size() && lines.size() < kMostLines; end = LineEnd(gks, rest)) {
    lines.push_back(rest.substr(0, end));
    rest = std::string(kFurtherIn).append(rest, end + 1);
  }
  if (lines.size() < kMostLines) lines.push_back(std::move(rest));
}

void gksScreenShow(const Platform& platform, GksState& gks) {
  Open(platform, gks, ScreenMode::text);
}

void DrawTextScreen(const Platform& platform, GksState& gks) {
  gksOpenTo(gks, GksLevel::active);
  GCLRWK(gks);
  const GksColour colour = gksIsWhite(gks) ? GksColour{} : GksColour{1.0F, 1.0F, 1.0F};
  TextScreen& screen = gks.screen;
  int y = FirstBaseline(gks, screen);
  for (int i = screen.first; i <= screen.last; ++i, y += kPitch)
    DrawLine(gks, colour, y, screen.lines[static_cast<std::size_t>(i)]);
  DrawLine(gks, colour, y, InputLine(gks));
  if (screen.typed.empty()) DrawLine(gks, kFallbackColour, y + kPitch, screen.fallback);
  GUWK(platform.window, gks);
}

void gksKey(GksState& gks, int key, int x, int y) {
  TextScreen& screen = gks.screen;
  const bool more = screen.first + LinesPerPage(gks) < Count(screen);
  if (screen.mode == ScreenMode::plot) KeyOfPlot(gks, key, x, y);
  else if (key == kKeyPageUp) TurnPage(gks, -1);
  else if (key == kKeyPageDown || (key == kEnter && more)) TurnPage(gks, 1);
  else if (key == kEnter) Answer(gks);
  else if (key == kEscape) {
    screen.typed.clear();
    Answer(gks);
  } else if (screen.mode == ScreenMode::text) {
    static_cast<void>(Close(gks));
    KeyOfPlot(gks, key, x, y);
  } else TypeKey(gks, key);
}

}  // namespace zaview
