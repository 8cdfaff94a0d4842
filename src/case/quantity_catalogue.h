// The 48 quantities: number, labels, curves, scale kind, what they need. One row tells all; the source of each curve
// stands in plot_data.cpp.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "case/case_store.h"
#include "case/output_settings.h"

namespace zaview {

inline constexpr int kQuantities = 48;

enum class ScaleKind : std::uint8_t {
  position,
  velocity,
  acceleration,
  force,
  load_force,
  load_moment,
  elevation,
  maneuver,
  point,
  none
};
enum class QuantityNeed : std::uint8_t { none, other_force, x_cuts, y_cuts, wave, point, missile, file_only };

struct QuantityRow {
  int iqnt;
  std::string_view long_label, medium_label;
  int curves;  // 0: counted by the case (cuts) or no curves
  ScaleKind scale;
  QuantityNeed need;
  int load_kind;           // 1..6, 0: none
  std::string_view curve;  // stem of the curve label: "pmgg" gives pmgg(1) ..; blank: told by CurveLabel
};

[[nodiscard]] const QuantityRow* FindQuantity(int iqnt);  // null: no such number
inline constexpr std::string_view kNoLongLabel = "Logic ERROR in cQntLong: iqnt= {}";
inline constexpr std::string_view kNoMediumLabel = "Logic ERROR in cQntMed: iqnt= {}";
[[nodiscard]] std::string_view cQntLong(int iqnt);  // blank: no such number, the caller says kNoLongLabel
[[nodiscard]] std::string_view cQntMed(int iqnt);

// Impulsive runs have numbers of their own. An IRF case: the index of the function, its curves firf(1..6), for
// diffraction kinds firf(1..12): diffraction, then Froude-Krylov forces. A transient added mass case: these two.
inline constexpr int kTransientAddedMass = 1;
inline constexpr int kImpulse = 2;
[[nodiscard]] std::string_view QuantityLabel(const CaseStore& case_store,
                                             int iqnt);  // cQntLong, or of an impulsive run

// Curves of a quantity in this case; 0: none here.
[[nodiscard]] int CurveCount(const CaseStore& case_store, int iqnt);
// Has this case data for it? 36 to 38 have data, but only for tables of time histories (need is file_only); 25, 26 and
// 30 belong to every case with steps, whether or not their wave can be evaluated. 34 and 35 are files of their own form
// without curves. A case from separate files (kino_input) has positions only: 1, 4, 25 to 27, 30, 34, 35.
[[nodiscard]] bool QuantityValid(const CaseStore& case_store, int iqnt);
// The coordinate of a sectional cut as it is shown: input coordinate times LENOUT/LENIN (X; Y for 19 to 24).
[[nodiscard]] float CutCoordinate(const CaseStore& case_store, const OutputSettings& settings, int iqnt, int cut);
// "pmgg(3)", "Force, X=25", "Vmag", ...; loads use input coordinates times LENOUT/LENIN.
[[nodiscard]] std::string CurveLabel(const CaseStore& case_store, const OutputSettings& settings, int iqnt, int curve);
inline constexpr int kKinoMotions = 34, kKinoSeaway = 35;
[[nodiscard]] bool IsKinoFile(int iqnt);       // these two
[[nodiscard]] bool IsPointQuantity(int iqnt);  // 27..32, 36..38, 48

}  // namespace zaview
