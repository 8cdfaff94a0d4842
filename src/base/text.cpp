#include "base/text.h"

namespace zaview {

namespace {

constexpr std::string_view kWhite = " \t\r";

}  // namespace

bool IsWhite(char c) {
  return kWhite.find(c) != std::string_view::npos;
}

std::string_view TrimEnd(std::string_view text) {
  const std::size_t last = text.find_last_not_of(kWhite);
  return last == std::string_view::npos ? std::string_view() : text.substr(0, last + 1);
}

std::string_view TrimStart(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kWhite);
  return first == std::string_view::npos ? std::string_view() : text.substr(first);
}

std::string_view Trim(std::string_view text) {
  return TrimStart(TrimEnd(text));
}

bool IsBlank(std::string_view text) {
  return text.find_first_not_of(kWhite) == std::string_view::npos;
}

std::string Capitals(std::string_view text) {
  std::string capitals(text);
  for (char& c : capitals)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  return capitals;
}

bool StartsWith(std::string_view text, std::string_view beginning) {
  return text.substr(0, beginning.size()) == beginning;
}

bool Contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

std::string_view CutAtLetter(std::string_view text, std::size_t most) {
  if (text.size() <= most) return text;
  const auto goes_on = [&](std::size_t at) { return (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80U; };
  std::size_t end = most;
  while (end > 0 && goes_on(end)) --end;
  return text.substr(0, end);
}

}  // namespace zaview
