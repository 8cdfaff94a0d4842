#include "analysis/curves/extremes_report.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <string>
#include <vector>

#include "analysis/curves/curve_extremes.h"
#include "base/message.h"
#include "base/number_format.h"
#include "base/table_text.h"
#include "base/text.h"
#include "case/quantity_label.h"

namespace zaview {
namespace {

constexpr std::string_view kNoMemory = "ERR493 - Error allocating working arrays for extremes";
constexpr std::string_view kNothing = "WARNING - no distribution of extremes can be fitted: {}";
constexpr std::string_view kFitted = "Weibull: of the higher half of the peaks about the mean; Gumbel: of blocks";
constexpr std::string_view kProbable = "most probable";
constexpr std::string_view kNoPeakExpected = "less than one peak is expected in this time";

constexpr std::size_t kPointsOfAll = 200;  // a fit of more values shows this many steps of its reduced value
constexpr double kLeastDrawn = 0.1;        // probability of a peak; the smallest would take most of the paper
constexpr std::string_view kFitNames[] = {" Weibull max   ", " Gumbel max    ", " Weibull min   ", " Gumbel min    "};

std::string_view NameOf(const ExtremeFit& fit) {
  return kFitNames[(fit.of_minima ? 2 : 0) + (fit.kind == ExtremeFitKind::gumbel ? 1 : 0)];
}

std::string TitleOf(const StatWork& work, const QuantityRequest& request, const CurveExtremes& extremes) {
  std::string title = fmt::format("Extremes of {}{}", EnsembleCurveName(work.settings, request, work.cases),
                                  PointNote(work.current(), request));
  if (extremes.records > 1) title += fmt::format("; {} records", extremes.records);
  return title;
}

// What stands for the points of a fit: all of a few; of many those that a step of the reduced value parts from the one
// before, so that the outermost stay.
std::vector<std::size_t> ShownPoints(const ExtremeFit& fit) {
  std::vector<std::size_t> shown;
  const std::size_t n = fit.values.size();
  if (n == 0) return shown;
  const auto reduced = [&](std::size_t i) { return ReducedOf(fit, PositionOf(fit, i)); };
  const double step = (reduced(n - 1) - reduced(0)) / static_cast<double>(kPointsOfAll);
  double last = 0;
  for (std::size_t i = 0; i < n; ++i) {
    const double here = reduced(i);
    if (n > kPointsOfAll && i > 0 && i + 1 < n && here - last < step) continue;
    last = here;
    shown.push_back(i);
  }
  return shown;
}

bool AnyFit(const CurveExtremes& extremes) {
  return std::any_of(extremes.fits.begin(), extremes.fits.end(), [](const auto& fit) { return fit.refused.empty(); });
}

// ---- The table

struct Rows {
  TableLayout layout;
  std::string& text;

