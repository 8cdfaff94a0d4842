// What a sensor sees of the sea, and the waves around the ship.
#include <algorithm>
#include <string>
#include <vector>

#include "analysis/sea_view/sensor_view.h"
#include "analysis/sea_view/shifted_waves.h"
#include "analysis/sea_view/wave_analysis.h"
#include "analysis/sea_view/wave_field.h"
#include "base/number_format.h"
#include "base/number_parse.h"
#include "script/call_arguments.h"
#include "script/command_table.h"
#include "views/state/result_choice.h"

namespace zaview {

namespace {

constexpr std::string_view kUnknownSensor = "ERROR - Unrecognized sensor view command: {}";
constexpr std::string_view kSensorSteps = "ERROR - Illegal time step range, parsed as min,max,inc= {} {} {}";
constexpr std::string_view kScan[] = {"ERROR - Illegal scanning direction range for {} command...",
                                      "Parsed as min,max,inc= {} {} {}"};
constexpr std::string_view kDistanceCount = "ERROR - Illegal value for number of distances in {} command...";
constexpr std::string_view kLookdown = "Illegal value, must be between 0 and 90";
constexpr std::string_view kNotPositive = "Illegal value, must be positive";
constexpr std::string_view kBadWaveOption = "Illegal wave analysis option";
constexpr std::string_view kBadStep = "Illegal value - must be {} to {}";
constexpr std::string_view kBadGrid = "ERROR - Illegal grid for {} command...";

StepRange RangeOf(const std::vector<float>& values) {
  const auto whole = [&](std::size_t i) { return RoundToInt(static_cast<double>(values[i])); };
  return {whole(0), whole(1), whole(2)};
}

// The root of the files that a command writes.
int ReadRoot(ScriptCall& call, std::string& root) {
  return ReadFileName(call, BlankName::allowed, root);
}

// ---- Sensor view

int ReadSensor(ScriptCall& call, SensorRequest& request) {
  std::vector<float> steps, sensor;
  if (const int status = ReadNumbers(call, 3, steps); status != kScriptOk) return status;
  if (const int status = ReadNumbers(call, 4, sensor); status != kScriptOk) return status;
  if (!TakeStepRange(call.session.case_store, RangeOf(steps), request.steps))
    return Fail(call, kScriptBadArgument, kSensorSteps, Shown{steps[0]}, Shown{steps[1]}, Shown{steps[2]});
  std::copy_n(sensor.begin(), 3, request.sensor.position.begin());
  request.sensor.lookdown_deg = sensor[3];
  if (!(sensor[3] >= 0 && sensor[3] <= 90)) return Fail(call, kScriptBadArgument, kLookdown);
  return kScriptOk;
}

int ReadScan(ScriptCall& call, std::vector<double>& values) {
  std::vector<float> range;
  if (const int status = ReadNumbers(call, 3, range); status != kScriptOk) return status;
  if (ScanRange(range.data(), values)) return kScriptOk;
  Say(call.console(), kScan[0], call.command);
  return Fail(call, kScriptBadArgument, kScan[1], Shown{range[0]}, Shown{range[1]}, Shown{range[2]});
}

int ReadListed(ScriptCall& call, int n, std::vector<double>& values) {
  values.clear();
  while (static_cast<int>(values.size()) < n) {  // a list of the script ends earlier
    std::vector<float> listed;
    if (const int status = ReadNumbers(call, n - static_cast<int>(values.size()), listed); status != kScriptOk)
      return status;
    values.insert(values.end(), listed.begin(), listed.end());
  }
  return kScriptOk;
}

int ReadCountAndDistances(ScriptCall& call, std::vector<double>& distances) {
  int n = 0;
  if (const int status = ReadWhole(call, n); status != kScriptOk) return status;
  if (n < 1 || n > kMostScanned) return Fail(call, kScriptBadArgument, kDistanceCount, call.command);
  return ReadListed(call, n, distances);
}

int ReadDistances(ScriptCall& call, SensorRequest& request) {
  if (request.mode == SensorMode::horizon) return kScriptOk;
  const bool scanned = request.mode == SensorMode::grid || request.mode == SensorMode::line;
  const int status = scanned ? ReadScan(call, request.distances) : ReadCountAndDistances(call, request.distances);
  if (status != kScriptOk) return status;
  const auto positive = [](double distance) { return distance > 0; };
  if (!std::all_of(request.distances.begin(), request.distances.end(), positive))
    return Fail(call, kScriptBadArgument, kNotPositive);
  if (request.distances.size() > kMostSightPoints / request.azimuths.size())
    return Fail(call, kScriptBadArgument, kScan[0], call.command);
  return kScriptOk;
}

template <SensorMode mode>
int RunSensorView(ScriptCall& call) {
  Session& session = call.session;
  SensorRequest request;
  request.mode = mode;
  if (const int status = ReadSensor(call, request); status != kScriptOk) return status;
  const bool scanned = mode == SensorMode::horizon || mode == SensorMode::grid;
  const int azimuths = scanned ? ReadScan(call, request.azimuths) : ReadListed(call, 1, request.azimuths);
  if (azimuths != kScriptOk) return azimuths;
  if (const int status = ReadDistances(call, request); status != kScriptOk) return status;
  std::string root;
  if (const int status = ReadRoot(call, root); status != kScriptOk) return status;
  SensorViewResult result;
  const bool written =
      WriteSensorView(session.platform, session.output, session.sensor, request, root, session.case_store, result);
  if (!written) return kScriptFailed;
  KeepResult(session.data_plot, SensorViewPlot(result));
  return kScriptOk;
}

int RunUnknownSensor(ScriptCall& call) {
  return Fail(call, kScriptBadArgument, kUnknownSensor, call.command);
}

// ---- Waves

int RunWaveAnalysis(ScriptCall& call) {
  Session& session = call.session;
  std::vector<float> values;
  if (const int status = ReadNumbers(call, 4, values); status != kScriptOk) return status;
  StepRange steps;
  if (!TakeStepRange(session.case_store, RangeOf(values), steps))
    return Fail(call, kScriptBadArgument, kIllegalStepRange);
  const int option = RoundToInt(static_cast<double>(values[3]));
  if (option < 0 || option >= kWaveAnalysisOptions) return Fail(call, kScriptBadArgument, kBadWaveOption);
  std::string root;
  if (const int status = ReadRoot(call, root); status != kScriptOk) return status;
  WaveAnalysisResult result;
  if (!WriteWaveAnalysis(session.platform, session.output, steps, root, session.case_store, result))
    return kScriptFailed;
  KeepResult(session.data_plot, WaveAnalysisPlot(result));
  return kScriptOk;
}

int ReadStep(ScriptCall& call, int& step) {
  if (const int status = ReadWhole(call, step); status != kScriptOk) return status;
  const CaseStore& c = call.session.case_store;
  if (step >= c.first_step && step <= c.last_step) return kScriptOk;
  return Fail(call, kScriptBadArgument, kBadStep, c.first_step, c.last_step);
}

int RunShiftedWaves(ScriptCall& call) {
  Session& session = call.session;
  int step = 0;
  if (const int status = ReadStep(call, step); status != kScriptOk) return status;
  std::string root;
  if (const int status = ReadRoot(call, root); status != kScriptOk) return status;
  return WriteShiftedWaves(session.platform, session.output, step, root, session.case_store) ? kScriptOk
                                                                                             : kScriptFailed;
}

int RunWaveField(ScriptCall& call) {
  Session& session = call.session;
  WaveFieldRequest request;
  if (const int status = ReadStep(call, request.step); status != kScriptOk) return status;
  for (GridAxis& axis : request.axes) {
    std::vector<float> values;
    if (const int status = ReadNumbers(call, 3, values); status != kScriptOk) return status;
    axis = {values[0], values[1], RoundToInt(static_cast<double>(values[2]))};
  }
  if (!IsGrid(request.axes)) return Fail(call, kScriptBadArgument, kBadGrid, call.command);
  std::string root;
  if (const int status = ReadRoot(call, root); status != kScriptOk) return status;
  return WriteWaveField(session.platform, session.output, request, root, session.case_store) ? kScriptOk
                                                                                             : kScriptFailed;
}

constexpr Needs kNeedsRun = kNeedsCase | kNeedsMotion;

constexpr Command kSeaView[] = {
    {{"SENSOR_VIEW_HORIZON"},
     kNeedsRun,
     RunSensorView<SensorMode::horizon>,
     "first last increment x y z lookdown directions root",
     "Horizon of a sensor on the ship, and where its field of view ends"},
    {{"SENSOR_VIEW_GRID"},
     kNeedsRun,
     RunSensorView<SensorMode::grid>,
     "first last increment x y z lookdown directions distances root",
     "From which height on it sees something above the waves, all around"},
    {{"SENSOR_VIEW_LINE"},
     kNeedsRun,
     RunSensorView<SensorMode::line>,
     "first last increment x y z lookdown direction distances root",
     "The same in one direction"},
    {{"SENSOR_VIEW_POINT", "SENSOR_VIEW_POINTS"},
     kNeedsRun,
     RunSensorView<SensorMode::points>,
     "first last increment x y z lookdown direction places root",
     "Histories of it at some distances"},
    {{"SENSOR_VIEW_DEBUG"},
     kNeedsRun,
     RunSensorView<SensorMode::debug>,
     "first last increment x y z lookdown direction places root",
     "The same, with the waves that it comes from"},
    {{"WAVE_CELERITY", "ANALYZE_WAVE"},
     kNeedsRun | kNeedsGeometry,
     RunWaveAnalysis,
     "first last increment option root",
     "Waves along the ship: elevations, crests, and how fast they run; option 0 to 3, with equal results"},
    {{"WRITE_WAVE_FIELD"},
     kNeedsRun,
     RunWaveField,
     "step axis axis axis root",
     "Waves and their flow on a grid around the ship, +X aft, as a table and in PLOT3D form"},
    {{"WRITE_SHIFTED_WAVES"},
     kNeedsRun,
     RunShiftedWaves,
     "step root",
     "The waves for a calculation that starts at a step: KINO file, table with the phases of CD-adapco, motions from "
     "there on"},
    {.names = {"SENSOR_VIEW"}, .needs = kNeedsRun, .run = RunUnknownSensor, .match = NameMatch::beginning},
};

}  // namespace

CommandFamily SeaViewCommands() {
  return kSeaView;
}

}  // namespace zaview
