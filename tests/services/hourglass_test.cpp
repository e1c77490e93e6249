// SPDX-License-Identifier: MIT
#include "services/hourglass.h"

#include <gtest/gtest.h>

#include "support/failure_of.h"
#include "support/synthetic_block.h"

namespace sylvomex {
namespace {

TEST(Hourglass, IsShownWhileItsGuardLivesAndServicesNoEvents) {
  SyntheticBlock b;
  {
    const HourglassGuard hourglass(b.w);
    EXPECT_EQ(b.w.Form1.MousePointer, PointerShape::Hourglass);
  }
  EXPECT_EQ(b.w.Form1.MousePointer, PointerShape::Normal);
  EXPECT_EQ(b.screen.servicings, 0);
}

TEST(Hourglass, DisappearsWhenAFailureEndsTheSteps) {
  SyntheticBlock b;
  Failure_Of([&] {
    const HourglassGuard hourglass(b.w);
    throw RunTimeError(Failure::Overflow, "made up");
  });
  EXPECT_EQ(b.w.Form1.MousePointer, PointerShape::Normal);
}

TEST(Hourglass, OfAnInnerCommandEndsThatOfTheOuterOne) {
  SyntheticBlock b;
  const HourglassGuard outer(b.w);
  { const HourglassGuard inner(b.w); }
  EXPECT_EQ(b.w.Form1.MousePointer, PointerShape::Normal);
}

TEST(Hourglass, OverAPaneLeavesTheGivenPointer) {
  SyntheticBlock b;
  Picture& pane = b.w.Form1.Picture1(2);
  {
    const HourglassGuard hourglass(pane, PointerShape::Custom);
    EXPECT_EQ(pane.MousePointer, PointerShape::Hourglass);
    EXPECT_EQ(b.w.Form1.MousePointer, PointerShape::Normal);
  }
  EXPECT_EQ(pane.MousePointer, PointerShape::Custom);
  { const HourglassGuard hourglass(pane); }
  EXPECT_EQ(pane.MousePointer, PointerShape::Normal);
}

}  // namespace
}  // namespace sylvomex
