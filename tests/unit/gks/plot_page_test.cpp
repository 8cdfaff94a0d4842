#include <cmath>
#include <limits>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "drawing.h"
#include "gks/plot/plot_layer.h"

namespace zaview {
namespace {

constexpr float kInfinite = std::numeric_limits<float>::infinity();

struct Plot : Drawing {
  PlotPage page;
  PlotDraw draw{platform, gks, page};

  explicit Plot(int width = 550, int height = 425) : Drawing(width, height) { Open(); }
  void Open() {
    gksBeginPicture(platform.window, gks);
    EXPECT_TRUE(dgFrame(draw, 2));
    dgNoFrame(draw);
    dgPage(draw, 11, 8.5F);
    dgArea(draw, 9, 5.5F);
  }
  [[nodiscard]] float Unit() const { return static_cast<float>(gks.window.width) / 11; }  // pixels
  // Lit pixels in a part of the page, given from its lower left corner in page units.
  int LitIn(float x0, float y0, float x1, float y1) {
    int count = 0;
    for (int y = static_cast<int>((8.5F - y1) * Unit()); y < static_cast<int>((8.5F - y0) * Unit()); ++y)
      for (int x = static_cast<int>(x0 * Unit()); x < static_cast<int>(x1 * Unit()); ++x)
        count += At(x, y) != 0 ? 1 : 0;
    return count;
  }
  // Spans of columns with lit pixels that at least `gap` dark ones set apart.
  int Spans(float y0, float y1, int gap) {
    int spans = 0, dark = gap;
    for (int x = 0; x < gks.window.width; ++x) {
      const bool lit =
          LitIn(static_cast<float>(x) / Unit() + 0.001F, y0, static_cast<float>(x + 1) / Unit() + 0.001F, y1) > 0;
      if (lit && dark >= gap) ++spans;
      dark = lit ? 0 : dark + 1;
    }
    return spans;
  }
};

TEST(PlotPage, LimitsOfAnAxis) {
  const struct {
    float origin, step, end, want_origin, want_step, want_end;
  } cases[] = {{0, 1, 10, 0, 1, 10},          {10, 1, 0, 10, -1, 0},
               {0, -2, 10, 0, 2, 10},         {5, 1, 5, 4.99995F, 1, 5.00005F},
               {0, 1, 0, -1e-10F, 1, 1e-10F}, {-kInfinite, 1, 3, 0, 0, 1},
               {0, std::nanf(""), 1, 0, 0, 1}};
  Plot plot;
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.origin << ' ' << c.end);
    dgGraf(plot.draw, c.origin, c.step, c.end, c.origin, c.step, c.end);
    EXPECT_EQ(plot.page.x_origin, c.want_origin);
    EXPECT_EQ(plot.page.x_step, c.want_step);
    EXPECT_EQ(plot.page.x_end, c.want_end);
    EXPECT_EQ(plot.gks.transform[2].window.ymax, c.want_end);
  }
  EXPECT_EQ(plot.Lit().count, 0);  // no names, no axes
}

TEST(PlotPage, Attributes) {
  Plot plot;
  for (const auto& [index, want] : {std::pair{16, 2}, {15, 15}, {17, 3}, {1, 1}, {-7, 1}}) {
    dgColour(plot.draw, index);
    EXPECT_EQ(plot.gks.attribute.polyline_colour, want) << index;
    EXPECT_EQ(plot.gks.attribute.text_colour, want) << index;
  }
  const struct {
    float fx, fy;
    int x, y;
  } alignments[] = {{0, -0.1F, 1, 5}, {0.3F, 0, 2, 4}, {0.7F, 0.3F, 3, 3}, {0.2F, 0.7F, 1, 2}, {0.5F, 1, 2, 1}};
  for (const auto& a : alignments) {
    dgAlign(plot.draw, a.fx, a.fy);
    EXPECT_EQ(plot.gks.attribute.align_x, a.x) << a.fx;
    EXPECT_EQ(plot.gks.attribute.align_y, a.y) << a.fy;
  }
  dgDash(plot.draw);
  dgReset(plot.draw, "Dash");
  EXPECT_EQ(plot.gks.attribute.line_style, 1);
  dgReset(plot.draw, "chndsh");
  EXPECT_EQ(plot.gks.attribute.line_style, 0);
  dgThickness(plot.draw, 0.066F);
  EXPECT_FLOAT_EQ(plot.gks.attribute.line_width, 3);
  dgSelectGraf(plot.draw, 4);
  EXPECT_EQ(plot.gks.selected, 2);
  dgSelectGraf(plot.draw, 0);
  EXPECT_EQ(plot.gks.selected, 1);
  dgXName(plot.draw, "Time $  ");
  EXPECT_EQ(plot.page.x_name, "Time ");
  dgGrafLog(plot.draw, 0, 1, 2, -1, 5);
  EXPECT_EQ(plot.page.y_end, 1);
  EXPECT_EQ(plot.fake.output,
            "dgSelectGraf: invalid index=4\nWARNING in DISGKSF: invalid log axis limits\nmin=-1\n max=5\n");
}

