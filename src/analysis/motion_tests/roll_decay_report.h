// Roll decay coefficients of a run, the roll period, and the added mass that follows from it.
#pragma once

#include <vector>

#include "analysis/motion_tests/roll_decay.h"
#include "analysis/result_plot.h"
#include "base/data_fault.h"
#include "base/platform.h"
#include "case/case_store.h"
#include "case/output_settings.h"
#include "frame/ground/output_file.h"

namespace zaview {

// A free run in calm water that starts with a roll angle or a roll rate. Motions from KINO files have no such records:
// theirs is one that is rolled in its first two steps.
[[nodiscard]] bool IsRollDecay(const CaseStore& store);

struct RollInertia {  // dimensional
  double GMT = 0;
  double total = 0, Ixx = 0, A44 = 0;                // total = W GMT / w^2, w of the smallest cycles; A44 = total - Ixx
  double of_Ixx = 0, of_rho_L5 = 0, of_mass_L2 = 0;  // A44 over these
};

struct RollDecayResult {
  bool bias = false;
  std::vector<float> time, roll;  // output time, degrees, over the steps in use
  std::vector<RollPeak> peaks;
  std::vector<RollCycle> cycles;
  RollPeriods periods;
  bool has_inertia = false;
  RollInertia inertia;
};

struct RollDecayWork {
  const Platform& platform;
  const OutputSettings& settings;
  CaseStore& store;
};

// The table and the report behind it. Angles in degrees, always in ZAVO axes. The hull is read if it wasn't. said: too
// few peaks, or memory is out; an estimate of the added mass that can't be made is left out, which is said too.
[[nodiscard]] DataFault WriteRollDecay(const RollDecayWork& work, bool bias, OutputFile& out, RollDecayResult& result);

// The two lines that are said of a file that was written, but for its name.
[[nodiscard]] std::string RollDecayWritten(const CaseStore& store);

// The record with its peaks and the decay by the mean coefficient; below it the coefficients, each where its cycle
// begins.
[[nodiscard]] ResultPlot RollDecayPlot(const CaseStore& store, const RollDecayResult& result);

// Bias, then the file.
void AskRollDecay(const RollDecayWork& work, RollDecayResult& result);

}  // namespace zaview
