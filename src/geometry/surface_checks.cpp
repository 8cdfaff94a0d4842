#include "geometry/surface_checks.h"

#include <algorithm>
#include <cstdint>
#include <limits>

#include "base/message.h"
#include "geometry/element_shape.h"
#include "geometry/hull_box.h"
#include "geometry/same_points.h"

namespace zaview {
namespace {

inline constexpr std::string_view kCulling = "FECULL - Checking unstructured surface geometry";
inline constexpr std::string_view kSameNodes = "WRN376 {} node point(s) in unstructured geometry are duplicates";
inline constexpr std::string_view kDegenerate = "WRN377 - Degenerate surface element : {} ({})";
inline constexpr std::string_view kDegenerateCount[] = {
    "WRN377 - {} degenerate surface element(s) deleted",
    "         Note that the vertices listed above are values after duplicate",
    "         node points have been rationalized"};
inline constexpr std::string_view kDuplicate = "WRN377 - Duplicate surface element : {} ({})";
inline constexpr std::string_view kDuplicateCount = "WRN377 - {} duplicate surface element(s) deleted";

inline constexpr std::string_view kTransom = "FETRNSM - Checking unstructured surface geometry for transom elements";
inline constexpr std::string_view kTransomCount = "FETRNSM: {} elements on transom deleted";

inline constexpr std::string_view kNormals = "FENORM - Setting normals for unstructured surface geometry...";
inline constexpr std::string_view kFromCentreplane = "UGEOMNORM=0: Assuming elements face away from the centerplane";
inline constexpr std::string_view kByConnectivity[] = {
    "UGEOMNORM=1: Determining element normal directions automatically by",
    "  analyzing the element-to-element connectivity"};
inline constexpr std::string_view kOutward = "UGEOMNORM=2: Assuming element normals are outward";
inline constexpr std::string_view kInward = "UGEOMNORM=3: Assuming element normals are inward";
inline constexpr std::string_view kUnsupported = "LOGIC ERROR - unsupported UGEOMNORM= {}";
inline constexpr std::string_view kLogicError = "LOGIC ERROR in FENORM";
inline constexpr std::string_view kParts[] = {"WRN379 - Discontinuous topology in unstructured surface geometry",
                                              "         Normals will be estimated based on partial surface topology.",
                                              "         Check resulting normals carefully."};
inline constexpr std::string_view kIllogical[] = {
    "ERR380 - Illogical topology in unstructured surface element geometry",
    "         Switching to panel-by-panel normal check."};

constexpr double kSamePlace = 1e-6;  // of the reference length
constexpr double kOnTransom = 1e-4;  // of the reference length
constexpr std::size_t kMostNeighbours = 4;

using Vertices = std::array<int, 4>;  // the last may be 0

std::string ListOf(const Vertices& nodes) {
  return nodes[3] == 0 ? fmt::format("{} {} {}", nodes[0], nodes[1], nodes[2])
                       : fmt::format("{}", fmt::join(nodes, " "));
}

// ---- FECULL

// Different vertices in ring order; fewer than 3 are left: degenerate.
std::size_t DropRepeats(Vertices& nodes) {
  Vertices different{};
  std::size_t n = 0;
  for (const int node : nodes)
    if (node != 0 && std::find(different.begin(), different.end(), node) == different.end()) different[n++] = node;
  if (n >= 3) nodes = different;
  return n;
}

// number: of each element that is left, from 1, as the file counts them.
void RemoveDegenerate(const Console& console, const std::vector<std::uint32_t>& first,
                      std::vector<HullElement>& elements, std::vector<std::size_t>& number) {
  std::size_t kept = 0;
  for (std::size_t e = 0; e < elements.size(); ++e) {
    Vertices nodes = elements[e].node;
    for (int& node : nodes)
      if (node != 0) node = static_cast<int>(first[static_cast<std::size_t>(node - 1)]) + 1;
    if (DropRepeats(nodes) < 3) {
      Say(console, kDegenerate, e + 1, ListOf(nodes));
      continue;
    }
    elements[kept++].node = nodes;
    number.push_back(e + 1);
  }
  if (kept < elements.size()) {
    Say(console, kDegenerateCount[0], elements.size() - kept);
    SayLine(console, kDegenerateCount[1]);
    SayLine(console, kDegenerateCount[2]);
  }
  elements.resize(kept);
}

void RemoveDuplicates(const Console& console, const std::vector<std::size_t>& number,
                      std::vector<HullElement>& elements) {
  struct Set {
    Vertices nodes;
    std::size_t element;
    bool operator<(const Set& other) const {
      return nodes != other.nodes ? nodes < other.nodes : element < other.element;
    }
  };
  std::vector<Set> sets;
  sets.reserve(elements.size());
  for (std::size_t e = 0; e < elements.size(); ++e) {
    sets.push_back({elements[e].node, e});
    std::sort(sets.back().nodes.begin(), sets.back().nodes.end());
  }
  std::sort(sets.begin(), sets.end());
  std::vector<bool> later(elements.size());
  for (std::size_t i = 1; i < sets.size(); ++i) later[sets[i].element] = sets[i].nodes == sets[i - 1].nodes;
  std::size_t kept = 0;
  for (std::size_t e = 0; e < elements.size(); ++e) {
    if (later[e]) Say(console, kDuplicate, number[e], ListOf(elements[e].node));
    else elements[kept++] = elements[e];
  }
  if (kept < elements.size()) Say(console, kDuplicateCount, elements.size() - kept);
  elements.resize(kept);
}

// ---- FENORM

struct Edge {
  int low = 0, high = 0;  // nodes
  std::size_t element = 0;
  bool forward = false;  // the element goes from low to high
};

struct Neighbours {
  struct Neighbour {
    std::size_t element = 0;
    bool same_way = false;  // both go along their edge the same way
  };
  std::array<Neighbour, kMostNeighbours> list;
  std::size_t n = 0;
};

std::vector<Edge> SortedEdges(const std::vector<HullElement>& elements) {
  std::vector<Edge> edges;
  edges.reserve(kMostNeighbours * elements.size());
  for (std::size_t e = 0; e < elements.size(); ++e) {
    const auto n = static_cast<std::size_t>(elements[e].corners());
    for (std::size_t i = 0; i < n; ++i) {
      const int a = elements[e].node[i];
      const int b = elements[e].node[(i + 1) % n];
      edges.push_back({std::min(a, b), std::max(a, b), e, a < b});
    }
  }
  std::sort(edges.begin(), edges.end(),
            [](const Edge& a, const Edge& b) { return a.low != b.low ? a.low < b.low : a.high < b.high; });
  return edges;
}

// Only edges of exactly two elements join them: where three meet, none can be the other side of both others.
std::vector<Neighbours> NeighboursOf(const std::vector<HullElement>& elements) {
  const std::vector<Edge> edges = SortedEdges(elements);
  std::vector<Neighbours> neighbours(elements.size());
  const auto join = [&neighbours](std::size_t e, std::size_t other, bool same_way) {
    Neighbours& of = neighbours[e];
    if (of.n < kMostNeighbours) of.list[of.n++] = {other, same_way};
  };
  for (std::size_t i = 0, end = 0; i < edges.size(); i = end) {
    for (end = i; end < edges.size() && edges[end].low == edges[i].low && edges[end].high == edges[i].high;) ++end;
    if (end - i != 2) continue;
    const bool same_way = edges[i].forward == edges[i + 1].forward;
    join(edges[i].element, edges[i + 1].element, same_way);
    join(edges[i + 1].element, edges[i].element, same_way);
  }
  return neighbours;
}

struct Orientation {
  std::vector<int> part;     // of an element, from 0
  std::vector<char> turned;  // against the order it came in
  int parts = 0;
  bool logical = true;
};

// One part from its lowest element; false: a neighbour would have to face both ways.
bool SpreadFrom(std::size_t start, const std::vector<Neighbours>& neighbours, Orientation& o) {
  bool logical = true;
  std::vector<std::size_t> reached{start};
  o.part[start] = o.parts;
  for (std::size_t i = 0; i < reached.size(); ++i) {
    const std::size_t e = reached[i];
    for (std::size_t k = 0; k < neighbours[e].n; ++k) {
      const auto [other, same_way] = neighbours[e].list[k];
      const bool turned = (o.turned[e] != 0) != same_way;
      if (o.part[other] >= 0) {
        logical = logical && (o.turned[other] != 0) == turned;
        continue;
      }
      o.part[other] = o.parts;
      o.turned[other] = turned ? 1 : 0;
      reached.push_back(other);
    }
  }
  return logical;
}

Orientation OrientByConnectivity(const std::vector<HullElement>& elements) {
  const std::vector<Neighbours> neighbours = NeighboursOf(elements);
  Orientation o{std::vector<int>(elements.size(), -1), std::vector<char>(elements.size(), 0), 0, true};
  for (std::size_t e = 0; e < elements.size(); ++e) {
    if (o.part[e] >= 0) continue;
    o.logical = SpreadFrom(e, neighbours, o) && o.logical;
    ++o.parts;
  }
  return o;
}

Vector3 CentreOfBox(const HullMesh& mesh, bool half) {
  HullBox box = EmptyBox();
  for (const HullElement& element : mesh.elements)
    for (int i = 0; i < element.corners(); ++i) Include(Corner(mesh, element, i), box);
  Vector3 centre = CentreOf(box);
  if (half) centre[1] = 0;
  return centre;
}

void TurnParts(const Orientation& o, bool half, HullMesh& mesh) {
  const Vector3 r0 = CentreOfBox(mesh, half);
  std::vector<double> flux(static_cast<std::size_t>(o.parts));
  for (std::size_t e = 0; e < mesh.elements.size(); ++e) {
    if (o.turned[e] != 0) TurnElement(mesh.elements[e]);
    flux[static_cast<std::size_t>(o.part[e])] += ElementFlux(mesh, mesh.elements[e], r0);
  }
  for (std::size_t e = 0; e < mesh.elements.size(); ++e)
    if (flux[static_cast<std::size_t>(o.part[e])] < 0) TurnElement(mesh.elements[e]);
}

void TurnFromCentreplane(HullMesh& mesh) {
  for (HullElement& element : mesh.elements)
    if (ElementCentre(mesh, element)[1] * ElementNormal(mesh, element)[1] < 0) TurnElement(element);
}

void TurnByConnectivity(const Console& console, bool half, HullMesh& mesh) {
  const Orientation o = OrientByConnectivity(mesh.elements);
  if (o.parts > 1)
    for (const std::string_view line : kParts) SayLine(console, line);
  if (o.logical) {
    TurnParts(o, half, mesh);
    return;
  }
  for (const std::string_view line : kIllogical) SayLine(console, line);
  TurnFromCentreplane(mesh);
}

}  // namespace

void FECULL(const Console& console, double L, HullMesh& mesh) {
  SayLine(console, kCulling);
  std::vector<std::uint32_t> first;
  const std::size_t same = FindSamePoints(kSamePlace * L, mesh.nodes, first);
  if (same > 0) Say(console, kSameNodes, same);
  std::vector<std::size_t> number;
  RemoveDegenerate(console, first, mesh.elements, number);
  RemoveDuplicates(console, number, mesh.elements);
  mesh.on_transom.clear();
}

void FETRNSM(const Console& console, double L, const Vector3& ship_x, HullMesh& mesh) {
  SayLine(console, kTransom);
  const auto x = [&](const HullElement& element, int i) {
    const Vector3& p = Corner(mesh, element, i);
    return p[0] * ship_x[0] + p[1] * ship_x[1] + p[2] * ship_x[2];
  };
  double x_min = std::numeric_limits<double>::infinity();
  for (const HullElement& element : mesh.elements)
    for (int i = 0; i < element.corners(); ++i) x_min = std::min(x_min, x(element, i));
  mesh.on_transom.assign(mesh.elements.size(), false);
  int count = 0;
  for (std::size_t e = 0; e < mesh.elements.size(); ++e) {
    bool on = true;
    for (int i = 0; i < mesh.elements[e].corners(); ++i) on = on && x(mesh.elements[e], i) - x_min <= kOnTransom * L;
    mesh.on_transom[e] = on;
    count += on ? 1 : 0;
  }
  if (count > 0) Say(console, kTransomCount, count);
}

bool FENORM(const Console& console, int UGEOMNORM, bool half, HullMesh& mesh) {
  SayLine(console, kNormals);
  switch (UGEOMNORM) {
    case 0:
      SayLine(console, kFromCentreplane);
      TurnFromCentreplane(mesh);
      return true;
    case 1:
      for (const std::string_view line : kByConnectivity) SayLine(console, line);
      TurnByConnectivity(console, half, mesh);
      return true;
    case 2:
      SayLine(console, kOutward);
      return true;
    case 3:
      SayLine(console, kInward);
      for (HullElement& element : mesh.elements) TurnElement(element);
      return true;
    default:
      Say(console, kUnsupported, UGEOMNORM);
      SayLine(console, kLogicError);
      return false;
  }
}

}  // namespace zaview
