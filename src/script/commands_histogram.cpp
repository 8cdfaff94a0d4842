// Histograms: their settings and their table.
#include <string>

#include "base/text.h"
#include "case/quantity_catalogue.h"
#include "script/call_arguments.h"
#include "script/command_table.h"
#include "script/selectors.h"
#include "script/setting_words.h"
#include "script/write_table.h"
#include "stats/tables/histogram_table.h"
#include "views/state/stat_work.h"

namespace zaview {

namespace {

constexpr WordValue kDataWords[] = {
    {"ALL", 0}, {"SIGNED", 0}, {"SIG", 0}, {"ABSOLUTE", 1}, {"ABS", 1}, {"POSITIVE", 2}, {"POS", 2},
};
constexpr WordValue kOverlayWords[] = {
    {"OFF", 0},      {"NONE", 0},  {"UNI", 1},
    {"UNIFORM", 1},  {"NORM", 2},  {"NORMAL", 2},
    {"GAUSSIAN", 2}, {"GAUSS", 2}, {"GRAMM-CHARLIER", 3},
    {"GRAMM", 3},    {"GC", 3},    {"G-C", 3},
    {"RAYLEIGH", 4}, {"RAY", 4},   {"EXPONENTIAL", 5},
    {"EXP", 5},
};
// 1: counts
constexpr WordValue kAxisWords[] = {
    {"N/NTOT", 0}, {"RATIO", 0}, {"N", 0}, {"TOTAL", 1}, {"COUNT", 1},
};

int RunData(ScriptCall& call) {
  int value = 0;
  const int status = ReadWord(call, kDataWords, value);
  if (status == kScriptOk) call.session.statistics.histogram.data = static_cast<HistogramData>(value);
  return status;
}

int RunOverlay(ScriptCall& call) {
  int value = 0;
  const int status = ReadWord(call, kOverlayWords, value);
  if (status == kScriptOk) call.session.statistics.histogram.overlay = static_cast<Overlay>(value);
  return status;
}

int RunAxis(ScriptCall& call) {
  int value = 0;
  const int status = ReadWord(call, kAxisWords, value);
  if (status == kScriptOk) call.session.statistics.histogram.counts = value != 0;
  return status;
}

int RunRate(ScriptCall& call) {
  int rate = 0;
  if (const int status = ReadWhole(call, rate); status != kScriptOk) return status;
  if (rate < 1) return Fail(call, kScriptBadArgument, kInvalidValue, call.command);
  call.session.statistics.histogram.rate = rate;
  return kScriptOk;
}

// A name that holds ENS, or several records in store: of the ensemble. A table needs nothing to draw on.
int RunWriteHistogram(ScriptCall& call) {
  Session& session = call.session;
  const bool of_ensemble = Contains(call.command, "ENS") || session.ensemble.nrec > 1;
  Selector selector;
  QuantityRequest request;
  if (const int status = ReadCurve(call, selector, request); status != kScriptOk) return status;
  const std::string done = fmt::format("Histogram of {} written to", QuantityLabel(session.case_store, request.iqnt));
  return WriteTable(call, selector.word, done,
                    [&](OutputFile& file) { return WriteHistogram(WorkOf(session), request, of_ensemble, file); });
}

constexpr Command kHistogram[] = {
    {{"HISTOGRAM_DATA", "HISTOGRAM_TYPE", "HIST_DATA", "HIST_TYPE"},
     kNone,
     RunData,
     "ALL|SIGNED|SIG|ABSOLUTE|ABS|POSITIVE|POS",
     "Which values a histogram takes",
     "ALL"},
    {{"HISTOGRAM_DIST_OVERLAY", "HISTOGRAM_DIST", "HISTOGRAM_OVERLAY", "HIST_DIST_OVERLAY", "HIST_DIST",
      "HIST_OVERLAY"},
     kNone,
     RunOverlay,
     "OFF|NONE|UNI|UNIFORM|NORM|NORMAL|GAUSSIAN|GAUSS|GRAMM-CHARLIER|GRAMM|GC|G-C|RAYLEIGH|RAY|EXPONENTIAL|EXP",
     "Theoretical distribution beside a histogram",
     "OFF"},
    {{"HISTOGRAM_YAXIS", "HISTOGRAM_Y", "HIST_YAXIS", "HIST_Y"},
     kNone,
     RunAxis,
     "N/NTOT|RATIO|N|TOTAL|COUNT",
     "Axis of a histogram: fractions, or with TOTAL and COUNT numbers",
     "N/NTOT"},
    {{"HISTOGRAM_SAMPLE_RATE", "HISTOGRAM_SAMPLE", "HIST_SAMPLE_RATE", "HIST_SAMPLE"},
     kNone,
     RunRate,
     "step",
     "Histograms take every so many samples",
     "1"},
    {{"WRITE_HISTOGRAM", "WRITE_ENSEMBLE_HISTOGRAM"},
     kNeedsCase | kNeedsMotion,
     RunWriteHistogram,
     "sel tail file",
     "Histogram of the current record; of the ensemble with ENSEMBLE, or where there are several records"},
};

}  // namespace

CommandFamily HistogramCommands() {
  return kHistogram;
}

}  // namespace zaview
