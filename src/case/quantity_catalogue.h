// The 48 quantities: number, labels, selector words, curves, source, scale kind, validity. One row tells all.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "case/case_store.h"
#include "case/output_settings.h"

namespace zaview {

inline constexpr int kQuantities = 48;

enum class ScaleKind : std::uint8_t { position, velocity, acceleration, force, load_force, load_moment, elevation,
                                      maneuver, point, none };
enum class QuantityNeed : std::uint8_t { none, other_force, x_cuts, y_cuts, wave, point, missile, file_only };

struct QuantityRow {
  int iqnt;
  std::string_view long_label, medium_label;
  int curves;                // 0: counted by the case (cuts) or no curves
  ScaleKind scale;
  QuantityNeed need;
  int load_kind;             // 1..6, 0: none
  std::string_view curve;    // stem of the curve label: "pmgg" gives pmgg(1) ..; blank: told by CurveLabel
};

[[nodiscard]] const QuantityRow* FindQuantity(int iqnt);  // null: no such number
[[nodiscard]] std::string_view cQntLong(int iqnt);
[[nodiscard]] std::string_view cQntMed(int iqnt);

// Curves of a quantity in this case; 0: none here.
[[nodiscard]] int CurveCount(const CaseStore& case_store, int iqnt);
// May this quantity be shown for this case?
[[nodiscard]] bool QuantityValid(const CaseStore& case_store, int iqnt);
// "pmgg(3)", "Force, X=25", "Vmag", ...; loads use input coordinates times LENOUT/LENIN.
[[nodiscard]] std::string CurveLabel(const CaseStore& case_store, const OutputSettings& settings, int iqnt, int curve);
[[nodiscard]] bool IsPointQuantity(int iqnt);  // 27..32, 36..38, 48

}  // namespace zaview
