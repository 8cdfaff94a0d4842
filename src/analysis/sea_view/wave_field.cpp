#include "analysis/sea_view/wave_field.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "analysis/do_or_say.h"
#include "analysis/sea_view/plot3d_file.h"
#include "analysis/sea_view/root_files.h"
#include "analysis/sea_view/shifted_waves.h"
#include "base/message.h"
#include "base/number_format.h"
#include "base/side_by_side.h"
#include "base/table_text.h"
#include "case/wave_at_cg.h"
#include "control/input_scales.h"
#include "control/options_lookup.h"
#include "frame/ground/progress_line.h"
#include "waves/incident_wave.h"
#include "waves/wave_scale.h"
#include "waves/wave_sums.h"

namespace zaview {
namespace {

constexpr RootFile kFiles[] = {{".txt", "Writing wave flow field data to ", ""},
                               {".xyz", "Writing PLOT3D grid to ", ""},
                               {".f", "Writing PLOT3D functions to ", ""},
                               {".nam", "Writing names of PLOT3D functions to ", ""}};
constexpr std::string_view kFunctions[] = {"eta", "u", "v", "w", "p"};
constexpr std::string_view kNoMemory = "ERROR allocate wave field arrays";
constexpr std::string_view kInterrupted = "Wave field interrupted";
constexpr std::string_view kNoDecay = "WARNING - IEKZOPT= {} : no decay with depth";
constexpr OptionNames kDecayOption{"IEKZOPT"};
constexpr double kOnSurface = 1e-5;      // of L: as far above the waves a point is still under water
constexpr std::size_t kRowsAtOnce = 64;  // between two looks at the clock
constexpr std::size_t kEta = 0, kU = 1, kV = 2, kW = 3, kP = 4;

struct FieldWork {
  const OutputSettings& settings;
  const WaveFieldRequest& request;
  const CaseStore& store;
  ShiftOrigin origin;
  WaveMoment moment;
  WaveOptions options;
  double speed = 0;  // of the ship
};

float PlaceOn(const GridAxis& axis, std::size_t i) {
  if (axis.n == 1) return axis.low;
  const double gap = (static_cast<double>(axis.high) - static_cast<double>(axis.low)) / (axis.n - 1);
  return static_cast<float>(static_cast<double>(axis.low) + static_cast<double>(i) * gap);
}

std::size_t Count(const GridAxis& axis) {
  return static_cast<std::size_t>(axis.n);
}

// One row along x, from `first` on in the columns of grid and functions. What throws is caught outside.
void EvaluateRow(const FieldWork& work, std::size_t row, Plot3dBlock& grid, Plot3dBlock& functions) {
  const std::array<GridAxis, 3>& axes = work.request.axes;
  const std::size_t n = Count(axes[0]);
  const double L = static_cast<double>(work.settings.units.LENOUT);
  const float y = PlaceOn(axes[1], row % Count(axes[1]));
  const float z = PlaceOn(axes[2], row / Count(axes[1]));
  std::vector<Vector3> points(n);
  std::vector<float> eta(n), phi_t(n), phi_x(n), phi_y(n), phi_z(n);
  for (std::size_t i = 0; i < n; ++i) {
    const float x = PlaceOn(axes[0], i);
    points[i] = {work.origin.x - static_cast<double>(x) / L, work.origin.y - static_cast<double>(y) / L,
                 static_cast<double>(z) / L};
    const std::array<float, 3> place = {x, y, z};
    for (std::size_t k = 0; k < 3; ++k) grid.values[k][row * n + i] = place[k];
  }
  WaveOutputs out;
  out.eta = eta;
  out.phi_t = phi_t;
  out.phi_x = phi_x;
  out.phi_y = phi_y;
  out.phi_z = phi_z;
  (void)EvalIncidentWave(work.store.wave, work.moment, work.options, points, out);  // a kind that it knows
  const double g = static_cast<double>(work.settings.units.GRAVOUT);
  const double speed_scale = std::sqrt(g * L);
  const double pressure_scale = static_cast<double>(work.settings.units.RHOOUT) * g * L;
  const auto shown = [](double value) { return Finite(static_cast<float>(value)); };
  for (std::size_t i = 0; i < n; ++i) {
    std::vector<std::vector<float>>& f = functions.values;
    const std::size_t at = row * n + i;
    f[kEta][at] = shown(static_cast<double>(eta[i]) * L);
    if (points[i][2] > static_cast<double>(eta[i]) + kOnSurface) continue;
    f[kU][at] = shown((work.speed - static_cast<double>(phi_x[i])) * speed_scale);
    f[kV][at] = shown(-static_cast<double>(phi_y[i]) * speed_scale);
    f[kW][at] = shown(static_cast<double>(phi_z[i]) * speed_scale);
    f[kP][at] = shown((-points[i][2] - static_cast<double>(phi_t[i])) * pressure_scale);
  }
}

// False (told): interrupted.
bool EvaluateField(const Platform& platform, const FieldWork& work, Plot3dBlock& grid, Plot3dBlock& functions) {
  const std::size_t rows = Count(work.request.axes[1]) * Count(work.request.axes[2]);
  ProgressLine progress = StartProgress(platform, "Wave field");
  bool interrupted = false;
  for (std::size_t first = 0; first < rows && !interrupted; first += kRowsAtOnce) {
    const std::size_t n = std::min(kRowsAtOnce, rows - first);
    SideBySide(n, 0, [&](std::size_t i) { EvaluateRow(work, first + i, grid, functions); });
    ShowProgress(progress, static_cast<double>(first + n) / static_cast<double>(rows));
    interrupted = TakeInterrupt(platform.console);
  }
  EndProgress(progress);
  if (interrupted) SayLine(platform.console, kInterrupted);
  return !interrupted;
}

void WriteTable(const FieldWork& work, const Plot3dBlock& grid, const Plot3dBlock& functions, OutputFile& out) {
  std::vector<std::string> names = {"x", "y", "z"};
  names.insert(names.end(), std::begin(kFunctions), std::end(kFunctions));
  const TableLayout layout = LayoutFor(work.settings.writing.separator, names);
  std::string text;
  AppendHeading(text, layout, names);
  std::array<float, 3 + std::size(kFunctions)> cells{};
  for (std::size_t i = 0; i < grid.values[0].size(); ++i) {
    for (std::size_t k = 0; k < 3; ++k) cells[k] = grid.values[k][i];
    for (std::size_t k = 0; k < std::size(kFunctions); ++k) cells[3 + k] = functions.values[k][i];
    AppendRow(text, layout, cells);
    WriteGathered(out, text);
  }
  WriteOutput(out, text);
}

bool WriteAll(const Platform& platform, const FieldWork& work, RootFiles& files) {
  const std::array<GridAxis, 3>& axes = work.request.axes;
  const std::size_t points = Count(axes[0]) * Count(axes[1]) * Count(axes[2]);
  Plot3dBlock grid{{axes[0].n, axes[1].n, axes[2].n}, {}};
  Plot3dBlock functions = grid;
  grid.values.assign(3, std::vector<float>(points));
  functions.values.assign(std::size(kFunctions), std::vector<float>(points));
  if (!EvaluateField(platform, work, grid, functions)) return false;
  WriteTable(work, grid, functions, files.out[0]);
  WritePlot3dGrid(grid, files.out[1]);
  WritePlot3dFunctions(functions, files.out[2]);
  std::string names;
  for (const std::string_view name : kFunctions) names.append(name).append("\n");
  WriteOutput(files.out[3], names);
  return true;
}

// False (told): there are no waves to be evaluated.
bool SetWaves(const Console& console, CaseStore& c, FieldWork& work) {
  const WaveAnswer answer = EnsureSeaway(console, c);
  if (answer == WaveAnswer::no_memory) SayLine(console, kNoMemory);
  if (answer != WaveAnswer::ok) return false;
  if (KindOf(c.wave) == WaveKind::unknown) {
    Say(console, kUnknownWaveKind, c.wave.ISEA);
    SayLine(console, kUnknownWaveKindEnd);
    return false;
  }
  const int step = work.request.step;
  work.origin = ShiftOriginOf(c, step);
  work.moment = {work.origin.time, WaveScaleAtStep(c.seaway.scaling, step).scale};
  work.options.IEKZOPT = IntegerOption(c.control, kDecayOption);
  const bool decays = work.options.IEKZOPT == 1 || work.options.IEKZOPT == -1;
  if (!decays && !(c.wave.depth > 0)) Say(console, kNoDecay, work.options.IEKZOPT);
  work.speed = c.control.USHIP * InputScalesOf(c.control).velocity;
  return true;
}

}  // namespace

bool IsAxis(const GridAxis& axis) {
  return axis.n >= 1 && axis.high >= axis.low && std::isfinite(axis.high - axis.low) &&
         static_cast<double>(axis.n) <= kMostFieldPoints;
}

bool IsGrid(const std::array<GridAxis, 3>& axes) {
  double points = 1;
  for (const GridAxis& axis : axes) points *= axis.n;
  return std::all_of(axes.begin(), axes.end(), IsAxis) && points <= kMostFieldPoints;
}

bool WriteWaveField(const Platform& platform, const OutputSettings& settings, const WaveFieldRequest& request,
                    std::string_view root, CaseStore& case_store) {
  FieldWork work{settings, request, case_store, {}, {}, {}, 0};
  RootFiles files;
  if (!SetWaves(platform.console, case_store, work) || !OpenRootFiles(platform, case_store, root, kFiles, files))
    return false;
  if (DoOrSay(platform.console, kNoMemory, [&] { return WriteAll(platform, work, files); }))
    return CloseRootFiles(platform.console, files);
  DiscardRootFiles(files);
  return false;
}

}  // namespace zaview
