// The track of the centre of gravity, with the waterline of the hull at some steps.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "base/message.h"
#include "base/table_text.h"
#include "case/case_hull.h"
#include "case/quantity_catalogue.h"
#include "case/ship_pose.h"
#include "geometry/hull_waterline.h"
#include "gks/kernel/gks_transform.h"
#include "gks/plot/page_text.h"
#include "views/data_plot/plot_type.h"
#include "views/state/axes_limits.h"
#include "views/state/plot_kinds.h"

namespace zaview {

namespace {

constexpr std::string_view kNotPreserved = "Geometric aspect NOT preserved";
constexpr std::string_view kNotToScale = "Hull geometry NOT to scale";
constexpr std::string_view kTooMany = "WARNING - {} waterline segments were found while MAXWP0= {}";
constexpr std::string_view kIncomplete = "Ship geometry in trajectory plots will be incomplete";
constexpr int kPosition = 1;  // quantity
constexpr int kHulls = 10;    // on the track, unless the user says otherwise
constexpr int kHullColour = 3, kLabelColour = 1;
constexpr float kLabelGap = 0.4F;      // character heights between the track and a time
constexpr float kLabelMargin = 0.15F;  // and of paper around it
constexpr int kTrackMark = 3;
constexpr float kTrackMarkSize = 0.6F;
constexpr float kTurn = 0.01F;  // radians: a hull on top of the one before is drawn if it has turned by this

// ---- Data
void FillWaterline(const PlotSource& source, DataPlotState& plot) {
  DataPlotDerived& derived = plot.derived;
  derived.waterline_x.clear();
  derived.waterline_y.clear();
  CaseStore& store = source.store;
  if (!plot.show_ship || !EnsureHull(source.platform, store)) return;
  std::vector<WaterlinePiece> pieces;
  const int count = CutHull(store.hull, StillWater(store), pieces);
  if (count > MAXWP0) {
    Say(source.console(), kTooMany, count, MAXWP0);
    SayLine(source.console(), kIncomplete);
  }
  const Vector3 centre = ShipCentre(store);
  const double length = static_cast<double>(source.output.units.scales.position[0]);
  const auto shown = [&](double value, std::size_t i) { return static_cast<float>((value - centre[i]) * length); };
  for (const WaterlinePiece& piece : pieces) {
    derived.waterline_x.push_back({shown(piece[0][0], 0), shown(piece[1][0], 0)});
    derived.waterline_y.push_back({shown(piece[0][1], 1), shown(piece[1][1], 1)});
  }
}

// Points of the track, in order: at steps that the user has marked, every n-th, or ten from the first to the last.
std::vector<int> HullPoints(const PlotSource& source, const DataPlotState& plot) {
  std::vector<int> points;
  const int stride = std::max(1, source.output.reading.step_stride), first = source.store.first_step;
  const int last = plot.derived.history.n - 1;
  const auto add = [&](std::int64_t point) {
    if (point > (points.empty() ? -1 : points.back()) && point <= last) points.push_back(static_cast<int>(point));
  };
  if (!plot.marked_steps.empty()) {
    std::vector<int> marked = plot.marked_steps;
    std::sort(marked.begin(), marked.end());
    for (const int step : marked) add((std::int64_t{step} - first) / stride);
  } else if (plot.geometry_every > 0) {
    const std::int64_t every = std::max(1, plot.geometry_every / stride);
    for (std::int64_t point = 0; point <= last; point += every) add(point);
  } else {
    for (std::int64_t k = 0; k < kHulls; ++k) add(k * last / (kHulls - 1));
  }
  return points;
}

bool MakeTrajectory(const PlotSource& source, DataPlotState& plot) {
  QuantityRequest request;
  request.iqnt = kPosition;
  DataFault fault = DataFault::not_valid;
  if (source.store.time_history())
    fault = SetPlotData(source.console(), source.output, request, source.store, plot.derived.history);
  if (!SayDataFault(source.console(), fault, Making::plot, std::to_string(kPosition))) return false;
  if (plot.derived.history.n == 0) {
    SayLine(source.console(), kNoPlotSteps);
    return false;
  }
  FillWaterline(source, plot);
  return true;
}

void FollowTrajectory(const PlotSource& source, DataPlotState& plot) {
  DataPlotDerived& d = plot.derived;
  if (plot.show_ship && d.waterline_x.empty()) FillWaterline(source, plot);
  const int stride = std::max(1, source.output.reading.step_stride);
  d.hulls.clear();
  for (const int i : HullPoints(source, plot)) {
    const auto point = static_cast<std::size_t>(i);
    const int step = source.store.first_step + i * stride;
    d.hulls.push_back(
        {step, d.history.y[0][point], d.history.y[1][point], source.store.pmgg.at(6, step), d.history.x[point]});
  }
}

void TrajectoryCurves(const DataPlotState& plot, std::vector<DrawnCurve>& curves) {
  const PlotData& track = plot.derived.history;
  if (track.y.size() >= 2) curves.push_back({1, track.y[0], track.y[1]});
}

// ---- The hull
// A point of the ship at a place; ship axes from the centre, output units.
PlotPoint OfShip(const DataPlotState& plot, const HullPlace& place, float x, float y) {
  const float scale = plot.geometry_scale;
  const float c = scale * std::cos(place.yaw), s = scale * std::sin(place.yaw);
  const std::array<float, 6>& sign = plot.derived.made_of.subject.signs;
  return {place.x + sign[0] * (c * x - s * y), place.y + sign[1] * (s * x + c * y)};
}

bool ShowsHull(const DataPlotState& plot) {
  return plot.show_ship && !plot.derived.waterline_x.empty();
}

void DrawHulls(const DataPlotState& plot, PlotDraw draw) {
  if (!ShowsHull(plot)) return;
  dgColour(draw, ColourOf(plot, kHullColour));
  std::vector<float> x, y;
  HullPlace before;
  GksPixel pixel_before{-1, -1};
  for (const HullPlace& place : plot.derived.hulls) {
    const GksPixel pixel = gksToPixel(draw.gks, {place.x, place.y});
    const bool same =
        pixel.x == pixel_before.x && pixel.y == pixel_before.y && std::abs(place.yaw - before.yaw) < kTurn;
    if (same) continue;
    pixel_before = pixel;
    before = place;
    for (std::size_t k = 0; k < plot.derived.waterline_x.size(); ++k) {
      const std::vector<float>& ship_x = plot.derived.waterline_x[k];
      const std::vector<float>& ship_y = plot.derived.waterline_y[k];
      x.clear();
      y.clear();
      for (std::size_t i = 0; i < ship_x.size(); ++i) {
        const PlotPoint at = OfShip(plot, place, ship_x[i], ship_y[i]);
        x.push_back(at.x);
        y.push_back(at.y);
      }
      dgCurve(draw, x, y, 0);
    }
  }
  dgColour(draw, 1);
}

// ---- Limits and texts
void Include(const PlotPoint& at, PlotLimits& limits) {
  if (!std::isfinite(at.x) || !std::isfinite(at.y)) return;
  limits.x_min = std::min(limits.x_min, at.x);
  limits.x_max = std::max(limits.x_max, at.x);
  limits.y_min = std::min(limits.y_min, at.y);
  limits.y_max = std::max(limits.y_max, at.y);
}

// Room for the rectangles about the hulls as well.
void FitTrajectory(const DataPlotState& plot, PlotLimits& limits) {
  limits = PlotLimits{};
  if (!FitAxes(plot, FitOver::all_steps, limits)) return;
  if (ShowsHull(plot)) {
    PlotLimits ship{0, 0, 0, 0, 0, 0};
    for (std::size_t k = 0; k < plot.derived.waterline_x.size(); ++k)
      for (std::size_t i = 0; i < plot.derived.waterline_x[k].size(); ++i)
        Include({plot.derived.waterline_x[k][i], plot.derived.waterline_y[k][i]}, ship);
    for (const HullPlace& place : plot.derived.hulls)
      for (const float x : {ship.x_min, ship.x_max})
        for (const float y : {ship.y_min, ship.y_max}) Include(OfShip(plot, place, x, y), limits);
  }
  RoundX(limits, LengthOf(plot).x);
  RoundY(limits, LengthOf(plot).y);
}

void TrajectoryNames(const PlotFacts&, const DataPlotState&, PlotNames& names) {
  names.title = "Trajectory";
}

// On paper of their own, as hulls and track run through them, at the marked steps; a time that would touch the one
// before is left out.
void DrawTimes(const DataPlotState& plot, PlotDraw draw) {
  if (!plot.time_labels_on) return;
  const PlotPage& page = draw.page;
  const float h = plot.annot_size, pitch = LinePitch(draw, h);
  PlotPoint before{-page.page_width, -page.page_height};
  float width_before = 0;
  for (const HullPlace& place : plot.derived.hulls) {
    const float x[] = {place.x}, y[] = {place.y};
    dgColour(draw, kLabelColour);
    dgMarkerType(draw, kTrackMark);
    dgMarkerScale(draw, kTrackMarkSize * plot.mark_size);
    dgCurve(draw, x, y, -1);
    PlotPoint at = ToPage(page, {place.x, place.y});
    if (!InPlot(page, {place.x, place.y})) continue;
    const std::string text = ShortNumber(place.time);
    const float width = TextWidth(draw, text, h);
    at.x = std::min(at.x + kLabelGap * h, page.page_width - width);
    at.y += kLabelGap * h;
    if (at.x - before.x < width_before + h && before.x - at.x < width + h && std::abs(at.y - before.y) < pitch)
      continue;
    PlainPaper(draw, at.x - kLabelMargin * h, at.y - kLabelMargin * h, width + 2.0F * kLabelMargin * h,
               LetterHeight(draw, h) + kLabelMargin * h);
    PageText(draw, text, at.x, at.y, h, TextSide::left);
    before = at;
    width_before = width;
  }
}

void TrajectoryNotes(const PlotFacts&, const DataPlotState& plot, std::vector<PageNote>& notes) {
  if (!plot.keep_aspect) notes.push_back({std::string(kNotPreserved)});
  if (ShowsHull(plot) && plot.geometry_scale != 1.0F) notes.push_back({std::string(kNotToScale)});
}

void DrawTrajectory(const PlotFacts&, const DataPlotState& plot, PlotDraw draw) {
  DrawHulls(plot, draw);
  DrawCurves(plot, draw);
  DrawTimes(plot, draw);
}

DataFault WriteTrajectory(const PlotSource& source, const DataPlotState& plot, OutputFile& out) {
  const PlotData& track = plot.derived.history;
  const std::string names[] = {"  Time   ", track.labels[0], track.labels[1]};
  const TableLayout layout = LayoutFor(source.output.writing.separator, names);
  std::string text = out.had_text ? "\n" : "";
  text += fmt::format("Trajectory for ZAVO file {}\n", source.store.file_name);
  AppendHeading(text, layout, names);
  for (std::size_t i = 0; i < track.x.size(); ++i) {
    const float cells[] = {track.x[i], track.y[0][i], track.y[1][i]};
    AppendRow(text, layout, cells);
    WriteGathered(out, text);
  }
  WriteOutput(out, text);
  return DataFault::none;
}

}  // namespace

const PlotType kTrajectoryPlot{
    .kind = PlotKind::trajectory,
    .file_prompt = "Enter file name for writing time history of",
    .file_what = "Trajectory",
    .written = "Trajectory data written to file",
    .make = MakeTrajectory,
    .follow = FollowTrajectory,
    .curves = TrajectoryCurves,
    .fit = FitTrajectory,
    .names = TrajectoryNames,
    .notes = TrajectoryNotes,
    .draw = DrawTrajectory,
    .write = WriteTrajectory,
};

}  // namespace zaview
