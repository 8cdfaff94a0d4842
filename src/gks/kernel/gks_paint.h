// What the primitives draw with: a record of function pointers, filled for an image in memory.
// Places are pixels, y down; whole ones lie on the edges between pixels.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "base/window_system.h"

namespace zaview {

struct GksPoint {
  float x = 0, y = 0;
};

struct GksColour {
  float red = 0, green = 0, blue = 0;
};

inline constexpr std::uint16_t kSolid = 0xFFFF;

struct GksPen {
  GksColour colour;
  float width = 1;                 // pixels, at least 1, rounded
  std::uint16_t pattern = kSolid;  // bit by bit along the line, low bit first
};

struct GksGlyph {  // one bit a pixel, whole bytes a row, bottom row first
  int width = 0, height = 0;
  float x_origin = 0, y_origin = 0;  // from the lower left corner
  const unsigned char* rows = nullptr;
  bool smooth = false;  // one byte a pixel: sixteenths that are covered
};

struct GksLetters {           // a text in the scalable font
  GksPoint at;                // its start, on the baseline
  float size = 12, turn = 0;  // pixels an em; radians, clockwise on the screen
  std::string_view text;
};

struct GksPaint {  // as it stands nothing is drawn
  void* self = nullptr;
  // Places are exact and letters come as `letters`: what is drawn is a picture of any resolution.
  bool scalable = false;
  void (*clear)(void* self, GksColour paper) = [](void*, GksColour) {};
  void (*line)(void* self, const GksPen& pen, std::span<const GksPoint> strip) = [](void*, const GksPen&,
                                                                                    std::span<const GksPoint>) {};
  void (*fill)(void* self, GksColour colour, std::span<const GksPoint> polygon) = [](void*, GksColour,
                                                                                     std::span<const GksPoint>) {};
  void (*glyph)(void* self, GksColour colour, GksPoint at, const GksGlyph& glyph) = [](void*, GksColour, GksPoint,
                                                                                       const GksGlyph&) {};
  void (*letters)(void* self, GksColour colour, const GksLetters& letters) = [](void*, GksColour, const GksLetters&) {};
  // In place of all that was drawn: bodies, which come in pixels. Only where `scalable`.
  void (*image)(void* self, const PictureImage& image) = [](void*, const PictureImage&) {};
  void (*finish)(void* self) = [](void*) {};  // the picture is complete
};

// Into the image, which outlives the record. Edges are smoothed by the part of each pixel that is covered, but lines
// along rows and columns are sharp. A point of a line lights the pixel to its lower right; a line of even width
// reaches a pixel further up and left. Any polygon, crossing itself or not: what its edges go round.
[[nodiscard]] GksPaint ImagePaint(PictureImage& image);

}  // namespace zaview
