// Looks of a data plot that are more than a field: with limits, or several fields that go together. Keys and menus.
#pragma once

#include "case/case_store.h"
#include "views/state/data_plot_state.h"
#include "views/state/drawn_sizes.h"

namespace zaview {

// As those of drawn_sizes.h.
inline constexpr float kLeastShip = 1.0e-3F, kMostShip = 1.0e3F;  // factor
inline constexpr float kMostThickness = 1.0F;                     // page units

void NextTexts(DataPlotState& plot);  // plot_text_mode, and the texts that it stands for

enum class CurveMarks : unsigned char { line, line_and_points, points };
[[nodiscard]] CurveMarks MarksOf(const DataPlotState& plot);
void SetMarks(DataPlotState& plot, CurveMarks marks);
void SetMarkBase(DataPlotState& plot, int every);  // 1 and above; points that are shown are so from now on

// Steps from hull to hull on a trajectory: as set, else of those that are drawn; 1 and above.
[[nodiscard]] int HullSpacing(const DataPlotState& plot);
[[nodiscard]] int MostHullSpacing(const CaseStore& store);
// Steps that were marked one by one are forgotten.
void SetHullSpacing(DataPlotState& plot, const CaseStore& store, int every);  // limited to 1 .. MostHullSpacing

}  // namespace zaview
