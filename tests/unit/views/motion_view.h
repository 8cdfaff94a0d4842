// The motion animation in a window without a display: a ship and a sea as a test says, or a case that was read.
#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "frame/session.h"
#include "gks/scene/camera.h"
#include "unit/gks/drawing.h"
#include "unit/views/plot_view.h"
#include "views/motion/motion_view.h"
#include "waves/incident_wave.h"

namespace zaview {

struct WaveOfTest {
  double frequency, heading, amplitude, phase;  // rad/s, degrees, m, degrees
};

struct MotionView : Picture {
  static constexpr double kLength = 100, kGravity = 9.81;  // reference length, output length; m

  FakePlatform fake;  // its output is what was said since the case was read
  OffscreenWindows* windows = MakeOffscreenWindows();
  Session session;

  explicit MotionView(int width = 800, int height = 600) {
    session.platform = fake.Get();
    OpenWindow(windows, session.platform, session.gks, width, height);
    session.run.plot_module = PlotModule::animation;
    session.run.script_active = true;
    view().show_title = view().show_time = false;
  }
  MotionView(const MotionView&) = delete;
  MotionView& operator=(const MotionView&) = delete;
  ~MotionView() { FreeOffscreenWindows(windows); }

  MotionViewState& view() { return session.motion_view; }
  CaseStore& store() { return session.case_store; }

  void Read(const std::string& sample) { ReadSample(session, fake, sample); }

  // A case of `steps` steps of a second, without hull and sea, the ship where the axes begin.
  void MakeCase(int steps = 1) {
    CaseStore& c = store();
    c = CaseStore{};
    c.serial = 77;
    c.has_case = true;
    c.first_read = c.first_step = c.current_step = 1;
    c.last_read = c.last_step = steps;
    const auto make = [steps](StepHistory& history, std::size_t components) {
      history.component.assign(components, std::vector<float>(static_cast<std::size_t>(steps), 0.0F));
    };
    make(c.time, 1);
    for (StepHistory* history : {&c.pmgg, &c.vmg, &c.acc}) make(*history, 6);
    make(c.rudder_ang, 1);
    for (int i = 1; i <= steps; ++i) SetTime(i, i - 1);
    c.hull_tried = c.seaway_tried = Tried::failed;
    session.output.units.scales.T = static_cast<float>(TimeScale());
    session.output.units.scales.position = {kLength, kLength, kLength, 57.29578F, 57.29578F, 57.29578F};
  }
  static double TimeScale() { return std::sqrt(kLength / kGravity); }
  void SetTime(int step, double seconds) {
    store().time.component[0][static_cast<std::size_t>(step - 1)] = static_cast<float>(seconds / TimeScale());
  }
  void SetPose(int step, const Vector3& cg, const Vector3& roll_pitch_yaw_deg) {
    for (std::size_t i = 0; i < 3; ++i) {
      const auto at = static_cast<std::size_t>(step - 1);
      store().pmgg.component[i][at] = static_cast<float>(cg[i] / kLength);
      store().pmgg.component[i + 3][at] = static_cast<float>(roll_pitch_yaw_deg[i] * std::numbers::pi / 180.0);
    }
  }

  // A box between two corners, m from the CG; its lid may be missing.
  void AddBox(const Vector3& low, const Vector3& high, bool with_lid = true) {
    HullMesh& mesh = store().hull.mesh;
    mesh = HullMesh{};
    for (const double z : {low[2], high[2]})
      for (const auto& [x, y] : {std::pair{low[0], low[1]}, {high[0], low[1]}, {high[0], high[1]}, {low[0], high[1]}})
        mesh.nodes.push_back({x / kLength, y / kLength, z / kLength});
    mesh.elements = {
        {{4, 3, 2, 1}}, {{1, 2, 6, 5}}, {{2, 3, 7, 6}}, {{3, 4, 8, 7}}, {{4, 1, 5, 8}}};  // seen from outside
    if (with_lid) mesh.elements.push_back({{5, 6, 7, 8}});
    store().hull_tried = Tried::there;
    ++store().serial;
  }
  void AddSea(const std::vector<WaveOfTest>& waves) {  // on deep water
    Seaway& sea = store().seaway;
    sea = Seaway{};
    sea.ISEA = 1;
    for (const WaveOfTest& w : waves) {
      sea.waves.FREQW.push_back(static_cast<float>(w.frequency * TimeScale()));
      sea.waves.HEADW.push_back(static_cast<float>(w.heading));
      sea.waves.AMPW0.push_back(static_cast<float>(w.amplitude / kLength));
      sea.waves.PHASEW.push_back(static_cast<float>(w.phase));
    }
    EXPECT_TRUE(PrepareIncidentWave(sea, store().wave));
    store().seaway_tried = Tried::there;
  }
  // a cos(k (x cos b + y sin b) - w t + p) of these, k = w^2/g, at a global place; m, s.
  static double Elevation(const std::vector<WaveOfTest>& waves, double x, double y, double t) {
    constexpr double kDegree = std::numbers::pi / 180.0;
    double eta = 0;
    for (const WaveOfTest& w : waves) {
      const double k = w.frequency * w.frequency / kGravity, b = w.heading * kDegree;
      eta += w.amplitude * std::cos(k * (x * std::cos(b) + y * std::sin(b)) - w.frequency * t + w.phase * kDegree);
    }
    return eta;
  }

  [[nodiscard]] unsigned Ink(int index) const {  // 0: the paper, 1: the foreground
    return session.gks.colour[static_cast<std::size_t>(index)].red > 0.5F ? 0xFFFFFF : 0;
  }
  // As a display of the frame does it. The picture is in rgb unless the view was left.
  void Show() {
    gksBeginPicture(session.platform.window, session.gks);
    KinoRender(session);
    if (session.run.plot_module != PlotModule::none) Picture::Read(session.platform, session.gks);
  }
};

}  // namespace zaview
