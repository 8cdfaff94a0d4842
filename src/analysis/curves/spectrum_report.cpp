#include "analysis/curves/spectrum_report.h"

namespace zaview {

DataFault MakeSpectrumPlot(const StatWork&, const QuantityRequest&, ResultPlot&) {
  return DataFault::not_valid;
}

DataFault WriteSpectrum(const StatWork&, const QuantityRequest&, OutputFile&) {
  return DataFault::not_valid;
}

}  // namespace zaview
