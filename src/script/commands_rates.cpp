// Upcrossings, exceedances and block exceedances of the ensemble in store.
#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "base/number_parse.h"
#include "base/text.h"
#include "script/command_table.h"
#include "script/fault_status.h"
#include "script/open_script_file.h"
#include "script/output_argument.h"
#include "script/selectors.h"
#include "stats/tables/rate_tables.h"
#include "views/state/stat_work.h"

namespace zaview {

namespace {

inline constexpr std::string_view kNoSelections =
    "WARNING - specified output quantities not yet implemented for BLOCK_EXCEEDANCES";

int RunUpcrossings(ScriptCall& call) {
  Session& session = call.session;
  Selector selector;
  UpcrossingRequest request;
  if (const int status = ReadCurve(call, selector, request.quantity); status != kScriptOk) return status;
  std::vector<float> levels;
  if (!ParseRealList(call.words, 3, levels)) return Fail(call, kScriptFailed, kFewArguments, call.command);
  request.min = levels[0];
  request.max = levels[1];
  request.increment = levels[2];
  OutputArgument output;
  if (const int status = OpenOutputArgument(call, OutputForms::formatted, output); status != kScriptOk) return status;
  const DataFault fault = WriteUpcrossings(WorkOf(session), request, output.file);
  return FinishOutput(call, output, StatusOf(call, selector.word, fault), "Upcrossing statistics written to");
}

struct ResultWord {
  std::string_view word;
  ExceedanceResult result;
};
constexpr ResultWord kResultWords[] = {
    // the first one found anywhere in the command word counts
    {"RATE_CI", ExceedanceResult::rate_ci},
    {"RATECI", ExceedanceResult::rate_ci},
    {"RATE", ExceedanceResult::rate},
    {"NUMBER", ExceedanceResult::number},
    {"TIME_FR", ExceedanceResult::time_fraction},
    {"TIME", ExceedanceResult::time},
    {"LIST", ExceedanceResult::list},
};

ExceedanceResult ResultOf(std::string_view command) {
  for (const ResultWord& row : kResultWords)
    if (Contains(command, row.word)) return row.result;
  return ExceedanceResult::report;
}

Direction DirectionOf(std::string_view command) {
  const bool up = Contains(command, "+"), down = Contains(command, "-");
  if (up == down) return Direction::both;
  return up ? Direction::up : Direction::down;
}

int RunExceedances(ScriptCall& call) {
  Session& session = call.session;
  const bool blocks = StartsWith(call.command, "BLOCK");
  ExceedanceRequest request;
  request.direction = DirectionOf(call.command);
  request.result = ResultOf(call.command);
  if (blocks && request.result != ExceedanceResult::report) SayLine(call.console(), kNoSelections);
  Selector selector;
  if (const int status = ReadCurve(call, selector, request.quantity); status != kScriptOk) return status;
  std::vector<float> values;
  if (!ParseRealList(call.words, 2, values)) return Fail(call, kScriptFailed, kFewArguments, call.command);
  request.threshold = values[0];
  request.ndep = RoundToInt(static_cast<double>(values[1]));
  OutputArgument output;
  if (const int status = OpenOutputArgument(call, OutputForms::formatted, output); status != kScriptOk) return status;
  const auto write = blocks ? WriteBlockExceedances : WriteExceedances;
  const DataFault fault = write(WorkOf(session), request, output.file);
  const bool list = !blocks && request.result == ExceedanceResult::list;
  return FinishOutput(call, output, StatusOf(call, selector.word, fault),
                      list ? "Exceedance list written to" : "Exceedance statistics written to");
}

constexpr Command kRates[] = {
    {{"UPCROSSING", "UPCROSSINGS"},
     kNeedsCase | kNeedsMotion,
     RunUpcrossings,
     "sel tail least most increment file",
     "How often levels are crossed upwards, over all records"},
    {{"EXCEEDANCE", "BLOCK_EXCEEDANCE"},
     kNeedsCase | kNeedsMotion,
     RunExceedances,
     "sel tail threshold dependence file",
     "Exceedances of a threshold: + or - in the word upwards or downwards only; RATE, RATE_CI, NUMBER, TIME, TIME_FR, "
     "LIST one result",
     "",
     NameMatch::beginning},
};

}  // namespace

CommandFamily RateCommands() {
  return kRates;
}

}  // namespace zaview
