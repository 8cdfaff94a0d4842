#include "views/motion/sea_parts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include "base/grow.h"
#include "waves/elevation_grid.h"
#include "waves/wave_scale.h"

namespace zaview {

namespace {

constexpr int kAhead = 30, kAside = 20;  // cells from the CG to the edge
constexpr int kCells = 30;               // a grid size
constexpr int kOuter = 16;               // cells from there to the horizon, growing
constexpr double kWavesTo = 2.0;         // grid sizes; farther out the cells are too coarse for waves

using Ink = std::array<float, 3>;
constexpr Ink kTrough{20, 84, 140}, kLevel{48, 128, 186}, kCrest{140, 214, 240}, kSky{150, 188, 215};
constexpr float kBelow = 0.5F;  // of the brightness, seen from below
constexpr float kWhole = 2.0F;  // r.m.s. elevations up to the whole colour of a crest

// The cells of one direction: `half` even ones to each side, and outer ones up to the horizon.
bool MakeAxis(int half, double step, double horizon, std::vector<double>& axis) {
  const int outer = horizon > 0 ? kOuter : 0, count = 2 * (half + outer) + 1;
  if (!Grow(axis, static_cast<std::size_t>(count))) return false;
  const double edge = half * step;
  const double growth = outer > 0 ? std::pow(horizon / edge, 1.0 / outer) : 1.0;
  for (int i = 0; i < count; ++i) {
    const int from_middle = i - half - outer, side = from_middle < 0 ? -1 : 1, cells = std::abs(from_middle);
    const double away = cells <= half ? cells * step : edge * std::pow(growth, cells - half);
    axis[static_cast<std::size_t>(i)] = side * away;
  }
  return true;
}

// 1 on the grid, 0 where the waves have died away.
double WavesAt(const MotionStage& stage, double x, double y) {
  const double out = std::max(std::abs(x) / stage.grid, 1.5 * std::abs(y) / stage.grid);  // 1 at the edge of the grid
  return std::clamp((kWavesTo - out) / (kWavesTo - 1.0), 0.0, 1.0);
}

double CoverAt(const MotionStage& stage, double x, double y) {
  if (stage.horizon == 0) return 1.0;
  const double out = std::max(std::abs(x), std::abs(y)) / stage.horizon;
  return std::clamp(2.0 * (1.0 - out), 0.0, 1.0);
}

bool Elevations(const CaseStore& store, const MotionStage& stage, MotionSceneState& scene) {
  const std::size_t nx = scene.grid_x.size(), ny = scene.grid_y.size();
  if (!Grow(scene.eta, nx * ny) || !Grow(scene.wave_x, nx) || !Grow(scene.wave_y, ny)) return false;
  if (store.seaway_tried != Tried::there) {
    std::fill(scene.eta.begin(), scene.eta.end(), 0.0F);
    return true;
  }
  for (std::size_t i = 0; i < nx; ++i) scene.wave_x[i] = stage.pose.cg[0] + scene.grid_x[i] / stage.length;
  for (std::size_t j = 0; j < ny; ++j) scene.wave_y[j] = stage.pose.cg[1] + scene.grid_y[j] / stage.length;
  const WaveMoment moment{static_cast<double>(store.time.at(1, stage.step)),
                          WaveScaleAtStep(store.seaway.scaling, stage.step).scale};
  static_cast<void>(ElevationGrid(store.wave, moment, scene.wave_x, scene.wave_y, scene.eta));  // a fault: flat
  for (std::size_t j = 0; j < ny; ++j)
    for (std::size_t i = 0; i < nx; ++i)
      scene.eta[j * nx + i] *= static_cast<float>(stage.length * WavesAt(stage, scene.grid_x[i], scene.grid_y[j]));
  return true;
}

double RootMeanSquare(const CaseStore& store) {
  if (store.seaway_tried != Tried::there) return 0.0;
  double sum = 0;
  for (const float a : store.wave.a) sum += 0.5 * static_cast<double>(a) * static_cast<double>(a);
  return std::sqrt(sum);
}

unsigned char Byte(float value) {
  return static_cast<unsigned char>(std::clamp(value + 0.5F, 0.0F, 255.0F));
}

float WholeCrest(const CaseStore& store, const MotionStage& stage) {
  return kWhole * static_cast<float>(RootMeanSquare(store) * stage.length);
}

Ink InkAt(float eta, float whole) {
  const float t = whole > 0 ? std::clamp(eta / whole, -1.0F, 1.0F) : 0.0F;
  const Ink& end = t < 0 ? kTrough : kCrest;
  Ink ink{};
  for (std::size_t k = 0; k < 3; ++k) ink[k] = kLevel[k] + std::abs(t) * (end[k] - kLevel[k]);
  return ink;
}

// |n.v|: 1 where the eye looks straight down on the water.
float Steepness(const Eye& eye, const SceneVertex& vertex) {
  const ScenePoint& at = eye.place;
  const float v[] = {static_cast<float>(at.x) - vertex.place[0], static_cast<float>(at.y) - vertex.place[1],
                     static_cast<float>(at.z) - vertex.place[2]};
  const float length = std::sqrt(v[0] * v[0] + v[1] * v[1] + v[2] * v[2]);
  const float dot = vertex.normal[0] * v[0] + vertex.normal[1] * v[1] + vertex.normal[2] * v[2];
  return length > 0 ? std::min(std::abs(dot) / length, 1.0F) : 1.0F;
}

// Brightness ambient + (1 - ambient) |n.v|, as for all that is lit. The share of sky goes with a power of 1 - |n.v|
// as for light that water reflects (C. Schlick, 1994).
void SetColours(const SeaLooks& looks, const Ink& ink, float cover, const Eye& eye, SceneVertex& above,
                SceneVertex& below) {
  constexpr float kMostSky = 0.8F;
  const float steep = looks.lit ? Steepness(eye, above) : 1.0F, flat = 1 - steep;
  const float light = looks.ambient + (1 - looks.ambient) * steep;
  const float sky = (1 - looks.ambient) * kMostSky * flat * flat * flat * flat;
  for (std::size_t k = 0; k < 3; ++k) {
    above.colour[k] = Byte(light * ink[k] * (1 - sky) + sky * kSky[k]);
    below.colour[k] = Byte(kBelow * light * ink[k]);
  }
  above.colour[3] = below.colour[3] = Byte(255.0F * looks.opacity * cover);
}

// Slope between the neighbours, at an edge to the one neighbour.
float Slope(const std::vector<double>& axis, std::size_t i, const float* eta, std::size_t stride) {
  const std::size_t a = i == 0 ? 0 : i - 1, b = std::min(i + 1, axis.size() - 1);
  return (eta[b * stride] - eta[a * stride]) / static_cast<float>(axis[b] - axis[a]);
}

void PutVertices(const CaseStore& store, const MotionStage& stage, const SeaLooks& looks, MotionSceneState& scene) {
  const std::size_t nx = scene.grid_x.size(), ny = scene.grid_y.size();
  const float whole = WholeCrest(store, stage);
  for (std::size_t j = 0; j < ny; ++j) {
    for (std::size_t i = 0; i < nx; ++i) {
      const float *const row = &scene.eta[j * nx], *const column = &scene.eta[i];
      const float sx = Slope(scene.grid_x, i, row, 1), sy = Slope(scene.grid_y, j, column, nx);
      const float n = 1.0F / std::sqrt(1.0F + sx * sx + sy * sy);
      SceneVertex& above = scene.sea.vertices[j * nx + i];
      SceneVertex& below = scene.sea_below.vertices[j * nx + i];
      above.place = {static_cast<float>(scene.grid_x[i]), static_cast<float>(scene.grid_y[j]), row[i]};
      above.normal = {-sx * n, -sy * n, n};
      below.place = above.place;
      const auto cover = static_cast<float>(CoverAt(stage, scene.grid_x[i], scene.grid_y[j]));
      SetColours(looks, InkAt(row[i], whole), cover, stage.eye, above, below);
    }
  }
}

// Two triangles a cell, counter-clockwise from above; wires along both directions.
bool PutCells(std::size_t nx, std::size_t ny, SceneMesh& mesh) {
  const std::size_t cells = (nx - 1) * (ny - 1);
  if (mesh.vertices.size() == nx * ny && mesh.triangles.size() == 6 * cells) return true;
  mesh.triangles.clear();
  mesh.lines.clear();
  if (!Grow(mesh.vertices, nx * ny) || !Reserve(mesh.triangles, 6 * cells) || !Reserve(mesh.lines, 4 * nx * ny))
    return false;
  for (std::size_t j = 0; j < ny; ++j) {
    for (std::size_t i = 0; i < nx; ++i) {
      const auto a = static_cast<std::uint32_t>(j * nx + i), b = a + 1, d = a + static_cast<std::uint32_t>(nx),
                 c = d + 1;
      if (i + 1 < nx) mesh.lines.insert(mesh.lines.end(), {a, b});
      if (j + 1 < ny) mesh.lines.insert(mesh.lines.end(), {a, d});
      if (i + 1 < nx && j + 1 < ny) mesh.triangles.insert(mesh.triangles.end(), {a, b, c, a, c, d});
    }
  }
  return true;
}

}  // namespace

bool MakeSea(const CaseStore& store, const MotionStage& stage, const SeaLooks& looks, MotionSceneState& scene) {
  const double step = stage.grid / kCells;
  if (!MakeAxis(kAhead, step, stage.horizon, scene.grid_x) || !MakeAxis(kAside, step, stage.horizon, scene.grid_y))
    return false;
  const std::size_t nx = scene.grid_x.size(), ny = scene.grid_y.size();
  if (!PutCells(nx, ny, scene.sea) || !PutCells(nx, ny, scene.sea_below)) return false;
  if (!Elevations(store, stage, scene)) return false;
  PutVertices(store, stage, looks, scene);
  return true;
}

}  // namespace zaview
