// Recorded pictures by cairo, which is opened for the first of them: smooth images, and PDF. Private to gks/picture.
#pragma once

#include <string>

#include "gks/picture/recorded_picture.h"

namespace zaview {

[[nodiscard]] bool HasCairo();

// Appended to bytes, within a `Guarded`. False: memory is out, or the library isn't here.
[[nodiscard]] bool PutPdf(const RecordedPage& page, std::string& bytes);
[[nodiscard]] bool DrawPage(const RecordedPage& page, PictureImage& image);
inline constexpr int kMostImageSide = 32767;  // pixels of such an image; the library has no larger ones

}  // namespace zaview
