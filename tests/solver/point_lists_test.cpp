// SPDX-License-Identifier: MIT
#include "solver/point_lists.h"

#include <gtest/gtest.h>

#include "support/failure_of.h"

namespace sylvomex {
namespace {

ListReader List(const std::string& text) { return ListReader(text, "list.txt"); }

TEST(PointLists, AGroundPointIsItsIdTwiceAndItsPosition) {
  const auto points = Read_Ground_Points(List("7,7,1.5,2.5,3.5\n8 8 4 5 6\n"));
  ASSERT_EQ(points.size(), 2U);
  EXPECT_EQ(points[0].point_id, 7);
  EXPECT_EQ(points[0].position.X, 1.5);
  EXPECT_EQ(points[0].position.Y, 2.5);
  EXPECT_EQ(points[0].position.Z, 3.5);
  EXPECT_EQ(points[1].point_id, 8);
  EXPECT_EQ(points[1].position.Z, 6);
}

TEST(PointLists, AFilmPointIsImagePointAndFilmPosition) {
  const auto points = Read_Film_Points(List("101,7,0.001,-0.002\n"));
  ASSERT_EQ(points.size(), 1U);
  EXPECT_EQ(points[0].image_id, 101);
  EXPECT_EQ(points[0].point_id, 7);
  EXPECT_EQ(points[0].x, 0.001);
  EXPECT_EQ(points[0].y, -0.002);
}

TEST(PointLists, APairIsTheTwoNamesAfterTwoValues) {
  const auto pairs = Read_Header_Pairs(
      List("1,2,c:\\a.hdr,c:\\b.hdr\n\n\"x\" 3 \"c:\\my images\\c.hdr\" d.hdr\n"));
  ASSERT_EQ(pairs.size(), 2U);
  EXPECT_EQ(pairs[0].first, "c:\\a.hdr");
  EXPECT_EQ(pairs[0].second, "c:\\b.hdr");
  EXPECT_EQ(pairs[1].first, "c:\\my images\\c.hdr");
  EXPECT_EQ(pairs[1].second, "d.hdr");
}

TEST(PointLists, AFlightImageIsANameAndFourValues) {
  const auto images = Read_Flight_Images(List("im1,3,0.5,100,80\n"));
  ASSERT_EQ(images.size(), 1U);
  EXPECT_EQ(images[0].header, "im1");
  EXPECT_EQ(images[0].line_number, 3);
  EXPECT_EQ(images[0].angle, 0.5);
  EXPECT_EQ(images[0].half_length, 100);
  EXPECT_EQ(images[0].half_width, 80);
}

TEST(PointLists, EmptyFilesHoldNothing) {
  EXPECT_TRUE(Read_Ground_Points(List("")).empty());
  EXPECT_TRUE(Read_Header_Pairs(List("\n\n")).empty());
}

TEST(PointLists, TruncatedOrNonNumericRowsAreNamed) {
  EXPECT_EQ(Failure_Of([] { Read_Ground_Points(List("7,7,1,2,3\n8,8,1")); }).substr(0, 22),
            "Input past end of file");
  EXPECT_NE(
      Failure_Of([] { Read_Film_Points(List("1,7,x,0\n")); }).find("list.txt, line 1, item 3"),
      std::string::npos);
  EXPECT_NE(Failure_Of([] {
              Read_Header_Pairs(List("1,2,,b.hdr\n"));
            }).find("list.txt, line 1, item 3: no image header is named"),
            std::string::npos);
}

}  // namespace
}  // namespace sylvomex
