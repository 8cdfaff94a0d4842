#include "control/read_control_records.h"

#include <array>

#include <gtest/gtest.h>

#include "control/input_scales.h"
#include "control_draft.h"

namespace zaview {
namespace {

struct Outcome {
  ControlStatus status = ControlStatus::failed;
  Delimiter delimiter = Delimiter::none;
  ControlRecords records;
  std::string console;
};

Outcome Read(const std::string& text) {
  TextFile file(text);
  Outcome out;
  ControlText control{&file.source, "run.out"};
  out.status = ReadControlRecords(file.platform, control, out.records);
  out.delimiter = control.delimiter;
  out.console = file.fake.output;
  return out;
}

Outcome Read(const ControlDraft& draft) {
  return Read(draft.Text() + "! FILE_PARSING_DATA\n");
}

TEST(ReadControlRecords, WholeTextWithSomeCommentLines) {
  ControlDraft draft;
  // clang-format off
  draft.record = {
      {1, {"!01 DESCR - Descriptive Title (max 80 char)", "Wigley hull, head sea"}}, {2, {""}}, {3, {""}},
      {4, {"!04 FGEOM - Source file for geometry definition", "wigley.geo"}}, {5, {"run.out"}},
      {6, {"!06 Output frequency", "!           POUT              GOUT", "0 0 0 0", "", "", "", ""}},
      {11, {"1 19*0"}}, {12, {"1"}}, {13, {"1 2 0", "6*0", "3*0.0", ""}},
      {14, {"!14 TINIT NSTEP DTH IRST", "0.0 3000 0.25 0", "first.rst", "", ""}},
      {15, {"7.5 0.0 0.0 0.0"}}, {16, {"0.0 0.0 -1.25 3*0.0"}}, {17, {"7.5 5*0.0"}},
      {18, {"!18 AMPM(1:6)", "6*0.0", "6*0.0", "6*1"}},
      {21, {"!21 ISEA", "8", "!21 (cont)", "4.0 9.5 3.3", "180.0 0.0 40 1 1 2", "!21 (cont)", "1 0.0", "101 1.0"}},
      {22, {"9.81 1025.0 100.0 57.29578"}}, {23, {"9.80 1025.0 328.0 1.0"}},
      {24, {"1.0 0.0 0.0", "0.0 0.0 6.25", "", "0.0 0.0 -3.0"}},
      {25, {"!25 SMA", "2846353.0 3.5E7 21.0 31.0 12.0 1.8D9 32.0 13.0 23.0 1.9D9"}}, {26, {"0.0 0.0 5.0"}},
      {27, {"1 0"}}, {28, {"1", "1 2 3 0.4 5 6 0.7"}}, {29, {"1 0 0 2 0", "25.0 0.0 6.25", "-25.0 0.0 6.25"}},
      {30, {"1.19E-6 1", "!30 (cont)", "0.05"}}, {31, {"0"}},
      {32, {"1", "-48.0 0.0 2.0 0.0 0.0 -1.0 1.0 0.0 0.0 4.0 2.5 0.5"}}, {33, {"0"}}};
  // clang-format on
  const Outcome out = Read(draft);
  ASSERT_EQ(out.status, ControlStatus::ok) << out.console;
  EXPECT_EQ(out.console, "");
  EXPECT_EQ(out.delimiter, Delimiter::file_parsing_data);
  const ControlRecords& r = out.records;
  EXPECT_EQ(r.DESCR + '|' + r.FAPLT + '|' + r.FGEOM + '|' + r.FOUT + '|' + r.FRST + '|' + r.FWLMEM,
            "Wigley hull, head sea||wigley.geo|run.out|first.rst|");
  EXPECT_EQ((std::array{r.AUXOUT[0], r.MOTYPE, r.NSTEP, r.seaway.NFREQ}), (std::array{1, 2, 3000, 40}));
  EXPECT_EQ((std::array{r.DTH, r.VMGSHP[0], r.seaway.SIGWHT, r.seaway.TOMODAL, r.LENOUT, r.CRITDAMP}),
            (std::array{0.25, 7.5, 4.0, 9.5, 328.0, 0.05}));
  EXPECT_EQ(r.PMGIN, (Sextet{0, 0, -1.25, 0, 0, 0}));
  EXPECT_EQ(r.seaway.WSCSTP, (std::vector<int>{1, 101}));
  EXPECT_EQ(r.seaway.WSCFAC, (std::vector<double>{0.0, 1.0}));
  EXPECT_TRUE(r.GSHIFT == (Triple{1, 0, 0}) && r.GROT == (Triple{0, 0, -3}));
  EXPECT_TRUE(r.SMI[0] == (Triple{3.5e7, 12, 13}) && r.SMI[1] == (Triple{21, 1.8e9, 23})) << "columns come first";
  EXPECT_EQ(r.components.at(0).SPST0, 0.7);
  EXPECT_EQ(r.XMC.at(1), (Triple{-25, 0, 6.25}));
  EXPECT_TRUE(r.fins.at(0).span == (Triple{0, 0, -1}) && r.fins[0].deflection == 0.5);
}

TEST(ReadControlRecords, FaultsNameRecordAndLine) {
  // clang-format off
  const struct { int record; const char* line; const char* console; } cases[] = {
      {14, "0.0 many 0.25 0", "14 of the control data cannot be read : run.out, line 17\n"},
      {21, "1\n1 0\n1 2 x 4", "21 of the control data cannot be read : run.out, line 29\n"},
      {21, "1\n-2 0", "ERR105 - Seaway specified but NWAVES = -2\n"},
      {21, "1\n2000000000 0", "21"},  // must not allocate
      {21, "4\n2147483647 2147483647 0", "21"}, {21, "4\n-2 -2 0", "ERR326"},
      {21, "5\n-2 0 0", "ERR326"}, {21, "3\n1 -1\n1 0 1 0", "ERR154"},
      {22, "9.81 1025.0 0.0 1.0", "22"}, {22, "9.81 NaN 1.0 1.0", "22"}, {22, "9.81 1025.0 /", "22"},  // left out: 0
      {23, "9.81 1025.0 Inf 1.0", "23"}, {28, "-1", "28"}, {29, "0 0 0 2000000000 0", "29"}, {29, "0 0 0 0 -5", "29"},
      {32, "99999999999", "32"}, {33, "3", "33"},
      {33, "-3", "ERR176 - Number of plate-like appendages NBK= -3 connot be negative\n"},
      {21, "9", "ERR104 - Seaway specifier ISEA= 9\n"},
      {21, "-1", "ERR104 - Seaway specifier ISEA= -1\n"}};
  // clang-format on
  for (const auto& c : cases) {
    ControlDraft draft;
    draft.record[c.record] = {c.line};
    if (c.record == 14) draft.record[14] = {c.line, "", "", ""};
    const Outcome out = Read(draft);
    EXPECT_EQ(out.status, ControlStatus::failed) << c.console;
    const std::string words = (c.console[0] == 'E' ? "" : "ERROR - record ") + std::string(c.console);
    EXPECT_EQ(out.console.substr(0, words.size()), words) << c.line;
  }
  EXPECT_EQ(Read("Draft\n").console.substr(0, 17), "ERROR - record 02");  // one field
}

TEST(ReadControlRecords, ModulesAreKeptAsRawTextAndTheLastYCutLoadsCount) {
  ControlDraft draft;
  // clang-format off
  draft.modules = {"!Wind force calculation input module", "  $wind: DEFAULT ! note", "!WIND01 AREA_PROJ",
                   "850.0 140.0 ! m2", "", "$YCUTLOADS:", "1 0 0 0", "$ycutloads :", "!YCUTLOADS01 IVMY IHMY ITMY NBCY",
                   "0 1 0 2", "!YCUTLOADS02 XMCY(123,1->NBCY)", "0.0 2.5 6.25", "0.0 -2.5 6.25", "END_OF_FILE",
                   "$LATE:"};
  // clang-format on
  const Outcome out = Read(draft);
  ASSERT_EQ(out.status, ControlStatus::ok) << out.console;
  EXPECT_EQ(out.delimiter, Delimiter::none);
  ASSERT_EQ(out.records.modules.size(), 2U);
  EXPECT_EQ(out.records.modules[0].name, "WIND");
  EXPECT_EQ(out.records.modules[0].header, "  $wind: DEFAULT ! note");
  EXPECT_EQ(out.records.modules[0].lines, (std::vector<std::string>{"!WIND01 AREA_PROJ", "850.0 140.0 ! m2", ""}));
  EXPECT_EQ(out.records.ycut.IHMY, 1);
  ASSERT_EQ(out.records.ycut.XMCY.size(), 2U);
  EXPECT_EQ(out.records.ycut.XMCY[1], (Triple{0, -2.5, 6.25}));
}

TEST(ReadControlRecords, EndlessModuleTextIsRefused) {
  std::string text = ControlDraft{}.Text() + "$WIND:\n";
  const std::string line = std::string(255, 'x') + '\n';
  for (int i = 0; i < 300'000; ++i) text += line;
  const Outcome out = Read(text);
  EXPECT_EQ(out.status, ControlStatus::failed);
  EXPECT_EQ(out.console.substr(0, 42), "ERROR - control data is too long : run.out");
}

TEST(InputScales, ArePowersOfLengthGravityAndDensity) {
  ControlRecords r;
  r.LENIN = 4;
  r.GRAVIN = 9;
  r.RHOIN = 2;
  r.ANGIN = 57.29578;
  const InputScales s = InputScalesOf(r);
  const double got[] = {s.length,          s.time, s.frequency, s.velocity, s.angle * 57.29578,
                        s.rate * 57.29578, s.mass, s.inertia};
  const double want[] = {0.25, 1.5, 2.0 / 3.0, 1.0 / 6.0, 1.0, 2.0 / 3.0, 1.0 / 128.0, 1.0 / 2048.0};
  for (std::size_t i = 0; i < 8; ++i) EXPECT_DOUBLE_EQ(got[i], want[i]) << i;
}

}  // namespace
}  // namespace zaview
