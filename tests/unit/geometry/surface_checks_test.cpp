#include "geometry/surface_checks.h"

#include <algorithm>
#include <cmath>
#include <random>

#include <gtest/gtest.h>

#include "fake_platform.h"
#include "meshes.h"

namespace zaview {
namespace {

struct Culled {
  const char* what;
  std::vector<std::array<int, 4>> elements, left;
  std::string console;
};

// Over L: 1 to 4 a square of side L; 5 is 2 again, 6 lies 1e-6 L from 1, which is another place. L is 100.
// clang-format off
constexpr Vector3 kNodes[] = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {1, 0.5e-6, -0.5e-6}, {0, 0, 1e-6}};
const Culled kCulled[] = {
    {"good ones stay, in any number of corners", {{1, 2, 3, 0}, {1, 2, 3, 4}}, {{1, 2, 3, 0}, {1, 2, 3, 4}}, ""},
    {"by their first node", {{1, 5, 3, 4}}, {{1, 2, 3, 4}}, ""},
    {"three of four: a triangle in ring order", {{2, 5, 3, 4}, {1, 3, 1, 4}}, {{2, 3, 4, 0}, {1, 3, 4, 0}}, ""},
    {"two of three", {{1, 2, 5, 0}, {1, 2, 3, 0}, {2, 5, 2, 1}}, {{1, 2, 3, 0}},
     "WRN377 - Degenerate surface element : 1 (1 2 2)\nWRN377 - Degenerate surface element : 3 (2 2 2 1)\n"
     "WRN377 - 2 degenerate surface element(s) deleted\n"
     "         Note that the vertices listed above are values after duplicate\n"
     "         node points have been rationalized\n"},
    {"the later of equal sets, whatever its order", {{1, 2, 3, 0}, {3, 1, 2, 0}, {1, 2, 3, 4}, {1, 3, 5, 4}},
     {{1, 2, 3, 0}, {1, 2, 3, 4}},
     "WRN377 - Duplicate surface element : 2 (3 1 2)\nWRN377 - Duplicate surface element : 4 (1 3 2 4)\n"
     "WRN377 - 2 duplicate surface element(s) deleted\n"},
    {"numbers are those of the file", {{1, 5, 2, 0}, {1, 2, 3, 0}, {3, 1, 2, 0}}, {{1, 2, 3, 0}},
     "WRN377 - Degenerate surface element : 1 (1 2 2)\nWRN377 - 1 degenerate surface element(s) deleted\n"
     "         Note that the vertices listed above are values after duplicate\n"
     "         node points have been rationalized\nWRN377 - Duplicate surface element : 3 (3 1 2)\n"
     "WRN377 - 1 duplicate surface element(s) deleted\n"},
    {"near is not the same", {{1, 6, 3, 0}}, {{1, 6, 3, 0}}, ""},
};
// clang-format on

TEST(Fecull, RemovesDegenerateAndDuplicateElements) {
  for (const Culled& c : kCulled) {
    HullMesh mesh;
    for (const Vector3& p : kNodes) mesh.nodes.push_back({100 * p[0], 100 * p[1], 100 * p[2]});
    for (const auto& nodes : c.elements) mesh.elements.push_back({nodes});
    FakePlatform fake;
    FECULL(fake.Get().console, 100, mesh);
    std::vector<std::array<int, 4>> left;
    for (const HullElement& element : mesh.elements) left.push_back(element.node);
    EXPECT_EQ(left, c.left) << c.what;
    EXPECT_EQ(fake.output,
              "FECULL - Checking unstructured surface geometry\n"
              "WRN376 1 node point(s) in unstructured geometry are duplicates\n" +
                  c.console)
        << c.what;
  }
}

// All pairs compared: what the search by cells must agree with.
TEST(Fecull, FindsTheSameNodesAsComparingAllPairs) {
  std::mt19937 random(3);
  std::uniform_real_distribution<double> place(-5e-6, 5e-6);
  HullMesh mesh;
  std::vector<int> kept, first;
  for (int i = 1; i <= 2000; ++i) {
    const Vector3 p = {place(random), place(random), place(random)};
    const auto same = std::find_if(kept.begin(), kept.end(), [&](int k) {
      const Vector3& q = mesh.nodes[static_cast<std::size_t>(k - 1)];
      return std::hypot(p[0] - q[0], p[1] - q[1], p[2] - q[2]) < 1e-6;
    });
    first.push_back(same == kept.end() ? i : *same);
    if (same == kept.end()) kept.push_back(i);
    mesh.nodes.push_back(p);
    mesh.elements.push_back({{i, 2000 + i, 4001, 0}});  // the second is its own
  }
  for (int i = 0; i <= 2000; ++i) mesh.nodes.push_back({1, 1.0 * i, 0});
  FakePlatform fake;
  FECULL(fake.Get().console, 1, mesh);
  ASSERT_EQ(mesh.elements.size(), first.size());
  for (std::size_t i = 0; i < first.size(); ++i) EXPECT_EQ(mesh.elements[i].node[0], first[i]);
}

TEST(Fetrnsm, MarksWhatLiesInTheSternPlaneAlongTheShip) {
  const struct {
    Vector3 ship_x;
    int face;  // of kBoxFaces; -1: none
  } cases[] = {{{1, 0, 0}, 5}, {{-1, 0, 0}, 3}, {{0, 1, 0}, 2}, {{0.6, 0.8, 0}, -1}};
  for (const auto& c : cases) {
    HullMesh mesh;
    AddBox({-50, -5, 0}, {50, 5, 8}, mesh);
    mesh.nodes.push_back({-90, -90, 0});  // in no element
    mesh.nodes[7][0] -= 0.9e-4 * 100;     // still on the transom, but for an inclined ship
    FakePlatform fake;
    FETRNSM(fake.Get().console, 100, c.ship_x, mesh);
    for (int i = 0; i < 6; ++i)
      EXPECT_EQ(mesh.on_transom[static_cast<std::size_t>(i)], i == c.face) << c.ship_x[0] << i;
    EXPECT_EQ(fake.output.find("FETRNSM: 1 elements on transom deleted\n") != std::string::npos, c.face >= 0);
  }
}

// Each face of the box is turned or not by a bit.
TEST(Fenorm, EveryWayToTurnABoxEndsOutward) {
  for (unsigned turned = 0; turned < 64; ++turned) {
    HullMesh mesh;
    AddBox({100, -1, 5}, {104, 2, 7}, mesh);
    for (unsigned i = 0; i < 6; ++i)
      if ((turned >> i & 1U) != 0) TurnElement(mesh.elements[i]);
    FakePlatform fake;
    EXPECT_TRUE(FENORM(fake.Get().console, 1, false, mesh));
    EXPECT_NEAR(Volume(mesh), 4 * 3 * 2, 1e-9);
    for (const HullElement& element : mesh.elements) EXPECT_GT(ElementFlux(mesh, element, {102, 0.5, 6}), 0);
    EXPECT_EQ(fake.output.find("WRN379"), std::string::npos);
  }
}

struct Oriented {
  const char* what;
  void (*make)(HullMesh& mesh);
  int UGEOMNORM;
  bool half;
  double volume;  // flux of r over 3
  const char* said;
  const char* unsaid = "ERR380";
};

void BoxAboutCentreplane(HullMesh& mesh) {
  AddBox({-2, -1, 0}, {2, 1, 3}, mesh);
}
// clang-format off
const Oriented kOriented[] = {
    {"two bodies, one inside out", [](HullMesh& m) {
       AddBox({0, 0, 0}, {1, 2, 3}, m);
       AddBox({5, 5, 5}, {6, 6, 6}, m);
       for (std::size_t i = 6; i < 12; ++i) TurnElement(m.elements[i]);
     }, 1, false, 7, "WRN379"},
    {"an open box, its deck away: the flux of the rest", [](HullMesh& m) {
       BoxAboutCentreplane(m);
       m.elements.erase(m.elements.begin() + 1);
       for (HullElement& e : m.elements) TurnElement(e);
     }, 1, false, 24 - 4 * 2 * 3 / 3.0, "UGEOMNORM=1", "WRN379"},
    {"half a box, open at the centreplane", [](HullMesh& m) {
       AddBox({-2, 0, 0}, {2, 1, 3}, m);
       m.elements.erase(m.elements.begin() + 2);
       for (HullElement& e : m.elements) TurnElement(e);
     }, 1, true, 12, "UGEOMNORM=1", "WRN379"},
    {"three faces at an edge: two bodies", [](HullMesh& m) {
       BoxAboutCentreplane(m);
       m.nodes.insert(m.nodes.end(), {{4, -1, 3}, {4, 1, 3}});
       m.elements.push_back({{6, 9, 10, 7}});
       TurnElement(m.elements[3]);
     }, 1, false, 24 + 2 * 2 * 3 / 3.0, "WRN379"},
    {"a Moebius strip goes panel by panel", [](HullMesh& m) {
       m.nodes = {{0, 1, 0}, {0, 2, 0}, {1, 1, 1}, {1, 2, 1}, {2, 1, 0}, {2, 2, 0}};
       m.elements = {{{1, 2, 4, 3}}, {{3, 4, 6, 5}}, {{5, 6, 1, 2}}};
     }, 1, false, NAN, "ERR380", "WRN379"},
    {"away from the centreplane, the others as they are", [](HullMesh& m) {
       BoxAboutCentreplane(m);
       TurnElement(m.elements[0]);
       TurnElement(m.elements[2]);
       TurnElement(m.elements[4]);
     }, 0, false, 24, "UGEOMNORM=0"},
    {"as they are", [](HullMesh& m) { BoxAboutCentreplane(m), TurnElement(m.elements[1]); }, 2, false, 24 - 2 * 4 * 2 * 3 / 3.0,
     "UGEOMNORM=2"},
    {"all turned", BoxAboutCentreplane, 3, false, -24, "UGEOMNORM=3"},
};
// clang-format on

TEST(Fenorm, TurnsByTheOption) {
  for (const Oriented& c : kOriented) {
    HullMesh mesh;
    c.make(mesh);
    FakePlatform fake;
    EXPECT_TRUE(FENORM(fake.Get().console, c.UGEOMNORM, c.half, mesh));
    EXPECT_TRUE(std::isnan(c.volume) || std::abs(Volume(mesh) - c.volume) < 1e-12) << c.what << Volume(mesh);
    EXPECT_NE(fake.output.find(c.said), std::string::npos) << c.what << fake.output;
    EXPECT_EQ(fake.output.find(c.unsaid), std::string::npos) << c.what;
    const std::size_t warned = fake.output.find("WRN379");
    EXPECT_TRUE(warned == std::string::npos || fake.output.find("WRN379", warned + 1) == std::string::npos) << c.what;
  }
}

}  // namespace
}  // namespace zaview
