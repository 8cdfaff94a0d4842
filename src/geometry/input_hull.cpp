#include "geometry/input_hull.h"

#include <cstddef>

#include "geometry/element_shape.h"
#include "geometry/input_transform.h"

namespace zaview {
Hull InputHull(const Hull& hull, const ControlRecords& records) {
  const InputTransform transform = TransformOf(records);
  Hull input;
  input.half = hull.half;
  for (const HullSurface& surface : hull.surfaces)
    if (!surface.reflected) input.surfaces.push_back(surface);
  const HullMesh& mesh = hull.mesh;
  input.mesh.nodes = mesh.nodes;
  for (std::size_t i = 0; i < mesh.elements.size(); ++i)
    if (!mesh.elements[i].reflected && (i >= mesh.on_transom.size() || !mesh.on_transom[i]))
      input.mesh.elements.push_back(mesh.elements[i]);
  const auto move_back = [&transform](std::vector<Vector3>& points) {
    for (Vector3& p : points) p = ShipToInput(transform, p);
  };
  for (HullSurface& surface : input.surfaces) move_back(surface.points);
  move_back(input.mesh.nodes);
  return input;
}

int ComponentCount(const Hull& input) {
  return static_cast<int>(input.surfaces.size()) + (input.mesh.elements.empty() ? 0 : 1);
}

int ComponentType(const Hull& input, int component) {
  if (component < 1 || IsMesh(input, component)) return 0;
  return input.surfaces[static_cast<std::size_t>(component - 1)].resampling.KCTYPE0;
}

HullBox BoxOf(const Hull& hull, int component, bool mirrored) {
  HullBox box = EmptyBox();
  const auto include = [&](const Vector3& p) {
    Include(p, box);
    if (mirrored) Include({p[0], -p[1], p[2]}, box);
  };
  for (std::size_t i = 0; i < hull.surfaces.size(); ++i)
    if (component == 0 || component == static_cast<int>(i) + 1)
      for (const Vector3& p : hull.surfaces[i].points) include(p);
  if (component == 0 || IsMesh(hull, component))
    for (const HullElement& element : hull.mesh.elements)
      for (int k = 0; k < element.corners(); ++k) include(Corner(hull.mesh, element, k));
  return IsEmpty(box) ? HullBox{} : box;
}

}  // namespace zaview
