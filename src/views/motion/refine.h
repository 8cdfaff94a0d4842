// Triangles parted until they are small. Pure.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace zaview {

// Halves a triangle across its longest edge again and again, until no edge is longer; put(corners) takes the parts.
// apart(a, b): between two vertices; middle(a, b): the vertex between them, which joins the list.
template <typename Vertex, typename Apart, typename Middle, typename Put>
void RefineTriangle(std::array<std::uint32_t, 3> t, double longest, std::vector<Vertex>& vertices, const Apart& apart,
                    const Middle& middle, const Put& put) {
  const auto edge = [&](std::size_t i) { return apart(vertices[t[i]], vertices[t[(i + 1) % 3]]); };
  std::size_t i = edge(1) > edge(0) ? 1 : 0;
  if (edge(2) > edge(i)) i = 2;
  if (!(edge(i) > longest)) return put(t);
  const auto between = static_cast<std::uint32_t>(vertices.size());
  vertices.push_back(middle(vertices[t[i]], vertices[t[(i + 1) % 3]]));
  std::array<std::uint32_t, 3> first = t, second = t;
  first[(i + 1) % 3] = second[i] = between;
  RefineTriangle(first, longest, vertices, apart, middle, put);
  RefineTriangle(second, longest, vertices, apart, middle, put);
}

}  // namespace zaview
