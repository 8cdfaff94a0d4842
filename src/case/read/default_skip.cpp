#include "case/read/default_skip.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <span>
#include <string_view>
#include <vector>

#include "base/angles.h"
#include "base/message.h"
#include "base/number_format.h"
#include "base/number_parse.h"
#include "case/size_history.h"
#include "control/input_scales.h"
#include "control/spectrum_check.h"
#include "frame/ground/prompts.h"

namespace zaview {
namespace {

inline constexpr std::string_view kPurpose[] = {
    "Setting # of initial time steps skipped to avoid transient startup effects",
    "in statistical analysis such as peak statistics, RMS, etc."};
inline constexpr std::string_view kNoClue = "Nonlinear irregular wave - sorry, no clue";
inline constexpr std::string_view kHowMany = "How many time steps to skip=>";

constexpr int kLongRun = 500;  // above: kLongSkip
constexpr int kLongSkip = 300;
constexpr int kShortRun = 100;  // below: the relevant period; between: half the run

double Radians(double degrees) {
  return degrees * std::numbers::pi / 180;
}

struct WaveRow {
  double amplitude, frequency, heading;
};

DominantWave Largest(std::span<const WaveRow> rows) {
  DominantWave wave;
  double largest = 0;
  for (const WaveRow& row : rows) {
    if (!(std::fabs(row.amplitude) > largest)) continue;
    largest = std::fabs(row.amplitude);
    wave.kind = rows.size() == 1 ? SeaPeriod::regular : SeaPeriod::composite;
    wave.frequency = row.frequency;
    wave.heading = Radians(row.heading);
  }
  return wave;
}

std::vector<WaveRow> WaveRows(const SeawayInput& sea) {
  std::vector<WaveRow> rows;
  if (sea.ISEA == 4)
    for (const AlternativeWaveInput& wave : sea.alternative) rows.push_back({wave.AMP, wave.FREQ, wave.HEAD});
  else
    for (const WaveComponentInput& wave : sea.waves) rows.push_back({wave.AMPW0, wave.FREQW, wave.HEADW});
  return rows;
}

// The one-parameter Pierson-Moskowitz form, A = 0.0081 g^2; input units.
double ModalPeriodOfHeight(double height, double g) {
  return kTwoPi * std::sqrt(height * 2.236068 / (g * 0.36003873));
}

// JONSWAP from wind: the peak by the fetch; input units.
double WindSeaPeriod(const SeawayInput& sea, double g) {
  const double x = sea.FETCH * g / (sea.VWIND10 * sea.VWIND10);
  return kTwoPi / (21.99115 * g / sea.VWIND10 * std::pow(x, -0.33));
}

// Of a spectrum, in input units.
double ModalPeriod(const ControlRecords& control) {
  const SeawayInput& sea = control.seaway;
  switch (sea.ISEA) {
    case 2:
      return sea.TMODAL > 0 ? sea.TMODAL : ModalPeriodOfHeight(sea.SIGWHT, control.GRAVIN);
    case 6:
      return WindSeaPeriod(sea, control.GRAVIN);
    case 7:
      return sea.SIGWHT2 > sea.SIGWHT1 ? sea.TMODAL2 : sea.TMODAL1;
    default:
      return sea.TOMODAL;
  }
}

// Shown periods and their count in time steps.
struct ShownPeriods {
  float wave = 0, encounter = 0, body = 0;  // output units; 0: none
  float relevant = 0;
  double steps = 0;  // relevant period over the time step
};

double EncounterFrequency(const DominantWave& wave, double U) {
  return std::fabs(wave.frequency - U * std::cos(wave.heading) * wave.frequency * wave.frequency);
}

// The longest period of forced motion, in input units; 0: none.
double LongestForcedPeriod(const ControlRecords& control) {
  double longest = 0;
  if (control.MOTYPE != 0) return longest;
  for (std::size_t i = 0; i < 6; ++i)
    if (control.AMPM[i] > 0 && control.OMEGM[i] > 0) longest = std::max(longest, kTwoPi / control.OMEGM[i]);
  return longest;
}

ShownPeriods FindPeriods(const ControlRecords& control, const DominantWave& wave, double T) {
  ShownPeriods periods;
  const InputScales scales = InputScalesOf(control);
  const double U = control.USHIP * scales.velocity;
  double relevant = 0;
  if (wave.frequency > 0) {
    relevant = kTwoPi / wave.frequency;
    periods.wave = static_cast<float>(relevant * T);
  }
  const double encounter = wave.frequency > 0 && U != 0 ? EncounterFrequency(wave, U) : 0;
  if (encounter > 0) {
    relevant = kTwoPi / encounter;
    periods.encounter = static_cast<float>(relevant * T);
  }
  const double body = LongestForcedPeriod(control) * scales.time;
  periods.body = static_cast<float>(body * T);
  relevant = std::max(relevant, body);
  periods.relevant = static_cast<float>(relevant * T);
  const double step = control.DTH * scales.time;
  periods.steps = step > 0 ? relevant / step : 0;
  return periods;
}

void SayPeriods(const Console& console, const DominantWave& wave, const ShownPeriods& periods, std::size_t count) {
  SayLines(console, kPurpose);
  if (wave.kind == SeaPeriod::no_clue) SayLine(console, kNoClue);
  if (wave.kind == SeaPeriod::regular) Say(console, "Regular wave .............. wave period= {}", Shown{periods.wave});
  if (wave.kind == SeaPeriod::composite)
    Say(console, "Composite wave . period of largest wave= {}", Shown{periods.wave});
  if (wave.kind == SeaPeriod::spectral)
    Say(console, "Spectral def seaway ...... modal period= {}", Shown{periods.wave});
  if (periods.encounter > 0) Say(console, "Forward speed case ... encounter period= {}", Shown{periods.encounter});
  if (periods.body > 0) Say(console, "Forced motion case .... max body period= {}", Shown{periods.body});
  Say(console, "Relevant period ...................... = {} which = {} time steps", Shown{periods.relevant},
      Shown{static_cast<float>(periods.steps)});
  Say(console, "Simulation has {} time steps", count);
}

std::size_t SilentSkip(std::size_t count, int of_period) {
  if (count > kLongRun) return kLongSkip;
  return count >= kShortRun ? count / 2 : static_cast<std::size_t>(of_period);
}

}  // namespace

DominantWave FindDominantWave(const ControlRecords& control) {
  const SeawayInput& sea = control.seaway;
  const InputScales scales = InputScalesOf(control);
  DominantWave wave;
  if (sea.ISEA == 1 || sea.ISEA == 3 || sea.ISEA == 4) {
    wave = Largest(WaveRows(sea));
    wave.frequency *= scales.frequency;
  } else if (sea.ISEA == 5) {
    wave.kind = SeaPeriod::no_clue;
  } else if (IsSpectrum(sea.ISEA)) {
    const double period = ModalPeriod(control) * scales.time;
    if (period > 0 && std::isfinite(period)) wave = {SeaPeriod::spectral, kTwoPi / period, Radians(sea.SEAHD)};
  }
  return wave.frequency > 0 || wave.kind == SeaPeriod::no_clue ? wave : DominantWave{};
}

void ChooseDefaultSkip(const Console& console, const RunState& run, const OutputSettings& settings,
                       CaseStore& case_store) {
  if (settings.reading.skip_initial >= 0) return;
  case_store.skip_effective = 0;
  if (case_store.control.MOTYPE == 1 || run.skip_prompt == SkipPrompt::none) return;

  const DominantWave wave = FindDominantWave(case_store.control);
  const ShownPeriods periods = FindPeriods(case_store.control, wave, settings.units.scales.T);
  const std::size_t count = StepsInStore(case_store);
  const int of_period = std::max(0, RoundToInt(periods.steps));
  int skip = 0;
  if (run.skip_prompt == SkipPrompt::ask) {
    SayPeriods(console, wave, periods, count);
    int answer = of_period;
    const bool taken = ask_integer(console, kHowMany, true, answer) == Answer::ok && answer >= 0;
    skip = taken ? answer : of_period;
  } else {
    skip = static_cast<int>(SilentSkip(count, of_period));
  }
  case_store.skip_effective = std::clamp(skip, 0, std::max(0, case_store.last_step - 1));
  Say(console, "Skipping      {} time steps by default", case_store.skip_effective);
}

}  // namespace zaview
