#include "gks/kernel/gks_transform.h"

#include <cmath>

#include <gtest/gtest.h>

#include "gks/kernel/gks_control.h"

namespace zaview {
namespace {

GksState OpenGks(int width, int height) {
  GksState gks;
  gks.window.width = width;
  gks.window.height = height;
  GOPWK(gks);
  return gks;
}

TEST(Transform, WorldGoesToPixelsWithYDown) {
  GksState gks = OpenGks(500, 400);
  ASSERT_TRUE(GSWKWN(gks, {0, 1, 0, 0.75F}));  // r = 0.75 < 0.8: 500 x 375, at the top of the window
  GSVP(gks, 2, {0.25F, 0.75F, 0.25F, 0.5F});   // columns 125 to 375; 375 - 125 to 375 - 250
  GSWN(gks, 2, {10, 20, -1, 1});
  GSELNT(gks, 2);
  const struct {
    float x, y;
    int px, py;
  } cases[] = {{10, -1, 125, 250},        {20, 1, 375, 125},       {15, 0, 250, 187},
               {0, 0, -125, 187},         {NAN, 0, -1000000, 187}, {1e30F, -1e30F, 1000000, 1000000},
               {10.039F, 0.99F, 125, 125}};
  for (const auto& c : cases) {
    const GksPixel pixel = gksToPixel(gks, {c.x, c.y});
    EXPECT_EQ(pixel.x, c.px) << c.x;
    EXPECT_EQ(pixel.y, c.py) << c.y;
  }
  const GksPoint back = gksToWorld(gks, 250, 125);
  EXPECT_NEAR(back.x, 15, 1e-5);
  EXPECT_NEAR(back.y, 1, 1e-5);
  EXPECT_NEAR(gksPixelsPerUnit(gks).x, 25, 1e-4);
  EXPECT_NEAR(gksPixelsPerUnit(gks).y, 62.5, 1e-4);
}

TEST(Transform, WorkstationWindowKeepsItsAspect) {
  // clang-format off
  const struct { GksRectangle window; bool good; float width, height; } cases[] = {
      {{0, 1, 0, 0.5F}, true, 500, 250}, {{0, 0.5F, 0, 1}, true, 200, 400}, {{0, 1, 0, 1}, true, 400, 400},
      {{1, 0, 1, 0}, false, 400, 400}, {{0, 0, 0, 0}, false, 400, 400},
  };
  // clang-format on
  for (const auto& c : cases) {
    GksState gks = OpenGks(500, 400);
    EXPECT_EQ(GSWKWN(gks, c.window), c.good);
    EXPECT_FLOAT_EQ(gks.ws_viewport.xmax, c.width);
    EXPECT_FLOAT_EQ(gks.ws_viewport.ymax, c.height);
  }
  GksState gks = OpenGks(500, 400);
  EXPECT_TRUE(GSWKWN(gks, {0, 1, 3, 2}));  // one direction alone may be turned
}

TEST(Transform, ReversalOfOthersIsForgotten) {
  GksState gks = OpenGks(400, 400);
  GSWN(gks, 1, {5, 0, 0, 5});
  EXPECT_EQ(gks.transform[1].x_sign, -1);
  EXPECT_EQ(gks.transform[1].y_sign, 1);
  EXPECT_EQ(gksToPixel(gks, {5, 5}).x, 0);
  GSWN(gks, 2, {0, 5, 5, 0});
  EXPECT_EQ(gks.transform[1].x_sign, 1);
  EXPECT_EQ(gks.transform[2].y_sign, -1);
}

TEST(Transform, NumbersOutsideTheTableAreIgnored) {
  GksState gks = OpenGks(400, 400);
  for (const int number : {-1, 10, 1 << 30}) {
    GSWN(gks, number, {0, 9, 0, 9});
    GSVP(gks, number, {0, 9, 0, 9});
    GSELNT(gks, number);
  }
  EXPECT_EQ(gks.selected, 1);
  for (const GksTransform& t : gks.transform) EXPECT_EQ(t.window.xmax + t.viewport.xmax, 2);
}

}  // namespace
}  // namespace zaview
