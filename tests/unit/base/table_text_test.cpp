#include "base/table_text.h"

#include <gtest/gtest.h>

namespace zaview {
namespace {

using Names = std::vector<std::string>;
using Cells = std::vector<float>;

TEST(TableText, HeadingsRowsAndLabels) {
  const Names names = {"Statistic     ", "Force, X=25", "Force, X=-12.5", "a \"b\"  "};
  const Cells cells = {0.0F, -15321.7F, 2500000.0F, 1.0F};
  const struct {
    Separator separator;
    std::string_view text;
  } cases[] = {
      {Separator::space,  // a heading of 14 makes its column wider; no blanks at the end of a line
       "Statistic        Force, X=25 Force, X=-12.5       a \"b\"\n"
       "      0.000000     -15321.70      2500000.0      1.000000\n"
       "Mean (Average)      0.000000      -15321.70\n18 180      0.000000      -15321.70\nNothing\n"},
      {Separator::comma,
       "Statistic,\"Force, X=25\",\"Force, X=-12.5\",\"a \"\"b\"\"\"\n0.000000,-15321.70,2500000.0,1.000000\n"
       "Mean (Average),0.000000,-15321.70\n18 180,0.000000,-15321.70\nNothing\n"},
      {Separator::tab,
       "Statistic\tForce, X=25\tForce, X=-12.5\t\"a \"\"b\"\"\"\n0.000000\t-15321.70\t2500000.0\t1.000000\n"
       "Mean (Average)\t0.000000\t-15321.70\n18 180\t0.000000\t-15321.70\nNothing\n"},
  };
  for (const auto& c : cases) {
    std::string out;
    const TableLayout layout = LayoutFor(c.separator, names);
    AppendHeading(out, layout, names);
    AppendRow(out, layout, cells);
    for (const char* label : {"Mean (Average)", "18 180"})
      AppendLabelledRow(out, layout, label, std::span(cells).first(2));
    AppendLabelledRow(out, layout, "Nothing  ", {});
    EXPECT_EQ(out, c.text);
  }
}

}  // namespace
}  // namespace zaview
