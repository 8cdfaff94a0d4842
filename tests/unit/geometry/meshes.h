// What the tests of hulls share: boxes, as meshes and as texts, and volumes.
#pragma once

#include <string>
#include <vector>

#include <fmt/format.h>

#include "fake_platform.h"
#include "geometry/element_shape.h"
#include "geometry/read_geometry.h"

namespace zaview {

inline double Volume(const HullMesh& mesh, const Vector3& about = {}) {
  double flux = 0;
  for (const HullElement& element : mesh.elements) flux += ElementFlux(mesh, element, about);
  return flux / 3;
}

// clang-format off
// Of a box, all facing out: bottom, top, then those to y low, x high, y high, x low.
inline constexpr int kBoxFaces[6][4] = {{1, 4, 3, 2}, {5, 6, 7, 8}, {1, 2, 6, 5}, {2, 3, 7, 6}, {3, 4, 8, 7}, {4, 1, 5, 8}};

inline void AddBox(const Vector3& a, const Vector3& b, HullMesh& mesh) {
  const auto n = static_cast<int>(mesh.nodes.size());
  for (const double z : {a[2], b[2]})
    mesh.nodes.insert(mesh.nodes.end(), {{a[0], a[1], z}, {b[0], a[1], z}, {b[0], b[1], z}, {a[0], b[1], z}});
  for (const auto& f : kBoxFaces) mesh.elements.push_back({{n + f[0], n + f[1], n + f[2], n + f[3]}});
}
// clang-format on

inline std::string HrlText(const HullMesh& mesh) {
  std::string text = fmt::format("body\n{} {}\n", mesh.nodes.size(), mesh.elements.size());
  for (const Vector3& p : mesh.nodes) text += fmt::format("{}\n", fmt::join(p, " "));
  for (const HullElement& element : mesh.elements) text += fmt::format("{}\n", fmt::join(element.node, " "));
  return text;
}

}  // namespace zaview
