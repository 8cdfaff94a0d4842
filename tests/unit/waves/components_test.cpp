#include "waves/components.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fake_platform.h"
#include "waves/headings.h"
#include "waves/phases.h"
#include "waves/spectra.h"
#include "waves/wave_scale.h"

namespace zaview {
namespace {

constexpr double kGravity = 9.81;

SeawayInput Jonswap() {
  SeawayInput sea;
  sea.ISEA = 8, sea.SIGWHT = 4, sea.TOMODAL = 9.5, sea.PEAKPRM = 3.3, sea.SEAHD = 180, sea.NFREQ = 10;
  sea.NHEAD = sea.IWVRLZ = 1;
  return sea;
}

SeawayInput OfKind(int ISEA, double H, double T) {
  SeawayInput sea = Jonswap();
  sea.ISEA = ISEA, sea.SIGWHT = H, sea.TMODAL = T;
  return sea;
}

SeawayInput Ochi(double H1, double T1, double L1, double H2, double T2, double L2) {
  SeawayInput sea = OfKind(7, 0, 0);
  sea.SIGWHT1 = H1, sea.TMODAL1 = T1, sea.SHAPE1 = L1;
  sea.SIGWHT2 = H2, sea.TMODAL2 = T2, sea.SHAPE2 = L2;
  return sea;
}

double Area(const Spectrum& s) {
  constexpr double kStep = 0.0005;
  double sum = 0;
  for (double w = kStep; w < 40; w += kStep) sum += SpectrumAt(s, w) * kStep;
  return sum;
}

// Areas of H^2/16 times what the constants of each kind leave of it.
TEST(Spectra, AreasAndPeaks) {
  // clang-format off
  const struct { const char* what; SeawayInput sea; double height, share, w0; } rows[] = {
      {"Bretschneider", OfKind(2, 4, 9.5), 4, 0.9978, 0.6613879},
      {"by height alone", OfKind(2, 4, 0), 4, 0.9978, std::sqrt(9.81 * 0.36003873 / (4 * 2.236068))},
      {"JONSWAP", Jonswap(), 4, 1.0, 0.6613879},
      {"Ochi", Ochi(4, 9.5, 2, 0, 0, 0), 4, 1.0, 0.6613879},
      {"Ochi, modes swapped", Ochi(3, 5, 2, 4, 12, 1.5), 5, 1.0, 2 * std::numbers::pi / 12}};
  // clang-format on
  for (const auto& row : rows) {
    Spectrum s;
    ASSERT_TRUE(MakeSpectrum(row.sea, kGravity, s)) << row.what;
    EXPECT_NEAR(s.w0[0], row.w0, 2e-6) << row.what;
    EXPECT_NEAR(Area(s) / (row.height * row.height / 16), row.share, 0.002) << row.what;
  }
  Spectrum s;
  EXPECT_FALSE(MakeSpectrum(OfKind(2, 0, 9.5), kGravity, s));
  EXPECT_FALSE(MakeSpectrum(Ochi(4, 9.5, 0, 0, 0, 0), kGravity, s));
}

TEST(Spectra, RangeAndSpacing) {
  Spectrum s;
  ASSERT_TRUE(MakeSpectrum(Jonswap(), kGravity, s));
  Frequencies f;
  ASSERT_TRUE(SPECTR(s, {.NFREQ = 10}, f));
  const double expected[] = {0.39835, 0.48832, 0.55973, 0.61640, 0.66139, 0.75408, 0.91891, 1.21203, 1.73327, 2.66019};
  for (std::size_t i = 0; i < 10; ++i) EXPECT_NEAR(f.w[i], expected[i], 6e-6) << i;
  ASSERT_EQ(f.sppt.size(), 1U);
  EXPECT_NEAR(f.sppt[0], 2.06, 0.005);
  EXPECT_NEAR(f.width[0], f.w[1] - f.w[0], 1e-15);
  EXPECT_NEAR(f.width[3], (f.w[4] - f.w[2]) / 2, 1e-15);

  ASSERT_TRUE(SPECTR(s, {.NFREQ = 5, .even_spacing = true, .freq1 = 0.4, .freq2 = 2}, f));
  EXPECT_NEAR(f.w[3], 1.6, 1e-12);
  ASSERT_TRUE(SPECTR(s, {.NFREQ = 5, .even_spacing = true, .freq1 = 0, .freq2 = 2}, f));  // 0 is set, -1 is not
  EXPECT_NEAR(f.w[1], 0.5, 1e-12);
  ASSERT_TRUE(SPECTR(s, {.NFREQ = 1, .freq1 = 0.4, .freq2 = 2}, f));
  EXPECT_NEAR(f.w[0], 0.6613879, 1e-6);
  EXPECT_NEAR(f.width[0], 1.6, 1e-12);

  // Two peaks: n/3 above, n/3 between with the second peak, gaps smallest at the peaks.
  ASSERT_TRUE(MakeSpectrum(Ochi(3, 12, 2, 2, 6, 2), kGravity, s));
  ASSERT_TRUE(SPECTR(s, {.NFREQ = 12}, f));
  EXPECT_NEAR(f.w[3], s.w0[0], 1e-12);
  EXPECT_NEAR(f.w[7], s.w0[1], 1e-12);
  EXPECT_NEAR((f.w[5] - f.w[4]) / (f.w[4] - f.w[3]), 2, 1e-9);
  EXPECT_EQ(f.sppt.size(), 2U);
}

TEST(Headings, SharesAndFan) {
  Headings h;
  ASSERT_TRUE(LayHeadings(4, 15, -1, h));  // made odd
  EXPECT_EQ(h.offset.size(), 5U);
  EXPECT_NEAR(h.offset[0] * 180 / std::numbers::pi, -30, 1e-9);
  // clang-format off
  const struct { int n, option; double spread, sum; } rows[] = {
      {5, -1, 15, 1}, {7, 2, 10, 1}, {3, -1, 0, 0.988}, {5, -1, 0, 0.9935}, {11, -1, 0, 0.9970}, {1, 2, 40, 1}};
  // clang-format on
  for (const auto& row : rows) {
    ASSERT_TRUE(LayHeadings(row.n, row.spread, row.option, h));
    EXPECT_NEAR(std::accumulate(h.share.begin(), h.share.end(), 0.0), row.sum, 0.0006) << row.n;
    EXPECT_EQ(h.offset[h.offset.size() / 2], 0.0);
  }
  ASSERT_TRUE(LayHeadings(20'001, 0, -1, h));  // 1.1^10000 is no number
  EXPECT_NEAR(std::accumulate(h.share.begin(), h.share.end(), 0.0), 1, 0.005);
  ASSERT_TRUE(LayHeadings(11, 0, -1, h));  // half the outermost width from -90 degrees: the fan is symmetric
  EXPECT_NEAR(h.offset.front(), -h.offset.back(), 1e-12);
}

TEST(Phases, TablesAndGenerator) {
  const auto sum = [](std::span<const float> table) { return std::accumulate(table.begin(), table.end(), 0.0); };
  EXPECT_EQ(PhaseTable271().front(), 123.3F);
  EXPECT_EQ(PhaseTable271().back(), 34.8F);
  EXPECT_NEAR(sum(PhaseTable271()), -1375.2, 0.01);
  EXPECT_EQ(PhaseTable1009().front(), -64.6F);
  EXPECT_EQ(PhaseTable1009().back(), -104.5F);
  EXPECT_NEAR(sum(PhaseTable1009()), -1883.2, 0.01);
  // clang-format off
  const struct { int seed; double phases[4], last; } rows[] = {  // the first four and the 1000th
      {1, {-77.2629, -88.7910, -146.3513, 39.0589}, 135.3804}, {-1, {-77.2629, -88.7910, -146.3513, 39.0589}, 135.3804},
      {2, {-30.6452, 176.2104, 98.7226, -95.2143}, -103.2419}, {0, {-151.6502, -14.0112, -112.6952, -103.6942}, -70.5948},
      {177525, {55.1770, -56.2500, -80.5279, 167.1990}, -40.2628}};  // the third hits an edge of the table's places
  // clang-format on
  for (const auto& row : rows) {
    PhaseGenerator generator(row.seed);
    for (const double phase : row.phases) EXPECT_NEAR(generator.Next(), phase, 1e-4) << row.seed;
    for (int i = 5; i < 1000; ++i) (void)generator.Next();
    EXPECT_NEAR(generator.Next(), row.last, 1e-4) << row.seed;
  }
}

TEST(Phases, Files) {
  std::string many;
  for (int i = 0; i < 10001; ++i) many += "1\n";
  // clang-format off
  const struct { std::string text; std::vector<float> phases; std::string words; } rows[] = {
      {"! comment\n10 20,-30.5 ! more\n2*5\n", {10, 20, -30.5, 5, 5}, ""}, {"1 2 / 3\n4\n", {1, 2}, ""},
      {many.substr(2), std::vector<float>(10000, 1), ""},
      {many, {}, "ERR??? - too many phases in phase file: run/p ; limit= 10000\n"},
      {"! nothing\n", {}, "ERR??? - no phases read from phase file: run/p\n"},
      {"1 x\n", {}, "ERR??? - error reading phase file run/p\n"},
      {"1 nan\n", {}, "ERR??? - error reading phase file run/p\n"}};
  // clang-format on
  std::vector<float> phases;
  for (const auto& row : rows) {
    FakePlatform fake;
    fake.Put("run/p", row.text);
    const bool good = row.words.empty();
    EXPECT_EQ(ReadPhaseFile(fake.Get(), "p", "run/", phases), good) << row.words;
    EXPECT_TRUE(!good || phases == row.phases) << row.text.substr(0, 40);
    EXPECT_EQ(fake.output, "Reading phase file run/p\n" + (good ? "" : row.words + "Wave phase setup/read error\n"));
  }
  FakePlatform fake;
  fake.Put("run/p", "1\n");
  fake.Put("p", "2\n");
  EXPECT_TRUE(ReadPhaseFile(fake.Get(), "p", "run/", phases) && phases[0] == 2) << "here comes ahead of the folder";
  EXPECT_FALSE(ReadPhaseFile(fake.Get(), "/p", "run", phases)) << "a whole name is not looked for elsewhere";
  EXPECT_NE(fake.output.find("ERR??? - error opening phase file /p\n"), std::string::npos);
}

// Where the phases of each option begin; a list of one's own replaces the tables.
TEST(Components, PhaseIndices) {
  const std::vector<float> own = {1, 2, 3};
  // clang-format off
  const struct { int option, IWVRLZ; float first, second; std::span<const float> list; } rows[] = {
      {-1, 1, 123.3F, 54.6F, {}}, {0, 2, 54.6F, -102.9F, {}}, {1, 2, -11.1F, -154.1F, {}}, {0, 0, 34.8F, 123.3F, {}},
      {2, 2, PhaseTable271()[10], PhaseTable271()[11], {}}, {3, 2, PhaseTable1009()[10], PhaseTable1009()[11], {}},
      {0, 2, 2, 3, own}, {0, 0, 3, 1, own}};
  // clang-format on
  for (const auto& row : rows) {
    SeawayInput sea = Jonswap();
    sea.IWVRLZ = row.IWVRLZ;
    WaveComponents waves;
    ASSERT_EQ(SetupWaveComponents(sea, {.SPEC_PHASEOPTION = row.option}, row.list, kGravity, {}, waves),
              SeawayFault::none);
    EXPECT_EQ(waves.PHASEW[0], row.first) << row.option;
    EXPECT_EQ(waves.PHASEW[1], row.second) << row.option;
  }
}

// Energy of the components is that of the spectrum over the range; headings outside, frequencies inside.
TEST(Components, AmplitudesOrderAndPerturbation) {
  SeawayInput sea = Jonswap();
  sea.NFREQ = 200, sea.NHEAD = 5, sea.SPREAD = 15;
  WaveComponents waves;
  ASSERT_EQ(SetupWaveComponents(sea, {}, {}, kGravity, {}, waves), SeawayFault::none);
  ASSERT_EQ(waves.size(), 1000U);
  EXPECT_EQ(waves.HEADW[0], 150.0F);
  EXPECT_EQ(waves.HEADW[999], 210.0F);
  EXPECT_EQ(waves.FREQW[0], waves.FREQW[200]);
  double energy = 0;
  for (const float a : waves.AMPW0) energy += 0.5 * static_cast<double>(a) * static_cast<double>(a);
  EXPECT_NEAR(energy, 1.0, 0.02);

  sea.NHEAD = 1;
  sea.NFREQ = 10;
  WaveComponents still, moved;
  ASSERT_EQ(SetupWaveComponents(sea, {.SPEC_DISTOPT = 1}, {}, kGravity, {}, still), SeawayFault::none);
  ASSERT_EQ(SetupWaveComponents(sea, {.SPEC_DISTOPT = 3}, {}, kGravity, {}, moved), SeawayFault::none);
  EXPECT_EQ(still.FREQW[0], moved.FREQW[0]);
  EXPECT_EQ(still.FREQW[9], moved.FREQW[9]);
  const double width = static_cast<double>(still.FREQW[1]) - static_cast<double>(still.FREQW[0]);
  EXPECT_NEAR(moved.FREQW[1], static_cast<double>(still.FREQW[1]) + width * 0.4 * -11.1 / 180, 1e-6);
}

TEST(WaveScale, SmoothStepsBetweenListedOnes) {
  const WaveScaling scaling{{1, 101, 101, 201}, {0, 1, 2, 0.5}, 5, 0.25};
  EXPECT_EQ(WaveScaleAtStep({}, 7).scale, 1);
  EXPECT_EQ(WaveScaleAtStep(scaling, -3).scale, 0);
  EXPECT_EQ(WaveScaleAtStep(scaling, 101).scale, 2);  // of equal steps the later factor
  EXPECT_EQ(WaveScaleAtStep(scaling, 500).scale, 0.5);
  const WaveScale quarter = WaveScaleAtStep(scaling, 26);  // t = 1/4: 3/16 - 2/64
  EXPECT_NEAR(quarter.scale, 0.15625, 1e-15);
  EXPECT_NEAR(quarter.rate, 6 * (0.25 - 0.0625) / (0.25 * 100), 1e-15);
  EXPECT_NEAR(WaveScaleAtTime(scaling, 5 + 0.25 * 25).scale, 0.15625, 1e-12);
}

TEST(SetSpectrum, FaultsAndScales) {
  // clang-format off
  const struct { std::vector<float> record; bool good; std::string words; } rows[] = {
      {{1, 0, 0}, false, "ERROR in SetSpectrum : illegal value for gravity constant= 0\n"},
      {{1, 10.9F, 0}, false,
       "ERROR in SetSpectrum : gravity constant in seaway definition = 10.9\n"
       "             does not match gravity constant in simulation setup  = 9.81\n"},
      {{8, 9.5F, 200, 1, 0.5F, 30, 2, 180},
       true,
       "WARNING in SetSpectrum : gravity constant in seaway definition = 9.5\n"
       "         does not exactly match gravity constant in simulation setup  = 9.81\n"},
      {{1, 9.81F, 0, 2, 0.5F, 30, 2, 180}, false, "ERROR in SetSpectrum : seaway definition is incomplete\n"},
      {{1, 9.81F, 0, 1e30F}, false, "ERROR in SetSpectrum : seaway definition is incomplete\n"},
      {{0, 9.81F, 0}, true, ""}};
  // clang-format on
  for (const auto& row : rows) {
    FakePlatform fake;
    Seaway seaway;
    EXPECT_EQ(SetSpectrum(fake.Get().console, row.record, 9.81, 100, seaway), row.good);
    EXPECT_EQ(fake.output, row.words);
    if (!row.good || row.record[0] == 0) continue;
    EXPECT_EQ(seaway.ISEA, 1);
    EXPECT_EQ(seaway.WDEPTH, 2);
    EXPECT_NEAR(seaway.waves.FREQW.at(0), 0.5 * std::sqrt(100 / 9.5), 1e-6);
    EXPECT_EQ(seaway.waves.AMPW0.at(0), 0.02F);
  }
}

}  // namespace
}  // namespace zaview