TEST(PlotPage, AxesAndLabels) {
  Plot plot;
  dgXName(plot.draw, " ");
  dgGraf(plot.draw, 0, 10, 1000, 0, 0, 1);
  plot.Read();
  EXPECT_NEAR(plot.LitIn(0.9F, 2.3F, 1.1F, 7.75F), 273, 3);  // the y axis alone: no step, no ticks
  const int labels = plot.Spans(1.95F, 2.13F, 4);            // a hundred have no room
  EXPECT_GT(labels, 8);
  EXPECT_LT(labels, 20);
  EXPECT_EQ(plot.Spans(2.2F, 2.22F, 1), 101);  // ticks
}

// The y name stands clear of the labels, inside the page, and never above the axis, where headings are.
TEST(PlotPage, NameOfTheYAxis) {
  for (const int width : {400, 550, 1100})
    for (const char* name : {"y", "N/Ntot", "Vertical bending moment at x = 27.5, Nm"}) {
      SCOPED_TRACE(testing::Message() << width << name);
      Plot plot(width, width * 17 / 22);
      dgArea(plot.draw, 8, 5.5F);
      dgYName(plot.draw, name);
      dgGraf(plot.draw, 0, 0, 1, 0, 0.04F, 0.12F);
      const Box both = plot.Lit();
      EXPECT_GE(both.left, 0);
      EXPECT_LT(8.5F * plot.Unit() - static_cast<float>(both.top), 7.9F * plot.Unit());  // the area ends at 7.75
      Plot bare(width, width * 17 / 22);
      dgArea(bare.draw, 8, 5.5F);
      dgYName(bare.draw, " ");
      dgGraf(bare.draw, 0, 0, 1, 0, 0.04F, 0.12F);
      const Box labels = bare.Lit();
      EXPECT_LT(both.left, labels.left);
      int dark = 0;  // columns left of the labels
      while (dark < labels.left && plot.LitIn(static_cast<float>(labels.left - dark - 1) / plot.Unit() + 0.001F, 1,
                                              static_cast<float>(labels.left - dark) / plot.Unit() + 0.001F, 8) == 0)
        ++dark;
      EXPECT_GT(dark, 1);
    }
}

// Letters without bounds come to an end, and the next heading is as large as ever.
TEST(PlotPage, HeightWithoutBounds) {
  const auto heading = [](float height_before) {
    Plot plot;
    if (height_before > 0) {
      dgCharHeight(plot.draw, height_before);
      dgHeading(plot.draw, "HEAD", 10, 1);
      GCLRWK(plot.draw.gks);
    }
    dgCharHeight(plot.draw, 0.2F);
    dgHeading(plot.draw, "HEAD", 1, 1);
    const Box box = plot.Lit();
    return std::pair(box.width(), box.height());
  };
  EXPECT_EQ(heading(3e38F), heading(0));
}

