#include "geometry/reflect_geometry.h"

#include <algorithm>

#include "base/message.h"
#include "control/control_records.h"
#include "geometry/element_shape.h"

namespace zaview {
namespace {

inline constexpr std::string_view kTooManySurfaces[] = {
    "ERR147 - Too many surfaces will be in the input geometry after reflection:",
    "         MAXCMP= {} while complete geometry requires= {} components"};
inline constexpr std::string_view kTooManyElements[] = {
    "ERR375 - Too many nodes and/or elements in the input geometry after reflection:",
    "         MAXFEG= {} while NFENODE= {} and NFEELEM= {}"};
inline constexpr std::string_view kBothSides[] = {
    "WRN247 - All or some of the input geometry has been specifed as being",
    "         one half of a symmetric body (SYMINP=1), which is completed by",
    "         its mirror image in the centerplane y=0. But it has points on",
    "         both sides of that plane, so that parts of the body may be there",
    "         twice. Specify SYMINP=0 for the geometry of a whole body, or",
    "         leave out the points of one side."};
inline constexpr std::string_view kReflected = " (ref)";

constexpr double kOnCentreplane = 1e-6;  // of the reference length

bool OnBothSides(double L, const Hull& hull) {
  bool port = false, starboard = false;
  const auto look = [&](const std::vector<Vector3>& points) {
    for (const Vector3& p : points) {
      port = port || p[1] > kOnCentreplane * L;
      starboard = starboard || p[1] < -kOnCentreplane * L;
    }
  };
  for (const HullSurface& surface : hull.surfaces) look(surface.points);
  look(hull.mesh.nodes);
  return port && starboard;
}

Vector3 Mirrored(const Vector3& p) {
  return {p[0], -p[1], p[2]};
}

void ReflectSurfaces(std::vector<HullSurface>& surfaces) {
  const std::size_t n = surfaces.size();
  surfaces.reserve(2 * n);
  for (std::size_t i = 0; i < n; ++i) {
    HullSurface image = surfaces[i];
    image.name += kReflected;
    image.reflected = true;
    std::transform(image.points.begin(), image.points.end(), image.points.begin(), Mirrored);
    surfaces.push_back(std::move(image));
  }
}

void ReflectMesh(HullMesh& mesh) {
  const std::size_t nodes = mesh.nodes.size(), elements = mesh.elements.size();
  mesh.nodes.reserve(2 * nodes);
  for (std::size_t i = 0; i < nodes; ++i) mesh.nodes.push_back(Mirrored(mesh.nodes[i]));
  mesh.elements.reserve(2 * elements);
  for (std::size_t e = 0; e < elements; ++e) {
    HullElement image = mesh.elements[e];
    image.reflected = true;
    for (int i = 0; i < mesh.elements[e].corners(); ++i)
      image.node[static_cast<std::size_t>(i)] += static_cast<int>(nodes);
    TurnElement(image);
    mesh.elements.push_back(image);
  }
  if (!mesh.on_transom.empty())
    for (std::size_t e = 0; e < elements; ++e) mesh.on_transom.push_back(mesh.on_transom[e]);
}

}  // namespace

bool HullFits(const Console& console, std::size_t surfaces, std::size_t nodes, std::size_t elements) {
  if (surfaces > MAXCMP) {
    SayLine(console, kTooManySurfaces[0]);
    Say(console, kTooManySurfaces[1], MAXCMP, surfaces);
    return false;
  }
  if (nodes > MAXFEG || elements > MAXFEG) {
    SayLine(console, kTooManyElements[0]);
    Say(console, kTooManyElements[1], MAXFEG, nodes, elements);
    return false;
  }
  return true;
}

bool ReflectGeometry(const Console& console, double L, Hull& hull) {
  if (OnBothSides(L, hull))
    for (const std::string_view line : kBothSides) SayLine(console, line);
  if (!HullFits(console, 2 * hull.surfaces.size(), 2 * hull.mesh.nodes.size(), 2 * hull.mesh.elements.size()))
    return false;
  ReflectSurfaces(hull.surfaces);
  ReflectMesh(hull.mesh);
  hull.half = true;
  return true;
}

}  // namespace zaview
