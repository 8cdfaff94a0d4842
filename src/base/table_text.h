// Rows and headings of tables as text. With SPACE a cell is right-justified in its column (13, or its heading if that
// is longer) and columns are one blank apart; with COMMA and TAB cells stand bare, so that files are plain CSV or TSV.
// No row ends in blanks or in a separator.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zaview {

enum class Separator : char { space = ' ', comma = ',', tab = '\t' };

struct TableLayout {
  Separator separator = Separator::space;
  std::vector<int> widths;       // of the columns, only used with SPACE
  std::string_view no_number{};  // what stands for a value that is none; blank: as any number is written
};

// The layout whose columns are as wide as 13 or the names, trailing blanks of a name included: a column of row labels
// is as wide as the name that heads it ("Statistic     ").
TableLayout LayoutFor(Separator separator, std::span<const std::string> names);

// One line with the column names. With COMMA and TAB a name is trimmed, and put in double quotes if it holds the
// separator or a double quote (doubled inside).
void AppendHeading(std::string& out, const TableLayout& layout, std::span<const std::string> names);

// One line of numeric cells.
void AppendRow(std::string& out, const TableLayout& layout, std::span<const float> cells);

// One line: a label, left-justified in its own width as given (trimmed with COMMA and TAB), then numeric cells, the
// first of which belongs to layout.widths[1].
void AppendLabelledRow(std::string& out, const TableLayout& layout, std::string_view label,
                       std::span<const float> cells);

// A name as it stands in a COMMA or TAB heading.
std::string QuotedName(Separator separator, std::string_view name);

}  // namespace zaview
