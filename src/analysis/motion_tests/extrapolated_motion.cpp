#include "analysis/motion_tests/extrapolated_motion.h"

#include <array>
#include <cstddef>
#include <string>

#include "analysis/motion_tests/motion_forecast.h"
#include "base/data_fault.h"
#include "base/message.h"
#include "base/number_format.h"
#include "base/table_text.h"
#include "case/derived_arrays.h"
#include "case/size_history.h"

namespace zaview {
namespace {

constexpr std::string_view kBadOption = "Invalid extrapolation option: {}";
constexpr std::string_view kBadTime = "Invalid extrapolation time: {}";
constexpr std::string_view kNoVelocities = "ERROR - {} no velocities to extrapolate by";
constexpr fmt::string_view kBeyondRun = "ERROR - the run has no steps to tell of {} from now";
constexpr std::size_t kSix = 6;

Six At(const StepHistory& history, int step) {
  Six values{};
  for (std::size_t i = 0; i < kSix; ++i) values[i] = history.at(static_cast<int>(i) + 1, step);
  return values;
}

Six LaterPosition(const CaseStore& c, int step, int option, double T) {
  const Six position = At(c.pmgg, step);
  if (option == 0) return position;
  const Six in_earth = At(c.accg, step), about_ship = At(c.acc, step);
  return Forecast(
      {position, At(c.vmg, step), {in_earth[0], in_earth[1], in_earth[2], about_ship[3], about_ship[4], about_ship[5]}},
      T);
}

void AppendStep(const OutputSettings& settings, double time, const Six& position, std::string& text) {
  const OutputUnits& units = settings.units;
  TableLayout layout;
  layout.separator = settings.writing.separator;
  std::array<float, kSix + 1> cells{static_cast<float>(time)};
  for (std::size_t i = 0; i < kSix; ++i)
    cells[i + 1] = static_cast<float>(position[i]) * units.scales.position[i] * units.cnvfac[i];
  AppendRow(text, layout, cells);
}

}  // namespace

bool ExtrapolationAllowed(const Console& console, const CaseStore& store, const ExtrapolationRequest& request) {
  if (request.option != 0 && request.option != 1) {
    Say(console, kBadOption, request.option);
    return false;
  }
  if (!(request.T_out > 0)) {
    Say(console, kBadTime, Shown{request.T_out});
    return false;
  }
  if (request.option == 1 && store.kino_input)
    Say(console, kNoVelocities, store.from_table() ? "a table has" : "KINO files have");
  return request.option == 0 || !store.kino_input;
}

DataFault WriteExtrapolatedMotion(const Console& console, const OutputSettings& settings,
                                  const ExtrapolationRequest& request, CaseStore& store, OutputFile& out) {
  return MakeOrSay(console, kNoMemoryLeft, [&] {
    if (request.option == 1 && !EnsureDerived(store, Derived::accg)) {
      SayLine(console, kNoMemoryLeft);
      return DataFault::said;
    }
    const double to_output = settings.units.scales.T, T = request.T_out / to_output;
    const double end = store.time.at(1, store.last_step);
    if (request.option == 1 && store.time.at(1, store.first_step) + T > end) {
      Say(console, kBeyondRun, Shown{request.T_out});
      return DataFault::said;
    }
    std::string text;
    for (int step = store.first_step; step <= store.last_step; ++step) {
      if (InGap(store, step)) continue;
      const double time = store.time.at(1, step);
      if (request.option == 1 && time + T > end) break;
      AppendStep(settings, (time + T) * to_output, LaterPosition(store, step, request.option, T), text);
      WriteGathered(out, text);
    }
    WriteOutput(out, text);
    return DataFault::none;
  });
}

}  // namespace zaview
