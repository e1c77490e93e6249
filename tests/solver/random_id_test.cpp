// SPDX-License-Identifier: MIT
#include "solver/random_id.h"

#include <gtest/gtest.h>

namespace sylvomex {
namespace {

TEST(RandomId8, TruncatesTheNumberToEightDigitsWithLeadingZeros) {
  EXPECT_EQ(Random_Id8(0), "00000000");
  EXPECT_EQ(Random_Id8(0.5), "50000000");
  EXPECT_EQ(Random_Id8(0.000012349), "00001234");
  EXPECT_EQ(Random_Id8(1 - 0x1p-53), "99999999");
}

}  // namespace
}  // namespace sylvomex
