#include "gks/picture/picture_file.h"

#include <algorithm>
#include <array>
#include <csetjmp>
#include <cstddef>
#include <cstdint>
#include <dlfcn.h>
#include <gd.h>
#include <iterator>
#include <string_view>
#include <vector>

#include <png.h>

#include "base/grow.h"
#include "base/opened_library.h"
#include "base/text.h"
#include "frame/ground/output_file.h"

namespace zaview {

namespace {

constexpr std::string_view kWords[] = {"PNG", "BMP", "GIF", "SVG", "PDF"};  // by PictureFormat
constexpr std::string_view kNoLibrary = "the library of BMP and GIF files is not here";
constexpr int kPngLevel = 3;         // with the filter UP: a quarter of the time of the library's choice
constexpr std::size_t kSamples = 3;  // bytes of a pixel
constexpr std::size_t kPalette = 256;

struct Rows {  // bottom row first
  int width = 0, height = 0;
  std::span<const unsigned char> rgb;

  [[nodiscard]] const unsigned char* FromTop(int y) const {
    return rgb.data() + static_cast<std::size_t>(height - 1 - y) * static_cast<std::size_t>(width) * kSamples;
  }
};

// ---- Pictures of few colours, as plots are: their files are a third as large, and written in a third of the time

std::uint32_t Packed(const unsigned char* p) {
  return static_cast<std::uint32_t>(p[0]) << 16U | static_cast<std::uint32_t>(p[1]) << 8U | p[2];
}

struct Palette {
  std::vector<std::uint32_t> colours;  // as they come
  std::vector<unsigned char> index;    // of each pixel, in the order of the rows

  [[nodiscard]] const unsigned char* FromTop(const Rows& rows, int y) const {
    return index.data() + static_cast<std::size_t>(rows.height - 1 - y) * static_cast<std::size_t>(rows.width);
  }
};

class ColourTable {  // open addressing
 public:
  // The index of a colour, a new one at the end. kPalette: there is no room for it.
  std::size_t Find(std::uint32_t colour, std::vector<std::uint32_t>& colours) {
    std::size_t at = colour * 2654435761U >> 22U;  // the fractional part of the golden ratio, in 2^32
    for (; slots_[at] != 0; at = (at + 1) % kSlots)
      if (colours[slots_[at] - 1U] == colour) return slots_[at] - 1U;
    if (colours.size() == kPalette) return kPalette;
    colours.push_back(colour);
    slots_[at] = static_cast<std::uint16_t>(colours.size());
    return colours.size() - 1;
  }

