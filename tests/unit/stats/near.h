// How near two values must be that another program has made in the same precision and order.
#pragma once

#include <cmath>

#include <gtest/gtest.h>

namespace zaview {

inline void ExpectClose(float got, double want, const char* what) {
  EXPECT_NEAR(static_cast<double>(got), want, 2e-6 * std::abs(want)) << what;
}

}  // namespace zaview
