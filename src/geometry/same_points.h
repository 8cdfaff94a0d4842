// Points that are one place, found in linear time by a grid of cubes. Pure.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "base/rotation.h"

namespace zaview {

// first[i]: the point, from 0, that point i is: the lowest kept one closer than `reach` (strictly), else i itself,
// which is kept then. Only kept ones are compared with: no chains. The result counts those that are another one.
std::size_t FindSamePoints(double reach, const std::vector<Vector3>& points, std::vector<std::uint32_t>& first);

}  // namespace zaview
