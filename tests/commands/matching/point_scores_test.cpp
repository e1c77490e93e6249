// SPDX-License-Identifier: MIT
#include "commands/matching/point_scores.h"

#include <cmath>
#include <numeric>

#include "commands/matching/matching_site.h"

namespace sylvomex {
namespace {

using Texts = std::vector<std::string>;

TEST_F(MatchingSite, TheMeshNeedsAPlotCentre) {
  for (const Point3D centre : {Point3D{0.999, 50, 2}, Point3D{50, -0.999, 2}}) {
    m.PlotCenter.PlotX = centre.X;
    m.PlotCenter.PlotY = centre.Y;
    screen.messages.clear();
    Choose("Create_XYZ_Point_Set");
    EXPECT_EQ(screen.messages, Texts{"Are the plotcenter values ok?"});
  }
  EXPECT_TRUE(m.MeshPoints.empty());
}

TEST_F(MatchingSite, TheMeshCoversTheLayerOverThePlot) {
  m.PatchSize = 21;
  Choose("Create_XYZ_Point_Set");
  EXPECT_EQ(m.MeshSide, 14);  // 13.65
  // Top 2 + 1.15 x 10 = 13.5, bottom 2 + 0.6 x 11.5 = 8.9: five steps of 1 m.
  ASSERT_EQ(m.MeshPoints.size(), 15U * 15 * 5);
  EXPECT_EQ(m.MeshPoints[0].X, -4);
  EXPECT_EQ(m.MeshPoints[0].Y, -4);
  EXPECT_NEAR(m.MeshPoints[0].Z, 8.9, 1e-9);
  EXPECT_EQ(m.MeshPoints.back().Y, 10);
  EXPECT_NEAR(m.MeshPoints.back().Z, 12.9, 1e-9);
}

TEST_F(MatchingSite, TheMeshReportsItsStepsAndTheModelTreesHeight) {
  struct Seen {
    std::string status;
    PointerShape pointer;
  };
  std::vector<Seen> seen;
  screen.on_service = [&] { seen.push_back({w.Form1.Label10.Caption, w.Form1.MousePointer}); };
  Choose("Create_XYZ_Point_Set");
  ASSERT_EQ(seen.size(), 2U);
  EXPECT_EQ(seen[0].status, "Computing 3D-pointmesh...");
  EXPECT_EQ(seen[0].pointer, PointerShape::Hourglass);
  EXPECT_EQ(seen[1].status, "3D-Point mesh creation succesfully done");
  EXPECT_EQ(seen[1].pointer, PointerShape::Normal);
  EXPECT_EQ(w.Form1.Label10.Caption, "3D-pointmesh computed, meanheight: 8.9 m");
  EXPECT_NEAR(m.ModelTreeHeight, 8.9, 1e-12);
  EXPECT_EQ(m.CaptureSnapshot.ModelTreeHeight, m.ModelTreeHeight);
}

TEST_F(MatchingSite, TheMeshOptionsAreStoredInTheSnapshot) {
  w.Form1.Text8.Text = "1.2";
  w.Form1.Text9.Text = "0.5";
  w.Form1.Text10.Text = "2";
  Choose("Create_XYZ_Point_Set");
  EXPECT_EQ(m.CaptureSnapshot.fHDOM, 1.2);
  EXPECT_EQ(m.CaptureSnapshot.Hlow, 0.5);
  EXPECT_EQ(m.CaptureSnapshot.Mesh, 2);
}

TEST_F(MatchingSite, WithoutATerrainModelTheMeshIsMeaninglessWithoutAMessage) {
  w.RasterDemLoaded = false;
  Choose("Create_XYZ_Point_Set");
  EXPECT_TRUE(screen.messages.empty());
  EXPECT_NEAR(m.ModelTreeHeight, 10.9 + 99, 1e-12);
}

constexpr float kNoDataHeights[] = {-9999, -3.4e38F};

TEST_F(MatchingSite, AMeshOverGroundWithoutDataReportsWhereAndWhat) {
  for (const float height : kNoDataHeights) {
    w.RasterDem.Cells[0] = height;
    screen.errors.clear();
    Choose("Create_XYZ_Point_Set");
    ASSERT_EQ(screen.errors.size(), 1U);
    EXPECT_NE(screen.errors[0].find("the ground model holds no data at X 5.00, Y 4.00: "),
              std::string::npos)
        << screen.errors[0];
    EXPECT_EQ(w.Form1.MousePointer, PointerShape::Normal);
  }
}

TEST_F(MatchingSite, ColumnsOverCanopyWithoutDataStayEmptyAndAreReported) {
  w.Form1.Text9.Text = "1.5";  // a lower limit above the upper one
  for (const float height : kNoDataHeights) {
    w.RasterChm.Cells[0] = height;
    screen.messages.clear();
    Choose("Create_XYZ_Point_Set");
    EXPECT_TRUE(screen.errors.empty());
    EXPECT_TRUE(m.MeshPoints.empty());
    ASSERT_EQ(screen.messages.size(), 1U);
    EXPECT_TRUE(screen.messages[0].starts_with(
        "The mesh stays empty where the canopy model holds no data at X "))
        << screen.messages[0];
  }
}

TEST_F(MatchingSite, ASpacingThatWouldNeverEndIsOneError) {
  for (const char* spacing : {"0", "-0.5"}) {
    w.Form1.Text10.Text = spacing;
    screen.errors.clear();
    Choose("Create_XYZ_Point_Set");
    ASSERT_EQ(screen.errors.size(), 1U);
    EXPECT_NE(screen.errors[0].find("must be above 0"), std::string::npos);
    EXPECT_EQ(w.Form1.MousePointer, PointerShape::Normal);
  }
}

TEST_F(MatchingSite, AMeshBeyondMemoryIsOneErrorWithItsCount) {
  m.PatchSize = 21;
  w.Form1.Text10.Text = "0.001";
  Choose("Create_XYZ_Point_Set");
  ASSERT_EQ(screen.errors.size(), 1U);
  // 14.001 m in steps of a millimetre are 14002 positions.
  EXPECT_NE(screen.errors[0].find("Out of memory: a mesh of 196056004 columns"), std::string::npos)
      << screen.errors[0];
}

// A mesh of three points, two ticked images, and their correlations set by hand.
class ScoredPoints : public MatchingSite {
 protected:
  ScoredPoints() {
    Untick_All();
    w.Form1.Check1(0).Value = w.Form1.Check1(2).Value = 1;
    m.MeshPoints = {{5, 4, 10.9}, {-1, 6, 9.9}, {300, 300, 10}};
    Store(0, {0.5, 0.2});
    Store(2, {0.28, -1});
  }

