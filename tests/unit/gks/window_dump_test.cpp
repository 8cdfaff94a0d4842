#include "gks/picture/window_dump.h"

#include <array>
#include <cstring>
#include <gd.h>

#include <gtest/gtest.h>
#include <png.h>

#include "gks/picture/picture_file.h"
#include "unit/gks/drawing.h"

namespace zaview {
namespace {

using Bytes = std::vector<unsigned char>;

Bytes FromPng(const std::string& file, int& width, int& height) {  // top row first
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  if (png_image_begin_read_from_memory(&image, file.data(), file.size()) == 0) return {};
  image.format = PNG_FORMAT_RGB;
  width = static_cast<int>(image.width);
  height = static_cast<int>(image.height);
  Bytes rgb(PNG_IMAGE_SIZE(image));
  return png_image_finish_read(&image, nullptr, rgb.data(), 0, nullptr) == 0 ? Bytes{} : rgb;
}

Bytes FromGd(const std::string& file, bool gif, int& width, int& height) {
  std::string copy = file;
  const int size = static_cast<int>(copy.size());
  gdImagePtr image = gif ? gdImageCreateFromGifPtr(size, copy.data()) : gdImageCreateFromBmpPtr(size, copy.data());
  if (image == nullptr) return {};
  width = gdImageSX(image);
  height = gdImageSY(image);
  Bytes rgb;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const int colour = gdImageGetTrueColorPixel(image, x, y);
      for (const int shift : {16, 8, 0}) rgb.push_back(static_cast<unsigned char>(colour >> shift & 255));
    }
  }
  gdImageDestroy(image);
  return rgb;
}

Bytes Upside(const Bytes& rgb, int width) {
  Bytes out;
  const std::ptrdiff_t row = static_cast<std::ptrdiff_t>(width) * 3;
  for (auto end = rgb.end(); end != rgb.begin(); end -= row) out.insert(out.end(), end - row, end);
  return out;
}

TEST(PictureFile, ReadsBackAsItWas) {
  for (const int colours : {2, 200, 256}) {
    for (const int width : {1, 2, 37}) {
      const int height = 19;
      Bytes rgb;
      for (int i = 0; i < width * height; ++i) {
        const int c = i % colours;
        for (const int value : {c, 255 - c, c * 7 % 256}) rgb.push_back(static_cast<unsigned char>(value));
      }
      for (const PictureFormat format : {PictureFormat::png, PictureFormat::bmp, PictureFormat::gif}) {
        FakePlatform fake;
        ASSERT_TRUE(WritePicture(fake.Get(), "p", format, width, height, rgb));
        int w = 0, h = 0;
        const Bytes read = format == PictureFormat::png ? FromPng(fake.Bytes("p"), w, h)
                                                        : FromGd(fake.Bytes("p"), format == PictureFormat::gif, w, h);
        EXPECT_EQ(w, width);
        EXPECT_EQ(h, height);
        EXPECT_EQ(read, Upside(rgb, width)) << colours << " " << width << " " << static_cast<int>(format);
      }
    }
  }
}

TEST(PictureFile, KeepsManyColoursExactlyOrNearInAGif) {
  Bytes rgb;
  for (int i = 0; i < 64 * 64; ++i)
    for (const int value : {i % 64 * 4, i / 64 * 4, 128}) rgb.push_back(static_cast<unsigned char>(value));
  FakePlatform fake;
  ASSERT_TRUE(WritePicture(fake.Get(), "p", PictureFormat::gif, 64, 64, rgb));
  ASSERT_TRUE(WritePicture(fake.Get(), "q", PictureFormat::png, 64, 64, rgb));
  int w = 0, h = 0;
  const Bytes read = FromGd(fake.Bytes("p"), true, w, h), wanted = Upside(rgb, 64);
  EXPECT_EQ(FromPng(fake.Bytes("q"), w, h), wanted);
  ASSERT_EQ(read.size(), wanted.size());
  double off = 0;
  for (std::size_t i = 0; i < read.size(); ++i) off += std::abs(read[i] - wanted[i]);
  EXPECT_LT(off / static_cast<double>(read.size()), 12);
}

TEST(PictureFile, LeavesTheOldFileWhereItFails) {
  const Bytes rgb(30 * 30 * 3, 99);
  for (const PictureFormat format : {PictureFormat::png, PictureFormat::bmp, PictureFormat::gif}) {
    FakePlatform fake;
    fake.Put("p", "old");
    fake.room = 20;
    EXPECT_FALSE(WritePicture(fake.Get(), "p", format, 30, 30, rgb));
    EXPECT_FALSE(WritePicture(fake.Get(), "no/p", format, 30, 30, rgb));
    EXPECT_FALSE(WritePicture(fake.Get(), "p", format, 31, 30, rgb));
    EXPECT_FALSE(WritePicture(fake.Get(), "p", format, 0, 30, rgb));
    EXPECT_EQ(fake.Bytes("p"), "old");
    EXPECT_EQ(fake.files.size(), 1U);
    EXPECT_EQ(fake.OpenHandles(), 0U);
  }
}

