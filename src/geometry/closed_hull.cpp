#include "geometry/closed_hull.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "base/grow.h"
#include "geometry/hull_box.h"
#include "geometry/hull_cells.h"
#include "geometry/same_points.h"

namespace zaview {
namespace {

constexpr double kSamePlace = 1e-6;   // of L: points that are one, points on the centreplane
constexpr double kLeastArea = 1e-12;  // of L^2
constexpr std::uint32_t kNone = std::numeric_limits<std::uint32_t>::max();

struct Ring {  // a cell by its vertices
  std::array<std::uint32_t, 4> vertex{};
  std::size_t n = 0;
  std::size_t part = 0;  // of the hull
};

class Closing {
 public:
  Closing(const Hull& hull, double L, ClosedHull& out) : hull_(hull), L_(L), out_(out), parts_(hull.parts) {
    if (parts_.empty()) parts_ = {{hull.surfaces.size(), hull.mesh.elements.size(), hull.half}};
  }

  void Run() {
    MergePoints();
    FindCentre();
    std::size_t surface = 0, element = 0;
    for (part_ = 0; part_ < parts_.size(); ++part_)
      for (const std::size_t end = std::min(surface + parts_[part_].surfaces, hull_.surfaces.size()); surface < end;
           ++surface)
        SurfaceRings(surface);
    for (part_ = 0; part_ < parts_.size(); ++part_)
      for (const std::size_t end = std::min(element + parts_[part_].elements, hull_.mesh.elements.size());
           element < end; ++element)
        ElementRing(element);
    for (const Ring& ring : rings_) AddRing(ring);
    out_.strips = out_.triangles.size();
    CloseEdges();
  }

 private:
  // Points of the surfaces and, behind them, nodes of the elements: of the others there is nothing to close.
  void MergePoints() {
    std::vector<Vector3> points;
    for (const HullSurface& surface : hull_.surfaces)
      points.insert(points.end(), surface.points.begin(), surface.points.end());
    const std::size_t nodes = points.size();
    points.insert(points.end(), hull_.mesh.nodes.begin(), hull_.mesh.nodes.end());
    (void)FindSamePoints(kSamePlace * L_, points, vertex_of_);
    std::vector<bool> kept(points.size());
    for (std::size_t i = 0; i < nodes; ++i) kept[vertex_of_[i]] = true;
    for (const HullElement& element : hull_.mesh.elements)
      for (int k = 0; k < element.corners(); ++k)
        kept[vertex_of_[nodes + static_cast<std::size_t>(element.node[static_cast<std::size_t>(k)] - 1)]] = true;
    for (std::size_t i = 0; i < points.size(); ++i) {
      const std::uint32_t first = vertex_of_[i];
      if (first < i) {
        vertex_of_[i] = vertex_of_[first];
      } else if (kept[i]) {
        vertex_of_[i] = static_cast<std::uint32_t>(out_.vertices.size());
        out_.vertices.push_back(points[i]);
      }
    }
  }

  void FindCentre() {
    HullBox box = EmptyBox();
    for (const Vector3& p : out_.vertices) Include(p, box);
    centre_ = CentreOf(box);
  }

  [[nodiscard]] double FromPlane(const Vector3& p, std::size_t part) const {
    const Vector3& n = parts_[part].normal;
    return n[0] * p[0] + n[1] * p[1] + n[2] * p[2] - parts_[part].offset;
  }

  [[nodiscard]] Vector3 OntoPlane(Vector3 p, std::size_t part) const {
    const double y = FromPlane(p, part);
    for (std::size_t k = 0; k < 3; ++k) p[k] -= y * parts_[part].normal[k];
    return p;
  }

  [[nodiscard]] bool OnCentreplane(std::uint32_t v, std::size_t part) const {
    return std::abs(FromPlane(out_.vertices[v], part)) < kSamePlace * L_;
  }

  // Of points, from 0 among all of them. Repeats are dropped; what is left without a surface, too.
  void KeepRing(std::span<const std::size_t> points) {
    Ring ring;
    ring.part = part_;
    bool centreplane = parts_[part_].half;
    for (const std::size_t point : points) {
      const std::uint32_t v = vertex_of_[point];
      if (ring.n > 0 && ring.vertex[ring.n - 1] == v) continue;
      ring.vertex[ring.n++] = v;
      centreplane = centreplane && OnCentreplane(v, part_);
    }
    while (ring.n > 1 && ring.vertex[ring.n - 1] == ring.vertex[0]) --ring.n;
    const bool folded = ring.n == 4 && (ring.vertex[0] == ring.vertex[2] || ring.vertex[1] == ring.vertex[3]);
    if (ring.n >= 3 && !folded && !centreplane) rings_.push_back(ring);
  }

  [[nodiscard]] HullCell CellOf(const Ring& ring) const {
    HullCell cell;
    cell.corners = static_cast<int>(ring.n);
    for (std::size_t k = 0; k < ring.n; ++k) cell.corner[k] = out_.vertices[ring.vertex[k]];
    return cell;
  }

