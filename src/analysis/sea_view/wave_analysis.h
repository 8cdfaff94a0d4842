// The waves along the ship, step after step: elevations on its centreline, the crest and the steepest slope that are
// followed, and how fast the waves run by their local frequency and wave number.
#pragma once

#include <string_view>
#include <vector>

#include "analysis/result_plot.h"
#include "base/platform.h"
#include "case/case_store.h"
#include "case/output_settings.h"
#include "case/settings/step_range.h"

namespace zaview {

// The wave options of righting arms, 0 to 3: they have the same elevations.
inline constexpr int kWaveAnalysisOptions = 4;

struct WaveFeature {  // on the line
  bool there = false;
  double s = 0;      // along the heading, from the CG
  double value = 0;  // eta; slope d eta/ds
};

// Inner local maxima of values, refined by the parabola through three: the one nearest to `near`, or else (not
// following) the largest. steepest: of the magnitudes, value with its sign.
struct FeatureSearch {
  bool following = false;
  double near = 0;
  bool steepest = false;
};
[[nodiscard]] WaveFeature FindFeature(const std::vector<double>& s, const std::vector<double>& values,
                                      const FeatureSearch& search);

struct WaveAnalysisResult {  // as the files show it, a value a step
  std::vector<float> time, elevation, celerity_cg, celerity_avg;
};

// root.wvt: the distances of 101 points from stern to bow, then time and their elevations. root.wvp: time, x and
// elevation of the crest, x and slope of the steepest place; both are followed along the heading at the celerity at the
// CG, and are 0 where there is none. root.wvc: time, x and elevation at the CG, the celerity there, and its mean along
// the line, weighted by the envelope squared; negative: towards the stern. False (told): nothing is left of the files.
[[nodiscard]] bool WriteWaveAnalysis(const Platform& platform, const OutputSettings& settings, const StepRange& steps,
                                     std::string_view root, CaseStore& case_store, WaveAnalysisResult& result);

[[nodiscard]] ResultPlot WaveAnalysisPlot(const WaveAnalysisResult& result);

}  // namespace zaview
