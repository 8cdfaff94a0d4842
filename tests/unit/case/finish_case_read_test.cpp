#include "case/read/finish_case_read.h"

#include <algorithm>
#include <numbers>

#include <gtest/gtest.h>

#include "case/derived_arrays.h"
#include "case/read/default_skip.h"
#include "case/read/restart_combine.h"
#include "case/smooth_stored.h"
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
  const struct { int first_read, last_read, planned, initial, terminal, abort, first_step, last_step;
                 std::string words; } rows[] = {
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
    c.first_read = row.first_read, c.last_read = row.last_read, c.nstep_expected = row.planned;
    OutputSettings settings;
    settings.reading.trim_initial = row.initial, settings.reading.trim_terminal = row.terminal;
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
  c.control.seaway.ISEA = 8, c.control.seaway.TOMODAL = 9.5, c.control.seaway.SEAHD = 180.0;
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

using Values = std::vector<float>;

std::vector<StepHistory*> Stored(CaseStore& c) {
  return {&c.pmgg,       &c.vmg,        &c.acc,      &c.force,         &c.load_force[0],
          &c.rudder_cmd, &c.rudder_ang, &c.prop_rps, &c.load_moment[5]};
}

// Steps first .. last of which every value but the time is `value`. Time scale and DTH: 1 and 0.25.
CaseStore Part(int first, int last, float value) {
  const int n = last - first + 1;
  CaseStore part = SmallCase(first, n);
  AddLoads(part, first, n);
  part.control.GRAVIN = part.control.LENIN = 1;
  FillLine(part.time, 1, first, n, -0.25, 0, 0.25);
  for (StepHistory* history : Stored(part))
    for (Values& column : history->component) std::fill(column.begin(), column.end(), value);
  return part;
}

Values Column(const StepHistory& history, int i, const CaseStore& c) {
  const std::span<const float> column = history.range(i, c.first_read, c.last_read);
  return {column.begin(), column.end()};
}

// New data win over old ones; what lies behind the new last step is gone; what the old file lacks is zero.
TEST(RestartCombine, Overlaps) {
  for (const int old_last : {4, 9}) {
    CaseStore old = Part(1, old_last, 1), fresh = Part(3, 5, 2);
    old.prop_rps = {};
    ASSERT_TRUE(CombineHistories(old, fresh));
    EXPECT_TRUE(fresh.combined && fresh.gaps.empty());
    EXPECT_EQ(Column(fresh.time, 1, fresh), (Values{0, 0.25, 0.5, 0.75, 1}));
    for (const StepHistory* history : Stored(fresh))
      for (int i = 1; i <= history->components(); ++i)
        EXPECT_EQ(Column(*history, i, fresh),
                  history == &fresh.prop_rps ? (Values{0, 0, 2, 2, 2}) : (Values{1, 1, 2, 2, 2}));
  }
}

// A clock that is a little off shows by which rule a gap gets its times.
TEST(RestartCombine, GapsAreZeroWithTimesByRule) {
  CaseStore old = Part(1, 2, 1), second = Part(5, 6, 2), third = Part(4, 4, 3);
  old.time.component[0][1] = 0.3125F;
  ASSERT_TRUE(CombineHistories(old, second));
  EXPECT_EQ(Column(second.time, 1, second), (Values{0, 0.3125, 0.5625, 0.8125, 1, 1.25}));
  EXPECT_EQ(Column(second.prop_rps, 1, second), (Values{1, 1, 0, 0, 2, 2}));
  ASSERT_TRUE(EnsureDerived(second, Derived::motion) && EnsureDerived(second, Derived::accg));
  for (const int step : {3, 4}) EXPECT_TRUE(second.motion.at(1, step) == 0.0F && second.accg.at(3, step) == 0.0F);
  EXPECT_NE(second.motion.at(1, 5), 0.0F);
  CaseStore smoothed = second;
  ASSERT_TRUE(SmoothStored(FakePlatform().Get().console, 1, 5, smoothed));
  EXPECT_EQ(Column(smoothed.load_moment[5], 1, smoothed)[2] + Column(smoothed.pmgg, 3, smoothed)[3], 0.0F);
  EXPECT_NE(smoothed.pmgg.at(3, 1), 1.0F);

  ASSERT_TRUE(CombineHistories(second, third));  // cuts the gap; what was behind it is gone
  EXPECT_EQ(Column(third.pmgg, 3, third), (Values{1, 1, 0, 3}));
  EXPECT_TRUE(third.gaps.size() == 1 && third.gaps[0].from == 3 && third.gaps[0].to == 3);
}

TEST(RestartCombine, Offers) {
  const std::string question =
      "The previously read data was for steps 1 through 4\n"
      "so these could be for multiple parts of a restarted ZAVO run\n"
      "Do you wish to try and combine the output histories or just use the last one?\n"
      "NOTE that the code cannot guarantee that the files are indeed part\n"
      "     of the same run or even for the same configuration\n"
      "Enter C to COMBINE or L to use LAST =>";
  const auto same = [](CaseStore&) {};
  const std::string joined = "The combined history runs from step 1 through 5\n";
  const std::string refused = "WARNING - Output histories not combined : ";
  using enum RestartMode;
  // clang-format off
  // first: of the new part, two steps long; the old one has 1 to 4
  const struct { int first; RestartMode mode; bool can_ask; const char* answer; void (*change)(CaseStore& fresh);
                 bool combined; std::string words; } cases[] = {
      {4, ask, true, "C\n", same, true, question + " C\n" + joined},
      {4, ask, true, "combine\n", same, true, question + " combine\n" + joined},
      {4, ask, true, "L\n", same, false, question + " L\n"},
      {4, ask, true, "", same, false, question + "\n"},
      {4, ask, false, "", same, false, "Output histories not combined : use -restart or READ_COMB\n"},
      {1, ask, true, "C\n", same, false, ""},
      {4, ask, true, "C\n", [](CaseStore& c) { c.control.FGEOM = "b.geo"; }, false, ""},
      {4, keep_last, true, "C\n", same, false, ""},
      {4, combine, false, "", same, true, joined},
      {7, combine, false, "", same, true,
       "The combined history runs from step 1 through 8\nbut includes a gap from step 5 through 6\n"
       "Data for these time steps will be set to zero\n"},
      {1, combine, false, "", same, false, refused + "first step 1 does not come after step 1\n"},
      {4, combine, false, "", [](CaseStore& c) { c.loads.x_cuts.resize(1); }, false, refused + "geometry or loads differ\n"},
      {4, combine, false, "", [](CaseStore& c) { c.control.MOTYPE = 1; }, false, refused + "geometry or loads differ\n"},
      {2000000000, combine, false, "", same, false, refused + "too long a gap from step 5 through 1999999999\n"},
  };
  // clang-format on
  for (const auto& c : cases) {
    FakePlatform fake;
    fake.Type(c.answer);
    CaseStore fresh = Part(c.first, c.first + 1, 2);
    c.change(fresh);
    OfferCombination(fake.Get().console, c.mode, c.can_ask, Part(1, 4, 1), fresh);
    EXPECT_EQ(fresh.combined, c.combined) << c.words;
    EXPECT_EQ(fresh.first_read, c.combined ? 1 : c.first) << c.words;
    EXPECT_EQ(fake.output, c.words);
  }
}

}  // namespace
}  // namespace zaview
