#include "base/text.h"

#include <gtest/gtest.h>

namespace zaview {
namespace {

TEST(Text, TrimKnowsBlanksTabsReturns) {
  EXPECT_EQ(Trim(" \t a b \r"), "a b");
  EXPECT_EQ(TrimEnd(" a \t\r"), " a");
  EXPECT_EQ(TrimStart("\t a "), "a ");
  EXPECT_EQ(Trim(" \t\r"), "");
  EXPECT_TRUE(IsBlank(""));
  EXPECT_FALSE(IsBlank(" \n"));  // a line end is no blank
}

TEST(Text, CapitalsLeaveOtherBytes) {
  EXPECT_EQ(Capitals("-root=\xC3\xA4/x9"), "-ROOT=\xC3\xA4/X9");
}

TEST(Text, PaddedComparison) {
  const struct {
    std::string_view a, b;
    bool same;
  } cases[] = {
      {"abc",  "abc  ", true },
      {"abc ", "abc",   true },
      {"",     "   ",   true },
      {"abc",  "abcd",  false},
      {" abc", "abc",   false},
      {"abc",  "abc\t", false}
  };
  for (const auto& c : cases) EXPECT_EQ(SamePadded(c.a, c.b), c.same) << c.a << "|" << c.b;
}

}  // namespace
}  // namespace zaview
