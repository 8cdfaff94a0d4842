// Work that says why it failed, but for memory that is out on the way.
#pragma once

#include <string_view>

#include "base/grow.h"
#include "base/message.h"

namespace zaview {

// What work() answers: true, or false when it has said why not. Memory is out: no_memory is said; false.
template <typename Work>
[[nodiscard]] bool DoOrSay(const Console& console, std::string_view no_memory, Work work) {
  enum class End : unsigned char { failed, no_memory, done };
  const End end = Guarded([&] { return work() ? End::done : End::failed; }, End::no_memory);
  if (end == End::no_memory) SayLine(console, no_memory);
  return end == End::done;
}

}  // namespace zaview
