#include "gks/picture/recorded_picture.h"

#include <array>
#include <string>

#include <gtest/gtest.h>

#include "gks/kernel/paint_recording.h"

namespace zaview {
namespace {

// A frame, a dotted line, an area, a label that reads upward, with letters that XML and Latin-1 make difficult.
PictureRecording MakeRecording() {
  PictureRecording recording;
  const GksPaint paint = RecordingPaint(recording, 200, 100);
  const std::array old = {GksPoint{1, 1}, GksPoint{2, 2}};
  paint.line(paint.self, {}, old);
  paint.clear(paint.self, {1, 1, 1});
  const std::array frame = {GksPoint{10.3F, 90.2F}, GksPoint{190.3F, 90.2F}, GksPoint{190.3F, 10}};
  paint.fill(paint.self, {1, 0, 0}, frame);
  paint.line(paint.self, {{0, 0, 1}, 1, kSolid}, frame);
  paint.line(paint.self, {{0, 0, 1}, 1, 2056}, frame);
  paint.letters(paint.self, {}, {{20, 80}, 10, -1.5707963F, "Heave <&> \xB0 2\x01"});
  return recording;
}

TEST(RecordedPicture, IsSvgOfShortStepsDashesAndText) {
  const PictureRecording recording = MakeRecording();
  std::string svg;
  ASSERT_TRUE(EncodeRecorded(PictureFormat::svg, {{&recording, &recording}, 1}, svg));
  const auto has = [&](std::string_view part) { return svg.find(part) != std::string::npos; };
  EXPECT_TRUE(has("width=\"200\" height=\"200\" viewBox")) << svg;
  EXPECT_TRUE(has("<svg x=\"0\" y=\"100\" width=\"200\" height=\"100\""));
  EXPECT_TRUE(has("d=\"M10.3 90.2l180 0l0-80.2\"/>")) << svg;
  EXPECT_TRUE(has("stroke-dasharray=\"1,7,1,7\" stroke-dashoffset=\"13\""));  // bits 3 and 11
  EXPECT_TRUE(has("transform=\"rotate(-90 20 80)\">Heave &lt;&amp;&gt; \xC2\xB0 2</text>"));
  EXPECT_FALSE(has("M1 1"));
  ASSERT_TRUE(EncodeRecorded(PictureFormat::svg, {{&recording, &recording, &recording}, 2}, svg));
  EXPECT_TRUE(has("<rect width=\"400\" height=\"200\" fill=\"#ffffff\"/>"));  // paper where no cell is
}

TEST(RecordedPicture, IsPdfWithTextAndSmoothImage) {
  const PictureRecording recording = MakeRecording();
  std::string pdf, again;
  ASSERT_TRUE(EncodeRecorded(PictureFormat::pdf, {{&recording}, 1}, pdf));
  ASSERT_TRUE(EncodeRecorded(PictureFormat::pdf, {{&recording}, 1}, again));
  EXPECT_EQ(pdf, again);
  EXPECT_TRUE(pdf.starts_with("%PDF-") && pdf.find("/ToUnicode") != std::string::npos);
  EXPECT_EQ(pdf.find("CreationDate"), std::string::npos);
  PictureImage image;
  ASSERT_TRUE(DrawRecorded(recording, image));
  const auto red = [&](int x, int y) { return image.rgb[static_cast<std::size_t>(((99 - y) * 200 + x) * 3)]; };
  // The frame's line is whole pixels in row 90, the paper beside it stays.
  EXPECT_EQ(red(20, 90), 0);
  EXPECT_EQ(red(20, 91), 255);
  EXPECT_EQ(red(20, 89), 255);
}

}  // namespace
}  // namespace zaview
