#include "gks/kernel/paint_recording.h"

#include <span>
#include <string_view>

#include "base/grow.h"

namespace zaview {

namespace {

PictureRecording& Of(void* self) {
  return *static_cast<PictureRecording*>(self);
}

// All of an item or nothing.
void Put(PictureRecording& to, RecordedItem item, std::span<const GksPoint> points, std::string_view text = {}) {
  item.first = to.points.size();
  item.count = points.size();
  item.text = to.text.size();
  item.length = text.size();
  const bool put = Guarded(
      [&] {
        to.points.insert(to.points.end(), points.begin(), points.end());
        to.text.append(text);
        to.items.push_back(item);
        return true;
      },
      false);
  if (put) return;
  to.points.resize(item.first);
  to.text.resize(item.text);
  to.whole = false;
}

void Drop(PictureRecording& recording) {
  recording.items.clear();
  recording.points.clear();
  recording.text.clear();
  recording.images.clear();
  recording.whole = true;
}

void Clear(void* self, GksColour paper) {
  Drop(Of(self));
  Of(self).paper = paper;
}

void Line(void* self, const GksPen& pen, std::span<const GksPoint> strip) {
  RecordedItem item;
  item.kind = RecordedKind::line;
  item.colour = pen.colour;
  item.width = pen.width;
  item.pattern = pen.pattern;
  Put(Of(self), item, strip);
}

void Fill(void* self, GksColour colour, std::span<const GksPoint> polygon) {
  RecordedItem item;
  item.kind = RecordedKind::fill;
  item.colour = colour;
  Put(Of(self), item, polygon);
}

void Letters(void* self, GksColour colour, const GksLetters& letters) {
  RecordedItem item;
  item.kind = RecordedKind::letters;
  item.colour = colour;
  item.size = letters.size;
  item.turn = letters.turn;
  Put(Of(self), item, {&letters.at, 1}, letters.text);
}

void Image(void* self, const PictureImage& image) {
  PictureRecording& to = Of(self);
  Drop(to);
  RecordedItem item;
  item.kind = RecordedKind::image;
  const bool put = Guarded([&] { return to.images.push_back(image), to.items.push_back(item), true; }, false);
  if (put) return;
  Drop(to);
  to.whole = false;
}

}  // namespace

GksPaint RecordingPaint(PictureRecording& recording, int width, int height) {
  recording.width = width;
  recording.height = height;
  return {.self = &recording,
          .scalable = true,
          .clear = Clear,
          .line = Line,
          .fill = Fill,
          .letters = Letters,
          .image = Image};
}

}  // namespace zaview
