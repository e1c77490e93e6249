// SPDX-License-Identifier: MIT
#include "overlays/plot_text.h"

#include <gtest/gtest.h>

#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

PlotTextReader Reader(const std::string& text) {
  return PlotTextReader(ListReader(text, "c:\\data\\plot.txt"));
}

std::string Failure_Of(const std::string& text) {
  try {
    PlotTextReader plot = Reader(text);
    while (plot.Next_Tree()) {
    }
  } catch (const RunTimeError& error) {
    return error.what();
  }
  return "no failure";
}

TEST(PlotText, HeaderAndTreesAreReadInOrder) {
  PlotTextReader plot = Reader(
      "10.5, 2515000 6860000\n150\n1,2,3\n\n4.5 5.5 0.5 213 18.25 7 2 -1\n8,9,0,1,2,3,4,5\n");
  EXPECT_EQ(plot.Header().PlotAngle, 10.5);
  EXPECT_EQ(plot.Header().PlotX0, 2515000);
  EXPECT_EQ(plot.Header().PlotY0, 6860000);
  EXPECT_EQ(plot.Header().PlotZ0, 150);
  EXPECT_EQ(plot.Header().PlotDX, 1);
  EXPECT_EQ(plot.Header().PlotDY, 2);
  EXPECT_EQ(plot.Header().PlotDZ, 3);
  const auto tree = plot.Next_Tree();
  ASSERT_TRUE(tree);
  EXPECT_EQ(tree->LocalX, 4.5);
  EXPECT_EQ(tree->LocalY, 5.5);
  EXPECT_EQ(tree->LocalZ, 0.5);
  EXPECT_EQ(tree->Dbh, 213);
  EXPECT_EQ(tree->TreeHeight, 18.25);
  EXPECT_EQ(tree->TreeId, 7);
  EXPECT_EQ(tree->TreeSpecies, 2);
  EXPECT_EQ(tree->TreeCode, -1);
  EXPECT_EQ(plot.Dbh_Place(), "c:\\data\\plot.txt, line 5, item 11");
  EXPECT_EQ(plot.Height_Place(), "c:\\data\\plot.txt, line 5, item 12");
  EXPECT_TRUE(plot.Next_Tree());
  EXPECT_EQ(plot.Height_Place(), "c:\\data\\plot.txt, line 6, item 20");
  EXPECT_FALSE(plot.Next_Tree());
}

TEST(PlotText, AHeaderWithoutTreesHasNone) {
  EXPECT_FALSE(Reader("0,0,0,0,0,0,0\n\n").Next_Tree());
}

TEST(PlotText, ATruncatedRowIsNamed) {
  EXPECT_EQ(Failure_Of("0,0,0,0,0,0,0\n1,2,3,4,5,6,7\n"),
            "Input past end of file: c:\\data\\plot.txt, line 3, item 15");
  EXPECT_EQ(Failure_Of("0,0,0,0,0,0"),
            "Input past end of file: c:\\data\\plot.txt, line 1, item 7");
}

TEST(PlotText, ATextInPlaceOfANumberIsNamed) {
  EXPECT_EQ(Failure_Of("0,0,0,0,0,0,0\n1,2,3,thick,5,6,7,8\n"),
            "Type mismatch: c:\\data\\plot.txt, line 2, item 11: \"thick\" is not a number");
}

TEST(PlaceTree, NinetyDegreesMapLocalEastToMapNorth) {
  PlotHeader plot;
  plot.PlotAngle = 90;
  PlotTree tree;
  tree.LocalX = 1;
  const TreePlace east = Place_Tree(plot, tree);
  EXPECT_NEAR(east.MapX, 0, 1e-12);
  EXPECT_NEAR(east.MapY, 1, 1e-12);
  tree = {};
  tree.LocalY = 1;
  const TreePlace north = Place_Tree(plot, tree);
  EXPECT_NEAR(north.MapX, -1, 1e-12);
  EXPECT_NEAR(north.MapY, 0, 1e-12);
}

TEST(PlaceTree, OriginAndShiftsAreAdded) {
  const PlotHeader plot{0, 100, 200, 50, 10, 20, 5};
  const PlotTree tree{1, 2, 0.5, 0, 12, 0, 0, 0};
  const TreePlace place = Place_Tree(plot, tree);
  EXPECT_EQ(place.MapX, 111);
  EXPECT_EQ(place.MapY, 222);
  EXPECT_EQ(place.BaseZ, 55.5);
  EXPECT_EQ(place.TopZ, 67.5);
}

TEST(PlaceTree, ThirtyDegreesTurnCounterClockwise) {
  PlotHeader plot;
  plot.PlotAngle = 30;
  PlotTree tree;
  tree.LocalX = 2;
  const TreePlace place = Place_Tree(plot, tree);
  EXPECT_NEAR(place.MapX, 1.7320508075688772, 1e-12);  // 2 cos 30
  EXPECT_NEAR(place.MapY, 1, 1e-12);                   // 2 sin 30
}

TEST(PlotRadians, UsesTheFactorOfTheFieldData) {
  EXPECT_EQ(Plot_Radians(1), 0.0174532925199433);
  EXPECT_NEAR(Plot_Radians(180), 3.14159265358979, 1e-13);
}

}  // namespace
}  // namespace sylvomex
