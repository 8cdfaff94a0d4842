#include "analysis/curves/extremes_report.h"

namespace zaview {

DataFault MakeExtremesPlot(const StatWork&, const QuantityRequest&, ResultPlot&) {
  return DataFault::not_valid;
}

DataFault WriteExtremes(const StatWork&, const QuantityRequest&, OutputFile&) {
  return DataFault::not_valid;
}

}  // namespace zaview
