// The writer of test runs: its own formatter must lose nothing, and the committed samples must be what it writes.
#include "run_writer.h"

#include <bit>
#include <cmath>
#include <cstdlib>
#include <fstream>
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

TEST(RunWriter, SamplesAreWhatTheWriterWrites) {
  for (const std::string_view name : SampleNames()) {
    RunSpec spec;
    ASSERT_TRUE(SampleSpec(name, spec));
    std::ifstream in(ProjectFile("samples/") + std::string(name) + ".out", std::ios::binary);
    std::ostringstream sample;
    sample << in.rdbuf();
    const std::string header = HeaderText(spec);
    EXPECT_EQ(sample.str().substr(0, header.size()), header) << name;
    // Not the digits: another mathematical library may round the last one otherwise.
    EXPECT_EQ(sample.str().size(), RunText(spec).size()) << name;
  }
}

}  // namespace

}  // namespace run_writer
