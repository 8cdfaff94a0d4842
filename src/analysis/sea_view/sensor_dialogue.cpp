#include "analysis/sea_view/sensor_dialogue.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "analysis/sea_view/root_files.h"
#include "analysis/sea_view/sensor_view.h"
#include "base/message.h"
#include "base/number_format.h"
#include "base/text.h"
#include "frame/ground/option_menu.h"
#include "frame/ground/prompts.h"

namespace zaview {
namespace {

constexpr std::string_view kTitle = "ZAVIEW - Sensor View Analysis";
constexpr std::string_view kAbout[] = {"This module calculates line-of-sight view data for a ship-mounted sensor.",
                                       "It takes into account the height of the sensor above the mean free surface",
                                       "with the 6-DOF motion of the ship in waves, its look-down angle fixed to the",
                                       "ship, and the curvature of the earth at a constant radius, which may be",
                                       "changed to correct for refraction."};
constexpr MenuItem kItems[] = {{" 0 - Return to Main Menu"},
                               {" 1 - Change sensor parameters (position, etc.)"},
                               {" 2 - Specify earth radius and/or maximum visible height"},
                               {" 3 - Horizon and lookdown history"},
                               {" 4 - Visible heights on a distance-azimuth grid"},
                               {" 5 - Visible heights along a line"},
                               {" 6 - Visible heights at points"},
                               {" 7 - Visible heights at points with debug files"}};
constexpr int kSetSensor = 1, kSetLimits = 2;

constexpr std::string_view kNotSet = "Sensor parameters have not been set";
constexpr std::string_view kAborted = "Option aborted ...";
constexpr std::string_view kPosition = "Enter sensor position in the INPUT coordinate system";
constexpr std::string_view kLookdown =
    "Enter sensor look-down/up angle (degrees) - this is the maximum angle that the\n"
    "sensor can see below or above the astronomical horizon at static flotation\n"
    "It is 1/2 of the total scan angle";
constexpr std::string_view kRadius =
    "Enter the earth radius in geometry units\n"
    "For reference: mean value = 6.371e6 meters = 20.9e6 feet\n"
    "A negative value  can be input to have earth radius set based on GRAVIN";
constexpr std::string_view kMaximum =
    "Enter a maximum value of the minimum visible height to output,\n"
    "in geometry units (a negative value stands for the ship length)";
constexpr std::string_view kSteps =
    "Enter the starting, ending, and incremental time step(s) for\n"
    "Sensor visibility calculation (0 for all)";
constexpr std::string_view kDirections =
    "Enter min, max, and increment for scanning direction (azimuth)\n"
    "in degrees relative to ship head (0.0 forward, 90.0 to port)";
constexpr std::string_view kDirection = "Enter scanning direction (azimuth)";
constexpr std::string_view kDistances = "Enter min, max, and increment for scanning distances";
constexpr std::string_view kCount = "Enter number of scanning distances";
constexpr std::string_view kListed = "Enter scanning distances";

constexpr std::string_view kBadLookdown = "Illegal value, must be between 0 and 90";
constexpr std::string_view kNotPositive = "Illegal value, must be positive";
constexpr std::string_view kBadScan = "INPUT ERROR - please enter mininum value, maximum value and positive increment";
constexpr std::string_view kBadValue = "ILLEGAL value - re-enter";
constexpr std::string_view kBadSteps = "ERROR - Illegal time step range";

constexpr std::size_t kOnALine = 64;  // numbers that a question takes

// ---- What is set

void ShowSettings(const Console& console, const SensorSettings& settings, const CaseStore& c) {
  SayLine(console, "");
  SayLine(console, kTitle);
  SayLine(console, "");
  if (settings.sensor_given) {
    const std::array<float, 3>& p = settings.sensor.position;
    SayLine(console, "Sensor parameters:");
    Say(console, "Sensor position: {} {} {}", Shown{p[0]}, Shown{p[1]}, Shown{p[2]});
    Say(console, "Lookdown/up angle: {} (static flotation)", Shown{settings.sensor.lookdown_deg});
  } else {
    SayLine(console, kNotSet);
  }
  EarthRadius earth;
  if (settings.earth_radius > 0) Say(console, "Earth radius: {} (specified)", Shown{settings.earth_radius});
  else if (EarthRadiusOf(c, earth)) Say(console, "Earth radius: {} (based on GRAVIN)", earth.words);
  else SayLine(console, kNoRadius);
  if (settings.height_maximum >= 0) Say(console, "Maximum visible height: {}", Shown{settings.height_maximum});
}

Answer AskSensor(const Console& console, SensorSettings& settings) {
  SensorPlace sensor = settings.sensor;
  Answer answer = VINPUT(console, kPosition, settings.sensor_given, sensor.position);
  if (answer != Answer::ok) return answer;
  for (;;) {
    answer = ask_real(console, kLookdown, settings.sensor_given, sensor.lookdown_deg);
    if (answer != Answer::ok) return answer;
    if (sensor.lookdown_deg >= 0 && sensor.lookdown_deg <= 90) break;
    SayLine(console, kBadLookdown);
  }
  settings.sensor = sensor;
  settings.sensor_given = true;
  return Answer::ok;
}

Answer AskLimits(const Console& console, SensorSettings& settings) {
  SensorSettings asked = settings;
  Answer answer = ask_real(console, kRadius, true, asked.earth_radius);
  if (answer == Answer::ok) answer = ask_real(console, kMaximum, true, asked.height_maximum);
  if (answer == Answer::ok) settings = asked;
  return answer;
}

// ---- What is to be written

Answer AskScan(const Console& console, std::string_view prompt, std::vector<double>& values) {
  for (;;) {
    std::array<float, 3> range{};
    const Answer answer = VINPUT(console, prompt, false, range);
    if (answer != Answer::ok) return answer;
    if (ScanRange(range.data(), values)) return Answer::ok;
    SayLine(console, kBadScan);
  }
}

Answer AskDirections(const Console& console, SensorRequest& request) {
  if (request.mode == SensorMode::horizon || request.mode == SensorMode::grid)
    return AskScan(console, kDirections, request.azimuths);
  float azimuth = 0;
  const Answer answer = ask_real(console, kDirection, false, azimuth);
  request.azimuths = {static_cast<double>(azimuth)};
  return answer;
}

Answer AskCount(const Console& console, int& n) {
  for (;;) {
    const Answer answer = ask_integer(console, kCount, false, n);
    if (answer != Answer::ok || (n >= 1 && n <= kMostScanned)) return answer;
    SayLine(console, kBadValue);
  }
}

// As many as fit on a line at once.
Answer AskListed(const Console& console, std::size_t n, std::vector<double>& distances) {
  distances.clear();
  while (distances.size() < n) {
    std::vector<float> values(std::min(kOnALine, n - distances.size()));
    const Answer answer = VINPUT(console, kListed, false, values);
    if (answer != Answer::ok) return answer;
    distances.insert(distances.end(), values.begin(), values.end());
  }
  return Answer::ok;
}

bool AllPositive(const std::vector<double>& distances) {
  return std::all_of(distances.begin(), distances.end(), [](double distance) { return distance > 0; });
}

Answer AskDistances(const Console& console, SensorRequest& request) {
  if (request.mode == SensorMode::horizon) return Answer::ok;
  const bool scanned = request.mode == SensorMode::grid || request.mode == SensorMode::line;
  int n = 0;
  if (!scanned)
    if (const Answer answer = AskCount(console, n); answer != Answer::ok) return answer;
  for (;;) {
    const Answer answer = scanned ? AskScan(console, kDistances, request.distances)
                                  : AskListed(console, static_cast<std::size_t>(n), request.distances);
    if (answer != Answer::ok) return answer;
    const bool positive = AllPositive(request.distances);
    if (positive && request.distances.size() <= kMostSightPoints / request.azimuths.size()) return answer;
    SayLine(console, positive ? kBadValue : kNotPositive);
  }
}

Answer AskRequest(const Console& console, const CaseStore& c, SensorRequest& request, std::string& root) {
  Answer answer = AskStepRange(console, c, kSteps, kBadSteps, request.steps);
  if (answer == Answer::ok) answer = AskDirections(console, request);
  if (answer == Answer::ok) answer = AskDistances(console, request);
  return answer == Answer::ok ? ask_text(console, kAskRoot, c.base_name, root) : answer;
}

Answer Write(const Platform& platform, const OutputSettings& settings, const SensorSettings& sensor, SensorMode mode,
             CaseStore& c, SensorViewResult& result) {
  if (!sensor.sensor_given) {
    SayLine(platform.console, kNotSet);
    return Answer::ok;
  }
  SensorRequest request;
  request.mode = mode;
  request.sensor = sensor.sensor;
  std::string root;
  const Answer answer = AskRequest(platform.console, c, request, root);
  if (answer != Answer::ok) return answer;
  SensorViewResult written;  // it is said why not
  if (WriteSensorView(platform, settings, sensor, request, root, c, written)) result = std::move(written);
  return answer;
}

}  // namespace

void AskSensorView(const Platform& platform, const OutputSettings& settings, SensorSettings& sensor,
                   CaseStore& case_store, SensorViewResult& result) {
  const Console& console = platform.console;
  for (const std::string_view line : kAbout) SayLine(console, line);
  for (;;) {
    ShowSettings(console, sensor, case_store);
    int item = 0;
    if (select_option(console, "Sensor View Options:", "Select =>", kItems, -1, item) != Answer::ok || item == 0)
      return;
    Answer answer = Answer::ok;
    if (item == kSetSensor) answer = AskSensor(console, sensor);
    else if (item == kSetLimits) answer = AskLimits(console, sensor);
    else answer = Write(platform, settings, sensor, static_cast<SensorMode>(item - kSetLimits), case_store, result);
    if (answer != Answer::ok) return SayLine(console, kAborted);
  }
}

}  // namespace zaview
