// What the writers of recorded pictures share: the parts of an item, the places of a page. Private to gks/picture.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "gks/picture/recorded_picture.h"

namespace zaview {

[[nodiscard]] std::span<const GksPoint> PointsOf(const PictureRecording& from, const RecordedItem& item);
[[nodiscard]] std::string_view TextOf(const PictureRecording& from, const RecordedItem& item);

struct PagePlace {
  int x = 0, y = 0;  // pixels
};
[[nodiscard]] PagePlace SizeOf(const RecordedPage& page);
[[nodiscard]] PagePlace PlaceOf(const RecordedPage& page, std::size_t cell);

// A pattern of bits as runs, in pixels: set, not set, and so on. A line starts `offset` behind the first. Neither solid
// nor 0. Of thick lines longer.
struct Dashes {
  std::array<float, 16> runs{};
  std::size_t count = 0;
  float offset = 0;
};
[[nodiscard]] Dashes DashesOf(std::uint16_t pattern, float width);

}  // namespace zaview
