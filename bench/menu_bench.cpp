// What do open menus cost a running animation, at 800 x 600, a hull of 5000 cells in 500 waves: none, the time-step
// menu that follows it, and the options menu beside it? At most a tenth of its steps is to be lost. The run ends at the
// same step before it is timed.
#include <cstdlib>
#include <string>

#include <benchmark/benchmark.h>

#include "animation_case.h"
#include "base/platform_posix.h"
#include "frame/session.h"
#include "gks/window/gks_window.h"
#include "gks/window/window_offscreen.h"
#include "views/frame/plot_session.h"
#include "views/menus/menus.h"
#include "views/motion/motion_view.h"
#include "views/state/step_run.h"

namespace {

using namespace zaview;

struct Watched {
  OffscreenWindows* windows = MakeOffscreenWindows();
  Session session;

  Watched() {
    setenv("LIBGL_ALWAYS_SOFTWARE", "1", 1);
    Session& s = session;
    s.platform = PosixPlatform();
    s.platform.window = OffscreenWindowSystem(windows);
    s.platform.window.offscreen = false;  // somebody looks at it
    s.platform.choose_window = [](const Platform& platform) { return platform.window; };
    s.run.script_active = true;
    s.run.plot_module = PlotModule::animation;
    s.output.units.scales.position.fill(kLength);
    MakeAnimationCase(s.case_store);
    SetHooks(s);
    KinoPlotInit(s);
    glResizeWindow(s.platform, s.gks, kWidth, kHeight);
    if (!gksReady(s.platform, s.gks)) std::abort();
    gksTop(s.platform, s.gks, "animation");
  }
  void Loop() { session.platform.window.main_loop(session.platform.window.self); }
  void RunThrough() {
    GoToStep(session, 1);
    if (!ToggleRun(session)) std::abort();
    Loop();
    if (session.case_store.current_step != kSteps) std::abort();
  }
};

// Menus: 0, the time-step menu, the options menu too.
void Run(benchmark::State& state) {
  static Watched watched;
  Session& s = watched.session;
  InvokeTimeStepMenu(s, state.range(0) > 0 ? MenuMode::open : MenuMode::close);
  InvokeOptionsMenu(s, state.range(0) > 1 ? MenuMode::open : MenuMode::close);
  watched.Loop();
  if ((s.menus.m_tsmenu != 0) != (state.range(0) > 0)) std::abort();
  for (auto _ : state) watched.RunThrough();
  state.counters["steps"] =
      benchmark::Counter(static_cast<double>(state.iterations()) * (kSteps - 1), benchmark::Counter::kIsRate);
}
BENCHMARK(Run)->DenseRange(0, 2)->Unit(benchmark::kMillisecond)->UseRealTime();

// Of the time-step menu once, built anew and drawn.
void Refresh(benchmark::State& state) {
  static Watched watched;
  Session& s = watched.session;
  InvokeTimeStepMenu(s, MenuMode::open);
  watched.Loop();
  for (auto _ : state) {
    GoToStep(s, s.case_store.current_step % kSteps + 1);
    InvokeTimeStepMenu(s, MenuMode::rebuild);
    watched.Loop();
  }
}
BENCHMARK(Refresh)->Unit(benchmark::kMicrosecond)->UseRealTime();

}  // namespace
