// Tables of what one curve tells: its spectrum, its extremes, its cycles.
#include <string_view>

#include "analysis/curves/extremes_report.h"
#include "analysis/curves/rainflow_report.h"
#include "analysis/curves/spectrum_report.h"
#include "script/command_table.h"
#include "script/selectors.h"
#include "script/write_table.h"
#include "views/state/stat_work.h"

namespace zaview {

namespace {

using WriteCurve = DataFault (*)(const StatWork&, const QuantityRequest&, OutputFile&);

int Write(ScriptCall& call, WriteCurve write, std::string_view written) {
  Selector selector;
  QuantityRequest request;
  if (const int status = ReadCurve(call, selector, request); status != kScriptOk) return status;
  return WriteTable(call, selector.word, written,
                    [&](OutputFile& file) { return write(WorkOf(call.session), request, file); });
}

int RunSpectrum(ScriptCall& call) {
  return Write(call, WriteSpectrum, "Spectrum written to file");
}
int RunExtremes(ScriptCall& call) {
  return Write(call, WriteExtremes, "Extremes written to file");
}
int RunRainflow(ScriptCall& call) {
  return Write(call, WriteRainflow, "Rainflow counts written to file");
}

constexpr Needs kRecord = kNeedsCase | kNeedsMotion;

constexpr Command kCurves[] = {
    {{"WRITE_SPECTRUM"},
     kRecord,
     RunSpectrum,
     "sel tail file",
     "Spectral density of the record, or averaged over an ensemble (Welch's method), with its moments, heights, "
     "periods and bandwidth"},
    {{"WRITE_EXTREMES"},
     kRecord,
     RunExtremes,
     "sel tail file",
     "Weibull and Gumbel distributions fitted to peaks and blocks, with the largest values to be expected"},
    {{"WRITE_RAINFLOW"}, kRecord, RunRainflow, "sel tail file", "Cycles of the current record by rainflow counting"},
};

}  // namespace

CommandFamily CurveCommands() {
  return kCurves;
}

}  // namespace zaview
