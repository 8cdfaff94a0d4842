// HRL format: counted nodes and elements.
#pragma once

#include <string>

#include "geometry/read_geometry.h"

namespace zaview {

// path: as it is opened. Faults are told, but for a file that can't be opened; the hull then holds what was read.
[[nodiscard]] GeometryStatus ReadHrl(const Platform& platform, const std::string& path, const GeometryRequest& request,
                                     Hull& hull);

}  // namespace zaview
