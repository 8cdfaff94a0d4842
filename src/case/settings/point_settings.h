// The ship-fixed point that point quantities are of, and the coefficients of the missile: they outlive a read.
#pragma once

#include <cstddef>

#include "case/output_settings.h"
#include "case/plot_data.h"

namespace zaview {

// Takes them over from a request of a point quantity; of others nothing.
void RememberPoint(const QuantityRequest& request, PointSettings& point);

// One of them by itself; the others are as they were, 0 at first. Point: 0 to 2, coefficient: 0 to 3.
void SetPointCoordinate(std::size_t i, double value, PointSettings& point);
void SetMissileCoefficient(std::size_t i, float value, PointSettings& point);

// Puts them into a request of a point quantity.
void UsePoint(const PointSettings& point, QuantityRequest& request);

}  // namespace zaview
