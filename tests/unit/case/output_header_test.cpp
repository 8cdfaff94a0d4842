#include "case/read/output_header.h"

#include <cstring>

#include <gtest/gtest.h>

#include "case/version_label.h"
#include "control_draft.h"

namespace zaview {
namespace {

struct HeaderDraft {
  std::string preamble = " VERSION   : 4.1.7 / April 28, 2022\n ZAVO Primary Output File\n";
  ControlDraft control;
  std::string behind_control;  // texts of further ships
  std::string parsing = "1\n1\n1\n1\n3*0.0\n0 0 6.25\n3*0.0\n";
  std::string ship = "0.0028 mass\n1 0 0\n0 2 0\n0 0 3\n0 0 -0.0125\n";
  std::string loads = "8*0\n0\n0\n";
  std::string rest;

  [[nodiscard]] std::string Text() const {
    return preamble + "!---- INPUT_FILE_ECHO ----\n" + control.Text() + behind_control +
           "!---- FILE_PARSING_DATA ----\n" + parsing + "!---- DERIVED_DATA_ECHO ----\n" + ship + loads + rest +
           "!---- END_OF_HEADER ----\n";
  }
  void PutCuts(int x, int y) {
    control.record[29] = {"1 1 1 " + std::to_string(x) + " 0"};
    for (int i = 0; i < x; ++i) control.record[29].push_back("10 0 5");
    control.modules = {"$YCUTLOADS:", "0 1 0 " + std::to_string(y)};
    for (int i = 0; i < y; ++i) control.modules.push_back("0 2.5 5");
  }
};

struct Outcome {
  HeaderStatus status = HeaderStatus::failed;
  CaseStore fresh;
  std::string console;
  std::string behind;  // the line behind the header
};

Outcome Read(const std::string& text, int ship = 1) {
  TextFile file(text + "0.0 first step\n");
  Outcome out;
  out.fresh.ship = ship;
  out.status = ReadOutputHeader(file.platform, file.source, "run.out", out.fresh);
  out.console = file.fake.output;
  std::string_view line;
  if (NextRawLine(file.source, line)) out.behind = line;
  return out;
}

TEST(VersionLabel, NumbersAndVariants) {
  const std::string none = "Version label not found in output file: assuming current version\n";
  // clang-format off
  const struct { const char* line; int VERSION; bool gyre; std::string console; } cases[] = {
      {"VERSION   : 4.1.7 / April 28, 2022", 417, false, "Output file is labeled version 417\n"},
      {" RELEASE   : 3.5", 350, false, "Output file is labeled version 350\n"},
      {"VERSION   : GYRE 2.1.0", -1, true, "Output file is labeled GYRE version 210\n"},
      {"VERSION   : RVM 1.2.3", 293, false, "Output file is labeled RVM version 123\n"},
      {"VERSION   : ZAVO-TAMBRINE 4.0.9", 407, false, "Output file is labeled ZAVO-TAMBRINE version 409\n"},
      {"VERSION   : WEXMARK-2 3.6.1", 361, false, "Output file is labeled WEXMARK version 361\n"},
      {"9 VERSION   : 4.1.7", 417, false, "Output file is labeled version 417\n"},  // column 1
      {"VERSION   : 4", 0, false, none}, {"VERSION: 4.1.7", 0, false, none}};
  // clang-format on
  for (const auto& c : cases) {
    FakePlatform fake;
    VersionLabel label;
    OutputLabels labels;
    ScanPreambleLine(c.line, label, labels.kind);
    AdoptVersionLabel(fake.Get().console, label, labels);
    EXPECT_EQ(labels.VERSION, c.VERSION) << c.line;
    EXPECT_EQ(labels.gyre, c.gyre) << c.line;
    EXPECT_EQ(fake.output, c.console);
  }
}

TEST(OutputHeader, OrdinaryFile) {
  HeaderDraft draft;
  draft.preamble =
      "VERSION   : 3.0.0\nVERSION   : 4.1.7\nVERSION   : 5\n Primary Output File\n";  // the last usable counts
  draft.PutCuts(2, 1);
  draft.loads = "1 1 0 1 1 0 1 0\n2\n0.1 0 0 cut\n-0.1 0 0\n1\n0 0.025 -0.0125\n";
  draft.rest = "0.0123 2*0.5  further scalars\nno list\n\n7\n";
  const Outcome out = Read(draft.Text());
  ASSERT_EQ(out.status, HeaderStatus::ok) << out.console;
  EXPECT_EQ(out.console,
            "Output file is labeled version 417\nReading ZAVO input data from output file...\n Reading input module "
            "YCUTLOADS\n");
  EXPECT_EQ(out.behind, "0.0 first step");
  EXPECT_EQ(out.fresh.ships[0].mass, 0.0028);
  EXPECT_EQ(out.fresh.ships[0].inertia[2], (Triple{0, 0, 3}));
  EXPECT_EQ(out.fresh.ships[0].centre, (Triple{0, 0, -0.0125}));
  EXPECT_EQ(out.fresh.geometry_files.at(0).GORIG, (Triple{0, 0, 6.25}));
  EXPECT_EQ(out.fresh.loads.x_kinds, (std::vector<int>{1, 3}));
  EXPECT_EQ(out.fresh.loads.y_kinds, (std::vector<int>{5}));
  EXPECT_EQ(out.fresh.loads.x_cuts[1], (Triple{-0.1, 0, 0}));
  EXPECT_EQ(out.fresh.loads.y_cuts[0], (Triple{0, 0.025, -0.0125}));
  EXPECT_EQ(out.fresh.unnamed_derived[0], (std::vector<double>{0.0123, 0.5, 0.5}));
  EXPECT_EQ(out.fresh.unnamed_derived[1], (std::vector<double>{7}));
}

TEST(OutputHeader, OlderVersionsLackLists) {
  HeaderDraft draft;
  draft.PutCuts(2, 1);
  const std::string two_cuts = "2\n0.1 0 0\n-0.1 0 0\n";
  // clang-format off
  const struct { const char* version; std::string parsing, loads; Triple y_cut; } cases[] = {
      {"4.0.0", "1\n1\n1\n1\n3*0\n3*0\n3*0\n", "1 1 1 1 1 0 1 0\n" + two_cuts + "1\n0 0.7 0\n", {0, 0.7, 0}},
      {"3.9.9", "1\n1\n1\n1\n3*0\n3*0\n3*0\n", two_cuts + "1\n0 0.7 0\n", {0, 0.7, 0}},
      {"3.1.2", "1\n1\n1\n3*0\n3*0\n3*0\n", two_cuts + "1\n0 0.7 0\n", {0, 0.7, 0}},
      {"3.0.7", "1\n1\n1\n3*0\n3*0\n3*0\n", two_cuts + "1\n9 9 9\n8 8 8\n", {0, 0.025, 0.05}}};
  // clang-format on
  for (const auto& c : cases) {
    draft.preamble = std::string("VERSION   : ") + c.version + "\n";
    draft.parsing = c.parsing;
    draft.loads = c.loads;
    const Outcome out = Read(draft.Text());
    ASSERT_EQ(out.status, HeaderStatus::ok) << c.version << out.console;
    EXPECT_EQ(out.fresh.loads.x_kinds, (std::vector<int>{1, 2, 3})) << c.version;
    EXPECT_EQ(out.fresh.loads.y_kinds, (std::vector<int>{5})) << c.version;
    EXPECT_EQ(out.fresh.loads.y_cuts, (std::vector<Triple>{c.y_cut})) << c.version;
    EXPECT_TRUE(out.fresh.unnamed_derived.empty()) << c.version;
  }
}

TEST(OutputHeader, OtherCountsOfShipsAndGeometryFiles) {
  HeaderDraft none, two, many;
  none.parsing = "0\n0\n\n\n";  // a blank line in place of the lists does no harm
  none.ship = "";
  two.behind_control = "END_OF_FILE\n\n! ship 2\n" + ControlDraft{}.Text() + "END_OF_FILE\n";
  two.parsing = "2\n2\n1 4\n0 1\n3*0\n3*0\n3*0\n3*1\n3*2\n3*3\n";
  two.ship += two.ship;
  many.parsing = "1\n5000\n";  // lists on one line, far beyond the columns of a control line
  for (int i = 0; i < 4999; ++i) many.parsing += "3 ";
  many.parsing += "4\n5000*0\n";
  for (int i = 1; i < 15000; ++i) many.parsing += "3*0\n";
  many.parsing += "3*5\n";  // the excess shares the last row
  // clang-format off
  const struct { const HeaderDraft& draft; std::size_t ships, files; int NCOMPR; Triple GROT; } cases[] = {
      {none, 0, 0, 0, {}}, {two, 2, 2, 4, {3, 3, 3}}, {many, 1, 1000, 4, {5, 5, 5}}};
  // clang-format on
  for (const auto& c : cases) {
    const Outcome out = Read(c.draft.Text());
    ASSERT_EQ(out.status, HeaderStatus::ok) << out.console;
    EXPECT_EQ(out.fresh.ships.size(), c.ships);
    ASSERT_EQ(out.fresh.geometry_files.size(), c.files);
    if (c.files == 0) continue;
    EXPECT_EQ(out.fresh.geometry_files.back().NCOMPR, c.NCOMPR);
    EXPECT_EQ(out.fresh.geometry_files.back().GROT, c.GROT);
  }
}

// A device or a pipe that gives line ends for ever; the reading begins shortly before it is given up.
TEST(OutputHeader, EndlessFilesAreGivenUp) {
  TextFile file("");
  file.platform.files.read = [](void*, FileHandle, char* to, std::size_t size) {
    std::memset(to, '\n', size);
    return static_cast<std::int64_t>(size);
  };
  file.stream.offset = 16 * 1024 * 1024 - 10000;
  CaseStore fresh;
  EXPECT_EQ(ReadOutputHeader(file.platform, file.source, "run.out", fresh), HeaderStatus::failed);
  EXPECT_EQ(file.fake.output.substr(0, 6), "ERR407");
}

TEST(OutputHeader, FaultsBehindTheControlText) {
  const std::string parsing407 = "ERR407 - Error reading file parsing data\n";
  const std::string derived407 = "ERR407 - Error reading derived data echo\n";
  // clang-format off
  const struct { std::string HeaderDraft::*spoiled; const char* text; std::string console; } cases[] = {
      {&HeaderDraft::parsing, "-1\n", parsing407 + "         Illegal NSHIP value\n"},
      {&HeaderDraft::parsing, "4\n",
       "ERR419 - Too many ships (dynamic systems)\n         File has NSHIP= 4 while MAXDYN= 3\n"},
      {&HeaderDraft::parsing, "1\n-2\n", parsing407 + "         Illegal NFGEOM value\n"},
      {&HeaderDraft::parsing, "1\n2000000000\n2000000000*1\n",
       "ERR??? - Error allocating arrays for geometry file list\n"},
      {&HeaderDraft::parsing, "1\n900000\n900000*1\n900000*0\n", parsing407},  // without the files
      {&HeaderDraft::parsing, "1\n2\n3 -1\n", parsing407 + "         Illegal NCOMPR value\n"},
      {&HeaderDraft::parsing, "1\n2\n3 1\n0 2\n", parsing407 + "         Illegal SYMINPF value\n"},
      {&HeaderDraft::parsing, "1\n1\n1\n1\n3*0.0\n", parsing407},  // cut by the delimiter
      {&HeaderDraft::loads, "8*0\n1\n3*0\n0\n", derived407},       // other counts of cuts than the control text
      {&HeaderDraft::loads, "8*0\n0\n1\n3*0\n", derived407},
      {&HeaderDraft::loads, "", derived407},
      {&HeaderDraft::ship, "****\n", derived407},
  };
  // clang-format on
  for (const auto& c : cases) {
    HeaderDraft draft;
    draft.*c.spoiled = c.text;
    const Outcome out = Read(draft.Text());
    EXPECT_EQ(out.status, HeaderStatus::failed) << c.text;
    EXPECT_EQ(out.console,
              "Output file is labeled version 417\nReading ZAVO input data from output file...\n" + c.console);
  }
}

TEST(OutputHeader, PreambleDecidesWhatKindOfFileItIs) {
  const std::string not_found =
      "ERR407 - Input echo section delimiters not found while reading run.out\n"
      "         File is probably not a ZAVO output file\n";
  const std::string current = "Version label not found in output file: assuming current version\n";
  const std::string not_primary = current + "ERR485 - File is not a ZAVO Primary Output File: run.out\n";
  // clang-format off
  const std::pair<std::string, std::string> cases[] = {
      {"", not_found},
      {std::string(200'000, 'x'), not_found},
      {"!-- FILE_PARSING_DATA --\n!-- INPUT_FILE_ECHO --\n", not_found},
      {std::string(70, ' ') + "INPUT_FILE_ECHO\n", not_found},  // only 80 columns are looked at
      {"ZAVO Elastic Beam Output File\n INPUT_FILE_ECHO\n", not_primary},
      {"Standard Output of ZAVO\n INPUT_FILE_ECHO\n", not_primary},
      {"Primary Output File\nPressure Output File\n INPUT_FILE_ECHO\n", not_primary},
  };
  // clang-format on
  for (const auto& c : cases) {
    const Outcome out = Read(c.first);
    EXPECT_EQ(out.status, HeaderStatus::failed);
    EXPECT_EQ(out.console, c.second);
  }
  HeaderDraft unlabelled;
  unlabelled.preamble = "Pressure Output File\nStandard Output Output File Primary\n";
  const Outcome out = Read(unlabelled.Text());
  EXPECT_EQ(out.status, HeaderStatus::ok);
  EXPECT_EQ(out.console, current + "Reading ZAVO input data from output file...\n");
}

ControlDraft Ship(int i) {
  const std::string n = std::to_string(i);
  ControlDraft draft;
  draft.record[1] = {"ship " + n};
  draft.record[11] = {n + " 19*0"};
  draft.record[14][0] = "0.0 " + n + "00 0.25 0";
  draft.record[16] = {n + " 5*0.0"};
  draft.record[21] = {"2", n + ".0 9.5", "180.0 0.0 40 1 1 0"};
  draft.record[29] = {"1 0 0 1 0", n + " 0 0"};
  draft.modules = {"$WIND:", n, "$OPTIONS:", "A " + n};
  return draft;
}

TEST(OutputHeader, EachShipKeepsItsOwnRecords) {
  const std::string end = "END_OF_FILE\n", two = Ship(2).Text(), three = Ship(3).Text();
  // clang-format off
  const struct { std::string behind_first; int ships, ship, own; } cases[] = {  // whose records it gets; 0: refused
      {end + two + end, 2, 1, 1},
      {end + "\n! ship 2\n  \n" + two, 2, 2, 2},  // no last end
      {end + two + end + three + end, 3, 2, 2},
      {end + two + end + end + three + end, 3, 3, 3},
      {end, 2, 2, 1},                             // no text of its own
      {end + "ship 2\n\n", 2, 1, 0},              // one that can't be read
      {end + "any\nlines\n", 1, 1, 1},
      {end + "ship 2\n" + end, 2, 2, 0},
      {end + two + end + three + end + "a\nb\n" + end, 3, 2, 2}};
  // clang-format on
  for (const auto& c : cases) {
    HeaderDraft draft;
    draft.control = Ship(1);
    draft.behind_control = c.behind_first;
    draft.parsing = std::to_string(c.ships) + "\n0\n";
    for (int ship = 1; ship < c.ships; ++ship) draft.ship += "1\n3*0\n3*0\n3*0\n3*0\n";
    draft.loads = "1 1 6*0\n1\n3*0\n0\n";
    const Outcome out = Read(draft.Text(), c.ship);
    ASSERT_EQ(out.status == HeaderStatus::ok, c.own > 0) << c.behind_first << ": " << out.console;
    EXPECT_EQ(out.console.find("ERROR") != std::string::npos, c.own == 0) << out.console;
    if (c.own == 0) continue;
    const ControlRecords& r = out.fresh.control;
    EXPECT_EQ(r.DESCR, "ship " + std::to_string(c.own));
    EXPECT_TRUE(r.PMGIN[0] == c.own && r.XMC.at(0)[0] == c.own) << c.behind_first;
    EXPECT_EQ(r.modules.at(0).lines.at(0), std::to_string(c.own));
    // Those of the run are the first text's.
    EXPECT_TRUE(r.AUXOUT[0] == 1 && r.NSTEP == 100 && r.seaway.SIGWHT == 1) << c.behind_first;
    EXPECT_EQ(r.modules.at(1).lines.at(0), "A 1");
    EXPECT_EQ(out.behind, "0.0 first step");
  }
}

TEST(OutputHeader, EveryPrefixOfAHeaderIsRefused) {
  HeaderDraft draft;
  draft.PutCuts(1, 1);
  draft.loads = "8*1\n1\n3*0\n1\n3*0\n";
  const std::string text = draft.Text();
  ASSERT_EQ(Read(text).status, HeaderStatus::ok);
  const std::size_t whole = text.find("END_OF_HEADER") + std::string("END_OF_HEADER").size();
  for (std::size_t n = 0; n < whole; ++n) {
    TextFile file(text.substr(0, n));
    CaseStore fresh;
    EXPECT_EQ(ReadOutputHeader(file.platform, file.source, "run.out", fresh), HeaderStatus::failed) << n;
  }
}

}  // namespace
}  // namespace zaview
