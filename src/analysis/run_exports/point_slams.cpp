#include "analysis/run_exports/point_slams.h"

#include <iterator>
#include <string>

#include "analysis/run_events.h"
#include "base/grow.h"
#include "base/number_format.h"
#include "base/table_text.h"
#include "case/point_motion.h"
#include "case/ship_pose.h"
#include "case/size_history.h"
#include "geometry/input_transform.h"

namespace zaview {
namespace {

constexpr std::string_view kTitle = "Point slam history for ZAVO file {}\n";

DataFault FaultOf(WaveAnswer answer) {
  if (answer == WaveAnswer::no_memory) return DataFault::no_memory;
  return answer == WaveAnswer::ok ? DataFault::none : DataFault::no_wave;
}

void AppendSlam(std::string& text, const OutputSettings& settings, const PointSlam& slam) {
  const Separator separator = settings.writing.separator;
  const OutputScales& scales = settings.units.scales;
  const int width = separator == Separator::space ? kCellWidth : 0;
  fmt::format_to(std::back_inserter(text), "{:>{}}{}", slam.step, width, static_cast<char>(separator));
  const std::array<float, 3> cells = {static_cast<float>(slam.time * scales.T),
                                      static_cast<float>(slam.wave * settings.units.LENOUT),
                                      static_cast<float>(slam.speed * scales.velocity[0])};
  AppendRow(text, {separator, std::vector<int>(cells.size(), kCellWidth)}, cells);
}

}  // namespace

bool FindPointSlams(const PointHistories& point, std::vector<PointSlam>& slams) {
  std::vector<float> immersion;
  if (!Grow(immersion, point.wave.size())) return false;
  const auto above = [&](std::size_t i) { return point.height[i] - static_cast<double>(point.wave[i]); };
  for (std::size_t i = 0; i < immersion.size(); ++i) immersion[i] = static_cast<float>(-above(i));
  RunHistories run;
  run.first_step = point.first_step;
  run.time = point.time;
  run.point_immersion = immersion;
  run.slam_velocity = 0;
  run.gaps = point.gaps;
  std::vector<RunEvent> events;
  if (!FindEvents(run, events) || !Grow(slams, events.size())) return false;
  for (std::size_t i = 0; i < events.size(); ++i) {
    const auto at = static_cast<std::size_t>(events[i].step - point.first_step);
    const double from = point.time[at - 1], passed = static_cast<double>(point.time[at]) - from;
    const double sunk = above(at - 1) - above(at);
    slams[i] = {events[i].step, from + above(at - 1) / sunk * passed, point.wave[at], sunk / passed};
  }
  return true;
}

DataFault WritePointSlams(const Console& console, const OutputSettings& settings, const std::array<double, 3>& point,
                          CaseStore& case_store, OutputFile& out) {
  CaseStore& c = case_store;
  if (!NodePointMot(console, settings, point, c)) return DataFault::no_memory;
  if (const DataFault fault = FaultOf(EnsureSeaway(console, c)); fault != DataFault::none) return fault;
  std::vector<float> eta;
  std::vector<double> height;
  if (!Grow(eta, StepsInStore(c)) || !Grow(height, StepsInStore(c))) return DataFault::no_memory;
  const std::vector<std::vector<float>>& place = c.point_motion.component;
  if (const DataFault fault = FaultOf(WaveAlong(console, c, place[0], place[1], eta)); fault != DataFault::none)
    return fault;
  const Vector3 from_centre = FromCentre(c, InputToShip(c.control, point));
  for (std::size_t s = 0; s < height.size(); ++s)
    height[s] = ShipToEarth(PoseAtStep(c, c.first_read + static_cast<int>(s)), from_centre)[2];
  PointHistories histories;
  if (c.last_step >= c.first_step) {
    const auto from = static_cast<std::size_t>(c.first_step - c.first_read);
    const auto used = static_cast<std::size_t>(c.last_step - c.first_step) + 1;
    histories = {c.first_step, c.time.range(1, c.first_step, c.last_step), std::span(eta).subspan(from, used),
                 std::span(height).subspan(from, used), c.gaps};
  }
  std::vector<PointSlam> slams;
  if (!FindPointSlams(histories, slams)) return DataFault::no_memory;

  std::string text = out.had_text ? "\n" : "";
  fmt::format_to(std::back_inserter(text), kTitle, c.file_name);
  const std::array<std::string, 4> names = {"Step", "Time", "Wave", "Vrel"};
  AppendHeading(text, LayoutFor(settings.writing.separator, names), names);
  for (const PointSlam& slam : slams) AppendSlam(text, settings, slam);
  WriteOutput(out, text);
  return DataFault::none;
}

}  // namespace zaview
