// From what the KINO files gave to a case in store. Says nothing.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/rotation.h"
#include "case/case_store.h"
#include "case/kino_motions.h"
#include "geometry/hull.h"
#include "waves/seaway.h"

namespace zaview {

inline constexpr std::string_view kMotionsExtension = ".mot";

struct KinoCase {    // what the files gave, as far as the input has come
  std::string name;  // of the motions file, as opened
  KinoMotions motions;
  Seaway seaway;
  std::string geometry;  // the geometry file as ReadGeometry takes it; blank: none
  Hull hull;             // input lengths
  double g = 0, rho = 0;
  Vector3 reference{}, centre{};
};

enum class KinoBuild : std::uint8_t { ok, no_history_memory, no_memory };

// Makes steps, control data, seaway and hull of a fresh case; takes the last two out of kino. Ship axes are the
// geometry coordinates; the CG is where position + R (centre - reference) has it, over the length of the motions file.
[[nodiscard]] KinoBuild BuildKinoCase(KinoCase& kino, CaseStore& fresh);

}  // namespace zaview
