// Transverse metacentric height of the hull at rest in calm water. Pure.
#pragma once

#include "case/case_store.h"

namespace zaview {

struct UprightAttitude {
  double Z = 0;      // of the centre of gravity, earth axes
  double pitch = 0;  // radians; roll and yaw are 0
};

// GM = (Ixx - Sy^2/Awp)/V + zB - zG, non-dimensional; volume and waterplane of the closed hull in use. False: there is
// no hull, nothing of it is under water, or memory is out.
[[nodiscard]] bool GMTAtDraft(const CaseStore& store, const UprightAttitude& attitude, double& GM);

}  // namespace zaview
