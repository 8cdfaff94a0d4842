#include <algorithm>

#include "analysis/sea_view/sensor_view.h"
#include "base/number_format.h"

namespace zaview {
namespace {

constexpr std::size_t kCurves = 4;  // of distances: more could not be told apart

std::string Named(std::string_view what, float value) {
  return fmt::format("{}{}", what, Shown{value});
}

void AddHorizon(const SensorViewResult& result, ResultPlot& plot) {
  const float time = result.time.empty() ? 0.0F : result.time.back();
  ResultPanel lookdown{
      .x_name = "Azimuth (deg)", .y_name = "Angle below the level (deg)", .curves = {}, .bands = {}, .notes = {}};
  lookdown.curves.push_back({Named("Lookdown at time=", time), result.azimuths, result.lookdown});
  const std::vector<float> level(result.azimuths.size(), result.angle.empty() ? 0.0F : result.angle.back());
  lookdown.curves.push_back({"Horizon", result.azimuths, level, ResultStyle::dashed});
  plot.panels.push_back(std::move(lookdown));
  ResultPanel history{.x_name = "Time", .y_name = "Horizon distance", .curves = {}, .bands = {}, .notes = {}};
  history.curves.push_back({"", result.time, result.horizon});
  plot.panels.push_back(std::move(history));
}

// Over the azimuths, at some of the distances.
void AddGrid(const SensorViewResult& result, ResultPlot& plot) {
  const std::size_t n = result.distances.size();
  const std::size_t curves = std::min(kCurves, n);
  ResultPanel panel{.x_name = "Azimuth (deg)", .y_name = "Visible height", .curves = {}, .bands = {}, .notes = {}};
  for (std::size_t k = 1; k <= curves; ++k) {
    const std::size_t j = k * n / curves - 1;  // the last one is the farthest
    ResultCurve curve{Named("Distance=", result.distances[j]), result.azimuths, {}};
    for (std::size_t i = 0; i < result.azimuths.size(); ++i) curve.y.push_back(result.visible[i * n + j]);
    panel.curves.push_back(std::move(curve));
  }
  panel.notes.push_back(Named("Time=", result.time.back()));
  plot.panels.push_back(std::move(panel));
}

void AddLine(const SensorViewResult& result, ResultPlot& plot) {
  ResultPanel panel{.x_name = "Distance", .y_name = "Visible height", .curves = {}, .bands = {}, .notes = {}};
  panel.curves.push_back({"", result.distances, result.visible});
  panel.notes = {Named("Azimuth=", result.azimuths[0]), Named("Time=", result.time.back())};
  plot.panels.push_back(std::move(panel));
}

void AddPoints(const SensorViewResult& result, ResultPlot& plot) {
  ResultPanel panel{.x_name = "Time", .y_name = "Visible height", .curves = {}, .bands = {}, .notes = {}};
  for (std::size_t j = 0; j < result.histories.size(); ++j)
    panel.curves.push_back({Named("Distance=", result.distances[j]), result.time, result.histories[j]});
  panel.notes.push_back(Named("Azimuth=", result.azimuths[0]));
  plot.panels.push_back(std::move(panel));
}

}  // namespace

ResultPlot SensorViewPlot(const SensorViewResult& result) {
  ResultPlot plot{.title = "Sensor view", .panels = {}};
  if (result.time.empty()) return plot;
  switch (result.mode) {
    case SensorMode::horizon:
      AddHorizon(result, plot);
      break;
    case SensorMode::grid:
      AddGrid(result, plot);
      break;
    case SensorMode::line:
      AddLine(result, plot);
      break;
    case SensorMode::points:
    case SensorMode::debug:
      AddPoints(result, plot);
      break;
  }
  return plot;
}

}  // namespace zaview
