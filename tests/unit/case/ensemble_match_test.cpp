#include "case/ensemble_match.h"

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
  c.control.seaway.NFREQ = 20;
  c.control.seaway.IWVRLZ = IWVRLZ;
  c.base_name = std::to_string(IWVRLZ);
  return c;
}

struct Held {
  FakePlatform fake;
  CaseStore store;
  EnsembleStore ensemble;

  std::string Take(CaseStore fresh, int mode = kAutomaticEnsemble) {
    fake.output.clear();
    match_case_to_ensemble(fake.Get().console, mode, fresh, ensemble, store);
    return fake.output;
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
  const struct {
    const char* what;
    void (*change)(CaseStore& fresh);
    std::string_view automatic, forced;  // of a case that is realization 2 but for the change
  } rows[] = {
      {"realization",                [](CaseStore&) {},                                 kAdded,     kAssumed},
      {"identical",                  [](CaseStore& c) { c.control.seaway.IWVRLZ = 1; }, kIdentical, kAssumed},
      {"speed",                      [](CaseStore& c) { c.control.USHIP = 7.51; },      kNoMatch,   kAssumed},
      {"speed within the tolerance", [](CaseStore& c) { c.control.USHIP = 7.503; },     kAdded,     kAssumed},
      {"cuts",                       [](CaseStore& c) { c.loads.NBCA = 1; },            kNoMatch,   kCannot },
      {"vertical loads",             [](CaseStore& c) { c.loads.IVM = 1; },             kNoMatch,   kCannot },
      {"horizontal loads at Y cuts", [](CaseStore& c) { c.loads.ihmy = 1; },            kNoMatch,   kCannot },
      {"sea",                        [](CaseStore& c) { c.control.seaway.SIGWHT = 5; }, kNoMatch,   kCannot },
      {"impulsive",                  [](CaseStore& c) { c.tadm_case = true; },          kNoMatch,   kCannot },
  };
  for (const auto& row : rows)
    for (const int mode : {kAutomaticEnsemble, kForcedEnsemble}) {
      Held held;
      EXPECT_EQ(held.Take(Realization(1), mode), "");
      CaseStore fresh = Realization(2);
      row.change(fresh);
      const std::string_view words = mode == kForcedEnsemble ? row.forced : row.automatic;
      EXPECT_EQ(held.Take(fresh, mode), words) << row.what;
      const int nrec = words == kAdded || words == kAssumed ? 2 : 1;
      EXPECT_EQ(held.ensemble.nrec, nrec) << row.what;
      EXPECT_EQ(held.ensemble.irec, nrec);
      EXPECT_EQ(held.store.base_name, "2");
    }
}

TEST(EnsembleMatch, RecordsChangePlaces) {
  Held held;
  for (const int i : {1, 2, 3}) (void)held.Take(Realization(i));
  EXPECT_EQ(held.ensemble.nrec, 3);
  for (const int i : {1, 1, 3, 2}) {
    ASSERT_TRUE(SelectRecord(i, held.ensemble, held.store));
    EXPECT_EQ(held.ensemble.irec, i);
    EXPECT_EQ(held.store.base_name, std::to_string(i));
    EXPECT_EQ(held.store.pmgg.components(), 6);
  }
  EXPECT_FALSE(SelectRecord(0, held.ensemble, held.store));
  EXPECT_FALSE(SelectRecord(4, held.ensemble, held.store));
  EXPECT_EQ(held.Take(Realization(3)), kIdentical) << "the case read last counts, not the current one";
  EXPECT_EQ(held.ensemble.nrec, 1);
  EXPECT_TRUE(held.ensemble.record.empty()) << "nothing of the dropped records stays";

  (void)held.Take(Realization(4));
  ASSERT_TRUE(SelectRecord(1, held.ensemble, held.store));
  EXPECT_EQ(held.Take(Realization(5)), kAdded);
  ASSERT_TRUE(SelectRecord(2, held.ensemble, held.store));
  EXPECT_EQ(held.store.base_name, "4");
  ASSERT_TRUE(SelectRecord(3, held.ensemble, held.store));
  EXPECT_EQ(held.store.base_name, "5");
}

TEST(EnsembleMatch, CombinedAndEmptyCases) {
  Held held;
  (void)held.Take(Realization(1));
  CaseStore combined = Realization(2);
  combined.combined = true;
  EXPECT_EQ(held.Take(combined), "");
  EXPECT_EQ(held.ensemble.nrec, 1);
  EXPECT_EQ(held.Take(Realization(3)), kNoMatch);
  (void)held.Take(Realization(4));
  reset_ensemble(held.store, held.ensemble);
  EXPECT_EQ(held.ensemble.nrec, 1);
  EXPECT_TRUE(SelectRecord(1, held.ensemble, held.store));
  EXPECT_EQ(held.store.base_name, "4");
  reset_ensemble(CaseStore{}, held.ensemble);
  EXPECT_EQ(held.ensemble.nrec, 0);
  EXPECT_FALSE(SelectRecord(1, held.ensemble, held.store));
}

}  // namespace
}  // namespace zaview
