// KINO seaway files: a count of comment lines, the comments, a kind number and its data (free format, dimensional,
// phases and headings in degrees), then closing lines for whoever reads the file.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/platform.h"
#include "control/control_records.h"
#include "waves/seaway.h"

namespace zaview {

// The kind number, and the data behind it.
enum class KinoSeaKind : int {
  calm = 0,           // none
  regular = 1,        // one linear wave: frequency, phase, amplitude, heading
  stokes = 2,         // order, then as 1 with the nominal frequency
  superposition = 3,  // n, then n rows as 1
  grid = 4,           // n1 n2, then n1 n2 rows KX KY amplitude phase frequency heading
  second_order = -1,  // of one heading: n, heading, then n rows amplitude phase frequency
};

// Closing lines that begin with these words make the seaway, too: depth; time and factor in pairs.
inline constexpr std::string_view kKinoDepthOption = "-depth";
inline constexpr std::string_view kKinoScaleOption = "-wave_scale";

struct KinoSeaUnits {      // of the file
  double g = 9.81, L = 1;  // gravity and reference length
};

struct KinoSeaForm {                  // of a seaway that was made from the one of a run
  std::vector<std::string> comments;  // behind those that tell the seaway
  bool always_a_list = false;         // kind 3 for a single component as well
};

// The text of a file for a seaway; `records` tell its definition, and `name` the run's output file. Output units:
// frequency sqrt(g/L), amplitude L. False: memory is out.
[[nodiscard]] bool KINOSE(const ControlRecords& records, const Seaway& seaway, KinoSeaUnits units,
                          std::string_view name, std::string& text, const KinoSeaForm& form = {});

enum class KinoSeaStatus : std::uint8_t { ok, cannot_open, unchanged, corrupted };  // told, but for cannot_open

// Says "Reading KINO seaway file", the comments and what it found. `unchanged` leaves the seaway alone; `corrupted`
// happens behind the kind: the seaway then is calm. Depth and wave scaling are those of the closing lines (told): deep
// and none where the file has no such line; step i of the scaling is at time i - 1.
[[nodiscard]] KinoSeaStatus ReadKinoSeaway(const Platform& platform, const std::string& name, KinoSeaUnits units,
                                           Seaway& seaway);

}  // namespace zaview
