// What the tests of hulls share: a file read on a machine in memory, bodies as texts, volumes.
#pragma once

#include <string>
#include <vector>

#include <fmt/format.h>

#include "fake_platform.h"
#include "geometry/element_shape.h"
#include "geometry/read_geometry.h"

namespace zaview {

struct GeometryReading {
  GeometryStatus status = GeometryStatus::ok;
  Hull hull;
  std::string console;
};

// request.name: with its prefix; the file is "hull".
inline GeometryReading ReadHullText(const GeometryRequest& request, const std::string& text) {
  FakePlatform fake;
  fake.Put("hull", text);
  GeometryReading reading;
  reading.status = ReadGeometry(fake.Get(), request, reading.hull);
  reading.console = fake.output;
  EXPECT_EQ(fake.OpenHandles(), 0U);
  EXPECT_EQ(reading.hull.empty(), reading.status != GeometryStatus::ok);
  return reading;
}

inline double Volume(const HullMesh& mesh, const Vector3& about = {}) {
  double flux = 0;
  for (const HullElement& element : mesh.elements) flux += ElementFlux(mesh, element, about);
  return flux / 3;
}

// The faces of the box from `low` to `high`, all facing out: bottom, top, stern (y low), bow .. in the order of
// kBoxFaces.
inline constexpr int kBoxFaces[6][4] = {
    {1, 4, 3, 2},
    {5, 6, 7, 8},
    {1, 2, 6, 5},
    {2, 3, 7, 6},
    {3, 4, 8, 7},
    {4, 1, 5, 8}
};

inline void AddBox(const Vector3& low, const Vector3& high, HullMesh& mesh) {
  const auto first = static_cast<int>(mesh.nodes.size());
  for (const double z : {low[2], high[2]})
    for (const auto& [x, y] : {
             std::pair{low[0],  low[1] },
             {high[0], low[1] },
             {high[0], high[1]},
             {low[0],  high[1]}
    })
      mesh.nodes.push_back({x, y, z});
  for (const auto& face : kBoxFaces)
    mesh.elements.push_back({
        {first + face[0], first + face[1], first + face[2], first + face[3]}
    });
}

inline std::string HrlText(const HullMesh& mesh) {
  std::string text = fmt::format("body\n{} {}\n", mesh.nodes.size(), mesh.elements.size());
  for (const Vector3& p : mesh.nodes) text += fmt::format("{}\n", fmt::join(p, " "));
  for (const HullElement& element : mesh.elements) text += fmt::format("{}\n", fmt::join(element.node, " "));
  return text;
}

}  // namespace zaview
