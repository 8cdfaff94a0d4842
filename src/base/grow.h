// Arrays grow through this one place, so that no bad_alloc crosses a border.
#pragma once

#include <cstddef>
#include <new>
#include <stdexcept>
#include <vector>

namespace zaview {

// v.resize(n); false (v unchanged) when memory is out.
template <typename T>
[[nodiscard]] bool Grow(std::vector<T>& v, std::size_t n) {
  try {
    v.resize(n);
  } catch (const std::bad_alloc&) {
    return false;
  } catch (const std::length_error&) {
    return false;
  }
  return true;
}

// v.reserve(n) in the same way.
template <typename T>
[[nodiscard]] bool Reserve(std::vector<T>& v, std::size_t n) {
  try {
    v.reserve(n);
  } catch (const std::bad_alloc&) {
    return false;
  } catch (const std::length_error&) {
    return false;
  }
  return true;
}

}  // namespace zaview