 private:
  static constexpr std::size_t kSlots = 1024;  // of which a quarter is used
  std::array<std::uint16_t, kSlots> slots_{};  // index and 1; 0: free
};

// False: more colours than a palette holds, or memory is out.
bool FindPalette(const Rows& rows, Palette& out) {
  const std::size_t pixels = rows.rgb.size() / kSamples;
  if (!Reserve(out.colours, kPalette) || !Grow(out.index, pixels)) return false;
  ColourTable table;
  std::uint32_t last = ~0U;
  std::size_t index = 0;
  for (std::size_t i = 0; i < pixels; ++i) {
    const std::uint32_t colour = Packed(&rows.rgb[i * kSamples]);
    if (colour != last) index = table.Find(colour, out.colours);
    if (index == kPalette) return false;
    last = colour;
    out.index[i] = static_cast<unsigned char>(index);
  }
  return true;
}

// ---- PNG. The library leaves by longjmp, so nothing with a destructor stands between it and its caller.

bool Append(std::string& to, const void* bytes, std::size_t size) {
  return Guarded([&] { return to.append(static_cast<const char*>(bytes), size), true; }, false);
}

void PutBytes(png_structp png, png_bytep bytes, std::size_t size) {
  if (!Append(*static_cast<std::string*>(png_get_io_ptr(png)), bytes, size)) png_error(png, "no room");
}

void PutNothing(png_structp) {}
[[noreturn]] void LeavePng(png_structp png, png_const_charp) {
  png_longjmp(png, 1);
}
void IgnoreWarning(png_structp, png_const_charp) {}

// palette: null for a picture of more colours.
bool PutPngRows(png_structp png, png_infop info, const Rows& rows, const Palette* palette, png_colorp colours) {
  if (setjmp(png_jmpbuf(png)) != 0) return false;
  png_set_IHDR(png, info, static_cast<png_uint_32>(rows.width), static_cast<png_uint_32>(rows.height), 8,
               palette == nullptr ? PNG_COLOR_TYPE_RGB : PNG_COLOR_TYPE_PALETTE, PNG_INTERLACE_NONE,
               PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
  if (palette != nullptr) png_set_PLTE(png, info, colours, static_cast<int>(palette->colours.size()));
  png_set_filter(png, PNG_FILTER_TYPE_BASE, PNG_FILTER_UP);
  png_set_compression_level(png, kPngLevel);
  png_write_info(png, info);
  for (int y = 0; y < rows.height; ++y)
    png_write_row(png, palette == nullptr ? rows.FromTop(y) : palette->FromTop(rows, y));
  png_write_end(png, info);
  return true;
}

bool PutPng(const Rows& rows, std::string& out) {
  png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, LeavePng, IgnoreWarning);
  if (png == nullptr) return false;
  png_infop info = png_create_info_struct(png);
  png_set_write_fn(png, &out, PutBytes, PutNothing);
  Palette palette;
  const bool few = FindPalette(rows, palette);
  std::array<png_color, kPalette> colours{};
  for (std::size_t i = 0; few && i < palette.colours.size(); ++i) {
    const std::uint32_t c = palette.colours[i];
    colours[i] = {static_cast<png_byte>(c >> 16U), static_cast<png_byte>(c >> 8U & 255U),
                  static_cast<png_byte>(c & 255U)};
  }
  const bool done = info != nullptr && PutPngRows(png, info, rows, few ? &palette : nullptr, colours.data());
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

gdImagePtr MakeTrueColour(const GdCalls& gd, const Rows& rows) {
  const gdImagePtr image = gd.create_true_colour(rows.width, rows.height);
  if (image == nullptr) return nullptr;
  for (int y = 0; y < rows.height; ++y) {
    const unsigned char* p = rows.FromTop(y);
    for (int x = 0; x < rows.width; ++x, p += kSamples) image->tpixels[y][x] = static_cast<int>(Packed(p));
  }
  return image;
}

gdImagePtr MakePalette(const GdCalls& gd, const Rows& rows, const Palette& palette) {
  const gdImagePtr image = gd.create(rows.width, rows.height);
  if (image == nullptr) return nullptr;
  for (const std::uint32_t c : palette.colours)
    static_cast<void>(
        gd.allocate(image, static_cast<int>(c >> 16U), static_cast<int>(c >> 8U & 255U), static_cast<int>(c & 255U)));
  for (int y = 0; y < rows.height; ++y)
    std::copy_n(palette.FromTop(rows, y), static_cast<std::size_t>(rows.width), image->pixels[y]);
  return image;
}

// Plots have few colours and keep them exactly; a picture with more gets the 256 that fit best.
gdImagePtr MakeFewColours(const GdCalls& gd, const Rows& rows) {
  Palette palette;
  if (FindPalette(rows, palette)) return MakePalette(gd, rows, palette);
  const gdImagePtr image = MakeTrueColour(gd, rows);
  if (image != nullptr) gd.to_palette(image, 0, static_cast<int>(kPalette));
  return image;
}

bool PutGdImage(PictureFormat format, const Rows& rows, std::string& out, std::string_view& why) {
  GdCalls gd;
  if (!OpenGd(gd)) {
    why = kNoLibrary;
    return false;
  }
  const gdImagePtr image = format == PictureFormat::gif ? MakeFewColours(gd, rows) : MakeTrueColour(gd, rows);
  if (image == nullptr) return false;
  int size = 0;
  void* const bytes = format == PictureFormat::gif ? gd.gif(image, &size) : gd.bmp(image, &size, 0);
  gd.destroy(image);
  if (bytes == nullptr) return false;
  const bool kept = Append(out, bytes, static_cast<std::size_t>(size));
  gd.free(bytes);
  return kept;
}

}  // namespace

bool FormatOfName(std::string_view name, PictureFormat& format) {
  const std::string capitals = Capitals(TrimEnd(name));
  const std::size_t dot = capitals.rfind('.');
  if (dot == std::string::npos) return false;
  const auto* const word = std::find(std::begin(kWords), std::end(kWords), std::string_view(capitals).substr(dot + 1));
  if (word == std::end(kWords)) return false;
  format = static_cast<PictureFormat>(word - std::begin(kWords));
  return true;
}

std::string_view FormatWord(PictureFormat format) {
  return kWords[static_cast<std::size_t>(format)];
}

bool EncodePicture(PictureFormat format, int width, int height, std::span<const unsigned char> rgb, std::string& bytes,
                   std::string* why) {
  bytes.clear();
  if (width < 1 || height < 1) return false;
  const std::size_t size = static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * kSamples;
  if (rgb.size() < size || IsVector(format)) return false;
  const Rows rows{width, height, rgb.first(size)};
  std::string_view fault = kWhyNoMemory;
  const bool made = format == PictureFormat::png ? PutPng(rows, bytes) : PutGdImage(format, rows, bytes, fault);
  if (!made && why != nullptr) *why = fault;
  return made;
}

bool StorePicture(const Platform& platform, const std::string& name, std::string_view bytes, std::string* why) {
  OutputFile out;
  bool stored = OpenOutput(platform, name, OpenHow::replace, out) && !out.to_console;
  if (stored) {
    WriteOutput(out, bytes);
    stored = CloseOutput(out);
  }
  if (!stored && why != nullptr) *why = out.why;
  return stored;
}

bool WritePicture(const Platform& platform, const std::string& name, PictureFormat format, int width, int height,
                  std::span<const unsigned char> rgb, std::string* why) {
  std::string bytes;
  return EncodePicture(format, width, height, rgb, bytes, why) && StorePicture(platform, name, bytes, why);
}

}  // namespace zaview
