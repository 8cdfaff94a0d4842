// Files of the waves of a run from one of its steps on, and of the motions that belong to them.
#pragma once

#include <string>
#include <string_view>

#include "analysis/sea_view/wave_shift.h"
#include "base/platform.h"
#include "case/case_store.h"
#include "case/output_settings.h"

namespace zaview {

inline constexpr std::string_view kWritingSeaway = "Writing KINO seaway data to ";
inline constexpr std::string_view kWritingComponents = "Writing CD-adapco waves data to ";
inline constexpr std::string_view kWritingMotions = "Writing shifted motion data to ";
inline constexpr std::string_view kNoShiftMemory = "ERROR allocate wave field phase arrays";

// x = U (time - TINIT) + X, y = Y, (X, Y) the place of the geometry's input origin at the initial position.
[[nodiscard]] ShiftOrigin ShiftOriginOf(const CaseStore& case_store, int step);

struct ShiftedWaves {
  ShiftOrigin origin;
  Seaway seaway;  // phases of the cosine
};
// Says what holds of these waves and can't be seen in the files. False (told): the seaway is none that can be shifted.
[[nodiscard]] bool MakeShiftedWaves(const Console& console, int step, CaseStore& case_store, ShiftedWaves& waves);

// KINO seaway file, linear waves whatever their number. False: memory is out.
[[nodiscard]] bool ShiftedSeawayText(const OutputSettings& settings, const CaseStore& case_store,
                                     const ShiftedWaves& waves, PhaseDefinition definition, std::string& text);
// Table of components, with the directions in CFD axes, +X aft and +Y to starboard.
[[nodiscard]] std::string ComponentTable(const OutputSettings& settings, const CaseStore& case_store,
                                         const ShiftedWaves& waves, PhaseDefinition definition);
// Motions from the step on, in the new time and place, with the true waves at the CG and at the new origin. False
// (told): no waves, or memory is out.
[[nodiscard]] bool ShiftedMotions(const Console& console, const OutputSettings& settings, const ShiftedWaves& waves,
                                  CaseStore& case_store, std::string& text);

// All three: root.sea by the cosine, root.cdw by the sine, root.smot. False (told): nothing is left.
[[nodiscard]] bool WriteShiftedWaves(const Platform& platform, const OutputSettings& settings, int step,
                                     std::string_view root, CaseStore& case_store);

}  // namespace zaview
