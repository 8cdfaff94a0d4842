// How many steps a second does the animation show at 800 x 600, a hull of 5000 cells in 500 waves at 61 x 41 points:
// without pictures, with a PNG file of each, and as a plain program draws the same scene, in immediate mode with the
// waves summed in double? Of a step, how long do the waves take? The pictures agree before they are timed.
#include <cmath>
#include <cstdlib>
#include <vector>

#include <GL/gl.h>
#include <benchmark/benchmark.h>

#include "animation_case.h"
#include "frame/session.h"
#include "gks/picture/picture_file.h"
#include "views/motion/motion_view.h"
#include "waves/elevation_grid.h"
#include "window_in_memory.h"

namespace {

using namespace zaview;

struct Animation {
  Session session;
  std::vector<unsigned char> rgb = std::vector<unsigned char>(static_cast<std::size_t>(kWidth * kHeight) * 3);

  Animation() {
    OpenWindowInMemory(kWidth, kHeight, session.platform, session.gks);
    session.run.script_active = true;
    session.run.plot_module = PlotModule::animation;
    session.output.units.scales.position.fill(kLength);
    MakeAnimationCase(session.case_store);
  }
  void Step() {
    int& step = session.case_store.current_step;
    step = step % kSteps + 1;
    gksBeginPicture(session.platform.window, session.gks);
    KinoRender(session);
    if (session.run.plot_module == PlotModule::none) std::abort();
  }
  const std::vector<unsigned char>& Pixels() {
    const WindowSystem& window = session.platform.window;
    if (!window.read_picture(window.self, kWidth, kHeight, rgb.data())) std::abort();
    return rgb;
  }
};

// ---- The plain program: what it draws is the same, colours included; the elevations are its own.

struct PlainProgram {
  Animation& animation;
  const MotionSceneState& scene;
  std::vector<unsigned char> rgb = std::vector<unsigned char>(static_cast<std::size_t>(kWidth * kHeight) * 3);
  std::vector<SceneVertex> sea;

  explicit PlainProgram(Animation& of) : animation(of), scene(of.session.motion_view.scene) {}

  void SumWaves() {
    const CaseStore& c = animation.session.case_store;
    const IncidentWave& w = c.wave;
    sea = scene.sea.vertices;
    const double time = static_cast<double>(c.time.at(1, c.current_step));
    for (SceneVertex& vertex : sea) {
      const double x = static_cast<double>(c.pmgg.at(1, c.current_step) + vertex.place[0] / kLength);
      const double y = static_cast<double>(vertex.place[1] / kLength);
      double eta = 0;
      for (std::size_t i = 0; i < w.size(); ++i)
        eta += static_cast<double>(w.a[i]) * std::cos(w.kx[i] * x + w.ky[i] * y - w.w[i] * time + w.p[i]);
      vertex.place[2] = static_cast<float>(eta) * kLength;
    }
  }
  static void Put(const SceneMesh& mesh, const std::vector<SceneVertex>& vertices) {
    glBegin(GL_TRIANGLES);
    for (const std::uint32_t corner : mesh.triangles) {
      const SceneVertex& v = vertices[corner];
      glColor4ubv(v.colour.data());
      glNormal3fv(v.normal.data());
      glVertex3fv(v.place.data());
    }
    glEnd();
  }
  void Begin() {
    // As a camera at azimuth 45, elevation 30 to port of the bow has it, fitted; its matrices are those of the view.
    glPushAttrib(GL_ALL_ATTRIB_BITS);
    glViewport(0, 0, kWidth, kHeight);
    glClearColor(0, 0, 0, 1);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glEnable(GL_DEPTH_TEST);
    glEnable(GL_NORMALIZE);
    glEnable(GL_LIGHTING);
    glEnable(GL_LIGHT0);
    glEnable(GL_COLOR_MATERIAL);
    glColorMaterial(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE);
    glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, 1);
    const float ambient[] = {0.3F, 0.3F, 0.3F, 1}, diffuse[] = {0.7F, 0.7F, 0.7F, 1}, none[] = {0, 0, 0, 1};
    glLightModelfv(GL_LIGHT_MODEL_AMBIENT, ambient);
    glLightfv(GL_LIGHT0, GL_DIFFUSE, diffuse);
    glLightfv(GL_LIGHT0, GL_SPECULAR, none);
    SetEye();
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
  }
  void SetEye() {
    const double r = scene.extent.reach, R = 1.1 * r / std::sin(15 * M_PI / 180), near = R / 10, g = 150;
    const double far = 10 * R + 3 * g + 2 * r, high = near * std::tan(15 * M_PI / 180), wide = high * kWidth / kHeight;
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glFrustum(-wide, wide, -high, high, near, far);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    const float at_eye[] = {0, 0, 0, 1};
    glLightfv(GL_LIGHT0, GL_POSITION, at_eye);
    glTranslated(0, 0, -R);
    glRotated(30 - 90, 1, 0, 0);
    glRotated(-90 - 45, 0, 0, 1);
  }
  void PutHull() {
    const CaseStore& c = animation.session.case_store;
    const auto angle = [&](int i) { return static_cast<double>(c.pmgg.at(i, c.current_step)) * 180 / M_PI; };
    glPushMatrix();
    glTranslated(0, 0, static_cast<double>(c.pmgg.at(3, c.current_step)) * kLength);
    glRotated(angle(6), 0, 0, 1);
    glRotated(angle(5), 0, 1, 0);
    glRotated(angle(4), 1, 0, 0);
    Put(scene.hull, scene.hull.vertices);
    glColorMask(0, 0, 0, 0);
    Put(scene.strips, scene.strips.vertices);
    glColorMask(1, 1, 1, 1);
    glPopMatrix();
  }
  void Draw() {
    const WindowSystem& window = animation.session.platform.window;
    std::string why;
    if (!window.begin_scene(window.self, 1, false, why)) std::abort();
    SumWaves();
    Begin();
    PutHull();
    glEnable(GL_CULL_FACE);
    glDepthMask(0);
    glDisable(GL_LIGHTING);  // in its colours already
    glCullFace(GL_FRONT);
    Put(scene.sea_below, sea);
    glCullFace(GL_BACK);
    Put(scene.sea, sea);
    glPopAttrib();
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, kWidth, kHeight, GL_RGB, GL_UNSIGNED_BYTE, rgb.data());
  }
};

