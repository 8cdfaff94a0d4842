// The 3-D layer: where points come to stand, and what is in front.
#include "gks/zb3d/zb3d.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "gks/plot/plot_layer.h"
#include "unit/gks/drawing.h"

namespace zaview {
namespace {

constexpr int kPaper = 0, kOut = 2;  // pixels about an edge
constexpr int kShine = 5;            // of 255, of what lies behind two faces that meet

struct Layer : Drawing {
  Zb3dState zb;
  PlotPage page;

  explicit Layer(int w = 800, int h = 600) : Drawing(w, h) {
    EXPECT_TRUE(dgFrame({platform, gks, page}, 2));
    dgPage({platform, gks, page}, static_cast<float>(w), static_cast<float>(h));
    zb3dInit(draw());
  }
  ZbDraw draw() { return {platform.console, gks, zb}; }
  void Look(const Camera& camera, int mode = 0) {
    zb3dView(draw(), camera, mode);
    zb3dStart(draw());
  }
  [[nodiscard]] std::array<double, 2> Pixel(const ZbPoint& p) const {
    const double scale = gks.window.height / static_cast<double>(zb.window.wy1 - zb.window.wy0);
    return {0.5 * gks.window.width + scale * static_cast<double>(p.sx),
            0.5 * gks.window.height - scale * static_cast<double>(p.sy)};
  }
};

TEST(Zb3d, PointsComeToStandWhereTheProjectionPutsThem) {
  constexpr ScenePoint kPoints[] = {{50, 0, 5}, {-50, 5, 0}, {0, -100, 2}};
  // By the formulas of the projection, computed apart: azimuth 45, elevation 30, radius 200, 30 degrees, 800x600.
  constexpr double kFlat[][2] = {{202.078, 374.721}, {617.714, 210.935}, {4.156, 92.382}};
  constexpr double kDeep[][3] = {
      {162.799, 389.549, 1.198456}, {591.349, 221.721, 0.8789016}, {95.782, 140.439, 0.7685295}};
  Layer layer;
  for (const bool perspective : {false, true}) {
    layer.Look({{}, 45, 30, 30, 200, perspective});
    zb3dMarker(layer.draw(), kPoints);
    for (std::size_t i = 0; i < 3; ++i) {
      const ZbPoint& p = layer.zb.zbufpt[i];
      const double* wanted = perspective ? kDeep[i] : kFlat[i];
      EXPECT_NEAR(layer.Pixel(p)[0], wanted[0], 2e-3) << i << perspective;
      EXPECT_NEAR(layer.Pixel(p)[1], wanted[1], 2e-3) << i << perspective;
      EXPECT_NEAR(p.t, perspective ? wanted[2] : 1.0, 1e-6);
      std::size_t found = 9;
      zb3dFindable(layer.draw());
      EXPECT_TRUE(zb3dNearest(layer.zb, p.sx + 0.1F, p.sy, found) && found == i);
    }
    const ScenePoint back = zb3dScreenToModel(layer.zb, 3, 4);  // 3 right, 4 up in the plane of the centre
    zb3dMarker(layer.draw(), {&back, 1});
    EXPECT_NEAR(layer.zb.zbufpt[3].sx, 3, 1e-5);
    EXPECT_NEAR(layer.zb.zbufpt[3].sy, 4, 1e-5);
    EXPECT_NEAR(layer.zb.zbufpt[3].depth, 0, 1e-5);
  }
  // Behind the eye, and too near to it: still finite, far outside, and never found; what is behind isn't drawn.
  layer.Look({{}, 0, 0, 30, 10, true});
  constexpr ScenePoint kBehind[] = {{11, 1, 0}, {20, -1, 1}, {9.999, 0, 0}};
  zb3dLine(layer.draw(), std::span(kBehind).first(2), false);
  for (const ZbPoint& p : layer.zb.zbufpt) EXPECT_FLOAT_EQ(p.t, 1000);
  std::size_t found = 0;
  zb3dFindable(layer.draw());
  EXPECT_FALSE(zb3dNearest(layer.zb, 0, 0, found));
  zb3dFlush(layer.draw());
  EXPECT_EQ(layer.Lit().count, 0);
  // Along -X, -Y, -Z.
  constexpr double kAlong[][2] = {{2, 3}, {-1, 3}, {1, 2}};
  for (int mode = -1; mode >= -3; --mode) {
    layer.Look({{}, 77, 11, 30, 10, false}, mode);
    constexpr ScenePoint kPoint{1, 2, 3};
    zb3dMarker(layer.draw(), {&kPoint, 1});
    const double* wanted = kAlong[-mode - 1];
    EXPECT_NEAR(layer.zb.zbufpt[0].sx, wanted[0], 1e-5) << mode;
    EXPECT_NEAR(layer.zb.zbufpt[0].sy, wanted[1], 1e-5) << mode;
  }
}

TEST(Zb3d, TablesGrowAndPensWrap) {
  Layer layer;
  layer.platform.console.trace = true;
  layer.Look({{}, 0, 0, 30, 10, false});
  for (int i = 0; i < 250; ++i) {
    zb3dPen(layer.draw(), i);
    zb3dNumber(layer.draw(), static_cast<float>(i), {0, 0.01 * i, 0});
  }
  ASSERT_EQ(layer.zb.zbufen.size(), 250U);
  for (int i = 0; i < 250; ++i) {
    const ZbEntity& row = layer.zb.zbufen[static_cast<std::size_t>(i)];
    const ZbText& text = layer.zb.zbuftx[static_cast<std::size_t>(row.text)];
    EXPECT_EQ(std::string(text.characters.data(), static_cast<std::size_t>(text.length)), fmt::format("{}", i));
    EXPECT_EQ(row.pen, i < 2 ? i : 2 + (i - 2) % 14);
  }
  for (const char* line : {"Initial allocation in zb3dAddZbuftx:", "Re-allocation in zb3dAddZbufen:"})
    EXPECT_NE(layer.fake.output.find(line), std::string::npos) << layer.fake.output;
  layer.fake.output.clear();
  ZB3DPENSET(layer.draw(), -1, {});
  ZB3DPENSET(layer.draw(), 256, {});
  EXPECT_EQ(layer.fake.output,
            "WARNING : Invalid GKS color index in ZB3DPENSET: plot colors might be wrong\n"
            "          Please report this error to Ned\n"
            "WARNING : GKS color limit exceeded in ZB3DPENSET: plot colors might be wrong\n"
            "          Please report this error to Ned\n");
}

// ---- An open box, sides in small faces of a colour each, against the nearest face by rays through the pixels.
struct Face {
  std::array<ScenePoint, 4> corner;
  int pen;
};

std::vector<Face> OpenBox() {
  std::vector<Face> faces;
  const auto side = [&](int pen, auto at) {
    constexpr int kParts = 8;
    for (int i = 0; i < kParts; ++i)
      for (int j = 0; j < kParts; ++j) {
        const auto p = [&](int k, int l) { return at(-1 + 2.0 * (i + k) / kParts, -1 + 2.0 * (j + l) / kParts); };
        faces.push_back({{p(0, 0), p(1, 0), p(1, 1), p(0, 1)}, pen});
      }
  };
  for (const double s : {-1.0, 1.0}) {
    side(s > 0 ? 2 : 3, [s](double a, double b) { return ScenePoint{30 * a, 10 * s, 6 * b}; });
    side(s > 0 ? 4 : 5, [s](double a, double b) { return ScenePoint{30 * s, 10 * a, 6 * b}; });
  }
  side(6, [](double a, double b) { return ScenePoint{30 * a, 10 * b, -6}; });
  return faces;
}

struct Seen {
  int pen = kPaper;
  double near = -1e9;
};

// Depth without perspective, the ratio with it: both change evenly over a face in the picture.
void CastFace(const Layer& layer, const ZbPoint* p, int pen, std::vector<Seen>& seen) {
  const int width = layer.gks.window.width, height = layer.gks.window.height;
  for (const int third : {2, 3}) {  // two triangles
    const ZbPoint corner[] = {p[0], p[third - 1], p[third]};
    std::array<double, 2> q[3];
    for (std::size_t i = 0; i < 3; ++i) q[i] = layer.Pixel(corner[i]);
    const double area = (q[1][0] - q[0][0]) * (q[2][1] - q[0][1]) - (q[2][0] - q[0][0]) * (q[1][1] - q[0][1]);
    const auto [left, right] = std::minmax({q[0][0], q[1][0], q[2][0]});
    const auto [top, bottom] = std::minmax({q[0][1], q[1][1], q[2][1]});
    for (int y = std::max(0, static_cast<int>(top)); y < std::min(height, static_cast<int>(bottom) + 1); ++y)
      for (int x = std::max(0, static_cast<int>(left)); x < std::min(width, static_cast<int>(right) + 1); ++x) {
        const double px = x + 0.5, py = y + 0.5;
        const double b = ((px - q[0][0]) * (q[2][1] - q[0][1]) - (q[2][0] - q[0][0]) * (py - q[0][1])) / area;
        const double c = ((q[1][0] - q[0][0]) * (py - q[0][1]) - (px - q[0][0]) * (q[1][1] - q[0][1])) / area;
        if (!(b >= 0 && c >= 0 && b + c <= 1)) continue;
        const auto of = [&](const ZbPoint& z) {
          return static_cast<double>(layer.zb.view.perspective ? z.t : z.depth);
        };
        const double near = (1 - b - c) * of(corner[0]) + b * of(corner[1]) + c * of(corner[2]);
        Seen& pixel = seen[static_cast<std::size_t>(y * width + x)];
        if (near > pixel.near) pixel = {pen, near};
      }
  }
}

TEST(Zb3d, NearerFacesHideFartherOnesWithoutSeams) {
  constexpr Camera kViews[] = {{{}, 30, 40, 30, 120, false}, {{}, 200, 25, 40, 90, true}, {{}, 100, 60, 30, 130, true}};
  for (const Camera& camera : kViews) {
    Layer layer(200, 150);
    layer.Look(camera);
    for (const Face& face : OpenBox()) {
      zb3dPen(layer.draw(), face.pen);
      zb3dPolygon(layer.draw(), face.corner, ZbFill::plain, 0);
    }
    std::vector<Seen> seen(200 * 150);
    for (const ZbEntity& row : layer.zb.zbufen)
      CastFace(layer, &layer.zb.zbufpt[static_cast<std::size_t>(row.first)], row.pen, seen);
    zb3dFlush(layer.draw());
    layer.Read();
    const auto at = [&](int x, int y) { return seen[static_cast<std::size_t>(y * 200 + x)].pen; };
    int inner = 0, wrong = 0;
    for (int y = kOut; y < 150 - kOut; ++y)
      for (int x = kOut; x < 200 - kOut; ++x) {
        bool alike = true;  // all around: else an edge passes
        for (int k = -kOut; k <= kOut; ++k)
          for (int l = -kOut; l <= kOut; ++l) alike = alike && at(x + k, y + l) == at(x, y);
        if (!alike) continue;
        const GksColour& c = layer.gks.colour[static_cast<std::size_t>(at(x, y))];
        const auto differs = [got = layer.At(x, y)](float part, unsigned place) {
          return std::abs(static_cast<int>(got >> place & 0xFFU) - std::lround(part * 255)) > kShine;
        };
        ++inner;
        if (differs(c.red, 16) || differs(c.green, 8) || differs(c.blue, 0)) ++wrong;
      }
    EXPECT_GT(inner, 15000);
    EXPECT_EQ(wrong, 0) << camera.view_azimuth;
  }
}

// Two faces that share an upright side, the nearer one drawn later: as much ink of the side on every row.
TEST(Zb3d, SidesGoWithTheirFaces) {
  Layer layer(200, 200);
  layer.Look({{}, 0, 0, 30, 100, false});  // along -x
  for (const double far : {-10.0, 10.0}) {
    const ScenePoint ring[] = {{0, 0, -20}, {-far, far, -20}, {-far, far, 20}, {0, 0, 20}};
    const ScenePoint side[] = {{0, 0, -20}, {0, 0, 20}};
    zb3dPen(layer.draw(), 2);  // red
    zb3dPolygon(layer.draw(), ring, ZbFill::plain, 0);
    zb3dWithLast(layer.draw(), true);
    zb3dPen(layer.draw(), 1);
    zb3dLine(layer.draw(), side, false);
    zb3dWithLast(layer.draw(), false);
  }
  zb3dFlush(layer.draw());
  layer.Read();
  for (int y = 30; y < 170; ++y) {
    unsigned ink = 0;
    for (int x = 97; x <= 103; ++x) ink += layer.At(x, y) & 0xFFU;
    EXPECT_GE(ink, 230U) << y;
  }
}

// A square in the plane across the view: its outline stands where its corners do, and its shade is that of its slope.
TEST(Zb3d, FacesAreShadedByTheirSlopeToTheEye) {
  for (const double slope : {0.0, 30.0, 60.0, 89.0}) {
    const double c = 10 * std::cos(slope * M_PI / 180), s = 10 * std::sin(slope * M_PI / 180);
    Layer layer;
    layer.Look({{}, 0, 0, 30, 100, false});  // along -x
    const ScenePoint ring[] = {{-s, -c, -10}, {s, c, -10}, {s, c, 10}, {-s, -c, 10}};
    EXPECT_NEAR(std::abs(zb3dShade(layer.zb, ring)), std::cos(slope * M_PI / 180), 1e-5);
    const ScenePoint back[] = {ring[3], ring[2], ring[1], ring[0]};
    EXPECT_FLOAT_EQ(zb3dShade(layer.zb, back), -zb3dShade(layer.zb, ring));
    zb3dPen(layer.draw(), 2);
    zb3dPolygon(layer.draw(), ring, ZbFill::shaded, 0);
    zb3dFlush(layer.draw());
    const double light = 0.3 + 0.7 * std::cos(slope * M_PI / 180);
    const Box box = layer.Lit();
    EXPECT_NEAR(layer.At(400, 300) >> 16U, 255 * light, 3) << slope;
    const double unit = 600 / (2 * 100 * std::tan(15 * M_PI / 180));  // pixels
    EXPECT_NEAR(box.width(), 2 * c * unit + 1, 2) << slope;
    EXPECT_NEAR(box.height(), 20 * unit + 1, 2) << slope;
  }
}

}  // namespace
}  // namespace zaview
