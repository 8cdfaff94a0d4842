// List-directed reading of text: items apart by blanks, tabs, line ends or one comma; `r*c` repeats, null items keep
// what they held, `/` ends the list. A list begins on a new line and drops what is left on its last line.
// Two readers share these rules: ReadList for headers (any mix of items, doubles) and, for the histories, the block
// scanner of real_scan.h.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <variant>

namespace zaview {

enum class ListStatus : std::uint8_t { ok, end_of_file, error };

// Where lines come from. A line that belongs to something else (a delimiter) is given as stop.
struct ListLines {
  void* self = nullptr;
  enum class Next : std::uint8_t { line, end_of_file, stop };
  Next (*next)(void* self, std::string_view& line) = nullptr;
};

using ListItem = std::variant<int*, double*>;  // integer items take reals whose value is whole

// Reads items.size() items. stop ahead of the last item is an error, the end of the file is end_of_file.
[[nodiscard]] ListStatus ReadList(const ListLines& lines, std::span<const ListItem> items);
[[nodiscard]] ListStatus ReadReals(const ListLines& lines, std::span<double> values);
[[nodiscard]] ListStatus ReadIntegers(const ListLines& lines, std::span<int> values);

}  // namespace zaview
