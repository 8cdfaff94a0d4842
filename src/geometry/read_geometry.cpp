#include "geometry/read_geometry.h"

#include <algorithm>

#include "base/message.h"
#include "base/text.h"
#include "control/control_text.h"
#include "frame/ground/input_file.h"
#include "geometry/read_hrl.h"
#include "geometry/read_nastran.h"
#include "geometry/read_simple.h"
#include "geometry/read_zavo.h"
#include "geometry/surface_checks.h"

namespace zaview {
namespace {

struct FormatRow {
  std::array<std::string_view, 4> qualifiers;
  GeometryFormat format;
  GeometryStatus (*read)(const Platform& platform, const std::string& path, const GeometryRequest& request, Hull& hull);
};
constexpr FormatRow kFormats[] = {
    {{"SHAPE", "shape"}, GeometryFormat::zavo, ReadZavo},
    {{"SIMPLE", "simple"}, GeometryFormat::simple, ReadSimple},
    {{"NASTRAN", "nastran"}, GeometryFormat::nastran, ReadNastran},
    {{"HARLEND", "harlend", "HRL", "hrl"}, GeometryFormat::hrl, ReadHrl},
};

bool IsNone(std::string_view name) {
  return name.empty() || name == "NONE" || name == "none";
}

bool CheckMesh(const Console& console, const GeometryRequest& request, HullMesh& mesh) {
  FECULL(console, request.LENIN, mesh);
  if (mesh.elements.empty()) return false;  // all were degenerate, which has been told
  FETRNSM(console, request.LENIN, request.ship_x, mesh);
  return FENORM(console, request.UGEOMNORM, request.half, mesh);
}

}  // namespace

GeometryName SplitGeometryName(std::string_view name) {
  name = Trim(name);
  GeometryName split{GeometryFormat::zavo, {}, std::string(name.substr(0, kNameLength))};
  const std::size_t colon = name.find(':');
  const std::string_view word = colon == std::string_view::npos ? std::string_view{} : TrimEnd(name.substr(0, colon));
  for (const FormatRow& row : kFormats) {
    if (word.empty() || std::find(row.qualifiers.begin(), row.qualifiers.end(), word) == row.qualifiers.end()) continue;
    split = {row.format, std::string(word), std::string(TrimStart(name.substr(colon + 1)).substr(0, kNameLength))};
  }
  if (IsNone(split.file)) split.format = GeometryFormat::none;
  return split;
}

std::string GeometryPath(const Files& files, std::string_view name, std::string_view folder) {
  const GeometryName split = SplitGeometryName(name);
  return split.format == GeometryFormat::none ? std::string{} : NamedFile(files, split.file, folder);
}

std::string WhyGeometryNotOpened(const Files& files, std::string_view name, std::string_view folder) {
  return WhyNoNamedFile(files, SplitGeometryName(name).file, folder);
}

GeometryStatus ReadGeometry(const Platform& platform, const GeometryRequest& request, Hull& hull) {
  hull = Hull{};
  const GeometryName name = SplitGeometryName(request.name);
  if (name.format == GeometryFormat::none) return GeometryStatus::skipped;
  const std::string path = NamedFile(platform.files, name.file, request.folder);
  if (path.empty()) return GeometryStatus::cannot_open;
  const auto* const row = std::find_if(std::begin(kFormats), std::end(kFormats),
                                       [&name](const FormatRow& format) { return format.format == name.format; });
  GeometryStatus status = row->read(platform, path, request, hull);
  if (status == GeometryStatus::ok && !hull.mesh.elements.empty() && !CheckMesh(platform.console, request, hull.mesh))
    status = GeometryStatus::failed;
  if (status != GeometryStatus::ok) hull = Hull{};
  return status;
}

}  // namespace zaview
