// What the user has set and what survives a read: scales, signs, delimiter, trims, skips, statistics settings. Data
// only.
#pragma once

#include <array>
#include <cstdint>

#include "base/table_text.h"

namespace zaview {

struct OutputScales {  // shown = stored x scale; six slots: translations, rotations
  float T = 1;
  std::array<float, 6> position{1, 1, 1, 1, 1, 1}, velocity{1, 1, 1, 1, 1, 1}, acceleration{1, 1, 1, 1, 1, 1};
  std::array<float, 6> force{1, 1, 1, 1, 1, 1};
  float load_force = 1, load_moment = 1;
  float angle = 1;  // rudder angles, slip, heading
  float prop_rps = 1;
  bool operator==(const OutputScales&) const = default;
};

struct OutputUnits {
  float GRAVOUT = 9.81F, RHOOUT = 1025.0F, LENOUT = 1.0F, ANGOUT = 1.0F;
  std::array<bool, 4> user_scale{};  // set by the user: not taken from the next file
  OutputScales scales;               // made by set_output_scales
  std::array<float, 6> cnvfac{1, 1, 1, 1, 1, 1};
  bool operator==(const OutputUnits&) const = default;
};

struct ReadingSettings {  // steps that are left out of the record, of statistics, of what is shown
  int trim_initial = 0, trim_terminal = 0, trim_abort = 200;
  int skip_initial = -1;  // -1: the default of the case
  int skip_terminal = 0;
  int step_stride = 1;
  int kmstep_interval = 1000;
  bool operator==(const ReadingSettings&) const = default;
};

struct SmoothingSettings {
  int option = 0;   // 0 none, 1 small window, 2 Fourier series, 3 cubic over `window` steps
  int window = 11;  // at least 5
  bool operator==(const SmoothingSettings&) const = default;
};

struct DataSettings {  // all that changes a shown sample: what was made under equal ones needn't be made again
  OutputUnits units;
  ReadingSettings reading;
  SmoothingSettings smoothing;
  bool operator==(const DataSettings&) const = default;
};

struct PointSettings {  // the last ship-fixed point, INPUT axes and units, and the coefficients C1..C4 of a missile
  bool given = false, missile_given = false;
  std::array<double, 3> point{};
  std::array<float, 4> missile{};
};

struct WritingSettings {
  Separator separator = Separator::space;
};

enum class IntervalMethod : std::uint8_t { formula, bootstrap };

struct StatisticSettings {
  float confidence_probability = 0.95F;
  float ndtf_length = 0, ndtf_beam = 0;  // output length units; 0: not set
  int autocorrelation_rate = 1;
  float autocorrelation_cutoff = 0.05F;
  IntervalMethod interval_method = IntervalMethod::formula;
  int bootstrap_resamples = 1000, bootstrap_seed = 1;
  float spectrum_segment = 0;                         // output time; 0: by the length of the record
  float extreme_hours = 3, extreme_quantile = 0.99F;  // the largest value in so many hours; its chosen quantile
  int rainflow_bins = 50;                             // of the table of ranges
  bool operator==(const StatisticSettings&) const = default;
};

struct OutputSettings : DataSettings {  // two are equal if their data are
  WritingSettings writing;
  StatisticSettings statistics;
  PointSettings point;
};

}  // namespace zaview
