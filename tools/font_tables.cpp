// Writes a header with the six bitmap fonts and the stroke font of libglut, so that pictures without a display have the
// same letters. The library exports its tables but declares them in no header. Menus have smooth letters, drawn here by
// FreeType from the outlines of two font files; without these files, those of the bitmap fonts. Of the scalable font it
// writes the widths.
#include <cstdio>
#include <ft2build.h>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <fmt/format.h>
#include FT_FREETYPE_H

namespace {

struct BitmapFont {  // as in the library
  const char* name;
  int count, height;
  const unsigned char** glyphs;  // each: width, then `height` rows of whole bytes, bottom row first
  float x_origin, y_origin;
};

struct StrokeVertex {
  float x, y;
};
struct StrokeStrip {
  int count;
  const StrokeVertex* vertices;
};
struct StrokeGlyph {
  float right;
  int count;
  const StrokeStrip* strips;
};
struct StrokeFont {
  const char* name;
  int count;
  float height;
  const StrokeGlyph** glyphs;
};

}  // namespace

extern "C" {
extern const BitmapFont fgFontHelvetica10, fgFontHelvetica12, fgFontFixed8x13, fgFontFixed9x15, fgFontHelvetica18,
    fgFontTimesRoman24;
extern const StrokeFont fgStrokeRoman;
}

namespace {

constexpr int kCharacters = 256;
constexpr int kBytesPerLine = 24;

template <typename T>
void PutList(std::string& out, std::string_view type, std::string_view name, const std::vector<T>& values,
             std::string_view form) {
  out += fmt::format("inline constexpr {} {}[] = {{", type, name);
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (i % kBytesPerLine == 0) out += "\n    ";
    out += fmt::format(fmt::runtime(form), values[i]);
  }
  out += "};\n";
}

void PutBitmapFont(std::string& out, const BitmapFont& font, std::string_view name) {
  std::vector<int> bytes, start;
  for (int c = 0; c < kCharacters; ++c) {
    start.push_back(static_cast<int>(bytes.size()));
    if (c >= font.count || font.glyphs[c] == nullptr) {
      bytes.push_back(0);
      continue;
    }
    const int width = font.glyphs[c][0];
    const int size = 1 + font.height * ((width + 7) / 8);
    bytes.insert(bytes.end(), font.glyphs[c], font.glyphs[c] + size);
  }
  PutList(out, "unsigned char", fmt::format("{}Bytes", name), bytes, "{},");
  PutList(out, "unsigned short", fmt::format("{}Start", name), start, "{},");
  out += fmt::format("inline constexpr BitmapFontTable {0}{{{1}, {2:.1f}F, {3:.1f}F, {0}Bytes, {0}Start, 0, false}};\n",
                     name, font.height, font.x_origin, font.y_origin);
}

#ifdef ZAVIEW_SANS
constexpr int kOverhang = 2;  // pixels on both sides of a letter's advance

// A letter of smooth edges: its advance, then the part of each pixel that it covers.
void PutSmoothLetter(std::vector<int>& bytes, const FT_GlyphSlot glyph, int height, int below) {
  constexpr int kFull = 255, kLevels = 16, kPixel = 64;
  const int advance = static_cast<int>((glyph->advance.x + kPixel / 2) / kPixel), width = advance + 2 * kOverhang;
  const FT_Bitmap& bitmap = glyph->bitmap;
  bytes.push_back(advance);
  for (int row = 0; row < height; ++row)
    for (int column = 0; column < width; ++column) {
      const int x = column - kOverhang - glyph->bitmap_left, y = glyph->bitmap_top - 1 - (row - below);
      const bool inside = x >= 0 && y >= 0 && x < static_cast<int>(bitmap.width) && y < static_cast<int>(bitmap.rows);
      const int covered = inside ? bitmap.buffer[y * bitmap.pitch + x] : 0;
      bytes.push_back((covered * kLevels + kFull / 2) / kFull);
    }
}

// False: the file has no such font.
bool PutSmoothFont(std::string& out, FT_Library library, const char* file, unsigned pixels, std::string_view name) {
  constexpr FT_ULong kLast = 255;
  const int below = static_cast<int>(pixels) / 3, height = static_cast<int>(pixels) + below + 2;
  FT_Face face = nullptr;
  if (FT_New_Face(library, file, 0, &face) != 0 || FT_Set_Pixel_Sizes(face, 0, pixels) != 0) return false;
  std::vector<int> bytes, start;
  for (FT_ULong c = 0; c <= kLast; ++c) {
    start.push_back(static_cast<int>(bytes.size()));
    const bool control = c < ' ' || (c >= 127 && c < 160);
    if (control || FT_Load_Char(face, c, FT_LOAD_RENDER | FT_LOAD_TARGET_LIGHT) != 0) bytes.push_back(0);
    else PutSmoothLetter(bytes, face->glyph, height, below);
  }
  FT_Done_Face(face);
  PutList(out, "unsigned char", fmt::format("{}Bytes", name), bytes, "{},");
  PutList(out, "unsigned short", fmt::format("{}Start", name), start, "{},");
  out += fmt::format("inline constexpr BitmapFontTable {0}{{{1}, {2}.0F, {3}.0F, {0}Bytes, {0}Start, {2}, true}};\n",
                     name, height, kOverhang, below);
  return true;
}

