#include "case/settings/step_range.h"

#include <gtest/gtest.h>

#include "fake_platform.h"

namespace zaview {
namespace {

TEST(StepRange, OfNumbersThatAreTyped) {
  CaseStore store;
  store.first_step = 11;
  store.last_step = 40;
  const struct {
    const char* typed;
    int first, last, increment, count;
  } cases[] = {{"0", 11, 40, 1, 30}, {"12", 12, 12, 1, 1}, {"11 40 10", 11, 40, 10, 3}, {"20 21", 20, 21, 1, 2}};
  for (const auto& c : cases) {
    FakePlatform fake;
    fake.input = {"5 20 1", "11 41", "20 19", "11 12 0", "x", c.typed};  // each bad one is asked again
    const Platform platform = fake.Get();
    StepRange range;
    EXPECT_EQ(AskStepRange(platform.console, store, "Steps", kIllegalStepRange, range), Answer::ok);
    EXPECT_EQ(range.first, c.first);
    EXPECT_EQ(range.last, c.last);
    EXPECT_EQ(range.increment, c.increment);
    EXPECT_EQ(range.count(), c.count);
  }
}

}  // namespace
}  // namespace zaview
