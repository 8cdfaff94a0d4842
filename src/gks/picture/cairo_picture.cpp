#include "gks/picture/cairo_picture.h"

#include <algorithm>
#include <array>
#include <cairo-ft.h>
#include <cairo-pdf.h>
#include <cairo.h>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <ft2build.h>
#include <span>
#include <string_view>
#include <vector>
#include FT_FREETYPE_H

#include "base/grow.h"
#include "base/opened_library.h"
#include "gks/kernel/fonts.h"
#include "gks/picture/letters_file.h"
#include "gks/picture/recorded_cells.h"

namespace zaview {

namespace {

// X(member, library call)
#define ZAVIEW_CAIRO_CALLS(X)                            \
  X(image_for_data, cairo_image_surface_create_for_data) \
  X(pdf_for_stream, cairo_pdf_surface_create_for_stream) \
  X(pdf_metadata, cairo_pdf_surface_set_metadata)        \
  X(surface_status, cairo_surface_status)                \
  X(surface_finish, cairo_surface_finish)                \
  X(surface_destroy, cairo_surface_destroy)              \
  X(create, cairo_create)                                \
  X(destroy, cairo_destroy)                              \
  X(status, cairo_status)                                \
  X(save, cairo_save)                                    \
  X(restore, cairo_restore)                              \
  X(translate, cairo_translate)                          \
  X(rotate, cairo_rotate)                                \
  X(scale, cairo_scale)                                  \
  X(rectangle, cairo_rectangle)                          \
  X(clip, cairo_clip)                                    \
  X(source_rgb, cairo_set_source_rgb)                    \
  X(source_surface, cairo_set_source_surface)            \
  X(paint, cairo_paint)                                  \
  X(move_to, cairo_move_to)                              \
  X(line_to, cairo_line_to)                              \
  X(close_path, cairo_close_path)                        \
  X(stroke, cairo_stroke)                                \
  X(fill, cairo_fill)                                    \
  X(line_width, cairo_set_line_width)                    \
  X(line_join, cairo_set_line_join)                      \
  X(dash, cairo_set_dash)                                \
  X(font_face, cairo_set_font_face)                      \
  X(font_size, cairo_set_font_size)                      \
  X(font_options, cairo_set_font_options)                \
  X(options_create, cairo_font_options_create)           \
  X(options_destroy, cairo_font_options_destroy)         \
  X(hint_style, cairo_font_options_set_hint_style)       \
  X(hint_metrics, cairo_font_options_set_hint_metrics)   \
  X(show_text_glyphs, cairo_show_text_glyphs)            \
  X(face_of_ft, cairo_ft_font_face_create_for_ft_face)   \
  X(face_destroy, cairo_font_face_destroy)

#define ZAVIEW_FT_CALLS(X)        \
  X(init, FT_Init_FreeType)       \
  X(new_face, FT_New_Memory_Face) \
  X(char_index, FT_Get_Char_Index)

constexpr double kPoint = 0.75;  // a pixel on paper, as SVG has it

struct CairoCalls {
#define X(member, call) decltype(&call) member = nullptr;
  ZAVIEW_CAIRO_CALLS(X)
#undef X
};

struct FreeTypeCalls {
#define X(member, call) decltype(&call) member = nullptr;
  ZAVIEW_FT_CALLS(X)
#undef X
};

// Stay open, and the font with them: the next picture needs them too.
struct Drawing {
  CairoCalls cairo;
  FreeTypeCalls free_type;
  FT_Face face = nullptr;
  cairo_font_face_t* letters = nullptr;
  bool ready = false;
};

bool OpenCairo(CairoCalls& cairo) {
  void* const library = dlopen("libcairo.so.2", RTLD_LAZY | RTLD_LOCAL);
  bool good = library != nullptr;
#define X(member, call) good = good && Load(library, #call, cairo.member);
  ZAVIEW_CAIRO_CALLS(X)
#undef X
  return good;
}

bool OpenFreeType(FreeTypeCalls& calls) {
  void* const library = dlopen("libfreetype.so.6", RTLD_LAZY | RTLD_LOCAL);
  bool good = library != nullptr;
#define X(member, call) good = good && Load(library, #call, calls.member);
  ZAVIEW_FT_CALLS(X)
#undef X
  return good;
}

Drawing Open() {
  Drawing out;
  FT_Library library = nullptr;
  const std::span<const unsigned char> file = LettersFile();
  if (!OpenCairo(out.cairo) || !OpenFreeType(out.free_type) || out.free_type.init(&library) != 0 ||
      out.free_type.new_face(library, file.data(), static_cast<FT_Long>(file.size()), 0, &out.face) != 0)
    return out;
  out.letters = out.cairo.face_of_ft(out.face, 0);
  out.ready = out.letters != nullptr;
  return out;
}

const Drawing& TheDrawing() {
  static const Drawing drawing = Open();
  return drawing;
}

// A picture in the making. Snapped: lines along rows and columns cover whole pixels.
struct Sheet {
  const Drawing& with;
  cairo_t* to = nullptr;
  bool snapped = false;
};

void SetInk(const Sheet& sheet, GksColour colour) {
  const auto part = [](float value) { return static_cast<double>(std::clamp(value, 0.0F, 1.0F)); };
  sheet.with.cairo.source_rgb(sheet.to, part(colour.red), part(colour.green), part(colour.blue));
}

// ---- Lines and areas

bool IsPlace(GksPoint point) {
  constexpr float kLimit = 1.0e6F;  // pixels; further out nothing is seen
  return std::abs(point.x) < kLimit && std::abs(point.y) < kLimit;
}

bool IsAlong(float a, float b) {
  constexpr float kSame = 0.01F;
  return std::abs(a - b) < kSame;
}

GksPoint Snapped(std::span<const GksPoint> strip, std::size_t i, float width) {
  const float middle = std::lround(width) % 2 == 0 ? 0.0F : 0.5F;
  GksPoint at = strip[i];
  const auto snap = [&](GksPoint other) {
    if (IsAlong(other.y, strip[i].y) && !IsAlong(other.x, strip[i].x)) at.y = std::floor(strip[i].y) + middle;
    if (IsAlong(other.x, strip[i].x) && !IsAlong(other.y, strip[i].y)) at.x = std::floor(strip[i].x) + middle;
  };
  if (i > 0) snap(strip[i - 1]);
  if (i + 1 < strip.size()) snap(strip[i + 1]);
  return at;
}

void Line(const Sheet& sheet, const PictureRecording& from, const RecordedItem& item) {
  constexpr std::size_t kAtOnce = 64;  // points: many that cross each other are slow together
  const CairoCalls& cairo = sheet.with.cairo;
  if (item.pattern == 0) return;
  const std::span<const GksPoint> strip = PointsOf(from, item);
  std::array<double, 16> runs{};
  const Dashes dashes = item.pattern == kSolid ? Dashes{} : DashesOf(item.pattern, item.width);
  std::copy_n(dashes.runs.begin(), dashes.count, runs.begin());
  SetInk(sheet, item.colour);
  cairo.line_width(sheet.to, static_cast<double>(std::max(item.width, 1.0F)));
  cairo.dash(sheet.to, runs.data(), static_cast<int>(dashes.count), static_cast<double>(dashes.offset));
  bool open = false;
  std::size_t drawn = 0;
  for (std::size_t i = 0; i < strip.size(); ++i) {
    if (!IsPlace(strip[i])) {
      open = false;
      continue;
    }
    const GksPoint at = sheet.snapped ? Snapped(strip, i, item.width) : strip[i];
    const double x = static_cast<double>(at.x), y = static_cast<double>(at.y);
    (open ? cairo.line_to : cairo.move_to)(sheet.to, x, y);
    open = true;
    if (dashes.count > 0 || !sheet.snapped || ++drawn % kAtOnce != 0) continue;
    cairo.stroke(sheet.to);
    cairo.move_to(sheet.to, x, y);
  }
  cairo.stroke(sheet.to);
}

void Fill(const Sheet& sheet, const PictureRecording& from, const RecordedItem& item) {
  const CairoCalls& cairo = sheet.with.cairo;
  bool open = false;
  SetInk(sheet, item.colour);
  for (const GksPoint& point : PointsOf(from, item)) {
    if (!IsPlace(point)) continue;
    (open ? cairo.line_to : cairo.move_to)(sheet.to, static_cast<double>(point.x), static_cast<double>(point.y));
    open = true;
  }
  if (open) cairo.close_path(sheet.to);
  cairo.fill(sheet.to);
}

// ---- Letters

struct Glyphs {
  std::vector<cairo_glyph_t> glyphs;
  std::vector<cairo_text_cluster_t> clusters;
  std::string text;  // UTF-8
};

void PutGlyph(const Sheet& sheet, float size, char32_t letter, float& along, Glyphs& out) {
  const float advance = gksLetterAdvance(letter);
  if (!(advance > 0.0F)) return;
  const std::size_t before = out.text.size();
  gksPutLetter(letter, out.text);
  out.glyphs.push_back({sheet.with.free_type.char_index(sheet.with.face, letter), static_cast<double>(along), 0.0});
  out.clusters.push_back({static_cast<int>(out.text.size() - before), 1});
  along += size * advance;
}

void Letters(const Sheet& sheet, const PictureRecording& from, const RecordedItem& item) {
  const CairoCalls& cairo = sheet.with.cairo;
  const GksPoint at = from.points[item.first];
  if (!IsPlace(at) || !(item.size > 0.0F)) return;
  Glyphs put;
  float along = 0.0F;
  for (std::string_view text = TextOf(from, item); !text.empty();)
    PutGlyph(sheet, item.size, gksTakeLetter(text), along, put);
  if (put.glyphs.empty()) return;
  SetInk(sheet, item.colour);
  cairo.save(sheet.to);
  cairo.translate(sheet.to, static_cast<double>(at.x), static_cast<double>(at.y));
  cairo.rotate(sheet.to, static_cast<double>(item.turn));
  cairo.font_size(sheet.to, static_cast<double>(item.size));
  cairo.show_text_glyphs(sheet.to, put.text.data(), static_cast<int>(put.text.size()), put.glyphs.data(),
                         static_cast<int>(put.glyphs.size()), put.clusters.data(),
                         static_cast<int>(put.clusters.size()), static_cast<cairo_text_cluster_flags_t>(0));
  cairo.restore(sheet.to);
}

// ---- Images: the library's pixels are 32 bits, top row first

constexpr std::size_t kSamples = 3;

void TakePixels(const PictureImage& image, std::vector<std::uint32_t>& pixels) {
  const auto width = static_cast<std::size_t>(image.width), height = static_cast<std::size_t>(image.height);
  pixels.resize(width * height);
  for (std::size_t y = 0; y < height; ++y) {
    const unsigned char* p = image.rgb.data() + (height - 1 - y) * width * kSamples;
    for (std::size_t x = 0; x < width; ++x, p += kSamples)
      pixels[y * width + x] = static_cast<std::uint32_t>(p[0] << 16 | p[1] << 8 | p[2]);
  }
}

void GivePixels(const std::vector<std::uint32_t>& pixels, PictureImage& image) {
  const auto width = static_cast<std::size_t>(image.width), height = static_cast<std::size_t>(image.height);
  for (std::size_t y = 0; y < height; ++y) {
    unsigned char* p = image.rgb.data() + (height - 1 - y) * width * kSamples;
    for (std::size_t x = 0; x < width; ++x, p += kSamples) {
      const std::uint32_t pixel = pixels[y * width + x];
      p[0] = static_cast<unsigned char>(pixel >> 16U & 255U);
      p[1] = static_cast<unsigned char>(pixel >> 8U & 255U);
      p[2] = static_cast<unsigned char>(pixel & 255U);
    }
  }
}

cairo_surface_t* SurfaceOf(const CairoCalls& cairo, std::vector<std::uint32_t>& pixels, int width, int height) {
  return cairo.image_for_data(reinterpret_cast<unsigned char*>(pixels.data()), CAIRO_FORMAT_RGB24, width, height,
                              width * static_cast<int>(sizeof(std::uint32_t)));
}

// The pixels must outlive the page: they are put into it when it is finished.
void Image(const Sheet& sheet, const PictureImage& image, std::vector<std::uint32_t>& pixels) {
  const CairoCalls& cairo = sheet.with.cairo;
  TakePixels(image, pixels);
  cairo_surface_t* const surface = SurfaceOf(cairo, pixels, image.width, image.height);
  cairo.source_surface(sheet.to, surface, 0.0, 0.0);
  cairo.paint(sheet.to);
  cairo.surface_destroy(surface);
}

// ---- Pictures

using KeptPixels = std::vector<std::vector<std::uint32_t>>;

void Picture(const Sheet& sheet, const PictureRecording& from, KeptPixels& kept) {
  const CairoCalls& cairo = sheet.with.cairo;
  cairo.rectangle(sheet.to, 0.0, 0.0, from.width, from.height);
  cairo.clip(sheet.to);
  SetInk(sheet, from.paper);
  cairo.paint(sheet.to);
  for (const RecordedItem& item : from.items) {
    if (item.kind == RecordedKind::line) Line(sheet, from, item);
    else if (item.kind == RecordedKind::fill) Fill(sheet, from, item);
    else if (item.kind == RecordedKind::letters) Letters(sheet, from, item);
    else Image(sheet, from.images[item.first], kept.emplace_back());
  }
}

// Takes the surface. Lines keep to pixels where they are as large as those of the surface. False: something failed.
bool Draw(const Drawing& with, cairo_surface_t* surface, const RecordedPage& page, double scale) {
  const CairoCalls& cairo = with.cairo;
  KeptPixels kept;
  const Sheet sheet{with, cairo.create(surface), scale == 1.0};
  cairo.scale(sheet.to, scale, scale);
  cairo_font_options_t* const options = cairo.options_create();
  cairo.hint_style(options, CAIRO_HINT_STYLE_NONE);
  cairo.hint_metrics(options, CAIRO_HINT_METRICS_OFF);
  cairo.font_options(sheet.to, options);
  cairo.options_destroy(options);
  cairo.font_face(sheet.to, with.letters);
  cairo.line_join(sheet.to, CAIRO_LINE_JOIN_ROUND);
  const auto draw = [&] {
    SetInk(sheet, page.cells[0]->paper);
    cairo.paint(sheet.to);
    for (std::size_t i = 0; i < page.cells.size(); ++i) {
      const PagePlace at = PlaceOf(page, i);
      cairo.save(sheet.to);
      cairo.translate(sheet.to, at.x, at.y);
      Picture(sheet, *page.cells[i], kept);
      cairo.restore(sheet.to);
    }
    return true;
  };
  bool good = Guarded(draw, false) && cairo.status(sheet.to) == CAIRO_STATUS_SUCCESS;
  cairo.destroy(sheet.to);
  cairo.surface_finish(surface);
  good = good && cairo.surface_status(surface) == CAIRO_STATUS_SUCCESS;
  cairo.surface_destroy(surface);
  return good;
}

cairo_status_t TakeBytes(void* to, const unsigned char* bytes, unsigned size) {
  const auto append = [&] {
    static_cast<std::string*>(to)->append(reinterpret_cast<const char*>(bytes), size);
    return true;
  };
  return Guarded(append, false) ? CAIRO_STATUS_SUCCESS : CAIRO_STATUS_WRITE_ERROR;
}

}  // namespace

bool HasCairo() {
  return TheDrawing().ready;
}

bool PutPdf(const RecordedPage& page, std::string& bytes) {
  const Drawing& with = TheDrawing();
  if (!with.ready) return false;
  const PagePlace size = SizeOf(page);
  cairo_surface_t* const surface = with.cairo.pdf_for_stream(TakeBytes, &bytes, kPoint * size.x, kPoint * size.y);
  with.cairo.pdf_metadata(surface, CAIRO_PDF_METADATA_CREATE_DATE, "");  // the same picture is the same file
  // Where memory is out at its end, the library tells of no fault, and the end is missing.
  return Draw(with, surface, page, kPoint) && bytes.ends_with("%%EOF\n");
}

bool DrawPage(const RecordedPage& page, PictureImage& image) {
  const Drawing& with = TheDrawing();
  if (!with.ready) return false;
  const PagePlace size = SizeOf(page);
  const auto pixels_in_all = static_cast<std::size_t>(size.x) * static_cast<std::size_t>(size.y);
  std::vector<std::uint32_t> pixels;
  if (!Grow(pixels, pixels_in_all) || !Grow(image.rgb, pixels_in_all * kSamples)) return false;
  image.width = size.x;
  image.height = size.y;
  if (!Draw(with, SurfaceOf(with.cairo, pixels, size.x, size.y), page, 1.0)) return false;
  GivePixels(pixels, image);
  return true;
}

}  // namespace zaview
