#include "waves/wave_interp.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include "base/grow.h"

namespace zaview {
namespace {

constexpr double kBorder = 1e-9;  // of a gap: the far border is reached by adding gaps

struct Cell {  // the corner below and the share of the way to the next; share 0 at the last corner
  std::size_t index = 0;
  double share = 0;
};

bool FindCell(double value, double origin, double gap, int n, Cell& cell) {
  if (n > 1 && !(gap > 0.0)) return false;
  double u = n > 1 ? (value - origin) / gap : value - origin;
  const double last = n - 1;
  if (!(u >= -kBorder && u <= last + kBorder)) return false;
  u = std::clamp(u, 0.0, last);
  cell.index = static_cast<std::size_t>(u);
  cell.share = u - std::floor(u);
  return true;
}

bool FindCells(const WaveTable& table, const Vector3& point, Cell& x, Cell& y) {
  return FindCell(point[0], table.x0, table.dx, table.nx, x) && FindCell(point[1], table.y0, table.dy, table.ny, y);
}

double Gap(double span, int n) {
  return n > 1 ? span / (n - 1) : 0.0;
}

}  // namespace

bool SetupIncidentWaveInterpHS(const IncidentWave& wave, WaveMoment moment, const WaveTableRequest& request,
                               WaveTable& table) {
  table = WaveTable{};
  if (request.NBASEX > kWaveTableX || request.NBASEY > kWaveTableY) return false;
  const int nx = request.NBASEX > 0 ? request.NBASEX : kWaveTableX;
  const int ny = request.NBASEY > 0 ? request.NBASEY : kWaveTableY;

  double x0 = request.centre_x - 0.5 * request.XINTRP;
  double span_x = request.XINTRP;
  if (!(request.XINTRP > 0.0)) {
    const double length = request.ship_x_max - request.ship_x_min;
    x0 = request.ship_x_min - 0.1 * length;
    span_x = 1.2 * length;
  }
  const double span_y = request.YINTRP > 0.0 ? request.YINTRP : span_x;

  WaveTable made;
  made.time = moment.time;
  made.x0 = x0;
  made.y0 = request.centre_y - 0.5 * span_y;
  made.dx = Gap(span_x, nx);
  made.dy = Gap(span_y, ny);
  std::vector<Vector3> points;
  const std::size_t n = static_cast<std::size_t>(nx) * static_cast<std::size_t>(ny);
  if (!Grow(points, n) || !Grow(made.eta, n)) return false;
  std::size_t at = 0;
  for (int j = 0; j < ny; ++j) {
    for (int i = 0; i < nx; ++i) points[at++] = {made.x0 + i * made.dx, made.y0 + j * made.dy, 0.0};
  }
  WaveOptions options;
  options.elevation_only = true;
  WaveOutputs out;
  out.eta = made.eta;
  if (EvalIncidentWave(wave, moment, options, points, out) != WaveFault::none) return false;
  made.nx = nx;
  made.ny = ny;
  table = std::move(made);
  return true;
}

bool ElevationFromTable(const WaveTable& table, double time, std::span<const Vector3> points, std::span<float> eta) {
  if (table.nx <= 0 || table.ny <= 0 || !(std::abs(time - table.time) <= kSameWaveTime)) return false;
  Cell x;
  Cell y;
  for (const Vector3& point : points) {
    if (!FindCells(table, point, x, y)) return false;
  }
  const auto nx = static_cast<std::size_t>(table.nx);
  const std::size_t n = std::min(points.size(), eta.size());
  for (std::size_t i = 0; i < n; ++i) {
    if (!FindCells(table, points[i], x, y)) return false;
    const auto corner = [&](std::size_t column, std::size_t row) {
      return static_cast<double>(table.eta[row * nx + column]);
    };
    const std::size_t right = std::min(x.index + 1, nx - 1);
    const std::size_t above = std::min(y.index + 1, static_cast<std::size_t>(table.ny) - 1);
    const double low = corner(x.index, y.index) * (1.0 - x.share) + corner(right, y.index) * x.share;
    const double high = corner(x.index, above) * (1.0 - x.share) + corner(right, above) * x.share;
    eta[i] = static_cast<float>(low * (1.0 - y.share) + high * y.share);
  }
  return true;
}

}  // namespace zaview
