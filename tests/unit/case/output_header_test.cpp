#include "case/read/output_header.h"

#include <cstring>
#include <tuple>

#include <gtest/gtest.h>

#include "case/read/irf_sections.h"
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

constexpr std::string_view kEnd = "!END OF INPUT FILE ECHO\n";
constexpr std::string_view kNoIrfs =
    "ERR490 - No IRF calculations found - The ZAVO output file may ...\n"
    "    ... be from an older version of ZAVO,\n"
    "    ... not have had to compute any IRF's  (i.e. all were up to date),\n";
constexpr std::string_view kNoMatrices =
    "WRN491 - IRF output file did not contain frequency independent added\n"
    "         mass and damping coefficients, so there is nothing to\n"
    "         process for the added mass IRF\n";

std::string Label(std::string_view label) {
  return "!IRF  12        " + std::string(label) + '\n';
}

struct IrfRead {
  TextFile file;
  CaseStore c;
  IrfStatus status = IrfStatus::ok;

  explicit IrfRead(std::string text, bool tadm = false) : file(std::move(text)) {
    c.file_name = "run.out";
    c.control.MOTYPE = 1;
    c.irf_case = !tadm;
    c.tadm_case = tadm;
    c.control.SWTCH = {0, 0, 1, 0, 1, 0};
    status = ReadIrfSections(file.platform.console, file.source, c);
  }
  [[nodiscard]] const std::string& words() const { return file.fake.output; }
};

// Heave with a list over two lines, matrices with their rows numbered, diffraction.
struct Parts {
  std::string heave = Label("radiation in heave, ship 2, 2 steps (no aij, etc.)");
  std::string heave_data = "0.0 1 2 3\n 4 5 6 dropped\n0.5 6*-1.5\n";
  std::string mass = Label("added mass, ship 1, 0 steps (with aij, etc.)");
  std::string mass_data;
  std::string head = Label("diffraction head, heading 170.5, ship 1, 1 steps (no aij, etc.)");
  std::string head_data = "0. 1 2 3 4 5 6, 11 12 13 14 15 16\n";
  Parts() {
    for (int row = 1; row <= 18; ++row) mass_data += std::to_string(row) + " 2*0 7 , 0.25 -2\n";
  }
  [[nodiscard]] std::string Inline() const {
    return heave + heave_data + mass + mass_data + head + head_data + std::string(kEnd);
  }
  [[nodiscard]] std::string Collected() const {
    return heave + mass + head + std::string(kEnd) + heave_data + mass_data + head_data;
  }
};

TEST(IrfSections, LabelsTellKindShipHeading) {
  // clang-format off
  const struct { std::string_view label; IrfKind kind; int ship; double heading; } rows[] = {
      {"steady forward speed, ship 1, 0 steps", IrfKind::steady, 1, 0},
      {"radiation in sway, 0 steps", IrfKind::sway, 1, 0},
      {"radiation in heave, ship  2 , 0 steps", IrfKind::heave, 2, 0},
      {"radiation in pitch, ship 1, 0 step (no aij)", IrfKind::pitch, 1, 0},
      {"diffraction head, ship 1, 0 steps", IrfKind::diffraction_head, 1, 180},
      {"diffraction follow 1, heading 30.5, ship 1, 0 steps", IrfKind::diffraction_follow_1, 1, 30.5},
      {"diffraction follow 3, heading -10, ship 1, 0 steps", IrfKind::diffraction_follow_3, 1, -10},
      {"added mass, ship 1, 0 steps (no aij, etc.)", IrfKind::added_mass, 1, 0},
      {"added mass of radiation in yaw, ship=1, 0   steps", IrfKind::yaw, 1, 0}};  // first of the order
  // clang-format on
  for (const auto& row : rows) {
    const IrfRead read(Label(row.label) + std::string(kEnd));
    ASSERT_EQ(read.status, IrfStatus::ok) << row.label << read.words();
    ASSERT_EQ(read.c.irfs.size(), 1U);
    const IrfBlock& irf = read.c.irfs[0];
    EXPECT_EQ(irf.label, row.label);
    EXPECT_EQ(irf.kind, row.kind) << row.label;
    EXPECT_EQ(irf.ship, row.ship) << row.label;
    EXPECT_EQ(irf.heading, row.heading) << row.label;
    EXPECT_EQ(irf.froude_krylov.components(), IsDiffraction(row.kind) ? 6 : 0);
    EXPECT_EQ(read.words(), row.kind == IrfKind::added_mass ? kNoMatrices : "");
  }
}

void ExpectParts(const CaseStore& c) {
  ASSERT_EQ(c.irfs.size(), 3U);
  EXPECT_EQ(c.rvm, 3);
  const auto& [heave, mass, head] = std::tie(c.irfs[0], c.irfs[1], c.irfs[2]);
  EXPECT_EQ(heave.time.component[0], (std::vector<float>{0.0F, 0.5F}));
  for (int i = 1; i <= 6; ++i) {
    EXPECT_EQ(heave.force.at(i, 1), static_cast<float>(i));
    EXPECT_EQ(heave.force.at(i, 2), -1.5F);
    EXPECT_EQ(head.force.at(i, 1), static_cast<float>(i));
    EXPECT_EQ(head.froude_krylov.at(i, 1), static_cast<float>(10 + i));
  }
  EXPECT_EQ(head.heading, 170.5);
  EXPECT_TRUE(mass.has_matrices && mass.time.component[0].empty());
  for (std::size_t row = 0; row < 18; ++row)
    EXPECT_EQ(mass.matrices[row / 6][row % 6],
              (std::array<float, 6>{static_cast<float>(row + 1), 0.0F, 0.0F, 7.0F, 0.25F, -2.0F}));
}

