// Tables over frequency as text: coefficients, wave excitation, motion responses. Frequencies are dimensional, all else
// is not. A block is set off from the one ahead of it by an empty line.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/frequency_domain/motion_responses.h"
#include "case/case_store.h"
#include "case/output_settings.h"

namespace zaview {

struct FrequencyLooks {
  std::string_view file_name;  // of the run
  Separator separator = Separator::space;
  std::array<float, kModes> sign{};  // of the modes
  double T = 1;                      // output time over non-dimensional time
};
[[nodiscard]] FrequencyLooks LooksOf(const CaseStore& store, const OutputSettings& settings);

enum class CoefficientKind : unsigned char { added_mass, damping, stiffness };

struct RadiationResult {
  RadiationTable table;
  IndependentParts parts;
  int ship = 0;  // 0: there is but one
};

// Added mass or damping of one motion in both forms, the literal one first. A sign factor of -1 acts on row and column.
void AppendRadiation(const FrequencyLooks& looks, CoefficientKind kind, const RadiationResult& result,
                     std::string& text);
// The matrix of that kind on its own.
void AppendIndependent(const FrequencyLooks& looks, CoefficientKind kind, const IndependentParts& parts,
                       std::string& text);
// The stiffness that belongs to the coefficients of a motion.
void AppendStiffness(const FrequencyLooks& looks, const IndependentParts& parts, std::string& text);
// Total, diffraction and Froude-Krylov force of a heading and branch; rows that no wave meets are left out.
void AppendExcitation(const FrequencyLooks& looks, const ExcitationTable& table, std::string& text);
void AppendResponses(const FrequencyLooks& looks, double heading, const std::vector<ResponseRow>& rows,
                     std::string& text);

}  // namespace zaview
