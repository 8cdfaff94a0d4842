#include "analysis/righting_arms/righting_arms_plot.h"

#include <algorithm>

#include "base/number_format.h"

namespace zaview {
namespace {

struct PlotTexts {
  std::string_view title, angle, arm, GM;
};
constexpr PlotTexts kTexts[] = {{"Righting arms (GZ)", "Heel (degrees)", "GZ", "GM"},
                                {"Longitudinal righting arms (GZL)", "Trim (degrees)", "GZL", "GML"}};

ResultCurve CurveOf(const RightingArmStep& step, double LENOUT) {
  ResultCurve curve;
  curve.name = fmt::format("step {} t={}", step.step, Shown{step.time});
  VisitRows(step.curve, [&](const ArmRow& row) {
    curve.x.push_back(static_cast<float>(row.angle_deg));
    curve.y.push_back(static_cast<float>(row.arm * LENOUT));
  });
  return curve;
}

std::string NoteOf(const RightingArmStep& step, const PlotTexts& texts, double LENOUT) {
  const ArmStatistics& s = step.statistics;
  return fmt::format("{}={:.4g}, largest {}={:.4g} at {:.1f}, stable from {:.1f} to {:.1f}", texts.GM,
                     s.effective_GM * LENOUT, texts.arm, s.max_arm * LENOUT, s.max_angle_deg, s.negative_vanish_deg,
                     s.vanish_deg);
}

}  // namespace

ResultPlot RightingArmsPlot(const RightingArms& arms) {
  ResultPlot plot;
  if (arms.steps.empty()) return plot;
  const PlotTexts& texts = kTexts[arms.tables.direction == ArmDirection::transverse ? 0 : 1];
  const double LENOUT = arms.tables.LENOUT;
  plot.title = texts.title;
  ResultPanel panel;
  panel.x_name = texts.angle;
  panel.y_name = texts.arm;
  const std::size_t n = arms.steps.size(), shown = std::min(n, kMostArmCurves);
  for (std::size_t i = 0; i < shown; ++i)
    panel.curves.push_back(CurveOf(arms.steps[shown > 1 ? i * (n - 1) / (shown - 1) : 0], LENOUT));
  double low = arms.steps.front().statistics.negative_vanish_deg, high = arms.steps.front().statistics.vanish_deg;
  for (const RightingArmStep& step : arms.steps) {
    low = std::max(low, step.statistics.negative_vanish_deg);
    high = std::min(high, step.statistics.vanish_deg);
  }
  if (low < high) panel.bands.emplace_back(static_cast<float>(low), static_cast<float>(high));
  if (n == 1) panel.notes.push_back(NoteOf(arms.steps.front(), texts, LENOUT));
  plot.panels.push_back(std::move(panel));
  return plot;
}

}  // namespace zaview
