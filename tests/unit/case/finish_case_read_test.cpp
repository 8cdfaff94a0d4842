#include "case/read/finish_case_read.h"

#include <numbers>

#include <gtest/gtest.h>

#include "case/read/default_skip.h"
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

// Steps in store without histories are enough here.
CaseStore Stored(int first, int n) {
  CaseStore c = SmallCase(first, 0);
  c.last_read = c.last_step = first + n - 1;
  c.control.USHIP = 0.0;
  return c;
}

CaseStore Jonswap(int first, int n) {
  CaseStore c = Stored(first, n);
  c.control.USHIP = 7.5;
  c.control.seaway.ISEA = 8;
  c.control.seaway.TOMODAL = 9.5;
  c.control.seaway.SEAHD = 180.0;
  return c;
}

std::string Choose(CaseStore& c, SkipPrompt mode, std::deque<std::string> input = {}, int skip_initial = -1) {
  FakePlatform fake;
  fake.input = std::move(input);
  RunState run;
  run.skip_prompt = mode;
  OutputSettings settings = SettingsFor(c);
  settings.reading.skip_initial = skip_initial;
  ChooseDefaultSkip(fake.Get().console, run, settings, c);
  return fake.output;
}

TEST(DefaultSkip, SilentCountsAndAnswers) {
  // clang-format off
  const std::pair<CaseStore, int> silent[] = {
      {Jonswap(1, 3000), 300}, {Jonswap(1, 501), 300}, {Jonswap(1, 500), 250}, {Jonswap(371, 330), 165},
      {Jonswap(1, 100), 50}, {Jonswap(1, 99), 25}, {Jonswap(1, 20), 19}, {Stored(1, 480), 240}, {Stored(1, 99), 0}};
  const std::pair<std::deque<std::string>, int> asked[] = {
      {{"40"}, 40}, {{""}, 25}, {{"-3"}, 25}, {{"QUIT"}, 25}, {{}, 25}, {{"5000"}, 2999}, {{"0"}, 0}};
  // clang-format on
  for (auto [c, skip] : silent)
    EXPECT_EQ(Choose(c, SkipPrompt::silent), "Skipping      " + std::to_string(skip) + " time steps by default\n");
  const std::string told =
      "Setting # of initial time steps skipped to avoid transient startup effects\n"
      "in statistical analysis such as peak statistics, RMS, etc.\n"
      "Spectral def seaway ...... modal period= 9.5\n"
      "Forward speed case ... encounter period= 6.309575\n"
      "Relevant period ...................... = 6.309575 which = 25.2383 time steps\n"
      "Simulation has 3000 time steps\n"
      "How many time steps to skip=> [25]";
  for (const auto& [input, skip] : asked) {
    CaseStore c = Jonswap(1, 3000);
    EXPECT_EQ(Choose(c, SkipPrompt::ask, input).substr(0, told.size()), told);
    EXPECT_EQ(c.skip_effective, skip);
  }
  CaseStore impulsive = Jonswap(1, 3000), own = Jonswap(1, 3000);
  impulsive.control.MOTYPE = 1;
  EXPECT_EQ(Choose(impulsive, SkipPrompt::ask) + Choose(own, SkipPrompt::none) + Choose(own, SkipPrompt::ask, {}, 77),
            "");
}

// What the prompt offers tells the period: count = int(period / 0.25 + 0.5).
TEST(DefaultSkip, PeriodsOfSeas) {
  constexpr double kW8 = std::numbers::pi / 4;  // 8 s
  // clang-format off
  const struct { void (*bend)(ControlRecords&); std::string_view words; int count; } rows[] = {
      {[](auto& r) { r.seaway.ISEA = 1; r.seaway.waves = {{1, 0, 0.5, 0}, {kW8, 0, -2, 0}, {2, 0, 2, 0}}; },
       "Composite wave . period of largest wave= 8\n", 32},
      {[](auto& r) { r.seaway.ISEA = 4; r.seaway.alternative = {{0, 0, 1, 0, 9, 0}, {0, 0, 3, 0, kW8, 0}}; },
       "Composite wave . period of largest wave= 8\n", 32},
      {[](auto& r) { r.seaway.ISEA = 5; }, "Nonlinear irregular wave - sorry, no clue\n", 0},
      // T = 2 pi sqrt(4 2.236068 / (9.81 0.36003873)) = 9.9988
      {[](auto& r) { r.seaway.ISEA = 2; r.seaway.SIGWHT = 4; }, "Spectral def seaway ...... modal period= 9.99", 40},
      // x = 3924.0, w0 = 14.3822 x^-0.33 = 0.937...
      {[](auto& r) { r.seaway.ISEA = 6; r.seaway.VWIND10 = 15; r.seaway.FETCH = 90000; },
       "Spectral def seaway ...... modal period= 6.7", 27},
      {[](auto& r) { r.seaway.ISEA = 7; r.seaway.SIGWHT1 = 1; r.seaway.TMODAL1 = 12; r.seaway.SIGWHT2 = 2; r.seaway.TMODAL2 = 8; },
       "Spectral def seaway ...... modal period= 8\n", 32},  // of the larger of two
      {[](auto& r) { r.seaway.ISEA = 8; r.seaway.TOMODAL = 5; r.MOTYPE = 0; r.AMPM[4] = 1; r.OMEGM[4] = kW8; },
       "Forced motion case .... max body period= 8\n", 32},  // longer than that of the sea
      {[](auto& r) { r.seaway.ISEA = 1; r.seaway.waves = {{kW8, 0, 1, 0}}; r.USHIP = 2 * 9.81 / kW8; },
       "Forward speed case ... encounter period= 8\n", 32},  // |w - U w^2/g|, U = 2 g / w: w again
      {[](auto& r) {  // a ship as fast as the wave keeps its period
         r.seaway.ISEA = 1; r.seaway.waves = {{0.5, 0, 1, 0}};
         r.GRAVIN = r.GRAVOUT = r.LENIN = r.LENOUT = 1; r.USHIP = 2; },
       "Regular wave .............. wave period= 12.56637\nRelevant", 50},
      {[](auto& r) { r.DTH = 0; }, "Relevant period ...................... = 0 which = 0", 0},
  };
  // clang-format on
  for (const auto& row : rows) {
    CaseStore c = Stored(1, 3000);
    row.bend(c.control);
    const std::string output = Choose(c, SkipPrompt::ask);
    EXPECT_NE(output.find(row.words), std::string::npos) << row.words << '\n' << output;
    EXPECT_EQ(c.skip_effective, row.count) << row.words << '\n' << output;
  }
}

}  // namespace
}  // namespace zaview
