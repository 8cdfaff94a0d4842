// A history: one contiguous column of 4-byte reals for each component, over the steps first .. first + count - 1.
// Components and steps count from 1, as in the files; only the accessors subtract.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace zaview {

struct StepHistory {
  int first = 1;  // the step of the first value of each column
  std::vector<std::vector<float>> component;

  [[nodiscard]] float at(int i, int step) const {
    return component[static_cast<std::size_t>(i - 1)][static_cast<std::size_t>(step - first)];
  }
  [[nodiscard]] std::span<const float> range(int i, int from, int to) const {  // both ends included
    return std::span<const float>(component[static_cast<std::size_t>(i - 1)])
        .subspan(static_cast<std::size_t>(from - first), static_cast<std::size_t>(to - from + 1));
  }
  [[nodiscard]] int components() const { return static_cast<int>(component.size()); }
};

}  // namespace zaview
