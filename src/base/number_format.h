// How numbers are printed: table cells, sentences, defaults of prompts. -0 prints as 0. What is no finite number never
// shows, here or elsewhere: programs that read our tables stop at it.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include <fmt/format.h>

namespace zaview {

inline constexpr int kCellWidth = 13;  // columns of a table cell; every 4-byte value fits

// What is shown in place of a value: 0 for NaN, the largest number of its sign for an infinity.
[[nodiscard]] float Finite(float value);
[[nodiscard]] double Finite(double value);

// A table cell without padding: 7 significant digits ("9.810000", "-1.659560E-05", "1234567.0").
void AppendCell(std::string& out, float value);

// The same right-justified in `width` columns.
void AppendPaddedCell(std::string& out, float value, int width = kCellWidth);

// A number in a sentence or behind a label: at most 7 significant digits, no trailing zeros ("9.81", "1e-30").
std::string SentenceNumber(float value);

// The shortest text that reads back to the same value: the default of a prompt.
std::string DefaultNumber(float value);

// For messages: Say(console, "  time= {} at step {}", Shown{t}, step).
struct Shown {
  float value;
};
[[nodiscard]] inline Shown ShownOf(double value) {
  return {static_cast<float>(value)};
}

}  // namespace zaview

// Takes no format of its own: "{}" alone.
template <>
struct fmt::formatter<zaview::Shown> {
  constexpr auto parse(fmt::format_parse_context& context) { return context.begin(); }
  template <typename Context>
  auto format(zaview::Shown number, Context& context) const {
    const std::string text = zaview::SentenceNumber(number.value);
    return std::copy(text.begin(), text.end(), context.out());
  }
};
