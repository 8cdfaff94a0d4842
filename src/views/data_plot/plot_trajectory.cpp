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
#include "views/data_plot/plot_parts.h"
#include "views/data_plot/plot_type.h"

namespace zaview {

namespace {

constexpr std::string_view kNotPreserved = "Geometric aspect NOT preserved";
constexpr std::string_view kNotToScale = "Hull geometry NOT to scale";
constexpr std::string_view kTooMany = "WARNING - {} waterline segments were found while MAXWP0= {}";
constexpr std::string_view kIncomplete = "Ship geometry in trajectory plots will be incomplete";
constexpr int kPosition = 1;  // quantity
constexpr int kHulls = 10;    // on the track, unless the user says otherwise
constexpr int kHullColour = 3, kLabelColour = 1;
constexpr float kLabelGap = 0.4F;  // character heights between the track and a time
constexpr int kTrackMark = 3;
constexpr float kTrackMarkSize = 0.6F;
constexpr float kTurn = 0.01F;         // radians: a hull on top of the one before is drawn if it has turned by this
constexpr std::size_t kBlock = 65536;  // bytes of rows gathered for one write

// ---- Data
void FillWaterline(Session& session, DataPlotDerived& derived) {
  derived.waterline_x.clear();
  derived.waterline_y.clear();
  CaseStore& store = session.case_store;
  if (!session.data_plot.show_ship || !EnsureHull(session.platform, store)) return;
  std::vector<WaterlinePiece> pieces;
  const int count = CutHull(store.hull, StillWater(store), pieces);
  if (count > MAXWP0) {
    Say(session.platform.console, kTooMany, count, MAXWP0);
    SayLine(session.platform.console, kIncomplete);
  }
  const Vector3 centre = ShipCentre(store);
  const double length = static_cast<double>(session.output.units.scales.position[0]);
  const auto shown = [&](double value, std::size_t i) { return static_cast<float>((value - centre[i]) * length); };
  for (const WaterlinePiece& piece : pieces) {
    derived.waterline_x.push_back({shown(piece[0][0], 0), shown(piece[1][0], 0)});
    derived.waterline_y.push_back({shown(piece[0][1], 1), shown(piece[1][1], 1)});
  }
}

// Steps of points, in order: those the user has marked, every n-th, or ten from the first to the last.
void FillHullSteps(const Session& session, DataPlotState& plot) {
  std::vector<int>& steps = plot.derived.hull_steps;
  steps.clear();
  const int stride = std::max(1, session.output.reading.step_stride), first = session.case_store.first_step;
  const int last = plot.derived.history.n - 1;
  int before = -1;
  const auto add = [&](std::int64_t point) {
    if (point <= before || point > last) return;
    before = static_cast<int>(point);
    steps.push_back(first + before * stride);
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
}

bool PrepareTrajectory(Session& session) {
  DataPlotState& plot = session.data_plot;
  DataPlotDerived& derived = plot.derived;
  const Console& console = session.platform.console;
  if (plot.redo_data || derived.history_of != PlotKind::trajectory) {
    derived.history_of = PlotKind::none;
    QuantityRequest request;
    request.iqnt = kPosition;
    PlotFault fault = PlotFault::not_valid;
    if (session.case_store.time_history())
      fault = SetPlotData(console, session.output, request, session.case_store, derived.history);
    if (!SayPlotFault(console, fault, kPosition)) return false;
    if (derived.history.n == 0) {
      SayLine(console, kNoPlotSteps);
      return false;
    }
    FillWaterline(session, derived);
    derived.history_of = PlotKind::trajectory;
    plot.redo_data = false;
  } else if (plot.show_ship && derived.waterline_x.empty()) {
    FillWaterline(session, derived);
  }
  FillHullSteps(session, plot);
  return true;
}

void TrajectoryCurves(const Session& session, std::vector<DrawnCurve>& curves) {
  const PlotData& track = session.data_plot.derived.history;
  if (track.y.size() >= 2) curves.push_back({1, track.y[0], track.y[1]});
}

// ---- The hull
struct HullPlace {
  float x = 0, y = 0, yaw = 0;  // of the centre as shown; radians
};

std::vector<HullPlace> HullPlaces(const Session& session) {
  const DataPlotDerived& derived = session.data_plot.derived;
  const CaseStore& store = session.case_store;
  const int stride = std::max(1, session.output.reading.step_stride);
  std::vector<HullPlace> places;
  for (const int step : derived.hull_steps) {
    const auto point = static_cast<std::size_t>((step - store.first_step) / stride);
    if (point >= derived.history.y[0].size()) continue;
    places.push_back({derived.history.y[0][point], derived.history.y[1][point], store.pmgg.at(6, step)});
  }
  return places;
}

struct ShownPoint {
  float x = 0, y = 0;
};

// A point of the ship at a place; ship axes from the centre, output units.
ShownPoint OfShip(const Session& session, const HullPlace& place, float x, float y) {
  const float scale = session.data_plot.geometry_scale;
  const float c = scale * std::cos(place.yaw), s = scale * std::sin(place.yaw);
  const std::array<float, 6>& sign = session.output.units.cnvfac;
  return {place.x + sign[0] * (c * x - s * y), place.y + sign[1] * (s * x + c * y)};
}

bool ShowsHull(const DataPlotState& plot) {
  return plot.show_ship && !plot.derived.waterline_x.empty();
}

void DrawHulls(const Session& session, PlotDraw draw) {
  const DataPlotState& plot = session.data_plot;
  if (!ShowsHull(plot)) return;
  dgColour(draw, ColourOf(plot, kHullColour));
  std::vector<float> x, y;
  HullPlace before;
  GksPixel pixel_before{-1, -1};
  for (const HullPlace& place : HullPlaces(session)) {
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
        const ShownPoint at = OfShip(session, place, ship_x[i], ship_y[i]);
        x.push_back(at.x);
        y.push_back(at.y);
      }
      dgCurve(draw, x, y, 0);
    }
  }
  dgColour(draw, 1);
}

// ---- Limits and texts
void Include(const ShownPoint& at, PlotLimits& limits) {
  if (!std::isfinite(at.x) || !std::isfinite(at.y)) return;
  limits.x_min = std::min(limits.x_min, at.x);
  limits.x_max = std::max(limits.x_max, at.x);
  limits.y_min = std::min(limits.y_min, at.y);
  limits.y_max = std::max(limits.y_max, at.y);
}

// Room for the rectangles about the hulls as well.
void FitTrajectory(const Session& session, PlotLimits& limits) {
  const DataPlotState& plot = session.data_plot;
  limits = PlotLimits{};
  if (!FitAxes(session, FitOver::all_steps, limits)) return;
  if (ShowsHull(plot)) {
    PlotLimits ship{0, 0, 0, 0, 0, 0};
    for (std::size_t k = 0; k < plot.derived.waterline_x.size(); ++k)
      for (std::size_t i = 0; i < plot.derived.waterline_x[k].size(); ++i)
        Include({plot.derived.waterline_x[k][i], plot.derived.waterline_y[k][i]}, ship);
    for (const HullPlace& place : HullPlaces(session))
      for (const float x : {ship.x_min, ship.x_max})
        for (const float y : {ship.y_min, ship.y_max}) Include(OfShip(session, place, x, y), limits);
  }
  RoundX(plot, limits);
  RoundY(plot, limits);
}

void TrajectoryNames(const Session&, PlotNames& names) {
  names.title = "Trajectory";
}

ShownPoint OnPaper(const PlotPage& page, float x, float y) {
  return {page.area_x + (x - page.x_origin) / (page.x_end - page.x_origin) * page.area_width,
          page.area_y + (y - page.y_origin) / (page.y_end - page.y_origin) * page.area_height};
}

// At the marked steps; a time that would touch the one before is left out.
void DrawTimes(const Session& session, PlotDraw draw) {
  const DataPlotState& plot = session.data_plot;
  if (!plot.time_labels_on) return;
  const PlotPage& page = draw.page;
  const int stride = std::max(1, session.output.reading.step_stride);
  const float h = plot.annot_size, pitch = LinePitch(draw, h);
  ShownPoint before{-page.page_width, -page.page_height};
  float width_before = 0;
  dgColour(draw, kLabelColour);
  dgMarkerType(draw, kTrackMark);
  dgMarkerScale(draw, kTrackMarkSize * plot.mark_size);
  for (const int step : plot.derived.hull_steps) {
    const auto point = static_cast<std::size_t>((step - session.case_store.first_step) / stride);
    const PlotData& track = plot.derived.history;
    if (point >= track.x.size()) continue;
    const float x[] = {track.y[0][point]}, y[] = {track.y[1][point]};
    dgCurve(draw, x, y, -1);
    ShownPoint at = OnPaper(page, x[0], y[0]);
    const bool inside = at.x >= page.area_x && at.x <= page.area_x + page.area_width && at.y >= page.area_y &&
                        at.y <= page.area_y + page.area_height;
    if (!inside) continue;
    const std::string text = ShortNumber(track.x[point]);
    const float width = TextWidth(draw, text, h);
    at.x = std::min(at.x, page.page_width - width);
    at.y += kLabelGap * h;
    if (at.x - before.x < width_before + h && before.x - at.x < width + h && std::abs(at.y - before.y) < pitch)
      continue;
    PageText(draw, text, at.x, at.y, h, TextSide::left);
    before = at;
    width_before = width;
  }
}

void DrawTrajectory(Session& session, PlotDraw draw) {
  const DataPlotState& plot = session.data_plot;
  DrawHulls(session, draw);
  DrawCurves(session, draw);
  DrawTimes(session, draw);
  std::vector<PageNote> notes;
  if (!plot.keep_aspect) notes.push_back({std::string(kNotPreserved)});
  if (ShowsHull(plot) && plot.geometry_scale != 1.0F) notes.push_back({std::string(kNotToScale)});
  PageNotes(draw, notes, plot.text_size, plot.annot_size);
}

TableFault WriteTrajectory(Session& session, OutputFile& out) {
  if (!PrepareTrajectory(session)) return TableFault::said;
  const PlotData& track = session.data_plot.derived.history;
  const std::string names[] = {"  Time   ", track.labels[0], track.labels[1]};
  const TableLayout layout = LayoutFor(session.output.writing.separator, names);
  std::string text = out.had_text ? "\n" : "";
  text += fmt::format("Trajectory for ZAVO file {}\n", session.case_store.file_name);
  AppendHeading(text, layout, names);
  for (std::size_t i = 0; i < track.x.size(); ++i) {
    const float cells[] = {track.x[i], track.y[0][i], track.y[1][i]};
    AppendRow(text, layout, cells);
    if (text.size() < kBlock) continue;
    WriteOutput(out, text);
    text.clear();
  }
  WriteOutput(out, text);
  return TableFault::none;
}

}  // namespace

const PlotType kTrajectoryPlot{
    PlotKind::trajectory,
    false,
    "Enter file name for writing time history of",
    "Trajectory data written to file",
    PrepareTrajectory,
    TrajectoryCurves,
    FitTrajectory,
    TrajectoryNames,
    DrawTrajectory,
    WriteTrajectory,
};

}  // namespace zaview
