#include "gks/plot/line_colours.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "gks/kernel/gks_control.h"
#include "gks/plot/plot_look.h"

namespace zaview {

namespace {

constexpr float kLeastContrast = 3.0F;  // of a line

float Luminance(const GksColour& colour) {
  const auto linear = [](float part) {
    return part <= 0.03928F ? part / 12.92F : std::pow((part + 0.055F) / 1.055F, 2.4F);
  };
  return 0.2126F * linear(colour.red) + 0.7152F * linear(colour.green) + 0.0722F * linear(colour.blue);
}

// Of relative luminances, as guidelines for the web define it: from 1 to 21.
float Contrast(const GksColour& a, const GksColour& b) {
  const float of_a = Luminance(a), of_b = Luminance(b);
  return (std::max(of_a, of_b) + 0.05F) / (std::min(of_a, of_b) + 0.05F);
}

}  // namespace

void SetCurveColours(PlotDraw draw) {
  const std::span<const GksColour> own = LookOf(draw.gks).colours;
  constexpr int kFirst = 2, kLast = 15, kParts = 20;
  const Console& console = draw.platform.console;
  const GksColour paper = GQCR(console, draw.gks, 0), ink = GQCR(console, draw.gks, 1);
  std::copy(own.begin(), own.end(), draw.gks.colour.begin() + kFirst);
  for (int index = kFirst + static_cast<int>(own.size()); index <= kLast; ++index) {
    const GksColour colour = GQCR(console, draw.gks, index);
    GksColour twin = colour;
    for (int part = 1; part < kParts && Contrast(twin, paper) < kLeastContrast; ++part) {
      const float t = static_cast<float>(part) / static_cast<float>(kParts);
      const auto mix = [t](float from, float to) { return from + t * (to - from); };
      twin = {mix(colour.red, ink.red), mix(colour.green, ink.green), mix(colour.blue, ink.blue)};
    }
    draw.gks.colour[static_cast<std::size_t>(index)] = twin;  // as it is to be seen: not made fit for white once more
  }
}

}  // namespace zaview
