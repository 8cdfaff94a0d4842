#include "case/seaway_match.h"

#include <gtest/gtest.h>

namespace zaview {
namespace {

using Change = void (*)(ControlRecords& control);

ControlRecords Jonswap() {
  ControlRecords control;
  control.LENIN = 100;
  SeawayInput& sea = control.seaway;
  sea.ISEA = 8;
  sea.SIGWHT = 4;
  sea.TOMODAL = 9.5;
  sea.PEAKPRM = 3.3;
  sea.SEAHD = 180;
  sea.NFREQ = 40;
  sea.NHEAD = 1;
  sea.IWVRLZ = 1;
  return control;
}

void Options(ControlRecords& control, std::vector<std::string> lines) {
  control.modules.push_back({"OPTIONS", "$OPTIONS:", std::move(lines)});
}
void SecondSea(ControlRecords& control, std::vector<std::string> lines) {
  control.modules.push_back({"ADDSEA", "$ADDSEA:", std::move(lines)});
}

struct Row {
  const char* what;
  Change both, held, fresh;  // null: nothing
  Match match;
};

void Expect(const ControlRecords& base, const Row& row) {
  ControlRecords held = base;
  ControlRecords fresh = base;
  if (row.both != nullptr) {
    row.both(held);
    row.both(fresh);
  }
  if (row.held != nullptr) row.held(held);
  if (row.fresh != nullptr) row.fresh(fresh);
  EXPECT_EQ(CompareSeaways(held, fresh), row.match) << row.what;
  EXPECT_EQ(CompareSeaways(fresh, held), row.match) << row.what << ", the other way round";
}

constexpr Match kNone = Match::none, kOther = Match::realization, kSame = Match::identical;
constexpr Change kNothing = nullptr;

// The stored phases come from tables of 271 and 1009 angles, which begin anew when they end.
TEST(SeawayMatch, Spectra) {
  // clang-format off
  const Row rows[] = {
      {"the same", kNothing, kNothing, kNothing, kSame},
      {"height", kNothing, kNothing, [](auto& c) { c.seaway.SIGWHT = 4.1; }, kNone},
      {"period", kNothing, kNothing, [](auto& c) { c.seaway.TOMODAL = 9; }, kNone},
      {"heading", kNothing, kNothing, [](auto& c) { c.seaway.SEAHD = 170; }, kNone},
      {"components", kNothing, kNothing, [](auto& c) { c.seaway.NFREQ = 39; }, kNone},
      {"headings are odd", [](auto& c) { c.seaway.NHEAD = 5; }, kNothing, [](auto& c) { c.seaway.NHEAD = 4; }, kSame},
      {"spread of one heading", kNothing, kNothing, [](auto& c) { c.seaway.SPREAD = 10; }, kSame},
      {"spread", [](auto& c) { c.seaway.NHEAD = 3; }, kNothing, [](auto& c) { c.seaway.SPREAD = 10; }, kNone},
      {"kind", kNothing, kNothing, [](auto& c) { c.seaway.ISEA = 2; }, kNone},
      {"wave scaling", kNothing, kNothing, [](auto& c) { c.seaway.NWSC = 1; }, kSame},
      {"other units", kNothing, kNothing,  // lengths in a unit of a quarter
       [](auto& c) {
         c.GRAVIN *= 4;
         c.LENIN *= 4;
         c.seaway.SIGWHT *= 4;
       },
       kSame},
      {"realization", kNothing, kNothing, [](auto& c) { c.seaway.IWVRLZ = 2; }, kOther},
      {"271 later", kNothing, kNothing, [](auto& c) { c.seaway.IWVRLZ = 272; }, kSame},
      {"271 later, generator", [](auto& c) { Options(c, {"SPEC_PHASEOPT 4"}); }, kNothing,
       [](auto& c) { c.seaway.IWVRLZ = 272; }, kOther},
      {"realization 0 is the one ahead of 1", kNothing, [](auto& c) { c.seaway.IWVRLZ = 0; },
       [](auto& c) { c.seaway.IWVRLZ = 271; }, kSame},
      {"option 3 steps by NFREQ", [](auto& c) { Options(c, {"SPEC_PHASEOPTION 3"}); }, kNothing,
       [](auto& c) { c.seaway.IWVRLZ = 1010; }, kSame},
      {"other table", kNothing, kNothing, [](auto& c) { Options(c, {"SPEC_PHASEOPTION 1"}); }, kOther},
      {"phase file", kNothing, kNothing, [](auto& c) { Options(c, {"SPEC_PHASEFILE p.txt"}); }, kOther},
      {"a phase file is nothing to the generator", [](auto& c) { Options(c, {"SPEC_PHASEOPT 4"}); }, kNothing,
       [](auto& c) { c.modules[0].lines.push_back("SPEC_PHASEFILE p.txt"); }, kSame},
      {"even spacing", kNothing, kNothing, [](auto& c) { c.seaway.IWVRLZ = -1; }, kNone},
      {"even spacing of both", [](auto& c) { Options(c, {"SPEC_DISTOPT 1"}); }, kNothing,
       [](auto& c) { c.seaway.IWVRLZ = -2; }, kOther},
      {"moved frequencies", [](auto& c) { Options(c, {"SPEC_DISTOPT 2"}); }, kNothing,
       [](auto& c) { c.seaway.IWVRLZ = 2; }, kNone},
      {"moved, but only the ends",
       [](auto& c) {
         Options(c, {"SPEC_DISTOPT 3"});
         c.seaway.NFREQ = 2;
       },
       kNothing, [](auto& c) { c.seaway.IWVRLZ = 2; }, kOther},
      {"default cut-off", kNothing, kNothing, [](auto& c) { Options(c, {"SPEC_CUTOFF 0.001"}); }, kSame},
      {"cut-off", kNothing, kNothing, [](auto& c) { Options(c, {"SPEC_CUTOFF 0.01"}); }, kNone},
      {"cut-off beside a range",
       [](auto& c) {
         Options(c, {"SPEC_FREQ1 0.4", "SPEC_FREQ2 2"});
       },
       kNothing, [](auto& c) { c.modules[0].lines.push_back("SPEC_CUTOFF 0.01"); }, kSame},
      {"range", kNothing, kNothing,
       [](auto& c) {
         Options(c, {"SPEC_FREQ1 0.4", "SPEC_FREQ2 2"});
       },
       kNone},
  };
  // clang-format on
  for (const Row& row : rows) Expect(Jonswap(), row);
}

TEST(SeawayMatch, SecondSeaway) {
  static const std::vector<std::string> text = {"!ADDSEA01", "2",      "1.5 6.0",     "90 0 20 1 7",
                                                "!ADDSEA02", "2*-1.0", "-1.0 1 -1 4", ""};
  // clang-format off
  const Row rows[] = {
      {"one only", kNothing, kNothing, [](auto& c) { SecondSea(c, text); }, kNone},
      {"written otherwise", kNothing, [](auto& c) { SecondSea(c, text); },
       [](auto& c) {
         SecondSea(c, {"2", "1.5D0, 6", "90. 0.", "20 1 7", "-1 -1 ! none", "-1 1 -1 4"});
       },
       kSame},
      {"its realization", kNothing, [](auto& c) { SecondSea(c, text); },
       [](auto& c) {
         SecondSea(c, text);
         c.modules[0].lines[3] = "90 0 20 1 8";
       },
       kOther},
      {"its height", kNothing, [](auto& c) { SecondSea(c, text); },
       [](auto& c) {
         SecondSea(c, text);
         c.modules[0].lines[2] = "1.6 6.0";
       },
       kNone},
      {"broken, but the same text",
       [](auto& c) {
         SecondSea(c, {"2", "high"});
       },
       kNothing, kNothing, kSame},
      {"broken", [](auto& c) { SecondSea(c, {"3"}); }, kNothing, [](auto& c) { c.modules[0].lines = {"4"}; }, kNone},
      {"beside a Stokes wave it is nothing",
       [](auto& c) {
         c.seaway.ISEA = 3;
         c.seaway.waves = {{0.5, 10, 1, 180}};
       },
       kNothing, [](auto& c) { SecondSea(c, text); }, kSame},
  };
  // clang-format on
  for (const Row& row : rows) Expect(Jonswap(), row);
}

TEST(SeawayMatch, Lists) {
  const auto components = [](auto& c) {
    c.seaway.ISEA = 1;
    c.seaway.waves = {
        {0.5, 10, 1, 180},
        {0.6, 20, 2, 170}
    };
  };
  const auto grid = [](auto& c) {
    c.seaway.ISEA = 4;
    c.seaway.alternative = {
        {0.1, 0, 1, 10, 0.5, 180}
    };
  };
  const auto modes = [](auto& c) {
    c.seaway.ISEA = 5;
    c.seaway.modes = {
        {1, 10, 0.5}
    };
  };
  // clang-format off
  const Row rows[] = {
      {"calm", [](auto& c) { c.seaway.ISEA = 0; }, kNothing, [](auto& c) { c.seaway.SIGWHT = 9; }, kSame},
      {"equal", components, kNothing, kNothing, kSame},
      {"phase", components, kNothing, [](auto& c) { c.seaway.waves[1].PHASEW = 21; }, kOther},
      {"frequency", components, kNothing, [](auto& c) { c.seaway.waves[1].FREQW = 0.61; }, kNone},
      {"closer than 4 bytes hold", components, kNothing, [](auto& c) { c.seaway.waves[1].FREQW += 1E-10; }, kSame},
      {"amplitude", components, kNothing, [](auto& c) { c.seaway.waves[0].AMPW0 = 1.1; }, kNone},
      {"heading", components, kNothing, [](auto& c) { c.seaway.waves[0].HEADW = 181; }, kNone},
      {"fewer", components, kNothing, [](auto& c) { c.seaway.waves.pop_back(); }, kNone},
      {"grid", grid, kNothing, [](auto& c) { c.seaway.alternative[0].PHASE = 11; }, kOther},
      {"grid, wave number", grid, kNothing, [](auto& c) { c.seaway.alternative[0].KY = 0.01; }, kNone},
      {"modes", modes, kNothing, [](auto& c) { c.seaway.modes[0].MODE_PHASE = 11; }, kOther},
      {"modes, amplitude", modes, kNothing, [](auto& c) { c.seaway.modes[0].MODE_AMP = 2; }, kNone},
      {"modes, heading", modes, kNothing, [](auto& c) { c.seaway.WAVE_HEAD = 2; }, kNone},
      {"two spectra of a sea in any order",
       [](auto& c) {
         c.seaway.ISEA = 7;
         c.seaway.SIGWHT1 = 3;
         c.seaway.TMODAL1 = 12;
         c.seaway.SHAPE1 = 2;
         c.seaway.SIGWHT2 = 1;
         c.seaway.TMODAL2 = 6;
         c.seaway.SHAPE2 = 1;
       },
       kNothing,
       [](auto& c) {
         std::swap(c.seaway.SIGWHT1, c.seaway.SIGWHT2);
         std::swap(c.seaway.TMODAL1, c.seaway.TMODAL2);
         std::swap(c.seaway.SHAPE1, c.seaway.SHAPE2);
       },
       kSame},
  };
  // clang-format on
  for (const Row& row : rows) Expect(Jonswap(), row);
}

}  // namespace
}  // namespace zaview
