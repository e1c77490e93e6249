// SPDX-License-Identifier: MIT
#include "closedlib/anaglyph_picture.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/failure_of.h"

namespace sylvomex {
namespace {

using Bytes = std::vector<std::uint8_t>;

TEST(AnaglyphPicture, RedComesFromTheLeftGreenAndBlueFromTheRight) {
  const Bytes left{1, 2, 3, 4, 5, 6};
  const Bytes right{11, 12, 13, 14, 15, 16};
  Bytes bgr(6);
  MYFUNC_CREATEBMP({left, 2, 1, true}, {right, 2, 1, true}, 2, 1, bgr);
  EXPECT_EQ(bgr, (Bytes{13, 12, 1, 16, 15, 4}));
}

TEST(AnaglyphPicture, GreyRastersGiveTheirByteToTheirChannels) {
  const Bytes left{1, 2};
  const Bytes right{11, 12};
  Bytes bgr(6);
  MYFUNC_CREATEBMP({left, 2, 1, false}, {right, 2, 1, false}, 2, 1, bgr);
  EXPECT_EQ(bgr, (Bytes{11, 11, 1, 12, 12, 2}));
}

TEST(AnaglyphPicture, EachWindowHasItsOwnPlace) {
  // Grey 3 x 3, value 10 row + column; the left window from (1, 0), the right one from (0, 2).
  const Bytes left{0, 1, 2, 10, 11, 12, 20, 21, 22};
  const Bytes right{100, 101, 102, 110, 111, 112, 120, 121, 122};
  Bytes bgr(6);
  MYFUNC_CREATEBMP({left, 3, 3, false, 1, 0}, {right, 3, 3, false, 0, 2}, 1, 2, bgr);
  EXPECT_EQ(bgr, (Bytes{102, 102, 10, 112, 112, 20}));
}

TEST(AnaglyphPicture, IsBlackOutsideARaster) {
  const Bytes grey{50, 60};
  Bytes bgr(9 * 3, 77);
  // A picture of 3 x 3 whose middle row holds the left raster from its second pixel on.
  MYFUNC_CREATEBMP({grey, 2, 1, false, -1, -1}, {grey, 2, 1, false, 5, 0}, 3, 3, bgr);
  Bytes wanted(27);
  wanted[9 + 3 + 2] = 50;
  wanted[9 + 6 + 2] = 60;
  EXPECT_EQ(bgr, wanted);
}

TEST(AnaglyphPicture, WindowsFarAwayAreBlack) {
  const Bytes grey{50, 60};
  Bytes bgr(3, 77);
  MYFUNC_CREATEBMP({grey, 2, 1, false, 2147483647, -2147483647}, {grey, 2, 1, false, 0, 2147483647},
                   1, 1, bgr);
  EXPECT_EQ(bgr, (Bytes{0, 0, 0}));
}

TEST(AnaglyphPicture, SpansThatAreTooShortAreRejected) {
  const Bytes grey{50, 60};
  Bytes bgr(3);
  EXPECT_NE(Failure_Of([&] {
              MYFUNC_CREATEBMP({grey, 3, 1}, {grey, 2, 1}, 1, 1, bgr);
            }),
            "no failure");
  EXPECT_NE(Failure_Of([&] {
              MYFUNC_CREATEBMP({grey, 2, 1}, {grey, 2, 1}, 2, 1, bgr);
            }),
            "no failure");
}

}  // namespace
}  // namespace sylvomex