  void SurfaceRings(std::size_t number) {
    const HullSurface& surface = hull_.surfaces[number];
    const Vector3 r0 = parts_[part_].half ? OntoPlane(centre_, part_) : centre_;
    const std::size_t from = rings_.size(), n = surface.points.size(), KWL = static_cast<std::size_t>(surface.KWL);
    for (std::size_t p = points_; p + KWL < points_ + n; p += KWL)
      for (std::size_t j = p; j + 1 < p + KWL; ++j) KeepRing(std::array{j, j + 1, j + 1 + KWL, j + KWL});
    points_ += n;
    double flux = 0;
    for (std::size_t i = from; i < rings_.size(); ++i) flux += CellFlux(CellOf(rings_[i]), r0);
    // An image has the same points: it faces the other way where the flux can't tell.
    if (!(flux < 0 || (flux == 0 && surface.reflected))) return;
    for (std::size_t i = from; i < rings_.size(); ++i)
      std::reverse(rings_[i].vertex.begin(), rings_[i].vertex.begin() + static_cast<std::ptrdiff_t>(rings_[i].n));
  }

  void ElementRing(std::size_t number) {
    const HullElement& element = hull_.mesh.elements[number];
    std::array<std::size_t, 4> points{};
    const auto n = static_cast<std::size_t>(element.corners());
    for (std::size_t k = 0; k < n; ++k) points[k] = points_ + static_cast<std::size_t>(element.node[k] - 1);
    KeepRing(std::span(points).first(n));
  }

  void AddTriangle(const TriangleCorners& t) {
    const auto& v = out_.vertices;
    Vector3 ab{}, ac{};
    for (std::size_t k = 0; k < 3; ++k) {
      ab[k] = v[t[1]][k] - v[t[0]][k];
      ac[k] = v[t[2]][k] - v[t[0]][k];
    }
    const Vector3 n = Cross(ab, ac);
    if (std::hypot(n[0], n[1], n[2]) / 2 >= kLeastArea * L_ * L_) out_.triangles.push_back(t);
  }

  void AddRing(const Ring& ring) {
    const auto& v = ring.vertex;
    if (ring.n == 3) return AddTriangle({v[0], v[1], v[2]});
    const auto centre = static_cast<std::uint32_t>(out_.vertices.size());
    out_.vertices.push_back(CellCentre(CellOf(ring)));
    for (std::size_t k = 0; k < 4; ++k) AddTriangle({centre, v[k], v[(k + 1) % 4]});
  }

  struct Edge {
    std::uint32_t low = 0, high = 0;
    int forward = 0;  // 1: a cell goes from low to high, -1: back
    std::size_t part = 0;
  };

  [[nodiscard]] std::vector<Edge> SortedEdges() const {
    std::vector<Edge> edges;
    edges.reserve(4 * rings_.size());
    for (const Ring& ring : rings_)
      for (std::size_t k = 0; k < ring.n; ++k) {
        const std::uint32_t a = ring.vertex[k], b = ring.vertex[(k + 1) % ring.n];
        edges.push_back({std::min(a, b), std::max(a, b), a < b ? 1 : -1, ring.part});
      }
    std::sort(edges.begin(), edges.end(), [](const Edge& a, const Edge& b) {
      if (a.low != b.low) return a.low < b.low;
      return a.high != b.high ? a.high < b.high : a.part < b.part;
    });
    return edges;
  }

  std::uint32_t FootOf(std::uint32_t v, std::size_t part) {
    if (OnCentreplane(v, part)) return v;
    Foot& foot = foot_[v];
    if (foot.vertex == kNone || foot.part != part) {
      foot = {static_cast<std::uint32_t>(out_.vertices.size()), part};
      out_.vertices.push_back(OntoPlane(out_.vertices[v], part));
    }
    return foot.vertex;
  }

  void CloseEdge(std::uint32_t a, std::uint32_t b, std::size_t part) {
    if (OnCentreplane(a, part) && OnCentreplane(b, part)) return;
    const std::uint32_t foot_a = FootOf(a, part), foot_b = FootOf(b, part);
    AddTriangle({b, a, foot_a});
    AddTriangle({b, foot_a, foot_b});
  }

  void CloseEdges() {
    const std::vector<Edge> edges = SortedEdges();
    foot_.assign(out_.vertices.size(), {});
    for (std::size_t i = 0, end = 0; i < edges.size(); i = end) {
      int without_reverse = 0;
      for (end = i; end < edges.size() && edges[end].low == edges[i].low && edges[end].high == edges[i].high; ++end)
        without_reverse += edges[end].forward;
      for (; without_reverse > 0; --without_reverse) CloseEdge(edges[i].low, edges[i].high, edges[i].part);
      for (; without_reverse < 0; ++without_reverse) CloseEdge(edges[i].high, edges[i].low, edges[i].part);
    }
  }

  struct Foot {  // of a vertex, on the centreplane of a part
    std::uint32_t vertex = kNone;
    std::size_t part = 0;
  };

  const Hull& hull_;
  double L_;
  ClosedHull& out_;
  std::vector<HullPart> parts_;
  std::size_t part_ = 0;                  // in work
  std::size_t points_ = 0;                // points of the surfaces that are done
  Vector3 centre_{};                      // of the box around all points
  std::vector<std::uint32_t> vertex_of_;  // of a point
  std::vector<Ring> rings_;
  std::vector<Foot> foot_;  // of a vertex
};

}  // namespace

bool CloseHull(const Hull& hull, double L, ClosedHull& out) {
  return Guarded(
      [&] {
        out = ClosedHull{};
        Closing(hull, L, out).Run();
        return true;
      },
      false);
}

}  // namespace zaview
