// What the user has set for statistics of an ensemble, histograms and rates, and what the last of them left behind.
// Lives for the whole run. Data only.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "case/output_settings.h"
#include "stats/fourier.h"
#include "stats/histogram.h"

namespace zaview {

struct EnsembleKey {  // for what records of one curve, and what was made of them, are valid
  struct Record {
    std::uint64_t serial = 0;
    int first_step = 1, last_step = 0;
    bool operator==(const Record&) const = default;
  };
  int iqnt = 0, curve = 0;
  std::array<double, 3> point{};
  std::array<float, 4> missile{};
  int skip_initial = 0;  // in force
  DataSettings settings;
  std::vector<Record> records;
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

struct DependenceResult {  // of the loaded ensemble; loading another one makes it unknown
  float cutoff = 0;
  bool known = false;
  bool reached = false;  // the correlation falls to the cut-off; if not, the two below are 0
  int ndti = 0;          // steps
  float dti = 0;
};

struct WaveData {  // the wave at the CG of one record
  EnsembleKey key;
  bool known = false;
  WavePhase phase;
};

struct SampleMemory {  // of the last table's record, for that of the next: its pages are there already
  std::vector<float> x;
  std::vector<std::vector<float>> y;
};

struct StatisticsState {
  int nmany = 0;  // which scheme (ensemble_stats.h)
  HistogramRequest histogram;
  EnsembleData ensemble;
  DependenceResult dependence;
  WaveData wave;  // of the last table that showed phases
  SampleMemory memory;
};

}  // namespace zaview
