// How the making of shown data, or of a table of them, ends, and what is said of it.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "base/grow.h"
#include "base/message.h"

namespace zaview {

enum class DataFault : std::uint8_t {
  none,
  said,       // the message has been said
  not_valid,  // no such quantity or curve, or no data for it in this file
  no_wave,    // the incident wave can't be had; it has been said why
  no_memory
};

// Memory is out, and nothing tells for what.
inline constexpr std::string_view kNoMemoryLeft = "ERROR allocating memory";
inline constexpr std::string_view kReportNoMemory = "ERROR allocating memory - please report this to ZAVO developers";

// What was to be made: each names a fault in words of its own.
enum class Making : std::uint8_t { history, table, plot_table, plot };

// Says why, unless it was said; quantity: its name, for a plot its number. False: there is a fault.
[[nodiscard]] bool SayDataFault(const Console& console, DataFault fault, Making making, std::string_view quantity);

// What make() returns; said, in the words of no_memory, when memory is out on the way.
template <typename Make>
[[nodiscard]] DataFault MakeOrSay(const Console& console, std::string_view no_memory, Make make) {
  const auto fault = Guarded([&] { return std::optional(make()); }, std::nullopt);
  if (!fault) SayLine(console, no_memory);
  return fault.value_or(DataFault::said);
}

}  // namespace zaview
