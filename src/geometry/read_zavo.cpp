#include "geometry/read_zavo.h"

#include <algorithm>
#include <array>

#include "base/grow.h"
#include "base/text.h"
#include "geometry/geometry_text.h"

namespace zaview {
namespace {

inline constexpr std::string_view kReading = "Reading ZAVO input geometry file: {}";
inline constexpr std::string_view kRead = "{} component(s) read from ZAVO geometry file";
inline constexpr std::string_view kCommentsLost[] = {
    "WRN140 - Only 10 comment lines saved from geometry data file",
    "         Additional lines will be missing from subsequent geometry file output"};
inline constexpr std::string_view kTooManyStations = "ERR142 - Surface {} has too many stations:";
inline constexpr std::string_view kKsta = "         KSTA= {} while MAXSTA= {}";
inline constexpr std::string_view kTooManyWaterlines = "ERR142 - Surface {} has too many waterlines:";
inline constexpr std::string_view kKwl = "         KWL= {} while MAXWL= {}";
inline constexpr std::string_view kNoStations = "ERR143 - Surface {} has illegal number of stations: {}";
inline constexpr std::string_view kNoWaterlines = "ERR143 - Surface {} has illegal number of waterlines: {}";
inline constexpr std::string_view kMoreSurfaces[] = {"WRN144 - NCOMP0= {} surfaces were read from the geometry",
                                                     "         file WITHOUT finding the file end.",
                                                     "         NCOMP0 might be too small for the problem"};
inline constexpr std::string_view kMoreThanHeld[] = {"WRN145 - MAXCMP= {}",
                                                     "         MAXCMP might be too small for the problem"};
inline constexpr std::string_view kFewSurfaces[] = {
    "ERR146 - The end of the geometry file was found before NCOMP0= {} and", "         surfaces could be read"};
inline constexpr std::string_view kUnreadable = "ERR301 - Error reading input geometry data";
inline constexpr std::string_view kUnexpectedEnd = "ERR302 - Unexpected end of data while reading input geometry data";
inline constexpr std::string_view kIncomplete = "ERR321 - NCOMP0 > MAXCMP - file read will be incomplete";

struct ZavoText {
  const Console& console;
  const std::string& path;
  CleanLists lists;
};

bool SayFault(const ZavoText& text, ListStatus status) {
  SayLine(text.console, status == ListStatus::end_of_file ? kUnexpectedEnd : kUnreadable);
  if (status == ListStatus::error) Say(text.console, kAtGeometryLine, text.lists.line_number(), text.path);
  return false;
}

bool ReadComments(ZavoText& text, std::vector<std::string>& comments) {
  std::array<int, 1> count{};
  const ListStatus status = ReadIntegers(ListsOf(text.lists), count);
  if (status != ListStatus::ok) return SayFault(text, status);
  if (count[0] < 0) return SayFault(text, ListStatus::error);
  for (int i = 0; i < count[0]; ++i) {
    if (text.lists.next == text.lists.lines.size()) return SayFault(text, ListStatus::end_of_file);
    const std::string& line = text.lists.lines[text.lists.next++].text;
    if (comments.size() < kGeometryComments) comments.emplace_back(TrimEnd(line));
  }
  if (count[0] > static_cast<int>(kGeometryComments))
    for (const std::string_view line : kCommentsLost) SayLine(text.console, line);
  return true;
}

bool CountsGood(const Console& console, int n, int KSTA, int KWL) {
  if (KWL < 1) {
    Say(console, kNoWaterlines, n, KWL);
  } else if (KSTA < 1) {
    Say(console, kNoStations, n, KSTA);
  } else if (KSTA > MAXSTA) {
    Say(console, kTooManyStations, n);
    Say(console, kKsta, KSTA, MAXSTA);
  } else if (KWL > MAXWL) {
    Say(console, kTooManyWaterlines, n);
    Say(console, kKwl, KWL, MAXWL);
  } else {
    return true;
  }
  return false;
}

bool ReadSurface(ZavoText& text, int n, HullSurface& surface) {
  std::array<int, 2> counts{};
  ListStatus status = ReadIntegers(ListsOf(text.lists), counts);
  if (status != ListStatus::ok) return SayFault(text, status);
  if (!CountsGood(text.console, n, counts[0], counts[1])) return false;
  surface.name = fmt::format("Surface {}", n);
  surface.KSTA = counts[0];
  surface.KWL = counts[1];
  const auto KWL = static_cast<std::size_t>(surface.KWL);
  if (!Grow(surface.points, static_cast<std::size_t>(surface.KSTA) * KWL)) return SayFault(text, ListStatus::error);
  for (std::size_t first = 0; first < surface.points.size(); first += KWL) {
    status = ReadPoints(ListsOf(text.lists), std::span(surface.points).subspan(first, KWL));
    if (status != ListStatus::ok) return SayFault(text, status);
  }
  return true;
}

bool ReadSurfaces(ZavoText& text, const GeometryRequest& request, std::vector<HullSurface>& surfaces) {
  const auto NCOMP0 = request.components.size();
  const std::size_t most = request.to_the_end ? MAXCMP : std::min<std::size_t>(NCOMP0, MAXCMP);
  if (NCOMP0 > MAXCMP) SayLine(text.console, kIncomplete);
  while (surfaces.size() < most) {
    if (NothingLeft(text.lists)) {
      if (request.to_the_end && !surfaces.empty()) return true;
      if (request.to_the_end) return SayFault(text, ListStatus::end_of_file);
      Say(text.console, kFewSurfaces[0], NCOMP0);
      SayLine(text.console, kFewSurfaces[1]);
      return false;
    }
    HullSurface surface;
    if (!ReadSurface(text, static_cast<int>(surfaces.size()) + 1, surface)) return false;
    if (surfaces.size() < NCOMP0) surface.resampling = request.components[surfaces.size()];
    surfaces.push_back(std::move(surface));
  }
  return true;
}

void SayWhatIsLeft(const ZavoText& text, std::size_t read) {
  if (read == MAXCMP) {
    Say(text.console, kMoreThanHeld[0], MAXCMP);
    SayLine(text.console, kMoreThanHeld[1]);
    return;
  }
  Say(text.console, kMoreSurfaces[0], read);
  SayLine(text.console, kMoreSurfaces[1]);
  SayLine(text.console, kMoreSurfaces[2]);
}

}  // namespace

GeometryStatus ReadZavo(const Platform& platform, const std::string& path, const GeometryRequest& request, Hull& hull) {
  std::vector<CleanLine> clean;
  const CleanFault fault = CopyCleanText(platform.files, path, nullptr, clean);
  if (fault == CleanFault::cannot_open) return GeometryStatus::cannot_open;
  Say(platform.console, kReading, path);
  if (fault != CleanFault::none) {
    SayLine(platform.console, kUnreadable);
    return GeometryStatus::failed;
  }
  ZavoText text{platform.console, path, {clean}};
  if (!ReadComments(text, hull.comments) || !ReadSurfaces(text, request, hull.surfaces)) return GeometryStatus::failed;
  if (!NothingLeft(text.lists)) SayWhatIsLeft(text, hull.surfaces.size());
  Say(platform.console, kRead, hull.surfaces.size());
  return GeometryStatus::ok;
}

}  // namespace zaview
