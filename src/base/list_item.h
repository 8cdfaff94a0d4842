// One item of a list as text, for the two readers of lists.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace zaview {

// Items longer than this are no numbers: so one item never has to be kept beyond a block of its file.
inline constexpr std::size_t kLongestItem = 1'000'000;

[[nodiscard]] inline bool EndsItem(char c) {
  return c == ' ' || c == '\n' || c == '\t' || c == '\r' || c == ',' || c == '/';
}

struct RepeatedItem {
  std::uint64_t repeat = 1;  // limited to kManyItems
  bool null = false;         // r*
  std::string_view value;
};
inline constexpr std::uint64_t kManyItems = 1'000'000'000'000;  // more than any list holds

// Takes r*c apart; a token without a star is once itself. False: r is no unsigned integer above 0.
[[nodiscard]] inline bool SplitRepeat(std::string_view token, RepeatedItem& item) {
  const std::size_t star = token.find('*');
  item = {1, false, token};
  if (star == std::string_view::npos) return true;
  std::uint64_t repeat = 0;
  for (const char c : token.substr(0, star)) {
    if (c < '0' || c > '9') return false;
    repeat = std::min(repeat * 10 + static_cast<std::uint64_t>(c - '0'), kManyItems);
  }
  item = {repeat, star + 1 == token.size(), token.substr(star + 1)};
  return repeat > 0;
}

// Whether the token could be a number that was cut short: "-", "1.5E-", "Inf" of "Infinity", "12*-".
[[nodiscard]] bool BeginsNumber(std::string_view token);

}  // namespace zaview
