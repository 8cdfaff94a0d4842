#include "gks/picture/recorded_cells.h"

#include <algorithm>

namespace zaview {

std::span<const GksPoint> PointsOf(const PictureRecording& from, const RecordedItem& item) {
  return std::span(from.points).subspan(item.first, item.count);
}

std::string_view TextOf(const PictureRecording& from, const RecordedItem& item) {
  return std::string_view(from.text).substr(item.text, item.length);
}

PagePlace SizeOf(const RecordedPage& page) {
  const int cells = static_cast<int>(page.cells.size()), columns = std::clamp(page.columns, 1, cells);
  return {page.cells[0]->width * columns, page.cells[0]->height * ((cells + columns - 1) / columns)};
}

PagePlace PlaceOf(const RecordedPage& page, std::size_t cell) {
  const int columns = std::max(page.columns, 1), i = static_cast<int>(cell);
  return {i % columns * page.cells[0]->width, i / columns * page.cells[0]->height};
}

Dashes DashesOf(std::uint16_t pattern, float width) {
  const float scale = std::max(1.0F, width / 2.0F);
  constexpr unsigned kBits = 16;
  const auto is_set = [pattern](unsigned bit) { return (pattern >> bit % kBits & 1U) != 0; };
  unsigned first = 0;  // set, behind one that isn't
  while (first < kBits && (!is_set(first) || is_set(first + kBits - 1))) ++first;
  Dashes out;
  out.offset = scale * static_cast<float>((kBits - first) % kBits);
  for (unsigned bit = first; bit < first + kBits; ++bit) {
    if (bit == first || is_set(bit) != is_set(bit - 1)) ++out.count;
    out.runs[out.count - 1] += scale;
  }
  return out;
}

}  // namespace zaview