// Pixels in which two pictures differ to the eye.
std::size_t Different(const std::vector<unsigned char>& a, const std::vector<unsigned char>& b) {
  std::size_t count = 0;
  for (std::size_t i = 0; i < a.size(); i += 3) {
    int apart = 0;
    for (std::size_t k = i; k < i + 3; ++k) apart = std::max(apart, std::abs(a[k] - b[k]));
    if (apart > 8) ++count;
  }
  return count;
}

Animation& Shared() {
  static Animation animation;
  animation.session.motion_view.show_title = animation.session.motion_view.show_time = false;
  animation.session.plot_session.run_on = true;  // not smooth
  animation.session.plot_session.run_dump = false;
  return animation;
}

void Steps(benchmark::State& state) {
  Animation& animation = Shared();
  for (auto _ : state) {
    animation.Step();
    benchmark::DoNotOptimize(animation.Pixels().data());
  }
}
BENCHMARK(Steps)->Unit(benchmark::kMillisecond)->UseRealTime();

// As pictures are stored and a view at rest is shown: with smooth edges.
void SmoothSteps(benchmark::State& state) {
  Animation& animation = Shared();
  animation.session.plot_session.run_dump = true;
  for (auto _ : state) {
    animation.Step();
    benchmark::DoNotOptimize(animation.Pixels().data());
  }
}
BENCHMARK(SmoothSteps)->Unit(benchmark::kMillisecond)->UseRealTime();

void StepsWithPng(benchmark::State& state) {
  Animation& animation = Shared();
  animation.session.plot_session.run_dump = true;
  const std::string name = "/tmp/animation_bench.png";
  for (auto _ : state) {
    animation.Step();
    if (!WritePicture(animation.session.platform, name, PictureFormat::png, kWidth, kHeight, animation.Pixels()))
      std::abort();
  }
  animation.session.platform.files.remove(animation.session.platform.files.self, name);
}
BENCHMARK(StepsWithPng)->Unit(benchmark::kMillisecond)->UseRealTime();

void WavesOfAStep(benchmark::State& state) {
  Animation& animation = Shared();
  animation.Step();
  MotionSceneState& scene = animation.session.motion_view.scene;
  double time = 1;
  for (auto _ : state) {
    if (ElevationGrid(animation.session.case_store.wave, {time += 0.05, 1}, scene.wave_x, scene.wave_y, scene.eta) !=
        WaveFault::none)
      std::abort();
    benchmark::DoNotOptimize(scene.eta.data());
  }
}
BENCHMARK(WavesOfAStep)->Unit(benchmark::kMillisecond)->UseRealTime();

void PlainSteps(benchmark::State& state) {
  Animation& animation = Shared();
  animation.Step();
  PlainProgram plain(animation);
  plain.Draw();
  if (Different(plain.rgb, animation.Pixels()) > kWidth * kHeight / 500) return state.SkipWithError("pictures differ");
  for (auto _ : state) {
    plain.Draw();
    benchmark::DoNotOptimize(plain.rgb.data());
  }
}
BENCHMARK(PlainSteps)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
