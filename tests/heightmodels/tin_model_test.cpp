// SPDX-License-Identifier: MIT
#include "heightmodels/tin_model.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "heightmodels/tin_support.h"
#include "platform/run_time_error.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

constexpr const char* kNodes = "1000,0,100\n1010,0,110\n1010,10,110\n1000,10,100\n";

struct Reading {
  TemporaryFolder folder;
  TinModel model;
  std::vector<std::string> reports;

  void Nodes(const std::string& text, double lift = 0) {
    Read_Tin_Nodes(folder.Write("a.nod", text), lift, model);
  }
  bool Triangles(const std::string& text) {
    return Read_Tin_Triangles(folder.Write("a.tri", text), model,
                              [this](std::string_view s) { reports.emplace_back(s); });
  }

  static std::string Complaint(const std::function<void()>& action) {
    try {
      action();
    } catch (const RunTimeError& error) {
      return error.what();
    }
    return "none";
  }
};

TEST(TinNodes, AreReadToTheEndOfTheFile) {
  Reading r;
  r.Nodes("2515012.25, 6859001.5 ,160.125\r\n2515340,6859120,170\n\n");
  ASSERT_EQ(r.model.NodeCount, 2);
  EXPECT_EQ(r.model.Nodes[0].X, 2515012.25);
  EXPECT_EQ(r.model.Nodes[0].Y, 6859001.5);
  EXPECT_EQ(r.model.Nodes[0].Z, 160.125);
}

TEST(TinNodes, BoundsAreWholeHundreds) {
  Reading r;
  r.Nodes("2515012.25,6859001.5,160\n2515340,6859120,170\n");
  EXPECT_EQ(r.model.TileMinX, 2515000);
  EXPECT_EQ(r.model.TileMinY, 6859000);
  EXPECT_EQ(r.model.TileMaxX, 2515400);
  EXPECT_EQ(r.model.TileMaxY, 6859200);
}

TEST(TinNodes, ABoundOnAWholeHundredIsStillRaised) {
  Reading r;
  r.Nodes("-50,0,1\n200,100,1\n");
  EXPECT_EQ(r.model.TileMinX, -100);
  EXPECT_EQ(r.model.TileMaxX, 300);
  EXPECT_EQ(r.model.TileMaxY, 200);
}

TEST(TinNodes, TheLiftIsAddedToZ) {
  Reading r;
  r.Nodes("0,0,20\n", 0.3);
  EXPECT_EQ(r.model.Nodes[0].Z, 20 + 0.3);
}

TEST(TinNodes, AnEmptyFileIsRejected) {
  Reading r;
  EXPECT_EQ(Reading::Complaint([&] { r.Nodes(" \n"); }), "Input past end of file: a.nod: no node");
}

TEST(TinNodes, TextInPlaceOfANumberNamesLineAndItem) {
  Reading r;
  EXPECT_EQ(Reading::Complaint([&] { r.Nodes("1,2,3\n4,x,6\n"); }),
            "Type mismatch: a.nod, line 2, item 5: \"x\" is not a number");
}

TEST(TinTriangles, CopyTheirNodesAndFindTheirBox) {
  Reading r;
  r.Nodes(kNodes);
  EXPECT_TRUE(r.Triangles("0,1,2\n0,2,3\n"));
  ASSERT_EQ(r.model.TriangleCount, 2);
  const TinTriangle& t = r.model.Triangles[1];
  EXPECT_EQ(t.Node3, 3);
  EXPECT_EQ(t.X2, 1010);
  EXPECT_EQ(t.Y3, 10);
  EXPECT_EQ(t.Z2, 110);
  EXPECT_EQ(t.Corners[2].X, 1000);
  EXPECT_EQ(t.MinX, 1000);
  EXPECT_EQ(t.MinY, 0);
  EXPECT_EQ(t.MaxX, 1010);
  EXPECT_EQ(t.MaxY, 10);
  EXPECT_TRUE(r.reports.empty());
}

TEST(TinTriangles, ThePlaneGoesThroughTheCorners) {
  TinTriangle t;
  ASSERT_TRUE(Fill_Tin_Triangle({0, 2515000, 6859000, 160}, {0, 2515003, 6859001, 162},
                                {0, 2515001, 6859004, 165}, t));
  EXPECT_NEAR(Height_In_Triangle(t, 2515000, 6859000), 160, 1e-9);
  EXPECT_NEAR(Height_In_Triangle(t, 2515003, 6859001), 162, 1e-9);
  EXPECT_NEAR(Height_In_Triangle(t, 2515001, 6859004), 165, 1e-9);
}

TEST(TinTriangles, ThePlaneOfARampByHand) {
  // Z = 100 + x from the box's corner: with x' = MinX - X = -x the rows (0,0,100), (-10,0,110),
  // (-10,-10,110) solve to A = 1/100, B = 0, C = 1/100.
  const TinModel model = Two_Triangles();
  EXPECT_NEAR(model.Triangles[0].PlaneA, 0.01, 1e-15);
  EXPECT_NEAR(model.Triangles[0].PlaneB, 0, 1e-15);
  EXPECT_NEAR(model.Triangles[0].PlaneC, 0.01, 1e-15);
}

