// Recorded pictures as SVG 1.1. Private to gks/picture.
#pragma once

#include <string>

#include "gks/picture/recorded_picture.h"

namespace zaview {

// Appended to bytes, within a `Guarded`. False: an image can't be written.
[[nodiscard]] bool PutSvg(const RecordedPage& page, std::string& bytes);

}  // namespace zaview
