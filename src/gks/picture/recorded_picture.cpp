#include "gks/picture/recorded_picture.h"

#include <algorithm>

#include "base/grow.h"
#include "gks/picture/cairo_picture.h"
#include "gks/picture/svg_picture.h"

namespace zaview {

namespace {

bool PutSmoothPng(const RecordedPage& page, std::string& bytes) {
  PictureImage image;
  return DrawPage(page, image) && EncodePicture(PictureFormat::png, image.width, image.height, image.rgb, bytes);
}

bool IsWhole(const RecordedPage& page) {
  return !page.cells.empty() && std::all_of(page.cells.begin(), page.cells.end(), [](const PictureRecording* cell) {
    return cell->whole && cell->width > 0 && cell->height > 0;
  });
}

bool Encode(PictureFormat format, const RecordedPage& page, std::string& bytes) {
  switch (format) {
    case PictureFormat::svg:
      return PutSvg(page, bytes);
    case PictureFormat::pdf:
      return PutPdf(page, bytes);
    case PictureFormat::png:
      return PutSmoothPng(page, bytes);
    default:
      return false;
  }
}

}  // namespace

bool EncodeRecorded(PictureFormat format, const RecordedPage& page, std::string& bytes) {
  bytes.clear();
  return IsWhole(page) && Guarded([&] { return Encode(format, page, bytes); }, false);
}

bool DrawRecorded(const PictureRecording& recording, PictureImage& image) {
  return recording.whole && Guarded([&] { return DrawPage({{&recording}, 1}, image); }, false);
}

bool CanDrawRecorded() {
  return HasCairo();
}

bool IsRecorded(const GksState& gks) {
  if (gks.screen.mode != ScreenMode::plot) return false;
  if (gks.style == PictureStyle::report || gks.sheet.open()) return true;
  PictureFormat format = PictureFormat::png;
  return gks.dump.waiting && FormatOfName(gks.dump.name, format) && IsVector(format);
}

}  // namespace zaview
