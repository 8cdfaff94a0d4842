// A crane on the ship of a case, with its cargo, through the steps in use. All non-dimensional, angles in radians.
#pragma once

#include <span>
#include <vector>

#include "analysis/crane/cargo_motion.h"
#include "analysis/crane/crane_input.h"
#include "base/platform.h"
#include "case/case_store.h"
#include "geometry/hull.h"

namespace zaview {

struct CraneRun {
  CraneModel model;
  Hull cargo;                // about the point where the cables end, cargo axes; empty: none is wanted
  CraneSnapshot start;       // at the first step
  Vector3 start_velocity{};  // of the point where the cables end
  int first_step = 1;
  std::vector<float> time;           // a step each
  std::vector<CraneSnapshot> steps;  // none: not simulated
};

// The model on this ship at the first of its steps, and the geometry of its cargo, which lies beside the file `name` of
// the model. False: told.
[[nodiscard]] bool PrepareCrane(const Platform& platform, const CraneInput& input, std::string_view name,
                                const CaseStore& store, CraneRun& run);
// The steps. Told, if it isn't none.
[[nodiscard]] CraneFault SimulateCrane(const Platform& platform, const CaseStore& store, CraneRun& run);

}  // namespace zaview
