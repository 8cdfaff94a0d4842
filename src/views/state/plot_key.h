// What a data plot shows and what it is made of, as values that can be compared: the one way in which it is known that
// data or limits are out of date. Whoever changes a setting changes its field and nothing else. Data only.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "case/output_settings.h"
#include "stats/histogram.h"
#include "stats/statistics_state.h"
#include "views/state/axes_state.h"

namespace zaview {

enum class PlotKind : std::uint8_t {
  none,
  history,
  trajectory,
  load_dist,
  histogram,
  autocovariance,
  autocorrelation,
  interval,
  result,  // of the last analysis
  spectrum,
  extremes,
  rainflow
};
inline constexpr int kPlotKinds = 12;

struct PlotSubject {  // limits and curves that are left out belong to one
  PlotKind kind = PlotKind::none;
  int iqnt = 0, component = 0;
  std::array<double, 3> point{};
  std::array<float, 4> missile{};
  bool of_ensemble = false;
  int statistic = 0;
  int result = 0;  // which analysis
  std::uint64_t case_serial = 0;
  OutputScales scales;  // and units
  std::array<float, 6> signs{};
  bool operator==(const PlotSubject&) const = default;
};

struct PlotDataKey {    // what its data are made of
  PlotSubject subject;  // `none`: nothing is made
  DataSettings settings;
  StatisticSettings statistics;
  int skip = 0;                              // in force
  std::vector<EnsembleKey::Record> records;  // the case alone, or those of the ensemble
  HistogramRequest histogram;
  int many = 0;  // scheme of many records
  bool wave = false;
  bool operator==(const PlotDataKey&) const = default;
};

struct FitKey {  // what limits were fitted for
  PlotSubject subject;
  PlotDataKey data;
  AxesLength length{0, 0};
  bool match_scales = false, keep_aspect = false;
  bool operator==(const FitKey&) const = default;
};

}  // namespace zaview
