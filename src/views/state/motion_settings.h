// Settings of the animation, by keys, menus and scripts alike. Each verb keeps its limits; none draws.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "frame/session.h"

namespace zaview {

struct SeenSizes {  // as they are drawn, output lengths: what is to fit, or goes by the ship, is a number here
  double radius = 1, fitting_radius = 1;
  double grid = 1;
};

// factor: of the radius, within 0.001 to 1000 times what fits.
void ScaleRadius(Camera& view, const SeenSizes& seen, double factor);
// Along a global axis, in tenths of the radius.
void ShiftCentre(Camera& view, const SeenSizes& seen, double ScenePoint::*axis, int tenths);

struct CameraPreset {
  std::string_view word;  // of scripts
  double azimuth = 0, elevation = 0;
};
[[nodiscard]] std::span<const CameraPreset> CameraPresets();  // by keys 1 to 6
// From there, so that all is seen; the stand stays.
void LookFrom(Camera& view, const CameraPreset& preset);
[[nodiscard]] bool LooksFrom(const Camera& view, const CameraPreset& preset);  // is that its direction
void LookAsAtFirst(MotionViewState& view);

[[nodiscard]] std::span<const std::string_view> StandWords();  // by CameraStand, of scripts
void ChooseStand(MotionViewState& view, CameraStand stand);
// The place from which a camera that stays on the earth follows the ship: where that is now, if none is chosen for this
// case.
void ChooseEarth(MotionViewState& view, const CaseStore& store, const OutputScales& scales);

void StepAmbient(MotionViewState& view, int tenths);  // down while above 0.1, up while below 0.9
void StepOpacity(MotionViewState& view, int tenths);  // within 0.1 to 1
// Within 0.01 to 100 times the radius that fits.
void ScaleGrid(MotionViewState& view, const SeenSizes& seen, double factor);

// A quantity on a graph, with the point that was given last, and its curve in use or the first one; switches it on.
// False: the case has no such histories, or no point was given for it; nothing changes.
[[nodiscard]] bool TakeGraphQuantity(MotionGraph& graph, const CaseStore& store, const PointSettings& point, int iqnt);
// 0: all. False: there is no such curve.
[[nodiscard]] bool TakeGraphCurve(MotionGraph& graph, const CaseStore& store, int curve);
// Another point was given: graphs of the one before go along with it.
void MoveGraphPoint(MotionViewState& view, const std::array<double, 3>& before, const PointSettings& point);

// For a case other than that of the settings: what was a number and may be to fit is so again, and what the case has
// not got is switched off, which is said.
void TakeCase(const Platform& platform, MotionViewState& view, CaseStore& store);

}  // namespace zaview
