// KINO seaway files: a count of comment lines, the comments, a kind number and its data, dimensional.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/platform.h"
#include "control/control_records.h"
#include "waves/seaway.h"

namespace zaview {

struct KinoSeaUnits {      // of the file
  double g = 9.81, L = 1;  // gravity and reference length
};

// The text of a file for a seaway; `records` tell its definition, and `name` the run's output file. Output units:
// frequency sqrt(g/L), amplitude L. False: memory is out.
[[nodiscard]] bool KINOSE(const ControlRecords& records, const Seaway& seaway, KinoSeaUnits units,
                          std::string_view name, std::string& text);

enum class KinoSeaStatus : std::uint8_t { ok, cannot_open, unchanged, corrupted };  // told, but for cannot_open

// Says "Reading KINO seaway file", the comments and what it found. `unchanged` leaves the seaway alone; `corrupted`
// happens behind the kind: the seaway then is calm. scaling and depth of the seaway stay.
[[nodiscard]] KinoSeaStatus ReadKinoSeaway(const Platform& platform, const std::string& name, KinoSeaUnits units,
                                           Seaway& seaway);

}  // namespace zaview
