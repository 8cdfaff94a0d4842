// Writes a header with the six bitmap fonts and the stroke font of libglut, so that pictures without a display have the
// same letters. The library exports its tables but declares them in no header.
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include <fmt/format.h>

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
  out += fmt::format("inline constexpr BitmapFontTable {0}{{{1}, {2:.1f}F, {3:.1f}F, {0}Bytes, {0}Start}};\n", name,
                     font.height, font.x_origin, font.y_origin);
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
    "// Made by font_tables from the fonts of libglut.\n"
    "#pragma once\n\n"
    "namespace zaview {\n\n"
    "struct BitmapFontTable {\n"
    "  int height;\n"
    "  float x_origin, y_origin;\n"
    "  const unsigned char* bytes;\n"
    "  const unsigned short* start;  // by character: its width, then its rows from the bottom\n"
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
  out += "\n}  // namespace zaview\n";
  std::FILE* const file = std::fopen(words[1], "wb");
  if (file == nullptr) return 1;
  const bool written = std::fwrite(out.data(), 1, out.size(), file) == out.size();
  return std::fclose(file) == 0 && written ? 0 : 1;
}
