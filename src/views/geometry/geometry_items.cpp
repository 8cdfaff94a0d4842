#include "views/geometry/geometry_items.h"

#include <algorithm>

#include <fmt/format.h>

namespace zaview {

namespace {

constexpr std::string_view kTitles[] = {"Geometry", "Geometry - Stations only", "Geometry - Waterlines only"};
constexpr std::string_view kMeshTitle = "Unstructured mesh";
constexpr std::string_view kUseKey = "Use s key to plot individual components";
constexpr int kManyComponents = 9;
constexpr int kFirstComponent = 2;               // colour, less one
constexpr int kPlus = 3, kCross = 4, kStar = 8;  // markers

bool ShowsMeshOnly(const GeometryViewState& view, const Hull& input) {
  const int component = view.geo_component;
  return component == 0 ? input.surfaces.empty() && !input.mesh.elements.empty() : IsMesh(input, component);
}

}  // namespace

Hull ShownHull(const CaseStore& store) {
  return store.hull_tried == Tried::there ? InputHull(store.hull, store.control) : Hull{};
}

GeometryFit FitOf(const GeometryViewState& view, const Hull& input) {
  const HullBox box = BoxOf(input, 0, view.geo_mirror);
  GeometryFit fit;
  std::copy(box.low.begin(), box.low.end(), fit.low);
  std::copy(box.high.begin(), box.high.end(), fit.high);
  return fit;
}

std::size_t AxisOf(GeometryPlane plane, bool horizontal) {
  constexpr std::size_t kAxes[][2] = {{0, 1}, {0, 2}, {1, 2}};
  return kAxes[static_cast<std::size_t>(plane)][horizontal ? 0 : 1];
}

bool IsShown(const GeometryViewState& view, int component) {
  return view.geo_component == 0 || view.geo_component == component;
}

int ColourOf(const GeometryViewState& view, const Hull& input, int component) {
  if (view.geo_colour_by == GeometryColour::by_component) return kFirstComponent + component;
  if (view.geo_colour_by == GeometryColour::by_type) return std::max(1, ComponentType(input, component));
  return 1;
}

std::vector<PointGroup> PointGroupsOf(const GeometryViewState& view, const ControlRecords& control) {
  constexpr int kWeights = 9, kXCuts = 7, kYCuts = 6, kCentre = 2;  // colours
  constexpr float kSmall = 1.0F, kMiddle = 1.5F, kLarge = 2.0F;
  std::vector<PointGroup> groups;
  const auto add = [&](bool shown, PointGroup group) {
    group.size *= view.mark_size;
    if (shown && !group.at.empty()) groups.push_back(std::move(group));
  };
  std::vector<Vector3> weights;
  for (const MassPointInput& point : control.mass_points) weights.push_back(point.XMS);
  add(view.geo_weight_points, {"Weight Points", kWeights, kCross, kSmall, false, std::move(weights)});
  const bool numbers = view.geo_load_numbers;
  add(view.geo_x_cuts, {"X-cut Load Calculation Points", kXCuts, kCross, kMiddle, numbers, control.XMC});
  add(view.geo_y_cuts, {"Y-cut Load Calculation Points", kYCuts, kPlus, kLarge, numbers, control.ycut.XMCY});
  add(view.geo_mark_cg, {"C.G.", kCentre, kStar, kMiddle, false, {control.RGRAV}});
  return groups;
}

std::vector<ShownAppendage> AppendagesOf(const GeometryViewState& view, const ControlRecords& control) {
  std::vector<ShownAppendage> appendages;
  if (!view.geo_appendages) return appendages;
  const auto add = [&](std::string_view kind, const std::vector<AppendageInput>& list) {
    for (std::size_t i = 0; i < list.size(); ++i)
      appendages.push_back({fmt::format("{} {}", kind, i + 1), AppendageCorners(control, list[i])});
  };
  add("Fin", control.fins);
  add("Plate", control.bilge_keels);
  return appendages;
}

std::string ComponentLabel(int component) {
  return fmt::format("Component {}", component);
}

Vector3 LabelPlace(const Hull& input, int component) {
  if (!IsMesh(input, component)) {
    const HullSurface& surface = input.surfaces[static_cast<std::size_t>(component - 1)];
    return surface.at((surface.KSTA + 1) / 2, (surface.KWL + 1) / 2);
  }
  const HullBox box = BoxOf(input, component, false);
  return {0.5 * (box.low[0] + box.high[0]), box.high[1], 0.5 * (box.low[2] + box.high[2])};
}

std::vector<std::string> GeometryHeading(const GeometryViewState& view, const Hull& input, std::string_view file) {
  std::vector<std::string> lines;
  const auto drawn = static_cast<std::size_t>(view.show_mode ? view.geo_draw : GeometryLines::both);
  if (view.show_title) lines.emplace_back(ShowsMeshOnly(view, input) ? kMeshTitle : kTitles[drawn]);
  if (view.show_title && view.show_mode && view.geo_component > 0) lines.push_back(ComponentLabel(view.geo_component));
  if (view.show_file && !file.empty()) lines.emplace_back(file);
  return lines;
}

std::vector<PageNote> GeometryNotes(const GeometryViewState& view, const Hull& input,
                                    const std::vector<PointGroup>& groups) {
  std::vector<PageNote> notes;
  if (view.geo_component == 0 && ComponentCount(input) > kManyComponents) notes.push_back({std::string(kUseKey)});
  for (const PointGroup& group : groups) notes.push_back({std::string(group.name), group.colour});
  return notes;
}

}  // namespace zaview