// An added mass run goes on behind the end line, or behind the data that stand there.
TEST(IrfSections, DataOfEachKindInBothOrders) {
  Parts parts;
  std::vector<std::string> texts = {parts.Inline(), parts.Collected()};
  for (std::string text : {parts.Inline(), parts.Collected()}) {
    for (std::size_t i = text.find('\n'); i != std::string::npos; i = text.find('\n', i + 2)) text.insert(i, "\r");
    texts.push_back(text);
  }
  parts.heave_data = "\n\n0.0 1 2 3\n 4 5 6\n0.5 6*-1.5\n1.0 6*9\nnot wanted\n";  // more lists than the label says
  texts.push_back(parts.Inline());
  parts = Parts{};
  parts.head = "\n" + parts.head;  // a blank line between the labels
  texts.push_back(parts.Collected());
  for (const std::string& text : texts) {
    IrfRead read(text + "0.0 12*1\n", true);
    ASSERT_EQ(read.status, IrfStatus::ok) << read.words();
    EXPECT_EQ(read.words(), "");
    ExpectParts(read.c);
    std::string_view line;
    EXPECT_TRUE(NextRawLine(read.file.source, line) && line == "0.0 12*1");
  }
}

TEST(IrfSections, Faults) {
  const Parts parts;
  const std::string no_end = "LOGIC ERROR parsing output file header\n";
  const std::string heave = Label("radiation in heave, ship 1, 2 steps");
  const std::string end(kEnd);
  // clang-format off
  const std::pair<std::string, std::string> rows[] = {
      {end, std::string(kNoIrfs)},
      {"", no_end},
      {parts.heave + parts.heave_data, no_end},
      {Label("waves, ship 1, 2 steps") + end, "ERR489 - Unrecognized IRF : !IRF  12        waves, ship 1, 2 steps\n"},
      {Label("radiation in yaw, ship , 401 steps") + end,
       "LOGIC ERROR parsing ship index from IRF label: radiation in yaw, ship , 401 steps\n"},
      {Label("radiation in yaw, ship 1") + end,
       "ERROR - number of steps missing in IRF label : radiation in yaw, ship 1\n"},
      {Label("radiation in yaw, 3000000000 steps") + end,
       "ERROR - number of steps missing in IRF label : radiation in yaw, 3000000000 steps\n"},
      {heave + "0.0 6*1\n" + parts.mass + parts.mass_data + end, "ERROR - Error reading IRF data : run.out, line 3\n"},
      {heave + "0.0 6*1\n1.0 3 **** 3*1\n" + end, "ERROR - Error reading IRF data : run.out, line 3\n"},
      {heave + end + "0.0 6*1\n1.0 6*\n" + parts.heave, ""},
      {heave + end + "0.0 6*1\n1.0 5*1\n", "ERROR - Unexpected file end in IRF data : run.out\n"}};
  // clang-format on
  for (const auto& [text, words] : rows) {
    const IrfRead read(text);
    EXPECT_EQ(read.words(), words) << text;
    EXPECT_EQ(read.status, words.empty() ? IrfStatus::ok : IrfStatus::failed) << text;
  }
  EXPECT_EQ(IrfRead(std::string(kEnd), true).status, IrfStatus::ok);  // an added mass run needs no blocks
}

// A file that ends too early is told, wherever it is cut; what was read is never taken for more than it is.
TEST(IrfSections, CutAtEveryByte) {
  const Parts parts;
  for (const std::string& text : {parts.Inline(), parts.Collected()}) {
    const std::size_t end_line = text.find(kEnd) + kEnd.size() - 1;  // its last line end may be missing
    for (std::size_t size = 0; size < text.size(); ++size) {
      const IrfRead read(text.substr(0, size));
      const bool whole = size >= end_line && read.status == IrfStatus::ok;
      EXPECT_EQ(read.words().empty(), whole) << size;
      if (!whole) continue;
      EXPECT_EQ(read.c.irfs[2].force.at(1, 1), 1.0F);
    }
  }
}

// A list may be wider than any block; a count that the file can't hold costs no more memory than its lines do.
TEST(IrfSections, WideListsAndCountsThatAreNotTrusted) {
  const IrfRead wide(Label("radiation in yaw, 1 steps") + "3" + std::string(300000, ' ') + "6*7\n" + std::string(kEnd));
  ASSERT_EQ(wide.status, IrfStatus::ok);
  EXPECT_EQ(wide.c.irfs[0].force.at(6, 1), 7.0F);
  const IrfRead read(Label("radiation in heave, 2147483647 steps") + "0.0 6*1\n1.0 6*1\n");
  EXPECT_EQ(read.status, IrfStatus::failed);
  EXPECT_LT(read.c.irfs[0].force.component[5].capacity(), 10000U);
}

}  // namespace
}  // namespace zaview
