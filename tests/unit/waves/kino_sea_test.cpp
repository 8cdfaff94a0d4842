#include "waves/kino_sea.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

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

// A length of 200 in the input is one of 100 in the file: heights by 1/2, times and speeds by sqrt(1/2).
TEST(KinoSea, CommentsTellTheSeaway) {
  using R = ControlRecords&;
  const std::string jonswap = "omputed from a JONSWAP three-parameter spectrum\n", second = "lus wave components c";
  // clang-format off
  const struct { int ISEA; void (*bend)(R r); std::string words; } rows[] = {
      {0, nullptr, "Calm Water (no incident wave)\n"}, {4, nullptr, "Linear wave (old MIT recon format)\n"},
      {3, nullptr, "Regular stokes wave of order 4\n NOTE: frequency is nominal (input) frequency\n"},
      {5, nullptr, "Long-crested 2nd order Stokes wave\n"}, {1, nullptr, "Specified linear wave components\n"},
      {1, [](R r) { r.seaway.ISEA = 2; r.seaway.SIGWHT = 3; },
       "Wave components computed from a Pierson-Moskowitz one-parameter spectrum\nwith significant wave height= 1.5\n"},
      {1, [](R r) { r.seaway.ISEA = 2; r.seaway.SIGWHT = 3; r.seaway.TMODAL = 8; }, "Wave components computed from a "
       "Bretschneider two-parameter spectrum\nwith significant wave height= 1.5 and modal period= 5.656854\n"},
      {1, [](R r) { r.seaway.ISEA = 6; r.seaway.VWIND10 = 20; r.seaway.FETCH = 5000; r.seaway.PEAKPRM = 3.3; },
       "Wave components c" + jonswap + "with Wind speed= 14.14214, fetch= 2500\nand peakedness parameter= 3.3\n"},
      {1, [](R r) { r.seaway.ISEA = 7; r.seaway.SIGWHT1 = 3; r.seaway.TMODAL1 = 8; r.seaway.SHAPE1 = 2; },
       "Wave components computed from a OCHI three-parameter spectrum\nwith significant wave height= 1.5, modal period= "
       "5.656854\nand shape parameter= 2\n"},
      {1, [](R r) { r.seaway.ISEA = 7; r.seaway.SIGWHT1 = 3; r.seaway.TMODAL1 = 8; r.seaway.SHAPE1 = 2;
                    r.seaway.SIGWHT2 = 1; r.seaway.TMODAL2 = 4; r.seaway.SHAPE2 = 1.5; },
       "Wave components computed from a OCHI six-parameter spectrum\nwith significant wave height= 1.5, modal period= "
       "5.656854 (1st mode)\nand shape parameter= 2 (1st mode)\nwith significant wave height= 0.5, modal period= "
       "2.828427 (2nd mode)\nand shape parameter= 1.5 (2nd mode)\n"},
      {1, [](R r) { r.seaway.ISEA = 8; r.seaway.SIGWHT = 4; r.seaway.TOMODAL = 8; r.seaway.PEAKPRM = 3.3;
                    r.added_seaway.resize(1); r.added_seaway[0].sea = r.seaway; },
       "Wave components c" + jonswap + "with significant wave height= 2, modal period= 5.656854\nand peakedness "
       "parameter= 3.3\np" + second + jonswap + "with significant wave height= 2, modal period= 5.656854\nand "
       "peakedness parameter= 3.3\n"},
      {1, [](R r) { r.added_seaway.resize(1); r.added_seaway[0].sea.ISEA = 2; r.added_seaway[0].sea.SIGWHT = 2; },
       "Specified linear wave components\nP" + second + "omputed from a Pierson-Moskowitz one-parameter spectrum\n"
       "with significant wave height= 1\n"}};
  // clang-format on
  for (const auto& row : rows) {
    ControlRecords records;
    records.LENIN = 200;
    records.seaway.ISEA = row.ISEA;
    if (row.bend != nullptr) row.bend(records);
    std::string text;
    ASSERT_TRUE(KINOSE(records, OfKind(row.ISEA), kUnits, "run.out", text));
    const std::string words = "\nSeaway file from run.out\n" + row.words;
    EXPECT_EQ(text.substr(1, words.size()), words);
    const auto lines = std::count(words.begin(), words.end(), '\n') - 1 + (row.ISEA == 0 ? 0 : 1);
    EXPECT_EQ(text.substr(0, 2), std::to_string(lines) + '\n') << text;
  }
}

