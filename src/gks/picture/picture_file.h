// Pictures as files. PNG, BMP, GIF of pixels; SVG, PDF of a recording (recorded_picture.h).
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "base/platform.h"

namespace zaview {

enum class PictureFormat : unsigned char { png, bmp, gif, svg, pdf };

// By the end of a name, in small or capital letters. False: it is none of these.
[[nodiscard]] bool FormatOfName(std::string_view name, PictureFormat& format);
[[nodiscard]] std::string_view FormatWord(PictureFormat format);  // "PNG", as messages have it
[[nodiscard]] constexpr bool IsVector(PictureFormat format) {
  return format == PictureFormat::svg || format == PictureFormat::pdf;
}

// rgb: width x height x 3 bytes, bottom row first. bytes: the whole file. Pure: another thread may do it. False: memory
// is out, or the format has no library here, which `why` tells; or there
// are fewer bytes than the size wants, or none are wanted (vectors).
[[nodiscard]] bool EncodePicture(PictureFormat format, int width, int height, std::span<const unsigned char> rgb,
                                 std::string& bytes, std::string* why = nullptr);
// The file appears when it is complete. False: it can't be written; `why` tells the reason.
[[nodiscard]] bool StorePicture(const Platform& platform, const std::string& name, std::string_view bytes,
                                std::string* why = nullptr);
// Both.
[[nodiscard]] bool WritePicture(const Platform& platform, const std::string& name, PictureFormat format, int width,
                                int height, std::span<const unsigned char> rgb, std::string* why = nullptr);

}  // namespace zaview
