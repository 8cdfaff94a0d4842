// Commands that write coefficients and motion responses of impulse response cases.
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "analysis/frequency_domain/frequency_dialogue.h"
#include "base/number_format.h"
#include "base/number_parse.h"
#include "base/text.h"
#include "script/command_table.h"
#include "script/fault_status.h"
#include "script/open_script_file.h"
#include "script/output_argument.h"
#include "views/state/result_choice.h"

namespace zaview {

namespace {

constexpr std::string_view kBlankName = "ERROR - Blank file name for {} command";
constexpr std::string_view kLongName = "ERROR opening output file: {}";
constexpr std::string_view kBadMode = "LOGIC error - rvm= {}";
constexpr std::string_view kNotFromStart = "ERROR - {} needs a history that starts with step 1";
constexpr std::string_view kNoResponses = "ERROR - {} needs radiation and diffraction IRFs";
constexpr std::string_view kNoHeading = "ERROR - no diffraction IRF for heading {}";
constexpr std::string_view kBadCount = "ERROR - illegal number of frequencies for {} command...";
constexpr std::string_view kBadRange = "ERROR - illegal frequency range for {} command...";
constexpr float kSameHeading = 1.0e-3F;  // degrees

int RunWriteCoefficients(ScriptCall& call) {
  const CaseStore& store = call.session.case_store;
  const std::string root(Trim(NextScriptWord(call.words, kFreeText)));
  if (root.empty()) return Fail(call, kScriptBadArgument, kBlankName, call.command);
  if (root.size() > kScriptFileName) return Fail(call, kScriptFailed, kLongName, root);
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
  if (!ParseRealList(call.words, 4, values)) return Fail(call, kScriptFailed, kFewArguments, call.command);
  const std::size_t heading = FindHeading(OutlineOf(store), values[0]);
  if (heading == 0) return Fail(call, kScriptFailed, kNoHeading, Shown{values[0]});
  if (!(values[1] > 0) || !(values[1] <= values[2])) return Fail(call, kScriptBadArgument, kBadRange, call.command);
  const int count = RoundToInt(static_cast<double>(values[3]));
  if (count < 1 || count > kMostFrequencies) return Fail(call, kScriptBadArgument, kBadCount, call.command);
  OutputArgument output;
  if (const int status = OpenOutputArgument(call, OutputForms::formatted, output); status != kScriptOk) return status;
  const FrequencyWork work{call.session.platform, call.session.output, store};
  const std::vector<double> w_out = EvenFrequencies(double{values[1]}, double{values[2]}, count);
  ResultPlot plot;
  const DataFault fault = WriteResponses(work, heading - 1, w_out, output.file, plot);
  if (fault == DataFault::none) KeepResult(call.session.data_plot, std::move(plot));
  return FinishOutput(call, output, StatusOf(call, "", fault), "Motion RAOs written to file");
}

constexpr Command kFrequency[] = {
    {{"WRITE_COEFFICIENTS"},
     kNeedsCase | kNeedsImpulsive,
     RunWriteCoefficients,
     "root",
     "Added mass, damping, stiffness and wave excitation over frequency of all impulse response functions, to "
     "root.adm, "
     ".dmp, .stf and .exc"},
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
