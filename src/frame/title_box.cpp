#include "frame/title_box.h"

#include <algorithm>
#include <string>

#include "base/message.h"
#include "base/text.h"

namespace zaview {

namespace {

constexpr std::string_view kVersion = "VERSION " ZAVIEW_VERSION " / April 28, 2022";

constexpr std::size_t kBoxWidth = 70;
constexpr std::size_t kHalfInside = 28;  // between the arrows
constexpr std::string_view kLeftArrow = "======>", kRightArrow = "<======";

constexpr std::string_view kDimensionTitle = "Program dimensions ...";

struct Dimension {
  std::string_view name;
  int value;
  std::string_view text, second;
  std::string_view heading;  // printed ahead unless blank
};

constexpr Dimension kDimensions[] = {
    {"MAXDYN", 3, "Max number of dynamic systems (ships)", "", ""},
    {"MAXCMP", 100, "Max number of components in geometry", "(either input or generated)", "Geometry definition:"},
    {"MAXSTA", 121, "Max number of stations for any component", "", ""},
    {"MAXWL", 121, "Max number of waterlines for any component", "", ""},
    {"MAXFEG", 5000, "Max number of nodes or elements for unstructured", "(e.g. NASTRAN) input geometry", ""},
    {"MAXBP", 5000, "Max number of body panels for hydrodynamics", "(after respline and cutoff)",
     "Hydrodynamics/hydrostatics panel models:"},
    {"MAXBP0", 9000, "Max number of body panels for hydrostatics", "(without respline and cutoff)", ""},
    {"MAXFP", 9500, "Max number of free surface panels", "", ""},
    {"MAXMP", 320, "Max number of matching surface panels", "(MIXED source singularities only)", ""},
    {"MAXTP", 10000, "Max number of total panels for hydrodynamics", "(body + free surface + matching surface)", ""},
    {"MXFIN", 100, "Max number of fin-like appendages (e.g. rudders)", "",
     "Appendage, viscous and other external force models:"},
    {"MXBK", 5, "Max number of plate-like appendages (e.g. bilge keels)", "", ""},
    {"MXVSTA", 20, "Station cut for empirical roll damping", "", ""},
    {"MXEFOR", 100, "Number of external (non-pressure) forces", "", ""},
    {"MXPOTH", 3, "Number of non-hydro pressure surfaces (greenwater, etc.)", "", ""},
    {"MAXBCA", 25, "Max number load calculation points", "", "Sectional load calculations:"},
    {"MAXBMP", 350, "Max number mass distribution input points", "", ""},
    {"MAXGWL", 23, "Number of longitudinal points in GW deck geometry", "", "Green-water-on-deck calculations:"},
    {"MAXGWB", 11, "Number of beamwise     points in GW deck geometry", "", ""},
};
constexpr std::string_view kDimensionRow = "{:<8}{:>8}   {}";
constexpr std::string_view kDimensionSecond = "{:19}{}";  // below the text of the row

}  // namespace

void PrintTitleBox(const Console& console, std::string_view text) {
  const std::string rule = " " + std::string(kBoxWidth, '=');
  std::string middle =
      fmt::format(" {}{:{}}{}", kLeftArrow, "", kHalfInside - std::min(text.size() / 2, kHalfInside), text);
  middle.resize(std::max(middle.size(), 1 + kBoxWidth - kRightArrow.size()), ' ');
  middle += kRightArrow;
  SayLine(console, rule);
  SayLine(console, middle);
  SayLine(console, rule);
}

void PrintVersionLine(const Console& console, std::string_view ahead) {
  if (!IsBlank(ahead)) SayLine(console, ahead);
  SayLine(console, kVersion);
}

void print_dimension_list(const Console& console) {
  SayLine(console, kDimensionTitle);
  for (const Dimension& row : kDimensions) {
    if (!row.heading.empty()) SayLine(console, row.heading);
    Say(console, kDimensionRow, row.name, row.value, row.text);
    if (!row.second.empty()) Say(console, kDimensionSecond, "", row.second);
  }
}

}  // namespace zaview
