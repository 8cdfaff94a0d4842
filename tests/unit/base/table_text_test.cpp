#include "base/table_text.h"

#include <gtest/gtest.h>

namespace zaview {
namespace {

using Names = std::vector<std::string>;
using Cells = std::vector<float>;

struct TableCase {
  Names names;
  Cells cells;
  std::string_view space, comma, tab;
};

TEST(TableText, HeadingAndRow) {
  const TableCase cases[] = {
      {{"      Time   ", "pmgg(1)", "pmgg(2)"},
       {0.798224F, 5.986681F, 0.0F},
       "      Time          pmgg(1)       pmgg(2)\n"
       "    0.7982240      5.986681      0.000000\n",  "Time,pmgg(1),pmgg(2)\n0.7982240,5.986681,0.000000\n",
       "Time\tpmgg(1)\tpmgg(2)\n0.7982240\t5.986681\t0.000000\n"            },
      {{"      Time   ", "Force, X=25", "Force, X=-12.5"}, // a heading of 14 makes its column wider; commas are quoted
       {0.0F, -15321.7F, 2500000.0F},
       "      Time      Force, X=25 Force, X=-12.5\n"
       "     0.000000     -15321.70      2500000.0\n", "Time,\"Force, X=25\",\"Force, X=-12.5\"\n0.000000,-15321.70,2500000.0\n",
       "Time\tForce, X=25\tForce, X=-12.5\n0.000000\t-15321.70\t2500000.0\n"},
      {{"a \"b\"", "last   "},                             // no blanks at the end of a line
       {1.0F, 2.0F},
       "        a \"b\"       last\n"
       "     1.000000      2.000000\n",                "\"a \"\"b\"\"\",last\n1.000000,2.000000\n",
       "\"a \"\"b\"\"\"\tlast\n1.000000\t2.000000\n"                        },
  };
  for (const TableCase& c : cases) {
    const Separator separators[] = {Separator::space, Separator::comma, Separator::tab};
    const std::string_view expected[] = {c.space, c.comma, c.tab};
    for (std::size_t i = 0; i < 3; ++i) {
      std::string out;
      const TableLayout layout = LayoutFor(separators[i], c.names);
      AppendHeading(out, layout, c.names);
      AppendRow(out, layout, c.cells);
      EXPECT_EQ(out, expected[i]);
    }
  }
}

TEST(TableText, LabelledRows) {
  const Names names = {"Statistic     ", "pmgg(1)", "pmgg(3)"};
  const Cells cells = {1125.4F, -1.2513F};
  std::string out;
  const TableLayout space = LayoutFor(Separator::space, names);
  AppendHeading(out, space, names);
  AppendLabelledRow(out, space, "Mean (Average)", cells);
  AppendLabelledRow(out, space, "18 180", std::span(cells).first(1));
  AppendLabelledRow(out, space, "Nothing  ", {});
  EXPECT_EQ(out,
            "Statistic            pmgg(1)       pmgg(3)\n"
            "Mean (Average)      1125.400     -1.251300\n"
            "18 180      1125.400\n"
            "Nothing\n");
  out.clear();
  AppendLabelledRow(out, LayoutFor(Separator::comma, names), "Stdev         ", cells);
  EXPECT_EQ(out, "Stdev,1125.400,-1.251300\n");
}

}  // namespace
}  // namespace zaview
