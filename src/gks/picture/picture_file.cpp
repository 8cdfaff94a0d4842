#include "gks/picture/picture_file.h"

#include <algorithm>
#include <array>
#include <csetjmp>
#include <cstddef>
#include <cstdint>
#include <dlfcn.h>
#include <gd.h>
#include <string_view>
#include <vector>

#include <png.h>

#include "base/grow.h"
#include "frame/ground/output_file.h"
#include "gks/picture/opened_library.h"

namespace zaview {

namespace {

constexpr int kPngLevel = 3;           // with the filter UP: a quarter of the time of the library's choice
constexpr std::size_t kSamples = 3;    // bytes of a pixel
constexpr std::size_t kPalette = 256;  // colours of a GIF

struct Rows {  // bottom row first
  int width = 0, height = 0;
  std::span<const unsigned char> rgb;

  [[nodiscard]] const unsigned char* FromTop(int y) const {
    return rgb.data() + static_cast<std::size_t>(height - 1 - y) * static_cast<std::size_t>(width) * kSamples;
  }
};

// ---- PNG. The library leaves by longjmp, so nothing with a destructor stands between it and its caller.

void PutBytes(png_structp png, png_bytep bytes, std::size_t size) {
  auto& out = *static_cast<OutputFile*>(png_get_io_ptr(png));
  WriteOutput(out, {reinterpret_cast<const char*>(bytes), size});
  if (out.failed) png_error(png, "no room");
}

void PutNothing(png_structp) {}
[[noreturn]] void LeavePng(png_structp png, png_const_charp) {
  png_longjmp(png, 1);
}
void IgnoreWarning(png_structp, png_const_charp) {}

bool PutPngRows(png_structp png, png_infop info, const Rows& rows) {
  if (setjmp(png_jmpbuf(png)) != 0) return false;
  png_set_IHDR(png, info, static_cast<png_uint_32>(rows.width), static_cast<png_uint_32>(rows.height), 8,
               PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
  png_set_filter(png, PNG_FILTER_TYPE_BASE, PNG_FILTER_UP);
  png_set_compression_level(png, kPngLevel);
  png_write_info(png, info);
  for (int y = 0; y < rows.height; ++y) png_write_row(png, rows.FromTop(y));
  png_write_end(png, info);
  return true;
}

bool PutPng(const Rows& rows, OutputFile& out) {
  png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, LeavePng, IgnoreWarning);
  if (png == nullptr) return false;
  png_infop info = png_create_info_struct(png);
  png_set_write_fn(png, &out, PutBytes, PutNothing);
  const bool done = info != nullptr && PutPngRows(png, info, rows);
  png_destroy_write_struct(&png, &info);
  return done;
}

// ---- BMP and GIF. The library and the many it needs are opened for the first of them: they would cost every start of
// the program ten times its own.

struct GdCalls {
  decltype(&gdImageCreate) create = nullptr;
  decltype(&gdImageCreateTrueColor) create_true_colour = nullptr;
  decltype(&gdImageColorAllocate) allocate = nullptr;
  decltype(&gdImageTrueColorToPalette) to_palette = nullptr;
  decltype(&gdImageGifPtr) gif = nullptr;
  decltype(&gdImageBmpPtr) bmp = nullptr;
  decltype(&gdImageDestroy) destroy = nullptr;
  decltype(&gdFree) free = nullptr;
};

bool OpenGd(GdCalls& gd) {
  void* const library = dlopen("libgd.so.3", RTLD_NOW | RTLD_LOCAL);  // stays open: the next picture needs it too
  return library != nullptr && Load(library, "gdImageCreate", gd.create) &&
         Load(library, "gdImageCreateTrueColor", gd.create_true_colour) &&
         Load(library, "gdImageColorAllocate", gd.allocate) &&
         Load(library, "gdImageTrueColorToPalette", gd.to_palette) && Load(library, "gdImageGifPtr", gd.gif) &&
         Load(library, "gdImageBmpPtr", gd.bmp) && Load(library, "gdImageDestroy", gd.destroy) &&
         Load(library, "gdFree", gd.free);
}

std::uint32_t Packed(const unsigned char* p) {
  return static_cast<std::uint32_t>(p[0]) << 16U | static_cast<std::uint32_t>(p[1]) << 8U | p[2];
}

gdImagePtr MakeTrueColour(const GdCalls& gd, const Rows& rows) {
  const gdImagePtr image = gd.create_true_colour(rows.width, rows.height);
  if (image == nullptr) return nullptr;
  for (int y = 0; y < rows.height; ++y) {
    const unsigned char* p = rows.FromTop(y);
    for (int x = 0; x < rows.width; ++x, p += kSamples) image->tpixels[y][x] = static_cast<int>(Packed(p));
  }
  return image;
}

// All colours of the picture, sorted; false: more than a palette holds, or memory is out.
bool FindColours(const Rows& rows, std::vector<std::uint32_t>& colours) {
  if (!Reserve(colours, kPalette + 1)) return false;
  std::uint32_t last = ~0U;
  for (std::size_t i = 0; i < rows.rgb.size(); i += kSamples) {
    const std::uint32_t colour = Packed(&rows.rgb[i]);
    if (colour == last) continue;
    last = colour;
    const auto at = std::lower_bound(colours.begin(), colours.end(), colour);
    if (at != colours.end() && *at == colour) continue;
    if (colours.size() == kPalette) return false;
    colours.insert(at, colour);
  }
  return true;
}

gdImagePtr MakePalette(const GdCalls& gd, const Rows& rows, const std::vector<std::uint32_t>& colours) {
  const gdImagePtr image = gd.create(rows.width, rows.height);
  if (image == nullptr) return nullptr;
  for (const std::uint32_t c : colours)
    static_cast<void>(
        gd.allocate(image, static_cast<int>(c >> 16U), static_cast<int>(c >> 8U & 255U), static_cast<int>(c & 255U)));
  auto at = colours.begin();
  for (int y = 0; y < rows.height; ++y) {
    const unsigned char* p = rows.FromTop(y);
    for (int x = 0; x < rows.width; ++x, p += kSamples) {
      const std::uint32_t colour = Packed(p);
      if (*at != colour) at = std::lower_bound(colours.begin(), colours.end(), colour);
      image->pixels[y][x] = static_cast<unsigned char>(at - colours.begin());
    }
  }
  return image;
}

// Plots have few colours and keep them exactly; a picture with more gets the 256 that fit best.
gdImagePtr MakeFewColours(const GdCalls& gd, const Rows& rows) {
  std::vector<std::uint32_t> colours;
  if (FindColours(rows, colours)) return MakePalette(gd, rows, colours);
  const gdImagePtr image = MakeTrueColour(gd, rows);
  if (image != nullptr) gd.to_palette(image, 0, static_cast<int>(kPalette));
  return image;
}

bool PutGdImage(PictureFormat format, const Rows& rows, OutputFile& out) {
  GdCalls gd;
  if (!OpenGd(gd)) return false;
  const gdImagePtr image = format == PictureFormat::gif ? MakeFewColours(gd, rows) : MakeTrueColour(gd, rows);
  if (image == nullptr) return false;
  int size = 0;
  void* const bytes = format == PictureFormat::gif ? gd.gif(image, &size) : gd.bmp(image, &size, 0);
  gd.destroy(image);
  if (bytes == nullptr) return false;
  WriteOutput(out, {static_cast<const char*>(bytes), static_cast<std::size_t>(size)});
  gd.free(bytes);
  return !out.failed;
}

}  // namespace

bool WritePicture(const Platform& platform, const std::string& name, PictureFormat format, int width, int height,
                  std::span<const unsigned char> rgb, std::string* why) {
  if (width < 1 || height < 1) return false;
  const std::size_t size = static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * kSamples;
  if (rgb.size() < size) return false;
  const Rows rows{width, height, rgb.first(size)};
  OutputFile out;
  if (!OpenOutput(platform, name, OpenHow::replace, out) || out.to_console) {
    if (why != nullptr) *why = out.why;
    return false;
  }
  const bool done = format == PictureFormat::png ? PutPng(rows, out) : PutGdImage(format, rows, out);
  if (done) return CloseOutput(out);
  DiscardOutput(out);
  return false;
}

}  // namespace zaview
