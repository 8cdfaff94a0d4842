// The impulse response functions of a case, brought to frequencies: its blocks one by one, or all that motions in waves
// need. A failure to allocate is thrown.
#pragma once

#include <string_view>
#include <vector>

#include "analysis/frequency_domain/motion_responses.h"
#include "case/case_store.h"

namespace zaview {

inline constexpr std::array<std::string_view, kModes> kModeWords = {"surge", "sway", "heave", "roll", "pitch", "yaw"};

enum class IrfWork : unsigned char { none, radiation, diffraction, matrices };
[[nodiscard]] IrfWork WorkOf(const IrfBlock& block);  // none: steady, air cushion, an added mass block without matrices
[[nodiscard]] int MotionOf(IrfKind kind);             // 1..6; 0: no radiation
[[nodiscard]] int BranchOf(IrfKind kind);             // of a diffraction kind; 1 for head seas

// Those that can be transformed, in the order of the file.
[[nodiscard]] std::vector<const IrfBlock*> TransformableBlocks(const CaseStore& store);

// Of the first block of the ship that has any.
[[nodiscard]] IndependentParts PartsOf(const CaseStore& store, int ship);

[[nodiscard]] RadiationTable RadiationOf(const IrfBlock& block);
// Of a transient added mass run: its steps in use, in the mode of the impulse, which must be one of the six.
[[nodiscard]] RadiationTable RadiationOf(const CaseStore& store);
[[nodiscard]] ExcitationTable ExcitationOf(const CaseStore& store, const IrfBlock& block);

// Of the ship in use, the first block of a motion, and of a heading and branch. Headings in the order in which they
// first appear; those are one that differ by less than 1e-3 degrees.
[[nodiscard]] ResponseModel ModelOf(const CaseStore& store);
[[nodiscard]] ResponseModel OutlineOf(const CaseStore& store);  // the same without transforming anything
[[nodiscard]] bool HasResponses(const CaseStore& store);        // both radiation and diffraction were read

}  // namespace zaview
