// Geometry files of any bytes in all formats become a hull whose elements can be drawn and summed.
#include <algorithm>
#include <array>
#include <cstdlib>

#include "fake_platform.h"
#include "fuzz/try_input.h"
#include "geometry/case_geometry.h"
#include "geometry/read_geometry.h"
#include "geometry/surface_checks.h"

namespace zaview {

namespace {

// The first line of a file: Z, S, N or H, a small letter for half a body, then UGEOMNORM, then surfaces of record 28.
struct GeometryTry {
  std::string name;
  bool half = false;
  int UGEOMNORM = 1;
  std::vector<GeometryComponentInput> components;
};

GeometryTry PutFile(FakePlatform& fake, std::string_view input, const std::string& name) {
  const std::string head = std::string(input.substr(0, input.find('\n'))) + "  ";
  fake.Put(name, std::string(input.substr(std::min(head.size() - 1, input.size()))));
  constexpr std::array<std::string_view, 4> kQualifiers = {"", "SIMPLE:", "NASTRAN:", "HRL:"};
  constexpr std::string_view kLetters = "ZSNHzsnh";
  const std::size_t letter = std::min(kLetters.find(head[0]), kLetters.size()) % kLetters.size();
  GeometryTry result;
  result.name = std::string(kQualifiers[letter % 4]) + name;
  result.half = letter >= 4;
  if (head[1] >= '0' && head[1] <= '9') result.UGEOMNORM = head[1] - '0';
  if (head[2] >= '1' && head[2] <= '9') result.components.resize(static_cast<std::size_t>(head[2] - '0'));
  return result;
}

void CheckHull(const Hull& hull) {
  for (const HullSurface& surface : hull.surfaces)
    if (surface.points.size() != static_cast<std::size_t>(surface.KSTA) * static_cast<std::size_t>(surface.KWL))
      std::abort();
  if (hull.mesh.on_transom.size() != hull.mesh.elements.size()) std::abort();
  for (const HullElement& element : hull.mesh.elements)
    for (int i = 0; i < element.corners(); ++i) {
      const int node = element.node[static_cast<std::size_t>(i)];
      if (node < 1 || static_cast<std::size_t>(node) > hull.mesh.nodes.size()) std::abort();
      if (std::count(element.node.begin(), element.node.end(), node) != 1) std::abort();
    }
}

// What has been cleaned once is clean.
void CheckOneFile(const Platform& platform, const GeometryTry& file) {
  GeometryRequest request;
  request.name = file.name;
  request.components = file.components;
  request.half = file.half;
  request.UGEOMNORM = file.UGEOMNORM;
  request.to_the_end = file.components.empty();
  Hull hull;
  if (ReadGeometry(platform, request, hull) != GeometryStatus::ok) {
    if (!hull.empty()) std::abort();
    return;
  }
  CheckHull(hull);
  HullMesh again = hull.mesh;
  FECULL(platform.console, request.LENIN, again);
  const auto same = [](const HullElement& a, const HullElement& b) { return a.node == b.node; };
  if (!std::equal(again.elements.begin(), again.elements.end(), hull.mesh.elements.begin(), hull.mesh.elements.end(),
                  same))
    std::abort();
}

}  // namespace

void TryGeometry(std::string_view input) {
  const auto [first, second] = TwoFiles(input);
  FakePlatform fake;
  const Platform platform = fake.Get();
  const GeometryTry hull_file = PutFile(fake, first, "hull");
  const GeometryTry added_file = PutFile(fake, second, "cases/added");
  CheckOneFile(platform, hull_file);

  ControlRecords records;
  records.LENIN = 100;
  records.FGEOM = hull_file.name;
  records.SYMINP = hull_file.half ? 1 : 0;
  records.components = hull_file.components;
  records.modules.resize(1);
  records.modules[0].name = "OPTIONS";
  records.modules[0].lines = {"UGEOMNORM " + std::to_string(hull_file.UGEOMNORM)};
  if (!second.empty()) {
    const std::string name = added_file.name.substr(0, added_file.name.rfind(':') + 1) + "added";
    records.added_geometry = {
        {name, added_file.half ? 1 : 0, added_file.components, {1, 2, 3}, {4, 5, 6}, {10, -20, 30}}};
  }
  Hull hull;
  const bool read = ReadCaseGeometry(platform, records, "cases/", hull);
  if (read == hull.empty()) std::abort();
  CheckHull(hull);
  if (fake.OpenHandles() != 0) std::abort();
}

}  // namespace zaview
