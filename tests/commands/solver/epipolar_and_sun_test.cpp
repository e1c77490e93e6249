// SPDX-License-Identifier: MIT
#include "commands/solver/epipolar_and_sun.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "support/synthetic_block.h"

namespace sylvomex {
namespace {

constexpr double kDegree = std::numbers::pi / 180;
constexpr Colour kCyanDot{0, 255, 255};
constexpr Colour kGreenDot{0, 255, 0};
constexpr Colour kRedDot{255, 0, 0};

struct PointedPair : SyntheticBlock {
  PointedPair() {
    Add_Camera(0, 0, 1000);
    Add_Camera(200, 0, 1000);
    w.Solution3D = {100, 0, 20};
    w.SolutionValid = true;
    w.CurrentImage = 0;
    Observe(0, w.Solution3D);
  }
};

TEST(EpipolarLine, FiveMetresInTenthsAre101DotsInEachImage) {
  PointedPair b;
  b.w.Form1.Picture1(1).DrawWidth = 4;
  Epipolar_line(b.w);
  for (int k = 0; k < 2; ++k) {
    ASSERT_EQ(b.Marks(k).size(), 101U);
    EXPECT_EQ(b.Marks(k)[50].colour, kCyanDot);
    EXPECT_EQ(b.Marks(k)[50].width, 1);
  }
  // Relative to its camera, the ray of image 0 is at X = 100 / 980 x the depth below the camera.
  for (const int step : {0, 50, 100}) {
    const double Z = 15 + 0.1 * step;
    const PanePosition at = b.Pane_Of(1, {100.0 / 980 * (1000 - Z), 0, Z});
    EXPECT_NEAR(b.Marks(1)[static_cast<std::size_t>(step)].x1, at.px, 1e-6);
    EXPECT_NEAR(b.Marks(1)[static_cast<std::size_t>(step)].y1, at.py, 1e-6);
  }
}

TEST(EpipolarLine, InThePointedImageItIsOnePosition) {
  PointedPair b;
  Draw_Epipolar_Line(b.w);
  for (const Mark& mark : b.Marks(0)) EXPECT_NEAR(mark.x1, b.Marks(0)[0].x1, 1e-6);
}

TEST(EpipolarLine, DepthDeterminesTheNumberOfDots) {
  struct Case {
    double depth;
    std::size_t dots;
  };
  for (const Case& c :
       {Case{0, 1}, Case{0.05, 2}, Case{5.04, 101}, Case{5.05, 102}, Case{10, 201}, Case{-1, 0}}) {
    PointedPair b;
    b.w.options.EpipolarZDepth = c.depth;
    Draw_Epipolar_Line(b.w);
    EXPECT_EQ(b.Marks(1).size(), c.dots) << c.depth;
  }
}

TEST(EpipolarLine, AnAbsurdDepthIsAClearError) {
  PointedPair b;
  b.w.options.EpipolarZDepth = 1e12;
  EXPECT_THROW(Draw_Epipolar_Line(b.w), RunTimeError);
  EXPECT_TRUE(b.Marks(0).empty());
}

TEST(EpipolarLine, ACorrelationImageIsGreenByItsOwnView) {
  PointedPair b;
  b.w.ImageKinds(1) = 2;
  b.w.CorrelationRecords(1) = b.w.ImageBlock(1);
  b.w.CorrelationRecords(1).SubColOrigin = 100;
  b.w.CorrelationRecords(1).SubRowOrigin = 1500;  // counted from the bottom
  b.w.CorrelationPaneViews(1) = {10, 20, 200, 200, 2, 2};
  Draw_Epipolar_Line(b.w);
  ASSERT_EQ(b.Marks(1).size(), 101U);
  EXPECT_EQ(b.Marks(1)[50].colour, kGreenDot);
  EXPECT_EQ(b.Marks(0)[50].colour, kCyanDot);
  const double col = b.Pane_Of(1, b.w.Solution3D).px;
  EXPECT_NEAR(b.Marks(1)[50].x1, (col - 110) * 2, 1e-6);
  EXPECT_NEAR(b.Marks(1)[50].y1, (1500 - 20 - 1000) * 2, 1e-6);
}

TEST(EpipolarLine, AfterStartUpOnlyTheStatusIsSet) {
  SyntheticBlock b;
  Draw_Epipolar_Line(b.w);
  EXPECT_EQ(b.w.Form1.Label10.Caption,
            "Cannot draw epipolar line, either solution is lacking or LastImageClicked = -1");
  EXPECT_TRUE(b.screen.messages.empty());
}

TEST(EpipolarLine, WithoutASolutionNothingIsDrawn) {
  PointedPair b;
  b.w.SolutionValid = false;
  Draw_Epipolar_Line(b.w);
  EXPECT_FALSE(b.w.Form1.Label10.Caption.empty());
  EXPECT_TRUE(b.Marks(0).empty());
}

TEST(EpipolarLine, AnEmptyBoxIsATypeMismatch) {
  PointedPair b;
  b.w.Form1.Text1(1).Text.clear();
  try {
    Draw_Epipolar_Line(b.w);
    FAIL();
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Kind(), Failure::TypeMismatch);
  }
}

TEST(SunRay, WithoutASolutionItReportsSo) {
  PointedPair b;
  b.w.SolutionValid = false;
  Cast_sun_ray(b.w);
  EXPECT_EQ(b.screen.messages, std::vector<std::string>{"Solution lacking!"});
  EXPECT_TRUE(b.Marks(0).empty());
}

TEST(SunRay, IsAMetreScaleTowardsEachImagesOwnSun) {
  PointedPair b;
  b.w.ImageBlock(0).SunElevation = 30 * kDegree;
  b.w.ImageBlock(0).SunAzimuth = 90 * kDegree;  // east: X grows by cos 30 per metre, Z by 0.5
  b.w.ImageBlock(1).SunElevation = 90 * kDegree;
  Cast_sun_ray(b.w);
  ASSERT_EQ(b.Marks(0).size(), 2U + 61 * 9);
  const auto middle = [&b](int k, int t) {
    return b.Marks(k)[static_cast<std::size_t>(2 + (t + 30) * 9 + 4)];
  };
  for (const int t : {-30, 0, 7, 30}) {
    const PanePosition at = b.Pane_Of(0, {100 + t * std::cos(30 * kDegree), 0, 20 + t * 0.5});
    EXPECT_NEAR(middle(0, t).x1, at.px, 1e-6) << t;
    EXPECT_NEAR(middle(0, t).y1, at.py, 1e-6) << t;
    EXPECT_NEAR(middle(1, t).x1, b.Pane_Of(1, {100, 0, 20.0 + t}).px, 1e-6) << t;
  }
  EXPECT_EQ(middle(0, -30).colour, kRedDot);
  EXPECT_EQ(middle(0, -29).colour, kGreenDot);
  EXPECT_EQ(middle(0, 0).colour, kRedDot);
  EXPECT_EQ(middle(0, 7).colour, kGreenDot);
}

TEST(SunRay, PrintsTheSunAnglesInTheCorner) {
  PointedPair b;
  b.w.ImageBlock(0).SunElevation = 41.26 * kDegree;
  b.w.ImageBlock(0).SunAzimuth = 0.5 * kDegree;
  b.w.Form1.Picture1(0).font.size = 20;
  Cast_sun_ray(b.w);
  const Picture& pane = b.w.Form1.Picture1(0);
  ASSERT_EQ(pane.texts.size(), 2U);
  EXPECT_EQ(pane.texts[0].text, "Elev: 41.3");
  EXPECT_EQ(pane.texts[1].text, "Azim: 0.5");
  EXPECT_EQ(pane.texts[0].font.size, 8);
  EXPECT_EQ(pane.marks[0].x1, 1);
  EXPECT_EQ(pane.marks[0].y1, 1);
  EXPECT_EQ(pane.marks[1].x1, 1);
  EXPECT_GT(pane.marks[1].y1, 1);
}

TEST(Angles, WithoutASolutionThereIsNoFile) {
  PointedPair b;
  b.w.SolutionValid = false;
  Get_angles(b.w);
  EXPECT_FALSE(b.folder.Has("c/data/sun.txt"));
}

TEST(Angles, OneLinePerImageReplacesTheOldFile) {
  SyntheticBlock b;
  b.folder.Write("c/data/SUN.TXT", std::string(500, 'x'));
  b.Add_Camera(0, 0, 1000);
  b.Add_Camera(0, 200, 1000);
  b.w.Solution3D = {0, 100, 0};
  b.w.SolutionValid = true;
  for (int k = 0; k < 2; ++k) {
    b.w.ImageBlock(k).SunAzimuth = 150 * kDegree;
    b.w.ImageBlock(k).SunElevation = 40 * kDegree;
  }
  Get_angles(b.w);
  // The first ray points north: azimuth 0, angle 90; the sun's angle is -60. Difference -150. The
  // second points south: azimuth 180, angle -90, difference 30. Both are atan(0.1) off nadir.
  EXPECT_EQ(b.folder.Read("c/data/SUN.TXT"),
            "150.0\t40.0\t.0\t-150.0\tF\t5.7\n"
            "150.0\t40.0\t180.0\t30.0\tB\t5.7\n");
}

}  // namespace
}  // namespace sylvomex
