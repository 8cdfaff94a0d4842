// What the readers of the geometry formats share: clean lines as lists, an open file by its lines, points of a surface.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/clean_text.h"
#include "base/line_source.h"
#include "base/list_read.h"
#include "base/message.h"
#include "base/platform.h"
#include "geometry/hull.h"

namespace zaview {

inline constexpr std::string_view kAtGeometryLine = "         at line {} of {}";  // behind the message of a fault

// Clean text, list after list.
struct CleanLists {
  std::span<const CleanLine> lines;
  std::size_t next = 0;
  [[nodiscard]] int line_number() const { return next == 0 ? 1 : lines[next - 1].number; }  // of the line given last
};
[[nodiscard]] ListLines ListsOf(CleanLists& text);
[[nodiscard]] bool NothingLeft(CleanLists& text);  // passes over blank lines

// A file by its lines, cut to 256 columns, tabs as blanks; closed at the end of its life.
struct GeometryLines {
  GeometryLines(const Files& from, const std::string& path);
  ~GeometryLines();
  GeometryLines(const GeometryLines&) = delete;
  GeometryLines& operator=(const GeometryLines&) = delete;
  [[nodiscard]] bool is_open() const { return file != kNoFile; }
  [[nodiscard]] std::int64_t line_number() const { return std::max<std::int64_t>(source.line_number, 1); }

  const Files& files;
  FileHandle file = kNoFile;
  BlockStream stream;
  LineSource source;
  std::string line;
};
// Into text.line. False at the end, and at a fault of the file: more than kCleanBytes are one.
[[nodiscard]] bool NextLine(GeometryLines& text);
[[nodiscard]] ListLines ListsOf(GeometryLines& text);

// One list of three reals a point. Numbers that are not finite are errors: there is no such place.
[[nodiscard]] ListStatus ReadPoints(const ListLines& lines, std::span<Vector3> points);

}  // namespace zaview
