// KINO motions files: a comment line, a reference length, then time, position and rotations of each step.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "base/platform.h"

namespace zaview {

struct KinoMotions {    // in the units of the file
  std::string comment;  // at most 80 columns
  double length = 1;    // reference length; 1 where the file has none above 0
  // Time, x y z of the reference point, rotations about X, Y, Z in degrees; a column each, as many as steps.
  std::array<std::vector<double>, 7> column;
  [[nodiscard]] std::size_t steps() const { return column[0].size(); }
};

enum class MotionsFault : std::uint8_t { none, no_steps, not_increasing, out_of_memory, read_error };

// Reads an open file. A blank line, the end of the file (inside a step as well) and a line that is no numbers end the
// list; the whole steps ahead of it count. Times must rise in 4 bytes, as they are stored.
[[nodiscard]] MotionsFault ReadKinoMotions(const Files& files, FileHandle file, KinoMotions& motions);

// Appends a line of the file: nine digits, enough for any 4-byte value.
void AppendKinoStep(std::string& text, const std::array<double, 7>& step);

}  // namespace zaview
