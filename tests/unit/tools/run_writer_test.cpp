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

TEST(RunWriter, LayoutsHoldTheirCounts) {
  // clang-format off
  const struct { int version; const char* line; int values; } cases[] = {  // behind the time, 2 X kinds of 3 cuts, 1 Y kind of 2
      {417, " VERSION   : 4.1.7", 51 + 2 * 6 + 2 * 2}, {0, "", 51 + 2 * 6 + 2 * 2}, {361, " VERSION   : 3.6.1", 48 + 6},
      {298, " VERSION   : 2.9.8", 36 + 6}, {291, " VERSION   : 2.9.1", 36 + 6 + 6 + 6},
      {-1, " VERSION   : GYRE 2.1.0", 42 + 6}};
  // clang-format on
  for (const auto& c : cases) {
    RunSpec spec;
    spec.version = c.version;
    spec.version_line = c.line;
    spec.x_kinds = {1, 0, 1};
    spec.y_kinds = {0, 1, 0};
    spec.x_cuts.resize(3);
    spec.y_cuts.resize(2);
    std::string text;
    AppendStep(spec, 1, text);
    std::istringstream words(text);
    int count = 0;
    for (std::string word; words >> word;) ++count;
    EXPECT_EQ(count, c.values + 1) << c.version;
  }
}

}  // namespace

}  // namespace run_writer
