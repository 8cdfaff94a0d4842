// What a data plot shows, chosen by key, mouse, menu or script. The verbs change what is chosen and nothing else: data
// and limits are remade at the next display, where their keys say so. True: the plot is to be drawn again.
#pragma once

#include "base/platform.h"
#include "case/case_store.h"
#include "case/ensemble_store.h"
#include "case/output_settings.h"
#include "stats/statistics_state.h"
#include "views/state/data_plot_state.h"
#include "views/state/plot_source.h"

namespace zaview {

[[nodiscard]] PlotSubject SubjectOf(const DataPlotState& plot, const PlotFacts& facts);
[[nodiscard]] PlotDataKey DataKeyOf(const DataPlotState& plot, const PlotFacts& facts);
[[nodiscard]] FitKey FitKeyOf(const DataPlotState& plot, const PlotFacts& facts);

// What can be chosen of: curves of the quantity, panels of the last analysis.
[[nodiscard]] int ComponentCount(const DataPlotState& plot, const CaseStore& store);

void ForgetData(DataPlotState& plot);  // made anew at the next display, whatever its key

// The component in use, within those of the quantity: one curve where the kind shows one, all where there is only one.
// Curves that were left out come back with another subject.
void SettleComponent(DataPlotState& plot, const PlotFacts& facts);
[[nodiscard]] bool IsShown(const DataPlotState& plot, int component);  // by plot_component and `hidden`

bool TakeComponent(DataPlotState& plot, const CaseStore& store, int component);  // 0: all; none beyond the last
bool NextComponent(DataPlotState& plot, const CaseStore& store);
bool ToggleDrawing(DataPlotState& plot, const CaseStore& store);  // of the chosen one, where all are shown
// One of several curves is shown or left out; with the last of them gone the first is shown.
bool ShowCurve(DataPlotState& plot, const CaseStore& store, int component, bool shown);
bool ShowAllCurves(DataPlotState& plot);
// Is it drawn where a kind shows several: by IsShown, or cuts by `hidden` alone, whichever is chosen.
[[nodiscard]] bool IsCurveDrawn(const DataPlotState& plot, int component);

// By step through the quantities that the case has and this kind of plot can show; those of a point or a missile once
// one was given. direction: 1 or -1. carry: the limits in use are those of the next one too.
bool ChangeQuantity(const Console& console, CaseStore& store, const PointSettings& point, DataPlotState& plot,
                    int direction, bool carry);
// The quantity in use, or the first one that this kind can show in its place. False: there is none, nothing changes.
bool SettleQuantity(const Console& console, CaseStore& store, const PointSettings& point, DataPlotState& plot);
// Can this kind of plot show it, with the point that was given last?
[[nodiscard]] bool CanShow(const Console& console, CaseStore& store, const PointSettings& point,
                           const DataPlotState& plot, int iqnt);
// The same with any point, which may be given later.
[[nodiscard]] bool CanShowOfPoint(const Console& console, CaseStore& store, const DataPlotState& plot, int iqnt);
// False: it can't be shown, nothing changes. carry: as above.
bool TakeQuantity(const Console& console, CaseStore& store, const PointSettings& point, DataPlotState& plot, int iqnt,
                  bool carry);
[[nodiscard]] int QuantityCount(const CaseStore& store);  // quantities count from 1

bool ChangeStatistic(DataPlotState& plot, int direction);
bool NormalizeByVariance(DataPlotState& plot, bool normalized);  // autocorrelation, else autocovariance

// A record of the ensemble becomes the case in store, and is shown alone; 0: all of them together, where the kind does
// that. False: no such record.
bool TakeRecord(const Console& console, const PointSettings& point, CaseStore& store, EnsembleStore& ensemble,
                DataPlotState& plot, int irec);

// Between curves and histogram; false: this kind has no such other.
bool SwitchHistogram(DataPlotState& plot, const CaseStore& store, const EnsembleStore& ensemble);
bool NextHistogramData(HistogramRequest& histogram);
bool NextOverlay(HistogramRequest& histogram);

}  // namespace zaview
