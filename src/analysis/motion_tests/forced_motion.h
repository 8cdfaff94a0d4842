// Added mass and damping of a run with prescribed harmonic heave and pitch, and what the fit makes of the force.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "analysis/motion_tests/force_fit.h"
#include "analysis/result_plot.h"
#include "base/platform.h"
#include "case/case_store.h"
#include "case/output_settings.h"

namespace zaview {

struct FittedMode {
  int mode = 3;             // 3 or 5
  std::vector<float> a, v;  // acceleration and velocity, ship axes, over the steps that were taken
  std::vector<double> F;    // hydrodynamic force or moment, ship axes
  ForceFit fit;             // all non-dimensional
};

struct ForcedMotionResult {
  std::vector<float> time;  // non-dimensional
  std::vector<FittedMode> modes;
};

struct ForcedMotionWork {
  const Platform& platform;
  const OutputSettings& settings;
  CaseStore& store;
};

// Fits the force over the steps first_step + skip .. last_step - terminal skip, and writes the coefficients, the
// histories of the force, and its terms to adm.dbg and dmp.dbg: all four, or none. Blank names: the console. False:
// told (the motions are forced in other modes than heave and pitch, there are too few steps, a file can't be had).
[[nodiscard]] bool WriteForcedMotion(const ForcedMotionWork& work, std::string_view coefficients,
                                     std::string_view forces, ForcedMotionResult& result);

// Force and fit, a panel a mode; output units and signs.
[[nodiscard]] ResultPlot ForcedMotionPlot(const ForcedMotionWork& work, const ForcedMotionResult& result);

}  // namespace zaview
