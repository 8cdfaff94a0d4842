#include "case/read/kino_input.h"

#include <cmath>
#include <limits>
#include <numbers>

#include <gtest/gtest.h>

#include "case/kino_motions.h"
#include "case/plot_data.h"
#include "case/quantity_catalogue.h"
#include "case/read/read_output_file.h"
#include "case/tables/kino_output.h"
#include "fake_platform.h"
#include "small_case.h"
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
  ASSERT_EQ(SetPlotData(s.platform.console, s.settings, request, s.store, data), DataFault::none);
  const float expected[3][3] = {{10, 11, 12}, {20, 20, 20}, {30, 30, 30}};
  for (std::size_t k = 0; k < 3; ++k)
    for (std::size_t j = 0; j < 3; ++j) EXPECT_NEAR(data.y[k][j], expected[k][j], 1e-5);
}

TEST(KinoInput, FaultsLeaveTheCase) {
  // clang-format off
  const struct { KinoFiles files; std::string_view words; } cases[] = {
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
  // clang-format on
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

// Whoever took it away while the question stood: what is said is what the second reading found.
TEST(KinoInput, SeawayIsGoneWhenItsGravityIsKnown) {
  Session s;
  for (const std::string_view answer : {"tow", "wave", "2.5", "1025", "NONE"}) s.fake.input.emplace_back(answer);
  s.platform.console.read_line = [](void* self, std::string& line) {
    FakePlatform& fake = *static_cast<FakePlatform*>(self);
    line = fake.input.front();
    fake.input.pop_front();
    if (line == "1025") fake.files.erase(fake.Target("wave.sea"));
    return true;
  };
  EXPECT_EQ(AskForKinoFiles(s.platform, s.run, s.settings, s.store, s.ensemble), KinoInput::abandoned);
  EXPECT_TRUE(s.fake.output.ends_with("ERROR opening Seaway file: wave\n")) << s.fake.output;
  EXPECT_EQ(s.fake.input.size(), 1U);
}

MotionsFault Read(std::string text, KinoMotions& motions) {
  FakePlatform fake;
  fake.Put("a.mot", std::move(text));
  const Platform platform = fake.Get();
  const FileHandle file = platform.files.open_read(platform.files.self, "a.mot");
  return ReadKinoMotions(platform.files, file, motions);
}

TEST(KinoMotions, Read) {
  using enum MotionsFault;
  const std::string head = "!tow\n100\n";
  const std::string two = "0 1 2 3 4 5 6\n0.5 2 2 3 4 5 6\n";
  const struct {
    std::string text;
    MotionsFault fault;
    std::size_t steps;
    double last_yaw;
    double length = 100;
  } cases[] = {
      {head + two, none, 2, 6},
      {head + "0 1 2 3 4 5 6", none, 1, 6},            // no line end
      {head + two + "\n1 1 2 3 4 5 7\n", none, 2, 6},  // a blank line ends
      {head + two + "1 1 2 3 4 5\n", none, 2, 6},      // cut in a step
      {head + two + "1 1 2 3\n\n4 5 6\n", none, 2, 6},
      {head + two + "1 1 2 **** 4 5 6\n2 1 2 3 4 5 6\n", none, 2, 6},
      {head + "0,1,2\n3 4\n5 6D-1 drop 9\n1 6*0.25\n", none, 2, 0.25},  // over lines; repeats
      {head + "0 1 2 3 4 5 6\r\n1 /\r\n", none, 2, 0},                  // nulls are 0
      {"\n\n 50 m\n" + two, none, 2, 6, 50},
      {"c\n0\n" + two, none, 2, 6, 1},
      {"c\n-100\n" + two, none, 2, 6, 1},
      {"c\nNaN\n" + two, none, 2, 6, 1},
      {"c\nInf\n" + two, none, 2, 6, 1},
      {"", no_steps, 0, 0, 1},
      {"c\n", no_steps, 0, 0, 1},
      {"c\nlength\n" + two, no_steps, 0, 0, 1},
      {head, no_steps, 0, 0},
      {head + "\n" + two, no_steps, 0, 0},  // blank ahead of them
      {head + two + "0.5 2 2 3 4 5 6\n", not_increasing, 2, 6},
      {head + two + "0.4 2 2 3 4 5 6\n", not_increasing, 2, 6},
      {head + two + "0.50000001 2 2 3 4 5 6\n", not_increasing, 2, 6},  // the same in 4 bytes
      {head + "NaN 2 2 3 4 5 6\n", not_increasing, 0, 0},
      {head + two + "Inf 2 2 3 4 5 6\n", not_increasing, 2, 6},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    KinoMotions motions;
    EXPECT_EQ(Read(c.text, motions), c.fault);
    ASSERT_EQ(motions.steps(), c.steps);
    EXPECT_EQ(motions.length, c.length);
    EXPECT_EQ(c.steps > 0 ? motions.column[6].back() : 0, c.last_yaw);
  }
  KinoMotions motions;
  EXPECT_EQ(Read(std::string(100, 'c') + "\n1\n" + two, motions), none);
  EXPECT_EQ(motions.comment, std::string(80, 'c'));
}

// Nine digits bring back any 4-byte value, also the neighbours of powers of 2 and 10 and the smallest ones.
TEST(KinoMotions, WrittenValuesReadBack) {
  std::string text = "c\n1\n";
  std::vector<float> values;
  float time = 0;
  for (float x = 1e-38F; x < 1e38F; x *= 3.7F) values.insert(values.end(), {x, -std::nextafter(x, 0.0F)});
  for (float x = 1e-10F; x < 1e10F; x *= 2) values.push_back(std::nextafter(x, 1e30F));
  values.insert(values.end(),
                {0.0F, -0.0F, std::numeric_limits<float>::max(), std::numeric_limits<float>::denorm_min()});
  for (const float value : values) {
    const double v = value;
    AppendKinoStep(text, {time, v, v, v, v, v, v});
    time += 1;
  }
  KinoMotions motions;
  ASSERT_EQ(Read(text, motions), MotionsFault::none);
  ASSERT_EQ(motions.steps(), values.size());
  for (std::size_t i = 0; i < values.size(); ++i) EXPECT_EQ(static_cast<float>(motions.column[3][i]), values[i]);
}

// Two steps 0.0783 sqrt(L/g) apart at a new LENOUT, under MODEL signs: the file keeps the signs of the program's own
// axes and degrees. numpy: x = (0.1 + 0.05 i + 0.01 s) 50 or 180/pi in double from the 4-byte values.
TEST(KinoFiles, Motions) {
  FakePlatform fake;
  const Platform platform = fake.Get();
  CaseStore c = SmallCase(1, 3);
  OutputSettings settings = SettingsFor(c);
  settings.units.LENOUT = 50.0F;
  settings.reading.step_stride = 2;
  set_output_scales(settings.units, false);
  settings.units.cnvfac = {1, -1, -1, 1, -1, -1};
  ASSERT_EQ(write_kino_files(platform, "", settings, c), KinoSet::ok);
  EXPECT_EQ(fake.Bytes(".mot"),
            "!KINO motion data from ZAVO output file run.out\n"
            "50\n"
            "0.176771504 7.99999982 10.4999997 12.9999995 17.7616918 20.6264814 23.4912694\n"
            "0.530314511 9.00000036 11.5000002 14.0000001 18.907608 21.7723959 24.6371856\n");
}

TEST(KinoFiles, ViewerCommands) {
  const struct {
    std::string geometry, option;
    double ANGIN = 57.29578;
  } cases[] = {{"hull.geo", "-zavo hull.geo\n"},
               {"hull.geo", "-zavo hull.geo\n", 1},
               {"SHAPE:hull.geo", "-zavo hull.geo\n"},
               {"nastran:hull.nas", "-nastran hull.nas\n"},
               {"HARLEND:a b.hrl", "-hrl a b.hrl\n"},
               {"hrl:hull.hrl", "-hrl hull.hrl\n"},
               {" none ", ""},
               {"", ""}};
  for (const auto& row : cases) {
    FakePlatform fake;
    CaseStore c = SmallCase(1, 2);
    c.control.FGEOM = row.geometry;
    c.control.SYMINP = 1;
    c.control.ANGIN = row.ANGIN;
    c.control.GROT = {0.0, 0.0, row.ANGIN};  // one radian
    c.control.GRAVOUT = 32.174;
    c.seaway_tried = Tried::there;
    c.seaway.WDEPTH = 0.5;
    c.seaway.scaling.WSCSTP = {1, 41};
    c.seaway.scaling.WSCFAC = {0, 1};
    c.seaway.scaling.DTH = 0.25;
    OutputSettings settings = SettingsFor(c);
    settings.units.LENOUT = 328.0F;
    set_output_scales(settings.units, false);
    ASSERT_EQ(write_kino_files(fake.Get(), " tow ", settings, c), KinoSet::ok);
    // The CG lies at (1, 0, -1.25) in ship axes; the points are turned to it. Step 41: 10 sqrt(328/32.174).
    const std::string hull = row.option.empty() ? ""
                                                : "-mirror_lf\n-gshift -1 0 1.25\n-gorig  0 0 6.25\n"
                                                  "-grot   0 0 57.29578\n-lf_scale 3.28\n";
    EXPECT_EQ(fake.Bytes("tow.kno0"), "!KINO command file for data from ZAVO output file run.out\n" + row.option +
                                          hull +
                                          "-sea tow.sea\n-grav 32.174\n-depth 164\n-wave_scale 0 0 31.92893 1\n");
  }
}

TEST(KinoFiles, Refused) {
  const struct {
    bool tadm, irf;
    std::string refused;  // a file that can't be opened
    KinoSet set;
    std::string_view words;
  } cases[] = {
      {true, false, "", KinoSet::refused, "ERROR - KINO output not relevant for impulsive motion\n"},
      {false, true, "", KinoSet::refused, "ERROR - KINO output not relevant for IRF calculation\n"},
      {false, false, "tow.mot", KinoSet::failed, "ERROR opening KINO motion data file tow.mot (Is a directory)\n"},
      {false, false, "tow.sea", KinoSet::failed, "ERROR opening KINO seaway data file tow.sea (Is a directory)\n"},
      {false, false, "tow.kno0", KinoSet::failed, "ERROR opening KINO command file tow.kno0 (Is a directory)\n"},
  };
  for (const auto& row : cases) {
    FakePlatform fake;
    if (!row.refused.empty()) fake.directories.insert(row.refused);
    CaseStore c = SmallCase(1, 2);
    c.tadm_case = row.tadm;
    c.irf_case = row.irf;
    EXPECT_EQ(write_kino_files(fake.Get(), "tow", SettingsFor(c), c), row.set);
    EXPECT_NE(fake.output.find(row.words), std::string::npos) << fake.output;
    EXPECT_EQ(fake.OpenHandles(), 0U);
  }
}

}  // namespace
}  // namespace zaview
