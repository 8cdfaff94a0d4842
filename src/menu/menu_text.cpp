#include "menu/menu_text.h"

#include <algorithm>

#include "gks/kernel/fonts.h"

namespace zaview {

namespace {

constexpr MenuFont kFonts[] = {
    {Font::sans_10, 10, 7, 15, 7}, {Font::sans_12, 12, 8, 18, 9}, {Font::mono_13, 13, 9, 19, 9}};

bool Continues(char c) {
  return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

// Bytes of the letter at a place: 1 for what is no UTF-8.
std::size_t LetterLength(std::string_view text, std::size_t at) {
  const auto first = static_cast<unsigned char>(text[at]);
  const std::size_t length = first >= 0xF0U ? 4 : first >= 0xE0U ? 3 : first >= 0xC2U ? 2 : 1;
  if (first >= 0xF5U || at + length > text.size()) return 1;
  for (std::size_t i = 1; i < length; ++i)
    if (!Continues(text[at + i])) return 1;
  return length;
}

}  // namespace

const MenuFont& MenuFontOf(int step) {
  return kFonts[std::clamp(step, kLeastFont, kMostFont) - 1];
}

std::string ScreenText(std::string_view text) {
  std::string out;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = LetterLength(text, at);
    const unsigned first = static_cast<unsigned char>(text[at]);
    if (length == 1) out += text[at];
    else if (length == 2 && first <= 0xC3U)
      out += static_cast<char>((first & 0x3U) << 6U | (static_cast<unsigned char>(text[at + 1]) & 0x3FU));
    else out += '?';
    at += length;
  }
  return out;
}

int LettersWidth(const MenuFont& font, std::string_view letters) {
  int width = 0;
  for (const char c : letters) width += gksCharWidth(font.font, static_cast<unsigned char>(c));
  return width;
}

std::size_t LettersWithin(const MenuFont& font, std::string_view letters, int width) {
  std::size_t count = 0;
  for (; count < letters.size(); ++count) {
    width -= gksCharWidth(font.font, static_cast<unsigned char>(letters[count]));
    if (width < 0) break;
  }
  return count;
}

int MenuTextWidth(const MenuFont& font, std::string_view text) {
  return LettersWidth(font, ScreenText(text));
}

std::string FittingText(const MenuFont& font, std::string_view text, int width) {
  constexpr std::string_view kMore = "..";
  std::string shown = ScreenText(text);
  if (LettersWidth(font, shown) <= width) return shown;
  shown.resize(LettersWithin(font, shown, width - LettersWidth(font, kMore)));
  return shown.append(kMore);
}

std::size_t NextLetter(std::string_view text, std::size_t at) {
  return at >= text.size() ? text.size() : at + LetterLength(text, at);
}

std::size_t LetterBefore(std::string_view text, std::size_t at) {
  std::size_t before = 0;
  for (std::size_t next = 0; next < at; next = NextLetter(text, next)) before = next;
  return before;
}

}  // namespace zaview
