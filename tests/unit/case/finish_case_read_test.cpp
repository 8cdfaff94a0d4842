#include "case/read/finish_case_read.h"

#include <gtest/gtest.h>

#include "fake_platform.h"
#include "small_case.h"

namespace zaview {
namespace {

TEST(FinishCaseRead, Trimming) {
  const std::string whole =
      "WRN501 - Specified trimming would elminate time history\n"
      "         Terminal trimming is not applied\n";
  const std::string incomplete =
      "WRN500 - Last 200 time steps trimmed from incomplete ZAVO run\n"
      "         Use menu option 11 or script command SET_TRIM_ABORT 0 to restore\n"
      "         these steps or re-trim the record\n";
  // clang-format off
  const struct {
    int first_read, last_read, planned, initial, terminal, abort, first_step, last_step;
    std::string words;
  } rows[] = {
      {1, 3000, 3000, 0, 0, 200, 1, 3000, ""},
      {1, 450, 600, 0, 0, 200, 1, 250, incomplete},
      {1, 450, 600, 0, 0, 0, 1, 450, ""},
      {1, 450, 600, 0, 300, 200, 1, 150, ""},  // the user's own trim is the larger
      {1, 200, 600, 0, 0, 200, 1, 200, incomplete + whole},
      {1, 100, 100, 60, 40, 200, 61, 100, whole},
      {1, 100, 100, 2147483647, 2147483647, 200, 100, 100, whole},
      {1, 100, 100, 60, 39, 200, 61, 61, ""},
      {371, 700, 700, 10, 20, 200, 381, 680, ""},  // a restarted part is complete by its last index
      {371, 700, 900, 0, 0, 200, 371, 500, incomplete},
      {371, 500, 700, 0, 0, 200, 371, 500, incomplete + whole},  // 130 in store
      {1, 0, 0, 5, 5, 200, 1, 0, ""}};
  // clang-format on
  for (const auto& row : rows) {
    FakePlatform fake;
    CaseStore c;
    c.first_read = row.first_read;
    c.last_read = row.last_read;
    c.nstep_expected = row.planned;
    OutputSettings settings;
    settings.reading.trim_initial = row.initial;
    settings.reading.trim_terminal = row.terminal;
    settings.reading.trim_abort = row.abort;
    finish_case_read(fake.Get().console, settings, c);
    EXPECT_EQ(c.first_step, row.first_step) << row.last_read << ' ' << row.initial;
    EXPECT_EQ(c.last_step, row.last_step) << row.last_read << ' ' << row.initial;
    EXPECT_EQ(fake.output, row.words);
  }
}

TEST(FinishCaseRead, SkipsAndKeySteps) {
  // clang-format off
  const struct { int requested, before, last_step, after; } skips[] = {
      {-1, 300, 3000, 300}, {-1, 300, 250, 249},  // the default of the read stays, but inside the trims
      {0, 300, 3000, 0}, {250, 7, 250, 250}, {251, 7, 250, 249}, {5, 7, 0, 0}};
  const struct { int first, last, interval; std::vector<int> want; } keys[] = {
      {1, 3000, 1000, {1, 1001, 2001, 3000}}, {1, 2501, 1000, {1, 1001, 2001}},  // exactly half: not more than half
      {1, 2502, 1000, {1, 1001, 2001, 2502}}, {371, 700, 1000, {371}}, {1, 3, 0, {1, 2, 3}}, {1, 0, 1000, {}}};
  // clang-format on
  for (const auto& row : skips) {
    CaseStore c;
    c.last_read = row.last_step;
    c.skip_effective = row.before;
    OutputSettings settings;
    settings.reading.skip_initial = row.requested;
    (void)ApplyTrim(settings, c);
    EXPECT_EQ(c.skip_effective, row.after) << row.requested << ' ' << row.last_step;
  }
  for (const auto& row : keys) {
    CaseStore c;
    c.first_read = row.first;
    c.last_read = row.last;
    OutputSettings settings;
    settings.reading.kmstep_interval = row.interval;
    ASSERT_TRUE(FindKeySteps(settings, c));
    EXPECT_EQ(c.kmstep, row.want) << row.last;
  }
}

}  // namespace
}  // namespace zaview
