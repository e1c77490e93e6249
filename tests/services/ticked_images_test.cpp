// SPDX-License-Identifier: MIT
#include "services/ticked_images.h"

#include <gtest/gtest.h>

#include "support/synthetic_block.h"

namespace sylvomex {
namespace {

TEST(TickedImages, AreThoseOfTheSetInAscendingOrder) {
  SyntheticBlock b;
  for (int k = 0; k < 3; ++k) b.Add_Camera(10.0 * k, 0, 1000);
  EXPECT_TRUE(Ticked_Images(b.w).empty());
  b.w.Form1.Check1(2).Value = 1;
  b.w.Form1.Check1(0).Value = 1;
  b.w.Form1.Check1(3).Value = 1;  // there are only three images
  EXPECT_EQ(Ticked_Images(b.w), (std::vector<int>{0, 2}));
}

}  // namespace
}  // namespace sylvomex
