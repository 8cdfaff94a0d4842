#include "analysis/sea_view/sensor_view.h"

#include <algorithm>
#include <cmath>

#include "analysis/do_or_say.h"
#include "analysis/sea_view/root_files.h"
#include "analysis/sea_view/sensor_tables.h"
#include "base/angles.h"
#include "base/grow.h"
#include "base/message.h"
#include "base/number_format.h"
#include "base/side_by_side.h"
#include "case/ship_pose.h"
#include "case/wave_at_cg.h"
#include "control/input_scales.h"
#include "frame/ground/progress_line.h"
#include "geometry/input_transform.h"
#include "waves/wave_scale.h"
#include "waves/wave_sums.h"

namespace zaview {
namespace {

constexpr std::string_view kRadiusSet = "Earth radius set to {} based on GRAVIN= {}";
constexpr std::string_view kRadiusNotSet = "ERROR in sensor view calculation - cannot set earth radius based on GRAVIN";
constexpr std::string_view kNoMemory = "ERROR allocate sensor view arrays";
constexpr std::string_view kInterrupted = "Sensor view interrupted at time step {}";
constexpr std::size_t kTasksAtOnce = 32;  // lines between two looks at the clock
constexpr std::size_t kHistories = 6;     // points whose histories are kept for a picture

struct GravityRow {
  double low, high;  // of GRAVIN
  EarthRadius earth;
};
constexpr GravityRow kGravities[] = {
    {9.7, 9.9, {6.371e6, "6.371e6 meters"}},        {970, 990, {6.371e8, "6.371e8 centimeters"}},
    {9700, 9900, {6.371e9, "6.371e9 millimeters"}}, {31.8, 32.5, {2.090e7, "2.090e7 feet"}},
    {382, 390, {2.508e8, "2.508e8 inches"}},
};

struct SensorWork {
  const OutputSettings& settings;
  const SensorRequest& request;
  const CaseStore& store;
  double R = 1, most = 1;           // non-dimensional, as all that follows
  Vector3 from_centre{};            // of the sensor, ship axes
  std::vector<double> distances{};  // in the order of the request
  double nearest = 0, farthest = 0;
};

// False (told): no radius, or memory is out.
bool SetLimits(const Console& console, const SensorSettings& limits, SensorWork& work) {
  const ControlRecords& control = work.store.control;
  const double length = InputScalesOf(control).length;
  EarthRadius earth{static_cast<double>(limits.earth_radius), {}};
  if (!(earth.radius > 0)) {
    if (!EarthRadiusOf(work.store, earth)) {
      SayLine(console, kNoRadius);
      SayLine(console, kRadiusNotSet);
      return false;
    }
    Say(console, kRadiusSet, earth.words, Shown{static_cast<float>(control.GRAVIN)});
  }
  work.R = earth.radius * length;
  if (limits.height_maximum >= 0) work.most = static_cast<double>(limits.height_maximum) * length;
  const auto& position = work.request.sensor.position;
  work.from_centre = FromCentre(work.store, InputToShip(control, {position[0], position[1], position[2]}));
  if (!Reserve(work.distances, work.request.distances.size())) {
    SayLine(console, kNoMemory);
    return false;
  }
  for (const double distance : work.request.distances) work.distances.push_back(distance * length);
  if (work.distances.empty()) return true;
  const auto [least, most] = std::minmax_element(work.distances.begin(), work.distances.end());
  work.nearest = *least;
  work.farthest = *most;
  return true;
}

// ---- A step

void BeginStep(const SensorWork& work, int step, SightStep& sight) {
  const ShipPose pose = PoseAtStep(work.store, step);
  sight.time = static_cast<double>(work.store.time.at(1, step));
  sight.place = ShipToEarth(pose, work.from_centre);
  sight.yaw = static_cast<double>(work.store.pmgg.at(6, step));
  sight.horizon = HorizonOf(sight.place[2], work.R);
  if (work.request.mode != SensorMode::horizon)
    return sight.z.resize(work.request.azimuths.size() * work.distances.size());
  for (const double azimuth : work.request.azimuths)
    sight.lookdown.push_back(LookdownAngle(pose.R, azimuth, static_cast<double>(work.request.sensor.lookdown_deg)));
}

// False: memory is out.
bool ElevationsAt(const SensorWork& work, const SeaLine& line, std::vector<double>& eta) {
  const std::vector<double>& s = work.distances;
  eta.resize(s.size());
  if (work.request.mode == SensorMode::grid || work.request.mode == SensorMode::line) {
    const double step = s.size() > 1 ? (s.back() - s.front()) / static_cast<double>(s.size() - 1) : 0.0;
    return ElevationsAlong(line, s.front(), step, eta);
  }
  for (std::size_t j = 0; j < s.size(); ++j) eta[j] = SlopesAt(line, s[j]).eta;
  return true;
}

// The heights of one azimuth. False: memory is out.
bool LookAlong(const SensorWork& work, int step, std::size_t azimuth, SightStep& sight) {
  const CaseStore& c = work.store;
  const double heading = sight.yaw + work.request.azimuths[azimuth] * kRadians;
  const double direction[2] = {std::cos(heading), std::sin(heading)};
  const WaveMoment moment{sight.time, WaveScaleAtStep(c.seaway.scaling, step).scale};
  const Sensor sensor{sight.place[2], work.R, work.most};
  SeaLine line;
  LineSamples samples;
  std::vector<double> eta;
  if (!SetSeaLine(c.wave, moment, sight.place, direction, line) ||
      !SampleLine(line, sensor, SampleStep(c.wave, work.nearest, work.farthest), work.farthest, samples) ||
      !ElevationsAt(work, line, eta))
    return false;
  const std::size_t n = work.distances.size();
  VisibleHeights(sensor, samples, work.distances, eta, std::span(sight.z).subspan(azimuth * n, n));
  if (work.request.mode != SensorMode::debug) return true;
  if (!FindCrests(line, samples, sight.crests)) return false;
  sight.samples = std::move(samples);
  return true;
}

bool LookAtSteps(const SensorWork& work, std::span<const int> steps, std::vector<SightStep>& sights) {
  for (std::size_t i = 0; i < sights.size(); ++i) BeginStep(work, steps[i], sights[i]);
  if (work.request.mode == SensorMode::horizon) return true;
  const std::size_t lines = work.request.azimuths.size();
  std::vector<char> done(sights.size() * lines);
  SideBySide(done.size(), 0, [&](std::size_t task) {
    const std::size_t i = task / lines;
    done[task] = LookAlong(work, steps[i], task % lines, sights[i]) ? 1 : 0;
  });
  return std::find(done.begin(), done.end(), 0) == done.end();
}

// ---- What is kept for a picture

std::vector<float> Floats(const std::vector<double>& values, double scale) {
  std::vector<float> floats;
  for (const double value : values) floats.push_back(static_cast<float>(value * scale));
  return floats;
}

void BeginResult(const SensorTables& tables, SensorViewResult& result) {
  result = {};
  result.mode = tables.request.mode;
  result.azimuths = Floats(tables.request.azimuths, 1.0);
  result.distances = Floats(tables.request.distances, tables.input_to_output);
  result.histories.resize(tables.request.mode >= SensorMode::points ? std::min(kHistories, result.distances.size())
                                                                    : 0);
}

void Keep(const SensorTables& tables, const SightStep& sight, SensorViewResult& result) {
  const auto L = static_cast<double>(tables.settings.units.LENOUT);
  const auto shown = [L](double length) { return static_cast<float>(length * L); };
  result.time.push_back(static_cast<float>(sight.time * static_cast<double>(tables.settings.units.scales.T)));
  result.height.push_back(shown(sight.place[2]));
  result.horizon.push_back(shown(sight.horizon.distance));
  result.angle.push_back(static_cast<float>(sight.horizon.angle_deg));
  result.lookdown = Floats(sight.lookdown, 1.0);
  result.visible.clear();
  for (const float z : sight.z) result.visible.push_back(shown(static_cast<double>(z)));
  for (std::size_t j = 0; j < result.histories.size(); ++j) result.histories[j].push_back(result.visible[j]);
}

// ---- All of them

// False (told): memory is out, or interrupted.
bool WriteSteps(const Platform& platform, const SensorWork& work, RootFiles& files, SensorViewResult& result) {
  const SensorTables tables{work.settings, work.store, work.request,
                            static_cast<double>(work.settings.units.LENOUT) / work.store.control.LENIN};
  const std::span<const SensorFile> rows = SensorFilesOf(work.request.mode);
  std::vector<std::string> texts(rows.size());
  for (std::size_t f = 0; f < rows.size(); ++f)
    if (rows[f].append_head != nullptr) rows[f].append_head(tables, texts[f]);
  BeginResult(tables, result);
  ProgressLine progress = StartProgress(platform, "Sensor view");
  const std::vector<int> steps = StepsOf(work.store, work.request.steps);
  const std::size_t count = steps.size();
  const std::size_t at_once =
      std::max<std::size_t>(1, kTasksAtOnce / std::max<std::size_t>(1, tables.request.azimuths.size()));
  bool good = true;
  for (std::size_t first = 0; first < count && good; first += at_once) {
    std::vector<SightStep> sights(std::min(at_once, count - first));
    sights.front().is_first = first == 0;
    good = LookAtSteps(work, std::span(steps).subspan(first), sights);
    if (!good) SayLine(platform.console, kNoMemory);
    for (std::size_t i = 0; i < sights.size() && good; ++i) {
      Keep(tables, sights[i], result);
      for (std::size_t f = 0; f < rows.size(); ++f) {
        rows[f].append_step(tables, sights[i], texts[f]);
        WriteGathered(files.out[f], texts[f]);
      }
    }
    ShowProgress(progress, static_cast<double>(first + sights.size()) / static_cast<double>(count));
    if (!good || !TakeInterrupt(platform.console)) continue;
    Say(platform.console, kInterrupted, steps[first + sights.size() - 1]);
    good = false;
  }
  EndProgress(progress);
  for (std::size_t f = 0; f < rows.size(); ++f) WriteOutput(files.out[f], texts[f]);
  return good;
}

// False (told): there is no sea to look over.
bool HasSea(const Console& console, const SensorRequest& request, CaseStore& c) {
  if (request.mode == SensorMode::horizon) return true;
  const WaveAnswer answer = EnsureSeaway(console, c);
  if (answer == WaveAnswer::no_memory) SayLine(console, kNoMemory);
  if (answer != WaveAnswer::ok) return false;
  if (KindOf(c.wave) != WaveKind::unknown) return true;
  Say(console, kUnknownWaveKind, c.wave.ISEA);
  SayLine(console, kUnknownWaveKindEnd);
  return false;
}

}  // namespace

bool EarthRadiusOf(const CaseStore& case_store, EarthRadius& earth) {
  const double g = case_store.control.GRAVIN;
  for (const GravityRow& row : kGravities) {
    if (!(g >= row.low && g <= row.high)) continue;
    earth = row.earth;
    return true;
  }
  return false;
}

bool ScanRange(const float range[3], std::vector<double>& values) {
  const auto low = static_cast<double>(range[0]);
  const auto high = static_cast<double>(range[1]);
  const auto increment = static_cast<double>(range[2]);
  values.clear();
  double steps = 0;
  if (low != high) {
    if (!(high > low) || !(increment > 0)) return false;
    steps = std::floor((high - low) / increment + 0.5);
    if (!(steps < kMostScanned)) return false;
  }
  for (double i = 0; i <= steps; ++i) values.push_back(low + i * increment);
  return true;
}

bool WriteSensorView(const Platform& platform, const OutputSettings& settings, const SensorSettings& limits,
                     const SensorRequest& request, std::string_view root, CaseStore& case_store,
                     SensorViewResult& result) {
  const Console& console = platform.console;
  SensorWork work{.settings = settings, .request = request, .store = case_store};
  if (!SetLimits(console, limits, work) || !HasSea(console, request, case_store)) return false;
  std::vector<RootFile> rows;
  for (const SensorFile& row : SensorFilesOf(request.mode)) rows.push_back(row.file);
  RootFiles files;
  if (!OpenRootFiles(platform, case_store, root, rows, files)) return false;
  if (DoOrSay(console, kNoMemory, [&] { return WriteSteps(platform, work, files, result); }))
    return CloseRootFiles(console, files);
  DiscardRootFiles(files);
  return false;
}

}  // namespace zaview
