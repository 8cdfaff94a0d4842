// Commands that write statistics of the current record.
#include "script/command_table.h"
#include "script/selectors.h"
#include "script/statistic_word.h"
#include "script/write_table.h"
#include "stats/tables/autocorrelation_table.h"
#include "stats/tables/interval_table.h"
#include "stats/tables/stat_table.h"
#include "views/state/stat_work.h"

namespace zaview {

namespace {

constexpr std::string_view kStatRefused = "ERROR - Time history statistics quantity {1} not valid for this output file";

int RunWriteStat(ScriptCall& call) {
  StatRequest request;
  Selector selector;
  if (const int status = ReadStatistic(call, request.statistic); status != kScriptOk) return status;
  if (const int status = ReadCurve(call, selector, request.quantity, kStatRefused); status != kScriptOk) return status;
  request.text = NextScriptWord(call.words, kFreeText);
  const auto write = request.statistic.interval ? WriteIntervals : WRSTAT;
  return WriteTable(
      call, selector.word, "Statistical data written to file",
      [&](OutputFile& file) { return write(WorkOf(call.session), request, file); }, kStatRefused);
}

int RunWriteIntervals(ScriptCall& call) {
  StatRequest request;
  request.statistic.number = kStatTable;
  request.statistic.interval = true;
  Selector selector;
  if (const int status = ReadCurve(call, selector, request.quantity); status != kScriptOk) return status;
  return WriteTable(call, selector.word, "Confidence interval data written to file",
                    [&](OutputFile& file) { return WriteIntervals(WorkOf(call.session), request, file); });
}

int RunWriteAutocorrelation(ScriptCall& call) {
  Selector selector;
  QuantityRequest request;
  if (const int status = ReadCurve(call, selector, request); status != kScriptOk) return status;
  return WriteTable(call, selector.word, "Autocorrelation data written to file",
                    [&](OutputFile& file) { return WriteAutocorrelation(WorkOf(call.session), request, file); });
}

constexpr Needs kRecord = kNeedsCase | kNeedsMotion;

constexpr Command kStatistics[] = {
    {{"WRITE_STAT", "WRITE_STATS"},
     kRecord,
     RunWriteStat,
     "stat sel tail text file",
     "One statistic behind the text, in one line, or TABLE for all of them"},
    {{"WRITE_AUTOCORRELATION", "WRITE_AUTOCORELATION", "WRITE_AUTOC"},
     kRecord,
     RunWriteAutocorrelation,
     "sel tail file",
     "Autocorrelation of the current record, with its envelope"},
    {{"WRITE_CONFIDENCE_INTERVAL", "WRITE_CONFIDENCE", "WRITE_CONF", "WRITE_CI"},
     kRecord,
     RunWriteIntervals,
     "sel tail file",
     "All statistics of the current record with their confidence intervals"},
};

}  // namespace

CommandFamily StatisticCommands() {
  return kStatistics;
}

}  // namespace zaview
