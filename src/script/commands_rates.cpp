// Upcrossings, exceedances and block exceedances of the ensemble in store.
#include <vector>

#include "base/number_parse.h"
#include "base/text.h"
#include "script/call_arguments.h"
#include "script/command_table.h"
#include "script/selectors.h"
#include "script/write_table.h"
#include "stats/tables/rate_tables.h"
#include "views/state/stat_work.h"

namespace zaview {

namespace {

constexpr std::string_view kNoSelections =
    "WARNING - specified output quantities not yet implemented for BLOCK_EXCEEDANCES";

int RunUpcrossings(ScriptCall& call) {
  Selector selector;
  UpcrossingRequest request;
  if (const int status = ReadCurve(call, selector, request.quantity); status != kScriptOk) return status;
  std::vector<float> levels;
  if (const int status = ReadNumbers(call, 3, levels); status != kScriptOk) return status;
  request.min = levels[0];
  request.max = levels[1];
  request.increment = levels[2];
  return WriteTable(call, selector.word, "Upcrossing statistics written to",
                    [&](OutputFile& file) { return WriteUpcrossings(WorkOf(call.session), request, file); });
}

struct ResultWord {
  std::string_view word;
  ExceedanceResult result;
};
// The first one found anywhere in the command word counts.
constexpr ResultWord kResultWords[] = {
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
  const bool blocks = StartsWith(call.command, "BLOCK");
  ExceedanceRequest request;
  request.direction = DirectionOf(call.command);
  request.result = ResultOf(call.command);
  if (blocks && request.result != ExceedanceResult::report) SayLine(call.console(), kNoSelections);
  Selector selector;
  if (const int status = ReadCurve(call, selector, request.quantity); status != kScriptOk) return status;
  std::vector<float> values;
  if (const int status = ReadNumbers(call, 2, values); status != kScriptOk) return status;
  request.threshold = values[0];
  request.ndep = RoundToInt(static_cast<double>(values[1]));
  const auto write = blocks ? WriteBlockExceedances : WriteExceedances;
  const bool list = !blocks && request.result == ExceedanceResult::list;
  return WriteTable(call, selector.word, list ? "Exceedance list written to" : "Exceedance statistics written to",
                    [&](OutputFile& file) { return write(WorkOf(call.session), request, file); });
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
