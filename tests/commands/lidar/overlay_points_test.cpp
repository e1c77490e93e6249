// SPDX-License-Identifier: MIT
#include "panes/overlay_points.h"

#include <gtest/gtest.h>

#include <bit>
#include <random>

#include "panes/pane_drawing.h"
#include "state/camera_access.h"
#include "support/synthetic_block.h"

namespace sylvomex {
namespace {

struct OverlayPoints : SyntheticBlock, testing::Test {
  std::mt19937 random{5};
  std::vector<OverlayPoint> points;

  double Within(double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random);
  }

  void Add_Tilted_Camera() {
    const int k = Add_Camera(2516400 + Within(-500, 500), 6857000 + Within(-500, 500), 1500);
    ImageRecord& image = w.ImageBlock(k);
    image.Omega = Within(-0.1, 0.1);
    image.Phi = Within(-0.1, 0.1);
    image.Kappa = Within(-3, 3);
    image.AffineA2 = Within(-100, 100);
    image.AffineB1 = Within(-100, 100);
    image.SubColOrigin = Within(0, 300);
    image.SubRowOrigin = Within(0, 300);
    Build_Rotation_Matrix(w, k);
    w.PaneViews(k) = {static_cast<std::int16_t>(k * 37), 411, 600, 600, 0.1 * (k + 1), 1.0 / 3};
  }

  void Add_Points(int count) {
    for (int i = 0; i < count; ++i) {
      points.push_back({{2516400 + Within(0, 100), 6857000 + Within(0, 100), Within(100, 200)},
                        {static_cast<std::uint8_t>(i), 2, 3}});
    }
  }

  void Expect_The_Plain_Places() {
    for (int k = 0; k < w.ImageCount; ++k) {
      ASSERT_EQ(Marks(k).size(), points.size());
      for (std::size_t i = 0; i < points.size(); ++i) {
        const OverlayPoint& p = points[i];
        const PanePosition at = Overlay_Of_Point(w, k, p.at);
        const Mark& mark = Marks(k)[i];
        ASSERT_EQ(std::bit_cast<std::uint64_t>(mark.x1), std::bit_cast<std::uint64_t>(at.px));
        ASSERT_EQ(std::bit_cast<std::uint64_t>(mark.y1), std::bit_cast<std::uint64_t>(at.py));
        EXPECT_EQ(mark.colour, p.colour);
      }
    }
  }
};

TEST_F(OverlayPoints, MatchThePlainProjectionToTheBit) {
  for (int k = 0; k < 5; ++k) Add_Tilted_Camera();
  Add_Points(2000);
  Plot_Overlay_Points(w, points);
  Expect_The_Plain_Places();
}

TEST_F(OverlayPoints, MatchItOnACorrelationPaneToo) {
  for (int k = 0; k < 2; ++k) Add_Tilted_Camera();
  w.ImageKinds(1) = 2;
  w.CorrelationRecords(1).SubColOrigin = 411.7;
  w.CorrelationRecords(1).SubRowOrigin = 1812.3;
  w.CorrelationPaneViews(1) = {12, 34, 600, 600, 0.7, 0.9};
  Add_Points(500);
  Plot_Overlay_Points(w, points);
  Expect_The_Plain_Places();
}

TEST_F(OverlayPoints, PointsWithoutAFilmPositionAreWhereTheCameraModelPutsThem) {
  const int level = Add_Camera(0, 0, 1000);
  const int without_c = Add_Camera(0, 0, 1000);
  w.ImageBlock(without_c).PrincipalDistance = 0;
  points = {{5, 5, 1000, {}}, {5, 5, 900, {}}};  // the first lies in the plane of the camera
  Plot_Overlay_Points(w, points);
  Expect_The_Plain_Places();
  EXPECT_EQ(Marks(level)[0].x1, 1000 - 100000 - 1);  // film x = -1
}

TEST_F(OverlayPoints, FollowTheExistingMarks) {
  Add_Camera(0, 0, 1000);
  Plot_Point(w.Form1.Picture1(0), 1, 2, kRed);
  w.Form1.Picture1(0).DrawWidth = 7;
  Plot_Overlay_Points(w, std::vector<OverlayPoint>{{{0, 0, 0}, kGreen}});
  ASSERT_EQ(Marks(0).size(), 2U);
  EXPECT_EQ(Marks(0)[0].colour, kRed);
  EXPECT_EQ(Marks(0)[1].width, 7);
}

}  // namespace
}  // namespace sylvomex
