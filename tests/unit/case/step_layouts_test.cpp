#include <gtest/gtest.h>

#include "case/time_steps.h"
#include "fake_platform.h"
#include "step_draft.h"

namespace zaview {
namespace {

StepsRead ReadText(const std::string& text, CaseStore& fresh) {
  FakePlatform fake;
  fake.Put("run.out", text);
  const Platform platform = fake.Get();
  BlockStream stream;
  StartStream(stream, platform.files, platform.files.open_read(platform.files.self, "run.out"));
  return ReadTimeSteps(stream, static_cast<std::int64_t>(text.size()), fresh, {}, 2);
}

TEST(StepLayouts, EachVersionHasItsOwn) {
  const StepDraft drafts[] = {
      {"tpva12345LYcrn", 417, false, 1, 1, 0, 2},
      {"tpva12345LYcrn", 362, false, 1, 1, 0, 2},
      {"tpva12345LYcrn", 0,   false, 1, 1, 0, 2},
      {"tpva12345LYcrn", -1,  false, 1, 1, 0, 2},
      {"tpva12345F",     361, false, 1, 1, 0, 2},
      {"tpva12345F",     358, false, 1, 1, 0, 2},
      {"tpva12345F",     299, false, 1, 1, 0, 2},
      {"tpva123F",       298, false, 1, 1, 0, 2},
      {"tpva123F",       293, false, 1, 1, 0, 2},
      {"t pva123F dM",   291, false, 1, 1, 0, 2},
      {"tpva123F",       290, false, 1, 1, 0, 2},
      {"tpva123F",       1,   false, 1, 1, 0, 2},
      {"tpva123dF",      -1,  true,  1, 1, 0, 2},
      {"t Spva12345",    357, false, 2, 2, 0, 2},
      {"t Spva12345",    291, false, 3, 1, 0, 2},
      {"t Spva12345",    1,   false, 2, 1, 0, 2},
      {"t Spva12345cr",  358, false, 3, 2, 0, 2},
      {"t Spva12345cr",  361, false, 2, 2, 0, 2},
      {"t Spva12345crn", 362, false, 2, 1, 0, 2},
      {"t Spva12345crn", 0,   false, 3, 3, 0, 2},
      {"t Spva12345crn", -1,  true,  2, 2, 0, 2},
      {"t Spva12345crn", 417, false, 2, 2, 1, 2}, // several ships: a positive mode leaves the steps here
      {"tpva12345LYcrn", 417, false, 1, 1, 3, 2}, // no mode that there is
      {"tmi",            417, false, 1, 1, 0, 1},
      {"tmi",            291, false, 1, 1, 0, 1},
      {"tmi",            350, false, 3, 2, 0, 1},
      {"tmi",            0,   false, 2, 2, 2, 1},
  };
  constexpr int kSteps = 40;
  for (const StepDraft& draft : drafts) {
    CaseStore expected, fresh = DraftCase(draft, kSteps);
    DraftWriter writer(draft, expected);
    std::string text;
    for (int step = 1; step <= kSteps; ++step) text += ListText(writer.Step(step, 0.25F * static_cast<float>(step)));
    const std::string what =
        fmt::format("{} version {} ship {} of {}", draft.lists, draft.version, draft.ship, draft.ships);
    const StepsRead read = ReadText(text, fresh);
    EXPECT_EQ(read.end, StepsEnd::complete) << what;
    EXPECT_EQ(read.kept, kSteps) << what;
    ExpectStored(fresh, expected, what);
  }
}

TEST(StepLayouts, LoadsThatALayoutLacksAreTakenAway) {
  const struct {
    StepDraft draft;
    std::size_t x_kinds, y_kinds;
  } cases[] = {
      {{"", 417, false, 1, 1, 0, 2},  2, 1},
      {{"", 361, false, 1, 1, 0, 2},  2, 0},
      {{"", 291, false, 1, 1, 0, 2},  2, 0},
      {{"", 417, false, 2, 1, 0, 2},  0, 0},
      {{"", 417, false, 1, 1, -2, 2}, 2, 1},
  };
  for (const auto& c : cases) {
    CaseStore fresh = DraftCase(c.draft, 1);
    StepColumns columns;
    EXPECT_TRUE(PrepareColumns(fresh, columns));
    EXPECT_EQ(fresh.loads.x_kinds.size(), c.x_kinds) << c.draft.version;
    EXPECT_EQ(fresh.loads.y_kinds.size(), c.y_kinds) << c.draft.version;
    EXPECT_EQ(fresh.loads.nycut, c.y_kinds > 0 ? kDraftYCuts : 0);
  }
}

// The step behind the last whole one never leaves a trace, wherever in its lists it ends.
TEST(StepLayouts, CutBetweenLists) {
  const StepDraft draft{"t Spva12345cr", 360, false, 2, 2, 0, 2};
  CaseStore expected;
  DraftWriter writer(draft, expected);
  const std::string one = ListText(writer.Step(1, 1));
  CaseStore dropped;
  const Lists two = DraftWriter(draft, dropped).Step(2, 2);
  for (std::size_t lists = 0; lists < two.size(); ++lists) {
    CaseStore fresh = DraftCase(draft, 9);
    const StepsRead read =
        ReadText(one + ListText(Lists(two.begin(), two.begin() + static_cast<std::ptrdiff_t>(lists))), fresh);
    EXPECT_EQ(read.end, StepsEnd::file_end);
    EXPECT_EQ(read.begun, lists > 0);
    ExpectStored(fresh, expected, fmt::format("{} lists", lists));
  }
}

}  // namespace
}  // namespace zaview
