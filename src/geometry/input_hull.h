// The hull as it was input: its components without their mirror images, in the axes and lengths of the input. Pure.
#pragma once

#include "geometry/hull.h"
#include "geometry/hull_box.h"

namespace zaview {

// Ship points go back through record 24, also those of $ADDGEOM:. The mesh holds all nodes, and the elements that were
// input and don't lie on the transom.
[[nodiscard]] Hull InputHull(const Hull& hull, const ControlRecords& records);

// Components count from 1: the surfaces, then the mesh, if there is one.
[[nodiscard]] int ComponentCount(const Hull& input);
[[nodiscard]] inline bool IsMesh(const Hull& input, int component) {
  return component > static_cast<int>(input.surfaces.size());
}
[[nodiscard]] int ComponentType(const Hull& input, int component);  // KCTYPE; 0 of a mesh

// About the points of the component, of all with 0; mirrored: about their mirror images in y = 0 as well. Of any hull;
// nodes of no element don't count. 0 about nothing.
[[nodiscard]] HullBox BoxOf(const Hull& hull, int component, bool mirrored);

}  // namespace zaview
