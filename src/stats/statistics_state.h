// What the user has set for statistics of an ensemble, histograms and rates, and what the last of them left behind.
// Lives for the whole run. Data only.
#pragma once

#include <array>
#include <vector>

#include "stats/histogram.h"

namespace zaview {

struct EnsembleKey {  // for what the loaded records and the dependence length are valid
  int iqnt = 0, curve = 0;
  std::array<double, 3> point{};
  std::array<float, 4> missile{};
  int skip_initial = 0, skip_terminal = 0;
  unsigned generation = 0;  // of StatisticsState: a read, other trims, scales, signs, smoothing or stride
  bool operator==(const EnsembleKey&) const = default;
};

struct EnsembleData {  // the records of one curve, as shown, skipped points left out
  EnsembleKey key;
  bool loaded = false;
  std::vector<std::vector<float>> X, t;  // samples and their times, a vector a record
  std::vector<int> first_step;           // file step of the first sample of each record
  int stride = 1;                        // file steps from sample to sample
  float dt = 0;                          // time from sample to sample
};

struct DependenceResult {
  EnsembleKey key;
  float cutoff = 0;
  bool known = false;
  int ndti = 0;
  float dti = 0;
};

struct StatisticsState {
  unsigned generation = 1;  // counted up by whatever makes shown values stale
  int nmany = 0;            // ENSEMBLE_NMANY
  int plot_stats = 0;  // which statistics plots show: 0 none, 1 1/3rd, 2 1/10th, 3 standard deviation, 4 min and max
  HistogramRequest histogram;
  bool histogram_of_ensemble = false;
  EnsembleData ensemble;
  DependenceResult dependence;
};

}  // namespace zaview
