#include "analysis/righting_arms/righting_arms.h"

#include "analysis/righting_arms/righting_arms_plot.h"
#include "bodies.h"
#include "case/output_scales.h"

namespace zaview {
namespace {

// The barge at three steps, at the last one in the air; calm.
CaseStore BargeCase() {
  CaseStore store;
  store.has_case = true;
  store.hull = ReadHull({HalfBargeText(4, 2)});
  store.hull_tried = Tried::there;
  store.ships = {{0.012, {}, {0, 0, 0.065}}};
  store.control.LENIN = 100;
  store.control.PMGIN[2] = 0.5;
  store.last_read = store.last_step = 3;
  store.time.component = {{0, 1, 2}};
  store.pmgg.component.assign(6, std::vector<float>(3, 0.0F));
  store.pmgg.component[2] = {0.005F, 0.005F, 0.2F};
  store.pmgg.component[3] = {0.0F, 0.1F, 0.0F};
  return store;
}

struct ArmRun {
  FakePlatform fake;
  CaseStore store = BargeCase();
  OutputSettings settings;
  RightingArmRequest request;
  RightingArmOutputs outputs;
  RightingArms result;

  ArmRun() {
    settings.units.LENOUT = 100;
    set_output_scales(settings.units, false);
    fake.Put("/curves", "old");
    fake.Put("/stats", "old");
    request.steps = {0, 0, 1};
    request.max_angle = 90;
    request.nangle = 9;
  }
  bool Do() {
    const Platform platform = fake.Get();
    return CheckRightingArms(platform.console, store, request) &&
           OpenRightingArmFiles(platform, static_cast<ArmDirection>(request.direction), "/curves", "/stats", outputs) &&
           GZCurves(platform, settings, request, store, outputs, result) == ArmsAnswer::ok;
  }
};

TEST(RightingArmRun, StepsThatFailLeaveNothing) {
  ArmRun run;
  EXPECT_TRUE(run.Do());
  EXPECT_EQ(run.result.steps.size(), 2U);
  EXPECT_EQ(run.fake.output,
            "ERROR - computed buoyancy force is zero or negative\n"
            "Fatal error calculating GZ curve\n"
            "GZ curves written to: /curves\nGZ curve stats written to: /stats\n");
  const std::string curves = run.fake.Bytes("/curves"), stats = run.fake.Bytes("/stats");
  EXPECT_EQ(std::count(curves.begin(), curves.end(), '\n'), 1 + 2 * 21 + 1);
  EXPECT_EQ(std::count(stats.begin(), stats.end(), '\n'), 4);
  const ResultPlot plot = RightingArmsPlot(run.result);
  ASSERT_EQ(plot.panels.size(), 1U);
  EXPECT_EQ(plot.panels[0].curves.size(), 2U);
  EXPECT_EQ(plot.panels[0].curves[0].x.front(), -90.0F);
  EXPECT_EQ(plot.panels[0].curves[0].x.size(), 19U);
  ASSERT_EQ(plot.panels[0].bands.size(), 1U);
  EXPECT_NEAR(plot.panels[0].bands[0].first, -65.1, 0.3) << "of the upright ship, the other one is stable to -70.8";
  EXPECT_NEAR(plot.panels[0].bands[0].second, 65.1 - 5.73, 0.3) << "of the heeled one";
}

TEST(RightingArmRun, FilesAreWholeOrAsTheyWere) {
  const struct {
    const char* what;
    void (*spoil)(ArmRun& run);
    const char* says;
  } cases[] = {
      {"disk full", [](ArmRun& run) { run.fake.room = 300; }, "ERROR writing output file: /curves\n"},
      {"no waterlines", [](ArmRun& run) { run.fake.Put("/stats.wl", "", 0), run.fake.refused = {"/stats.wl"}; },
       "ERRGZSTAB02 - ERROR opening GZ waterline output file: /stats.wl"},
      {"balance", [](ArmRun& run) { run.request.balance = 5; }, "Illegal balancing option\n"},
      {"wave", [](ArmRun& run) { run.request.wave_option = -1; }, "Illegal incident wave interpolation option\n"},
      {"steps",
       [](ArmRun& run) {
         run.request.steps = {1, 4, 1};
       },
       "Illegal time step range\n"},
      {"direction", [](ArmRun& run) { run.request.direction = 3; }, "Illegal direction option\n"},
      {"trim", [](ArmRun& run) { run.request.direction = 2, run.request.max_angle = 0; },
       "Illegal trim angle max/number\n"},
      {"no step",
       [](ArmRun& run) {
         run.request.steps = {3, 3, 1};
       },
       "Fatal error calculating GZ curve\n"},
      {"panels", [](ArmRun& run) { run.store.hull.mesh.elements.resize(MAXFEG + 1); },
       "ERR??? : Unsymmetric hydrostatics cannot be computed as MAXFEG is too small\n"},
  };
  for (const auto& c : cases) {
    ArmRun run;
    c.spoil(run);
    EXPECT_FALSE(run.Do()) << c.what;
    EXPECT_NE(run.fake.output.find(c.says), std::string::npos) << c.what << '\n' << run.fake.output;
    EXPECT_EQ(run.fake.Bytes("/curves"), "old") << c.what;
    EXPECT_EQ(run.fake.Bytes("/stats"), "old") << c.what;
    EXPECT_EQ(run.fake.files.contains("/stats.gm"), false) << c.what;
    EXPECT_EQ(run.fake.OpenHandles(), 0U) << c.what;
  }
}

}  // namespace
}  // namespace zaview
