#include "base/table_text.h"

#include <gtest/gtest.h>

namespace zaview {
namespace {

TEST(TableText, HeadingsAndLabels) {
  const std::vector<std::string> names = {"Statistic     ", "Force, X=25", "a \"b\"  "};
  // clang-format off
  const std::pair<Separator, std::string_view> cases[] = {  // a heading of 14 makes its column wider; no blanks at the end
      {Separator::space, "Statistic        Force, X=25       a \"b\"\nNothing\n"},
      {Separator::comma, "Statistic,\"Force, X=25\",\"a \"\"b\"\"\"\nNothing\n"},
      {Separator::tab, "Statistic\tForce, X=25\t\"a \"\"b\"\"\"\nNothing\n"},
  };
  // clang-format on
  for (const auto& [separator, text] : cases) {
    std::string out;
    const TableLayout layout = LayoutFor(separator, names);
    AppendHeading(out, layout, names);
    AppendLabelledRow(out, layout, "Nothing  ", {});
    EXPECT_EQ(out, text);
  }
}

}  // namespace
}  // namespace zaview
