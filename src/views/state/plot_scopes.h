// Which kinds of data plot a key or an item of the options is for.
#pragma once

#include "views/state/plot_kinds.h"
#include "views/state/view_key.h"

namespace zaview {

[[nodiscard]] constexpr KeyScope ScopeOf(PlotKind kind) {
  return 1U << static_cast<unsigned>(kind);
}
inline constexpr KeyScope kHistory = ScopeOf(PlotKind::history), kTrajectory = ScopeOf(PlotKind::trajectory),
                          kLoadDist = ScopeOf(PlotKind::load_dist), kHistogram = ScopeOf(PlotKind::histogram),
                          kInterval = ScopeOf(PlotKind::interval), kResult = ScopeOf(PlotKind::result),
                          kSpectrum = ScopeOf(PlotKind::spectrum), kExtremes = ScopeOf(PlotKind::extremes),
                          kRainflow = ScopeOf(PlotKind::rainflow);
inline constexpr KeyScope kCorrelation = ScopeOf(PlotKind::autocovariance) | ScopeOf(PlotKind::autocorrelation);
inline constexpr KeyScope kAnalysed = kSpectrum | kExtremes | kRainflow;  // of one curve, as panels
inline constexpr KeyScope kOneCurve = kHistogram | kInterval | kCorrelation | kAnalysed;
inline constexpr KeyScope kOfComponents = kHistory | kLoadDist | kOneCurve;
inline constexpr KeyScope kNumbered = kHistory | kTrajectory | kCorrelation;  // by DrawCurves
inline constexpr KeyScope kMarked = kNumbered | kLoadDist;
inline constexpr KeyScope kSized = kMarked | kInterval;

}  // namespace zaview
