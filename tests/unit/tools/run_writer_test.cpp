// The writer of test runs: its own formatter must lose nothing, and the committed samples must be what it writes.
#include "run_writer.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <random>
#include <sstream>

#include <gtest/gtest.h>

#include "project_places.h"

namespace run_writer {

namespace {

// One step whose values are all `values`, as its text.
std::string StepText(const std::vector<float>& values) {
  RunSpec spec;
  spec.fill = [&](int /*step*/, double /*time*/, std::span<float> out) {
    for (size_t i = 0; i < out.size(); ++i) out[i] = values[i % values.size()];
  };
  std::string text;
  AppendStep(spec, 1, text);
  return text;
}

void ExpectReadBack(const std::vector<float>& values) {
  std::istringstream words(StepText(values));
  std::string word;
  words >> word;  // the time
  for (const float value : values) {
    ASSERT_TRUE(words >> word);
    EXPECT_EQ(std::bit_cast<std::uint32_t>(std::strtof(word.c_str(), nullptr)), std::bit_cast<std::uint32_t>(value))
        << word << " for " << std::hexfloat << value;
  }
}

TEST(RunWriter, ValuesReadBackToTheSameBits) {
  using Limits = std::numeric_limits<float>;
  ExpectReadBack({0.0F, -0.0F, 1.0F, 9.9999999F, 0.99999994F, -1e10F, Limits::max(), Limits::min(),
                  Limits::denorm_min(), 16777217.0F, 999999999.0F, 9.5367431640625e-7F, Limits::infinity(),
                  -Limits::infinity()});
  std::mt19937 random(20260);
  for (int round = 0; round < 4000; ++round) {
    std::vector<float> values;
    while (values.size() < 51) {
      const float value = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
      if (std::isfinite(value)) values.push_back(value);
    }
    ExpectReadBack(values);
  }
  EXPECT_NE(StepText({Limits::quiet_NaN()}).find("NaN"), std::string::npos);
}

// Not the digits: another mathematical library may round the last one otherwise.
void ExpectSameNumbers(const std::string& expected, const std::string& got, std::string_view name) {
  std::istringstream e(expected), g(got);
  std::string a, b;
  for (int word = 1; e >> a; ++word) {
    ASSERT_TRUE(g >> b) << name;
    const double x = std::strtod(a.c_str(), nullptr), y = std::strtod(b.c_str(), nullptr);
    ASSERT_LE(std::fabs(x - y), 1e-6 * std::max(std::fabs(x), 1e-3))
        << name << ", word " << word << ": " << a << " " << b;
  }
  EXPECT_FALSE(g >> b) << name;
}

TEST(RunWriter, SamplesAreWhatTheWriterWrites) {
  for (const std::string_view name : SampleNames()) {
    RunSpec spec;
    ASSERT_TRUE(SampleSpec(name, spec));
    const std::string sample = SampleBytes(std::string(name) + ".out"), text = RunText(spec);
    const std::size_t header = HeaderText(spec).size();
    EXPECT_EQ(sample.substr(0, header), text.substr(0, header)) << name;
    EXPECT_EQ(sample.size(), text.size()) << name;
    ExpectSameNumbers(sample.substr(std::min(header, sample.size())), text.substr(header), name);
  }
}

}  // namespace

}  // namespace run_writer
