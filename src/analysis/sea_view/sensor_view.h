// What a sensor on the ship sees of the sea, step after step: its horizon, where its field of view ends, and from which
// height on something is visible above the waves. The numbers are those of sight_line.h.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "analysis/result_plot.h"
#include "analysis/sea_view/sight_line.h"
#include "analysis/sensor_settings.h"
#include "base/platform.h"
#include "case/case_store.h"
#include "case/output_settings.h"
#include "case/settings/step_range.h"

namespace zaview {

// horizon: `.horiz0`, horizon and lookdown angles; grid: `.vis_grid`, heights over distance and azimuth; line:
// `.vis_line`, over distance; points: `.vis_pt`, histories of heights; debug: the same, and what they come from:
// `.wvmt` motions at rest, `.wvpt` the sea along the line, `.wvpk` its crests, `.wvpks` what the highest rays touch.
enum class SensorMode : std::int8_t { horizon = 1, grid = 2, line = 3, points = 4, debug = 5 };

struct SensorRequest {
  SensorMode mode = SensorMode::horizon;
  StepRange steps;
  SensorPlace sensor;
  std::vector<double> azimuths;   // degrees from the bow, 90 to port; one but for horizon and grid
  std::vector<double> distances;  // input lengths, above 0; none for horizon; evenly spaced for grid and line
};

struct SensorViewResult {  // as the files show it; of what is long the last step alone
  SensorMode mode = SensorMode::horizon;
  std::vector<float> azimuths, distances;
  std::vector<float> time, height, horizon, angle;  // a value a step
  std::vector<float> lookdown;                      // a value an azimuth
  std::vector<float> visible;                       // a row of distances an azimuth
  std::vector<std::vector<float>> histories;        // of the visible heights at the first distances, a value a step
};

inline constexpr int kMostScanned = 100'000;                 // azimuths, distances
inline constexpr std::size_t kMostSightPoints = 20'000'000;  // both together

// The radius of the earth in input lengths, by the gravity of the case. False: it can't be told (kNoRadius).
inline constexpr std::string_view kNoRadius =
    "Earth radius cannot be inferred from GRAVIN - it will need to be specified";
struct EarthRadius {
  double radius = 0;
  std::string_view words;  // "6.371e6 meters"
};
[[nodiscard]] bool EarthRadiusOf(const CaseStore& case_store, EarthRadius& earth);

// min, min + inc, ..: as many as the range over the increment, to the nearest, and one more; equal ends are one entry.
// False: max is below min, the increment is not above 0, or there are too many.
[[nodiscard]] bool ScanRange(const float range[3], std::vector<double>& values);

// Computes and writes. False (told): nothing is left of the files.
[[nodiscard]] bool WriteSensorView(const Platform& platform, const OutputSettings& settings,
                                   const SensorSettings& limits, const SensorRequest& request, std::string_view root,
                                   CaseStore& case_store, SensorViewResult& result);

[[nodiscard]] ResultPlot SensorViewPlot(const SensorViewResult& result);

}  // namespace zaview
