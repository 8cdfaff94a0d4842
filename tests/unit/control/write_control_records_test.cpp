// What is written reads back to the same bits, whatever the records hold, and is written again byte for byte.
#include "control/write_control_records.h"

#include <bit>
#include <cmath>
#include <cstdint>

#include <gtest/gtest.h>

#include "control/control_lines.h"
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

}  // namespace
}  // namespace zaview
