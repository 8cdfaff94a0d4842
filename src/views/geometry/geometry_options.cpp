// The options of the geometry views: the rows of its menu, in their order.
#include "views/geometry/geometry_view.h"

namespace zaview {

namespace {

constexpr OptionItem kRows[] = {
    Row(),
    Check("Grid", Flag<&Session::geometry_view, &GeometryViewState::grid_on>),
};

constexpr OptionBlock kBlocks[] = {{kRows}};

}  // namespace

ViewOptions GeometryOptions(const Session&) {
  return {kBlocks, kAlways};
}

}  // namespace zaview
