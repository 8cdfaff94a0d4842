// A body of triangles and wires as it is handed to OpenGL. Data only.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace zaview {

using ScenePlace = std::array<float, 3>;
using SceneColour = std::array<unsigned char, 4>;  // red, green, blue, and how far it covers what is behind it

struct SceneVertex {
  ScenePlace place{};
  ScenePlace normal{};  // of length 1: the right-hand one of the corner order around it
  SceneColour colour{};
};

struct SceneMesh {  // data only
  std::vector<SceneVertex> vertices;
  std::vector<std::uint32_t> triangles;  // three corners each, from 0; from their front they are counter-clockwise
  std::vector<std::uint32_t> lines;      // two ends each
  // Where the driver keeps it, and the context generation for which it does; 0: it is handed over at each drawing.
  std::array<unsigned, 3> kept{};
  unsigned generation = 0;
};

}  // namespace zaview
