#include "control/control_text.h"

#include <gtest/gtest.h>

#include "control/options_lookup.h"
#include "control_draft.h"

namespace zaview {
namespace {

TEST(ControlText, TextFieldsDropQuotesAndOuterBlanks) {
  // clang-format off
  const struct { const char* line; const char* text; } cases[] = {
      {"  Frigate, sea state 6 \t", "Frigate, sea state 6"}, {"'hull 12.geo'", "hull 12.geo"},
      {" \"it's\" dropped", "it's"}, {"'it''s' 5", "it's"},  // a doubled quote stands for one
      {"'no end", "no end"}, {"'   '", ""}, {"", ""}, {"a\tb", "a b"},
  };
  // clang-format on
  for (const auto& c : cases) EXPECT_EQ(TextField(c.line, kTitleLength), c.text) << c.line;
  EXPECT_EQ(TextField(std::string(100, 'x'), kTitleLength), std::string(80, 'x'));
  EXPECT_EQ(TextField("'" + std::string(100, 'y') + "'", kTitleLength), std::string(80, 'y'));
}

TEST(ControlText, CommentsAreCutAndDelimitersFoundInRawLines) {
  TextFile file(
      "! not there\n"
      "kept 'a!b'\n"
      "   ! a blank line stays\n"
      " END_OF_FILE not in column 1\n" +
      std::string(300, 'x') + "\n! INPUT_FILE_ECHO is a comment here, derived_data_echo too\n" +
      "7 ! ---- DERIVED_DATA_ECHO ----\nbehind\n");
  HeaderText text{&file.source};
  const std::string expected[] = {"kept 'a", "   ", " END_OF_FILE not in column 1", std::string(256, 'x')};
  std::string_view line;
  for (const std::string& wanted : expected) {
    ASSERT_EQ(NextDataLine(text, line), TextEvent::line);
    EXPECT_EQ(line, wanted);
  }
  EXPECT_EQ(NextDataLine(text, line), TextEvent::delimiter);
  EXPECT_EQ(text.delimiter, Delimiter::derived_data_echo);
  EXPECT_EQ(NextDataLine(text, line), TextEvent::delimiter) << "an ended section stays ended";

  HeaderText next{&file.source};
  EXPECT_EQ(NextDataLine(next, line), TextEvent::line);
  EXPECT_EQ(line, "behind");
  EXPECT_EQ(NextDataLine(next, line), TextEvent::end_of_file);
}

TEST(ControlText, EndsAndLimits) {
  // clang-format off
  const struct { const char* text; std::int64_t most; std::vector<TextEvent> events; } cases[] = {
      {"END_OF_FILE and more\nnext\n", 9, {TextEvent::end_of_text}},
      {"1\n2\n3\n", 2, {TextEvent::line, TextEvent::line, TextEvent::too_long}}};
  // clang-format on
  for (const auto& c : cases) {
    TextFile file(c.text);
    HeaderText text{&file.source, c.most};
    std::string_view line;
    for (const TextEvent event : c.events) EXPECT_EQ(NextTextLine(text, line), event) << c.text;
  }
}

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