  void Begin(Separator separator, std::span<const std::string> names) {
    layout = LayoutFor(separator, names);
    AppendHeading(text, layout, names);
  }
  void Row(std::string_view label, std::initializer_list<double> values) {
    std::vector<float> cells;
    for (const double value : values) cells.push_back(static_cast<float>(value));
    AppendLabelledRow(text, layout, label, cells);
  }
  void Remark(std::string_view label, std::string_view remark) {
    const bool wide = layout.separator == Separator::space;
    text += wide ? label : Trim(label);
    text += static_cast<char>(layout.separator);
    text += wide ? std::string(remark) : QuotedName(layout.separator, remark);
    text += '\n';
  }
};

void AppendFits(Separator separator, const CurveExtremes& extremes, std::string& text) {
  const std::string names[] = {"Fit            ", "Values",         "Values in Time", "Scale",
                               "Scale Error",     "Shape/Location", "Its Error"};
  Rows rows{{}, text};
  rows.Begin(separator, names);
  for (const ExtremeFit& fit : extremes.fits) {
    const WeibullFit& w = fit.weibull;
    const GumbelFit& g = fit.gumbel;
    if (!fit.refused.empty()) rows.Remark(NameOf(fit), fit.refused);
    else if (fit.kind == ExtremeFitKind::weibull)
      rows.Row(NameOf(fit), {static_cast<double>(w.n), fit.expected, w.scale, w.scale_error, w.shape, w.shape_error});
    else
      rows.Row(NameOf(fit), {static_cast<double>(g.n), fit.expected, g.scale, g.scale_error,
                             CurveValue(fit, g.location, extremes.mean), g.location_error});
  }
}

void AppendAnswers(Separator separator, const CurveExtremes& extremes, std::string& text) {
  const std::string names[] = {"Extreme value             ", "Low (est-CI)", "Estimate", "High (est+CI)"};
  Rows rows{{}, text};
  rows.Begin(separator, names);
  for (const ExtremeFit& fit : extremes.fits) {
    if (!fit.refused.empty()) continue;
    const auto label = [&](std::string_view what) {
      return fmt::format("{:<{}}", fmt::format(" {} {}", Trim(NameOf(fit)), what), names[0].size());
    };
    const Estimate &p = fit.most_probable, &q = fit.quantile;
    if (fit.kind == ExtremeFitKind::weibull && fit.expected <= 1) rows.Remark(label(kProbable), kNoPeakExpected);
    else rows.Row(label(kProbable), {p.low, p.value, p.high});
    rows.Row(label("quantile"), {q.low, q.value, q.high});
  }
}

void AppendPoints(Separator separator, const CurveExtremes& extremes, std::string& text, OutputFile& out) {
  const std::string names[] = {"Point          ", "Value", "Probability", "Reduced", "Fitted Value"};
  Rows rows{{}, text};
  rows.Begin(separator, names);
  for (const ExtremeFit& fit : extremes.fits) {
    if (!fit.refused.empty()) continue;
    for (const std::size_t i : ShownPoints(fit)) {
      const double F = PositionOf(fit, i), reduced = ReducedOf(fit, F), value = static_cast<double>(fit.values[i]);
      rows.Row(NameOf(fit), {CurveValue(fit, value, extremes.mean), F, reduced,
                             CurveValue(fit, FittedValue(fit, reduced), extremes.mean)});
      WriteGathered(out, text);
    }
  }
}

std::string DependenceOf(const BlockDependence& dependence) {
  return fmt::format("Dependence time= {}{} ({:.0f} steps, to an autocorrelation of {})",
                     dependence.known ? "" : "above ", Shown{static_cast<float>(dependence.time)}, dependence.steps,
                     Shown{dependence.cutoff});
}

void WriteTable(const StatWork& work, const QuantityRequest& request, const CurveExtremes& extremes, OutputFile& out) {
  const StatisticSettings& settings = work.settings.statistics;
  const Separator separator = work.settings.writing.separator;
  const auto shown = [](double value) { return Shown{static_cast<float>(value)}; };
  std::string text = out.had_text ? "\n" : "";
  text += TitleOf(work, request, extremes);
  if (extremes.records == 1) fmt::format_to(std::back_inserter(text), " for ZAVO file {}", work.current().file_name);
  fmt::format_to(std::back_inserter(text), "\nTotal time= {}\nMean= {}\n{}\nBlock time= {}\n",
                 shown(extremes.total_time), shown(extremes.mean), DependenceOf(extremes.dependence),
                 shown(extremes.block_time));
  fmt::format_to(std::back_inserter(text), "Time= {} hours\nQuantile= {}\nConfidence Interval Probability= {}\n",
                 Shown{settings.extreme_hours}, Shown{settings.extreme_quantile},
                 Shown{settings.confidence_probability});
  text.append(kFitted) += '\n';
  AppendFits(separator, extremes, text);
  if (AnyFit(extremes)) {
    text += '\n';
    AppendAnswers(separator, extremes, text);
    text += '\n';
    AppendPoints(separator, extremes, text, out);
  }
  WriteOutput(out, text);
}

// ---- The picture

// What is measured along the paper of a fit, from the mean on.
float PaperValue(const ExtremeFit& fit, double value, double mean) {
  if (fit.kind == ExtremeFitKind::weibull) return static_cast<float>(std::log(value));
  return static_cast<float>(fit.of_minima ? value + mean : value - mean);
}

void AddCurves(const StatWork& work, const ExtremeFit& fit, double mean, ResultPanel& panel) {
  const bool weibull = fit.kind == ExtremeFitKind::weibull;
  const std::string_view side = fit.of_minima ? "minima" : "maxima";
  ResultCurve points{std::string(side), {}, {}, ResultStyle::points};
  ResultCurve line{fmt::format("fit of {}", side), {}, {}, fit.of_minima ? ResultStyle::dashed : ResultStyle::line};
  for (const std::size_t i : ShownPoints(fit)) {
    if (weibull && PositionOf(fit, i) < kLeastDrawn) continue;
    points.x.push_back(PaperValue(fit, static_cast<double>(fit.values[i]), mean));
    points.y.push_back(static_cast<float>(ReducedOf(fit, PositionOf(fit, i))));
  }
  // From the lowest that is fitted to the chosen quantile of the largest of n, F^n.
  const double quantile = static_cast<double>(work.settings.statistics.extreme_quantile);
  const double far = weibull ? std::log(-std::log(-std::expm1(std::log(quantile) / fit.expected)))
                             : -std::log(-std::log(quantile) / fit.expected);
  const double from = weibull ? WeibullReduced(1 - static_cast<double>(fit.weibull.fitted) / fit.weibull.n)
                              : static_cast<double>(points.y.front());
  for (const double y : {from, std::max(static_cast<double>(points.y.back()), far)}) {
    line.x.push_back(PaperValue(fit, FittedValue(fit, y), mean));
    line.y.push_back(static_cast<float>(y));
  }
  panel.curves.push_back(std::move(points));
  panel.curves.push_back(std::move(line));
}

void AddNotes(const StatWork& work, const ExtremeFit& fit, ResultPanel& panel) {
  const StatisticSettings& settings = work.settings.statistics;
  const auto add = [&](std::string_view what, const Estimate& e) {
    panel.notes.push_back(fmt::format("{} {:.4g} ({:.4g} to {:.4g})", what, e.value, e.low, e.high));
  };
  panel.notes.push_back(
      fmt::format("{} in {} hours:", fit.of_minima ? "Smallest" : "Largest", Shown{settings.extreme_hours}));
  if (fit.kind == ExtremeFitKind::gumbel || fit.expected > 1) add("most probable", fit.most_probable);
  add(fmt::format("quantile {}", Shown{settings.extreme_quantile}), fit.quantile);
}

ResultPanel PanelOf(const StatWork& work, const QuantityRequest& request, const CurveExtremes& extremes,
                    ExtremeFitKind kind) {
  const std::string unit = CurveUnit(work.current(), work.settings, request.iqnt, request.curve);
  ResultPanel panel;
  if (kind == ExtremeFitKind::weibull) {
    panel.x_name = WithUnit("Weibull: ln of a peak's distance from the mean", unit);
    panel.y_name = "ln(-ln(1 - F))";
  } else {
    panel.x_name = WithUnit("Gumbel: distance of a block's extreme from the mean", unit);
    panel.y_name = "-ln(-ln F)";
  }
  for (const ExtremeFit& fit : extremes.fits) {
    if (fit.kind != kind || !fit.refused.empty()) continue;
    AddCurves(work, fit, extremes.mean, panel);
    AddNotes(work, fit, panel);
  }
  return panel;
}

DataFault MakePlot(const StatWork& work, const QuantityRequest& request, ResultPlot& plot) {
  CurveExtremes extremes;
  if (const DataFault fault = FindExtremes(work, request, extremes); fault != DataFault::none) return fault;
  plot.title = TitleOf(work, request, extremes);
  for (const ExtremeFitKind kind : {ExtremeFitKind::weibull, ExtremeFitKind::gumbel}) {
    ResultPanel panel = PanelOf(work, request, extremes, kind);
    if (!panel.curves.empty()) plot.panels.push_back(std::move(panel));
  }
  if (plot.panels.empty()) {  // a plot that tells why there is nothing
    Say(work.console(), fmt::runtime(kNothing), extremes.fits[0].refused);
    plot.panels.push_back(PanelOf(work, request, extremes, ExtremeFitKind::weibull));
  }
  for (const ExtremeFit& fit : extremes.fits)
    if (!fit.refused.empty()) plot.panels.back().notes.push_back(fmt::format("{} {}", Trim(NameOf(fit)), fit.refused));
  return DataFault::none;
}

}  // namespace

DataFault MakeExtremesPlot(const StatWork& work, const QuantityRequest& request, ResultPlot& plot) {
  plot = ResultPlot{};
  return MakeOrSay(work.console(), kNoMemory, [&] { return MakePlot(work, request, plot); });
}

DataFault WriteExtremes(const StatWork& work, const QuantityRequest& request, OutputFile& out) {
  return MakeOrSay(work.console(), kNoMemory, [&] {
    CurveExtremes extremes;
    const DataFault fault = FindExtremes(work, request, extremes);
    if (fault == DataFault::none) WriteTable(work, request, extremes, out);
    return fault;
  });
}

}  // namespace zaview
