// Letters of menus. Text is UTF-8 where it is valid, else Latin-1; the fonts have Latin-1.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/window_system.h"

namespace zaview {

struct MenuFont {
  Font font = Font::sans_12;
  int height = 12, width = 8, pitch = 18, cap = 9;  // pixels: of a letter, of a column, from line to line; of a capital
};

inline constexpr int kLeastFont = 1, kMostFont = 3;
[[nodiscard]] const MenuFont& MenuFontOf(int step);  // 1 to 3

[[nodiscard]] std::string ScreenText(std::string_view text);  // as the fonts have it; ? for what they haven't got
[[nodiscard]] int MenuTextWidth(const MenuFont& font, std::string_view text);  // pixels
[[nodiscard]] int LettersWidth(const MenuFont& font,
                               std::string_view letters);  // pixels, of a text as the fonts have it
[[nodiscard]] std::size_t LettersWithin(const MenuFont& font, std::string_view letters, int width);  // how many of them
// As many letters from the beginning as fit into so many pixels, with .. at the end if some don't.
[[nodiscard]] std::string FittingText(const MenuFont& font, std::string_view text, int width);

// Places between letters: the one behind or ahead of a place.
[[nodiscard]] std::size_t NextLetter(std::string_view text, std::size_t at);
[[nodiscard]] std::size_t LetterBefore(std::string_view text, std::size_t at);

}  // namespace zaview
