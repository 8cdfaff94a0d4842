#include "case/read/seaway_match.h"

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "case/read/ensemble_match.h"
#include "fake_platform.h"
#include "small_case.h"
#include "waves/components.h"

namespace zaview {
namespace {

using Lines = std::vector<std::string>;
using R = ControlRecords;

SeawayInput Spectrum(int ISEA, double H, double T, double heading, int NFREQ, int IWVRLZ) {
  SeawayInput sea;
  sea.ISEA = ISEA, sea.SIGWHT = H, sea.TMODAL = sea.TOMODAL = T, sea.PEAKPRM = 3.3;
  sea.SEAHD = heading, sea.NFREQ = NFREQ, sea.NHEAD = 1, sea.IWVRLZ = IWVRLZ;
  return sea;
}

// clang-format off
void Options(R& c, Lines lines) { c.modules.push_back({"OPTIONS", "$OPTIONS:", std::move(lines)}); }
void Waves(R& c) { c.seaway.ISEA = 1; c.seaway.waves = {{0.5, 10, 1, 180}, {0.6, 20, 2, 170}}; }
void Grid(R& c) { c.seaway.ISEA = 4; c.seaway.alternative = {{0.1, 0, 1, 10, 0.5, 180}}; }
void Modes(R& c) { c.seaway.ISEA = 5; c.seaway.modes = {{1, 10, 0.5}}; }
void TwoSpectra(R& c) {
  SeawayInput& sea = c.seaway;
  sea.ISEA = 7, sea.SIGWHT1 = 3, sea.TMODAL1 = 12, sea.SIGWHT2 = 1, sea.TMODAL2 = 6, sea.SHAPE1 = sea.SHAPE2 = 2;
}
void Second(R& c) {
  c.added_seaway.resize(1);
  c.added_seaway[0].sea = Spectrum(2, 1.5, 6, 90, 20, 7);
  c.added_seaway[0].SPEC_PHASEOPTION = 4;
}
// clang-format on

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
    R held;
    held.LENIN = 100;
    held.seaway = Spectrum(8, 4, 9.5, 180, 40, 1);
    if (row.both != nullptr) row.both(held);
    R fresh = held;
    if (row.fresh != nullptr) row.fresh(fresh);
    EXPECT_EQ(CompareSeaways(SeawayOf(held), SeawayOf(fresh)), row.match) << row.what;
    EXPECT_EQ(CompareSeaways(SeawayOf(fresh), SeawayOf(held)), row.match) << row.what << ", the other way round";
  }
}

// An irregular sea of its own phases.
CaseStore Realization(int IWVRLZ) {
  CaseStore c = SmallCase(1, 3);
  c.control.seaway.ISEA = 8, c.control.seaway.SIGWHT = 4, c.control.seaway.TOMODAL = 9.5;
  c.control.seaway.PEAKPRM = 3.3, c.control.seaway.NFREQ = 20, c.control.seaway.IWVRLZ = IWVRLZ;
  c.base_name = std::to_string(IWVRLZ);
  return c;
}

struct Held {
  FakePlatform fake;
  CaseStore store;
  EnsembleStore ensemble;

  std::string Take(CaseStore fresh, EnsembleMode mode = EnsembleMode::automatic) {
    fake.output.clear();
    match_case_to_ensemble(fake.Get().console, mode, fresh, ensemble, store);
    return fake.output;
  }
  std::string Select(int i) {  // the base name of that record
    const bool there = SelectRecord(i, ensemble, store);
    return there && ensemble.irec == i && store.pmgg.components() == 6 ? store.base_name : "none";
  }
};

constexpr std::string_view kAdded = "Case seems to be new realization of previous case(s) - adding to ensemble data\n";
constexpr std::string_view kAssumed =
    "Case assumed to be new realization of previous case(s) - adding to ensemble data\n";
constexpr std::string_view kIdentical = "Case seems to be identical to previous case - resetting ensemble data\n";
constexpr std::string_view kNoMatch = "Case does not match previous case(s) - resetting ensemble data\n";
constexpr std::string_view kCannot = "Case cannot be matched previous case(s) - resetting ensemble data\n";

// Speeds may differ by 1e-4 sqrt(9.81 * 100) = 0.00313 from 7.5.
TEST(EnsembleMatch, Outcomes) {
  // clang-format off
  const struct { void (*change)(CaseStore&); std::string_view automatic, forced; } rows[] = {  // to realization 2
      {[](auto&) {}, kAdded, kAssumed},
      {[](auto& c) { c.control.seaway.IWVRLZ = 1; }, kIdentical, kAssumed},
      {[](auto& c) { c.control.USHIP = 7.51; }, kNoMatch, kAssumed},
      {[](auto& c) { c.control.USHIP = 7.503; }, kAdded, kAssumed},
      {[](auto& c) { c.loads.NBCA = 1; }, kNoMatch, kCannot},
      {[](auto& c) { c.loads.ihmy = 1; }, kNoMatch, kCannot},
      {[](auto& c) { c.control.seaway.SIGWHT = 5; }, kNoMatch, kCannot},
      {[](auto& c) { c.tadm_case = true; }, kNoMatch, kCannot}};
  // clang-format on
  for (const auto& row : rows)
    for (const EnsembleMode mode : {EnsembleMode::automatic, EnsembleMode::forced}) {
      Held held;
      EXPECT_EQ(held.Take(Realization(1), mode), "");
      CaseStore fresh = Realization(2);
      row.change(fresh);
      const std::string_view words = mode == EnsembleMode::forced ? row.forced : row.automatic;
      EXPECT_EQ(held.Take(fresh, mode), words) << &row - rows;
      EXPECT_EQ(held.ensemble.nrec, words == kAdded || words == kAssumed ? 2 : 1) << &row - rows;
      EXPECT_EQ(held.store.base_name, "2");
    }
}

TEST(EnsembleMatch, RecordsChangePlaces) {
  Held held;
  for (const int i : {1, 2, 3}) (void)held.Take(Realization(i));
  for (const int i : {1, 1, 3, 2}) EXPECT_EQ(held.Select(i), std::to_string(i));
  EXPECT_EQ(held.Select(0) + held.Select(4), "nonenone");
  EXPECT_EQ(held.Take(Realization(3)), kIdentical) << "the case read last counts, not the current one";
  EXPECT_TRUE(held.ensemble.record.empty()) << "nothing of the dropped records stays";
  (void)held.Take(Realization(4));
  EXPECT_EQ(held.Select(1), "3");
  EXPECT_EQ(held.Take(Realization(5)), kAdded);
  EXPECT_EQ(held.Select(2) + held.Select(3), "45");

  CaseStore combined = Realization(2);
  combined.combined = true;
  EXPECT_EQ(held.Take(combined), "");
  EXPECT_EQ(held.Take(Realization(3)), kNoMatch);
  (void)held.Take(Realization(4));
  reset_ensemble(held.store, held.ensemble);
  EXPECT_EQ(held.ensemble.nrec, 1);
  EXPECT_EQ(held.Select(1), "4");
  held.store = CaseStore{};
  reset_ensemble(held.store, held.ensemble);
  EXPECT_EQ(held.Select(1), "none");
}

}  // namespace
}  // namespace zaview
