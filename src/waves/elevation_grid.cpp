#include "waves/elevation_grid.h"

#include <algorithm>
#include <cstddef>

#include "base/vector_clones.h"
#include "waves/phase_reduction.h"
#include "waves/wave_sums.h"

namespace zaview {
namespace {

constexpr std::size_t kPart = 32;             // components taken at once; their tables stay near the processor
constexpr std::size_t kTile = kPhasesAtOnce;  // points of a row and of a column taken at once
constexpr std::size_t kLane = 16;             // points of a row side by side

struct Tables {  // [component][point]
  float c[kPart][kTile], s[kPart][kTile];
};

// Adds to one row of a tile; each part of the components is summed by itself.
ZAVIEW_VECTOR_CLONES
void AddRow(const Tables& along_x, const Tables& along_y, std::size_t n, std::size_t j, std::span<float> row) {
  for (std::size_t from = 0; from < row.size(); from += kLane) {
    float sum[kLane] = {};
    for (std::size_t k = 0; k < n; ++k) {
      const float c = along_y.c[k][j], s = along_y.s[k][j];
      for (std::size_t i = 0; i < kLane; ++i) sum[i] += c * along_x.c[k][from + i] - s * along_x.s[k][from + i];
    }
    const std::size_t last = std::min(kLane, row.size() - from);
    for (std::size_t i = 0; i < last; ++i) row[from + i] += sum[i];
  }
}

struct Grid {
  std::span<const double> x, y;
  std::span<float> eta;
};

void FillTable(std::span<const double> at, double k, double phase, float amplitude, float* c, float* s) {
  double psi[kTile] = {};
  for (std::size_t i = 0; i < at.size(); ++i) psi[i] = k * at[i] + phase;
  SinesAndCosines(psi, c, s);
  for (std::size_t i = 0; i < kTile; ++i) {
    c[i] *= amplitude;
    s[i] *= amplitude;
  }
}

void SumTile(const IncidentWave& wave, WaveMoment moment, const Grid& grid, std::size_t i0, std::size_t j0) {
  const std::size_t ni = std::min(kTile, grid.x.size() - i0), nj = std::min(kTile, grid.y.size() - j0);
  Tables along_x, along_y;
  for (std::size_t from = 0; from < wave.size(); from += kPart) {
    const std::size_t n = std::min(kPart, wave.size() - from);
    for (std::size_t k = 0; k < n; ++k) {
      const std::size_t m = from + k;
      const double phase = ReducedPhase(wave.p[m] - wave.w[m] * moment.time);
      FillTable(grid.x.subspan(i0, ni), wave.kx[m], phase, wave.a[m] * static_cast<float>(moment.scale), along_x.c[k],
                along_x.s[k]);
      FillTable(grid.y.subspan(j0, nj), wave.ky[m], 0.0, 1.0F, along_y.c[k], along_y.s[k]);
    }
    for (std::size_t j = 0; j < nj; ++j)
      AddRow(along_x, along_y, n, j, grid.eta.subspan((j0 + j) * grid.x.size() + i0, ni));
  }
}

// What no table of angles sums, point by point.
void EachPoint(const IncidentWave& wave, WaveKind kind, WaveMoment moment, const Grid& grid) {
  const std::size_t nx = grid.x.size(), points = nx * grid.y.size();
  for (std::size_t from = 0; from < points; from += kSideBySide) {
    PointBlock block;
    block.n = std::min(kSideBySide, points - from);
    for (std::size_t j = 0; j < block.n; ++j) {
      block.x[j] = grid.x[(from + j) % nx];
      block.y[j] = grid.y[(from + j) / nx];
      block.t[j] = moment.time;
      block.scale[j] = static_cast<float>(moment.scale);
    }
    const BlockValues eta = BlockElevations(wave, kind, block);
    std::copy_n(eta.begin(), block.n, grid.eta.begin() + static_cast<std::ptrdiff_t>(from));
  }
}

}  // namespace

WaveFault ElevationGrid(const IncidentWave& wave, WaveMoment moment, std::span<const double> x,
                        std::span<const double> y, std::span<float> eta) {
  std::fill(eta.begin(), eta.end(), 0.0F);
  const WaveKind kind = KindOf(wave);
  if (kind == WaveKind::unknown) return WaveFault::unknown_kind;
  if (kind == WaveKind::calm || wave.size() == 0) return WaveFault::none;
  const Grid grid{x, y, eta};
  if (kind != WaveKind::linear) {
    EachPoint(wave, kind, moment, grid);
    return WaveFault::none;
  }
  for (std::size_t j = 0; j < y.size(); j += kTile)
    for (std::size_t i = 0; i < x.size(); i += kTile) SumTile(wave, moment, grid, i, j);
  return WaveFault::none;
}

}  // namespace zaview
