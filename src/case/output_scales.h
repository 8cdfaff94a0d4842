// The scale table and the coordinate conventions. Factors are formed in double and kept in 4 bytes.
#pragma once

#include <string_view>

#include "base/platform.h"
#include "case/case_store.h"
#include "case/output_settings.h"

namespace zaview {

// Recomputes units.scales from GRAVOUT .. ANGOUT: T = sqrt(L/g), position L, a; velocity sqrt(L g), sqrt(g/L)
// a; acceleration g, g a / L; force r g L^3, moment r g L^4. irf or tadm: all 1 but T.
void set_output_scales(OutputUnits& units, bool impulsive);

// Takes the scales of record 23 that the user has not set, then set_output_scales.
void AdoptFileScales(OutputSettings& settings, const CaseStore& case_store);

enum class Convention : unsigned char { zavo, model, cfd };
struct ConventionRow {
  Convention convention;
  std::string_view name;     // "ZAVO", "MODEL", "CFD"
  std::string_view text[2];  // the two lines that explain it
  std::array<float, 6> factors;
};
extern const std::array<ConventionRow, 3> kConventions;

}  // namespace zaview
