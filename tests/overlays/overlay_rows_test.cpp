// SPDX-License-Identifier: MIT
#include "overlays/overlay_rows.h"

#include <gtest/gtest.h>

#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

ListReader Rows(const std::string& text) { return {text, "c:\\data\\rows.txt"}; }

template <class Read>
std::string Failure_Of(Read read, const std::string& text) {
  ListReader rows = Rows(text);
  try {
    read(rows);
  } catch (const RunTimeError& error) {
    return error.what();
  }
  return "no failure";
}

/// Rows whose four numbers count upwards from 1.
void Expect_Counting_Segments(const std::string& text, int count) {
  ListReader rows = Rows(text);
  for (int first = 1; first < 4 * count; first += 4) {
    const GroundSegment segment = Read_Ground_Segment(rows);
    EXPECT_EQ(segment.X1, first);
    EXPECT_EQ(segment.Y1, first + 1);
    EXPECT_EQ(segment.X2, first + 2);
    EXPECT_EQ(segment.Y2, first + 3);
  }
  EXPECT_TRUE(rows.At_End());
}

TEST(GroundSegment, IdentifierMayBeANumberOrAName) {
  Expect_Counting_Segments("12,1,2,3,4\n\nLM-a 5 6 7 8\n\"b c\",9,10,11,12", 3);
}

TEST(GroundSegment, AnEmptyIdentifierIsAnItem) {
  Expect_Counting_Segments(",1,2,3,4\n\"\",5,6,7,8\n  \n , 9,10,11,12,\n\n\"\" 13 14 15 16\n", 4);
}

TEST(CrownPoint, AnEmptyIdentifierIsAnItem) {
  ListReader rows = Rows(",1,2,3.5,4,5,6,7\n\"\",8,9,4.5,4,5,6,7");
  EXPECT_EQ(Read_Crown_Point(rows).X, 1);
  const CrownPoint point = Read_Crown_Point(rows);
  EXPECT_EQ(point.X, 8);
  EXPECT_EQ(point.Y, 9);
  EXPECT_EQ(point.width, 6);  // 5.5 to even
  EXPECT_TRUE(rows.At_End());
}

TEST(MeasuredTree, EmptyTextsAreItems) {
  ListReader rows = Rows("1,2,,\"\",5.5,,1\n3,4,a,,6.5,\"\",0\n");
  const MeasuredTree first = Read_Measured_Tree(rows);
  EXPECT_EQ(first.height, 5.5);
  EXPECT_EQ(first.number, "");
  EXPECT_EQ(first.flag, 1);
  const MeasuredTree second = Read_Measured_Tree(rows);
  EXPECT_EQ(second.height, 6.5);
  EXPECT_EQ(second.flag, 0);
  EXPECT_TRUE(rows.At_End());
}

TEST(MeasuredTree, TakesHeightNumberAndFlagFromItemsFiveToSeven) {
  ListReader rows = Rows("1,2,pine,4,5.5,T6,1\n");
  const MeasuredTree tree = Read_Measured_Tree(rows);
  EXPECT_EQ(tree.X, 1);
  EXPECT_EQ(tree.Y, 2);
  EXPECT_EQ(tree.height, 5.5);
  EXPECT_EQ(tree.number, "T6");
  EXPECT_EQ(tree.flag, 1);
  EXPECT_TRUE(rows.At_End());
}

TEST(CrownPoint, IsOneWiderThanItsSizeInItemFour) {
  ListReader rows = Rows("a1 1 2 3.5 4 5 6 7\n");
  const CrownPoint point = Read_Crown_Point(rows);
  EXPECT_EQ(point.X, 1);
  EXPECT_EQ(point.Y, 2);
  EXPECT_EQ(point.width, 4);  // 4.5 to even
  EXPECT_TRUE(rows.At_End());
}

TEST(CrownPoint, ASizeBeyondSixteenBitsIsNamedWithItsPosition) {
  EXPECT_EQ(Failure_Of(Read_Crown_Point, "\na 1 2 32767 4 5 6 7\n"),
            "Overflow: c:\\data\\rows.txt, line 2, item 4: 32768 is not in -32768 to 32767");
  EXPECT_EQ(Failure_Of(Read_Crown_Point, "a 1 2 -40000 4 5 6 7\n"),
            "Overflow: c:\\data\\rows.txt, line 1, item 4: -39999 is not in -32768 to 32767");
  EXPECT_EQ(Failure_Of(Read_Crown_Point, "a 1 2 32766 4 5 6 7\n"), "no failure");
}

TEST(TiePoint, ImageIdComesFirst) {
  ListReader rows = Rows("402045 7 100.25 200.5\n");
  const TiePoint point = Read_Tie_Point(rows);
  EXPECT_EQ(point.image_id, 402045);
  EXPECT_EQ(point.point_id, 7);
  EXPECT_EQ(point.col, 100.25);
  EXPECT_EQ(point.top_down_row, 200.5);
}

TEST(OverlayRows, ATruncatedRowIsNamed) {
  EXPECT_EQ(Failure_Of(Read_Ground_Segment, "1,2,3,4\n"),
            "Input past end of file: c:\\data\\rows.txt, line 2, item 5");
  EXPECT_EQ(Failure_Of(Read_Measured_Tree, "1,2,3,4,5,6"),
            "Input past end of file: c:\\data\\rows.txt, line 1, item 7");
  EXPECT_EQ(Failure_Of(Read_Crown_Point, "1,2,3,4,5,6,7"),
            "Input past end of file: c:\\data\\rows.txt, line 1, item 8");
  EXPECT_EQ(Failure_Of(Read_Tie_Point, "1,2,3"),
            "Input past end of file: c:\\data\\rows.txt, line 1, item 4");
  EXPECT_EQ(Failure_Of(Read_Ground_Vertex, "1,2"),
            "Input past end of file: c:\\data\\rows.txt, line 1, item 3");
}

TEST(OverlayRows, ATextInPlaceOfANumberIsNamed) {
  EXPECT_EQ(Failure_Of(Read_Measured_Tree, "1,2,3,4,tall,6,1"),
            "Type mismatch: c:\\data\\rows.txt, line 1, item 5: \"tall\" is not a number");
}

}  // namespace
}  // namespace sylvomex
