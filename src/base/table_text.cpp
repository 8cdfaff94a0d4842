#include "base/table_text.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include <fmt/format.h>

#include "base/number_format.h"
#include "base/text.h"

namespace zaview {

namespace {

int WidthOf(const TableLayout& layout, std::size_t column) {
  return column < layout.widths.size() ? layout.widths[column] : kCellWidth;
}

void AppendCellAt(std::string& out, const TableLayout& layout, std::size_t column, float value) {
  if (!layout.no_number.empty() && std::isnan(value)) {
    const int width = layout.separator == Separator::space ? WidthOf(layout, column) : 0;
    fmt::format_to(std::back_inserter(out), "{:>{}}", layout.no_number, width);
    return;
  }
  if (layout.separator == Separator::space) AppendPaddedCell(out, value, WidthOf(layout, column));
  else AppendCell(out, value);
}

void EndLine(std::string& out, std::size_t line_begin) {
  const std::size_t last = out.find_last_not_of(' ');
  out.resize(last == std::string::npos || last < line_begin ? line_begin : last + 1);
  out += '\n';
}

}  // namespace

TableLayout LayoutFor(Separator separator, std::span<const std::string> names) {
  TableLayout layout;
  layout.separator = separator;
  for (const std::string& name : names) layout.widths.push_back(std::max(kCellWidth, static_cast<int>(name.size())));
  return layout;
}

std::string QuotedName(Separator separator, std::string_view name) {
  const std::string_view bare = Trim(name);
  const bool plain = bare.find(static_cast<char>(separator)) == std::string_view::npos && !Contains(bare, "\"");
  if (plain) return std::string(bare);
  std::string quoted = "\"";
  for (const char c : bare) quoted.append(c == '"' ? 2 : 1, c);
  quoted += '"';
  return quoted;
}

void AppendHeading(std::string& out, const TableLayout& layout, std::span<const std::string> names) {
  const std::size_t line_begin = out.size();
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (i > 0) out += static_cast<char>(layout.separator);
    if (layout.separator == Separator::space) out += fmt::format("{:>{}}", names[i], WidthOf(layout, i));
    else out += QuotedName(layout.separator, names[i]);
  }
  EndLine(out, line_begin);
}

void AppendRow(std::string& out, const TableLayout& layout, std::span<const float> cells) {
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (i > 0) out += static_cast<char>(layout.separator);
    AppendCellAt(out, layout, i, cells[i]);
  }
  out += '\n';
}

void AppendLabelledRow(std::string& out, const TableLayout& layout, std::string_view label,
                       std::span<const float> cells) {
  const std::size_t line_begin = out.size();
  out += layout.separator == Separator::space ? label : Trim(label);
  for (std::size_t i = 0; i < cells.size(); ++i) {
    out += static_cast<char>(layout.separator);
    AppendCellAt(out, layout, i + 1, cells[i]);
  }
  EndLine(out, line_begin);
}

}  // namespace zaview
