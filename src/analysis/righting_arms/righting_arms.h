// Righting arms of the ship as it stands at steps of a run, in the waves of that moment.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "analysis/righting_arms/righting_arm_files.h"
#include "base/platform.h"
#include "case/case_store.h"
#include "case/output_settings.h"
#include "case/settings/step_range.h"

namespace zaview {

inline constexpr int kMostArmAngles = 90;  // on each side

struct RightingArmRequest {
  int direction = 1;    // ArmDirection
  int balance = 1;      // 0 to 4
  int wave_option = 0;  // WaveOption
  float max_angle = 0;  // degrees
  int nangle = 0;
  StepRange steps;
  bool menu = false;  // says each step, whatever is written
};

// Where the tables go; a file that isn't open (the console) is left out, volume and waterline go with the statistics.
struct RightingArmOutputs {
  std::array<OutputFile, kArmFiles> file;
  [[nodiscard]] OutputFile& at(ArmFile kind) { return file[static_cast<std::size_t>(kind)]; }
};

struct RightingArms {  // what was computed, for a picture; without waterlines
  ArmTables tables;
  std::vector<RightingArmStep> steps;
};

// Says what is wrong with a request, and makes its range of steps. True: nothing.
[[nodiscard]] bool CheckRightingArms(const Console& console, const CaseStore& case_store, RightingArmRequest& request);

// Opens the files of these names, blank: none; nothing is open where it is said why. .gm and .wl are added to the name
// of the statistics.
[[nodiscard]] bool OpenRightingArmFiles(const Platform& platform, ArmDirection direction, const std::string& curves,
                                        const std::string& statistics, RightingArmOutputs& outputs);
// The two files that go with the statistics, opened as these are.
[[nodiscard]] bool OpenBesideStatistics(const Platform& platform, ArmDirection direction, RightingArmOutputs& outputs);
void DiscardRightingArmFiles(RightingArmOutputs& outputs);

enum class ArmsAnswer : std::uint8_t { ok, failed };  // failed: told, and no file is written

// A request that CheckRightingArms has passed; the hull must be there (EnsureHull). A step whose ship can't be computed
// upright leaves no row and no block; failed: all of them. The case stays as it is, but for its seaway, made on need.
[[nodiscard]] ArmsAnswer GZCurves(const Platform& platform, const OutputSettings& settings,
                                  const RightingArmRequest& request, CaseStore& case_store, RightingArmOutputs& outputs,
                                  RightingArms& result);

}  // namespace zaview
