#include "views/state/plot_looks.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace zaview {

namespace {

constexpr PlotTexts kTexts[] = {
    // by plot_text_mode
    {.quantity = false, .file = false, .axes = false, .mode = false},
    {},
    {.file = false},
    {.quantity = false, .file = false, .mode = false},
    {.quantity = false, .mode = false},
};

}  // namespace

void NextTexts(DataPlotState& plot) {
  plot.plot_text_mode = (plot.plot_text_mode + 1) % static_cast<int>(std::size(kTexts));
  plot.texts = kTexts[static_cast<std::size_t>(plot.plot_text_mode)];
}

CurveMarks MarksOf(const DataPlotState& plot) {
  if (plot.mark_every == 0) return CurveMarks::line;
  return plot.mark_every > 0 ? CurveMarks::line_and_points : CurveMarks::points;
}

void SetMarks(DataPlotState& plot, CurveMarks marks) {
  plot.mark_every = marks == CurveMarks::line              ? 0
                    : marks == CurveMarks::line_and_points ? plot.mark_base
                                                           : -plot.mark_base;
}

void SetMarkBase(DataPlotState& plot, int every) {
  const CurveMarks marks = MarksOf(plot);
  plot.mark_base = every;
  SetMarks(plot, marks);
}

int HullSpacing(const DataPlotState& plot) {
  const std::vector<HullPlace>& hulls = plot.derived.hulls;
  if (plot.geometry_every > 0 || hulls.size() < 2) return std::max(plot.geometry_every, 1);
  return std::max(1, (hulls.back().step - hulls.front().step) / static_cast<int>(hulls.size() - 1));
}

int MostHullSpacing(const CaseStore& store) {
  return std::max(1, store.last_step - store.first_step);
}

void SetHullSpacing(DataPlotState& plot, const CaseStore& store, int every) {
  plot.geometry_every = std::clamp(every, 1, MostHullSpacing(store));
  plot.marked_steps.clear();
}

}  // namespace zaview
