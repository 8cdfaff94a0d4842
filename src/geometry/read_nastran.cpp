#include "geometry/read_nastran.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>
#include <vector>

#include "base/number_parse.h"
#include "base/text.h"
#include "geometry/geometry_text.h"

namespace zaview {
namespace {

inline constexpr std::string_view kReading = "Reading NASTRAN geometry file: {}";
inline constexpr std::string_view kUnreadable = "ERR373 - Error reading NASTRAN geometry file";
inline constexpr std::string_view kNoElements = "         No surface elements found in {}";
inline constexpr std::string_view kTooMany[] = {"ERR374 - Too many NASTRAN nodes or elements:", "         MAXFEG= {}"};
inline constexpr std::string_view kNoNode = "WRN449 - element {} has unspecified node index";
inline constexpr std::string_view kContains = "Finite Element Surface Element file contains:";
inline constexpr std::string_view kNodes = "{:6} Node points";
inline constexpr std::string_view kTriangles = "{:6} Triangular    surface elements";
inline constexpr std::string_view kQuadrilaterals = "{:6} Quadrilateral surface elements";
inline constexpr std::string_view kElements = "{:6} Total         surface elements";

struct NastranElement {
  std::string name;           // as written, for messages
  std::array<int, 4> node{};  // identifiers
  std::size_t corners = 3;
};

struct NastranText {
  GeometryLines& lines;
  std::vector<Vector3>& nodes;
  std::unordered_map<int, int> position;  // of a node by its identifier, from 1
  std::vector<NastranElement> elements;   // may stand ahead of their nodes
};

constexpr std::size_t kField = 8, kLongField = 16;

// Field i of a line, from 1, when fields behind the first have `width` columns.
std::string_view FieldOf(std::string_view line, std::size_t i, std::size_t width = kField) {
  const std::size_t first = i == 1 ? 0 : kField + (i - 2) * width;
  return first >= line.size() ? std::string_view{} : Trim(line.substr(first, i == 1 ? kField : width));
}

bool Coordinate(std::string_view field, double& x) {
  if (field.empty()) return true;  // 0
  return ParseDouble(field, x) && std::isfinite(x);
}

// The first of two nodes with the same identifier is the one that elements mean.
void AddNode(NastranText& text, int identifier, const Vector3& p) {
  text.nodes.push_back(p);
  text.position.emplace(identifier, static_cast<int>(text.nodes.size()));
}

bool ReadGrid(NastranText& text) {
  const std::string_view line = text.lines.line;
  int identifier = 0;
  Vector3 p{};
  if (!ParseInteger(FieldOf(line, 2), identifier)) return false;
  for (std::size_t i = 0; i < 3; ++i)
    if (!Coordinate(FieldOf(line, 4 + i), p[i])) return false;
  AddNode(text, identifier, p);
  return true;
}

// The next line, comments passed over. False: it is a card of its own, or there is none.
bool NextContinuation(NastranText& text) {
  constexpr std::string_view kBegins = "*+ ";
  do {
    if (!NextLine(text.lines)) return false;
  } while (text.lines.line.starts_with('$'));
  return text.lines.line.empty() || kBegins.find(text.lines.line.front()) != std::string_view::npos;
}

bool ReadLongGrid(NastranText& text) {
  int identifier = 0;
  Vector3 p{};
  if (!ParseInteger(FieldOf(text.lines.line, 2, kLongField), identifier) ||
      !Coordinate(FieldOf(text.lines.line, 4, kLongField), p[0]) ||
      !Coordinate(FieldOf(text.lines.line, 5, kLongField), p[1]))
    return false;
  if (!NextContinuation(text) || !Coordinate(FieldOf(text.lines.line, 2, kLongField), p[2])) return false;
  AddNode(text, identifier, p);
  return true;
}

bool ReadElement(NastranText& text, std::size_t corners) {
  const std::string_view line = text.lines.line;
  NastranElement element;
  element.name = FieldOf(line, 2);
  element.corners = corners;
  for (std::size_t i = 0; i < corners; ++i) {
    const std::string_view field = FieldOf(line, 4 + i);
    if (!field.empty() && !ParseInteger(field, element.node[i])) return false;
  }
  text.elements.push_back(std::move(element));
  return true;
}
bool ReadTriangle(NastranText& text) {
  return ReadElement(text, 3);
}
bool ReadQuadrilateral(NastranText& text) {
  return ReadElement(text, 4);
}

struct Card {
  std::string_view name;
  bool (*read)(NastranText& text);
};
constexpr Card kCards[] = {
    {"GRID", ReadGrid},       {"GRID*", ReadLongGrid},       {"CTRIA3", ReadTriangle},
    {"CTRIA2", ReadTriangle}, {"CQUAD4", ReadQuadrilateral},
};

enum class CardsRead : std::uint8_t { all, unreadable, too_many };

CardsRead ReadCards(NastranText& text) {
  while (NextLine(text.lines)) {
    const std::string_view name = TrimEnd(std::string_view(text.lines.line).substr(0, kField));
    const auto* const card =
        std::find_if(std::begin(kCards), std::end(kCards), [name](const Card& row) { return row.name == name; });
    if (card == std::end(kCards)) continue;
    if (!card->read(text)) return CardsRead::unreadable;
    if (text.nodes.size() > MAXFEG || text.elements.size() > MAXFEG) return CardsRead::too_many;
  }
  return text.lines.stream.fault ? CardsRead::unreadable : CardsRead::all;
}

void FindNodes(const Console& console, const NastranText& text, std::vector<HullElement>& elements) {
  for (const NastranElement& element : text.elements) {
    HullElement found;
    bool complete = true;
    for (std::size_t i = 0; i < element.corners; ++i) {
      const auto node = text.position.find(element.node[i]);
      if (node == text.position.end()) complete = false;
      else found.node[i] = node->second;
    }
    if (complete) elements.push_back(found);
    else Say(console, kNoNode, element.name);
  }
}

void SaySummary(const Console& console, const HullMesh& mesh) {
  const auto triangles = std::count_if(mesh.elements.begin(), mesh.elements.end(),
                                       [](const HullElement& element) { return element.corners() == 3; });
  const auto total = static_cast<std::ptrdiff_t>(mesh.elements.size());
  SayLine(console, kContains);
  Say(console, kNodes, mesh.nodes.size());
  Say(console, kTriangles, triangles);
  Say(console, kQuadrilaterals, total - triangles);
  Say(console, kElements, total);
}

}  // namespace

GeometryStatus ReadNastran(const Platform& platform, const std::string& path, const GeometryRequest& /*request*/,
                           Hull& hull) {
  const Console& console = platform.console;
  GeometryLines lines(platform.files, path);
  if (!lines.is_open()) return GeometryStatus::cannot_open;
  Say(console, kReading, path);
  NastranText text{lines, hull.mesh.nodes, {}, {}};
  const CardsRead read = ReadCards(text);
  if (read == CardsRead::too_many) {
    SayLine(console, kTooMany[0]);
    Say(console, kTooMany[1], MAXFEG);
    return GeometryStatus::failed;
  }
  if (read == CardsRead::unreadable) {
    SayLine(console, kUnreadable);
    Say(console, kAtGeometryLine, lines.line_number(), path);
    return GeometryStatus::failed;
  }
  FindNodes(console, text, hull.mesh.elements);
  if (hull.mesh.elements.empty()) {
    SayLine(console, kUnreadable);
    Say(console, kNoElements, path);
    return GeometryStatus::failed;
  }
  SaySummary(console, hull.mesh);
  return GeometryStatus::ok;
}

}  // namespace zaview
