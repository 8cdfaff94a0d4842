#include "waves/kino_sea.h"

#include <string>

#include <gtest/gtest.h>

#include "fake_platform.h"
#include "waves/wave_scale.h"

namespace zaview {
namespace {

constexpr KinoSeaUnits kUnits{9.81, 100};

Seaway OfKind(int ISEA) {
  Seaway sea;
  sea.ISEA = ISEA;
  if (ISEA == 1 || ISEA == 3) sea.waves = {{1.25F}, {-1.2345679e-5F}, {0.0123456F}, {180}};  // as long as they get
  if (ISEA == 3) sea.WSPEC = 4;
  if (ISEA == 4) sea.alternative = {{1, 2}, {0.5F, -0.5F}, {0.01F, 0.02F}, {10, 20}, {1.5F, 0}, {0, 90}, 1, 2};
  if (ISEA == 5) sea.modes = {{0.01F, 0.02F}, {30, -40}, {1.1F, 1.2F}, 165};
  return sea;
}

bool Near(const std::vector<float>& a, const std::vector<float>& b) {
  bool near = a.size() == b.size();
  for (std::size_t i = 0; near && i < a.size(); ++i) near = std::abs(a[i] - b[i]) <= 3e-7F * std::abs(b[i]);
  return near;
}

TEST(KinoSea, EveryKindComesBack) {
  for (const int ISEA : {0, 1, 3, 4, 5}) {
    Seaway sea = OfKind(ISEA);
    sea.WDEPTH = ISEA == 1 ? 0.5 : 0;
    if (ISEA == 4) sea.scaling = {{1, 101.5}, {0, 1}, 0.25, 0.1};  // times 0.25 and 10.3
    ControlRecords records;
    records.seaway.ISEA = ISEA;
    FakePlatform fake;
    std::string text;
    ASSERT_TRUE(KINOSE(records, sea, kUnits, "run.out", text));
    fake.Put("a.sea", text);
    Seaway back;
    back.WDEPTH = 0.7;  // of another sea
    ASSERT_EQ(ReadKinoSeaway(fake.Get(), "a.sea", kUnits, back), KinoSeaStatus::ok) << text;
    EXPECT_EQ(back.ISEA, ISEA);
    EXPECT_EQ(back.WDEPTH, sea.WDEPTH);
    ASSERT_EQ(back.scaling.WSCSTP.size(), sea.scaling.WSCSTP.size()) << text;
    for (const double t : {0.0, 0.3, 5.0, 9.0, 11.0})
      EXPECT_NEAR(WaveScaleAtTime(back.scaling, t).scale, WaveScaleAtTime(sea.scaling, t).scale, 1e-6) << t;
    EXPECT_EQ(back.WSPEC, sea.WSPEC);
    EXPECT_TRUE(Near(back.waves.FREQW, sea.waves.FREQW) && Near(back.waves.PHASEW, sea.waves.PHASEW) &&
                Near(back.waves.AMPW0, sea.waves.AMPW0) && Near(back.waves.HEADW, sea.waves.HEADW))
        << text;
    EXPECT_TRUE(Near(back.alternative.KX, sea.alternative.KX) && Near(back.alternative.FREQ, sea.alternative.FREQ))
        << text;
    EXPECT_EQ(back.alternative.WAVEDIM2, sea.alternative.WAVEDIM2);
    EXPECT_TRUE(Near(back.modes.MODE_AMP, sea.modes.MODE_AMP) && Near(back.modes.MODE_FREQ, sea.modes.MODE_FREQ));
    EXPECT_EQ(back.modes.WAVE_HEAD, sea.modes.WAVE_HEAD);
  }
}

TEST(KinoSea, HeadAndClosingLines) {
  Seaway sea = OfKind(1);
  sea.WDEPTH = 0.5;
  sea.scaling = {{1, 101}, {0, 1}, 0, 0.1};
  ControlRecords records;
  records.LENIN = 100;
  records.seaway.ISEA = 8;
  records.seaway.SIGWHT = 4;
  records.seaway.TOMODAL = 9.5;
  records.seaway.PEAKPRM = 3.3;
  AddedSeawayInput added;
  added.sea.ISEA = 2;
  added.sea.SIGWHT = 1.5;
  records.added_seaway = {added};
  std::string text;
  ASSERT_TRUE(KINOSE(records, sea, {9.7, 100}, "run.out", text));
  EXPECT_TRUE(
      text.starts_with("7\n"
                       "Seaway file from run.out\n"
                       "Wave components computed from a JONSWAP three-parameter spectrum\n"
                       "with significant wave height= 4, modal period= "))
      << text;
  EXPECT_NE(text.find("Plus wave components computed from a Pierson-Moskowitz one-parameter spectrum\n"
                      "with significant wave height= 1.5\n"
                      "    Frequency      Phase (deg)    Amplitude     Heading (deg)\n1\n"),
            std::string::npos)
      << text;
  EXPECT_NE(text.find("\nRead this file with the -sea option and gravity set via:\n-grav 9.7\n"
                      " and water depth set via:\n-depth 50\n"
                      "To duplicate wave scaling, use the KINO option:\n-wave_scale 0 0 32.10807 1\n"),
            std::string::npos)
      << text;
}

TEST(KinoSea, DamagedFiles) {
  const std::string fault = "ERROR reading KINO seaway file\n";
  const std::string corrupted = fault + "      Wave definition may be corrupted\n";
  const std::string unchanged = fault + "      Wave definition unchanged\n";
  const struct {
    const char* what;
    std::string text, words;
    KinoSeaStatus status;
  } rows[] = {
      {"empty", "", unchanged, KinoSeaStatus::unchanged},
      {"no such kind", "0\n9\n", unchanged, KinoSeaStatus::unchanged},
      {"comments missing", "3\nonly one\n", "Comment line: only one\n" + unchanged, KinoSeaStatus::unchanged},
      {"no count", "0\n3\n2.5\n", "ERROR - Could not parse number of wave components from KINO file\n" + corrupted,
       KinoSeaStatus::corrupted},
      {"rows missing", "0\n3\n2\n1 2 3 4\n", "Superposition of 2 regular linear waves\n" + corrupted,
       KinoSeaStatus::corrupted},
      {"huge count", "0\n3\n2000000000\n1 2 3 4\n",
       "ERROR - Could not parse number of wave components from KINO file\n" + corrupted, KinoSeaStatus::corrupted},
      {"words ahead, odd options behind",
       "1\nhead\n1\nFrequency Phase\n0.5 10 1 180\nRead this\n-depth deep\n-depth -5\n-wave_scale 1 0 2\n",
       "Comment line: head\nRegular linear wave\n", KinoSeaStatus::ok},
  };
  for (const auto& row : rows) {
    FakePlatform fake;
    fake.Put("a.sea", row.text);
    Seaway sea = OfKind(5);
    EXPECT_EQ(ReadKinoSeaway(fake.Get(), "a.sea", kUnits, sea), row.status) << row.what;
    EXPECT_EQ(fake.output, "Reading KINO seaway file a.sea\n" + row.words) << row.what;
    EXPECT_EQ(sea.ISEA, row.status == KinoSeaStatus::unchanged ? 5 : row.status == KinoSeaStatus::ok ? 1 : 0);
  }
  FakePlatform fake;
  Seaway sea;
  EXPECT_EQ(ReadKinoSeaway(fake.Get(), "none.sea", kUnits, sea), KinoSeaStatus::cannot_open);
}

}  // namespace
}  // namespace zaview
