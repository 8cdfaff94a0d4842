#include "analysis/crane/crane_input.h"

#include <gtest/gtest.h>

#include "fake_platform.h"

namespace zaview {
namespace {

constexpr std::string_view kGroups[] = {
    // by place, from 0
    "3 2 1 4\n",
    "20000.0\n",
    "9 1 0 1 8 0 0 0 7\n",
    "1\n",
    "15.0 0.002 2.0E11\n15 2D-3 2E11\n",
    "0 0 16\n1 2 17\n",
    "2\n",
    "25 90 45\n26 91 46\n",
    "1\n",
    "10 2 0.1\n",
    "0 0 -1\n",
    "1 2 3\n",
    "0 0 1\n",
    "0.01 0.02 0.03 0.04 0.05 0.06\n",
    "1\n",
    "1 2 3 4\n",
    "5 6 7 8\n",
    "-1 1 -2 2 -3 3 -4 4\n",
    "2\n",
    "0 90 45 15\n60 95 40 12.5\n",
    "1 ! geometry\n",
    "SIMPLE:box.dat\n",
};

// The groups with one of them another one.
std::string Text(std::size_t place = 99, std::string_view other = {}) {
  std::string text = "! a crane\n";
  for (std::size_t i = 0; i < std::size(kGroups); ++i) text += i == place ? other : kGroups[i];
  return text;
}

bool Read(const std::string& text, CraneInput& input, std::string& said) {
  FakePlatform fake;
  fake.Put("crane", text);
  const bool read = ReadCraneInput(fake.Get(), "crane", input);
  EXPECT_EQ(fake.OpenHandles(), 0U);
  said = fake.output;
  return read;
}

TEST(CraneInput, EveryGroupThereAndBack) {
  CraneInput input, again;
  std::string said;
  ASSERT_TRUE(Read(Text(), input, said)) << said;
  EXPECT_EQ(input.ICARGO[1][0], 1);
  EXPECT_EQ(input.RBASE0[1], (Triple{1, 2, 17}));
  EXPECT_EQ(input.boom[1], (Triple{26, 91, 46}));
  EXPECT_EQ(input.LIMIT[6], -4);
  EXPECT_EQ(input.BANG[1][3], 12.5);
  EXPECT_EQ(input.BOAT_FGEOM, "SIMPLE:box.dat");
  ASSERT_TRUE(Read(CraneInputText(input), again, said)) << said;
  EXPECT_EQ(CraneInputText(again), CraneInputText(input));
}

TEST(CraneInput, WhatCannotBe) {
  const struct {
    std::size_t place;
    std::string_view other, message;
  } cases[] = {
      {0, "4 1 0 1\n", "Unrecognized value (4) for CRANE_DOF"},
      {0, "3 5 0 1\n", "Illegal value (5) for CRANE_NCBL, MAXCBL=4"},
      {0, "3 1 2 1\n", "Unrecognized value (2) for CRANE_IFRC"},
      {0, "3 1 0 -1\n", "Illegal (negative) value (-1) for CRANE_ISTP\n         at line 2 of crane"},
      {0, "3 x\n", "Crane model input error - group 01 can't be read"},
      {1, "NaN\n", "Crane model input error - group 02 can't be read"},
      {3, "4\n", "Unrecognized value (4) for CRANE_INCABLE"},
      {4, "0 1 1\n0 1 1\n", "Crane model input error - CRANE_LCABL0 must be positive"},
      {4, "1 0 1\n1 0 1\n", "Crane model input error - CRANE_ACABL must be positive"},
      {4, "1 1 0\n1 1 0\n", "Crane model input error - CRANE_ECABL must be positive"},
      {4, "1 1 1\n1 1 2\n", "Crane model input error - cables must have equal properties\n         at line 7 of crane"},
      {6, "3\n", "Unrecognized value (3) for CRANE_INBOOM"},
      {8, "0\n", "Unrecognized value (0) for CRANE_INCARGO"},
      {14, "2\n", "Unrecognized value (2) for CRANE_ICNTRL"},
      {18, "101\n", "Crane model input error - more than MXBANG commanded boom angles/cable lengths"},
      {19, "0 9 4 1\n1 9 4 0\n", "Crane model input error - commanded cable lengths CRANE_BANG(4) must be positive"},
      {19, "2 9 4 1\n1 9 4 1\n", "Crane model input error - times of commands CRANE_BANG(1) must not decrease"},
      {20, "2\n", "Unrecognized value (2) for CRANE_GTOPT"},
      {20, "END_OF_FILE\n", "Crane model input error - the file ends ahead of group 09"},
  };
  for (const auto& c : cases) {
    CraneInput input;
    std::string said;
    EXPECT_FALSE(Read(Text(c.place, c.other), input, said)) << c.message;
    EXPECT_NE(said.find(c.message), std::string::npos) << said;
    EXPECT_TRUE(said.ends_with("Input error for crane & cargo model - Option Aborted\n")) << said;
  }
  CraneInput input;
  std::string said, six = Text(2, "1 2 0 2 1 0 0 0 1\n");
  six[10] = '6';
  EXPECT_FALSE(Read(six, input, said));
  EXPECT_NE(said.find("CRANE_ICARGO must be positive definite"), std::string::npos) << said;
}

}  // namespace
}  // namespace zaview
