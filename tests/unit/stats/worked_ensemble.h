// The worked ensemble: records 1, none, 3 and 4, at t = 0, 0.5, ..
#pragma once

#include <array>
#include <span>
#include <vector>

#include "worked_records.h"

namespace zaview {

inline std::span<const std::span<const float>> WorkedEnsemble() {
  static const std::array<std::span<const float>, 4> records = {WorkedRecord(1), std::span<const float>{},
                                                                WorkedRecord(3), WorkedRecord(4)};
  return records;
}

inline std::vector<std::span<const float>> ViewsOf(const std::vector<std::vector<float>>& records) {
  return {records.begin(), records.end()};
}

}  // namespace zaview
