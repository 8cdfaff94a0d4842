#include "case/read/irf_sections.h"

#include <array>
#include <string>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include "control_draft.h"

namespace zaview {
namespace {

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
