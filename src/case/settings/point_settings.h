// The ship-fixed point that point quantities are of, and the coefficients of the missile: they outlive a read.
#pragma once

#include "case/output_settings.h"
#include "case/plot_data.h"

namespace zaview {

// Takes them over from a request of a point quantity; of others nothing.
void RememberPoint(const QuantityRequest& request, PointSettings& point);

// Puts them into a request of a point quantity.
void UsePoint(const PointSettings& point, QuantityRequest& request);

}  // namespace zaview
