#include "gks/kernel/gks_draw.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "gks/kernel/fonts.h"
#include "unit/gks/drawing.h"

namespace zaview {
namespace {

TEST(Polyline, WidthAndStippleLightTheirShareOfPixels) {
  const struct {
    int type;
    float scale;
    int lit;  // of a line of 160 pixels
  } cases[] = {{1, 1, 160}, {1, 0.2F, 160}, {1, 3, 480}, {2, 1, 80}, {3, 1, 20}, {4, 1, 70}, {5, 1, 20}, {6, 1, 160}};
  Drawing d(200, 100);
  for (const auto& c : cases) {
    d.Clear();
    GSLN(d.gks, c.type);
    GSLWSC(d.gks, c.scale);
    d.Line({20, 180}, {40, 40});
    const Box box = d.Lit();
    EXPECT_NEAR(box.count, c.lit, c.lit / 50 + 1) << c.type << " " << c.scale;
    EXPECT_NEAR(box.y, 60, 1);  // 100 - 40
  }
}

// A line covers its length times its width whatever its slope, in pixels of many strengths.
TEST(Polyline, IsSmooth) {
  const struct { float dx, dy, width; } cases[] = {{90, 40, 1}, {30, 70, 1}, {-90, 37, 2}, {50, -50, 3}};
  for (const auto& c : cases) {
    Drawing d(200, 200);
    GSLWSC(d.gks, c.width);
    d.Line({100, 100 + c.dx / 2, 100 + c.dx}, {100, 100 + c.dy / 2, 100 + c.dy});
    const double area = std::hypot(c.dx, c.dy) * c.width;
    const Box box = d.Lit();
    EXPECT_NEAR(box.ink, area, 0.04 * area) << c.dx;
    EXPECT_GT(box.count, 1.15 * box.ink) << c.dx;
  }
}

// A graph of 10 by 10 units on columns 50 to 150 and rows 25 to 75.
void SelectGraph(Drawing& d, GksRectangle window) {
  GSVP(d.gks, 2, {0.25F, 0.75F, 0.25F, 0.75F});
  GSWN(d.gks, 2, window);
  GSELNT(d.gks, 2);
}

TEST(Polyline, IsCutAtTheWindowOfItsTransformation) {
  Drawing d(200, 100);
  for (const GksRectangle window : {GksRectangle{0, 10, 0, 10}, GksRectangle{10, 0, 10, 0}}) {
    d.Clear();
    SelectGraph(d, window);
    d.Line({-10, 20}, {5, 5});
    Box box = d.Lit();
    EXPECT_NEAR(box.left, 50, 1);
    EXPECT_NEAR(box.right, 149, 1);
    EXPECT_NEAR(box.y, 50, 1);

    d.Clear();
    SelectGraph(d, window);
    d.Line({-5, 5, 15, 15, 5, -5}, {2, 2, 4, 6, 8, 8});  // out at the right and back: two strips
    box = d.Lit();
    EXPECT_NEAR(box.left, 50, 1);
    EXPECT_NEAR(box.right, 149, 1);
    EXPECT_NEAR(box.ink, 200, 8);  // nothing along the edge between the strips

    d.Clear();
    SelectGraph(d, window);
    GSCLIP(d.gks, 0);
    d.Line({-10, 20}, {5, 5});
    EXPECT_NEAR(d.Lit().count, 200, 4);
  }
}

TEST(Polyline, IsEmptyOfPointsThatAreNoNumbers) {
  Drawing d(200, 100);
  d.Line({}, {});
  d.Line({10}, {10});
  d.Line({NAN, NAN, 40}, {10, INFINITY, NAN});
  d.Line({20, NAN, 60, 80}, {50, 50, 50, 50});
  const Box box = d.Lit();
  EXPECT_NEAR(box.count, 20, 1);
  EXPECT_NEAR(box.left, 60, 1);
}

TEST(Fill, CoversItsAreaInsideTheWindow) {
  // clang-format off
  const struct { std::vector<float> x, y; double area; } cases[] = {  // pixels; a unit square of the graph is 10 x 5
      {{2, 8, 8, 2}, {2, 2, 8, 8}, 36 * 50}, {{-5, 5, 5, -5}, {-5, -5, 5, 5}, 25 * 50},  // one corner
      {{5, 25, 5}, {-5, 5, 15}, 50 * 50},  // two corners
      {{-90, 90, 0}, {-40, -40, 120}, 100 * 50},  // all of the window, no edge in it
      {{20, 30, 30}, {5, 2, 8}, 0},  // beside it
      {{-2, 5, 12, 5}, {5, 12, 5, -2}, 0.5 * 14 * 14 * 50 - 4 * 4 * 50},  // a diamond loses four tips of 2 by 4
  };
  // clang-format on
  Drawing d(200, 100);
  for (const auto& c : cases) {
    for (const bool back : {false, true}) {
      d.Clear();
      SelectGraph(d, {0, 10, 0, 10});
      std::vector<float> x = c.x, y = c.y;
      if (back) std::reverse(x.begin(), x.end()), std::reverse(y.begin(), y.end());
      d.Fill(x, y);
      const Box box = d.Lit();
      EXPECT_NEAR(box.ink, c.area, c.area * 0.03) << c.x[0] << " " << back;
      EXPECT_TRUE(box.count == 0 || (box.left >= 50 && box.right < 150 && box.top >= 25 && box.bottom < 75));
    }
  }
}

// A notch stays empty, whatever point is the first, and a polygon partly outside of the picture is cut.
TEST(Fill, OfPolygonsThatAreNotConvex) {
  Drawing d(200, 100);
  GSCLIP(d.gks, 0);
  std::vector<float> x = {50, 150, 150, 100, 50}, y = {10, 10, 90, 40, 90};
  for (int first = 0; first < 5; ++first) {
    d.Clear();
    GSCLIP(d.gks, 0);
    std::rotate(x.begin(), x.begin() + 1, x.end());
    std::rotate(y.begin(), y.begin() + 1, y.end());
    d.Fill(x, y);
    EXPECT_NEAR(d.Lit().ink, 100 * 80 - 100 * 50 / 2, 40) << first;
  }
  d.Clear();
  GSCLIP(d.gks, 0);
  d.Fill({-50, 50, 50, -50}, {-60, -60, 20, 20});
  EXPECT_NEAR(d.Lit().ink, 50 * 20, 10);
}

TEST(Marker, IsSquareInPixelsAndHasItsShape) {
  constexpr double pi = std::numbers::pi, r = 20, root = std::numbers::sqrt2, wedge = 2 + 2 * 2.236068;
  // clang-format off
  const struct { int type; double ink, down; } cases[] = {  // ink: of its lines or area; down: of its centre
      {0, 8 * r, 0}, {1, 2 * pi * r, 0}, {2, wedge * r, 6.667}, {3, 4 * r, 0}, {4, 4 * root * r, 0},
      {5, 4 * root * r, 0}, {6, wedge * r, -6.667}, {7, (8 + 4 * root) * r, 0}, {8, (4 + 4 * root) * r, 0},
      {9, (4 + 4 * root) * r, 0}, {11, 2 * wedge * r, 0}, {12, 8 * r, 0}, {15, pi * r * r, 0}, {16, 2 * r * r, r / 3},
      {17, 2 * r * r, -r / 3}, {18, 4 * r * r, 0}, {19, 2 * r, 0}, {20, 2 * r, 0}, {21, 2 * r * r, 0},
      {22 + 18, 4 * r * r, 0},
  };
  // clang-format on
  Drawing d(300, 100);
  for (const auto& c : cases) {
    d.Clear();
    GSMK(d.gks, c.type);
    GSMKSC(d.gks, 40);  // 100 * 40 / 200 = 20 pixels
    d.Marker(150, 50);
    const Box box = d.Lit();
    EXPECT_NEAR(box.ink, c.ink, c.ink * 0.06 + 4) << c.type;
    EXPECT_NEAR(box.x, 150, 1.5) << c.type;
    EXPECT_NEAR(box.y, 50 + c.down, 1.5) << c.type;
    EXPECT_NEAR(box.width(), c.type == 20 ? 1 : 41, 2) << c.type;
    EXPECT_NEAR(box.height(), c.type == 19 ? 1 : 41, 2) << c.type;
  }
}

TEST(Fonts, HaveTheWidthsOfTheLibrary) {
  const struct {
    Font font;
    int blank, zero, capital_a, i, capital_m, sum;
  } cases[] = {{Font::helvetica_10, 3, 6, 7, 2, 9, 534},    {Font::helvetica_12, 4, 7, 9, 3, 11, 627},
               {Font::fixed_8_13, 8, 8, 8, 8, 8, 760},      {Font::fixed_9_15, 9, 9, 9, 9, 9, 855},
               {Font::helvetica_18, 5, 10, 12, 4, 16, 929}, {Font::times_24, 6, 12, 17, 6, 22, 1182}};
  for (const auto& c : cases) {
    int sum = 0;
    for (unsigned char ch = 32; ch < 127; ++ch) sum += gksCharWidth(c.font, ch);
    EXPECT_EQ(sum, c.sum);
    EXPECT_EQ(gksCharWidth(c.font, ' '), c.blank);
    EXPECT_EQ(gksCharWidth(c.font, '0'), c.zero);
    EXPECT_EQ(gksCharWidth(c.font, 'A'), c.capital_a);
    EXPECT_EQ(gksCharWidth(c.font, 'i'), c.i);
    EXPECT_EQ(gksCharWidth(c.font, 'M'), c.capital_m);
    EXPECT_EQ(gksCharWidth(c.font, '\n'), 0);
  }
  EXPECT_EQ(gksCharWidth(Font::stroke, ' '), 105);
  EXPECT_EQ(gksCharWidth(Font::stroke, '0'), 77);
  EXPECT_EQ(gksCharWidth(Font::stroke, 200), 0);
}

TEST(Text, StandsByItsAlignmentInTheFontOfItsHeight) {
  // "HHHH" has letters of cap height only; at character height 10 pixels h is 13.3: 8-by-13, width 32, cap 9.75.
  const struct {
    float up_x, up_y;
    int horizontal, vertical;
    double dx, dy;  // centre of the letters from the point; letters are 9 rows on the baseline
  } cases[] = {
      {0, 1, 0, 0, 16, -4.5},  {0, 1, 1, 4, 16, -4.5}, {0, 1, 2, 3, 0, -0.5},    {0, 1, 3, 1, -16, 5.2},
      {0, 1, 2, 2, 0, 3.3},    {0, 1, 1, 5, 16, -7.8}, {0, -1, 1, 1, -16, -7.8}, {1, 0, 1, 3, 0, 5.2},
      {1, 0, 2, 1, -16, -0.5}, {-1, 0, 1, 3, 0, -7.8}, {-1, 0, 2, 1, 16, -0.5},  {-1, 0, 3, 5, -16, 5.2},
  };
  Drawing d(200, 100);
  for (const auto& c : cases) {
    d.Clear();
    GSCHH(d.gks, 10);
    GSCHUP(d.gks, c.up_x, c.up_y);
    GSTXAL(d.gks, c.horizontal, c.vertical);
    GTX(d.gks, {100, 50}, "HHHH");
    const Box box = d.Lit();
    EXPECT_NEAR((box.left + box.right) / 2.0, 100 + c.dx, 2) << c.up_x << c.up_y << c.horizontal << c.vertical;
    EXPECT_NEAR((box.top + box.bottom) / 2.0, 50 + c.dy, 1.6) << c.up_x << c.up_y << c.horizontal << c.vertical;
    EXPECT_NEAR(box.width(), 32, 3);
  }
}

// Each pixel of a level text goes to the place that a quarter of a turn takes it to.
TEST(Text, OfABitmapFontTurnsWhereItIsWanted) {
  Drawing d(200, 200);
  GSCHH(d.gks, 10);
  GTX(d.gks, {100, 100}, "Rg7");
  const Box level = d.Lit();
  std::vector<std::pair<int, int>> want, got;
  for (int y = 0; y < 200; ++y)
    for (int x = 0; x < 200; ++x)
      if (d.At(x, y) != 0) want.emplace_back(y, 199 - x);
  d.Clear();
  GSCHH(d.gks, 10);
  d.gks.attribute.turn_bitmap = true;
  GSCHUP(d.gks, -1, 0);
  GTX(d.gks, {100, 100}, "Rg7");
  EXPECT_EQ(d.Lit().count, level.count);
  for (int y = 0; y < 200; ++y)
    for (int x = 0; x < 200; ++x)
      if (d.At(x, y) != 0) got.emplace_back(x, y);
  std::sort(want.begin(), want.end());
  EXPECT_EQ(got.size(), want.size());
  std::sort(got.begin(), got.end());
  EXPECT_EQ(got, want);
}

TEST(Text, TakesTheFontByItsHeightInPixels) {
  // Width of "MMMM" by h = 1.33 times the height: the steps are at 11, 12.5, 14, 16.5 and 21.
  const struct {
    float height;
    int width;
  } cases[] = {{1, 36},     {8.2F, 36},  {8.4F, 44},  {9.3F, 44},  {9.5F, 32}, {10.6F, 36},
               {12.3F, 36}, {12.5F, 64}, {15.7F, 64}, {15.9F, 88}, {900, 88}};
  Drawing d(200, 100);
  for (const auto& c : cases) {
    d.Clear();
    GSCHH(d.gks, c.height);
    const TextExtent extent = GQTXX(d.gks, {50, 40}, "MMMM");
    EXPECT_NEAR(extent.corner[1].x - extent.corner[0].x, c.width, 0.01) << c.height;
    EXPECT_NEAR(extent.end.x, 50 + c.width, 0.01);
    GTX(d.gks, {50, 40}, "MMMM");
    const Box box = d.Lit();
    EXPECT_NEAR(box.width(), c.width, 4) << c.height;
    EXPECT_GE(box.left, 50);
    EXPECT_LE(100 - box.top, extent.corner[3].y + 2);
    EXPECT_GE(100 - box.bottom, extent.corner[0].y);
  }
}

TEST(Text, StaysInsideOnTheLeftAndIsLeftOutBeyondTheWindow) {
  Drawing d(200, 100);
  GSCHH(d.gks, 10);
  GSTXAL(d.gks, 3, 0);
  GTX(d.gks, {10, 50}, "HHHH");  // would begin at -22
  EXPECT_NEAR(d.Lit().right, 31, 2);
  d.Clear();
  SelectGraph(d, {0, 10, 0, 10});
  GTX(d.gks, {11, 5}, "HHHH");
  EXPECT_EQ(d.Lit().count, 0);
  GSCLIP(d.gks, 0);
  GSCHH(d.gks, 2);
  GTX(d.gks, {11, 5}, "HH\tHH");
  EXPECT_GT(d.Lit().count, 20);
}

TEST(Text, TurnsWithTheUpVectorInTheStrokeFont) {
  // Scale 20 / 119.05; a capital letter is 100 units high.
  const int advance = gksCharWidth(Font::stroke, 'H');
  const double width = 4 * advance * 20 / 119.05;
  Drawing d(200, 200);
  d.gks.window.bitmap_font = false;
  const struct {
    float up_x, up_y;
    double dx, dy;  // the centre, left aligned on the baseline
  } cases[] = {{0, 1, width / 2, -10}, {-1, 0, -10, -width / 2}, {1, 0, 10, width / 2}, {0, -1, -width / 2, 10}};
  for (const auto& c : cases) {
    d.Clear();
    GSCHH(d.gks, 20);
    GSCHUP(d.gks, c.up_x, c.up_y);
    GTX(d.gks, {100, 100}, "HHHH");
    const Box box = d.Lit();
    EXPECT_NEAR((box.left + box.right) / 2.0, 100 + c.dx, 2.5) << c.up_x << c.up_y;
    EXPECT_NEAR((box.top + box.bottom) / 2.0, 100 + c.dy, 2.5) << c.up_x << c.up_y;
    const bool level = c.up_x == 0;
    EXPECT_NEAR(level ? box.height() : box.width(), 100 * 20 / 119.05 + 1, 1.5);
    EXPECT_NEAR(level ? box.width() : box.height(), width, 8);
    const TextExtent extent = GQTXX(d.gks, {100, 100}, "HHHH");
    EXPECT_NEAR((extent.corner[0].x + extent.corner[1].x + extent.corner[2].x + extent.corner[3].x) / 4, 100 + c.dx, 4);
  }
}

// At every size: a number without its point is another number.
TEST(Text, ShowsThePointInTheStrokeFont) {
  for (const float height : {3.0F, 5.0F, 7.0F, 12.0F, 40.0F}) {
    Drawing d(200, 100);
    d.gks.window.bitmap_font = false;
    GSCHH(d.gks, height);
    GTX(d.gks, {50, 50}, ".");
    EXPECT_GT(d.Lit().ink, 0.6) << height;
    const TextExtent with = GQTXX(d.gks, {0, 0}, "0.0"), without = GQTXX(d.gks, {0, 0}, "00");
    EXPECT_GE(with.corner[1].x - without.corner[1].x, 2.99) << height;  // not grown into the digits
  }
}

TEST(Colours, EachPrimitiveHasItsOwnAndReverseVideoTurnsThem) {
  for (const bool reverse : {false, true}) {
    Drawing d(200, 100);
    gksSetReverse(d.gks, reverse);
    d.Clear();
    const Console& console = d.platform.console;
    for (int i = 2; i < 5; ++i)
      GSCR(console, d.gks, i, {i == 2 ? 1.0F : 0.0F, i == 3 ? 1.0F : 0.0F, i == 4 ? 1.0F : 0.0F});
    GSPLCI(console, d.gks, 2);
    GSFACI(console, d.gks, 3);
    GSPMCI(console, d.gks, 4);
    d.Line({0, 200}, {20, 20});
    d.Fill({0, 50, 50, 0}, {40, 40, 60, 60});
    GSMK(d.gks, 18);
    GSMKSC(d.gks, 10);
    d.Marker(150, 50);
    GSCHH(d.gks, 10);
    GTX(d.gks, {100, 80}, "HHHH");
    d.Read();
    const unsigned full = reverse ? 204 : 255;  // colours are darkened on white
    int red = 0, green = 0, blue = 0, ink = 0;
    for (int y = 0; y < 100; ++y) {
      for (int x = 0; x < 200; ++x) {
        const unsigned colour = d.At(x, y);
        red += colour == full << 16U;
        green += colour == full << 8U;
        blue += colour == full;
        ink += colour == (reverse ? 0U : 0xFFFFFFU);
      }
    }
    EXPECT_NEAR(red, 200, 2);
    EXPECT_NEAR(green, 1000, 60);  // a row more where an edge is rounded down
    EXPECT_NEAR(blue, 100, 2);
    EXPECT_GT(ink, 40);
    EXPECT_LT(ink, 400);
    EXPECT_EQ(d.At(199, 99), reverse ? 0xFFFFFFU : 0U);
  }
}

// Whatever a painter is given it stays within its picture.
TEST(GksPaint, PlacesFarOutsideAndNone) {
  constexpr float kFar = 3.0e38F;
  PictureImage image{8, 8, std::vector<unsigned char>(8 * 8 * 3, 0)};
  const GksPaint paint = ImagePaint(image);
  const auto lit = [&] { return std::count(image.rgb.begin(), image.rgb.end(), 0xFF) / 3; };
  paint.fill(paint.self, {1, 1, 1}, std::vector<GksPoint>{{-kFar, -kFar}, {kFar, -kFar}, {NAN, 4}});
  EXPECT_EQ(lit(), 0);
  paint.fill(paint.self, {1, 1, 1}, std::vector<GksPoint>{{-kFar, -kFar}, {kFar, -kFar}, {kFar, 4}, {-kFar, 4}});
  EXPECT_EQ(lit(), 8 * 4);
  std::vector<GksPoint> line;  // as long as the range of int is not
  for (int i = 0; i < 4000; ++i) line.push_back({i % 2 == 0 ? -kFar : kFar, 6});
  paint.line(paint.self, {{1, 1, 1}, 1, 0x5555}, line);
  EXPECT_EQ(lit(), 8 * 4 + 4);
}

}  // namespace
}  // namespace zaview
