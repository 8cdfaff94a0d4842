#include "case/read/ensemble_match.h"

#include <gtest/gtest.h>

#include "fake_platform.h"
#include "small_case.h"

namespace zaview {
namespace {

// An irregular sea of its own phases.
CaseStore Realization(int IWVRLZ) {
  CaseStore c = SmallCase(1, 3);
  c.control.seaway.ISEA = 8;
  c.control.seaway.SIGWHT = 4;
  c.control.seaway.TOMODAL = 9.5;
  c.control.seaway.PEAKPRM = 3.3;
  c.control.seaway.NFREQ = 20;
  c.control.seaway.IWVRLZ = IWVRLZ;
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
