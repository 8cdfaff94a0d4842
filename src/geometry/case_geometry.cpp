#include "geometry/case_geometry.h"

#include <algorithm>
#include <iterator>

#include "base/message.h"
#include "control/options_lookup.h"
#include "geometry/input_transform.h"
#include "geometry/read_geometry.h"
#include "geometry/reflect_geometry.h"

namespace zaview {
namespace {

constexpr OptionNames kNormals = {"UGEOMNORM"};
constexpr int kByConnectivity = 1;

void TransformHull(const InputTransform& transform, Hull& hull) {
  const auto apply = [&transform](std::vector<Vector3>& points) {
    for (Vector3& p : points) p = InputToShip(transform, p);
  };
  for (HullSurface& surface : hull.surfaces) apply(surface.points);
  apply(hull.mesh.nodes);
}

// y = 0 of the input, in ship axes.
void NotePart(const InputTransform& transform, bool half, Hull& hull) {
  HullPart part{hull.surfaces.size(), hull.mesh.elements.size(), half};
  const Vector3 on_plane = InputToShip(transform, {0, 0, 0});
  for (std::size_t k = 0; k < 3; ++k) {
    part.normal[k] = transform.R.r[k][1];
    part.offset += part.normal[k] * on_plane[k];
  }
  hull.parts = {part};
}

bool Append(const Console& console, Hull&& part, Hull& hull) {
  if (!HullFits(console, hull.surfaces.size() + part.surfaces.size(), hull.mesh.nodes.size() + part.mesh.nodes.size(),
                hull.mesh.elements.size() + part.mesh.elements.size()))
    return false;
  const auto behind = static_cast<int>(hull.mesh.nodes.size());
  for (HullElement& element : part.mesh.elements)
    for (int i = 0; i < element.corners(); ++i) element.node[static_cast<std::size_t>(i)] += behind;
  const auto move_all = [](auto& from, auto& to) { std::move(from.begin(), from.end(), std::back_inserter(to)); };
  move_all(part.comments, hull.comments);
  hull.comments.resize(std::min(hull.comments.size(), kGeometryComments));
  move_all(part.surfaces, hull.surfaces);
  move_all(part.mesh.nodes, hull.mesh.nodes);
  move_all(part.mesh.elements, hull.mesh.elements);
  move_all(part.mesh.on_transom, hull.mesh.on_transom);
  move_all(part.parts, hull.parts);
  hull.half = hull.half || part.half;
  return true;
}

// One file: read, reflected, moved into ship axes and added.
bool AddGeometry(const Platform& platform, const GeometryRequest& request, const InputTransform& transform,
                 Hull& hull) {
  Hull part;
  const GeometryStatus status = ReadGeometry(platform, request, part);
  if (status == GeometryStatus::skipped) SayLine(platform.console, kGeometrySkipped);
  if (status == GeometryStatus::cannot_open)
    Say(platform.console, kGeometryNotOpen, SplitGeometryName(request.name).file,
        WhyGeometryNotOpened(platform.files, request.name, request.folder));
  if (status != GeometryStatus::ok) return status == GeometryStatus::skipped;
  if (request.half && !ReflectGeometry(platform.console, request.LENIN, part)) return false;
  TransformHull(transform, part);
  NotePart(transform, request.half, part);
  return Append(platform.console, std::move(part), hull);
}

}  // namespace

bool ReadCaseGeometry(const Platform& platform, const ControlRecords& records, std::string_view folder, Hull& hull) {
  hull = Hull{};
  const int UGEOMNORM = IntegerOption(records, kNormals);
  GeometryRequest request;
  request.folder = folder;
  request.LENIN = records.LENIN;
  request.UGEOMNORM = UGEOMNORM < 0 ? kByConnectivity : UGEOMNORM;
  const auto add = [&](std::string_view name, const std::vector<GeometryComponentInput>& components, int SYMINP,
                       const InputTransform& transform, Hull& to) {
    request.name = name;
    request.components = components;
    request.half = SYMINP == 1;
    request.ship_x = {transform.R.r[0][0], transform.R.r[0][1], transform.R.r[0][2]};
    return AddGeometry(platform, request, transform, to);
  };
  Hull whole;
  if (!add(records.FGEOM, records.components, records.SYMINP, TransformOf(records), whole)) return false;
  for (const AddedGeometryInput& added : records.added_geometry)
    if (!add(added.CADDGEOMFILE, added.components, added.SYMINP, TransformOf(records, added), whole)) return false;
  hull = std::move(whole);
  return !hull.empty();
}

void HoldCaseGeometry(const Files& files, const ControlRecords& records, std::string_view folder) {
  const auto hold = [&files, folder](std::string_view name) {
    const std::string path = GeometryPath(files, name, folder);
    const FileHandle file = path.empty() ? kNoFile : files.open_read(files.self, path);
    if (file != kNoFile) (void)files.close(files.self, file);
  };
  hold(records.FGEOM);
  for (const AddedGeometryInput& added : records.added_geometry) hold(added.CADDGEOMFILE);
}

}  // namespace zaview
