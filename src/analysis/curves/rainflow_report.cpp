#include "analysis/curves/rainflow_report.h"

namespace zaview {

DataFault MakeRainflowPlot(const StatWork&, const QuantityRequest&, ResultPlot&) {
  return DataFault::not_valid;
}

DataFault WriteRainflow(const StatWork&, const QuantityRequest&, OutputFile&) {
  return DataFault::not_valid;
}

}  // namespace zaview
