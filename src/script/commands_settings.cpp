// Commands for what statistics are made with, and STOP.
#include <vector>

#include "base/number_parse.h"
#include "case/settings/statistic_settings.h"
#include "script/call_arguments.h"
#include "script/command_table.h"
#include "script/setting_words.h"

namespace zaview {

namespace {

constexpr std::string_view kNegative = "ERROR - Invalid argument for {} value cannot be negative";

// One number for a verb.
template <typename Set>
int ReadSetting(ScriptCall& call, fmt::format_string<const std::string&> refused, Set set) {
  float value = 0;
  if (const int status = ReadNumber(call, value); status != kScriptOk) return status;
  if (set(value, call.session.output.statistics) == SettingFault::none) return kScriptOk;
  return Fail(call, kScriptBadArgument, refused, std::as_const(call.command));
}

int RunLengthNdtf(ScriptCall& call) {
  return ReadSetting(call, kNegative, SetNdtfLength);
}

int RunBeamNdtf(ScriptCall& call) {
  return ReadSetting(call, kNegative, SetNdtfBeam);
}

int RunConfidence(ScriptCall& call) {
  return ReadSetting(call, kInvalidValue, SetProbability);
}

// The number of resamples and the seed stay as they were where they are left out.
int RunIntervalMethod(ScriptCall& call) {
  constexpr WordValue kMethods[] = {{"FORMULA", static_cast<int>(IntervalMethod::formula)},
                                    {"BOOTSTRAP", static_cast<int>(IntervalMethod::bootstrap)}};
  int method = 0;
  if (const int status = ReadWord(call, kMethods, method); status != kScriptOk) return status;
  auto statistics = call.session.output.statistics;
  (void)SetIntervalMethod(method, statistics);
  std::vector<float> values;
  if (const int status = ReadNumbers(call, -2, values); status != kScriptOk) return status;
  const auto value = [&](std::size_t i) { return RoundToInt(static_cast<double>(values[i])); };
  if ((!values.empty() && SetResamples(value(0), statistics) != SettingFault::none) ||
      (values.size() > 1 && SetSeed(value(1), statistics) != SettingFault::none))
    return Fail(call, kScriptBadArgument, kInvalidValue, call.command);
  call.session.output.statistics = statistics;
  return kScriptOk;
}

int RunSampleRate(ScriptCall& call) {
  return ReadSetting(call, kInvalidValue, [](float rate, auto& statistics) {
    return SetSampleRate(RoundToInt(static_cast<double>(rate)), statistics);
  });
}

int RunCutoff(ScriptCall& call) {
  return ReadSetting(call, kInvalidValue, SetCutoff);
}

// Both or neither.
int RunExtremeMaximum(ScriptCall& call) {
  std::vector<float> values;
  if (const int status = ReadNumbers(call, 2, values); status != kScriptOk) return status;
  auto statistics = call.session.output.statistics;
  if (SetExtremeHours(values[0], statistics) != SettingFault::none ||
      SetExtremeQuantile(values[1], statistics) != SettingFault::none)
    return Fail(call, kScriptBadArgument, kInvalidValue, call.command);
  call.session.output.statistics = statistics;
  return kScriptOk;
}

int RunSpectrumSegment(ScriptCall& call) {
  return ReadSetting(call, kInvalidValue, SetSpectrumSegment);
}

int RunRainflowBins(ScriptCall& call) {
  return ReadSetting(call, kInvalidValue, [](float bins, auto& statistics) {
    return SetRainflowBins(RoundToInt(static_cast<double>(bins)), statistics);
  });
}

// Ends the script as its end of text would.
int RunStop(ScriptCall& call) {
  call.session.script.next_line = call.session.script.final_text.size();
  return kScriptOk;
}

constexpr Command kSettings[] = {
    {{"SET_LENGTH_NDTF", "LENGTH_NDTF", "SET_LEN_NDTF", "LEN_NDTF", "SET_LENGTH_RAO", "LENGTH_RAO", "SET_LEN_RAO",
      "LEN_RAO"},
     kNone,
     RunLengthNdtf,
     "length",
     "Ship length of transfer functions (NDTF); 0: LENOUT",
     "0"},
    {{"SET_BEAM_NDTF", "BEAM_NDTF", "SET_BEAM_RAO", "BEAM_RAO"},
     kNone,
     RunBeamNdtf,
     "length",
     "The same for the beam, which roll is scaled by",
     "0"},
    {{"CONFIDENCE_PROBABILITY", "CONFIDENCE_PROB", "CONF_PROB"},
     kNone,
     RunConfidence,
     "probability",
     "Probability of confidence intervals, above 0 and at most 1",
     "0.95"},
    {{"CI_METHOD"},
     kNone,
     RunIntervalMethod,
     "FORMULA|BOOTSTRAP [resamples] [seed]",
     "Confidence intervals by the formula, or by a bootstrap of blocks, which holds its probability but costs time",
     "FORMULA"},
    {{"AUTOCORRELATION_SAMPLE_RATE", "AUTOCORRELATION_SAMPLE", "AUTOC_SAMPLE_RATE", "AUTOC_SAMPLE"},
     kNone,
     RunSampleRate,
     "step",
     "Autocorrelations take every so many samples",
     "1"},
    {{"AUTOCORRELATION_CUTOFF", "AUTOC_CUTOFF", "AC_CUTOFF"},
     kNone,
     RunCutoff,
     "ratio",
     "Samples depend on one another where the autocorrelation is above it",
     "0.05"},
    {{"EXTREME_MAXIMUM"},
     kNone,
     RunExtremeMaximum,
     "hours quantile",
     "Extremes are those of so many hours: the most probable largest value, and its chosen quantile (above 0, below 1)",
     "3 0.99"},
    {{"SPECTRUM_SEGMENT"},
     kNone,
     RunSpectrumSegment,
     "segment",
     "The time that each segment of a spectrum covers, in output time; 0: an eighth of the record",
     "0"},
    {{"RAINFLOW_BINS"},
     kNone,
     RunRainflowBins,
     "count",
     "How many bins of equal width the ranges of rainflow cycles are counted in",
     "50"},
    {{"STOP"}, kNone, RunStop, "", "Ends the script; what stands behind it is not read", "", NameMatch::whole, true},
};

}  // namespace

CommandFamily StatisticSettings() {
  return kSettings;
}

}  // namespace zaview
