// The 49 quantities: a row tells all of one: number, labels, words of the script, curves and where they come from, what
// the case must have for it.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "case/case_store.h"
#include "case/output_settings.h"

namespace zaview {

inline constexpr int kQuantities = 49;

enum class ScaleKind : std::uint8_t {  // of six slots with sign factors, down to force; of the others one, no sign
  position,
  velocity,
  acceleration,
  force,
  load_force,
  load_moment,
  length,
  speed,
  acceleration_length,  // of an acceleration
  angle,
  rps,
  none
};

enum class CurveForm : std::uint8_t {
  column,        // component `first`, and so on
  slots,         // of force: the sum of `slots` sixes that begin there
  with_gravity,  // the third one has 1 added, non-dimensional
  magnitude,     // of the three from `first` on
  cuts,          // sectional loads of the row's kind, a curve a cut
  missile_load,
  measured  // columns of a table, a curve each
};

// Curves that follow each other in one history.
struct CurveGroup {
  CurveForm form;
  StepHistory CaseStore::*history;  // null: cuts
  int first;                        // component of the first curve, from 1
  int curves;                       // 0: counted by the case
  ScaleKind scale;
  std::size_t slot;                         // of scale and sign, of the first curve: 0 translations, 3 rotations
  std::string_view stem;                    // "pmgg" gives pmgg(1) ..; blank: `names`
  std::span<const std::string_view> names;  // of the curves
  int slots = 1;
};

enum class QuantityNeed : std::uint8_t {
  none,
  other_force,
  x_cuts,
  y_cuts,
  wave,
  point,
  missile,
  rudder,
  file_only,
  table
};

struct QuantityRow {
  int iqnt;
  std::string_view long_label, medium_label;
  std::string_view title;     // of plots; blank: the long label; of points: what stands ahead of the coordinates
  std::string_view words[2];  // of the script
  std::span<const CurveGroup> groups;
  QuantityNeed need;
  int load_kind;  // 1..6, 0: none
};

[[nodiscard]] std::span<const QuantityRow> AllQuantities();
[[nodiscard]] const QuantityRow* FindQuantity(int iqnt);  // null: no such number
[[nodiscard]] std::string_view cQntLong(int iqnt);        // blank: no such number
[[nodiscard]] std::string_view cQntMed(int iqnt);

// Curve i of a quantity: its group and the place in it, from 0. group null: no such curve. Cuts and measured columns
// have any number.
struct CurvePlace {
  const CurveGroup* group = nullptr;
  int place = 0;
};
[[nodiscard]] CurvePlace FindCurve(const QuantityRow& row, int curve);
[[nodiscard]] ScaleKind ScaleOf(const QuantityRow& row);  // of its first curve

// Impulsive runs have numbers of their own. An IRF case: the index of the function, its curves firf(1..6), for
// diffraction kinds firf(1..12): diffraction, then Froude-Krylov forces. A transient added mass case: these two.
inline constexpr int kTransientAddedMass = 1;
inline constexpr int kImpulse = 2;
// cQntLong, or the label of an impulsive run.
[[nodiscard]] std::string_view QuantityLabel(const CaseStore& case_store, int iqnt);

// Curves of a quantity in this case; 0: none here.
[[nodiscard]] int CurveCount(const CaseStore& case_store, int iqnt);
// Has this case data for it? What the steps of the file don't hold is not valid. 36 to 38 have data, but only for
// tables of time histories (need is file_only); 25, 26 and 30 belong to every case with steps, whether or not their
// wave can be evaluated. 34 and 35 are files of their own form without curves. A case from separate files (kino_input)
// has positions only: 1, 4, 25 to 27, 30, 34, 35. One from a table has 49 and, if motions are among its columns, 1, 4,
// 27, 34.
[[nodiscard]] bool QuantityValid(const CaseStore& case_store, int iqnt);
// The coordinate of a sectional cut as it is shown: input coordinate times LENOUT/LENIN (X; Y for 19 to 24).
[[nodiscard]] float CutCoordinate(const CaseStore& case_store, const OutputSettings& settings, int iqnt, int cut);
// "pmgg(3)", "Force, X=25", "Vmag", ...; loads use input coordinates times LENOUT/LENIN.
[[nodiscard]] std::string CurveLabel(const CaseStore& case_store, const OutputSettings& settings, int iqnt, int curve);

inline constexpr int kKinoMotions = 34, kKinoSeaway = 35;
[[nodiscard]] bool IsKinoFile(int iqnt);       // these two
[[nodiscard]] bool IsPointQuantity(int iqnt);  // 27..32, 36..38, 48
// Has the user given what it is for: the point, the coefficients of a missile? True of quantities that need neither.
[[nodiscard]] bool PointGiven(const PointSettings& point, int iqnt);

}  // namespace zaview
