#include "analysis/run_exports/run_vtk.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <string>
#include <type_traits>
#include <vector>

#include <fmt/format.h>

#include "analysis/do_or_say.h"
#include "analysis/run_exports/moving_mesh.h"
#include "base/message.h"
#include "base/number_format.h"
#include "case/case_hull.h"
#include "case/settings/step_range.h"
#include "case/ship_pose.h"
#include "case/wave_at_cg.h"
#include "frame/ground/output_file.h"
#include "frame/ground/progress_line.h"
#include "waves/elevation_grid.h"
#include "waves/wave_scale.h"

namespace zaview {
namespace {

constexpr std::string_view kNoMemory = "ERROR - no memory for the VTK files";
constexpr std::string_view kNoHull = "WARNING - the geometry of this case could not be read: the sea is written alone";
constexpr std::string_view kNoMotions = "ERROR - the motions of the ship are not known";
constexpr std::string_view kFlat = "WARNING - the waves of this case are not known: the sea is flat";
constexpr std::string_view kNotWritten = "ERROR writing {}{}";
constexpr std::string_view kInterrupted = "VTK files interrupted at time step {}";

constexpr std::string_view kHead =
    "<?xml version=\"1.0\"?>\n<VTKFile type=\"{0}\" version=\"1.0\" byte_order=\"LittleEndian\" "
    "header_type=\"UInt32\">\n";
constexpr double kAhead = 1.5, kAside = 1.0;       // of the sea, in lengths of the ship, either way
constexpr std::size_t kAlong = 121, kAcross = 81;  // points of the sea in x and in y

struct Work {
  const Platform& platform;
  const OutputSettings& settings;
  const CaseStore& store;
  std::string root;
  MovingMesh mesh;
  bool has_waves = false;
  [[nodiscard]] double L() const { return settings.units.LENOUT; }
};

struct Sea {  // at a step
  std::vector<double> x, y;
  std::vector<float> eta;  // x fastest
};

bool StoreFile(const Platform& platform, const std::string& name, const std::string& text) {
  OutputFile out;
  if (!OpenOutput(platform, name, OpenHow::replace, out)) {
    Say(platform.console, kOutputNotOpen, name, Because(out.why));
    return false;
  }
  WriteOutput(out, text);
  if (CloseOutput(out)) return true;
  Say(platform.console, kNotWritten, name, Because(out.why));
  return false;
}

// An array of the file: what stands for it among the tags, its bytes behind all tags, a count of them ahead.
template <typename Number>
void AddArray(std::string_view name, int components, const std::vector<Number>& values, std::string& tags,
              std::string& bytes) {
  static_assert(sizeof(Number) == 4);
  fmt::format_to(std::back_inserter(tags),
                 "<DataArray type=\"{}\" Name=\"{}\" NumberOfComponents=\"{}\" format=\"appended\" offset=\"{}\"/>\n",
                 std::is_integral_v<Number> ? "Int32" : "Float32", name, components, bytes.size());
  const auto size = static_cast<std::uint32_t>(values.size() * sizeof(Number));
  bytes.append(reinterpret_cast<const char*>(&size), sizeof size);
  bytes.append(reinterpret_cast<const char*>(values.data()), size);
}

std::string WholeFile(std::string_view kind, const std::string& tags, const std::string& bytes) {
  return fmt::format(fmt::runtime(kHead), kind) + tags + "<AppendedData encoding=\"raw\">\n_" + bytes +
         "\n</AppendedData>\n</VTKFile>\n";
}

void AddPoint(double L, const Vector3& p, std::vector<float>& to) {
  for (const double place : p) to.push_back(Finite(static_cast<float>(place * L)));
}

// ---- The sea

Sea SeaAt(const Work& work, const ShipPose& pose, int step) {
  Sea sea;
  const auto spread = [](std::size_t n, double middle, double half, std::vector<double>& out) {
    for (std::size_t i = 0; i < n; ++i)
      out.push_back(middle + half * (2.0 * static_cast<double>(i) / static_cast<double>(n - 1) - 1.0));
  };
  spread(kAlong, pose.cg[0], kAhead, sea.x);
  spread(kAcross, pose.cg[1], kAside, sea.y);
  sea.eta.assign(kAlong * kAcross, 0.0F);
  const WaveMoment moment{static_cast<double>(work.store.time.at(1, step)),
                          WaveScaleAtStep(work.store.seaway.scaling, step).scale};
  if (work.has_waves) static_cast<void>(ElevationGrid(work.store.wave, moment, sea.x, sea.y, sea.eta));
  return sea;
}

std::string SeaFile(const Work& work, const Sea& sea) {
  std::vector<float> elevation, points;
  for (const float eta : sea.eta) elevation.push_back(Finite(static_cast<float>(static_cast<double>(eta) * work.L())));
  for (std::size_t j = 0; j < kAcross; ++j)
    for (std::size_t i = 0; i < kAlong; ++i)
      AddPoint(work.L(), {sea.x[i], sea.y[j], static_cast<double>(sea.eta[j * kAlong + i])}, points);
  std::string bytes, tags = fmt::format(
                         "<StructuredGrid WholeExtent=\"0 {0} 0 {1} 0 0\">\n<Piece Extent=\"0 {0} 0 {1} 0 0\">\n"
                         "<PointData Scalars=\"elevation\">\n",
                         kAlong - 1, kAcross - 1);
  AddArray("elevation", 1, elevation, tags, bytes);
  tags += "</PointData>\n<Points>\n";
  AddArray("points", 3, points, tags, bytes);
  tags += "</Points>\n</Piece>\n</StructuredGrid>\n";
  return WholeFile("StructuredGrid", tags, bytes);
}

// ---- The hull

// Between four points of the grid; flat beyond it.
double ElevationOf(const Sea& sea, const Vector3& p) {
  const auto place = [](const std::vector<double>& axis, double value) {
    return (value - axis.front()) / (axis[1] - axis[0]);
  };
  const double u = place(sea.x, p[0]), v = place(sea.y, p[1]);
  if (!(u >= 0 && v >= 0 && u < static_cast<double>(kAlong - 1) && v < static_cast<double>(kAcross - 1))) return 0;
  const auto i = static_cast<std::size_t>(u), j = static_cast<std::size_t>(v);
  const double a = u - std::floor(u), b = v - std::floor(v);
  const auto eta = [&](std::size_t di, std::size_t dj) {
    return static_cast<double>(sea.eta[(j + dj) * kAlong + i + di]);
  };
  return (1 - a) * ((1 - b) * eta(0, 0) + b * eta(0, 1)) + a * ((1 - b) * eta(1, 0) + b * eta(1, 1));
}

std::string HullFile(const Work& work, const ShipPose& pose, const Sea& sea) {
  std::vector<Vector3> at;
  std::vector<float> points;
  std::vector<std::int32_t> connectivity, offsets, above;
  for (const Vector3& node : work.mesh.nodes) {
    at.push_back(ShipToEarth(pose, node));
    AddPoint(work.L(), at.back(), points);
  }
  for (const HullElement& element : work.mesh.elements) {
    Vector3 middle{};
    for (int k = 0; k < element.corners(); ++k) {
      const int node = element.node[static_cast<std::size_t>(k)] - 1;
      connectivity.push_back(node);
      for (std::size_t c = 0; c < 3; ++c) middle[c] += at[static_cast<std::size_t>(node)][c] / element.corners();
    }
    offsets.push_back(static_cast<std::int32_t>(connectivity.size()));
    above.push_back(middle[2] > ElevationOf(sea, middle) ? 1 : 0);
  }
  std::string bytes, tags = fmt::format(
                         "<PolyData>\n<Piece NumberOfPoints=\"{}\" NumberOfVerts=\"0\" NumberOfLines=\"0\" "
                         "NumberOfStrips=\"0\" NumberOfPolys=\"{}\">\n<Points>\n",
                         at.size(), above.size());
  AddArray("points", 3, points, tags, bytes);
  tags += "</Points>\n<Polys>\n";
  AddArray("connectivity", 1, connectivity, tags, bytes);
  AddArray("offsets", 1, offsets, tags, bytes);
  tags += "</Polys>\n<CellData Scalars=\"above\">\n";
  AddArray("above", 1, above, tags, bytes);
  tags += "</CellData>\n</Piece>\n</PolyData>\n";
  return WholeFile("PolyData", tags, bytes);
}

// ---- All steps

// As the collection has it: beside it, and as XML has the text of an attribute.
std::string ReferenceTo(std::string_view name) {
  std::string text;
  for (const char c : name.substr(name.rfind('/') + 1)) {
    if (c == '&') text += "&amp;";
    else if (c == '<') text += "&lt;";
    else if (c == '"') text += "&quot;";
    else text += c;
  }
  return text;
}

bool WriteStep(const Work& work, int step, std::string& collection) {
  const ShipPose pose = PoseAtStep(work.store, step);
  const Sea sea = SeaAt(work, pose, step);
  const double time =
      Finite(static_cast<double>(work.store.time.at(1, step)) * static_cast<double>(work.settings.units.scales.T));
  const auto put = [&](std::string_view what, int part, std::string_view end, const std::string& text) {
    const std::string name = fmt::format("{}_{}_{}.{}", work.root, what, step, end);
    fmt::format_to(std::back_inserter(collection), "<DataSet timestep=\"{:.7g}\" part=\"{}\" file=\"{}\"/>\n", time,
                   part, ReferenceTo(name));
    return StoreFile(work.platform, name, text);
  };
  return (work.mesh.elements.empty() || put("hull", 0, "vtp", HullFile(work, pose, sea))) &&
         put("sea", 1, "vts", SeaFile(work, sea));
}

bool WriteSteps(const Work& work) {
  const CaseStore& store = work.store;
  std::string collection = fmt::format(fmt::runtime(kHead), "Collection");
  collection += "<Collection>\n";
  ProgressLine progress = StartProgress(work.platform, "VTK files");
  bool good = true;
  const int stride = std::max(1, work.settings.reading.step_stride);
  for (const int step : StepsOf(store, {store.first_step, store.last_step, stride})) {
    good = WriteStep(work, step, collection);
    if (good && TakeInterrupt(work.platform.console)) {
      Say(work.platform.console, kInterrupted, step);
      good = false;
    }
    if (!good) break;
    ShowProgress(progress, static_cast<double>(step - store.first_step) / (store.last_step - store.first_step + 1));
  }
  EndProgress(progress);
  collection += "</Collection>\n</VTKFile>\n";
  return good && StoreFile(work.platform, work.root + ".pvd", collection);
}

bool Write(const Platform& platform, const OutputSettings& settings, std::string_view root, CaseStore& store) {
  if (!store.motions_known) {
    SayLine(platform.console, kNoMotions);
    return false;
  }
  Work work{platform, settings, store, std::string(root), {}, false};
  if (EnsureHull(platform, store)) work.mesh = MeshOfHull(store, store.hull);
  else SayLine(platform.console, kNoHull);
  work.has_waves = EnsureSeaway(platform.console, store) == WaveAnswer::ok;
  if (!work.has_waves) SayLine(platform.console, kFlat);
  return WriteSteps(work);
}

}  // namespace

bool WriteRunVtk(const Platform& platform, const OutputSettings& settings, std::string_view root, CaseStore& store) {
  return DoOrSay(platform.console, kNoMemory, [&] { return Write(platform, settings, root, store); });
}

}  // namespace zaview
