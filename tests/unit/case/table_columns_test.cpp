#include "case/read/table_columns.h"

#include <cmath>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "case/read/table_steps.h"

namespace zaview {
namespace {

struct Read {
  TableHead head;
  TableRows rows;
  TableFault fault;
};

Read ReadText(std::string_view text) {
  Read read;
  BlockStream stream;
  StartStream(stream, text);
  LineSource source;
  source.stream = &stream;
  read.fault = ReadTableHead(source, read.head);
  if (read.fault.kind == TableFaultKind::none) read.fault = ReadTableRows(source, read.head, read.rows);
  return read;
}

// "name|unit;.. time: cells/ time: cells/", a gap as *.
std::string Show(const Read& read) {
  std::string text;
  for (std::size_t i = 0; i < read.head.names.size(); ++i)
    if (i != read.head.time_column) text += fmt::format("{}|{};", read.head.names[i], read.head.units[i]);
  for (std::size_t r = 0; r < read.rows.time.size(); ++r) {
    text += fmt::format(" {}:", read.rows.time[r]);
    for (const std::vector<float>& column : read.rows.cell)
      if (!column.empty()) text += std::isnan(column[r]) ? " *" : fmt::format(" {}", column[r]);
    text += '/';
  }
  return text;
}

TEST(TableColumns, FormsOfTables) {
  const struct {
    std::string_view text, shown;
  } cases[] = {
      {"time_s,heave_m\n0,1.5\n0.5,-2e-1\n", "heave|m; 0: 1.5/ 0.5: -0.2/"},
      {"t [s],x (m),y,pmgg(3)\r\n1,2,3,4\r\n", "x|m;y|;pmgg(3)|; 1: 2 3 4/"},
      {"\xEF\xBB\xBFRoll [deg];Time;\"a;b\"\n1,5;0;\"2,5\"\n", "Roll|deg;a;b|; 0: 1.5 2.5/"},
      {"# by hand\n\na title, of two parts\nTime\tz\ns\tft\n0\t1,5\n", "z|ft; 0: 1.5/"},
      {"# t,z, m\n0,+1\n", ""},  // three names for two fields
      {"# t,\"z, m\"\n# more\n0,+1\n", "z|m; 0: 1/"},
      {"time,a,b,c,d,e\n0,NaN,-,,n/a,Inf\n", "a|;b|;c|;d|;e|; 0: * * * * */"},
      {"t,v,roll,\ns,m/h\xC2\xB2,\xC2\xB0,\n0,1,2,\n", "v|m/h^2;roll|deg; 0: 1 2/"},
      {"T [degC],t,z\n9,0,1\n", "T|degC;z|; 0: 9 1/"},
      {"t,z,\n0,1,\n\n# note\n1,2,,\n", "z|; 0: 1/ 1: 2/"},
      {"t,z\n0,1\n1,2\n\nTime History\nt,v\n0,7\n", "z|; 0: 1/ 1: 2/"},
      {"t,z\n0,1\n1", "z|; 0: 1/"},
  };
  for (const auto& c : cases) {
    const Read read = ReadText(c.text);
    EXPECT_EQ(read.fault.kind == TableFaultKind::none ? Show(read) : "", c.shown) << c.text;
  }
  EXPECT_EQ(ReadText(cases[10].text).rows.further_line, 5);
  EXPECT_EQ(ReadText(cases[11].text).rows.cut_line, 3);
  EXPECT_EQ(ReadText(cases[3].text).head.title, "a title, of two parts");
  EXPECT_EQ(ReadText(cases[5].text).head.title, "");
}

TEST(TableColumns, FaultsHaveTheirPlace) {
  const struct {
    std::string_view text;
    TableFaultKind kind;
    int line;
    std::size_t column;
  } cases[] = {
      {"", TableFaultKind::empty, 0, 0},
      {"0,1\n1,2\n", TableFaultKind::no_heading, 1, 0},
      {"time heave\n0 1\n", TableFaultKind::no_separator, 1, 0},
      {"a,heave\n0,1\n", TableFaultKind::no_time, 1, 0},
      {"time,\n0,\n", TableFaultKind::only_time, 1, 0},
      {"time,,z\n0,1,2\n", TableFaultKind::no_name, 1, 2},
      {"t,z\n0,1\n1,2,3\n", TableFaultKind::fields, 3, 0},
      {"t,y,z\n0,1\n1,2,3\n", TableFaultKind::fields, 2, 0},
      {"t,y,z\n0,1,2\n1,2,3x\n", TableFaultKind::number, 3, 3},
      {"t,z\n0,1e99\n", TableFaultKind::number, 2, 2},
      {"t,z\n0,+-1\n", TableFaultKind::number, 2, 2},
      {"t,z\n0,1\n,2\n", TableFaultKind::no_time_value, 3, 1},
      {"z,t\n0,1\n0,1\n", TableFaultKind::not_increasing, 3, 2},
      {"t,z\n", TableFaultKind::no_rows, 0, 0},
  };
  for (const auto& c : cases) {
    const TableFault fault = ReadText(c.text).fault;
    EXPECT_EQ(fault.kind, c.kind) << c.text;
    EXPECT_EQ(fault.line, c.line) << c.text;
    EXPECT_EQ(fault.column, c.column) << c.text;
  }
}

// z = 2 t + 1 throughout, so that each sample tells whether its time is right.
TEST(TableSteps, EvenMissingUneven) {
  const struct {
    std::string_view times;
    Spacing spacing;
    std::size_t steps, missing, hole;
    double step;
  } cases[] = {
      {"0 0.25 0.5 0.75 1", Spacing::even, 5, 0, 0, 0.25},
      {"100.00001 100.20001 100.40001", Spacing::even, 3, 0, 0, 0.2},
      {"0.0000 0.0333 0.0667 0.1000", Spacing::even, 4, 0, 0, 0.1 / 3},  // rounded
      {"99.98333 100.0000 100.0167 100.0333", Spacing::even, 4, 0, 0, 0.05 / 3},
      {"0 1 2 4 5", Spacing::rows_missing, 6, 1, 1, 1},
      {"0.5 0.6 0.7 1.0 1.1 1.2 1.4", Spacing::rows_missing, 10, 3, 2, 0.1},
      {"0 0.9 2.2 3", Spacing::uneven, 4, 0, 0, 1},
      {"0 1 2 3 14 14.5", Spacing::uneven, 6, 0, 3, 2.9},
      {"7", Spacing::even, 1, 0, 0, 1},
  };
  for (const auto& c : cases) {
    std::string text = "t;z\n";
    for (std::string_view rest = c.times; !rest.empty();) {
      const std::string_view time = rest.substr(0, rest.find(' '));
      text += fmt::format("{};{}\n", time, 2 * std::stod(std::string(time)) + 1);
      rest.remove_prefix(std::min(rest.size(), time.size() + 1));
    }
    const Read read = ReadText(text);
    const TableSampling s = FindSampling(read.rows);
    EXPECT_EQ(s.spacing, c.spacing) << c.times;
    EXPECT_EQ(s.missing, c.missing) << c.times;
    EXPECT_EQ(s.hole, c.hole) << c.times;
    EXPECT_NEAR(s.step, c.step, 1e-4) << c.times;
    std::vector<float> samples;
    ColumnGaps gaps;
    ASSERT_TRUE(SampleColumn(read.rows, s, 1, samples, gaps));
    ASSERT_EQ(samples.size(), c.steps) << c.times;
    for (std::size_t i = 0; i < samples.size(); ++i)
      EXPECT_NEAR(samples[i], 2 * (s.first + static_cast<double>(i) * s.step) + 1, 2e-4) << c.times << ' ' << i;
  }
}

TEST(TableSteps, Gaps) {
  const Read read = ReadText("t,a,b,c\n0,,1,\n1,2,,\n2,3,,\n4,-,4,\n5,5,5,\n6,,6,\n");  // no row at 3
  const TableSampling sampling = FindSampling(read.rows);
  const struct {
    std::size_t column;
    std::vector<float> samples;
    std::size_t cells, longest;
    std::int64_t line;
  } cases[] = {{1, {2, 2, 3, 11.0F / 3, 13.0F / 3, 5, 5}, 3, 2, 5},
               {2, {1, 1.75F, 2.5F, 3.25F, 4, 5, 6}, 2, 3, 3},
               {3, {}, 6, 7, 2}};
  for (const auto& c : cases) {
    std::vector<float> samples;
    ColumnGaps gaps;
    ASSERT_TRUE(SampleColumn(read.rows, sampling, c.column, samples, gaps));
    EXPECT_EQ(samples, c.samples) << c.column;
    EXPECT_EQ(gaps.cells, c.cells) << c.column;
    EXPECT_EQ(gaps.longest, c.longest) << c.column;
    EXPECT_EQ(gaps.line, c.line) << c.column;
  }
}

}  // namespace
}  // namespace zaview
