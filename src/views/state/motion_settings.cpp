#include "views/state/motion_settings.h"

#include <algorithm>
#include <cmath>

#include "base/message.h"
#include "case/case_hull.h"
#include "case/quantity_catalogue.h"
#include "case/settings/point_settings.h"

namespace zaview {

namespace {

constexpr fmt::string_view kGraphOff = "Graph {} is switched off : this case has no {}";
constexpr std::string_view kPointOff = "The marked point is switched off : this case has no hull";

constexpr double kNearer = 1.0e-3, kFarther = 1.0e3;   // than what fits
constexpr double kFinest = 1.0e-2, kCoarsest = 1.0e2;  // grids
constexpr float kTenths = 10.0F;

constexpr double kFromAbove = 8.0;  // degrees: the sea is seen, and the ship from the side
constexpr CameraPreset kPresets[] = {
    {"BOW", 0, kFromAbove},         {"STERN", 180, kFromAbove}, {"PORT", 90, kFromAbove},
    {"STARBOARD", 270, kFromAbove}, {"TOP", 270, 90},           {"QUARTER", 150, 20},
};
constexpr std::string_view kStands[] = {"SHIP", "HEADING", "EARTH", "BRIDGE"};

// In 4 bytes steps of a tenth go astray by a little each.
float OnTenths(float value, int tenths) {
  return std::round(value * kTenths + static_cast<float>(tenths)) / kTenths;
}

}  // namespace

void ScaleRadius(Camera& view, const SeenSizes& seen, double factor) {
  view.view_radius = std::clamp(seen.radius * factor, kNearer * seen.fitting_radius, kFarther * seen.fitting_radius);
}

void ShiftCentre(Camera& view, const SeenSizes& seen, double ScenePoint::*axis, int tenths) {
  view.view_centre.*axis += 0.1 * tenths * seen.radius;
}

std::span<const CameraPreset> CameraPresets() {
  return kPresets;
}

void LookFrom(Camera& view, const CameraPreset& preset) {
  view.view_centre = {};
  view.view_azimuth = preset.azimuth;
  view.view_elevation = preset.elevation;
  view.view_radius = 0;
}

bool LooksFrom(const Camera& view, const CameraPreset& preset) {
  return view.view_azimuth == preset.azimuth && view.view_elevation == preset.elevation;
}

void LookAsAtFirst(MotionViewState& view) {
  view.view = Camera{};
  view.stand = CameraStand::ship;
}

std::span<const std::string_view> StandWords() {
  return kStands;
}

void ChooseStand(MotionViewState& view, CameraStand stand) {
  view.stand = stand;
  view.earth.chosen = false;
}

void ChooseEarth(MotionViewState& view, const CaseStore& store, const OutputScales& scales) {
  EarthStand& earth = view.earth;
  if (view.stand != CameraStand::earth) earth.chosen = false;
  if (view.stand != CameraStand::earth || (earth.chosen && earth.case_serial == store.serial)) return;
  if (!store.has_steps()) return;
  const auto shown = [&](int axis) {
    return static_cast<double>(store.pmgg.at(axis, store.current_step)) * static_cast<double>(scales.position[0]);
  };
  earth = {true, shown(1), shown(2), store.serial};
}

void StepAmbient(MotionViewState& view, int tenths) {
  constexpr float kDark = 0.1F, kBright = 0.9F;
  const bool acts = tenths < 0 ? view.ambient > kDark : view.ambient < kBright;
  if (acts) view.ambient = OnTenths(view.ambient, tenths);
}

void StepOpacity(MotionViewState& view, int tenths) {
  constexpr float kLeast = 0.1F, kMost = 1.0F;
  view.fs_opacity = std::clamp(OnTenths(view.fs_opacity, tenths), kLeast, kMost);
}

void ScaleGrid(MotionViewState& view, const SeenSizes& seen, double factor) {
  const double fits = seen.fitting_radius;
  view.fs_grid_size = static_cast<float>(std::clamp(seen.grid * factor, kFinest * fits, kCoarsest * fits));
}

bool TakeGraphQuantity(MotionGraph& graph, const CaseStore& store, const PointSettings& point, int iqnt) {
  const QuantityRow* const row = FindQuantity(iqnt);
  if (row == nullptr || row->need == QuantityNeed::file_only || !QuantityValid(store, iqnt)) return false;
  const int curves = CurveCount(store, iqnt);
  if (curves < 1 || !PointGiven(point, iqnt)) return false;
  graph.request.iqnt = iqnt;
  if (graph.request.curve < 0 || graph.request.curve > curves) graph.request.curve = 1;
  UsePoint(point, graph.request);
  graph.on = true;
  return true;
}

bool TakeGraphCurve(MotionGraph& graph, const CaseStore& store, int curve) {
  if (curve < 0 || curve > CurveCount(store, graph.request.iqnt)) return false;
  graph.request.curve = curve;
  return true;
}

void MoveGraphPoint(MotionViewState& view, const std::array<double, 3>& before, const PointSettings& point) {
  for (MotionGraph& graph : view.graphs)
    if (graph.request.point == before) UsePoint(point, graph.request);
}

void TakeCase(const Platform& platform, MotionViewState& view, CaseStore& store) {
  if (!store.has_case || view.of_case == store.file_name) return;
  const bool first = view.of_case.empty();
  view.of_case = store.file_name;
  if (!first) {
    view.view.view_radius = 0;
    view.fs_grid_size = 0;
  }
  for (std::size_t i = 0; i < view.graphs.size(); ++i) {
    MotionGraph& graph = view.graphs[i];
    if (!graph.on || QuantityValid(store, graph.request.iqnt)) continue;
    graph.on = false;
    Say(platform.console, kGraphOff, i + 1, cQntMed(graph.request.iqnt));
  }
  if (!view.mark_point || EnsureHull(platform, store)) return;
  view.mark_point = false;
  SayLine(platform.console, kPointOff);
}

}  // namespace zaview
