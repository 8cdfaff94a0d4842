#include "case/read/kino_input.h"

#include <cmath>
#include <numbers>

#include <gtest/gtest.h>

#include "case/plot_data.h"
#include "case/quantity_catalogue.h"
#include "case/read/read_output_file.h"
#include "fake_platform.h"
#include "waves/wave_scale.h"

namespace zaview {
namespace {

constexpr double kDegree = std::numbers::pi / 180;

struct Session {
  FakePlatform fake;
  Platform platform = fake.Get();
  RunState run;
  OutputSettings settings;
  CaseStore store;
  EnsembleStore ensemble;

  Session() {
    run.skip_prompt = SkipPrompt::silent;
    fake.Put("tow.mot", "!a tow\n100\n2 10 20 30 0 0 90\n2.5 11 20 30 90 0 0\n4 12 20 30 0 0 0\n");
    fake.Put("wave.sea",
             "1\nregular\n1\n0.5 30 2 180\n\nRead this file with the -sea option and water depth set via:\n"
             "-depth 20\nTo duplicate wave scaling, use the KINO option:\n -wave_scale 2 0.5 3.5 1\n");
    fake.Put("same.mot", "!c\n100\n0 6*1\n0 6*1\n");
  }
  KinoInput Read(const KinoFiles& files) {
    const KinoInput input = ReadKinoFiles(platform, files, run, settings, store, ensemble);
    EXPECT_EQ(fake.OpenHandles(), 0U);
    return input;
  }
};

// Position + R (centre - reference), over the length of the file; times over sqrt(L/g); degrees to radians.
TEST(KinoInput, CaseOfThreeFiles) {
  Session s;
  s.settings.units.GRAVOUT = 32.0F;
  s.settings.units.ANGOUT = 1.0F;  // of the run before
  s.settings.units.user_scale[0] = true;
  ASSERT_EQ(s.Read({"tow", "wave", "", 9.0, 1000.0, {1.0, 2.0, 3.0}, {1.0, 2.0, 5.0}}), KinoInput::ok);
  const CaseStore& c = s.store;
  const double T = std::sqrt(100.0 / 9.0);
  const double expected[3][4] = {{2.0 / T, 0.1, 0.2, 0.32},   // a yaw leaves the offset along Z where it is
                                 {2.5 / T, 0.11, 0.18, 0.3},  // rolled by 90 degrees: Z of the ship is -Y
                                 {4.0 / T, 0.12, 0.2, 0.32}};
  for (int step = 1; step <= 3; ++step) {
    EXPECT_FLOAT_EQ(c.time.at(1, step), static_cast<float>(expected[step - 1][0]));
    for (int i = 1; i <= 3; ++i) EXPECT_NEAR(c.pmgg.at(i, step), expected[step - 1][i], 1e-7);
  }
  EXPECT_FLOAT_EQ(c.pmgg.at(6, 1), static_cast<float>(90 * kDegree));
  EXPECT_EQ(c.control.DTH, 1.0);  // the mean step
  EXPECT_EQ(c.control.TINIT, 2.0);
  EXPECT_EQ(c.file_name, "KINO file tow.mot");
  EXPECT_EQ(c.base_name, "tow");
  EXPECT_NEAR(c.ships.at(0).centre[2], 0.05, 1e-12);
  ASSERT_EQ(c.seaway.waves.size(), 1U);
  EXPECT_NEAR(c.seaway.waves.FREQW[0], 0.5 * T, 1e-6);
  EXPECT_NEAR(c.control.seaway.waves.at(0).FREQW, 0.5, 1e-7);
  EXPECT_NEAR(c.control.seaway.waves.at(0).AMPW0, 2.0, 1e-6);
  EXPECT_EQ(c.control.WDEPTH, 20.0);
  for (const auto& [t, factor] : {std::pair{1.0, 0.5}, {2.0, 0.5}, {2.75, 0.75}, {9.0, 1.0}})
    EXPECT_NEAR(WaveScaleAtTime(c.seaway.scaling, t / T).scale, factor, 1e-6) << t;
  EXPECT_NEAR(WaveScaleAtStep(c.seaway.scaling, 1).scale, 0.5, 1e-12);
  EXPECT_NEAR(c.wave.k.at(0) * std::tanh(c.wave.k.at(0) * 0.2), 0.25 * 100 / 9, 1e-6);  // w^2 = k tanh(k h)
  EXPECT_EQ(s.settings.units.ANGOUT, 57.29578F);
  EXPECT_EQ(s.settings.units.GRAVOUT, 9.0F);
  EXPECT_EQ(s.settings.units.RHOOUT, 1000.0F);
  EXPECT_EQ(s.settings.units.LENOUT, 100.0F);
  EXPECT_EQ(s.ensemble.nrec, 1);
  for (int iqnt = 1; iqnt <= kQuantities; ++iqnt) {
    const bool there = iqnt == 1 || iqnt == 4 || (iqnt >= 25 && iqnt <= 27) || iqnt == 30 || iqnt == 34 || iqnt == 35;
    EXPECT_EQ(QuantityValid(c, iqnt), there) << iqnt;
  }
}

// The input coordinates of a point are those of the geometry; their CG is where the case has it.
TEST(KinoInput, PointOfTheHull) {
  Session s;
  ASSERT_EQ(s.Read({"tow.mot", "", "", 9.81, 1025.0, {1.0, 2.0, 3.0}, {1.0, 2.0, 5.0}}), KinoInput::ok);
  QuantityRequest request;
  request.iqnt = 27;
  request.point = {1.0, 2.0, 3.0};  // the reference point: its motions are the file's own
  PlotData data;
  ASSERT_EQ(SetPlotData(s.platform.console, s.settings, request, s.store, data), PlotFault::none);
  const float expected[3][3] = {{10, 11, 12}, {20, 20, 20}, {30, 30, 30}};
  for (std::size_t k = 0; k < 3; ++k)
    for (std::size_t j = 0; j < 3; ++j) EXPECT_NEAR(data.y[k][j], expected[k][j], 1e-5);
}

TEST(KinoInput, FaultsLeaveTheCase) {
  const struct {
    KinoFiles files;
    std::string_view words;
  } cases[] = {
      {{"none", "", "", 9.81, 1025}, "ERROR opening KINO motions file none\n"},
      {{"same", "", "", 9.81, 1025},
       "ERROR - time values in specified motion data file not increasing.\n"
       "        File may be of incorrect format.\n"},
      {{"tow", "none", "", 9.81, 1025}, "ERROR opening Seaway file: none\n"},
      {{"tow", "", "none.geo", 9.81, 1025}, "ERROR opening geometry file: none.geo\n"},
      {{"tow", "", "HRL:gone", 9.81, 1025}, "Format qualifier >HRL< name >gone\nERROR opening geometry file: gone\n"},
      {{"tow", "", "IGES:a:b", 9.81, 1025},
       "Format qualifier >IGES< name >a:b\n"
       "ERROR - unrecognzied format qualifier (IGES) for geometry input file\n"},
      {{"tow", "", "", 0, -1},
       "ERROR - illegal value specified for gravitational constant: 0\n"
       "ERROR - illegal value specified for water density : -1\n"},
  };
  for (const auto& c : cases) {
    Session s;
    s.store.file_name = "held";
    s.settings.units.LENOUT = 7;
    EXPECT_EQ(s.Read(c.files), KinoInput::abandoned);
    EXPECT_TRUE(s.fake.output.size() >= c.words.size() &&
                s.fake.output.substr(s.fake.output.size() - c.words.size()) == c.words)
        << s.fake.output;
    EXPECT_EQ(s.store.file_name, "held");
    EXPECT_EQ(s.settings.units.LENOUT, 7.0F);
  }
}

constexpr std::string_view kAnswers[] = {"KINO", "",   "tow",  "wave", "no",  "0",
                                         "9.81", "-1", "1025", "NONE", "1 2", "0 0 5"};

// Given up at any answer, by QUIT or the end of input, the file prompt is asked again and nothing has changed.
TEST(KinoInput, GivenUpAnywhere) {
  for (std::size_t n = 1; n <= std::size(kAnswers); ++n) {
    for (const bool quit : {true, false}) {
      Session s;
      s.store.has_case = true;
      s.store.file_name = "held";
      for (std::size_t i = 0; i < n; ++i) s.fake.input.emplace_back(kAnswers[i]);
      const bool complete = n == std::size(kAnswers);
      if (quit && !complete) s.fake.input.insert(s.fake.input.end(), {"QUIT", "QUIT"});
      const ReadOutcome outcome = read_output_file({}, s.platform, s.run, s.settings, s.store, s.ensemble);
      EXPECT_EQ(outcome, complete ? ReadOutcome::ok : ReadOutcome::aborted) << n;
      EXPECT_EQ(s.store.file_name, complete ? "KINO file tow.mot" : "held") << n;
      EXPECT_TRUE(s.fake.input.empty());
      EXPECT_EQ(s.fake.OpenHandles(), 0U);
      EXPECT_FALSE(s.run.exit_requested);
    }
  }
}

// The gravity comes behind the seaway file; its frequencies wait for it. Without geometry the point is the CG.
TEST(KinoInput, SeawayTakesTheGravityAskedFor) {
  Session s;
  for (const std::string_view answer : {"tow", "wave", "2.5", "1025", "NONE", "0 0 5"})
    s.fake.input.emplace_back(answer);
  ASSERT_EQ(AskForKinoFiles(s.platform, s.run, s.settings, s.store, s.ensemble), KinoInput::ok);
  EXPECT_EQ(s.store.seaway.waves.FREQW[0], static_cast<float>(0.5 * std::sqrt(100 / 2.5)));
  EXPECT_FLOAT_EQ(s.store.pmgg.at(3, 1), 0.3F);
  EXPECT_EQ(s.store.ships[0].centre[2], 0.05);
  const std::size_t once = s.fake.output.find("Reading KINO seaway file");
  EXPECT_EQ(s.fake.output.find("Reading KINO seaway file", once + 1), std::string::npos);
}

}  // namespace
}  // namespace zaview
