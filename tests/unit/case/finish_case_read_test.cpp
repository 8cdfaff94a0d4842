#include "case/finish_case_read.h"

#include <gtest/gtest.h>

#include "fake_platform.h"
#include "small_case.h"

namespace zaview {
namespace {

constexpr std::string_view kHint =
    "         Use menu option 11 or script command SET_TRIM_ABORT 0 to restore\n"
    "         these steps or re-trim the record\n";
constexpr std::string_view kWhole =
    "WRN501 - Specified trimming would elminate time history\n"
    "         Terminal trimming is not applied\n";

TEST(FinishCaseRead, Trimming) {
  const std::string incomplete = "WRN500 - Last 200 time steps trimmed from incomplete ZAVO run\n" + std::string(kHint);
  const struct {
    int first_read, last_read, planned;
    int initial, terminal, abort;
    int first_step, last_step;
    std::string words;
  } rows[] = {{1, 3000, 3000, 0, 0, 200, 1, 3000, ""},
              {1, 450, 600, 0, 0, 200, 1, 250, incomplete},
              {1, 450, 600, 0, 0, 0, 1, 450, ""},
              {1, 450, 600, 0, 300, 200, 1, 150, ""},  // the user's own trim is the larger
              {1, 150, 600, 0, 0, 200, 1, 150, incomplete + std::string(kWhole)},
              {1, 200, 600, 0, 0, 200, 1, 200, incomplete + std::string(kWhole)},
              {1, 100, 100, 60, 40, 200, 61, 100, std::string(kWhole)},
              {1, 100, 100, 2147483647, 2147483647, 200, 100, 100, std::string(kWhole)},
              {1, 100, 100, 60, 39, 200, 61, 61, ""},
              {371, 700, 700, 0, 0, 200, 371, 700, ""},  // a restarted part is complete by its last index
              {371, 700, 700, 10, 20, 200, 381, 680, ""},
              {371, 700, 900, 0, 0, 200, 371, 500, incomplete},
              {371, 500, 700, 0, 0, 200, 371, 500, incomplete + std::string(kWhole)},  // 130 in store
              {1, 0, 0, 5, 5, 200, 1, 0, ""}};
  for (const auto& row : rows) {
    FakePlatform fake;
    CaseStore c;
    c.first_read = row.first_read;
    c.last_read = row.last_read;
    c.nstep_expected = row.planned;
    OutputSettings settings;
    settings.trim_initial = row.initial;
    settings.trim_terminal = row.terminal;
    settings.trim_abort = row.abort;
    finish_case_read(fake.Get().console, settings, c);
    EXPECT_EQ(c.first_step, row.first_step) << row.last_read << ' ' << row.initial;
    EXPECT_EQ(c.last_step, row.last_step) << row.last_read << ' ' << row.initial;
    EXPECT_EQ(c.current_step, row.first_step);
    EXPECT_EQ(fake.output, row.words);
  }
}

TEST(FinishCaseRead, Skip) {
  const struct {
    int requested, before, last_step, after;
  } rows[] = {{-1, 300, 3000, 300},                      // the default of the read stays
              {-1, 300, 250, 249},                       // but inside the trims
              {0, 300, 3000, 0},    {250, 7, 250, 250},  // literal: up to last_step
              {251, 7, 250, 249},   {5, 7, 0, 0}};
  for (const auto& row : rows) {
    CaseStore c;
    c.last_read = row.last_step;
    c.skip_effective = row.before;
    OutputSettings settings;
    settings.skip_initial = row.requested;
    (void)ApplyTrim(settings, c);
    EXPECT_EQ(c.skip_effective, row.after) << row.requested << ' ' << row.last_step;
  }
}

TEST(FinishCaseRead, RetrimKeepsTheCurrentStepInside) {
  CaseStore c;
  c.last_read = 100;
  OutputSettings settings;
  settings.trim_initial = 10;
  settings.trim_terminal = 20;
  for (const auto& [before, after] : {std::pair{5, 11}, {50, 50}, {95, 80}}) {
    c.current_step = before;
    (void)ApplyTrim(settings, c);
    EXPECT_EQ(c.current_step, after);
  }
}

TEST(FinishCaseRead, KeySteps) {
  const struct {
    int first, last, interval;
    std::vector<int> want;
  } rows[] = {{1, 3000, 1000, {1, 1001, 2001, 3000}},
              {1, 2501, 1000, {1, 1001, 2001}},  // exactly half: not more than half
              {1, 2502, 1000, {1, 1001, 2001, 2502}},
              {371, 700, 1000, {371}},
              {1, 5, 2, {1, 3, 5}},
              {1, 2, 3, {1}},
              {1, 3, 3, {1, 3}},
              {1, 3, 0, {1, 2, 3}},
              {1, 0, 1000, {}}};
  for (const auto& row : rows) {
    CaseStore c;
    c.first_read = row.first;
    c.last_read = row.last;
    OutputSettings settings;
    settings.kmstep_interval = row.interval;
    ASSERT_TRUE(FindKeySteps(settings, c));
    EXPECT_EQ(c.kmstep, row.want) << row.last;
  }
}

TEST(FinishCaseRead, SectionSummaryAndFlags) {
  FakePlatform fake;
  CaseStore c;
  c.loads.NBCA = 5;
  c.loads.nycut = 2;
  c.loads.x_kinds = {1, 3};
  c.loads.y_kinds = {5};
  OutputSettings settings;
  finish_case_read(fake.Get().console, settings, c);
  EXPECT_EQ(fake.output,
            "Sectional loads computed at 5 X=const cut plane(s):\n"
            "  Vertical Shear Force and Bending Moment\n"
            "  Compression Force and Torsional Moment\n"
            "Sectional loads computed at 2 Y=const cut plane(s):\n"
            "  Horizontal Shear Force and Bending Moment\n");
  for (const auto& [motype, mixed, irf, tadm] :
       {std::tuple{2, 2, false, false}, {0, 0, false, false}, {1, 0, true, false}, {1, -2, false, true}}) {
    c.control.MOTYPE = motype;
    c.control.MIXED = mixed;
    SetCaseFlags(c);
    EXPECT_EQ(c.irf_case, irf);
    EXPECT_EQ(c.tadm_case, tadm);
  }
}

}  // namespace
}  // namespace zaview
