#include "case/seaway_match.h"

#include <gtest/gtest.h>

namespace zaview {
namespace {

using Lines = std::vector<std::string>;
using R = ControlRecords;

R Jonswap() {
  R control;
  control.LENIN = 100;
  SeawayInput& sea = control.seaway;
  sea.ISEA = 8;
  sea.SIGWHT = 4;
  sea.TOMODAL = 9.5;
  sea.SEAHD = 180;
  sea.NFREQ = 40;
  sea.NHEAD = sea.IWVRLZ = 1;
  return control;
}

void Options(R& control, Lines lines) {
  control.modules.push_back({"OPTIONS", "$OPTIONS:", std::move(lines)});
}
void SecondSea(R& control, Lines lines) {
  control.modules.push_back({"ADDSEA", "$ADDSEA:", std::move(lines)});
}

void Waves(R& c) {
  c.seaway.ISEA = 1;
  c.seaway.waves = {
      WaveComponentInput{0.5, 10, 1, 180},
      WaveComponentInput{0.6, 20, 2, 170}
  };
}
void Grid(R& c) {
  c.seaway.ISEA = 4;
  c.seaway.alternative = {
      AlternativeWaveInput{0.1, 0, 1, 10, 0.5, 180}
  };
}
void Modes(R& c) {
  c.seaway.ISEA = 5;
  c.seaway.modes = {
      WaveModeInput{1, 10, 0.5}
  };
}
void TwoSpectra(R& c) {
  c.seaway.ISEA = 7;
  c.seaway.SIGWHT1 = 3;
  c.seaway.TMODAL1 = 12;
  c.seaway.SIGWHT2 = 1;
  c.seaway.TMODAL2 = 6;
}
void Second(R& c) {
  SecondSea(c, {"!ADDSEA01", "2", "1.5 6.0", "90 0 20 1 7", "!ADDSEA02", "2*-1.0", "-1.0 1 -1 4", ""});
}

constexpr Match kNone = Match::none, kOther = Match::realization, kSame = Match::identical;

// The stored phases come from tables of 271 and 1009 angles, which begin anew when they end.
TEST(SeawayMatch, BothWays) {
  // clang-format off
  const struct { const char* what; void (*both)(R&); void (*fresh)(R&); Match match; } rows[] = {
      {"the same", nullptr, nullptr, kSame},
      {"height", nullptr, [](R& c) { c.seaway.SIGWHT = 4.1; }, kNone},
      {"heading", nullptr, [](R& c) { c.seaway.SEAHD = 170; }, kNone},
      {"components", nullptr, [](R& c) { c.seaway.NFREQ = 39; }, kNone},
      {"headings are odd", [](R& c) { c.seaway.NHEAD = 5; }, [](R& c) { c.seaway.NHEAD = 4; }, kSame},
      {"spread of one heading", nullptr, [](R& c) { c.seaway.SPREAD = 10; }, kSame},
      {"spread", [](R& c) { c.seaway.NHEAD = 3; }, [](R& c) { c.seaway.SPREAD = 10; }, kNone},
      {"kind", nullptr, [](R& c) { c.seaway.ISEA = 2; }, kNone},
      {"lengths in quarters", nullptr, [](R& c) { c.GRAVIN *= 4; c.LENIN *= 4; c.seaway.SIGWHT *= 4; }, kSame},
      {"realization", nullptr, [](R& c) { c.seaway.IWVRLZ = 2; }, kOther},
      {"271 later", nullptr, [](R& c) { c.seaway.IWVRLZ = 272; }, kSame},
      {"271 later, generator", [](R& c) { Options(c, {"SPEC_PHASEOPT 4"}); }, [](R& c) { c.seaway.IWVRLZ = 272; }, kOther},
      {"realization 0 is 271", [](R& c) { c.seaway.IWVRLZ = 0; }, [](R& c) { c.seaway.IWVRLZ = 271; }, kSame},
      {"option 3 steps by NFREQ", [](R& c) { Options(c, {"SPEC_PHASEOPTION 3"}); }, [](R& c) { c.seaway.IWVRLZ = 1010; }, kSame},
      {"other table", nullptr, [](R& c) { Options(c, {"SPEC_PHASEOPTION 1"}); }, kOther},
      {"phase file", nullptr, [](R& c) { Options(c, {"SPEC_PHASEFILE p.txt"}); }, kOther},
      {"phase file and generator", [](R& c) { Options(c, {"SPEC_PHASEOPT 4"}); },
       [](R& c) { c.modules[0].lines.push_back("SPEC_PHASEFILE p.txt"); }, kSame},
      {"even spacing", nullptr, [](R& c) { c.seaway.IWVRLZ = -1; }, kNone},
      {"even spacing of both", [](R& c) { Options(c, {"SPEC_DISTOPT 1"}); }, [](R& c) { c.seaway.IWVRLZ = -2; }, kOther},
      {"moved frequencies", [](R& c) { Options(c, {"SPEC_DISTOPT 2"}); }, [](R& c) { c.seaway.IWVRLZ = 2; }, kNone},
      {"moved, but only the ends", [](R& c) { Options(c, {"SPEC_DISTOPT 3"}); c.seaway.NFREQ = 2; },
       [](R& c) { c.seaway.IWVRLZ = 2; }, kOther},
      {"default cut-off", nullptr, [](R& c) { Options(c, {"SPEC_CUTOFF 0.001"}); }, kSame},
      {"cut-off", nullptr, [](R& c) { Options(c, {"SPEC_CUTOFF 0.01"}); }, kNone},
      {"cut-off beside a range", [](R& c) { Options(c, {"SPEC_FREQ1 0.4", "SPEC_FREQ2 2"}); },
       [](R& c) { c.modules[0].lines.push_back("SPEC_CUTOFF 0.01"); }, kSame},
      {"range", nullptr, [](R& c) { Options(c, {"SPEC_FREQ1 0.4", "SPEC_FREQ2 2"}); }, kNone},

      {"a second sea", nullptr, Second, kNone},
      {"written otherwise", Second, [](R& c) {
         c.modules[0].lines = {"2", "1.5D0, 6", "90. 0.", "20 1 7", "-1 -1 ! none", "-1 1 -1 4"}; }, kSame},
      {"its realization", Second, [](R& c) { c.modules[0].lines[3] = "90 0 20 1 8"; }, kOther},
      {"its height", Second, [](R& c) { c.modules[0].lines[2] = "1.6 6.0"; }, kNone},
      {"broken, but the same text", [](R& c) { SecondSea(c, {"2", "high"}); }, nullptr, kSame},
      {"broken", [](R& c) { SecondSea(c, {"3"}); }, [](R& c) { c.modules[0].lines = {"4"}; }, kNone},
      {"beside a Stokes wave it is nothing", [](R& c) { Waves(c); c.seaway.ISEA = 3; c.seaway.waves.pop_back(); }, Second, kSame},

      {"calm", [](R& c) { c.seaway.ISEA = 0; }, [](R& c) { c.seaway.SIGWHT = 9; }, kSame},
      {"phase", Waves, [](R& c) { c.seaway.waves[1].PHASEW = 21; }, kOther},
      {"frequency", Waves, [](R& c) { c.seaway.waves[1].FREQW = 0.61; }, kNone},
      {"closer than 4 bytes hold", Waves, [](R& c) { c.seaway.waves[1].FREQW += 1E-10; }, kSame},
      {"amplitude", Waves, [](R& c) { c.seaway.waves[0].AMPW0 = 1.1; }, kNone},
      {"fewer", Waves, [](R& c) { c.seaway.waves.pop_back(); }, kNone},
      {"grid", Grid, [](R& c) { c.seaway.alternative[0].PHASE = 11; }, kOther},
      {"grid, wave number", Grid, [](R& c) { c.seaway.alternative[0].KY = 0.01; }, kNone},
      {"modes", Modes, [](R& c) { c.seaway.modes[0].MODE_PHASE = 11; }, kOther},
      {"modes, heading", Modes, [](R& c) { c.seaway.WAVE_HEAD = 2; }, kNone},
      {"two spectra of a sea in any order", TwoSpectra, [](R& c) {
         std::swap(c.seaway.SIGWHT1, c.seaway.SIGWHT2); std::swap(c.seaway.TMODAL1, c.seaway.TMODAL2); }, kSame},
  };
  // clang-format on
  for (const auto& row : rows) {
    R held = Jonswap();
    if (row.both != nullptr) row.both(held);
    R fresh = held;
    if (row.fresh != nullptr) row.fresh(fresh);
    EXPECT_EQ(CompareSeaways(held, fresh), row.match) << row.what;
    EXPECT_EQ(CompareSeaways(fresh, held), row.match) << row.what << ", the other way round";
  }
}

}  // namespace
}  // namespace zaview
