// The hull: structured surfaces of stations and waterlines, and an unstructured surface of nodes and elements. Data
// only.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "base/rotation.h"
#include "control/control_records.h"

namespace zaview {

inline constexpr std::size_t kGeometryComments = 10;  // kept lines of a geometry file

struct HullSurface {  // KSTA stations of KWL points, station by station
  std::string name;
  int KSTA = 0, KWL = 0;
  std::vector<Vector3> points;
  GeometryComponentInput resampling;                                   // KCTYPE0 and its resampling settings
  bool reflected = false;                                              // the mirror image of an input surface
  [[nodiscard]] const Vector3& at(int station, int waterline) const {  // from 1
    return points[static_cast<std::size_t>(station - 1) * static_cast<std::size_t>(KWL) +
                  static_cast<std::size_t>(waterline - 1)];
  }
};

struct HullElement {
  std::array<int, 4> node{};  // indices from 1; the last is 0 for a triangle
  bool reflected = false;     // the mirror image of an input element
  [[nodiscard]] int corners() const { return node[3] == 0 ? 3 : 4; }
};

struct HullMesh {
  std::vector<Vector3> nodes;
  std::vector<HullElement> elements;  // duplicates and degenerate ones removed, normals set
  std::vector<bool> on_transom;       // by element: views leave it out, hydrostatics keep it; may be empty
};

struct HullPart {                          // what one geometry input gave
  std::size_t surfaces = 0, elements = 0;  // how many, behind those of the part ahead of it
  bool half = false;                       // its mirror image is among them
  Vector3 normal{0, 1, 0};                 // of its centreplane, which is y = 0 of its input
  double offset = 0;                       // the plane is normal . p = offset
};

struct Hull {
  std::vector<std::string> comments;
  std::vector<HullSurface> surfaces;
  HullMesh mesh;
  std::vector<HullPart> parts;  // none: one part, its centreplane at y = 0
  bool half = false;            // input was half of a symmetric body (its mirror image is appended)
  [[nodiscard]] bool empty() const { return surfaces.empty() && mesh.elements.empty(); }
};

}  // namespace zaview
