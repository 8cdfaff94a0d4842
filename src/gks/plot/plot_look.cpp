#include "gks/plot/plot_look.h"

#include <algorithm>
#include <iterator>

namespace zaview {

namespace {

// Six that stay apart in grey print, each next to its dash: luminances of 5, 13, 17, 30, 8 and 22 %.
constexpr GksColour kReportColours[] = {{0.07F, 0.21F, 0.55F}, {0.78F, 0.08F, 0.14F}, {0.10F, 0.50F, 0.24F},
                                        {0.86F, 0.47F, 0.00F}, {0.45F, 0.14F, 0.55F}, {0.05F, 0.53F, 0.62F}};

constexpr PlotLook kLooks[] = {
    {.style = PictureStyle::classic},
    {.style = PictureStyle::report,
     .fills_page = true,
     .page_width = 8.5F,
     .above = 0.12F,
     .boxed = true,
     .grid = true,
     .grid_colour = {0.85F, 0.85F, 0.85F},
     .names_turned = true,
     .panel_gap = 0.45F,
     .curve_width = 0.027F,
     .dashes = {0, 1, 5, 3, 7, 6},
     .sample = 3.5F,
     .dashed = true,
     .colours = kReportColours},
};

}  // namespace

const PlotLook& LookOf(const GksState& gks) {
  const auto row =
      std::find_if(std::begin(kLooks), std::end(kLooks), [&](const PlotLook& look) { return look.style == gks.style; });
  return row == std::end(kLooks) ? kLooks[0] : *row;
}

const PlotLook& ClassicLook() {
  return kLooks[0];
}

}  // namespace zaview
