#include "base/list_read.h"

#include <algorithm>
#include <cstddef>

#include "base/list_item.h"
#include "base/number_parse.h"
#include "base/text.h"

namespace zaview {

bool BeginsNumber(std::string_view token) {
  RepeatedItem item;
  if (!SplitRepeat(token, item)) return false;
  if (item.null) return true;
  if (item.value.empty()) return false;
  std::string_view body = item.value;
  const auto ends_in = [&body](std::string_view set) { return !body.empty() && set.find(body.back()) != set.npos; };
  const bool sign_cut = ends_in("+-");
  if (sign_cut) body.remove_suffix(1);
  const bool letter_cut = ends_in("eEdD");
  if (letter_cut) body.remove_suffix(1);
  if (body.empty()) return sign_cut && !letter_cut;  // a sign alone
  const std::size_t sign = body.front() == '+' || body.front() == '-' ? 1 : 0;
  const std::string_view unsigned_body = body.substr(sign);
  if (unsigned_body.empty()) return false;
  if (sign_cut || letter_cut) {
    double ignored = 0;
    return unsigned_body.find_first_of("eEdD+-nN") == std::string_view::npos && ParseDouble(body, ignored);
  }
  if (unsigned_body == ".") return true;
  constexpr std::size_t kLongestWord = 8;
  if (unsigned_body.size() > kLongestWord) return false;
  const std::string word = Capitals(unsigned_body);
  return StartsWith("NAN", word) || StartsWith("INFINITY", word);
}

namespace {

// Where a list stands between its lines.
template <typename Item>
struct ItemList {
  std::span<Item> items;
  std::size_t given = 0;
  bool comma = true;  // a comma here stands for a null item
  [[nodiscard]] bool full() const { return given == items.size(); }
};

[[nodiscard]] bool Store(std::string_view text, double& value) {
  return ParseDouble(text, value);
}
[[nodiscard]] bool Store(std::string_view text, int& value) {
  return ParseInteger(text, value);
}
[[nodiscard]] bool Store(std::string_view text, const ListItem& item) {
  return std::visit([text](auto* value) { return Store(text, *value); }, item);
}

template <typename Item>
[[nodiscard]] bool TakeToken(std::string_view token, ItemList<Item>& list) {
  RepeatedItem item;
  if (!SplitRepeat(token, item)) return false;
  const std::size_t n = static_cast<std::size_t>(std::min<std::uint64_t>(item.repeat, list.items.size() - list.given));
  for (std::size_t i = 0; i < n; ++i, ++list.given)
    if (!item.null && !Store(item.value, list.items[list.given])) return false;
  list.comma = false;
  return true;
}

// The items of one line. False: something is no number.
template <typename Item>
[[nodiscard]] bool TakeLine(std::string_view line, ItemList<Item>& list) {
  std::size_t i = 0;
  while (i < line.size() && !list.full()) {
    const char c = line[i];
    if (c == '/') {
      list.given = list.items.size();
    } else if (c == ',') {
      if (list.comma) ++list.given;
      list.comma = true;
    } else if (!EndsItem(c)) {
      const auto end = std::find_if(line.begin() + static_cast<std::ptrdiff_t>(i), line.end(), EndsItem);
      const auto behind = static_cast<std::size_t>(end - line.begin());
      if (!TakeToken(line.substr(i, behind - i), list)) return false;
      i = behind;
      continue;
    }
    ++i;
  }
  return true;
}

template <typename Item>
[[nodiscard]] ListStatus ReadItems(const ListLines& lines, std::span<Item> items) {
  ItemList<Item> list{items};
  while (!list.full()) {
    std::string_view line;
    const ListLines::Next next = lines.next(lines.self, line);
    if (next == ListLines::Next::end_of_file) return ListStatus::end_of_file;
    if (next == ListLines::Next::stop || !TakeLine(line, list)) return ListStatus::error;
  }
  return ListStatus::ok;
}

}  // namespace

ListStatus ReadList(const ListLines& lines, std::span<const ListItem> items) {
  return ReadItems(lines, items);
}

ListStatus ReadReals(const ListLines& lines, std::span<double> values) {
  return ReadItems(lines, values);
}

ListStatus ReadIntegers(const ListLines& lines, std::span<int> values) {
  return ReadItems(lines, values);
}

}  // namespace zaview
