// What both geometry views show beside the hull itself, and how its components are told apart. Places are in the axes
// and lengths of the input.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "frame/session.h"
#include "geometry/appendages.h"
#include "geometry/input_hull.h"
#include "gks/plot/page_text.h"
#include "views/state/popup.h"

namespace zaview {

inline constexpr std::string_view kGeometryPopup[] = {"Options Menu", "Help"};
inline constexpr float kGeometryMargin = 0.15F;         // page units to the edge of the page
inline constexpr AxesLength kGeometryArea{9.0F, 6.6F};  // of the plane view; page units
inline constexpr int kNormalColour = 2, kAppendageColour = 8;

// The hull of the case; nothing where there is none.
[[nodiscard]] Hull ShownHull(const CaseStore& store);
// The box about all that is shown whatever component is chosen: what limits are fitted to.
[[nodiscard]] GeometryFit FitOf(const GeometryViewState& view, const Hull& input);

[[nodiscard]] bool IsShown(const GeometryViewState& view, int component);
[[nodiscard]] int ColourOf(const GeometryViewState& view, const Hull& input, int component);  // 1: the foreground

struct PointGroup {  // markers of one kind
  std::string_view name;
  int colour = 1, marker = 0;
  float size = 1;
  bool numbered = false;
  std::vector<Vector3> at;
};
[[nodiscard]] std::vector<PointGroup> PointGroupsOf(const GeometryViewState& view, const ControlRecords& control);

struct ShownAppendage {
  std::string label;
  PlateCorners corner{};
};
[[nodiscard]] std::vector<ShownAppendage> AppendagesOf(const GeometryViewState& view, const ControlRecords& control);

[[nodiscard]] Vector3 LabelPlace(const Hull& input, int component);  // about in its middle
[[nodiscard]] std::string ComponentLabel(int component);

// Lines of the heading, and of the notes.
[[nodiscard]] std::vector<std::string> GeometryHeading(const GeometryViewState& view, const Hull& input,
                                                       std::string_view file);
[[nodiscard]] std::vector<PageNote> GeometryNotes(const GeometryViewState& view, const Hull& input,
                                                  const std::vector<PointGroup>& groups);

[[nodiscard]] inline PlotDraw GeometryDraw(Session& s) {
  return {s.platform, s.gks, s.page};
}

// The axis of the input, 0 to 2, that lies along the page in a plane view, or upright.
[[nodiscard]] std::size_t AxisOf(GeometryPlane plane, bool horizontal);

void GeoRender2D(Session& session);
void GeoRender3D(Session& session);
void UpdateSpaceView(Session& session);  // fits what is fitted to something else than what is shown

}  // namespace zaview
