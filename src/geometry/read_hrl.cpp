#include "geometry/read_hrl.h"

#include <array>

#include "base/grow.h"
#include "base/text.h"
#include "geometry/geometry_text.h"

namespace zaview {
namespace {

inline constexpr std::string_view kReading = "Reading HRL/HARLEND geometry file: {}";
inline constexpr std::string_view kRead = "{} elements read from HRL/HARLEND geometry file";
inline constexpr std::string_view kUnreadable = "ERR292 - Error reading HRL geometry file";
inline constexpr std::string_view kBadCounts[] = {
    "ERR293 - Invalid number of nodes or elements specified in HRL geometry file", "         NNODE= {}",
    "         NELEM= {}"};
inline constexpr std::string_view kTooMany[] = {"ERR294 - Too many HRL nodes or elements:", "         NNODE = {}",
                                                "         NELEM = {}", "         MAXFEG= {}"};
inline constexpr std::string_view kBadIndex =
    "ERR295 - Invalid index ({}) for node {} of element {} in HRL geometry file";
inline constexpr std::string_view kInitialZero = "         Initial vertex index cannot be 0";
inline constexpr std::string_view kIndexRange = "         Index must be between 0 and {}";
inline constexpr std::string_view kPointOrLine = "         Point/line elements not allowed";

struct HrlText {
  const Console& console;
  const std::string& path;
  GeometryLines& lines;
};

bool SayUnreadable(const HrlText& text) {
  SayLine(text.console, kUnreadable);
  Say(text.console, kAtGeometryLine, text.lines.line_number(), text.path);
  return false;
}

bool ReadCounts(HrlText& text, HullMesh& mesh) {
  std::array<int, 2> counts{};
  if (ReadIntegers(ListsOf(text.lines), counts) != ListStatus::ok) return SayUnreadable(text);
  const auto [NNODE, NELEM] = counts;
  if (NNODE < 1 || NELEM < 1) {
    SayLine(text.console, kBadCounts[0]);
    Say(text.console, kBadCounts[1], NNODE);
    Say(text.console, kBadCounts[2], NELEM);
    return false;
  }
  if (NNODE > MAXFEG || NELEM > MAXFEG) {
    SayLine(text.console, kTooMany[0]);
    Say(text.console, kTooMany[1], NNODE);
    Say(text.console, kTooMany[2], NELEM);
    Say(text.console, kTooMany[3], MAXFEG);
    return false;
  }
  if (Grow(mesh.nodes, static_cast<std::size_t>(NNODE)) && Grow(mesh.elements, static_cast<std::size_t>(NELEM)))
    return true;
  return SayUnreadable(text);
}

bool ReadNodes(HrlText& text, std::vector<Vector3>& nodes) {
  for (Vector3& node : nodes)
    if (ReadPoints(ListsOf(text.lines), std::span(&node, 1)) != ListStatus::ok) return SayUnreadable(text);
  return true;
}

// The numbers of one line; what it doesn't give is 0.
bool ReadIndices(HrlText& text, std::array<int, 4>& index) {
  do {
    if (!NextLine(text.lines)) return false;
  } while (IsBlank(text.lines.line));
  std::string_view line = text.lines.line;
  const ListLines one_line{&line, [](void* self, std::string_view& given) {
                             std::string_view& left = *static_cast<std::string_view*>(self);
                             if (left.empty()) return ListLines::Next::end_of_file;
                             given = left;
                             left = {};
                             return ListLines::Next::line;
                           }};
  return ReadIntegers(one_line, index) != ListStatus::error;
}

bool IndicesGood(const HrlText& text, int element, int NNODE, const std::array<int, 4>& index) {
  std::size_t corners = 0;
  while (corners < 4 && index[corners] >= 1 && index[corners] <= NNODE) ++corners;
  if (corners == 4) return true;
  const int bad = index[corners];
  if (bad == 0 && corners == 3) return true;
  Say(text.console, kBadIndex, bad, corners + 1, element);
  if (bad != 0) {
    Say(text.console, kIndexRange, NNODE);
  } else {
    SayLine(text.console, corners == 0 ? kInitialZero : kPointOrLine);
  }
  return false;
}

bool ReadElements(HrlText& text, int NNODE, std::vector<HullElement>& elements) {
  int number = 0;
  for (HullElement& element : elements) {
    ++number;
    if (!ReadIndices(text, element.node)) return SayUnreadable(text);
    if (!IndicesGood(text, number, NNODE, element.node)) return false;
  }
  return true;
}

}  // namespace

GeometryStatus ReadHrl(const Platform& platform, const std::string& path, const GeometryRequest& /*request*/,
                       Hull& hull) {
  GeometryLines lines(platform.files, path);
  if (!lines.is_open()) return GeometryStatus::cannot_open;
  Say(platform.console, kReading, path);
  HrlText text{platform.console, path, lines};
  HullMesh& mesh = hull.mesh;
  if (!NextLine(lines)) {
    (void)SayUnreadable(text);
    return GeometryStatus::failed;
  }
  if (!IsBlank(lines.line)) hull.comments.emplace_back(TrimEnd(lines.line));
  if (!ReadCounts(text, mesh) || !ReadNodes(text, mesh.nodes) ||
      !ReadElements(text, static_cast<int>(mesh.nodes.size()), mesh.elements))
    return GeometryStatus::failed;
  Say(platform.console, kRead, mesh.elements.size());
  return GeometryStatus::ok;
}

}  // namespace zaview