TEST(TinTriangles, ADegenerateTriangleStopsTheReadingAndTheOnesBeforeStay) {
  Reading r;
  r.Nodes(kNodes);
  EXPECT_FALSE(r.Triangles("0,1,2\n1,1,2\n0,2,3\n"));
  EXPECT_EQ(r.reports, std::vector<std::string>{"Cant divide with zero!"});
  EXPECT_EQ(r.model.TriangleCount, 1);
  Index_Tin(r.model, {});
  std::int32_t hint = 0;
  EXPECT_NEAR(Tin_Elevation(r.model, 1008, 2, hint), 108, 1e-9);
}

TEST(TinTriangles, ADegenerateTriangleAtTheEndStopsTheReadingToo) {
  Reading r;
  r.Nodes(kNodes);
  EXPECT_FALSE(r.Triangles("0,1,2\n1,1,2\n"));
}

TEST(TinTriangles, AFlatTriangleAtHeightZeroIsDegenerate) {
  Reading r;
  r.Nodes("1000,0,0\n1010,0,0\n1010,10,0\n");
  EXPECT_FALSE(r.Triangles("0,1,2\n"));
  EXPECT_EQ(r.model.TriangleCount, 0);
}

TEST(TinTriangles, SmallCoordinatesWarnAndTheReadingGoesOn) {
  Reading r;
  r.Nodes("19,0,100\n30,0,110\n30,10,110\n20,10,100\n");
  EXPECT_TRUE(r.Triangles("0,1,2\n1,2,3\n0,2,3\n"));
  EXPECT_EQ(r.reports, (std::vector<std::string>{"!", "!"}));
  EXPECT_EQ(r.model.TriangleCount, 3);
}

TEST(TinTriangles, AnIndexOutsideTheNodesNamesFileLineAndItem) {
  Reading r;
  r.Nodes(kNodes);
  EXPECT_EQ(Reading::Complaint([&] { r.Triangles("0,1,2\n0,4,3\n"); }),
            "Subscript out of range: a.tri, line 2, item 5: node 4 is not in 0 to 3");
  EXPECT_EQ(Reading::Complaint([&] { r.Triangles("0,1,-1\n"); }),
            "Subscript out of range: a.tri, line 1, item 3: node -1 is not in 0 to 3");
}

TEST(TinTriangles, TextATruncatedLineAndAnEmptyFileAreRejected) {
  Reading r;
  r.Nodes(kNodes);
  EXPECT_EQ(Reading::Complaint([&] { r.Triangles("0,1,2\nzero,2,3\n"); }),
            "Type mismatch: a.tri, line 2, item 4: \"zero\" is not a number");
  EXPECT_EQ(Reading::Complaint([&] { r.Triangles("0,1"); }),
            "Input past end of file: a.tri, line 1, item 3");
  EXPECT_EQ(Reading::Complaint([&] { r.Triangles("\n"); }),
            "Input past end of file: a.tri: no triangle");
}

TEST(TinTriangles, MoreThanTwoTrianglesPerNodeAreRejected) {
  Reading r;
  r.Nodes("1000,0,100\n1010,0,110\n1010,10,110\n");
  std::string text;
  for (int i = 0; i < 7; ++i) text += "0,1,2\n";
  EXPECT_EQ(Reading::Complaint([&] { r.Triangles(text); }),
            "Subscript out of range: a.tri, line 7, item 21: 3 nodes have two triangles each at "
            "most");
}

TEST(TinIndex, OrdersTheTrianglesByTheirLeastX) {
  // Triangles from X 3000, 1000 and 2000.
  std::vector<TinNode> nodes;
  for (const double X : {3000.0, 1000.0, 2000.0}) {
    nodes.insert(nodes.end(), {{0, X, 0, 10}, {0, X + 5, 0, 10}, {0, X, 5, 10}});
  }
  const TinModel model = Tin_Of(nodes, {{0, 1, 2}, {3, 4, 5}, {6, 7, 8}});
  EXPECT_EQ(model.Index, (std::vector<std::int32_t>{2, 3, 1}));
  EXPECT_EQ(model.position_of, (std::vector<std::int32_t>{3, 1, 2}));
}

TEST(TinIndex, TiesKeepTheHeapsortsOrder) {
  // Heapsort of the equal keys 1 2 3 by hand: l starts at 2 (2.5 to even), goes to 1 and sifts 1:
  // no equal child is larger, so nothing moves. Then 3 is taken out and replaced by 1, which stays
  // first above 2; then 2 is taken out, and 2 alone is left. The order is 2, 3, 1.
  const std::vector<TinNode> nodes = {{0, 1000, 0, 10}, {0, 1005, 0, 10}, {0, 1000, 5, 10}};
  const TinModel model = Tin_Of(nodes, {{0, 1, 2}, {1, 2, 0}, {2, 0, 1}});
  EXPECT_EQ(model.Index, (std::vector<std::int32_t>{2, 3, 1}));
}

TEST(TinIndex, KeysHaveSinglePrecision) {
  // In single precision both MinX are 2515000, a tie that the sort leaves as 2, 1 (1 is sifted
  // first and stays, then 2 is taken out). In double precision 1 would come first.
  const std::vector<TinNode> nodes = {
      {0, 2515000.05, 0, 10}, {0, 2515005, 0, 10}, {0, 2515001, 5, 10}, {0, 2515000.10, 0, 10}};
  const TinModel model = Tin_Of(nodes, {{0, 1, 2}, {3, 1, 2}});
  EXPECT_EQ(model.Index, (std::vector<std::int32_t>{2, 1}));
}

}  // namespace
}  // namespace sylvomex
