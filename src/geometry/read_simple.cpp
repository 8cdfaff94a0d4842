#include "geometry/read_simple.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "base/grow.h"
#include "geometry/geometry_text.h"

namespace zaview {
namespace {

inline constexpr std::string_view kReading = "Reading SIMPLE geometry file: {}";
inline constexpr std::string_view kRead = "{} component(s) read from SIMPLE geometry file";
inline constexpr std::string_view kBadFile = "WRN270 - Error reading SIMPLE geometry file";
inline constexpr std::string_view kBadDimensions = "ERR270 - Illegal surface dimensions in SIMPLE file;";
inline constexpr std::string_view kNoDimensions = "ERR270 - Error reading surface dimensions from SIMPLE file";
inline constexpr std::string_view kAborted = "         File read aborted";
inline constexpr std::string_view kTooMany = "WRN271 - Too many surfaces in SIMPLE file";
inline constexpr std::string_view kThinned =
    "WRN272 - Surface too big in SIMPLE file; intermediate rows/columns skipped";
inline constexpr std::string_view kNone = "ERR273 - No surface(s) read from SIMPLE file";

constexpr std::size_t kSurfaces = 100;
// Points of all surfaces of a file, as many as can be kept. A file that asks for more, as repeat counts let a few bytes
// do, has illegal dimensions.
constexpr std::int64_t kMostPoints = std::int64_t{kSurfaces} * MAXSTA * MAXWL;

enum class Next : std::uint8_t { surface, stop, abort };

struct SimpleText {
  const Console& console;
  const std::string& path;
  CleanLists lists;
  std::int64_t points_left = kMostPoints;
};

Next SayFault(const SimpleText& text, std::string_view fault, Next next) {
  SayLine(text.console, fault);
  if (next == Next::abort) SayLine(text.console, kAborted);
  Say(text.console, kAtGeometryLine, text.lists.line_number(), text.path);
  return next;
}

// Row or column of the file, from 0, that becomes the k-th of `kept` out of n: both ends stay.
std::size_t Spread(int k, int kept, int n) {
  if (kept == n || kept == 1) return static_cast<std::size_t>(k);
  return static_cast<std::size_t>((std::int64_t{k} * (n - 1) + (kept - 1) / 2) / (kept - 1));
}

void KeepEvenly(const std::vector<Vector3>& points, int n1, int n2, HullSurface& surface) {
  for (int i = 0; i < surface.KSTA; ++i)
    for (int j = 0; j < surface.KWL; ++j)
      surface
          .points[static_cast<std::size_t>(i) * static_cast<std::size_t>(surface.KWL) + static_cast<std::size_t>(j)] =
          points[Spread(i, surface.KSTA, n1) * static_cast<std::size_t>(n2) + Spread(j, surface.KWL, n2)];
}

Next ReadSurface(SimpleText& text, HullSurface& surface) {
  std::array<int, 2> n{};
  if (ReadIntegers(ListsOf(text.lists), n) != ListStatus::ok) return SayFault(text, kNoDimensions, Next::abort);
  if (n[0] < 1 || n[1] < 1 || std::int64_t{n[0]} * n[1] > text.points_left)
    return SayFault(text, kBadDimensions, Next::abort);
  text.points_left -= std::int64_t{n[0]} * n[1];
  std::vector<Vector3> points;
  surface.KSTA = std::min(n[0], MAXSTA);
  surface.KWL = std::min(n[1], MAXWL);
  if (!Grow(points, static_cast<std::size_t>(n[0]) * static_cast<std::size_t>(n[1])) ||
      !Grow(surface.points, static_cast<std::size_t>(surface.KSTA) * static_cast<std::size_t>(surface.KWL)) ||
      ReadPoints(ListsOf(text.lists), points) != ListStatus::ok)
    return SayFault(text, kBadFile, Next::stop);
  if (surface.KSTA < n[0] || surface.KWL < n[1]) SayLine(text.console, kThinned);
  KeepEvenly(points, n[0], n[1], surface);
  return Next::surface;
}

Next ReadSurfaces(SimpleText& text, std::vector<HullSurface>& surfaces) {
  while (!NothingLeft(text.lists)) {
    if (surfaces.size() == kSurfaces) {
      SayLine(text.console, kTooMany);
      break;
    }
    HullSurface surface;
    surface.name = fmt::format("Surface {}", surfaces.size() + 1);
    const Next next = ReadSurface(text, surface);
    if (next != Next::surface) return next;
    surfaces.push_back(std::move(surface));
  }
  return Next::stop;
}

}  // namespace

GeometryStatus ReadSimple(const Platform& platform, const std::string& path, const GeometryRequest& /*request*/,
                          Hull& hull) {
  std::vector<CleanLine> clean;
  const CleanFault fault = CopyCleanText(platform.files, path, nullptr, clean);
  if (fault == CleanFault::cannot_open) return GeometryStatus::cannot_open;
  Say(platform.console, kReading, path);
  SimpleText text{platform.console, path, {clean}};
  if (fault != CleanFault::none) SayLine(platform.console, kBadFile);
  if (ReadSurfaces(text, hull.surfaces) == Next::abort) return GeometryStatus::failed;
  if (hull.surfaces.empty()) {
    SayLine(platform.console, kNone);
    return GeometryStatus::failed;
  }
  Say(platform.console, kRead, hull.surfaces.size());
  return GeometryStatus::ok;
}

}  // namespace zaview
