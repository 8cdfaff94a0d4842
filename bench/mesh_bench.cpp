// How long does a NASTRAN mesh of 4900 elements take that stands in memory, from its text to outward normals? An
// ellipsoid of quadrilaterals between two caps of triangles, in any order, half of them the wrong way round.
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <numbers>
#include <random>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include "geometry/element_shape.h"
#include "geometry/read_geometry.h"

namespace zaview {
namespace {

constexpr int kRings = 69, kAround = 70;
constexpr double kLength = 100, kBreadth = 16, kDepth = 12;

std::vector<HullElement> Elements(std::mt19937& random) {
  const auto node = [](int ring, int i) { return 2 + ring * kAround + i % kAround; };
  const int bow = 1, stern = 2 + kRings * kAround;
  std::vector<HullElement> elements;
  for (int i = 0; i < kAround; ++i) {
    elements.push_back({{bow, node(0, i), node(0, i + 1), 0}});
    elements.push_back({{stern, node(kRings - 1, i + 1), node(kRings - 1, i), 0}});
    for (int ring = 0; ring + 1 < kRings; ++ring)
      elements.push_back({{node(ring, i), node(ring + 1, i), node(ring + 1, i + 1), node(ring, i + 1)}});
  }
  std::shuffle(elements.begin(), elements.end(), random);
  for (HullElement& element : elements)
    if (random() % 2 == 0) TurnElement(element);
  return elements;
}

std::string MeshText() {
  std::mt19937 random(17);
  std::string text;
  int number = 0;
  const auto grid = [&](double x, double y, double z) {
    text += fmt::format("GRID    {:<8}{:8}{:<8.3f}{:<8.3f}{:<8.3f}\n", ++number, "", x, y, z);
  };
  grid(kLength / 2, 0, 0);
  for (int ring = 1; ring <= kRings; ++ring) {
    const double along = std::numbers::pi * ring / (kRings + 1);
    for (int i = 0; i < kAround; ++i) {
      const double around = 2 * std::numbers::pi * i / kAround;
      grid(kLength / 2 * std::cos(along), kBreadth / 2 * std::sin(along) * std::cos(around),
           kDepth / 2 * std::sin(along) * std::sin(around));
    }
  }
  grid(-kLength / 2, 0, 0);
  number = 0;
  for (const HullElement& element : Elements(random)) {
    text += fmt::format("{:<8}{:<8}{:<8}", element.corners() == 3 ? "CTRIA3" : "CQUAD4", ++number, 1);
    for (int i = 0; i < element.corners(); ++i) text += fmt::format("{:<8}", element.node[static_cast<std::size_t>(i)]);
    text += '\n';
  }
  return text;
}

struct MemoryFile {
  std::string text;
  std::size_t at = 0;
};

Platform MachineWith(MemoryFile& file) {
  Platform platform;
  platform.console.write = [](void*, std::string_view) {};
  platform.console.flush = [](void*) {};
  platform.files.self = &file;
  platform.files.facts = [](void*, const std::string&) {
    FileFacts facts;
    facts.exists = facts.plain = true;
    return facts;
  };
  platform.files.open_read = [](void* self, const std::string&) -> FileHandle {
    static_cast<MemoryFile*>(self)->at = 0;
    return 1;
  };
  platform.files.read = [](void* self, FileHandle, char* to, std::size_t size) {
    MemoryFile& from = *static_cast<MemoryFile*>(self);
    const std::size_t n = std::min(size, from.text.size() - from.at);
    std::memcpy(to, from.text.data() + from.at, n);
    from.at += n;
    return static_cast<std::int64_t>(n);
  };
  platform.files.close = [](void*, FileHandle) { return true; };
  return platform;
}

void CheckEllipsoid(const HullMesh& mesh) {
  double flux = 0;
  for (const HullElement& element : mesh.elements) {
    if (!(ElementFlux(mesh, element, {}) > 0)) std::abort();  // convex: outward
    flux += ElementFlux(mesh, element, {});
  }
  const double volume = std::numbers::pi / 6 * kLength * kBreadth * kDepth;
  if (mesh.elements.size() != 4900 || !(std::abs(flux / 3 - volume) < 0.01 * volume)) std::abort();
}

void ReadCheckAndOrient(benchmark::State& state) {
  MemoryFile file{MeshText()};
  const Platform platform = MachineWith(file);
  GeometryRequest request;
  request.name = "NASTRAN:mesh";
  request.LENIN = kLength;
  Hull hull;
  for (auto _ : state)
    if (ReadGeometry(platform, request, hull) != GeometryStatus::ok) std::abort();
  CheckEllipsoid(hull.mesh);
}
BENCHMARK(ReadCheckAndOrient)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zaview
