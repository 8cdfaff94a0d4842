// Five records of irregular motion, and what other programs make of them: dt 0.5, probability 0.95. Sums were made in
// single precision in the stated order. Record 2 is strongly negatively correlated from step to step.
#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <span>
#include <vector>

#include <gtest/gtest.h>

namespace zaview {

inline constexpr float kRecord1[] = {
    2.037F,  2.582F,  2.678F,  2.036F,  0.211F,  -2.026F, -3.162F, -3.93F,  -4.058F, -3.032F, -1.706F, -0.487F, 0.97F,
    1.223F,  1.669F,  1.859F,  1.404F,  0.299F,  0.156F,  -0.545F, -1.072F, -0.838F, 0.487F,  2.566F,  3.768F,  4.273F,
    3.987F,  2.141F,  -0.334F, -2.418F, -2.837F, -2.192F, -1.326F, -0.356F, 0.294F,  1.17F,   0.986F,  0.557F,  0.583F,
    -0.349F, -1.903F, -2.71F,  -2.249F, -1.184F, 0.534F,  1.142F,  1.853F,  1.154F,  0.899F,  1.008F,  1.783F,  2.403F,
    2.045F,  0.577F,  -0.216F, 0.228F,  0.323F,  0.262F,  -0.559F, -1.743F, -2.603F, -1.912F, -1.591F, -0.844F, 0.729F,
    2.44F,   3.024F,  3.177F,  1.84F,   -0.671F, -1.742F, -1.73F,  -0.343F, 0.509F,  1.977F,  2.735F,  2.333F,  1.026F,
    0.352F,  0.045F,  0.658F,  1.159F,  1.623F,  2.534F,  3.513F,  2.924F,  2.223F,  1.444F,  0.473F,  0.035F,  -0.325F,
    0.007F,  1.104F,  0.861F,  -0.203F, -1.294F, -2.23F,  -1.836F, -1.711F, -0.132F, 1.597F,  2.853F,  2.409F,  0.707F,
    -1.268F, -3.179F, -4.587F, -4.882F, -3.184F, -1.064F, 1.233F,  2.641F,  3.984F,  3.807F,  2.244F,  -0.41F,  -1.492F,
    -1.041F, -1.185F, -0.323F, 1.376F,  2.858F,  3.282F,  2.867F,  1.945F,  0.193F,  -1.129F, -1.556F, -0.77F,  -0.125F,
    1.047F,  0.931F,  1.398F,  2.107F,  3.008F,  2.872F,  2.312F,  0.603F,  -0.867F, -1.002F, -0.781F, 0.228F,  0.774F,
    0.645F,  1.308F,  1.839F,  1.93F,   1.962F,  2.325F,  1.456F};

inline constexpr float kRecord2[] = {
    1.211F,  -0.636F, 1.139F,  -0.932F, 1.284F,  -0.522F, 1.379F,  -0.759F, 1.329F,  -0.682F, 1.153F,  -0.64F,  1.298F,
    -0.891F, 1.309F,  -0.668F, 1.223F,  -0.923F, 1.078F,  -0.644F, 1.274F,  -0.519F, 1.234F,  -0.71F,  1.408F,  -0.808F,
    1.072F,  -0.879F, 1.049F,  -0.904F, 1.212F,  -0.832F, 1.33F,   -0.659F, 1.123F,  -0.719F, 1.029F,  -0.851F, 1.178F,
    -0.723F, 1.05F,   -0.575F, 1.377F,  -0.77F,  1.15F,   -0.725F, 1.208F,  -0.731F, 1.186F,  -0.685F, 1.479F,  -0.566F,
    1.3F,    -0.961F, 1.199F,  -0.902F, 1.296F,  -0.717F, 1.088F,  -0.759F, 1.213F,  -0.829F, 1.437F,  -0.93F};

inline constexpr float kRecord3[] = {
    0.295F,  0.423F,  0.141F,  0.046F,  -0.786F, -1.109F, -0.527F, -0.33F,  0.281F,  0.311F,  0.934F,  0.444F,
    -0.268F, -0.947F, -1.557F, -1.906F, -1.723F, -1.053F, 0.706F,  2.142F,  3.237F,  3.452F,  2.753F,  1.202F,
    -0.27F,  -1.796F, -1.791F, -0.966F, 0.849F,  2.639F,  3.517F,  3.298F,  2.73F,   1.081F,  -0.642F, -2.549F,
    -2.719F, -1.932F, -0.22F,  1.205F,  2.616F,  3.344F,  3.389F,  2.179F,  0.171F,  -2.045F, -3.472F, -3.685F,
    -3.204F, -1.992F, -0.949F, 0.134F,  1.792F,  2.85F,   2.134F,  0.768F,  -1.063F, -2.45F,  -3.31F,  -2.801F,
    -1.955F, -0.614F, 0.13F,   1.16F,   1.546F,  1.875F,  0.746F,  -1.087F, -2.423F, -2.466F, -2.277F, -1.991F,
    -1.28F,  -0.329F, -0.067F, 0.064F,  -0.458F, -0.067F, 0.398F,  0.113F,  -0.609F, -0.239F, -0.111F, 0.801F,
    1.892F,  2.928F,  2.746F,  1.976F,  0.816F,  -0.967F, -1.38F,  -0.877F, 0.613F,  1.738F,  2.367F,  1.579F,
    0.102F,  -0.451F, -0.877F, -0.927F, -0.889F, -0.32F,  -0.382F, 0.121F,  0.028F,  0.64F,   0.865F,  0.592F,
    0.92F,   0.454F,  -0.71F,  -1.731F, -2.054F, -1.818F, -1.398F, -0.018F, 1.437F,  2.262F,  1.929F,  1.003F};

inline constexpr float kRecord4[] = {
    2.701F,  3.247F,  2.539F,  1.666F,  1.708F,  1.185F,  -0.206F, -0.713F, -0.084F, 1.524F,  3.549F,  3.694F,  3.41F,
    3.105F,  2.294F,  1.702F,  1.906F,  2.643F,  3.716F,  4.656F,  4.969F,  3.383F,  1.869F,  -0.045F, -1.114F, -1.748F,
    -2.581F, -1.855F, -0.921F, -0.229F, 0.225F,  0.966F,  1.918F,  1.93F,   1.046F,  0.541F,  -0.168F, 0.35F,   1.835F,
    2.901F,  3.49F,   4.271F,  3.76F,   1.54F,   -0.356F, -1.216F, -0.502F, 0.567F,  2.41F,   2.827F,  2.848F,  2.657F,
    0.973F,  -0.643F, -0.663F, -0.959F, -0.752F, -0.222F, 1.083F,  2.017F,  3.044F,  4.138F,  3.915F,  3.812F,  2.715F,
    1.266F,  0.085F,  -1.401F, -2.681F, -3.363F, -2.897F, -2.431F, -1.555F, -0.083F, 0.445F,  1.812F,  2.044F,  2.468F,
    1.88F,   1.284F,  0.67F,   -0.608F, -1.936F, -3.45F,  -3.874F, -3.127F, -1.64F,  -0.777F, 0.071F,  1.547F};

inline constexpr float kRecord5[] = {-0.59F, 0.885F, 2.027F, 1.603F, 0.37F,  -0.118F, -0.871F, -0.284F,
                                     0.859F, 0.832F, 0.648F, 0.808F, 0.18F,  -0.242F, -1.002F, -1.013F,
                                     0.279F, 1.596F, 2.372F, 2.014F, 1.244F, 0.758F,  0.044F,  -0.931F};

inline std::span<const float> WorkedRecord(int number) {
  const std::span<const float> records[] = {kRecord1, kRecord2, kRecord3, kRecord4, kRecord5};
  return records[number - 1];
}

// The worked ensemble: records 1, none, 3 and 4.
inline std::span<const std::span<const float>> WorkedEnsemble() {
  static const std::array<std::span<const float>, 4> records = {WorkedRecord(1), {}, WorkedRecord(3), WorkedRecord(4)};
  return records;
}

inline std::vector<float> WorkedTimes(std::size_t n) {
  std::vector<float> t(n);
  for (std::size_t i = 0; i < n; ++i) t[i] = static_cast<float>(i) * 0.5F;
  return t;
}

inline std::vector<std::span<const float>> ViewsOf(const std::vector<std::vector<float>>& records) {
  return {records.begin(), records.end()};
}

// How near values must be that another program has made in the same precision and order.
inline void ExpectClose(float got, double want, const char* what) {
  EXPECT_NEAR(static_cast<double>(got), want, 2e-6 * std::abs(want)) << what;
}

}  // namespace zaview
