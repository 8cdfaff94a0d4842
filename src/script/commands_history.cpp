// Commands that write histories, load distributions and labels.
#include <algorithm>
#include <string>
#include <vector>

#include "base/number_parse.h"
#include "base/text.h"
#include "case/quantity_catalogue.h"
#include "case/tables/history_table.h"
#include "case/tables/kino_output.h"
#include "case/tables/load_table.h"
#include "script/command_table.h"
#include "script/fault_status.h"
#include "script/open_script_file.h"
#include "script/output_argument.h"
#include "script/selectors.h"

namespace zaview {

namespace {

inline constexpr std::string_view kHistoryRefused =
    "WARNING - Time history file quantity {} not valid for this output file";
inline constexpr std::string_view kFewIrf = "ERROR - Insufficient or invalid arguments for {} command;";
inline constexpr std::string_view kIrfWanted = "        IRF calculation requires index of IRF  as first argument ...";
inline constexpr std::string_view kBadIrf = "WARNING - IRF index {} not valid for {}";
inline constexpr std::string_view kNoLoad = "ERROR - Invalid quantity for {} command ...";
inline constexpr std::string_view kFewLoad = "ERROR - Insufficient arguments for {} command ...";

// An IRF case has the index of a function where others have a selector.
int ReadIrfIndex(ScriptCall& call, Selector& selector, QuantityRequest& request) {
  std::vector<float> values;
  if (!ParseRealList(call.words, 1, values)) {
    Say(call.console(), kFewIrf, call.command);
    return Fail(call, kScriptBadArgument, kIrfWanted);
  }
  request = {};
  selector.iqnt = request.iqnt = RoundToInt(static_cast<double>(values[0]));
  return kScriptOk;
}

int ReadHistoryQuantity(ScriptCall& call, Selector& selector, QuantityRequest& request) {
  if (call.session.case_store.irf_case) return ReadIrfIndex(call, selector, request);
  if (const int status = ReadSelector(call, selector); status != kScriptOk) return status;
  return ReadTail(call, selector, CurveIndex::none, request);
}

std::string WrittenText(const CaseStore& store, int iqnt) {
  if (store.time_history() && IsKinoFile(iqnt))
    return iqnt == kKinoMotions ? "KINO motion data written to" : "KINO seaway data written to";
  return fmt::format("Time history of {} written to file", QuantityLabel(store, iqnt));
}

int RunWriteHistory(ScriptCall& call) {
  Session& session = call.session;
  Selector selector;
  QuantityRequest request;
  if (const int status = ReadHistoryQuantity(call, selector, request); status != kScriptOk) return status;
  OutputArgument output;
  const bool kino = session.case_store.time_history() && IsKinoFile(selector.iqnt);
  const OutputForms forms = kino ? OutputForms::formatted : OutputForms::both;
  if (const int status = OpenOutputArgument(call, forms, output); status != kScriptOk) return status;
  DataFault fault = DataFault::not_valid;
  if (QuantityValid(session.case_store, selector.iqnt))
    fault = write_time_history(call.console(), session.output, request, output.unformatted, session.case_store,
                               output.file);
  if (fault == DataFault::not_valid) {  // a warning: the script goes on
    DiscardOutput(output.file);
    if (session.case_store.irf_case) Say(call.console(), kBadIrf, selector.iqnt, call.command);
    else Say(call.console(), kHistoryRefused, selector.word);
    return kScriptOk;
  }
  const int status =
      FinishOutput(call, output, StatusOf(call, selector.word, fault), WrittenText(session.case_store, selector.iqnt));
  if (status == kScriptOk && kino && selector.iqnt == kKinoMotions)
    SayKinoTransformation(call.console(), session.output, session.case_store);
  return status;
}

bool IsLoad(const Selector& selector) {
  const QuantityRow* row = FindQuantity(selector.iqnt);
  return row != nullptr && row->load_kind > 0 && selector.form == TailForm::plain;
}

int RunWriteLoads(ScriptCall& call) {
  Session& session = call.session;
  CaseStore& store = session.case_store;
  Selector selector;
  if (const int status = ReadSelector(call, selector); status != kScriptOk) return status;
  if (!IsLoad(selector)) return Fail(call, kScriptBadArgument, kNoLoad, call.command);
  if (!QuantityValid(store, selector.iqnt))
    return Fail(call, kScriptBadArgument, kNotValid, call.command, selector.word);
  std::vector<float> values;
  if (!ParseRealList(call.words, 1, values)) return Fail(call, kScriptBadArgument, kFewLoad, call.command);
  const int step = std::max(store.first_step, std::min(StepCount(values[0]), store.last_step));
  OutputArgument output;
  if (const int status = OpenOutputArgument(call, OutputForms::formatted, output); status != kScriptOk) return status;
  const DataFault fault = LoadDistFil(call.console(), session.output, selector.iqnt, step, store, output.file);
  return FinishOutput(call, output, StatusOf(call, selector.word, fault), "Load distribution data written to file");
}

int RunWriteLabel(ScriptCall& call) {
  const std::string text = NextScriptWord(call.words, kFreeText);
  OutputArgument output;
  if (const int status = OpenOutputArgument(call, OutputForms::formatted, output); status != kScriptOk) return status;
  WriteOutput(output.file, std::string(TrimEnd(text)) + '\n');
  return FinishOutput(call, output, kScriptOk, "");
}

constexpr Command kHistories[] = {
    {{"WRITE_HISTORY"},
     kNeedsCase | kShortWords,
     RunWriteHistory,
     "sel place file",
     "Time histories of all curves of a quantity"},
    {{"WRITE_LOAD_DISTRIBUTION", "WRITE_LOAD_DIST", "WRITE_LOADDIST"},
     kNeedsCase | kNeedsMotion,
     RunWriteLoads,
     "load step file",
     "Sectional loads along the ship at one step, with their least and largest"},
    {{"WRITE_LABEL", "WRITE_TEXT"}, kNone, RunWriteLabel, "text file", "One line of text"},
};

}  // namespace

CommandFamily HistoryCommands() {
  return kHistories;
}

}  // namespace zaview
