// Commands that write histories, load distributions and labels.
#include <string>
#include <vector>

#include "base/number_parse.h"
#include "base/text.h"
#include "case/quantity_catalogue.h"
#include "case/tables/history_table.h"
#include "case/tables/kino_output.h"
#include "case/tables/load_table.h"
#include "script/command_table.h"
#include "script/selectors.h"
#include "script/write_table.h"

namespace zaview {

namespace {

constexpr std::string_view kHistoryRefused = "WARNING - Time history file quantity {} not valid for this output file";
constexpr std::string_view kFewIrf = "ERROR - Insufficient or invalid arguments for {} command;";
constexpr std::string_view kIrfWanted = "        IRF calculation requires index of IRF  as first argument ...";

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

int RunWriteLoads(ScriptCall& call) {
  Session& session = call.session;
  Selector selector;
  int step = 0;
  if (const int status = ReadLoadAndStep(call, selector, step); status != kScriptOk) return status;
  return WriteTable(call, selector.word, "Load distribution data written to file", [&](OutputFile& file) {
    return LoadDistFil(call.console(), session.output, selector.iqnt, step, session.case_store, file);
  });
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
