#include "case/read/seaway_match.h"

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "fake_platform.h"
#include "waves/components.h"

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
  sea.PEAKPRM = 3.3;
  sea.SEAHD = 180;
  sea.NFREQ = 40;
  sea.NHEAD = sea.IWVRLZ = 1;
  return control;
}

void Options(R& control, Lines lines) {
  control.modules.push_back({"OPTIONS", "$OPTIONS:", std::move(lines)});
}
void Waves(R& c) {
  c.seaway.ISEA = 1;
  c.seaway.waves = {WaveComponentInput{0.5, 10, 1, 180}, WaveComponentInput{0.6, 20, 2, 170}};
}
void Grid(R& c) {
  c.seaway.ISEA = 4;
  c.seaway.alternative = {AlternativeWaveInput{0.1, 0, 1, 10, 0.5, 180}};
}
void Modes(R& c) {
  c.seaway.ISEA = 5;
  c.seaway.modes = {WaveModeInput{1, 10, 0.5}};
}
void TwoSpectra(R& c) {
  c.seaway.ISEA = 7;
  c.seaway.SIGWHT1 = 3;
  c.seaway.TMODAL1 = 12;
  c.seaway.SIGWHT2 = 1;
  c.seaway.TMODAL2 = 6;
  c.seaway.SHAPE1 = c.seaway.SHAPE2 = 2;
}
void Second(R& c) {
  AddedSeawayInput added;
  added.sea.ISEA = 2;
  added.sea.SIGWHT = 1.5;
  added.sea.TMODAL = 6;
  added.sea.SEAHD = 90;
  added.sea.NFREQ = 20;
  added.sea.NHEAD = 1;
  added.sea.IWVRLZ = 7;
  added.SPEC_PHASEOPTION = 4;
  c.added_seaway = {added};
}

Seaway SeawayOf(const R& control) {
  FakePlatform fake;
  Seaway seaway;
  EXPECT_EQ(GetZAVOSeaway(fake.Get().console, control, {}, seaway), SeawayFault::none);
  return seaway;
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
      {"its realization", Second, [](R& c) { c.added_seaway[0].sea.IWVRLZ = 8; }, kOther},
      {"its height", Second, [](R& c) { c.added_seaway[0].sea.SIGWHT = 1.6; }, kNone},
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
    EXPECT_EQ(CompareSeaways(SeawayOf(held), SeawayOf(fresh)), row.match) << row.what;
    EXPECT_EQ(CompareSeaways(SeawayOf(fresh), SeawayOf(held)), row.match) << row.what << ", the other way round";
  }
}

}  // namespace
}  // namespace zaview
