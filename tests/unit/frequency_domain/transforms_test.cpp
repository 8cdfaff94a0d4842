// Transforms and responses against closed forms, and against the same system in complex numbers.
#include <cmath>
#include <complex>

#include <gtest/gtest.h>

#include "analysis/frequency_domain/motion_responses.h"
#include "base/linear_system.h"

namespace zaview {
namespace {

using Complex = std::complex<double>;

// exp(-t/2) cos(u t) at steps of 0.05, and its endless transform int f e^(iwt) dt.
std::vector<float> Kernel(const std::vector<float>& t, double u, double size) {
  std::vector<float> f;
  for (const float x : t) f.push_back(static_cast<float>(size * std::exp(-0.5 * x) * std::cos(u * x)));
  return f;
}
Complex Transformed(double u, double w) {
  return 0.5 / Complex(0.5, -(w + u)) + 0.5 / Complex(0.5, -(w - u));
}
std::vector<float> Times(int steps) {
  std::vector<float> t;
  for (int i = 0; i <= steps; ++i) t.push_back(static_cast<float>(0.05 * i));
  return t;
}

TEST(Transforms, OfADampedCosine) {
  const std::vector<float> t = Times(800), f = Kernel(t, 2, 1), none(t.size(), 0.0F);
  RadiationTable table;
  TransformRadiation(5, t, {none, none, f, none, none, none}, table);
  IndependentParts parts;
  parts.A[2][4] = 7;
  parts.B[2][4] = 3;
  ASSERT_EQ(table.w.size(), 200U);  // pi/(2 dt) over 2 pi/40
  EXPECT_EQ(table.nskip, 0);
  for (const std::size_t k : {std::size_t{0}, std::size_t{12}, std::size_t{60}}) {
    const double w = table.w[k];
    EXPECT_NEAR(w, 2 * M_PI / 40 * static_cast<double>(k + 1), 1e-6);
    const Complex F = Transformed(2, w);
    const CoefficientPair plain = CoefficientsAt(CoefficientForm::plain, table, parts, 2, k);
    EXPECT_NEAR(plain.A, 7 + F.real(), 1e-5);
    EXPECT_NEAR(plain.B, 3 + w * F.imag(), 5e-6 * (1 + w * w));
    const CoefficientPair literal = CoefficientsAt(CoefficientForm::literal, table, parts, 2, k);
    EXPECT_NEAR(literal.A, 7 - F.real() / 20 / w, 1e-5);
    EXPECT_NEAR(literal.B, 3 + F.imag() / 20 * w, 5e-7 * (1 + w * w));
  }
  const std::span<const float> one(t.data(), 1), long_t(t);
  TransformRadiation(1, one, {one, one, one, one, one, one}, table);
  EXPECT_TRUE(table.w.empty());
  std::vector<float> fine;  // 400 components of which 200 stay
  for (int i = 0; i <= 1600; ++i) fine.push_back(0.025F * static_cast<float>(i));
  TransformRadiation(1, fine, {fine, fine, fine, fine, fine, fine}, table);
  EXPECT_EQ(table.w.size(), 200U);
  EXPECT_EQ(table.nskip, 400);
}

TEST(Transforms, WaveOfAnEncounterFrequency) {
  const struct {
    double tau, w, we;
    int branch;
  } cases[] = {{-0.25, 0.5, 0.5625, 1}, {-0.25, 3, 5.25, 1}, {0.25, 0.5, 0.4375, 1}, {0.25, 1, 0.75, 1},
               {0.25, 3, 0.75, 2},      {0.25, 5, -1.25, 3}, {6e-17, 9.84, 9.84, 1}, {0, 3, 3, 2}};
  for (const auto& c : cases) {
    EXPECT_NEAR(WaveFrequency(std::abs(c.we), c.tau, c.branch), c.w, 1e-12) << c.tau << ' ' << c.w;
    if (c.tau != 0) {
      EXPECT_EQ(BranchOf({true, 0, c.tau, {}}, c.w), c.branch) << c.tau << ' ' << c.w;
    }
    EXPECT_EQ(BranchOf({false, 180, c.tau, {}}, c.w), 1);
  }
  EXPECT_LT(WaveFrequency(1.1, 0.25, 1), 0);  // above the peak of the curve
  EXPECT_EQ(PolarOf(-1, -0.0).phase, 180);
  EXPECT_EQ(PolarOf(0, -1).phase, 270);
  EXPECT_EQ(Reversed(PolarOf(0, -1)).phase, 90);
}

// Heave and pitch, coupled in everything, in a following sea with speed.
struct Coupled {
  ResponseModel model;
  HeadingGroup group{true, 0, 0.05, {0, -1, 0}};
  std::vector<float> t = Times(1600), none = std::vector<float>(t.size(), 0.0F);