TEST(KinoSea, ClosingLines) {
  Seaway sea = OfKind(1);
  sea.scaling = {{1, 101}, {0, 1}, 0, 0.1};
  // clang-format off
  const struct { double g, depth; const char* words; } rows[] = {
      {9.81, 0, "\nRead this file with the -sea option\nTo duplicate wave scaling, use the KINO option:\n"
                "-wave_scale 0 0 31.92754 1\n"},
      {9.805, 0, "\nRead this file with the -sea option\nTo"}, {9.825, 0, "-sea option and gravity set via:\n-grav 9.825\nTo"},
      {9.7, 0.5, "\nRead this file with the -sea option and gravity set via:\n-grav 9.7\n"
                 " and water depth set via:\n-depth 50\nTo"}};
  // clang-format on
  for (const auto& row : rows) {
    sea.WDEPTH = row.depth;
    std::string text;
    ASSERT_TRUE(KINOSE({}, sea, {row.g, 100}, "run.out", text));
    EXPECT_NE(text.find(row.words), std::string::npos) << text;
  }
}

TEST(KinoSea, DamagedFiles) {
  const std::string fault = "ERROR reading KINO seaway file\n";
  const std::string corrupted_words = fault + "      Wave definition may be corrupted\n";
  const std::string unchanged_words = fault + "      Wave definition unchanged\n";
  const std::string no_count = "ERROR - Could not parse number of wave components from KINO file\n";
  using enum KinoSeaStatus;
  // clang-format off
  const struct { const char* what; std::string text, words; KinoSeaStatus status; } rows[] = {
      {"empty", "", unchanged_words, unchanged}, {"no such kind", "0\n9\n", unchanged_words, unchanged},
      {"comments missing", "3\nonly one\n", "Comment line: only one\n" + unchanged_words, unchanged},
      {"no count", "0\n3\n2.5\n", no_count + corrupted_words, corrupted},
      {"rows missing", "0\n3\n2\n1 2 3 4\n", "Superposition of 2 regular linear waves\n" + corrupted_words, corrupted},
      {"huge count", "0\n3\n2000000000\n1 2 3 4\n", no_count + corrupted_words, corrupted},
      {"a count that is none of many", "0\n4\n2147483647 0\n", "Linear wave (old MIT recon style)\n" + corrupted_words, corrupted},
      {"an amplitude that is no number", "0\n1\n0.5 10 nan 180\n", "Regular linear wave\n" + corrupted_words, corrupted},
      {"nor is a heading", "0\n-1\n1 inf\n1 2 3\n", "Long crested 2nd order Stokes wave\n" + corrupted_words, corrupted},
      {"words ahead, odd options behind",
       "1\nhead\n1\nFrequency Phase\n0.5 10 1 180\nRead this\n-depth deep\n-depth -5\n-wave_scale 1 0 2\n",
       "Comment line: head\nRegular linear wave\n", ok}};
  // clang-format on
  for (const auto& row : rows) {
    FakePlatform fake;
    fake.Put("a.sea", row.text);
    Seaway sea = OfKind(5);
    EXPECT_EQ(ReadKinoSeaway(fake.Get(), "a.sea", kUnits, sea), row.status) << row.what;
    EXPECT_EQ(fake.output, "Reading KINO seaway file a.sea\n" + row.words) << row.what;
    EXPECT_EQ(sea.ISEA, row.status == unchanged ? 5 : row.status == ok ? 1 : 0);
  }
  FakePlatform fake;
  Seaway sea;
  EXPECT_EQ(ReadKinoSeaway(fake.Get(), "none.sea", kUnits, sea), cannot_open);
}

}  // namespace
}  // namespace zaview
