// A mesh that goes with the ship, in HRL format, a complete file of it a step.
#pragma once

#include <string_view>
#include <vector>

#include "base/platform.h"
#include "case/case_store.h"
#include "case/output_settings.h"
#include "frame/ground/output_file.h"
#include "geometry/hull.h"

namespace zaview {

struct MovingMesh {
  std::vector<Vector3> nodes;  // ship axes from the centre of gravity, non-dimensional
  std::vector<HullElement> elements;
};

// All of a hull: its elements, and the cells of its surfaces as quadrilaterals. A failure to allocate is thrown.
[[nodiscard]] MovingMesh MeshOfHull(const CaseStore& store, const Hull& hull);

// name: an HRL file in input axes and lengths, with or without the prefix of its format; its elements stay as they
// are. Blank: the hull of the case. False: told.
[[nodiscard]] bool ReadMovingMesh(const Platform& platform, std::string_view name, CaseStore& store, MovingMesh& mesh);

// Each step in use: a comment with its time, counts, nodes in global axes and output lengths, elements. False: memory
// is out.
[[nodiscard]] bool WriteMovingMesh(const OutputSettings& settings, const CaseStore& store, const MovingMesh& mesh,
                                   OutputFile& out);

}  // namespace zaview
