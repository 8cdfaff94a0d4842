// The axes of a plane plot: its limits, and what the mouse is doing with them. Of the data plot and of the geometry in
// two dimensions. Data only.
#pragma once

#include <cstdint>

namespace zaview {

struct PlotLimits {
  float x_min = 0, x_step = 1, x_max = 1, y_min = 0, y_step = 1, y_max = 1;
};

struct AxesLength {  // page units
  float x = 8, y = 5.5F;
  bool operator==(const AxesLength&) const = default;
};

// Of a page of 11 by 8.5, with room for labels and heading.
inline constexpr AxesLength kLargestArea{9.6F, 7.0F};

enum class LimitsUse : std::uint8_t {
  to_fit,   // at the next display
  fitted,   // or kept as if they were
  changed,  // by zoom, pan or typing since the last fit
  carried   // changed ones that the next thing to be shown takes over; then `changed`
};

struct ZoomState {
  bool pending = false;  // the first corner is chosen
  float x = 0, y = 0;    // world
};

struct MeasureState {
  bool on = false;
  float x = 0, y = 0;   // world
  bool closest = true;  // the point of a curve that is closest to the click, else the click itself
};

struct PopupState {
  bool open = false;
  float x = 0, y = 0;  // page units
};

struct AxesState {
  PlotLimits limits;  // in use
  PlotLimits fitted;  // of the last fit, or kept
  LimitsUse use = LimitsUse::to_fit;
  ZoomState zoom;
  MeasureState measure;
  PopupState popup;
};

}  // namespace zaview
