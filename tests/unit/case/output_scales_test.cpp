#include "case/output_scales.h"

#include <gtest/gtest.h>

namespace zaview {
namespace {

CaseStore CaseWith(double g, double r, double L, double a) {
  CaseStore c;
  c.control.GRAVOUT = g;
  c.control.RHOOUT = r;
  c.control.LENOUT = L;
  c.control.ANGOUT = a;
  return c;
}

// Factors formed in double by another program, then rounded to 4 bytes.
TEST(OutputScales, FactorsOfAShipOf100Metres) {
  OutputSettings settings;
  AdoptFileScales(settings, CaseWith(9.81, 1025.0, 100.0, 57.29578));
  const OutputScales& s = settings.scales;
  const struct {
    float got;
    double want;
  } rows[] = {
      {s.T,               3.1927542840705043},
      {s.position[2],     100.0             },
      {s.position[3],     57.29578          },
      {s.velocity[0],     31.32091952673165 },
      {s.velocity[5],     17.94556514601321 },
      {s.acceleration[1], 9.81              },
      {s.acceleration[4], 5.620716018       },
      {s.force[0],        1.005525e10       },
      {s.force[4],        1.005525e12       },
      {s.load_force,      1.005525e10       },
      {s.load_moment,     1.005525e12       },
      {s.angle,           57.29578          },
      {s.prop_rps,        0.3132091952673165}
  };
  for (const auto& row : rows) EXPECT_EQ(row.got, static_cast<float>(row.want));
}

TEST(OutputScales, AScaleOfTheUserHoldsForLaterFilesEachByItself) {
  OutputSettings settings;
  settings.LENOUT = 1.0F;
  settings.user_scale = {false, false, true, false};
  AdoptFileScales(settings, CaseWith(32.174, 1.99, 328.0, 1.0));
  EXPECT_EQ(settings.LENOUT, 1.0F);
  EXPECT_EQ(settings.GRAVOUT, 32.174F);
  EXPECT_EQ(settings.scales.position[0], 1.0F);
  EXPECT_EQ(settings.scales.acceleration[0], 32.174F);
}

TEST(OutputScales, ImpulsiveCasesKeepOnlyTheTimeScale) {
  OutputSettings settings;
  CaseStore c = CaseWith(9.81, 1025.0, 100.0, 57.29578);
  c.tadm_case = true;
  AdoptFileScales(settings, c);
  EXPECT_EQ(settings.scales.T, 3.19275428F);
  EXPECT_EQ(settings.scales.force[3], 1.0F);
  EXPECT_EQ(settings.scales.position[0], 1.0F);
  EXPECT_EQ(settings.scales.prop_rps, 1.0F);
}

TEST(OutputScales, ConventionsDifferAndMirrorPairs) {
  // Right-handed frames stay right-handed: the product of the three axis signs is 1, angles turn with their axes.
  for (const ConventionRow& row : kConventions) {
    EXPECT_EQ(row.factors[0] * row.factors[1] * row.factors[2], 1.0F) << row.name;
    for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(row.factors[i], row.factors[i + 3]) << row.name;
  }
}

}  // namespace
}  // namespace zaview
