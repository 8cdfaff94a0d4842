// Text without a ship: trimming, capitals, comparing. ASCII only; blanks, tabs and carriage returns are white.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zaview {

[[nodiscard]] bool IsWhite(char c);  // blank, tab, carriage return
[[nodiscard]] std::string_view TrimEnd(std::string_view text);
[[nodiscard]] std::string_view TrimStart(std::string_view text);
[[nodiscard]] std::string_view Trim(std::string_view text);
[[nodiscard]] bool IsBlank(std::string_view text);
[[nodiscard]] std::string Capitals(std::string_view text);
[[nodiscard]] bool StartsWith(std::string_view text, std::string_view beginning);
// The first bytes, at most so many, without a part of a letter of UTF-8 at their end.
[[nodiscard]] std::string_view CutAtLetter(std::string_view text, std::size_t most);
[[nodiscard]] bool Contains(std::string_view text, std::string_view part);

}  // namespace zaview
