#include "case/ship_texts.h"

#include <gtest/gtest.h>

#include "case/output_header.h"
#include "control_draft.h"

namespace zaview {
namespace {

ControlDraft Ship(int i) {
  const std::string n = std::to_string(i);
  ControlDraft draft;
  draft.record[1] = {"ship " + n};
  draft.record[4] = {n + ".geo"};
  draft.record[11] = {n + " 19*0"};
  draft.record[14][0] = "0.0 " + n + "00 0.25 0";
  draft.record[16] = {n + " 5*0.0"};
  draft.record[21] = {"2", n + ".0 9.5", "180.0 0.0 40 1 1 0"};
  draft.record[22] = {"9.81 1025.0 " + n + "00.0 1.0"};
  draft.record[26] = {n + " 0 0"};
  draft.record[29] = {"1 0 0 1 0", n + " 0 0"};
  draft.modules = {"$WIND:", n, "$OPTIONS:", "A " + n};
  return draft;
}

std::string HeaderOf(const std::string& texts, int ships) {
  std::string text = "VERSION   : 4.1.7\n!--- INPUT_FILE_ECHO\n" + texts + "!--- FILE_PARSING_DATA\n" +
                     std::to_string(ships) + "\n0\n!--- DERIVED_DATA_ECHO\n";
  for (int i = 0; i < ships; ++i) text += "1\n3*0\n3*0\n3*0\n3*0\n";
  return text + "1 1 6*0\n1\n3*0\n0\n!--- END_OF_HEADER\n";
}

TEST(ShipTexts, EachShipKeepsItsOwnRecords) {
  const std::string end = "END_OF_FILE\n";
  const std::string one = Ship(1).Text(), two = Ship(2).Text(), three = Ship(3).Text();
  const struct {
    const char* what;
    std::string texts;
    int ships, ship;
    int own;  // whose records it gets; 0: refused
  } cases[] = {
      {"first of two",                                         one + end + two + end,                                2, 1, 1},
      {"second of two",                                        one + end + two + end,                                2, 2, 2},
      {"blank lines and comments between, no last end",        one + end + "\n! ship 2\n  \n" + two,                 2, 2, 2},
      {"middle one",                                           one + end + two + end + three + end,                  3, 2, 2},
      {"last one",                                             one + end + two + end + end + three + end,            3, 3, 3},
      {"no text of its own",                                   one + end,                                            2, 2, 1},
      {"one that can't be read",                               one + end + "ship 2\n\n",                             2, 1, 0},
      {"one ship: what stands behind its text doesn't matter", one + end + "any\nlines\n",                           1, 1, 1},
      {"one that is cut by END_OF_FILE",                       one + end + "ship 2\n" + end,                         2, 2, 0},
      {"more texts than ships can be",                         one + end + two + end + three + end + "a\nb\n" + end, 3, 2, 2},
  };
  for (const auto& c : cases) {
    TextFile file(HeaderOf(c.texts, c.ships) + "first step\n");
    CaseStore fresh;
    fresh.ship = c.ship;
    const HeaderStatus status = ReadOutputHeader(file.platform.console, file.source, "run.out", fresh);
    ASSERT_EQ(status == HeaderStatus::ok, c.own > 0) << c.what << ": " << file.fake.output;
    EXPECT_EQ(file.fake.output.find("ERROR") != std::string::npos, c.own == 0) << c.what << file.fake.output;
    if (c.own == 0) continue;
    const ControlRecords& r = fresh.control;
    EXPECT_EQ(r.DESCR, "ship " + std::to_string(c.own)) << c.what;
    EXPECT_EQ(r.FGEOM, std::to_string(c.own) + ".geo") << c.what;
    EXPECT_EQ(r.PMGIN[0], c.own) << c.what;
    EXPECT_EQ(r.RGRAV[0], c.own) << c.what;
    EXPECT_EQ(r.XMC.at(0)[0], c.own) << c.what;
    EXPECT_EQ(r.modules.at(0).lines.at(0), std::to_string(c.own)) << c.what;
    // Those of the run are the first text's.
    EXPECT_EQ(r.AUXOUT[0], 1) << c.what;
    EXPECT_EQ(r.NSTEP, 100) << c.what;
    EXPECT_EQ(r.seaway.SIGWHT, 1) << c.what;
    EXPECT_EQ(r.LENIN, 100) << c.what;
    EXPECT_EQ(r.modules.at(1).lines.at(0), "A 1") << c.what;
    EXPECT_EQ(fresh.loads.x_kinds.size(), c.ships == 1 ? 1U : 0U) << c.what;
    std::string_view line;
    EXPECT_TRUE(NextRawLine(file.source, line)) << c.what;
    EXPECT_EQ(line, "first step") << c.what;
  }
}

}  // namespace
}  // namespace zaview
