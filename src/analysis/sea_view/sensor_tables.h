// The texts of the sensor view's files: heads, then a piece a step.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "analysis/sea_view/root_files.h"
#include "analysis/sea_view/sensor_view.h"

namespace zaview {

struct SightStep {  // a step, non-dimensional
  bool is_first = false;
  double time = 0;
  Vector3 place{};  // of the sensor, earth axes
  double yaw = 0;   // radians
  Horizon horizon;
  std::vector<double> lookdown;  // horizon: degrees, an azimuth each
  std::vector<float> z;          // else: a row of distances an azimuth
  LineSamples samples;           // debug
  std::vector<Crest> crests;
};

struct SensorTables {
  const OutputSettings& settings;
  const CaseStore& store;
  const SensorRequest& request;
  double input_to_output = 1;  // of lengths
};

struct SensorFile {
  RootFile file;
  void (*append_head)(const SensorTables& tables, std::string& text);
  void (*append_step)(const SensorTables& tables, const SightStep& step, std::string& text);
};
[[nodiscard]] std::span<const SensorFile> SensorFilesOf(SensorMode mode);

}  // namespace zaview