  // A patch covering the upper left part of the image, with correlations at the first two points.
  void Store(int image, const std::array<double, 2>& correlations) {
    constexpr int kWidth = 1000, kHeight = 1001;
    std::vector<double> values(static_cast<std::size_t>(kWidth * kHeight), 0);
    for (std::size_t j = 0; j < 2; ++j) {
      const auto col = static_cast<std::size_t>(std::nearbyint(Site_Col(image, kSiteTops[j])));
      const auto row = static_cast<std::size_t>(std::nearbyint(1000 - Site_Row(kSiteTops[j])));
      values[row * kWidth + col] = correlations[j];
    }
    m.CorrelationVolume.Store(image, kWidth, kHeight, values);
    w.CorrelationRecords(image).SubColOrigin = 0;
    w.CorrelationRecords(image).SubRowOrigin = 1000;
  }
};

TEST_F(ScoredPoints, TheScoreIsTheGeometricMeanOfOnePlusR) {
  Choose("Compute_Back_Projections");
  EXPECT_TRUE(screen.errors.empty());
  ASSERT_EQ(m.PointScore.size(), 4U);
  EXPECT_NEAR(m.PointScore[1], std::sqrt(1.5 * 1.28), 1e-6);
  EXPECT_NEAR(m.PointScore[2], 0, 1e-6);  // one value is -1
}

TEST_F(ScoredPoints, APointOutsideThePatchesDoesNotRaiseTheScore) {
  Choose("Compute_Back_Projections");
  EXPECT_EQ(m.PointScore[3], 1);
}

TEST_F(ScoredPoints, PointsAreSortedAscendingFromOne) {
  Choose("Compute_Back_Projections");
  EXPECT_EQ(m.SortCount, 3);
  EXPECT_EQ(m.SortIndex, (std::vector<std::int32_t>{0, 2, 3, 1}));
}

TEST_F(ScoredPoints, TickedImagesAreListed) {
  Choose("Compute_Back_Projections");
  EXPECT_EQ(m.MatchImageCount, 2);
  ASSERT_EQ(m.ImageSummary.size(), 2U);
  EXPECT_EQ(m.ImageSummary[1].ImageId, 102);
  EXPECT_EQ(m.ImageSummary[1].X0, 30);
  EXPECT_EQ(m.ImageSummary[1].SunElevation, 0.6);
}

TEST_F(ScoredPoints, EventsAreServicedAtTheStartAndForEachHotPoint) {
  std::vector<PointerShape> seen;
  screen.on_service = [&] { seen.push_back(w.Form1.MousePointer); };
  Choose("Compute_Back_Projections");
  // Of 1.386, 0 and 1 one is above 1.2.
  EXPECT_EQ(seen, (std::vector{PointerShape::Hourglass, PointerShape::Hourglass}));
  EXPECT_EQ(w.Form1.MousePointer, PointerShape::Normal);
  EXPECT_EQ(w.Form1.Label10.Caption,
            "3D-correlation computed and sorted, ready for tree top extraction");
}

TEST_F(ScoredPoints, FewerThanTwoTickedImagesAreAnIndexError) {
  for (const int ticked : {1, 0}) {
    w.Form1.Check1(2).Value = 0;
    w.Form1.Check1(0).Value = ticked;
    screen.errors.clear();
    Choose("Compute_Back_Projections");
    ASSERT_EQ(screen.errors.size(), 1U);
    EXPECT_NE(screen.errors[0].find("Subscript out of range"), std::string::npos);
    EXPECT_EQ(w.Form1.MousePointer, PointerShape::Normal);
  }
}

TEST_F(ScoredPoints, AFailedRunLeavesNoScoresOfAnEarlierRun) {
  Choose("Compute_Back_Projections");
  ASSERT_GT(m.PointScore[1], 1);
  w.Form1.Check1(2).Value = 0;
  Choose("Compute_Back_Projections");
  EXPECT_EQ(m.PointScore, (std::vector<float>{0, 0, 0, 0}));
}

TEST_F(ScoredPoints, AnEmptyMeshSortsToNothing) {
  m.MeshPoints.clear();
  w.Form1.Check1(2).Value = 0;
  Choose("Compute_Back_Projections");
  EXPECT_TRUE(screen.errors.empty());
  EXPECT_EQ(m.SortCount, 0);
}

TEST_F(ScoredPoints, AMissingColourMapEndsTheCommand) {
  std::filesystem::remove(files.site.Folder().Path() / "c/data/JetColorMAP.csv");
  Choose("Compute_Back_Projections");
  ASSERT_EQ(screen.errors.size(), 1U);
  EXPECT_NE(screen.errors[0].find("JetColorMAP.csv"), std::string::npos);
}

TEST_F(ScoredPoints, AMeshRebuiltByAnEventMeanwhileIsHarmless) {
  m.PatchSize = 21;
  bool done = false;
  screen.on_service = [&] {
    if (std::exchange(done, true)) return;
    Choose("Create_XYZ_Point_Set");
  };
  Choose("Compute_Back_Projections");
  EXPECT_TRUE(screen.errors.empty());
  EXPECT_EQ(m.PointScore.size(), m.MeshPoints.size() + 1);
  EXPECT_EQ(m.SortIndex.size(), m.PointScore.size());
}

}  // namespace
}  // namespace sylvomex
