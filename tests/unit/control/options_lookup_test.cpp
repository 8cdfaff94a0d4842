#include "control/options_lookup.h"

#include <gtest/gtest.h>

namespace zaview {
namespace {

ControlRecords WithOptions(std::vector<std::string> lines) {
  ControlRecords records;
  records.modules = {{"WIND", "$WIND:", {"SPEC_CUTOFF 9"}},
                     {"OPTIONS", "$OPTIONS:", {"SPEC_CUTOFF 8"}},
                     {"OPTIONS", "$OPTIONS:", std::move(lines)}};
  return records;
}

TEST(OptionsLookup, SpellingsOfALine) {
  // clang-format off
  const struct { const char* line; double value; } rows[] = {
      {"SPEC_CUTOFF 1.D-3", 0.001}, {"  spec_cutoff: 0.5 ! half", 0.5}, {"Spec_Cutoff = 2", 2},
      {"SPEC_CUTOFF=3, of the peak", 3}, {"SPEC_CUTOFF\t:\t4", 4}, {"SPEC_CUTOFF", -1}, {"SPEC_CUTOFF = high", -1},
      {"! SPEC_CUTOFF 6", -1}, {"SPEC_CUTOFF2 7", -1}, {"= 7", -1},
  };
  // clang-format on
  for (const auto& row : rows) EXPECT_EQ(RealOption(WithOptions({row.line}), {"SPEC_CUTOFF"}), row.value) << row.line;
}

TEST(OptionsLookup, LastOneCountsAndTextKeepsItsCase) {
  const ControlRecords records =
      WithOptions({"SPEC_PHASEOPT 2", "SPEC_PHASEOPTION 4.0", "SPEC_PHASEFILE 'My Phases.txt' of 2021", "FAUXOUT a b"});
  EXPECT_EQ(IntegerOption(records, {"SPEC_PHASEOPTION", "SPEC_PHASEOPT"}), 4);
  std::string text = "as it was";
  EXPECT_FALSE(FindOption(records, {"SPEC_CUTOFF"}, text));
  EXPECT_EQ(text, "as it was");
  EXPECT_TRUE(FindOption(records, {"SPEC_PHASEFILE"}, text));
  EXPECT_EQ(text, "My Phases.txt");
  EXPECT_TRUE(FindOption(records, {"FAUXOUT"}, text));
  EXPECT_EQ(text, "a b");
  EXPECT_EQ(IntegerOption(ControlRecords{}, {"SPEC_DISTOPT"}), -1);
}

}  // namespace
}  // namespace zaview
