// hull_listing: a geometry file as plain columns, in three blocks that a plot program can draw: nodes (number x y z),
// outlines of the elements (x y z, a blank line behind each), and of each element centre, unit normal and area. Cells
// of surfaces count as elements, in the order of their points. What the reader says goes to the error output.
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <string>
#include <string_view>

#include <fmt/format.h>

#include "base/platform_posix.h"
#include "geometry/element_shape.h"
#include "geometry/read_geometry.h"
#include "geometry/reflect_geometry.h"

namespace {

using zaview::Vector3;

constexpr std::string_view kUsage =
    "usage : hull_listing [--half] [--length L] [--normals N] NAME\n"
    "        NAME     as in control data: SIMPLE:, NASTRAN: or HRL: ahead of the file, none: ZAVO\n"
    "        --half   the file is half of a symmetric body\n"
    "        L        reference length, in units of the file\n"
    "        N        UGEOMNORM, 0 to 3\n"
    "e.g.  : hull_listing NASTRAN:ship.nas > ship.txt\n"
    "        gnuplot -p -e \"splot 'ship.txt' index 1 w l, '' index 2 u 1:2:3:4:5:6 w vectors\"\n";

// Surfaces as elements behind those of the mesh: every cell four corners in ring order, each with its own nodes.
zaview::HullMesh Elements(const zaview::Hull& hull) {
  zaview::HullMesh all = hull.mesh;
  for (const zaview::HullSurface& surface : hull.surfaces) {
    const auto first = static_cast<int>(all.nodes.size());
    all.nodes.insert(all.nodes.end(), surface.points.begin(), surface.points.end());
    const auto number = [&](int station, int waterline) { return first + (station - 1) * surface.KWL + waterline; };
    for (int i = 1; i < surface.KSTA; ++i)
      for (int j = 1; j < surface.KWL; ++j)
        all.elements.push_back({{number(i, j), number(i, j + 1), number(i + 1, j + 1), number(i + 1, j)}});
  }
  return all;
}

void PrintPoint(const Vector3& p) {
  fmt::print("{:.9g} {:.9g} {:.9g}", p[0], p[1], p[2]);
}

void PrintBlocks(const zaview::HullMesh& mesh) {
  fmt::print("# nodes: number x y z\n");
  for (std::size_t i = 0; i < mesh.nodes.size(); ++i) {
    fmt::print("{} ", i + 1);
    PrintPoint(mesh.nodes[i]);
    fmt::print("\n");
  }
  fmt::print("\n\n# elements: outlines\n");
  for (const zaview::HullElement& element : mesh.elements) {
    for (int i = 0; i <= element.corners(); ++i) {
      PrintPoint(Corner(mesh, element, i % element.corners()));
      fmt::print("\n");
    }
    fmt::print("\n");
  }
  fmt::print("\n# elements: centre, unit normal, area\n");
  for (const zaview::HullElement& element : mesh.elements) {
    Vector3 normal = ElementNormal(mesh, element);
    const double length = std::hypot(normal[0], normal[1], normal[2]);
    if (length > 0)
      for (double& x : normal) x /= length;
    PrintPoint(ElementCentre(mesh, element));
    fmt::print(" ");
    PrintPoint(normal);
    fmt::print(" {:.9g}\n", length / 2);
  }
}

template <typename Number>
bool Parse(std::string_view text, Number& value) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  return error == std::errc() && end == text.data() + text.size();
}

bool ParseArguments(int argc, char** argv, zaview::GeometryRequest& request) {
  for (int i = 1; i < argc; ++i) {
    const std::string_view word = argv[i];
    const bool more = i + 2 < argc;
    if (word == "--half") request.half = true;
    else if (word == "--length" && more && Parse(argv[i + 1], request.LENIN) && request.LENIN > 0) ++i;
    else if (word == "--normals" && more && Parse(argv[i + 1], request.UGEOMNORM)) ++i;
    else if (i + 1 == argc && word.substr(0, 2) != "--") request.name = word;
    else return false;
  }
  return !request.name.empty();
}

}  // namespace

int main(int argc, char** argv) {
  zaview::GeometryRequest request;
  request.to_the_end = true;
  if (!ParseArguments(argc, argv, request)) {
    fmt::print(stderr, "{}", kUsage);
    return 2;
  }
  zaview::Platform platform = zaview::PosixPlatform();
  platform.console.write = [](void*, std::string_view text) { fmt::print(stderr, "{}", text); };
  zaview::Hull hull;
  const zaview::GeometryStatus status = ReadGeometry(platform, request, hull);
  if (status == zaview::GeometryStatus::cannot_open)
    fmt::print(stderr, "hull_listing: {} can't be opened\n", request.name);
  if (status != zaview::GeometryStatus::ok) return 1;
  if (request.half && !ReflectGeometry(platform.console, request.LENIN, hull)) return 1;
  PrintBlocks(Elements(hull));
  return std::ferror(stdout) == 0 && std::fflush(stdout) == 0 ? 0 : 1;
}
