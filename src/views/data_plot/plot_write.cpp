// The data of the plot as text, by the writer of its kind.
#include "views/data_plot/plot_write.h"

#include <string>

#include "base/message.h"
#include "case/quantity_catalogue.h"
#include "frame/ground/output_file.h"
#include "views/data_plot/data_plot.h"
#include "views/data_plot/plot_type.h"

namespace zaview {

namespace {

constexpr std::string_view kOpenFault = "ERROR opening file {}{}";

}  // namespace

bool SayTableFault(const PlotSource& source, const DataPlotState& plot, DataFault fault) {
  return SayDataFault(source.console(), fault, Making::plot_table, QuantityLabel(source.store, plot.quantity.iqnt));
}

bool WritePlotData(Session& session, const std::string& name) {
  const Console& console = session.platform.console;
  DataPlotState& plot = session.data_plot;
  const PlotSource source = SourceOf(session);
  const PlotType& type = PlotTypeOf(plot.kind);
  if (type.write == nullptr || !UpdatePlot(source, plot)) return false;
  OutputFile out;
  if (!OpenOutput(session.platform, name, OpenHow::replace, out)) {
    Say(console, kOpenFault, name, Because(out.why));
    return false;
  }
  if (!SayTableFault(source, plot, type.write(source, plot, out))) {
    DiscardOutput(out);
    return false;
  }
  const bool complete = CloseOutput(out);
  if (complete) SayLine(console, type.written);
  else Say(console, kFileNotWritten, name, Because(out.why));
  return complete;
}

}  // namespace zaview
