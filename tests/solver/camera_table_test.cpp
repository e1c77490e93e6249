// SPDX-License-Identifier: MIT
#include "solver/camera_table.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "platform/run_time_error.h"
#include "solver/point_in_image.h"

namespace sylvomex {
namespace {

CameraTableReader Table_Of(const std::string& text) {
  return {text, FilePath{"c:\\data\\cam.csv", "/native/cam.csv"}};
}

std::string Failure_Of(const std::string& text) {
  try {
    CameraTableReader table = Table_Of(text);
    while (table.Next()) {
    }
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Native_Path(), "/native/cam.csv");
    return error.what();
  }
  return "no failure";
}

// A camera 1000 m above the origin, looking straight down.
TableCamera Vertical(double c) {
  TableCamera camera;
  camera.c = c;
  camera.Z0 = 1000;
  return camera;
}

TEST(CameraTable, ReadsTwelveItemsWithBlanksInTheTexts) {
  CameraTableReader table = Table_Of(
      "7,any thing,0.2,0.1,-0.2,3,1000.5,2000,3000, strip 2 ,c:\\my data\\a b.hdr,Photo A\r\n"
      "\r\n8,,0.1,0,0,0,1,2,3,x,\"c:\\a,b.hdr\",y,,\n");
  const auto first = table.Next();
  ASSERT_TRUE(first);
  EXPECT_EQ(first->identity, 7);
  EXPECT_EQ(first->c, 0.2);
  EXPECT_EQ(first->omega, 0.1);
  EXPECT_EQ(first->phi, -0.2);
  EXPECT_EQ(first->kappa, 3);
  EXPECT_EQ(first->X0, 1000.5);
  EXPECT_EQ(first->Y0, 2000);
  EXPECT_EQ(first->Z0, 3000);
  EXPECT_EQ(first->name_end, "strip 2");
  EXPECT_EQ(first->header, "c:\\my data\\a b.hdr");
  EXPECT_EQ(first->name_start, "Photo A");
  EXPECT_EQ(Point_In_Image_Name(*first), "Photo A_strip 2.txt");
  const auto second = table.Next();
  ASSERT_TRUE(second);
  EXPECT_EQ(second->identity, 8);
  EXPECT_EQ(second->header, "c:\\a,b.hdr");
  EXPECT_EQ(second->name_start, "y");
  EXPECT_FALSE(table.Next());
}

TEST(CameraTable, ALineWithFewerItemsIsNamedAndReadsNothingFromTheNextLine) {
  EXPECT_EQ(Failure_Of("\n1,x,0.2,0,0,0,1,2,3,a,b.hdr\n2,x,0.2,0,0,0,1,2,3,a,b.hdr,c\n"),
            "Bad content: c:\\data\\cam.csv, line 2, item 12: the line ends here, 12 items are "
            "wanted");
  EXPECT_EQ(Failure_Of("1\n2,3\n"),
            "Bad content: c:\\data\\cam.csv, line 1, item 2: the line ends here, 12 items are "
            "wanted");
}

TEST(CameraTable, AnEmptyPartOfAFileNameIsNamedByItsItem) {
  EXPECT_EQ(Failure_Of("1,x,0.2,0,0,0,1,2,3,,b.hdr,c\n"),
            "Bad content: c:\\data\\cam.csv, line 1, item 10: an empty text names no file");
  EXPECT_EQ(Failure_Of("1,x,0.2,0,0,0,1,2,3,a,\"\",c\n"),
            "Bad content: c:\\data\\cam.csv, line 1, item 11: an empty text names no file");
  EXPECT_EQ(Failure_Of("1,x,0.2,0,0,0,1,2,3,a,b.hdr,,\n"),
            "Bad content: c:\\data\\cam.csv, line 1, item 12: an empty text names no file");
  EXPECT_EQ(Failure_Of("1,x,0.2,0,0,0,1,2,3,a,b.hdr,\n"),
            "Bad content: c:\\data\\cam.csv, line 1, item 12: the line ends here, 12 items are "
            "wanted");
}

std::string Failure_Of_Names(const std::string& start, const std::string& end) {
  return Failure_Of("1,x,0.2,0,0,0,1,2,3,a,b.hdr,c\n1,x,0.2,0,0,0,1,2,3," + end + ",b.hdr," +
                    start + "\n");
}

TEST(CameraTable, ANameThatLeadsOutOfItsFolderIsRefusedByLineAndItem) {
  const std::string place = "Bad content: c:\\data\\cam.csv, line 2, item ";
  const std::string reason = " leads out of the folder of the point-in-image files";
  for (const std::string end : {"/../../x", "\\..\\..\\x", "x/y/../../../z", "x\\../..\\z/../.."}) {
    EXPECT_EQ(Failure_Of_Names("photo", end), place + "10: \"" + end + "\"" + reason);
  }
  for (const std::string start : {"/../x", "..\\x", "../../x", "/x", "\\x", "c:\\x", "d:x"}) {
    EXPECT_EQ(Failure_Of_Names(start, "s 1"), place + "12: \"" + start + "\"" + reason);
  }
}

TEST(CameraTable, NamesWithDotsAndFoldersThatStayBelowAreTaken) {
  for (const std::string end : {"..", "a..b", ".x", "x/y", "x/../y", "12:30", "/x", "/../x"}) {
    EXPECT_EQ(Failure_Of_Names("a", end), "no failure") << end;
  }
  EXPECT_EQ(Failure_Of_Names("..", "s 1"), "no failure");  // ".._s 1.txt" is a plain name
  EXPECT_EQ(Failure_Of_Names("strip 7\\photo", "s 1"), "no failure");
}

TEST(CameraTable, ALineWithMoreItemsIsNamed) {
  EXPECT_EQ(Failure_Of("1,x,0.2,0,0,0,1,2,3,a,b.hdr,c,d\n"),
            "Bad content: c:\\data\\cam.csv, line 1, item 13: 12 items are wanted on a line");
}

TEST(CameraTable, ATextInPlaceOfANumberIsNamed) {
  EXPECT_EQ(Failure_Of("1,x,0.2,0,0,0,1,2,3,a,b,c\n1,x,wide,0,0,0,1,2,3,a,b,c\n"),
            "Type mismatch: c:\\data\\cam.csv, line 2, item 3: \"wide\" is not a number");
}

TEST(SeesPoint, FrameFollowsTheCameraConstantAndItsEdgeIsOutside) {
  // Straight down, film x = c X / 1000: X is the limit x 1000 / c on the edge.
  struct Case {
    double c, x, y;
  };
  for (const Case& frame :
       {Case{0.2045, 0.09, 0.09}, Case{0.105, 0.05175, 0.03375}, Case{0.15, 0.115, 0.115},
        Case{0.204, 0.115, 0.115}, Case{0.205, 0.115, 0.115}, Case{0.104, 0.115, 0.115},
        Case{0.106, 0.115, 0.115}}) {
    const TableCamera camera = Vertical(frame.c);
    const double X = 1000 * frame.x / frame.c, Y = 1000 * frame.y / frame.c;
    for (const double sign : {-1.0, 1.0}) {
      EXPECT_TRUE(Sees_Point(camera, {sign * 0.9999 * X, 0, 0})) << frame.c;
      EXPECT_FALSE(Sees_Point(camera, {sign * 1.0001 * X, 0, 0})) << frame.c;
      EXPECT_TRUE(Sees_Point(camera, {0, sign * 0.9999 * Y, 0})) << frame.c;
      EXPECT_FALSE(Sees_Point(camera, {0, sign * 1.0001 * Y, 0})) << frame.c;
    }
  }
}

TEST(SeesPoint, AConstantOfTwoTenthsGetsTheWideLimits) {
  EXPECT_TRUE(Sees_Point(Vertical(0.2), {570, 570, 0}));  // film 0.114
  EXPECT_FALSE(Sees_Point(Vertical(0.2), {580, 0, 0}));   // film 0.116
}

TEST(SeesPoint, AnglesRotateTheCameraAsTheCameraModelDoes) {
  // Rotated by phi about Y and by kappa: the camera model's own projection decides.
  TableCamera camera = Vertical(0.105);
  camera.omega = 0.1;
  camera.phi = -0.3;
  camera.kappa = 1.2;
  camera.X0 = 500;
  Camera model;
  model.c = camera.c;
  model.centre = {500, 0, 1000};
  model.m = Build_Rotation_Matrix(camera.omega, camera.phi, camera.kappa);
  int seen = 0;
  for (int X = -500; X <= 1500; X += 50) {
    for (int Y = -1000; Y <= 1000; Y += 50) {
      const Point3D point{static_cast<double>(X), static_cast<double>(Y), 20};
      const auto [x, y] = Film_Of_Point(model, point);
      const bool expected = std::abs(x) < 0.05175 && std::abs(y) < 0.03375;
      EXPECT_EQ(Sees_Point(camera, point), expected) << X << " " << Y;
      seen += expected ? 1 : 0;
    }
  }
  EXPECT_GT(seen, 100);
}

TEST(SeesPoint, APointLevelWithTheProjectionCentreIsNotSeen) {
  EXPECT_FALSE(Sees_Point(Vertical(0.2), {0, 0, 1000}));
  EXPECT_FALSE(Sees_Point(Vertical(0.2), {5, 5, 1000}));
}

TEST(RingAround, Has21PointsAtSteps) {
  const std::vector<Point3D> ring = Ring_Around({10, 20, 30});
  ASSERT_EQ(ring.size(), 21U);  // -pi + 20 x 0.3 = 2.858, the next would pass pi
  for (std::size_t i = 0; i < ring.size(); ++i) {
    const double a = -std::numbers::pi + 0.3 * static_cast<double>(i);
    EXPECT_NEAR(ring[i].X, 10 + 0.095 * std::cos(a), 1e-12);
    EXPECT_NEAR(ring[i].Y, 20 + 0.095 * std::sin(a), 1e-12);
    EXPECT_EQ(ring[i].Z, 30);
  }
}

TEST(SeesRing, OnlyConstantsBetweenSixAndEightMillimetresAreTested) {
  for (const double c : {0.006, 0.008, 0.2, 0.0059})
    EXPECT_FALSE(Sees_Ring(Vertical(c), {0, 0, 0}));
  EXPECT_TRUE(Sees_Ring(Vertical(0.00601), {0, 0, 0}));
  EXPECT_TRUE(Sees_Ring(Vertical(0.00799), {0, 0, 0}));
}

TEST(SeesRing, EveryPointOfTheRingMustFallInside) {
  // 10 m below a camera of c = 0.007 a film x of 0.002692 lies 3.8457 m off.
  TableCamera camera = Vertical(0.007);
  camera.Z0 = 10;
  EXPECT_TRUE(Sees_Ring(camera, {3.74, 0, 0}));
  EXPECT_FALSE(Sees_Ring(camera, {3.80, 0, 0}));  // its centre would fall inside
  EXPECT_TRUE(Sees_Ring(camera, {-3.74, 0, 0}));
  EXPECT_FALSE(Sees_Ring(camera, {-3.80, 0, 0}));
  // y reaches 5.1271 m.
  EXPECT_TRUE(Sees_Ring(camera, {0, 5.02, 0}));
  EXPECT_FALSE(Sees_Ring(camera, {0, 5.08, 0}));
}

TEST(PointInImage, LineHasFifteenDigitsAndReadsBack) {
  TableCamera camera;
  camera.identity = 4020;
  camera.header = "c:\\my data\\a.hdr";
  const Point3D point{2515000.123456789, -0.1, 180};
  const std::string line = Point_In_Image_Line(camera, point);
  EXPECT_EQ(line, "4020,c:\\my data\\a.hdr,2515000.12345679,-0.1,180\n");
  ListReader list(line, "c:\\data\\x.txt");
  const PointInImage hit = Read_Point_In_Image(list);
  EXPECT_EQ(hit.identity, 4020);
  EXPECT_EQ(hit.header, camera.header);
  EXPECT_NEAR(hit.point.X, point.X, 1e-8);
  EXPECT_EQ(hit.point.Y, point.Y);
  EXPECT_EQ(hit.point.Z, point.Z);
}

TEST(PointInImage, PathsWithCommasQuotesAndBlanksReadBack) {
  for (const char* header : {"c:\\a,b\\\"c\".hdr", " x ", "", "a b"}) {
    TableCamera camera;
    camera.header = header;
    ListReader list(Point_In_Image_Line(camera, {1, 2, 3}), "c:\\data\\x.txt");
    const PointInImage hit = Read_Point_In_Image(list);
    EXPECT_EQ(hit.header, header);
    EXPECT_EQ(hit.point.X, 1);
  }
}

TEST(PointInImage, TruncatedLinesAndIdentitiesBeyond16BitsAreErrors) {
  for (const char* text :
       {"", "1,a.hdr,1,2", "1,a.hdr,1,2,z", "one,a.hdr,1,2,3", "40000,a,1,2,3"}) {
    ListReader list(text, "c:\\data\\x.txt");
    EXPECT_THROW(Read_Point_In_Image(list), RunTimeError) << text;
  }
}

}  // namespace
}  // namespace sylvomex
