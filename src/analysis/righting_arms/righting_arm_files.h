// The tables of righting arms: curves, their statistics, hydrostatics and waterlines of the ship as it stands; and the
// same on the console. Lengths in the unit LENOUT, angles in degrees, ZAVO signs.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "analysis/righting_arms/righting_arm_curve.h"
#include "base/platform.h"
#include "base/table_text.h"
#include "frame/ground/output_file.h"

namespace zaview {

struct RightingArmStep {
  int step = 0;
  float time = 0;  // in its output unit
  Attitude attitude;
  Vector3 centre{};  // of gravity, ship axes
  ArmCurve curve;
  ArmStatistics statistics;
};

struct ArmTables {  // how they are written
  ArmDirection direction = ArmDirection::transverse;
  Separator separator = Separator::space;
  double LENOUT = 1;
};

enum class ArmFile : std::size_t { curves, statistics, volume, waterline };
inline constexpr std::size_t kArmFiles = 4;

// Ahead of the first step; behind older text an empty line sets it off.
void WriteArmHead(const ArmTables& tables, ArmFile kind, OutputFile& out);
// A block or a row of a step; `first`: none has been written yet.
void WriteArmStep(const ArmTables& tables, ArmFile kind, const RightingArmStep& step, bool first, OutputFile& out);

void SayArmStatistics(const Console& console, const ArmTables& tables, const RightingArmStep& step);
void SayArmCurve(const Console& console, const ArmTables& tables, const RightingArmStep& step);
// "Time step 12  time= 3.5".
void SayArmStep(const Console& console, const RightingArmStep& step);

}  // namespace zaview