bool PutSmoothFonts(std::string& out) {
  FT_Library library = nullptr;
  if (FT_Init_FreeType(&library) != 0) return false;
  const bool put = PutSmoothFont(out, library, ZAVIEW_SANS, 10, "kSans10") &&
                   PutSmoothFont(out, library, ZAVIEW_SANS, 12, "kSans12") &&
                   PutSmoothFont(out, library, ZAVIEW_MONO, 13, "kMono13");
  FT_Done_FreeType(library);
  return put;
}
#else
bool PutSmoothFonts(std::string& out) {
  for (const auto& [name, like] :
       {std::pair("kSans10", "kHelvetica10"), std::pair("kSans12", "kHelvetica12"), std::pair("kMono13", "kFixed8x13")})
    out += fmt::format("inline constexpr BitmapFontTable {} = {};\n", name, like);
  return true;
}
#endif

bool PutAdvances(std::string& out) {
  FT_Library library = nullptr;
  FT_Face face = nullptr;
  if (FT_Init_FreeType(&library) != 0 || FT_New_Face(library, ZAVIEW_LETTERS, 0, &face) != 0) return false;
  std::vector<int> advances;
  for (FT_ULong c = 0; c < kCharacters; ++c)
    advances.push_back(FT_Load_Char(face, c, FT_LOAD_NO_SCALE) == 0 ? static_cast<int>(face->glyph->advance.x) : 0);
  out += fmt::format("inline constexpr float kLetterUnits = {}.0F;  // an em\n", face->units_per_EM);
  PutList(out, "unsigned short", "kLetterAdvance", advances, "{},");
  FT_Done_Face(face);
  FT_Done_FreeType(library);
  return true;
}

void PutStrokeFont(std::string& out, const StrokeFont& font) {
  std::vector<std::string> points;
  std::vector<int> strip_start, glyph_start;
  std::vector<std::string> right;
  for (int c = 0; c < kCharacters; ++c) {
    glyph_start.push_back(static_cast<int>(strip_start.size()));
    const StrokeGlyph* const glyph = c < font.count ? font.glyphs[c] : nullptr;
    right.push_back(fmt::format("{:#.9g}F", glyph == nullptr ? 0.0F : glyph->right));
    if (glyph == nullptr) continue;
    for (int s = 0; s < glyph->count; ++s) {
      strip_start.push_back(static_cast<int>(points.size()));
      for (int v = 0; v < glyph->strips[s].count; ++v) {
        const StrokeVertex& vertex = glyph->strips[s].vertices[v];
        points.push_back(fmt::format("{{{:#.9g}F,{:#.9g}F}}", vertex.x, vertex.y));
      }
    }
  }
  glyph_start.push_back(static_cast<int>(strip_start.size()));
  strip_start.push_back(static_cast<int>(points.size()));
  PutList(out, "StrokePoint", "kStrokePoints", points, "{},");
  PutList(out, "unsigned short", "kStripStart", strip_start, "{},");
  PutList(out, "unsigned short", "kStrokeGlyphStart", glyph_start, "{},");
  PutList(out, "float", "kStrokeRight", right, "{},");
}

constexpr std::string_view kTypes =
    "// Made by font_tables.\n"
    "#pragma once\n\n"
    "namespace zaview {\n\n"
    "struct BitmapFontTable {\n"
    "  int height;\n"
    "  float x_origin, y_origin;\n"
    "  const unsigned char* bytes;\n"
    "  const unsigned short* start;  // by character: its advance, then its rows from the bottom\n"
    "  int overhang;                 // pixels of a row beyond the advance, on both sides\n"
    "  bool smooth;                  // a byte a pixel: sixteenths that are covered\n"
    "};\n"
    "struct StrokePoint {\n"
    "  float x, y;\n"
    "};\n\n";

}  // namespace

int main(int count, char** words) {
  if (count != 2) {
    std::fputs("usage: font_tables header\n", stderr);
    return 2;
  }
  std::string out(kTypes);
  PutBitmapFont(out, fgFontHelvetica10, "kHelvetica10");
  PutBitmapFont(out, fgFontHelvetica12, "kHelvetica12");
  PutBitmapFont(out, fgFontFixed8x13, "kFixed8x13");
  PutBitmapFont(out, fgFontFixed9x15, "kFixed9x15");
  PutBitmapFont(out, fgFontHelvetica18, "kHelvetica18");
  PutBitmapFont(out, fgFontTimesRoman24, "kTimesRoman24");
  PutStrokeFont(out, fgStrokeRoman);
  if (!PutSmoothFonts(out) || !PutAdvances(out)) {
    std::fputs("font_tables: the outlines of the letters can't be read\n", stderr);
    return 1;
  }
  out += "\n}  // namespace zaview\n";
  std::FILE* const file = std::fopen(words[1], "wb");
  const bool written = file != nullptr && std::fwrite(out.data(), 1, out.size(), file) == out.size();
  if (file != nullptr && std::fclose(file) == 0 && written) return 0;
  std::fprintf(stderr, "font_tables: %s can't be written\n", words[1]);
  return 1;
}
