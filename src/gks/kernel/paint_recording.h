// A picture as what was drawn into it, in order: the source of pictures of any resolution. Data, and the painter that
// fills it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "base/window_system.h"
#include "gks/kernel/gks_paint.h"

namespace zaview {

enum class RecordedKind : std::uint8_t { line, fill, letters, image };

struct RecordedItem {
  RecordedKind kind = RecordedKind::line;
  GksColour colour;
  float width = 1;                   // of lines, pixels
  std::uint16_t pattern = kSolid;    // of lines
  float size = 0, turn = 0;          // of letters
  std::size_t first = 0, count = 0;  // points: of lines and fills all, of letters the start; of an image its number
  std::size_t text = 0, length = 0;  // letters: bytes in `text`
};

struct PictureRecording {
  int width = 0, height = 0;  // pixels of the window it was drawn for; y down
  GksColour paper;
  std::vector<RecordedItem> items;
  std::vector<GksPoint> points;
  std::string text;
  std::vector<PictureImage> images;
  bool whole = true;              // false: memory was out, something is missing
  PictureImage* shown = nullptr;  // the window's image, which it is drawn into when it is complete; null: none
};

// The recording outlives the painter. `clear` begins it anew: until then it is what it was.
[[nodiscard]] GksPaint RecordingPaint(PictureRecording& recording, int width, int height);

}  // namespace zaview
