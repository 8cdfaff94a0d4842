// How plots look in each style of pictures: a row a style. Whoever draws asks here instead of asking for the style.
#pragma once

#include <array>
#include <span>

#include "gks/kernel/gks_state.h"

namespace zaview {

struct PlotLook {
  PictureStyle style = PictureStyle::classic;
  bool fills_page = false;  // the page has the picture's shape, the area what its texts leave free
  float page_width = 11;    // page units; of a page that is filled at least, and at least `page_side` each way
  float page_side = 5;
  float above = 0;                              // page units that stay free above the heading
  bool boxed = false;                           // a frame about the area, whatever is asked for
  bool grid = false;                            // grid lines where nobody asked for them; who asks takes them away
  GksColour grid_colour{};                      // of lines that go through; without `grid` they are dotted in ink
  bool names_turned = false;                    // the vertical axis' name goes along it with any font
  float panel_gap = 0;                          // page units between panels of one name, which the lowest has; 0: all
  float curve_width = 0;                        // page units, at least
  std::array<int, 6> dashes{0, 1, 2, 3, 5, 6};  // of SetDash: line styles of the kernel; 4 looks as 2 does
  float sample = 2.5F;                          // the piece of its line ahead of a note, character heights
  bool dashed = false;                          // curves are told apart by dashes as well as by colours
  std::span<const GksColour> colours{};  // of curves, in place of the first of the system's own; fit for their paper
};

[[nodiscard]] const PlotLook& LookOf(const GksState& gks);
[[nodiscard]] const PlotLook& ClassicLook();

}  // namespace zaview
