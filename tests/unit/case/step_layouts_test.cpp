#include <gtest/gtest.h>

#include "case/read/time_steps.h"
#include "control_draft.h"
#include "step_draft.h"

namespace zaview {
namespace {

StepsRead ReadText(const std::string& text, CaseStore& fresh) {
  TextFile file(text);
  return ReadTimeSteps(file.stream, static_cast<std::int64_t>(text.size()), fresh, {}, 2);
}

TEST(StepLayouts, EachVersionHasItsOwn) {
  // clang-format off
  const StepDraft drafts[] = {
      {"tpva12345LYcrn", 417}, {"tpva12345LYcrn", 362}, {"tpva12345LYcrn", 0}, {"tpva12345LYcrn", -1},
      {"tpva12345F", 361}, {"tpva12345F", 299}, {"tpva123F", 298}, {"tpva123F", 293}, {"t pva123F dM", 291},
      {"tpva123F", 290}, {"tpva123F", 1}, {"tpva123dF", -1, true},
      {"t Spva12345", 357, false, 2, 2}, {"t Spva12345", 291, false, 3, 1}, {"t Spva12345", 1, false, 2, 1},
      {"t Spva12345cr", 358, false, 3, 2}, {"t Spva12345cr", 361, false, 2, 2}, {"t Spva12345crn", 362, false, 2, 1},
      {"t Spva12345crn", 0, false, 3, 3}, {"t Spva12345crn", -1, true, 2, 2},
      {"t Spva12345crn", 417, false, 2, 2, 1},  // several ships: a positive mode leaves the steps here
      {"tpva12345LYcrn", 417, false, 1, 1, 3},  // no mode that there is
      {"tmi", 417, false, 1, 1, 0, 1}, {"tmi", 291, false, 1, 1, 0, 1}, {"tmi", 350, false, 3, 2, 0, 1},
      {"tmi", 0, false, 2, 2, 2, 1}};
  // clang-format on
  constexpr int kSteps = 40;
  for (const StepDraft& draft : drafts) {
    CaseStore expected;
    DraftWriter writer(draft, expected);
    std::string text;
    for (int step = 1; step <= kSteps; ++step) text += ListText(writer.Step(step, 0.25F * static_cast<float>(step)));
    const std::string what = fmt::format("{} version {} ship {}", draft.lists, draft.version, draft.ship);
    const int least = draft.motype == 1 ? kSteps / 2 : kSteps;  // an impulsive run may have up to twice NSTEP steps
    for (const int nstep : {least, kSteps, kSteps + 1}) {
      CaseStore fresh = DraftCase(draft, nstep);
      const StepsRead read = ReadText(nstep == least ? text + "****\n" : text, fresh);
      EXPECT_EQ(read.end, nstep > kSteps ? StepsEnd::file_end : StepsEnd::complete) << what << ", NSTEP " << nstep;
      EXPECT_EQ(read.kept, kSteps) << what;
      ExpectStored(fresh, expected, what);
      // Loads that a layout lacks are taken away.
      EXPECT_EQ(fresh.loads.y_kinds.empty(), what.find('Y') == std::string::npos) << what;
    }
  }
}

// The step behind the last whole one never leaves a trace, wherever in its lists it ends.
TEST(StepLayouts, CutBetweenLists) {
  const StepDraft draft{"t Spva12345cr", 360, false, 2, 2};
  CaseStore expected, dropped;
  const std::string one = ListText(DraftWriter(draft, expected).Step(1, 1));
  Lists two = DraftWriter(draft, dropped).Step(2, 2);
  while (!two.empty()) {
    two.pop_back();
    CaseStore fresh = DraftCase(draft, 9);
    const StepsRead read = ReadText(one + ListText(two), fresh);
    EXPECT_EQ(read.end, StepsEnd::file_end);
    EXPECT_EQ(read.begun, !two.empty());
    ExpectStored(fresh, expected, fmt::format("{} lists", two.size()));
  }
}

}  // namespace
}  // namespace zaview
