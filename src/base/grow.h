// Arrays grow through this one place, so that no bad_alloc crosses a border.
#pragma once

#include <cstddef>
#include <new>
#include <stdexcept>
#include <type_traits>
#include <vector>

namespace zaview {

// What work() returns; if_out when memory is out on the way. For work that lets many things grow.
template <typename Work>
[[nodiscard]] std::invoke_result_t<Work> Guarded(Work work, std::invoke_result_t<Work> if_out) {
  try {
    return work();
  } catch (const std::bad_alloc&) {
    return if_out;
  } catch (const std::length_error&) {
    return if_out;
  }
}

// v.resize(n); false (v unchanged) when memory is out.
template <typename T>
[[nodiscard]] bool Grow(std::vector<T>& v, std::size_t n) {
  return Guarded([&] { return v.resize(n), true; }, false);
}

// v.reserve(n) in the same way.
template <typename T>
[[nodiscard]] bool Reserve(std::vector<T>& v, std::size_t n) {
  return Guarded([&] { return v.reserve(n), true; }, false);
}

}  // namespace zaview
