// SPDX-License-Identifier: MIT
#include "commands/solver/point_intersection.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/failure_of.h"
#include "support/synthetic_block.h"

namespace sylvomex {
namespace {

const Point3D kTree{100, 0, 20};

// Two cameras 200 m apart, 980 m above the tree, which lies midway between them.
struct StereoPair : SyntheticBlock {
  StereoPair() {
    Add_Camera(0, 0, 1000);
    Add_Camera(200, 0, 1000);
    w.Solution3D = {99, 1, 22};
    w.options.IterationStopDX = w.options.IterationStopDY = w.options.IterationStopDZ = 1e-7;
  }
  // A y parallax of 2 p leaves residuals of p in both images: RMSE = sqrt(2) p with one degree of
  // freedom.
  void Observe_With_Parallax(double p) {
    Observe(0, kTree, p);
    Observe(1, kTree, -p);
  }
};

TEST(PointIntersection, ExactRaysMeetInTheirPoint) {
  StereoPair b;
  b.Observe_With_Parallax(0);
  Point_Intersection(b.w);
  EXPECT_NEAR(b.w.Solution3D.X, 100, 1e-6);
  EXPECT_NEAR(b.w.Solution3D.Y, 0, 1e-6);
  EXPECT_NEAR(b.w.Solution3D.Z, 20, 1e-6);
  EXPECT_TRUE(b.w.SolutionValid);
  EXPECT_TRUE(b.screen.messages.empty());
  EXPECT_TRUE(b.screen.beeps.empty());
  EXPECT_EQ(b.w.Form1.Label4(0).Caption, "100.000");
  EXPECT_EQ(b.w.Form1.Label4(2).Caption, "20.000");
  EXPECT_EQ(b.w.Form1.Label10.ForeColor, (Colour{10, 150, 20}));
}

TEST(PointIntersection, ExactDataStopsAfterAFewPassesWithTheStartLimits) {
  StereoPair b;
  b.w.options.IterationStopDX = b.w.options.IterationStopDY = b.w.options.IterationStopDZ = 0.03;
  b.Observe_With_Parallax(0);
  Point_Intersection(b.w);
  EXPECT_NEAR(b.w.Solution3D.Z, 20, 0.03);
  EXPECT_LE(b.screen.servicings, 4);  // after each pass except the last, and at the end
  EXPECT_TRUE(b.screen.beeps.empty());
}

TEST(PointIntersection, StatusLineGivesRmseAndDeviationsInMetres) {
  StereoPair b;
  const double p = 20e-6;
  b.Observe_With_Parallax(p);
  Point_Intersection(b.w);
  // RMSE 28.28 um. With h = 980, B = 200, c = 0.1: std X = std Y = RMSE h / (c sqrt 2) = 0.196,
  // std Z = RMSE sqrt 2 h h / (c B) = 1.92.
  EXPECT_EQ(b.w.Form1.Label10.Caption, "RMSE: 28.3 um STDs: .20 m, .20 m, 1.92 m");
  EXPECT_NEAR(b.w.Observation.Rmse, std::sqrt(2.0) * 20, 1e-3);
  EXPECT_TRUE(b.screen.beeps.empty());
}

TEST(PointIntersection, RmseBetweenTheLevelsIsRedWithTheFirstTone) {
  StereoPair b;
  b.Observe_With_Parallax(30e-6);  // 42.4 um
  Point_Intersection(b.w);
  EXPECT_EQ(b.w.Form1.Label10.ForeColor, (Colour{255, 50, 30}));
  ASSERT_EQ(b.screen.beeps.size(), 1U);
  EXPECT_EQ(b.screen.beeps[0], (std::pair{1000, 200}));
}

TEST(PointIntersection, RmseAboveTheSecondLevelSoundsTheDeepTone) {
  StereoPair b;
  b.Observe_With_Parallax(50e-6);  // 70.7 um
  b.w.options.RmseBeepTwoDuration = 350;
  Point_Intersection(b.w);
  ASSERT_EQ(b.screen.beeps.size(), 1U);
  EXPECT_EQ(b.screen.beeps[0], (std::pair{600, 350}));
}

TEST(PointIntersection, RmseAtTheLevelIsNeitherRedNorAudible) {
  StereoPair b;
  b.Observe_With_Parallax(30e-6);
  const FilmObservation rays[] = {
      {Make_Camera(b.w.ImageBlock(0), b.w.RotationTable(0)),
       {Parse_Double(b.w.Form1.Text1(0).Text), Parse_Double(b.w.Form1.Text1(1).Text)}},
      {Make_Camera(b.w.ImageBlock(1), b.w.RotationTable(1)),
       {Parse_Double(b.w.Form1.Text1(2).Text), Parse_Double(b.w.Form1.Text1(3).Text)}}};
  b.w.options.RmseBeepOneLevel =
      Intersect_Rays(rays, {99, 1, 22 - 0.03}, {1e-7, 1e-7, 1e-7, 100}).rmse_um;
  Point_Intersection(b.w);
  EXPECT_TRUE(b.screen.beeps.empty());
  EXPECT_EQ(b.w.Form1.Label10.ForeColor, (Colour{10, 150, 20}));
}

TEST(PointIntersection, RecordTakesPointImagesAndPixels) {
  StereoPair b;
  b.Add_Camera(0, 500, 1000);  // not ticked
  b.w.NextMeasurementNumber = 77;
  b.w.Observation.ImageSlots(5) = 9;
  b.w.Observation.ImageIds(5) = 9;
  b.w.Observation.Cols(5) = b.w.Observation.Rows(5) = 9;
  b.Observe_With_Parallax(0);
  Point_Intersection(b.w);
  const ObservationRecord& record = b.w.Observation;
  EXPECT_EQ(record.MeasurementNumber, 77);
  EXPECT_NEAR(record.X, 100, 1e-6);
  EXPECT_EQ(record.DemZ, -99);
  EXPECT_EQ(record.ImageCount, 2);
  EXPECT_EQ(record.ImageSlots(1), 1);
  EXPECT_EQ(record.ImageIds(0), 100);
  EXPECT_EQ(record.ImageIds(1), 101);
  // 100 m to the right at 980 m: film 0.1 x 100 / 980 m = 1020.408 pixels of 10 um.
  EXPECT_FLOAT_EQ(record.Cols(0), static_cast<float>(1000 + 1e5 * 10 / 980));
  EXPECT_FLOAT_EQ(record.Rows(0), 1000);
  EXPECT_EQ(record.ImageSlots(5), 0);
  EXPECT_EQ(record.ImageIds(5), 0);
  EXPECT_EQ(record.Cols(5), 0);
  EXPECT_EQ(record.Rows(5), 0);
}

TEST(PointIntersection, EveryImageGetsAGreenBlockTickedOrNot) {
  StereoPair b;
  b.Add_Camera(0, 500, 1000);
  for (int k = 0; k < 3; ++k) b.w.Form1.Picture1(k).DrawWidth = 5;
  b.Observe_With_Parallax(0);
  Point_Intersection(b.w);
  for (int k = 0; k < 3; ++k) {
    ASSERT_EQ(b.Marks(k).size(), 9U);
    const PanePosition at = b.Pane_Of(k, kTree);
    EXPECT_NEAR(b.Marks(k)[0].x1, at.px - 1, 1e-3);
    EXPECT_NEAR(b.Marks(k)[0].y1, at.py - 1, 1e-3);
    EXPECT_NEAR(b.Marks(k)[8].x1, at.px + 1, 1e-3);
    EXPECT_EQ(b.Marks(k)[4].colour, (Colour{0, 255, 0}));
    EXPECT_EQ(b.Marks(k)[4].width, 1);
  }
}

TEST(PointIntersection, OneTickedImageIsRejected) {
  StereoPair b;
  b.w.Observation.ImageCount = 3;
  b.Observe(1, kTree);
  Point_Intersection(b.w);
  ASSERT_EQ(b.screen.messages.size(), 1U);
  EXPECT_EQ(b.screen.messages[0], "At least two images are needed for stereo restitution!");
  EXPECT_EQ(b.w.Form1.Label10.Caption, "Could not compute ray intersection for < 2 images");
  EXPECT_EQ(b.w.Solution3D.X, 99);
  EXPECT_FALSE(b.w.SolutionValid);
  // The image list is already in the record, but not the number of images.
  EXPECT_EQ(b.w.Observation.ImageSlots(0), 1);
  EXPECT_EQ(b.w.Observation.ImageIds(0), 101);
  EXPECT_EQ(b.w.Observation.ImageCount, 3);
}

TEST(PointIntersection, NoImageAtAllIsRejected) {
  SyntheticBlock b;
  Point_Intersection(b.w);
  ASSERT_EQ(b.screen.messages.size(), 1U);
  EXPECT_EQ(b.w.Form1.Label10.Caption, "Could not compute ray intersection for < 2 images");
}

TEST(PointIntersection, ParallelRaysSetAZeroPointAndLeaveTheFlag) {
  SyntheticBlock b;
  b.Add_Camera(5, 7, 1000);
  b.Add_Camera(5, 7, 1000);
  b.w.Solution3D = {5, 7, 20};
  b.w.SolutionValid = true;
  b.w.DefaultPanCenter = {10.5, 9, 200};
  b.Observe_Film(0, 0, 0);
  b.Observe_Film(1, 0, 0);
  Point_Intersection(b.w);
  ASSERT_EQ(b.screen.messages.size(), 2U);
  EXPECT_EQ(b.screen.messages[0],
            "Iteration failed, determinant of Normal Matrix is too close to zero !");
  EXPECT_EQ(b.screen.messages[1], "An error occurred in sub Calculate_Space_intersection_Click() ");
  EXPECT_EQ(b.w.Form1.Label4(0).Caption, "10.5");
  EXPECT_EQ(b.w.Form1.Label4(1).Caption, "9");
  EXPECT_EQ(b.w.Form1.Label4(2).Caption, "200");
  EXPECT_EQ(b.w.Solution3D.X, 0);
  EXPECT_EQ(b.w.Solution3D.Z, 0);
  EXPECT_TRUE(b.w.SolutionValid);
  EXPECT_EQ(b.w.Form1.Label10.Caption, "Could not compute ray intersection");
  EXPECT_EQ(b.w.Form1.Label3.Caption,
            "No point to start from: choose \"Reset (X,Y,Z) - solution\", then again");
  EXPECT_TRUE(b.Marks(0).empty());
}

TEST(PointIntersection, SolutionChangesOnlyAtTheEnd) {
  StereoPair b;
  b.Observe_With_Parallax(0);
  b.screen.on_service = [&b] { EXPECT_EQ(b.w.Solution3D.X, 99); };
  Point_Intersection(b.w);
  EXPECT_GT(b.screen.servicings, 1);
  EXPECT_NEAR(b.w.Solution3D.X, 100, 1e-6);
}

TEST(PointIntersection, BoxesChangedBetweenPassesMoveTheSolution) {
  StereoPair b;
  b.Observe_With_Parallax(0);
  const Point3D other{104, -3, 25};
  b.screen.on_service = [&] {
    if (b.screen.servicings > 1) return;
    b.Observe(0, other);
    b.Observe(1, other);
  };
  Point_Intersection(b.w);
  EXPECT_NEAR(b.w.Solution3D.X, 104, 1e-6);
  EXPECT_NEAR(b.w.Solution3D.Y, -3, 1e-6);
  EXPECT_NEAR(b.w.Solution3D.Z, 25, 1e-6);
  // The record keeps the pixels of the last pass: 104 m to the right at 975 m.
  EXPECT_FLOAT_EQ(b.w.Observation.Cols(0), static_cast<float>(1000 + 1e4 * 104 / 975));
}

TEST(PointIntersection, BoxEmptiedBetweenPassesEndsTheCommand) {
  StereoPair b;
  b.Observe_With_Parallax(0);
  b.screen.on_service = [&] { b.w.Form1.Text1(2).Text.clear(); };
  try {
    Point_Intersection(b.w);
    FAIL() << "the emptied box was not read";
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Kind(), Failure::TypeMismatch);
  }
  EXPECT_EQ(b.screen.servicings, 1);
  EXPECT_EQ(b.w.Solution3D.X, 99);
  EXPECT_FALSE(b.w.SolutionValid);
}

TEST(PointIntersection, BoxEmptiedAfterTheHundredthPassIsNotRead) {
  StereoPair b;
  b.Observe_With_Parallax(0);
  b.w.options.IterationStopDX = 0;
  b.screen.on_service = [&] {
    if (b.screen.servicings == 100) b.w.Form1.Text1(2).Text.clear();
  };
  Point_Intersection(b.w);
  EXPECT_TRUE(b.w.SolutionValid);
}

TEST(PointIntersection, LimitsAppliedBetweenPassesCountAtTheNextTest) {
  StereoPair b;
  b.Observe_With_Parallax(0);
  b.w.options.IterationStopDX = 0;  // would run until the hundredth pass
  b.screen.on_service = [&] {
    b.w.options.IterationStopDX = b.w.options.IterationStopDY = b.w.options.IterationStopDZ = 1000;
  };
  Point_Intersection(b.w);
  EXPECT_EQ(b.screen.servicings, 2);  // after the first pass and at the end
  EXPECT_TRUE(b.w.SolutionValid);
}

TEST(PointIntersection, HundredPassesEndWithoutAMessage) {
  StereoPair b;
  b.Observe_With_Parallax(0);
  b.w.options.IterationStopDX = 0;  // a correction is never below 0: no convergence
  Point_Intersection(b.w);
  EXPECT_TRUE(b.screen.messages.empty());
  EXPECT_TRUE(b.w.SolutionValid);
  EXPECT_EQ(b.screen.servicings, 101);
  EXPECT_NEAR(b.w.Solution3D.Z, 20, 1e-6);
}

TEST(PointIntersection, NineImagesFillTheRecord) {
  SyntheticBlock b;
  for (int k = 0; k < 9; ++k) b.Add_Camera(100 * (k % 3), 100 * (k / 3), 1000);
  b.w.Solution3D = {90, 40, 10};
  for (int k = 0; k < 9; ++k) b.Observe(k, {100, 50, 20});
  Point_Intersection(b.w);
  EXPECT_EQ(b.w.Observation.ImageCount, 9);
  EXPECT_EQ(b.w.Observation.ImageIds(8), 108);
  EXPECT_NEAR(b.w.Solution3D.Y, 50, 1e-3);
}

TEST(PointIntersection, NonNumericTextEndsTheCommand) {
  for (const char* text : {"abc", ""}) {
    StereoPair b;
    b.Observe_With_Parallax(0);
    b.w.Form1.Text1(2).Text = text;
    try {
      Point_Intersection(b.w);
      FAIL() << "no failure for \"" << text << "\"";
    } catch (const RunTimeError& error) {
      EXPECT_EQ(error.Kind(), Failure::TypeMismatch);
    }
    EXPECT_EQ(b.w.Solution3D.X, 99);
  }
}

TEST(PointIntersection, NonNumericTextNamesItsBoxAndImage) {
  const auto failure = [](int box, const char* text) {
    StereoPair b;
    b.Observe_With_Parallax(0);
    b.w.Form1.Text1(box).Text = text;
    return Failure_Of([&b] { Point_Intersection(b.w); });
  };
  EXPECT_EQ(failure(2, "abc"), "Type mismatch: Text1(2) of image 1: \"abc\" is not a number");
  EXPECT_EQ(failure(1, ""), "Type mismatch: Text1(1) of image 0: an empty text is not a number");
  EXPECT_EQ(failure(3, "1e999"), "Overflow: Text1(3) of image 1: \"1e999\" is too large");
}

TEST(PointIntersection, RaysWithoutAFinitePointLeaveTheSolution) {
  StereoPair b;
  b.Observe_With_Parallax(0);
  b.w.Solution3D.Z = 1000 + 0.03;  // the approximation lies at the cameras' height
  EXPECT_THROW(Point_Intersection(b.w), RunTimeError);
  EXPECT_FALSE(b.w.SolutionValid);
  EXPECT_EQ(b.w.Solution3D.X, 99);
}

TEST(SinglePhotoIntersection, IntersectsTheRayWithTheGivenHeight) {
  StereoPair b;
  b.w.CurrentImage = 1;
  b.w.NextMeasurementNumber = 12;
  b.w.Observation.ImageCount = 3;
  b.w.Observation.ImageIds(2) = 55;
  b.Observe(1, {130, -40, 20});
  b.screen.inputs = {"20"};
  Single_Photo_intersection(b.w);
  ASSERT_EQ(b.screen.input_boxes.size(), 1U);
  EXPECT_EQ(b.screen.input_boxes[0].prompt,
            "Using image n:o1. Give elevation Z in meters, will solve X&Y!");
  EXPECT_NEAR(b.w.Solution3D.X, 130, 1e-9);
  EXPECT_NEAR(b.w.Solution3D.Y, -40, 1e-9);
  EXPECT_EQ(b.w.Solution3D.Z, 20);
  EXPECT_TRUE(b.w.SolutionValid);
  EXPECT_EQ(b.w.Form1.Label4(0).Caption, "130.00");
  EXPECT_EQ(b.w.Form1.Label4(1).Caption, "-40.00");
  EXPECT_EQ(b.w.Observation.MeasurementNumber, 12);
  EXPECT_NEAR(b.w.Observation.X, 130, 1e-9);
  // The lists of the last intersection stay.
  EXPECT_EQ(b.w.Observation.ImageCount, 3);
  EXPECT_EQ(b.w.Observation.ImageIds(2), 55);
}

TEST(SinglePhotoIntersection, EveryFailureChangesNothing) {
  const char* message = "An error occurred in trying to solve X,Y from given Z,x,y!";
  struct Case {
    int current_image;
    const char* film_x;
    std::optional<std::string> answer;
  };
  for (const Case& c :
       {Case{-1, "0", "20"}, Case{0, "0", "abc"}, Case{0, "0", std::nullopt}, Case{0, "", "20"}}) {
    StereoPair b;
    b.w.CurrentImage = static_cast<std::int16_t>(c.current_image);
    b.w.Form1.Text1(0).Text = c.film_x;
    b.w.Form1.Text1(1).Text = "0";
    b.screen.inputs = {c.answer};
    Single_Photo_intersection(b.w);
    ASSERT_EQ(b.screen.messages, std::vector<std::string>{message});
    EXPECT_EQ(b.w.Solution3D.X, 99);
    EXPECT_FALSE(b.w.SolutionValid);
  }
}

}  // namespace
}  // namespace sylvomex