// On a small window letters are larger than their lines are apart.
TEST(PlotPage, HeadingsFit) {
  for (const int width : {440, 1100}) {
    SCOPED_TRACE(width);
    int above = -1;
    for (int line = 0; line < 3; ++line) {
      Plot plot(width, width * 17 / 22);
      for (int i = 0; i < 3; ++i) dgHeading(plot.draw, i == line ? "HEAD" : " ", 1, 3);
      const Box box = plot.Lit();
      EXPECT_GT(box.top, above);
      EXPECT_NEAR(box.x, 0.5 * width, 2);
      above = box.bottom;
    }
    EXPECT_LT(above, 0.75F / 8.5F * static_cast<float>(width) * 17 / 22);
  }
  Plot drawn(320, 247);  // strokes of four pixels couldn't be read
  drawn.gks.window.bitmap_font = false;
  dgHeading(drawn.draw, "HEAD", 1, 1);
  EXPECT_GE(drawn.Lit().bottom - drawn.Lit().top, 7);
}

TEST(PlotPage, Curves) {
  // clang-format off
  const struct { std::size_t n; int mode, marks; bool line; } cases[] = {
      {10, -3, 4, false}, {9, -3, 4, false}, {10, 1, 10, true}, {10, 0, 0, true}, {1, 2, 1, false}, {0, 1, 0, false},
      {4, std::numeric_limits<int>::min(), 2, false},
  };
  // clang-format on
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.n << ' ' << c.mode);
    Plot plot;
    dgGraf(plot.draw, 0, 1, 11, -1, 1, 1);
    dgMarkerType(plot.draw, 18);
    dgMarkerScale(plot.draw, 4);
    std::vector<float> x(c.n), y(c.n, 0.5F);
    for (std::size_t i = 0; i < c.n; ++i) x[i] = static_cast<float>(i + 1);
    dgCurve(plot.draw, x, y, c.mode);
    plot.Read();
    EXPECT_EQ(plot.Spans(6.0F, 7.0F, 2), c.line ? 1 : c.marks);
    EXPECT_EQ(plot.Spans(6.42F, 6.46F, 2), c.marks);  // beside the line
  }
}

TEST(PlotPage, LogarithmicCurve) {
  Plot plot;
  dgGrafLog(plot.draw, 0, 1, 4, 0.1F, 10);
  dgMarkerType(plot.draw, 18);
  const std::vector<float> x = {1, 2, 3, 3.5F}, y = {1, 0, -1, std::nanf("")};
  dgCurve(plot.draw, x, y, -1);
  const Box box = plot.Lit();
  EXPECT_NEAR(box.x, 3.25 * 50, 2);  // 1 of 0.1 to 10 is half-way
  EXPECT_NEAR(box.y, (8.5 - 5) * 50, 2);
}

TEST(PlotPage, GridLeavesTheBlankedPart) {
  Plot plot;
  dgGraf(plot.draw, 0, 1, 9, 0, 1, 5.5F);
  dgBlank(plot.draw, 2.5F, 1.5F, 3, 2, -1);
  dgGrid(plot.draw, 2, 0);
  plot.Read();
  EXPECT_EQ(plot.LitIn(3.55F, 3.8F, 6.45F, 5.7F), 0);
  EXPECT_EQ(plot.Spans(2.5F, 2.6F, 1), 18);
  EXPECT_EQ(plot.Spans(4.5F, 4.6F, 1), 13);
}

TEST(PlotPage, Arrows) {  // width of the head over the arrow's length, from the digits of the code
  const struct {
    int code;
    float width;
  } cases[] = {{0, 0}, {1100, 0}, {-1101, 0}, {1101, 0.2F}, {1191, 0.2F}, {2303, 0.8F}, {901, 0.32F}, {5, 0.32F}};
  for (const auto& c : cases) {
    Plot plot;
    dgArrow(plot.draw, 2, 4, 6, 4, c.code);
    const Box box = plot.Lit();
    EXPECT_NEAR(box.height(), c.width * 200 + 1, 2) << c.code;
    EXPECT_NEAR(box.width(), 200, 2) << c.code;
  }
  Plot plot;  // the same head in a graph with other scales, clipped by it
  dgGraf(plot.draw, 0, 1, 90, 0, 1, 5500);
  dgArrowWorld(plot.draw, 20, 2500, 60, 2500, 1103);
  EXPECT_NEAR(plot.Lit().height(), 0.2 * 200, 2);
}

}  // namespace
}  // namespace zaview
