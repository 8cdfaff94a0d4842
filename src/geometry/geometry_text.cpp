#include "geometry/geometry_text.h"

#include <algorithm>
#include <cmath>

#include "base/grow.h"
#include "base/text.h"

namespace zaview {

ListLines ListsOf(CleanLists& text) {
  return {&text, [](void* self, std::string_view& line) {
            CleanLists& lists = *static_cast<CleanLists*>(self);
            if (lists.next == lists.lines.size()) return ListLines::Next::end_of_file;
            line = lists.lines[lists.next++].text;
            return ListLines::Next::line;
          }};
}

bool NothingLeft(CleanLists& text) {
  while (text.next < text.lines.size() && IsBlank(text.lines[text.next].text)) ++text.next;
  return text.next == text.lines.size();
}

GeometryLines::GeometryLines(const Files& from, const std::string& path)
    : files(from), file(from.open_read(from.self, path)) {
  StartStream(stream, files, file);
  source.stream = &stream;
}

GeometryLines::~GeometryLines() {
  if (is_open()) (void)files.close(files.self, file);  // nothing was written
}

bool NextLine(GeometryLines& text) {
  std::string_view raw;
  if (text.stream.offset > static_cast<std::int64_t>(kCleanBytes)) text.stream.fault = true;
  if (text.stream.fault || !NextRawLine(text.source, raw)) return false;
  text.line = raw.substr(0, kCleanLine);
  std::replace(text.line.begin(), text.line.end(), '\t', ' ');
  return true;
}

ListLines ListsOf(GeometryLines& text) {
  return {&text, [](void* self, std::string_view& line) {
            GeometryLines& lines = *static_cast<GeometryLines*>(self);
            if (!NextLine(lines)) return ListLines::Next::end_of_file;
            line = lines.line;
            return ListLines::Next::line;
          }};
}

ListStatus ReadPoints(const ListLines& lines, std::span<Vector3> points) {
  std::vector<double> values;
  if (!Grow(values, 3 * points.size())) return ListStatus::error;
  const ListStatus status = ReadReals(lines, values);
  if (status != ListStatus::ok) return status;
  for (std::size_t i = 0; i < points.size(); ++i) points[i] = {values[3 * i], values[3 * i + 1], values[3 * i + 2]};
  return std::all_of(values.begin(), values.end(), [](double x) { return std::isfinite(x); }) ? ListStatus::ok
                                                                                              : ListStatus::error;
}

}  // namespace zaview
