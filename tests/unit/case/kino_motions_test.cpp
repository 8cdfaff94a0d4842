#include "case/kino_motions.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "fake_platform.h"

namespace zaview {
namespace {

MotionsFault Read(std::string text, KinoMotions& motions) {
  FakePlatform fake;
  fake.Put("a.mot", std::move(text));
  const Platform platform = fake.Get();
  const FileHandle file = platform.files.open_read(platform.files.self, "a.mot");
  return ReadKinoMotions(platform.files, file, motions);
}

TEST(KinoMotions, Read) {
  using enum MotionsFault;
  const std::string head = "!tow\n100\n";
  const std::string two = "0 1 2 3 4 5 6\n0.5 2 2 3 4 5 6\n";
  const struct {
    std::string text;
    MotionsFault fault;
    std::size_t steps;
    double last_yaw;
    double length = 100;
  } cases[] = {
      {head + two, none, 2, 6},
      {head + "0 1 2 3 4 5 6", none, 1, 6},            // no line end
      {head + two + "\n1 1 2 3 4 5 7\n", none, 2, 6},  // a blank line ends
      {head + two + "1 1 2 3 4 5\n", none, 2, 6},      // cut in a step
      {head + two + "1 1 2 3\n\n4 5 6\n", none, 2, 6},
      {head + two + "1 1 2 **** 4 5 6\n2 1 2 3 4 5 6\n", none, 2, 6},
      {head + "0,1,2\n3 4\n5 6D-1 drop 9\n1 6*0.25\n", none, 2, 0.25},  // over lines; repeats
      {head + "0 1 2 3 4 5 6\r\n1 /\r\n", none, 2, 0},                  // nulls are 0
      {"\n\n 50 m\n" + two, none, 2, 6, 50},
      {"c\n0\n" + two, none, 2, 6, 1},
      {"c\n-100\n" + two, none, 2, 6, 1},
      {"c\nNaN\n" + two, none, 2, 6, 1},
      {"c\nInf\n" + two, none, 2, 6, 1},
      {"", no_steps, 0, 0, 1},
      {"c\n", no_steps, 0, 0, 1},
      {"c\nlength\n" + two, no_steps, 0, 0, 1},
      {head, no_steps, 0, 0},
      {head + "\n" + two, no_steps, 0, 0},  // blank ahead of them
      {head + two + "0.5 2 2 3 4 5 6\n", not_increasing, 2, 6},
      {head + two + "0.4 2 2 3 4 5 6\n", not_increasing, 2, 6},
      {head + two + "0.50000001 2 2 3 4 5 6\n", not_increasing, 2, 6},  // the same in 4 bytes
      {head + "NaN 2 2 3 4 5 6\n", not_increasing, 0, 0},
      {head + two + "Inf 2 2 3 4 5 6\n", not_increasing, 2, 6},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    KinoMotions motions;
    EXPECT_EQ(Read(c.text, motions), c.fault);
    ASSERT_EQ(motions.steps(), c.steps);
    EXPECT_EQ(motions.length, c.length);
    EXPECT_EQ(c.steps > 0 ? motions.column[6].back() : 0, c.last_yaw);
  }
  KinoMotions motions;
  EXPECT_EQ(Read(std::string(100, 'c') + "\n1\n" + two, motions), none);
  EXPECT_EQ(motions.comment, std::string(80, 'c'));
}

// Nine digits bring back any 4-byte value, also the neighbours of powers of 2 and 10 and the smallest ones.
TEST(KinoMotions, WrittenValuesReadBack) {
  std::string text = "c\n1\n";
  std::vector<float> values;
  float time = 0;
  for (float x = 1e-38F; x < 1e38F; x *= 3.7F) values.insert(values.end(), {x, -std::nextafter(x, 0.0F)});
  for (float x = 1e-10F; x < 1e10F; x *= 2) values.push_back(std::nextafter(x, 1e30F));
  values.insert(values.end(),
                {0.0F, -0.0F, std::numeric_limits<float>::max(), std::numeric_limits<float>::denorm_min()});
  for (const float value : values) {
    const double v = value;
    AppendKinoStep(text, {time, v, v, v, v, v, v});
    time += 1;
  }
  KinoMotions motions;
  ASSERT_EQ(Read(text, motions), MotionsFault::none);
  ASSERT_EQ(motions.steps(), values.size());
  for (std::size_t i = 0; i < values.size(); ++i) EXPECT_EQ(static_cast<float>(motions.column[3][i]), values[i]);
}

}  // namespace
}  // namespace zaview
