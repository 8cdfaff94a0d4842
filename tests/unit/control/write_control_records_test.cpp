#include "control/write_control_records.h"

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>

#include <gtest/gtest.h>

#include "control/control_lines.h"
#include "control/input_scales.h"
#include "control/read_control_records.h"
#include "control/record_rows.h"
#include "control_draft.h"

namespace zaview {
namespace {

std::string Written(const ControlRecords& records) {
  std::string text;
  EXPECT_TRUE(WriteControlRecords(records, text));
  return text;
}

ControlRecords ReadBack(const std::string& text) {
  TextFile file(text + "END_OF_FILE\n");
  ControlText control{&file.source, "run.out"};
  ControlRecords records;
  EXPECT_EQ(ReadControlRecords(file.platform, control, records), ControlStatus::ok) << file.fake.output;
  return records;
}

// Every value of records that were read, as bits: the rows are what reader and writer share, so the values are not
// looked for through the writer.
std::vector<std::uint64_t> Bits(ControlRecords& r) {
  std::vector<std::uint64_t> bits;
  RecordState state{r};
  state.NWAVES = static_cast<int>(r.seaway.waves.size());
  state.WAVE_NMODE = static_cast<int>(r.seaway.modes.size());
  state.NCOMP0 = static_cast<int>(r.components.size());
  state.NBCA = static_cast<int>(r.XMC.size());
  state.NBMX = static_cast<int>(r.mass_points.size());
  state.NFIN = static_cast<int>(r.fins.size());
  state.NBK = static_cast<int>(r.bilge_keels.size());
  for (const RecordRow& row : RecordRows()) {
    if (row.text != nullptr) continue;
    const std::int64_t count = row.count == nullptr ? 1 : row.count(state);
    for (std::int64_t i = 0; i < count; ++i) {
      FieldList fields;
      EXPECT_TRUE(row.list(state, static_cast<std::size_t>(i), fields));
      for (const ListItem& item : fields.items()) {
        if (const auto* real = std::get_if<double*>(&item)) bits.push_back(std::bit_cast<std::uint64_t>(**real));
        else bits.push_back(static_cast<std::uint64_t>(*std::get<int*>(item)));
      }
    }
  }
  return bits;
}

TEST(ControlReal, ShortestTextThatReadsBack) {
  // clang-format off
  const std::pair<double, const char*> cases[] = {
      {0, "0.0"},     {-0.0, "-0.0"},         {1025, "1025.0"},     {0.1, "0.1"},     {1.0 / 3, "0.3333333333333333"},
      {1e22, "1e+22"}, {-2.5e-10, "-2.5e-10"}, {5e-324, "5e-324"}, {HUGE_VAL, "Inf"}, {std::nan(""), "NaN"}};
  // clang-format on
  for (const auto& [value, text] : cases) EXPECT_EQ(ControlReal(value), text);
}

// Each row bends a record so that lines appear that the shortest text lacks, and tells a value of the last of them. A
// record that takes a line too many or too few would lose the module behind.
TEST(WriteControlRecords, EveryLayoutReadsBackToTheSameBits) {
  using R = const ControlRecords&;
  // clang-format off
  const struct { int record; std::vector<std::string> lines; bool (*good)(R) = [](R) { return true; }; } cases[] = {
      {6, {"-1 2 3 4", "0.1 0.2 -0.0"}, [](R r) { return r.XPOUT == Triple{0.1, 0.2, 0}; }},
      {11, {"1 18*7 -2147483648"}},
      {13, {"1 0 -2", "6*0", "1 2 3", "irf"}, [](R r) { return r.FIRF0 == "irf" && r.ZMIX == 3; }},
      {13, {"1,,0", "6*0", "3*0", ""}, [](R r) { return r.MOTYPE == 0; }},  // left out: 0, not the usual 2
      {14, {"0.3333333333333333 2147483647 1.7976931348623157E-308 3", "a b.rst", "' body'", "'it''s'"}},
      {15, {"NaN -Inf 4.9406564584124654E-324 3.4028234E38"}},
      {21, {"1", "2 2", "0.1 0.2 0.3 0.4", "1 2 3 4", "-5 0.5", "6 1"},
       [](R r) { return r.seaway.waves[1].HEADW == 4 && r.seaway.WSCSTP[1] == 6; }},
      {21, {"2", "1 2", "180 0 40 1 -9 0"}, [](R r) { return r.seaway.TMODAL == 2 && r.seaway.IWVRLZ == -9; }},
      {21, {"3", "5 1", "1 2 3 4", "7 0.25"}, [](R r) { return r.seaway.waves.size() == 1; }},
      {21, {"4", "2 2 0", "1 2 3 4 5 6", "2 3 4 5 6 7", "3 4 5 6 7 8", "4 5 6 7 8 9"},
       [](R r) { return r.seaway.alternative.size() == 4 && r.seaway.alternative[3].HEAD == 9; }},
      {21, {"4", "0 3 0"}},
      {21, {"5", "2 180.0 1", "1 2 3", "4 5 6", "1 1"},
       [](R r) { return r.seaway.modes[1].MODE_FREQ == 6 && r.seaway.NWSC == 1; }},
      {21, {"6", "15 2E5 3.3", "180 0 40 1 1 0"}, [](R r) { return r.seaway.FETCH == 2e5; }},
      {21, {"7", "1 2 3 4 5 6", "180 0.1 40 1 9 0"}, [](R r) { return r.seaway.IWVRLZ == 9; }},
      {21, {"8", "1 2 3", "180 0 40 1 1 1", "3 4"}},
      {24, {"0.1 0.2 0.3 0.4 0.5 0.6 0.7 0.8 0.9"}}, {25, {"1 2 3 4 5 6 7 8 9 0.1"}},
      {28, {"2", "1 2 3 0.4 5 6 0.7", "7 6 5 0.4 3 2 0.1"}, [](R r) { return r.components[1].NEWST0 == 3; }},
      {29, {"1 0 1 2 1", "1 2 3", "4 5 6", "1 2 3 4 5 6 7 8 9 10 11 12 13", "1 2 3 4 5 6 7 8"},
       [](R r) { return r.mass_points[0].AMI == Triple{8, 9, 10} && r.STRDMP[7] == 8; }},
      {30, {"1E-6 1", "0.1"}}, {30, {"1E-6 2", "0.1 0.2"}, [](R r) { return r.CFROLL == 0.1 && r.CFROLL2 == 0.2; }},
      {30, {"1E-6 3", "1 2"}, [](R r) { return r.CFROLL3 == 1 && r.CFROLL4 == 2; }},
      {30, {"1E-6 4", "3"}, [](R r) { return r.CFROLL2 == 3; }}, {30, {"1E-6 5", "4"}, [](R r) { return r.CFROLL3 == 4; }},
      {31, {"1", "1 2 3 4 5"}, [](R r) { return r.deadriseang == 5; }},
      {31, {"2", "1 2 3 4"}, [](R r) { return r.fact_hlift == 4; }}, {32, {"1", "1 2 3 4 5 6 7 8 9 10 11 12"}},
      {33, {"2", "11*0.1", "1 2 3 4 5 6 7 8 9 10 11"}, [](R r) { return r.bilge_keels[1].chord_length == 11; }}};
  // clang-format on
  for (const auto& c : cases) {
    ControlDraft draft;
    draft.record[c.record] = c.lines;
    draft.modules = {"!Wind", "  $wind: DEFAULT ! note", "!WIND01 AREA", "850.0 140.0 ! m2", ""};
    ControlRecords first = ReadBack(draft.Text());
    EXPECT_TRUE(c.good(first)) << c.record << ' ' << c.lines[0];
    const std::string text = Written(first);
    ControlRecords second = ReadBack(text);
    EXPECT_EQ(Bits(first), Bits(second)) << text;
    for (const RecordRow& row : RecordRows())
      EXPECT_TRUE(row.text == nullptr || first.*row.text == second.*row.text) << row.comment;
    EXPECT_EQ(Written(second), text);
    EXPECT_EQ(second.modules.size(), 1U);
  }
}

TEST(WriteControlRecords, TextsThatTheReaderWouldTakeForSomethingElse) {
  // clang-format off
  const std::pair<std::string, std::string> cases[] = {  // what the record holds and what is read back
      {"", ""}, {" run", " run"}, {"it's \"it\"", "it's \"it\""}, {"'a' \"", "'a' \""},
      {"\"a\" 'b' 'c'", "\"a\" 'b' 'c'"}, {"$OPTIONS:", "$OPTIONS:"}, {"END_OF_FILE", "END_OF_FILE"},
      {"a\nb", "a b"}, {"a!b", "a"}, {"!a", ""},
      {std::string(300, 'x'), std::string(256, 'x')}, {" " + std::string(255, 'x'), " " + std::string(254, 'x')}};
  // clang-format on
  for (const auto& [held, want] : cases) {
    ControlRecords records = ReadBack(ControlDraft{}.Text());
    records.FGEOM = held;
    const ControlRecords read = ReadBack(Written(records));
    EXPECT_EQ(read.FGEOM, want);
    EXPECT_EQ(read.FOUT, "run.out") << held;
  }
}

TEST(WriteControlRecords, CountsAboveTheirLimitAreMarked) {
  // clang-format off
  const struct { const char* name; void (*fill)(ControlRecords& r, std::size_t n); std::size_t limit; } cases[] = {
      {"MAXCMP", [](ControlRecords& r, std::size_t n) { r.components.resize(n); }, 100},
      {"MAXBCA", [](ControlRecords& r, std::size_t n) { r.XMC.resize(n); }, 25},
      {"MAXBMP", [](ControlRecords& r, std::size_t n) { r.mass_points.resize(n); }, 350},
      {"MXFIN", [](ControlRecords& r, std::size_t n) { r.fins.resize(n); }, 100},
      {"MXBK", [](ControlRecords& r, std::size_t n) { r.bilge_keels.resize(n); }, 5},
      {"MXSPEC", [](ControlRecords& r, std::size_t n) { r.seaway.ISEA = 1; r.seaway.waves.resize(n); }, 10000}};
  // clang-format on
  for (const auto& c : cases) {
    const std::string mark =
        std::string("!WRN359 - Dimensioning parameter ") + c.name + " exceeded - data echo not accurate\n";
    ControlRecords records = ReadBack(ControlDraft{}.Text());
    c.fill(records, c.limit);
    EXPECT_EQ(Written(records).find("WRN359"), std::string::npos) << c.name;
    c.fill(records, c.limit + 1);
    const std::string text = Written(records);
    EXPECT_NE(text.find(mark), std::string::npos) << c.name;
    EXPECT_EQ(Written(ReadBack(text)), text) << "all lines are there";
  }
}

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
  r.LENIN = 4, r.GRAVIN = 9, r.RHOIN = 2, r.ANGIN = 57.29578;
  const InputScales s = InputScalesOf(r);
  const double got[] = {s.length,          s.time, s.frequency, s.velocity, s.angle * 57.29578,
                        s.rate * 57.29578, s.mass, s.inertia};
  const double want[] = {0.25, 1.5, 2.0 / 3.0, 1.0 / 6.0, 1.0, 2.0 / 3.0, 1.0 / 128.0, 1.0 / 2048.0};
  for (std::size_t i = 0; i < 8; ++i) EXPECT_DOUBLE_EQ(got[i], want[i]) << i;
}

}  // namespace
}  // namespace zaview