TEST(WindowDump, NamesTheFileByOptionAndOrder) {
  // clang-format off
  const struct { const char* order; int option; const char *written, *magic, *said; } cases[] = {
      {"", -1, "dump0001.png", "\x89PNG", "DumpWindow - Writing PNG file dump0001.png\n"},
      {"", 6, "dump0003.png", "\x89PNG", "DumpWindow - Writing PNG file dump0003.png\n"},  // the gap; 2 is there
      {"", 6, "dump0004.png", "\x89PNG", "DumpWindow - Writing PNG file dump0004.png\n"},
      {"", 2, "dump0001.gif", "GIF8", "DumpWindow - ppm2gif gl.png dump0001.gif\n"},
      {"", 4, "dump0001.bmp", "BM", "DumpWindow - ppm2gif gl.png dump0001.bmp\n"},
      {"", 5, "gl.png", "\x89PNG", "DumpWindow - Writing PNG file gl.png\n"},
      {"", 1, "gl.gif", "GIF8", "DumpWindow - ppm2gif gl.png gl.gif\n"},
      {"", 3, "gl.bmp", "BM", "DumpWindow - ppm2gif gl.png gl.bmp\n"},
      {"x.Png", 2, "x.Png", "\x89PNG", "DumpWindow - Writing PNG file x.Png\n"},
      {"", 2, "dump0002.gif", "GIF8", "DumpWindow - ppm2gif gl.png dump0002.gif\n"},  // a name counts once
      {"v1.2", 4, "v1.2", "BM",
       "WARNING - v1.2 : pictures end in .png, .svg, .pdf, .gif or .bmp; this one is written as BMP\n"
       "DumpWindow - ppm2gif gl.png v1.2\n"},
      {"", 7, "", "", "LOGIC error - Illegal Dump_Option=7 in GKSDUMP\n"},
      {"no/x.bmp", 6, "", "", "DumpWindow - ppm2gif gl.png no/x.bmp\nERROR - Picture can't be written : no/x.bmp\n"},
  };
  // clang-format on
  Drawing d(20, 10);
  d.fake.Put("dump0002.png", "here");
  for (const auto& c : cases) {
    SCOPED_TRACE(c.said);
    d.fake.output.clear();
    d.fake.files.erase("gl.png");
    d.gks.dump.name = c.order;
    GKSDUMP(d.platform, d.gks, c.option);
    EXPECT_EQ(d.fake.output, c.said);
    const std::size_t magic = std::strlen(c.magic);
    EXPECT_EQ(d.fake.Bytes(c.written).substr(0, magic), c.magic);
    const bool by_way_of_png = std::strstr(c.said, "gl.png") != nullptr;
    EXPECT_EQ(d.fake.Bytes("gl.png").substr(0, 4), by_way_of_png ? "\x89PNG" : "(no ");
    EXPECT_EQ(d.fake.files.count("no/x.bmp"), 0U);
  }
  d.fake.refused.insert("gl.png");
  d.fake.output.clear();
  d.gks.dump.name = "y.gif";
  GKSDUMP(d.platform, d.gks, 2);
  EXPECT_EQ(d.fake.output, "ERROR - Picture can't be written : gl.png\nDumpWindow - ppm2gif gl.png y.gif\n");
  EXPECT_EQ(d.fake.Bytes("y.gif").substr(0, 4), "GIF8");
}

TEST(WindowDump, EndsAtTheLastNumberAndWithoutAPicture) {
  Drawing d(20, 10);
  for (int n = 1; n < 10000; ++n) d.fake.Put(fmt::format("dump{:04}.png", n), "");
  GKSDUMP(d.platform, d.gks, 6);
  EXPECT_EQ(d.fake.output, " GKSDUMP failed - no more png files\n");
  d.fake.output.clear();
  d.gks.window.width = 21;
  GKSDUMP(d.platform, d.gks, 5);
  EXPECT_EQ(d.fake.output, "GKSDUMP failed - there is no picture\n");
}

TEST(WindowDump, IsThePictureThatWasDrawn) {
  Drawing d(120, 90);
  GSCR(d.platform.console, d.gks, 2, {0.2F, 0.4F, 0.6F});
  GSFACI(d.platform.console, d.gks, 2);
  d.Fill({10, 50, 50, 10}, {10, 10, 30, 30});
  GSCHH(d.gks, 10);
  GTX(d.gks, {60, 60}, "Heave");
  d.Read();
  GKSDUMP(d.platform, d.gks, 5);
  int w = 0, h = 0;
  EXPECT_EQ(FromPng(d.fake.Bytes("gl.png"), w, h), Upside(d.rgb, 120));
  GKSDUMP(d.platform, d.gks, 1);
  EXPECT_EQ(FromGd(d.fake.Bytes("gl.gif"), true, w, h), Upside(d.rgb, 120));
}

}  // namespace
}  // namespace zaview
