#include "analysis/run_exports/moving_mesh.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "analysis/do_or_say.h"
#include "base/grow.h"
#include "base/message.h"
#include "base/number_format.h"
#include "base/text.h"
#include "case/case_hull.h"
#include "case/settings/step_range.h"
#include "case/ship_pose.h"
#include "frame/ground/input_file.h"
#include "geometry/input_transform.h"
#include "geometry/read_geometry.h"
#include "geometry/read_hrl.h"

namespace zaview {
namespace {

constexpr std::string_view kNotHrl = "ERROR - {} : only a mesh in HRL format can be moved";
constexpr std::string_view kNoHull = "ERROR - the geometry of this case could not be read";
constexpr std::string_view kNoMemory = "ERROR allocating memory for the moving mesh";

void AppendSurface(const HullSurface& surface, MovingMesh& mesh) {
  const auto before = static_cast<int>(mesh.nodes.size());
  mesh.nodes.insert(mesh.nodes.end(), surface.points.begin(), surface.points.end());
  const auto node = [&](int station, int waterline) { return before + (station - 1) * surface.KWL + waterline; };
  for (int i = 1; i < surface.KSTA; ++i)
    for (int j = 1; j < surface.KWL; ++j)
      mesh.elements.push_back({{node(i, j), node(i, j + 1), node(i + 1, j + 1), node(i + 1, j)}, surface.reflected});
}

void AppendMesh(const HullMesh& from, MovingMesh& mesh) {
  const auto before = static_cast<int>(mesh.nodes.size());
  mesh.nodes.insert(mesh.nodes.end(), from.nodes.begin(), from.nodes.end());
  for (HullElement element : from.elements) {
    for (int i = 0; i < element.corners(); ++i) element.node[static_cast<std::size_t>(i)] += before;
    mesh.elements.push_back(element);
  }
}

// The mesh as the file has it: nothing is merged, left out or turned.
bool ReadFile(const Platform& platform, const GeometryName& name, const CaseStore& store, Hull& hull) {
  const std::string_view folder = FolderOf(store.file_name);
  const std::string path = NamedFile(platform.files, name.file, folder);
  const GeometryStatus status =
      path.empty() ? GeometryStatus::cannot_open : ReadHrl(platform, path, GeometryRequest{}, hull);
  if (status == GeometryStatus::cannot_open)
    Say(platform.console, kGeometryNotOpen, name.file, WhyNoNamedFile(platform.files, name.file, folder));
  if (status != GeometryStatus::ok) return false;
  const InputTransform transform = TransformOf(store.control);
  for (Vector3& p : hull.mesh.nodes) p = InputToShip(transform, p);
  return true;
}

bool TakeMesh(const Platform& platform, std::string_view given, CaseStore& store, MovingMesh& mesh) {
  if (IsBlank(given)) {
    if (!EnsureHull(platform, store)) {
      SayLine(platform.console, kNoHull);
      return false;
    }
    mesh = MeshOfHull(store, store.hull);
    return true;
  }
  const GeometryName name = SplitGeometryName(given);
  if (name.format != GeometryFormat::hrl && !name.qualifier.empty()) {
    Say(platform.console, kNotHrl, Trim(given));
    return false;
  }
  Hull hull;
  if (!ReadFile(platform, name, store, hull)) return false;
  mesh = MeshOfHull(store, hull);
  return true;
}

void WriteSteps(const OutputSettings& settings, const CaseStore& store, const MovingMesh& mesh, OutputFile& out) {
  const double L = settings.units.LENOUT;
  const int stride = std::max(1, settings.reading.step_stride);
  std::string text = out.had_text ? "\n" : "", elements;
  for (const HullElement& element : mesh.elements)
    fmt::format_to(std::back_inserter(elements), "{} {} {} {}\n", element.node[0], element.node[1], element.node[2],
                   element.node[3]);
  for (const int step : StepsOf(store, {store.first_step, store.last_step, stride})) {
    const ShipPose pose = PoseAtStep(store, step);
    fmt::format_to(std::back_inserter(text), "!time= {:.9g}\n{} {}\n",
                   Finite(store.time.at(1, step) * settings.units.scales.T), mesh.nodes.size(), mesh.elements.size());
    for (const Vector3& node : mesh.nodes) {
      const Vector3 p = ShipToEarth(pose, node);
      fmt::format_to(std::back_inserter(text), "{:.9g} {:.9g} {:.9g}\n", Finite(p[0] * L), Finite(p[1] * L),
                     Finite(p[2] * L));
      WriteGathered(out, text);
    }
    text += elements;
    WriteGathered(out, text);
  }
  WriteOutput(out, text);
}

}  // namespace

MovingMesh MeshOfHull(const CaseStore& store, const Hull& hull) {
  MovingMesh mesh;
  for (const HullSurface& surface : hull.surfaces) AppendSurface(surface, mesh);
  AppendMesh(hull.mesh, mesh);
  for (Vector3& p : mesh.nodes) p = FromCentre(store, p);
  return mesh;
}

bool ReadMovingMesh(const Platform& platform, std::string_view name, CaseStore& store, MovingMesh& mesh) {
  return DoOrSay(platform.console, kNoMemory, [&] { return TakeMesh(platform, name, store, mesh); });
}

bool WriteMovingMesh(const OutputSettings& settings, const CaseStore& store, const MovingMesh& mesh, OutputFile& out) {
  const auto write = [&] {
    WriteSteps(settings, store, mesh, out);
    return true;
  };
  return Guarded(write, false);
}

}  // namespace zaview
