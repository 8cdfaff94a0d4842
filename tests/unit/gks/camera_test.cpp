#include "gks/scene/camera.h"

#include <gtest/gtest.h>

namespace zaview {
namespace {

TEST(Camera, ProjectsAsItsMatrixDoes) {  // 800 x 600 from 200 at azimuth 45, elevation 30, aperture 30
  const struct {
    ScenePoint q;
    double x, y, scale, perspective_x, perspective_y;
  } cases[] = {
      {{50, 0, 5}, 202.078, 374.721, 1.198456, 162.799, 389.549},
      {{-50, 5, 0}, 617.714, 210.935, 0.8789016, 591.349, 221.721},
      {{0, -100, 2}, 4.156, 92.382, 0.7685295, 95.782, 140.439},
  };
  for (const auto& c : cases) {
    Camera camera;
    camera.view_radius = 200;
    camera.view_centre = {1000, -20, 3};
    const ScenePoint at{c.q.x + 1000, c.q.y - 20, c.q.z + 3};
    PicturePoint p = ToPicture(camera, at, 800, 600);
    EXPECT_NEAR(p.scale, c.scale, 1e-6);
    EXPECT_NEAR(p.x, c.perspective_x, 1e-3);
    EXPECT_NEAR(p.y, c.perspective_y, 1e-3);
    camera.perspective = false;
    p = ToPicture(camera, at, 800, 600);
    EXPECT_NEAR(p.x, c.x, 1e-3);
    EXPECT_NEAR(p.y, c.y, 1e-3);
  }
}

// From port the bow is left, from starboard right, from ahead port is right, from above it is a map.
TEST(Camera, SidesAndFit) {
  Camera camera;
  camera.view_radius = 100;
  const struct {
    double azimuth, elevation;
    ScenePoint at;
    int right, down;  // signs
  } cases[] = {{90, 0, {10, 0, 0}, -1, 0},  {270, 0, {10, 0, 0}, 1, 0},  {0, 0, {0, 10, 0}, 1, 0},
               {0, 0, {0, 0, 10}, 0, -1},   {270, 90, {10, 0, 0}, 1, 0}, {270, 90, {0, 10, 0}, 0, -1},
               {0, -90, {10, 0, 0}, 0, -1}, {0, 0, {500, 0, 0}, 0, 0}};
  for (const auto& c : cases) {
    camera.view_azimuth = c.azimuth;
    camera.view_elevation = c.elevation;
    const PicturePoint p = ToPicture(camera, c.at, 400, 400);
    const auto sign = [](double v) { return v > 1e-6 ? 1 : v < -1e-6 ? -1 : 0; };
    if (c.at.x > 100) {
      EXPECT_EQ(p.scale, 0);  // behind the eye
      continue;
    }
    EXPECT_EQ(sign(p.x - 200), c.right) << c.azimuth << ' ' << c.elevation;
    EXPECT_EQ(sign(p.y - 200), c.down) << c.azimuth << ' ' << c.elevation;
  }
  EXPECT_NEAR(FittingRadius(camera, 50.249, 800, 600), 213.56, 0.01);
  EXPECT_NEAR(FittingRadius(camera, 50.249, 300, 600), 2 * 213.56, 0.02);
}

}  // namespace
}  // namespace zaview
