// Commands that write coefficients and motion responses of impulse response cases.
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "analysis/frequency_domain/frequency_dialogue.h"
#include "base/number_format.h"
#include "base/number_parse.h"
#include "base/text.h"
#include "script/call_arguments.h"
#include "script/command_table.h"
#include "script/write_table.h"
#include "views/state/result_choice.h"

namespace zaview {

namespace {

constexpr std::string_view kBadMode = "LOGIC error - rvm= {}";
constexpr std::string_view kNotFromStart = "ERROR - {} needs a history that starts with step 1";
constexpr std::string_view kNoResponses = "ERROR - {} needs radiation and diffraction IRFs";
constexpr std::string_view kNoHeading = "ERROR - no diffraction IRF for heading {}";
constexpr std::string_view kBadCount = "ERROR - illegal number of frequencies for {} command...";
constexpr std::string_view kBadRange = "ERROR - illegal frequency range for {} command...";
constexpr float kSameHeading = 1.0e-3F;  // degrees

int RunWriteCoefficients(ScriptCall& call) {
  const CaseStore& store = call.session.case_store;
  std::string root;
  if (const int status = ReadFileName(call, BlankName::refused, root); status != kScriptOk) return status;
  if (store.tadm_case && (store.rvm < 1 || store.rvm > static_cast<int>(kModes)))
    return Fail(call, kScriptFailed, kBadMode, store.rvm);
  if (store.tadm_case && store.first_step != 1) return Fail(call, kScriptFailed, kNotFromStart, call.command);
  const FrequencyWork work{call.session.platform, call.session.output, store};
  ResultPlot plot;
  const bool written = WriteCoefficientFiles(work, root, plot);
  if (written) KeepResult(call.session.data_plot, std::move(plot));
  return written ? kScriptOk : kScriptFailed;
}

// From 1; 0: there is none.
std::size_t FindHeading(const ResponseModel& outline, float heading) {
  for (std::size_t i = 0; i < outline.headings.size(); ++i)
    if (std::abs(static_cast<float>(outline.headings[i].heading) - heading) < kSameHeading) return i + 1;
  return 0;
}

int RunWriteResponses(ScriptCall& call) {
  const CaseStore& store = call.session.case_store;
  if (!HasResponses(store)) return Fail(call, kScriptFailed, kNoResponses, call.command);
  std::vector<float> values;
  if (const int status = ReadNumbers(call, 4, values); status != kScriptOk) return status;
  const std::size_t heading = FindHeading(OutlineOf(store), values[0]);
  if (heading == 0) return Fail(call, kScriptFailed, kNoHeading, Shown{values[0]});
  if (!(values[1] > 0) || !(values[1] <= values[2])) return Fail(call, kScriptBadArgument, kBadRange, call.command);
  const int count = RoundToInt(static_cast<double>(values[3]));
  if (count < 1 || count > kMostFrequencies) return Fail(call, kScriptBadArgument, kBadCount, call.command);
  const FrequencyWork work{call.session.platform, call.session.output, store};
  const std::vector<double> w_out = EvenFrequencies(double{values[1]}, double{values[2]}, count);
  return WriteTable(call, "", "Motion RAOs written to file", [&](OutputFile& file) {
    ResultPlot plot;
    const DataFault fault = WriteResponses(work, heading - 1, w_out, file, plot);
    if (fault == DataFault::none) KeepResult(call.session.data_plot, std::move(plot));
    return fault;
  });
}

constexpr Command kFrequency[] = {
    {{"WRITE_COEFFICIENTS"},
     kNeedsCase | kNeedsImpulsive,
     RunWriteCoefficients,
     "root",
     "Added mass, damping, stiffness and wave excitation over frequency of all impulse response functions, to "
     "root.adm, .dmp, .stf and .exc"},
    {{"WRITE_RAO"},
     kNeedsCase | kNeedsImpulsive,
     RunWriteResponses,
     "heading low high count file",
     "Motions in regular waves of a heading, at a number of wave frequencies from low to high"},
};

}  // namespace

CommandFamily FrequencyCommands() {
  return kFrequency;
}

}  // namespace zaview
