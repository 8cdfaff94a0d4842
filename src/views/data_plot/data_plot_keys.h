// The keys of the data plot, a row each. Private to views.
#pragma once

#include <array>
#include <span>
#include <string_view>

#include "frame/session.h"

namespace zaview {

using PlotKinds = unsigned;  // a bit for each PlotKind
[[nodiscard]] constexpr PlotKinds In(PlotKind kind) {
  return 1U << static_cast<unsigned>(kind);
}
inline constexpr PlotKinds kAnyPlot = ~0U;

// Codes of rows: a key as the window gives it, with Control 1 to 26, and a bit for Shift with these and with keys that
// aren't letters, and for Alt. Where there is no row for a key with Shift that without it acts.
inline constexpr int kWithShift = 1 << 20, kWithAlt = 1 << 21;
[[nodiscard]] constexpr int Ctrl(char letter) {
  return letter - 'a' + 1;
}
[[nodiscard]] constexpr int CtrlShift(char letter) {
  return Ctrl(letter) | kWithShift;
}
[[nodiscard]] constexpr int Shift(int key) {
  return key | kWithShift;
}
[[nodiscard]] constexpr int Alt(int key) {
  return key | kWithAlt;
}

struct PlotKey {
  int code = 0;
  PlotKinds kinds = kAnyPlot;               // in others it does nothing
  bool (*act)(Session& session) = nullptr;  // true: the plot is to be drawn again
  std::array<std::string_view, 2> help{};
};

[[nodiscard]] std::span<const PlotKey> DataPlotKeys();  // in the order of the help text

void ShowPlotHelp(Session& session);  // on the text screen
// "... : this menu is not available yet"
void SayNoMenu(const Session& session, std::string_view menu);
inline constexpr std::string_view kCurveMenu = "Curve Selection", kOptionsMenu = "Plot Options",
                                  kTimeStepMenu = "Time Step";

// A zoom that waits for its second corner is given up, which is said. True: there was one.
bool DropZoom(Session& session);

// ---- Keys of the axes (axis_keys.cpp)
bool ZoomOut(Session& session);
bool FitAll(Session& session);
bool FitRaw(Session& session);
bool FitX(Session& session);
bool FitShownY(Session& session);
bool FitAllY(Session& session);
bool KeepLimits(Session& session);
bool RoundLimits(Session& session);
bool SwitchStepAxis(Session& session);
bool WidenXStep(Session& session);
bool WidenYStep(Session& session);
bool PanX(Session& session, float ranges);
bool PanY(Session& session, float ranges);

// ---- Keys of time steps (step_keys.cpp)
void StopRun(Session& session);
bool ToggleRun(Session& session);
bool GoToStep(Session& session, int step);  // limited to those in use
bool ScaleSync(Session& session, float factor);
bool ScaleHullSpacing(Session& session, float factor);

}  // namespace zaview
