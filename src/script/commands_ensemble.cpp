// Statistics of the ensemble in store: tables, single values, the averaged autocorrelation.
#include <string>

#include "base/text.h"
#include "script/call_arguments.h"
#include "script/command_table.h"
#include "script/plot_commands.h"
#include "script/selectors.h"
#include "script/statistic_word.h"
#include "script/write_table.h"
#include "stats/tables/ensemble_table.h"
#include "views/state/stat_work.h"

namespace zaview {

namespace {

int WriteEnsemble(ScriptCall& call, const StatRequest& request, const Selector& selector) {
  return WriteTable(call, selector.word, "Ensemble statistics written to",
                    [&](OutputFile& file) { return EnsembleStat(WorkOf(call.session), request, file); });
}

int RunEnsembleStat(ScriptCall& call) {
  StatRequest request;
  Selector selector;
  if (const int status = ReadStatistic(call, request.statistic); status != kScriptOk) return status;
  if (const int status = ReadCurve(call, selector, request.quantity); status != kScriptOk) return status;
  request.text = NextScriptWord(call.words, kFreeText);
  return WriteEnsemble(call, request, selector);
}

int RunEnsembleIntervals(ScriptCall& call) {
  StatRequest request;
  Selector selector;
  request.statistic.number = kStatTable;
  request.statistic.interval = true;
  if (const int status = ReadCurve(call, selector, request.quantity); status != kScriptOk) return status;
  return WriteEnsemble(call, request, selector);
}

// The whole line decides what is wanted, file names included.
int RunEnsembleAutocorrelation(ScriptCall& call) {
  const std::string line = call.command + Capitals(call.words.line);
  const bool plot = Contains(line, "PLOT");
  const bool dependence_only = Contains(line, "DEPEND");
  Selector selector;
  QuantityRequest request;
  if (const int status = ReadCurve(call, selector, request); status != kScriptOk) return status;
  if (plot) return HandOverPlot(call, {.kind = PlotKind::autocorrelation, .quantity = request, .of_ensemble = true});
  return WriteTable(
      call, selector.word,
      dependence_only ? "Dependence time written to" : "Ensemble averaged autocorrelation written to",
      [&](OutputFile& file) { return EnsembleAutoCorrelation(WorkOf(call.session), request, dependence_only, file); });
}

int RunMany(ScriptCall& call) {
  int nmany = 0;
  if (const int status = ReadWhole(call, nmany); status != kScriptOk) return status;
  if (nmany < 0) return Fail(call, kScriptBadArgument, kInvalidValue, call.command);
  call.session.statistics.nmany = nmany;
  return kScriptOk;
}

constexpr Command kEnsemble[] = {
    {{"ENSEMBLE_NMANY", "NMANY"},
     kNone,
     RunMany,
     "records",
     "How intervals of ensembles are formed: 0 few records, 1 many, n above 1 many from n records on",
     "0"},
    {{"ENSEMBLE_STAT", "ENSEMBLE_STATS"},
     kNeedsEnsemble | kNeedsMotion,
     RunEnsembleStat,
     "stat sel tail text file",
     "One statistic of the ensemble, or TABLE for all of them and each record"},
    {{"ENSEMBLE_CONFIDENCE_INTERVAL", "ENSEMBLE_CONFIDENCE", "ENSEMBLE_CONF", "ENSEMBLE_CI"},
     kNeedsEnsemble | kNeedsMotion,
     RunEnsembleIntervals,
     "sel tail file",
     "All statistics of the ensemble with their confidence intervals"},
    {{"ENSEMBLE_AUTOCORRELATION", "ENSEMBLE_AUTOCORELATION", "ENSEMBLE_AUTOC", "WRITE_ENSEMBLE_AUTOCORRELATION",
      "WRITE_ENSEMBLE_AUTOCORELATION", "WRITE_ENSEMBLE_AUTOC", "PLOT_ENSEMBLE_AUTOCORRELATION",
      "PLOT_ENSEMBLE_AUTOCORELATION", "PLOT_ENSEMBLE_AUTOC", "DEPENDENCE_TIME", "DEPENDENCE"},
     kNeedsCase | kNeedsMotion,
     RunEnsembleAutocorrelation,
     "sel tail file",
     "Autocorrelation averaged over the ensemble; with DEPEND on the line its dependence time alone, with PLOT its "
     "picture"},
};

}  // namespace

CommandFamily EnsembleCommands() {
  return kEnsemble;
}

}  // namespace zaview
