#include "analysis/sea_view/sensor_tables.h"

#include <array>
#include <cmath>
#include <iterator>

#include "base/angles.h"
#include "base/number_format.h"
#include "base/table_text.h"
#include "case/kino_motions.h"

namespace zaview {
namespace {

constexpr std::string_view kHorizonHeads[] = {
    "                Sensor   Horizon       Horizon  Lookdown angle at azimuth:",
    "   Time         Height   Distance      Angle "};
constexpr std::size_t kFourColumns = 55;
constexpr std::string_view kHorizonNames[] = {"Time", "Sensor Height", "Horizon Distance", "Horizon Angle"};
constexpr std::string_view kLookdownName = "Lookdown angle at azimuth={}";
constexpr std::string_view kLineHead = "  Distance    Visible_height  for time= {}\n";
constexpr std::string_view kPointsTitle = "Visible heights above mean free surface";
constexpr std::string_view kPointsHeads[] = {"                Visible height at distance:", "   Time      "};
constexpr std::string_view kPointsName = "Visible height at distance={}";

float TimeOf(const SensorTables& t, double time) {
  return Finite(static_cast<float>(time * static_cast<double>(t.settings.units.scales.T)));
}

double LengthOf(const SensorTables& t, double length) {
  return Finite(length * static_cast<double>(t.settings.units.LENOUT));
}

TableLayout Cells(const SensorTables& t) {
  return {t.settings.writing.separator, {}};
}

bool IsSpaced(const SensorTables& t) {
  return t.settings.writing.separator == Separator::space;
}

// ---- Horizon and lookdown

void HorizonHead(const SensorTables& t, std::string& text) {
  std::vector<std::string> names(std::begin(kHorizonNames), std::end(kHorizonNames));
  if (!IsSpaced(t)) {
    for (const double azimuth : t.request.azimuths)
      names.push_back(fmt::format(fmt::runtime(kLookdownName), ShownOf(azimuth)));
    return AppendHeading(text, Cells(t), names);
  }
  fmt::format_to(std::back_inserter(text), "{}\n{:<{}}", kHorizonHeads[0], kHorizonHeads[1], kFourColumns);
  for (const double azimuth : t.request.azimuths)
    fmt::format_to(std::back_inserter(text), " {:>{}}", SentenceNumber(static_cast<float>(azimuth)), kCellWidth);
  text += '\n';
}

void HorizonStep(const SensorTables& t, const SightStep& step, std::string& text) {
  std::vector<float> cells = {TimeOf(t, step.time), static_cast<float>(LengthOf(t, step.place[2])),
                              static_cast<float>(LengthOf(t, step.horizon.distance)),
                              static_cast<float>(step.horizon.angle_deg)};
  for (const double angle : step.lookdown) cells.push_back(static_cast<float>(angle));
  AppendRow(text, Cells(t), cells);
}

// ---- Visible heights

float DistanceOf(const SensorTables& t, std::size_t j) {
  return static_cast<float>(t.request.distances[j] * t.input_to_output);
}

float HeightOf(const SensorTables& t, float z) {
  return static_cast<float>(LengthOf(t, static_cast<double>(z)));
}

void GridHead(const SensorTables& t, std::string& text) {
  constexpr int kValues = 3;
  fmt::format_to(std::back_inserter(text),
                 "!Sensor view data for ZAVO case {}\n{} ! number of distances\n{} ! number of angles\n"
                 "{} ! number of data values per point\n",
                 t.store.file_name, t.request.distances.size(), t.request.azimuths.size(), kValues);
}

std::string CellText(const TableLayout& layout, float value) {
  std::string text;
  AppendRow(text, layout, std::array{value});
  text.pop_back();  // the end of the line
  return text;
}

// Azimuths and distances are turned into text once, not in each of their rows.
void GridStep(const SensorTables& t, const SightStep& step, std::string& text) {
  const TableLayout layout = Cells(t);
  AppendRow(text, layout, std::array{TimeOf(t, step.time)});
  const std::size_t n = t.request.distances.size();
  std::vector<std::string> distances;
  for (std::size_t j = 0; j < n; ++j)
    distances.push_back(static_cast<char>(layout.separator) + CellText(layout, DistanceOf(t, j)));
  for (std::size_t i = 0; i < t.request.azimuths.size(); ++i) {
    const std::string azimuth = CellText(layout, static_cast<float>(t.request.azimuths[i]));
    for (std::size_t j = 0; j < n; ++j)
      AppendLabelledRow(text, layout, azimuth + distances[j], std::array{HeightOf(t, step.z[i * n + j])});
  }
}

void LineStep(const SensorTables& t, const SightStep& step, std::string& text) {
  if (!step.is_first) text += '\n';
  const Shown time{TimeOf(t, step.time)};
  if (IsSpaced(t)) fmt::format_to(std::back_inserter(text), fmt::runtime(kLineHead), time);
  else
    AppendHeading(text, Cells(t),
                  std::array{std::string("Distance"), fmt::format("Visible_height for time= {}", time)});
  for (std::size_t j = 0; j < step.z.size(); ++j)
    AppendRow(text, Cells(t), std::array{DistanceOf(t, j), HeightOf(t, step.z[j])});
}

void PointsHead(const SensorTables& t, std::string& text) {
  text.append(kPointsTitle).append("\n");
  if (!IsSpaced(t)) {
    std::vector<std::string> names = {"Time"};
    for (std::size_t j = 0; j < t.request.distances.size(); ++j)
      names.push_back(fmt::format(fmt::runtime(kPointsName), Shown{DistanceOf(t, j)}));
    return AppendHeading(text, Cells(t), names);
  }
  text.append(kPointsHeads[0]).append("\n").append(kPointsHeads[1]);
  for (std::size_t j = 0; j < t.request.distances.size(); ++j)
    fmt::format_to(std::back_inserter(text), " {:>{}}", SentenceNumber(DistanceOf(t, j)), kCellWidth);
  text += '\n';
}

void PointsStep(const SensorTables& t, const SightStep& step, std::string& text) {
  std::vector<float> cells = {TimeOf(t, step.time)};
  for (const float z : step.z) cells.push_back(HeightOf(t, z));
  AppendRow(text, Cells(t), cells);
}

// ---- What the heights come from, for the viewer

void MotionsHead(const SensorTables& t, std::string& text) {
  fmt::format_to(std::back_inserter(text), "!Motion data for sensor visiblity wave calculations for {}\n{}\n",
                 t.store.file_name, DefaultNumber(t.settings.units.LENOUT));
}

void MotionsStep(const SensorTables& t, const SightStep& step, std::string& text) {
  AppendKinoStep(text, {static_cast<double>(TimeOf(t, step.time)), 0, 0, 0, 0, 0, 0});
}

void AppendCommentOf(const SensorTables& t, std::string_view words, std::string& text) {
  text.append(words).append(t.store.file_name).append("\n");
}

// One line of points.
void AppendPolyline(const SensorTables& t, const SightStep& step, std::size_t n, std::string& text) {
  fmt::format_to(std::back_inserter(text), "{:.9g} 1\n{}\n", TimeOf(t, step.time), n);
}

void AppendPoint(const SensorTables& t, const SightStep& step, double s, double eta, std::string& text) {
  const double heading = step.yaw + t.request.azimuths[0] * kRadians;
  fmt::format_to(std::back_inserter(text), " {:>14.9g} {:>14.9g} {:>14.9g}\n",
                 LengthOf(t, step.place[0] + s * std::cos(heading)), LengthOf(t, step.place[1] + s * std::sin(heading)),
                 LengthOf(t, eta));
}

void ProfileHead(const SensorTables& t, std::string& text) {
  AppendCommentOf(t, "!Wave profile for sensor wave calculations for ", text);
}

void ProfileStep(const SensorTables& t, const SightStep& step, std::string& text) {
  const std::vector<double>& eta = step.samples.eta;
  AppendPolyline(t, step, eta.size(), text);
  for (std::size_t i = 0; i < eta.size(); ++i)
    AppendPoint(t, step, static_cast<double>(i) * step.samples.step, eta[i], text);
}

void CrestsHead(const SensorTables& t, std::string& text) {
  AppendCommentOf(t, "!Wave peaks for sensor wave calculations for ", text);
}

void CrestsStep(const SensorTables& t, const SightStep& step, std::string& text) {
  AppendPolyline(t, step, step.crests.size(), text);
  for (const Crest& crest : step.crests) AppendPoint(t, step, crest.s, crest.eta, text);
}

void TouchesHead(const SensorTables& t, std::string& text) {
  AppendCommentOf(t, "!Wave shadowing peaks for sensor wave calculations for ", text);
}

void TouchesStep(const SensorTables& t, const SightStep& step, std::string& text) {
  const TableLayout layout = Cells(t);
  AppendRow(text, layout, std::array{TimeOf(t, step.time)});
  for (const RayTouch& touch : step.samples.touches)
    AppendRow(text, layout,
              std::array{static_cast<float>(LengthOf(t, touch.s)), static_cast<float>(LengthOf(t, touch.eta)),
                         static_cast<float>(touch.m)});
}

constexpr std::string_view kToHeights = "Writing visibility heights to ";
// clang-format off
constexpr SensorFile kHorizon[] = {
    {{".horiz0", "Writing horizon and lookdown data to ", ""}, HorizonHead, HorizonStep}};
constexpr SensorFile kGrid[] = {{{".vis_grid", kToHeights, ""}, GridHead, GridStep}};
constexpr SensorFile kLine[] = {{{".vis_line", kToHeights, ""}, nullptr, LineStep}};
constexpr SensorFile kPoints[] = {
    {{".vis_pt", "Writing visibility heights above mean surface to  ", ""}, PointsHead, PointsStep},
    {{".wvmt", "Writing dummy KINO motion data to file ", ""}, MotionsHead, MotionsStep},
    {{".wvpt", "Writing wave elevations to KINO GT file ", ""}, ProfileHead, ProfileStep},
    {{".wvpk", "Writing wave peaks to KINO GT file ", ""}, CrestsHead, CrestsStep},
    {{".wvpks", "Writing shadowing wave peaks to file ", ""}, TouchesHead, TouchesStep}};
// clang-format on

}  // namespace

std::span<const SensorFile> SensorFilesOf(SensorMode mode) {
  switch (mode) {
    case SensorMode::horizon:
      return kHorizon;
    case SensorMode::grid:
      return kGrid;
    case SensorMode::line:
      return kLine;
    case SensorMode::points:
      return std::span(kPoints).first(1);
    case SensorMode::debug:
      break;
  }
  return kPoints;
}

}  // namespace zaview