  Coupled() {
    const std::vector<float> a = Kernel(t, 2, 1), b = Kernel(t, 2, 0.25);
    for (const int motion : {3, 5}) {
      RadiationTable table;
      TransformRadiation(motion, t, {none, none, motion == 3 ? a : b, none, motion == 3 ? b : a, none}, table);
      model.radiation.push_back(table);
    }
    for (std::size_t i = 0; i < kModes; ++i) model.M[i][i] = 2;
    model.parts.A[2][2] = model.parts.A[4][4] = 1;
    model.parts.C[2][2] = 20;
    model.parts.C[4][4] = 30;
    model.parts.C[2][4] = model.parts.C[4][2] = 4;
    ExcitationTable table;
    TransformExcitation(t, {none, none, a, none, none, none}, {none, none, none, none, b, none}, 0.05, table);
    model.excitation = {table};
  }
  // (C - we^2 (A + M)) X + i we B X = F, x = Re X e^(i we t); K the transform of the kernel.
  [[nodiscard]] std::array<Complex, 2> Solve(double w) const {
    const double we = std::abs(w - 0.05 * w * w);
    const Complex K = Transformed(2, we), i(0, 1);
    const auto Z = [&](double C, double AM, double share) {
      return C - we * we * (AM + share * K.real()) + i * we * we * share * K.imag();
    };
    const Complex z33 = Z(20, 3, 1), z55 = Z(30, 3, 1), z35 = Z(4, 0, 0.25), f3 = std::conj(K),
                  f5 = 0.25 * std::conj(K);
    const Complex det = z33 * z55 - z35 * z35;
    return {(f3 * z55 - z35 * f5) / det, (z33 * f5 - z35 * f3) / det};
  }
};

TEST(Responses, OfTwoCoupledMotions) {
  const Coupled c;
  for (const double w : {0.5, 2.0, 2.6, 4.0, 23.0}) {  // the last one is overtaken
    ResponseRow row;
    ASSERT_TRUE(MotionResponse(c.model, c.group, w, row)) << w;
    const std::array<Complex, 2> X = c.Solve(w);
    for (const auto& [mode, x] : {std::pair{std::size_t{2}, X[0]}, std::pair{std::size_t{4}, X[1]}}) {
      const Polar& motion = row.motion[mode];
      const Complex found = std::polar(motion.amplitude, -motion.phase * M_PI / 180);
      EXPECT_NEAR(std::abs(found - x) / std::abs(x), 0, 0.01) << w << ' ' << mode;  // the tables are read as linear
    }
    EXPECT_EQ(row.motion[0].amplitude, 0);
  }
  ResponseRow row;
  EXPECT_FALSE(MotionResponse(c.model, c.group, 15, row));  // of branch 2, which was not read
  EXPECT_TRUE(MotionResponse(c.model, c.group, 0, row));    // we = 0
  EXPECT_EQ(row.motion[2].amplitude, 0);
  EXPECT_TRUE(MotionResponse(c.model, c.group, 0.05, row));  // below the tables
  EXPECT_EQ(row.motion[2].amplitude, 0);
}

TEST(LinearSystem, PivotsAndSingularOnes) {
  std::vector<double> a = {0, 2, 1e-9, 1e-9}, b = {4, 3e-9};
  ASSERT_TRUE(SolveLinear(a, b));
  EXPECT_NEAR(b[0], 1, 1e-12);
  EXPECT_NEAR(b[1], 2, 1e-12);
  for (std::vector<double> bad : {std::vector<double>{1, 2, 2, 4}, {0, 0, 0, 1}, {NAN, 1, 1, 1}}) {
    std::vector<double> right = {1, 2};
    EXPECT_FALSE(SolveLinear(bad, right));
  }
}

}  // namespace
}  // namespace zaview
