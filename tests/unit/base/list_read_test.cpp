#include "base/list_read.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "base/list_item.h"

namespace zaview {
namespace {

struct Lines {  // "|" ends a line; a line "STOP" belongs to something else
  std::string text;
  std::size_t next = 0, taken = 0;
  explicit Lines(const std::string& lines) : text(lines + '|') {}
  ListLines Get() {
    return {this, [](void* self, std::string_view& line) {
              auto& me = *static_cast<Lines*>(self);
              if (me.next == me.text.size()) return ListLines::Next::end_of_file;
              const std::size_t bar = me.text.find('|', me.next);
              line = std::string_view(me.text).substr(me.next, bar - me.next);
              me.next = bar + 1;
              ++me.taken;
              return line == "STOP" ? ListLines::Next::stop : ListLines::Next::line;
            }};
  }
};

TEST(ListRead, Reals) {
  const struct {
    const char* text;
    ListStatus status;
    std::vector<double> values;  // from 7 7 7
    std::size_t lines;           // taken
  } cases[] = {
      {"1 2 3 words|4", ListStatus::ok, {1, 2, 3}, 1},
      {"||1|  |2,|3|4", ListStatus::ok, {1, 2, 3}, 6},
      {"1,,3", ListStatus::ok, {1, 7, 3}, 1},  // null items keep what they held
      {", 2 , |3", ListStatus::ok, {7, 2, 3}, 2},
      {"2*5\t1D1", ListStatus::ok, {5, 5, 10}, 1},
      {"88888888888888888888*1.5-3", ListStatus::ok, {0.0015, 0.0015, 0.0015}, 1},
      {"1 2|STOP|3", ListStatus::error, {1, 2, 7}, 2},
      {"1 **** 3", ListStatus::error, {1, 7, 7}, 1},
      {"0*1 2 3", ListStatus::error, {7, 7, 7}, 1},
  };
  for (const auto& c : cases) {
    Lines lines(c.text);
    std::vector<double> values(3, 7.0);
    EXPECT_EQ(ReadReals(lines.Get(), values), c.status) << c.text;
    EXPECT_EQ(values, c.values) << c.text;
    EXPECT_EQ(lines.taken, c.lines) << c.text;
  }
}

TEST(ListRead, NumbersThatAreCutShort) {
  for (const char* text : {"-", ".", "-.", "1.5E", "1.5E-", "1.5-", "2*-", "3*", "n", "-iNfi", "nan", "infinity"})
    EXPECT_TRUE(BeginsNumber(text)) << text;
  for (const char* text : {"****", "x", "--", "E5", "1.5EE", "1E5-", "..", "-.-", "0*1", "nan-", "infinityx", "1x"})
    EXPECT_FALSE(BeginsNumber(text)) << text;
}

}  // namespace
}  // namespace zaview
