// SPDX-License-Identifier: MIT
// Each format's projections against its own definition, written out anew here.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <sstream>

#include "interchange/failures.h"
#include "interchange/orientation_table.h"
#include "interchange/photo_header.h"
#include "solver/camera_model.h"
#include "support/photo_site.h"

namespace sylvomex {
namespace {

constexpr double kPixels = 1e-6;

using Matrix3 = std::array<std::array<double, 3>, 3>;

/// The photographs' points by the table that was read, through the header that is written.
void Expect_Pixels(const OrientationTable& table, std::size_t photo, const Point3D& point,
                   const std::array<double, 2>& expected) {
  const OrientedPhoto oriented = Understood(table.photos[photo], table.stated);
  const auto pixel = Ideal_Pixel(oriented, point);
  ASSERT_TRUE(pixel.has_value());
  EXPECT_NEAR(pixel->col, expected[0], kPixels);
  EXPECT_NEAR(pixel->row, expected[1], kPixels);
  const ImageRecord header =
      Header_Of(oriented, {0, 0, oriented.width, oriented.height}, 1, false, 0, 0);
  const PixelPosition at = Object_To_Pixel(Make_Camera(header), point);
  EXPECT_NEAR(at.col + 0.5, expected[0], kPixels);
  EXPECT_NEAR(oriented.height - 0.5 - at.row, expected[1], kPixels);
}

std::string Exact(double value) {
  std::ostringstream text;
  text.precision(17);
  text << value;
  return text.str();
}

/// A camera with x right, y down, z along the view that sees what the photograph sees.
Matrix3 Down_Matrix(const TablePhoto& photo) {
  Matrix3 m = photo.Matrix();
  for (std::size_t j = 0; j < 3; ++j) {
    m[1][j] = -m[1][j];
    m[2][j] = -m[2][j];
  }
  return m;
}

std::array<double, 3> Times(const Matrix3& m, const Point3D& p) {
  std::array<double, 3> out{};
  for (std::size_t i = 0; i < 3; ++i) out[i] = m[i][0] * p.X + m[i][1] * p.Y + m[i][2] * p.Z;
  return out;
}

std::array<double, 4> Quaternion_Of(const Matrix3& m) {
  // Shepperd's method with the largest diagonal term.
  const double trace = m[0][0] + m[1][1] + m[2][2];
  std::array<double, 4> q{1 + trace, 1 + m[0][0] - m[1][1] - m[2][2],
                          1 - m[0][0] + m[1][1] - m[2][2], 1 - m[0][0] - m[1][1] + m[2][2]};
  for (double& value : q) value = 0.5 * std::sqrt(std::max(0.0, value));
  q[1] = std::copysign(q[1], m[2][1] - m[1][2]);
  q[2] = std::copysign(q[2], m[0][2] - m[2][0]);
  q[3] = std::copysign(q[3], m[1][0] - m[0][1]);
  return q;
}

TEST(PlainTable, FollowsItsFormula) {
  const auto photos = Sample_Photos();
  const auto table = Parse_Orientation_Table({Plain_Table(photos), "t.csv"}, {}, "");
  EXPECT_EQ(table.format, TableFormat::Plain);
  for (std::size_t i = 0; i < photos.size(); ++i) {
    for (const Point3D& point : Sample_Points()) {
      Expect_Pixels(table, i, point, photos[i].Pixel(point));
    }
  }
}

TEST(PlainTable, FindsColumnsByNameInAnyOrder) {
  const auto table = Parse_Orientation_Table(
      {"utc,Z0,Y0,X0,kappa,phi,omega,y0_mm,x0_mm,pixel_mm,f_mm,height,width,name,p2,k1\n"
       "2024-06-01T10:00:00Z,300,2,1,30,20,10,0.2,0.1,0.01,100,50,60,a.tif,0.5,0.25\n",
       "t.csv"},
      {}, "");
  const PhotoGiven& photo = table.photos.at(0);
  EXPECT_EQ(photo.name, "a.tif");
  EXPECT_EQ(photo.camera.width, 60);
  EXPECT_EQ(photo.camera.height, 50);
  EXPECT_DOUBLE_EQ(photo.camera.pp_x, 10);
  EXPECT_DOUBLE_EQ(photo.camera.pp_y, 20);
  EXPECT_EQ(photo.camera.lens, (BrownLens{0.25, 0, 0, 0, 0.5}));
  EXPECT_EQ(photo.numbers[2], 30);
  EXPECT_EQ(photo.position.Z, 300);
  EXPECT_EQ(photo.utc, "2024-06-01T10:00:00Z");
}

TEST(AngleTable, FollowsItsFormulaWithCalibrationXml) {
  const auto photos = Sample_Photos();
  std::string text = "# Cameras (3)\n# PhotoID, X, Y, Z, Omega, Phi, Kappa, r11, r12\n";
  for (const TablePhoto& p : photos) {
    text += p.name + ".JPG\t" + Exact(p.centre.X) + "\t" + Exact(p.centre.Y) + "\t" +
            Exact(p.centre.Z) + "\t" + Exact(p.omega) + "\t" + Exact(p.phi) + "\t" +
            Exact(p.kappa) + "\t1\t0\n";
  }
  const std::string camera =
      "<?xml version=\"1.0\"?><calibration><projection>frame</projection><width>400</width>"
      "<height>300</height><f>1000</f><cx>4</cx><cy>7</cy><k1>0.1</k1><p1>0.01</p1><p2>0.02</p2>"
      "</calibration>";
  const auto table = Parse_Orientation_Table({text, "omega.txt"}, {camera, "camera.xml"}, "angles");
  EXPECT_EQ(table.photos[0].camera.lens, (BrownLens{0.1, 0, 0, 0.02, 0.01}));
  // f 1000 px; cx 4 right and cy 7 down of the middle: x0 = 4 px, y0 = -7 px.
  for (std::size_t i = 0; i < photos.size(); ++i) {
    for (const Point3D& point : Sample_Points()) {
      Expect_Pixels(table, i, point, photos[i].Pixel(point));
    }
  }
}

TEST(AngleTable, ReadsBareRowsAndUnitsInColumnNames) {
  const NamedText camera{"width,height,f_mm,pixel_mm\n400,300,100,0.1\n", "c.csv"};
  const auto bare =
      Parse_Orientation_Table({"a 1 2 3 10 20 30\nb 4 5 6 11 21 31\n", "t"}, camera, "");
  EXPECT_EQ(bare.format, TableFormat::Angles);
  EXPECT_EQ(bare.photos.size(), 2U);
  EXPECT_EQ(bare.photos[1].numbers[0], 11);
  EXPECT_EQ(bare.stated.unit, AngleUnit::Degrees);
  const auto gon = Parse_Orientation_Table(
      {"label;x;y;z;omega[gon];phi[gon];kappa[gon]\na;1;2;3;10;20;30\n", "t"}, camera, "");
  EXPECT_EQ(gon.stated.unit, AngleUnit::Gon);
}

TEST(AngleTable, TakesEstimatedValuesBeforeThoseThatTheyWereEstimatedFrom) {
  const NamedText camera{"width,height,f_mm,pixel_mm\n400,300,100,0.1\n", "c.csv"};
  const auto table = Parse_Orientation_Table(
      {"# CoordinateSystem: a, b\n#Label,X/Easting,Y/Northing,Z/Altitude,Omega,Phi,Kappa,X_est,"
       "Y_est,Z_est,Omega_est,Phi_est,Kappa_est\na,1,2,3,4,5,6,10,20,30,40,50,60\n",
       "t"},
      camera, "");
  const Point3D& centre = table.photos[0].position;
  EXPECT_EQ((std::array{centre.X, centre.Y, centre.Z}), (std::array{10.0, 20.0, 30.0}));
  EXPECT_EQ(table.photos[0].numbers, (std::array<double, 4>{40, 50, 60, 0}));
}

TEST(AngleTable, ReadsOpenCvXml) {
  const std::string xml =
      "<?xml version=\"1.0\"?><opencv_storage><image_width>400</image_width>"
      "<image_height>300</image_height><camera_matrix type_id=\"opencv-matrix\"><rows>3</rows>"
      "<cols>3</cols><dt>d</dt><data>1000. 0. 203.5 0. 1000. 156.5 0. 0. 1.</data></camera_matrix>"
      "<distortion_coefficients type_id=\"opencv-matrix\"><data>0.1 0.2 0.3 0.4\n 0.5</data>"
      "</distortion_coefficients></opencv_storage>";
  const TablePhoto photo = Sample_Photos()[0];
  const auto table = Parse_Orientation_Table(
      {"a " + Exact(photo.centre.X) + " " + Exact(photo.centre.Y) + " " + Exact(photo.centre.Z) +
           " " + Exact(photo.omega) + " " + Exact(photo.phi) + " " + Exact(photo.kappa),
       "t"},
      {xml, "c.xml"}, "");
  EXPECT_EQ(table.photos[0].camera.lens, (BrownLens{0.1, 0.2, 0.5, 0.3, 0.4}));
  // cx 203.5 counted from a pixel's middle is 204 from the corner: 4 px right, 7 px down.
  Expect_Pixels(table, 0, Sample_Points()[4], photo.Pixel(Sample_Points()[4]));
}

TEST(AngleTable, OpenCvCoefficientsBehindTheFifthMustBe0) {
  const std::string start =
      "<opencv_storage><image_width>4</image_width><image_height>3</image_height><camera_matrix>"
      "<data>9 0 2 0 9 1 0 0 1</data></camera_matrix><distortion_coefficients><data>";
  const std::string end = "</data></distortion_coefficients></opencv_storage>";
  const auto zeros = Parse_Orientation_Table(
      {"a 1 2 3 4 5 6", "t"}, {start + "0.1 0.2 0.3 0.4 0.5 0. 0 0" + end, "c.xml"}, "");
  EXPECT_EQ(zeros.photos[0].camera.lens, (BrownLens{0.1, 0.2, 0.5, 0.3, 0.4}));
  EXPECT_THROW(Parse_Orientation_Table({"a 1 2 3 4 5 6", "t"},
                                       {start + "0.1 0.2 0.3 0.4 0.5 0. 0.6 0" + end, "c.xml"}, ""),
               Refused);
}

TEST(FramesTable, FollowsItsFormula) {
  const auto photos = Sample_Photos();
  std::string frames =
      "ObjectID,Raster,CameraID,PerspectiveX,PerspectiveY,PerspectiveZ,Omega,Phi,Kappa\n";
  for (const TablePhoto& p : photos) {
    frames += "1,C:\\flight\\" + p.name + ".tif,7," + Exact(p.centre.X) + "," + Exact(p.centre.Y) +
              "," + Exact(p.centre.Z) + "," + Exact(p.omega) + "," + Exact(p.phi) + "," +
              Exact(p.kappa) + "\n";
  }
  // Micrometres: f 100 mm, principal point 0.4 and -0.7 mm, pixels of 0.1 mm.
  const NamedText cameras{
      "ObjectID,CameraID,FocalLength,PrincipalX,PrincipalY,PixelSize,NColumns,NRows\n"
      "1,6,1,0,0,1,10,10\n2,7,100000,400,-700,100,400,300\n",
      "cameras.csv"};
  const auto table = Parse_Orientation_Table({frames, "frames.csv"}, cameras, "");
  EXPECT_EQ(table.format, TableFormat::Frames);
  // The same camera by its film: the middle of the image, col 199.5 and row 149.5, is film 0, 0.
  const NamedText film{
      "CameraID,FocalLength,PrincipalX,PrincipalY,A0,A1,A2,B0,B1,B2,NColumns,NRows\n"
      "7,100000,400,-700,-19950,100,0,14950,0,-100,400,300\n",
      "cameras.csv"};
  const auto by_film = Parse_Orientation_Table({frames, "frames.csv"}, film, "");
  for (std::size_t i = 0; i < photos.size(); ++i) {
    for (const Point3D& point : Sample_Points()) {
      Expect_Pixels(table, i, point, photos[i].Pixel(point));
      Expect_Pixels(by_film, i, point, photos[i].Pixel(point));
    }
  }
}

TEST(FramesTable, ValueInTheFrameGoesBeforeThatOfItsCamera) {
  const NamedText cameras{
      "CameraID,FocalLength,PixelSize,PrincipalX,NColumns,NRows\n7,100000,100,50,400,300\n",
      "cameras.csv"};
  const auto table = Parse_Orientation_Table(
      {"Raster,CameraID,PerspectiveX,PerspectiveY,PerspectiveZ,Omega,Phi,Kappa,FocalLength,"
       "PrincipalX\na,7,1,2,3,4,5,6,,\nb,7,1,2,3,4,5,6,120000,-20\n",
       "frames.csv"},
      cameras, "");
  EXPECT_EQ(table.photos[0].camera.f_mm, 100);
  EXPECT_EQ(table.photos[0].camera.pp_x, 0.5);
  EXPECT_EQ(table.photos[1].camera.f_mm, 120);
  EXPECT_EQ(table.photos[1].camera.pp_x, -0.2);
  EXPECT_EQ(table.photos[1].camera.width, 400);
  EXPECT_TRUE(table.passed_over.empty());
}

TEST(FramesTable, ColumnsThatMightTellAnotherConventionAreNamed) {
  const auto table = Parse_Orientation_Table(
      {"Raster,PerspectiveX,PerspectiveY,PerspectiveZ,Omega,Phi,Kappa,AngleDirection\n"
       "a,1,2,3,4,5,6,-1\n",
       "frames.csv"},
      {"FocalLength,PixelSize,NColumns,NRows,FilmCoordinateSystem,AffineDirection\n"
       "100000,100,400,300,2,\n",
       "cameras.csv"},
      "");
  EXPECT_EQ(table.passed_over,
            (std::vector<std::string>{"AngleDirection", "FilmCoordinateSystem"}));
}

TEST(TextModel, FollowsItsFormula) {
  const auto photos = Sample_Photos();
  std::string images = "# Image list\n#   IMAGE_ID, QW, QX, QY, QZ, TX, TY, TZ, CAMERA_ID, NAME\n";
  for (const TablePhoto& p : photos) {
    const Matrix3 r = Down_Matrix(p);
    const auto q = Quaternion_Of(r);
    const auto t = Times(r, p.centre);
    images += "1 " + Exact(q[0]) + " " + Exact(q[1]) + " " + Exact(q[2]) + " " + Exact(q[3]) + " " +
              Exact(-t[0]) + " " + Exact(-t[1]) + " " + Exact(-t[2]) + " 3 flight/" + p.name +
              " a.jpg\n" + (p.name == "photo2" ? "12.5 3 -1 7 8 9\n" : "\n");
  }
  const NamedText cameras{"# cameras\n3 OPENCV 400 300 1000 1010 203 158 0.1 0.2 0.3 0.4\n",
                          "cameras.txt"};
  const auto table = Parse_Orientation_Table({images, "images.txt"}, cameras, "");
  ASSERT_EQ(table.photos.size(), photos.size());
  EXPECT_EQ(table.format, TableFormat::TextModel);
  EXPECT_EQ(table.photos[2].name, "flight/photo3 a.jpg");
  EXPECT_EQ(table.photos[0].camera.lens, (BrownLens{0.1, 0.2, 0, 0.3, 0.4}));
  for (std::size_t i = 0; i < photos.size(); ++i) {
    const Matrix3 r = Down_Matrix(photos[i]);
    const auto t = Times(r, photos[i].centre);
    for (const Point3D& point : Sample_Points()) {
      const auto c = Times(r, point);
      const double depth = c[2] - t[2];
      // The translation of numbers near 7 million has some 1e-9 m of rounding of its own.
      Expect_Pixels(table, i, point,
                    {1000 * (c[0] - t[0]) / depth + 203, 1010 * (c[1] - t[1]) / depth + 158});
    }
  }
}

TEST(TextModel, ReadsEveryCameraModelItKnows) {
  const std::string image = "1 1 0 0 0 0 0 0 1 a.jpg\n\n";
  for (const char* const camera :
       {"1 SIMPLE_PINHOLE 40 30 50 20 15", "1 PINHOLE 40 30 50 50 20 15",
        "1 SIMPLE_RADIAL 40 30 50 20 15 0", "1 RADIAL 40 30 50 20 15 0 0",
        "1 FULL_OPENCV 40 30 50 50 20 15 0 0 0 0 0 0 0 0"}) {
    const auto table = Parse_Orientation_Table({image, "images.txt"}, {camera, "cameras.txt"}, "");
    const auto pixel = Ideal_Pixel(Understood(table.photos[0], table.stated), {1, 2, 10});
    EXPECT_NEAR(pixel->col, 50 * 0.1 + 20, 1e-9) << camera;
    EXPECT_NEAR(pixel->row, 50 * 0.2 + 15, 1e-9) << camera;
  }
  EXPECT_THROW(Parse_Orientation_Table({image, "images.txt"}, {"1 FOV 4 3 5 2 1 1", "c"}, ""),
               Refused);
}

TEST(Shots, FollowTheirFormula) {
  const auto photos = Sample_Photos();
  std::string features;
  for (const TablePhoto& p : photos) {
    const auto q = Quaternion_Of(Down_Matrix(p));
    const double length = std::hypot(q[1], q[2], q[3]);
    const double by = 2 * std::atan2(length, q[0]) / length;
    features += std::string(features.empty() ? "" : ",") +
                R"({"type":"Feature","properties":{"filename":")" + p.name +
                R"(.jpg","camera":"cam","translation":[)" + Exact(p.centre.X) + "," +
                Exact(p.centre.Y) + "," + Exact(p.centre.Z) + R"(],"rotation":[)" +
                Exact(q[1] * by) + "," + Exact(q[2] * by) + "," + Exact(q[3] * by) +
                R"(],"capture_time":1718966400},"geometry":null})";
  }
  const NamedText cameras{
      R"({"cam":{"projection_type":"brown","width":400,"height":300,"focal_x":2.5,"focal_y":2.5,)"
      R"("c_x":0.01,"c_y":0.0175,"k1":0.1,"k2":0.2,"k3":0.3,"p1":0.4,"p2":0.5}})",
      "cameras.json"};
  const auto table = Parse_Orientation_Table(
      {R"({"type":"FeatureCollection","features":[)" + features + "]}", "shots.geojson"}, cameras,
      "");
  EXPECT_EQ(table.format, TableFormat::Shots);
  EXPECT_EQ(table.photos[0].camera.lens, (BrownLens{0.1, 0.2, 0.3, 0.4, 0.5}));
  EXPECT_EQ(table.photos[0].utc, "2024-06-21T10:40:00Z");
  // Lengths over 400 px: f 1000 px, principal point 4 px right and 7 px down.
  for (std::size_t i = 0; i < photos.size(); ++i) {
    for (const Point3D& point : Sample_Points()) {
      Expect_Pixels(table, i, point, photos[i].Pixel(point));
    }
  }
}

TEST(Shots, PositionsInDegreesComeIntoTheSitesSystem) {
  OrientationTable table;
  table.photos.resize(2);
  // The origin of zone 35: longitude 27, latitude 0 is east 500000, north 0.
  table.photos[0].degrees = Point3D{27, 0, 300};
  table.photos[1].degrees = Point3D{27, 0, 300};
  table.photos[1].position = {500003, 4, 310};
  Place_In_System(table, "EPSG:3067");
  EXPECT_NEAR(table.photos[0].position.X, 500000, 1e-6);
  EXPECT_NEAR(table.photos[0].position.Y, 0, 1e-6);
  EXPECT_EQ(table.photos[0].position.Z, 300);
  EXPECT_EQ(table.photos[1].position.X, 500003);
}

struct BadTable {
  const char* promise;
  std::string table;
  std::string camera;
  std::string format;
};

TEST(OrientationTables, RefuseWhatCannotBeUnderstood) {
  const std::string row = Sample_Photos()[0].Row();
  const std::string header = std::string(kPlainHeader) + "\n";
  const std::string camera = "width,height,f_mm,pixel_mm\n4,3,1,1\n";
  const std::string json = R"({"features":[{"properties":{"filename":"a","camera":"c"}}]})";
  for (const BadTable& bad : std::vector<BadTable>{
           {"empty", "", "", ""},
           {"header alone", header, "", ""},
           {"twice the same photograph", header + row + "\n" + row + "\n", "", ""},
           {"the same but for the ending", header + row + "\nphoto1.TIF" + row.substr(6), "", ""},
           {"cut short in a line", header + row.substr(0, 40), "", ""},
           {"a text for a number", header + "a,x,3,1,1,0,0,0,0,0,0,0,0", "", ""},
           {"no focal length", header + "a,4,3,0,1,0,0,0,0,0,0,0,0", "", ""},
           {"a negative pixel", header + "a,4,3,1,-1,0,0,0,0,0,0,0,0", "", ""},
           {"half a pixel", header + "a,4.5,3,1,1,0,0,0,0,0,0,0,0", "", ""},
           {"no name", header + ",4,3,1,1,0,0,0,0,0,0,0,0", "", ""},
           {"an unknown format", header + row, "", "secret"},
           {"angles without camera", "a 1 2 3 4 5 6", "", ""},
           {"angles with two cameras", "a 1 2 3 4 5 6", camera + "4,3,1,1\n", ""},
           {"six columns", "a 1 2 3 4 5", camera, ""},
           {"a camera of another kind", "a 1 2 3 4 5 6", "<x/>", ""},
           {"broken XML", "a 1 2 3 4 5 6", "<calibration><width>", ""},
           {"frames without cameras", "Raster,PerspectiveX\na,1", "", ""},
           {"images without cameras", "1 1 0 0 0 0 0 0 1 a", "", "text-model"},
           {"an unknown camera", "1 1 0 0 0 0 0 0 1 a", "2 PINHOLE 4 3 1 1 0 0", "text-model"},
           {"no quaternion", "1 0 0 0 0 0 0 0 1 a", "1 PINHOLE 4 3 1 1 0 0", "text-model"},
           {"no shots", "{}", "{}", ""},
           {"broken JSON", "{\"features\":[", "{}", ""},
           {"shots of an unknown camera", json, "{}", ""},
           {"bytes", std::string("II*\0\0\0", 6), "", ""}}) {
    const NamedText cameras =
        bad.camera.empty() ? NamedText{} : NamedText{bad.camera, "camera file"};
    try {
      Parse_Orientation_Table({bad.table, "the table"}, cameras, bad.format);
      ADD_FAILURE() << bad.promise << " was read";
    } catch (const Refused& refusal) {
      EXPECT_GT(std::string(refusal.what()).size(), 10U) << bad.promise;
    }
  }
}

TEST(OrientationTable, AnEmptyFileIsRefusedAsEmpty) {
  for (const char* const text : {"", " \r\n\n"}) {
    try {
      Parse_Orientation_Table({text, "empty.csv"}, {}, "");
      FAIL() << "it was read";
    } catch (const Refused& refusal) {
      EXPECT_NE(std::string(refusal.what()).find("empty.csv: the table is empty"),
                std::string::npos);
    }
  }
}

TEST(OrientationTable, EmptyLinesMayStandBeforeThePlainHeader) {
  const std::string rows = Plain_Table(Sample_Photos());
  EXPECT_EQ(Parse_Orientation_Table({"\n \r\n" + rows, "t.csv"}, {}, "").format,
            TableFormat::Plain);
}

}  // namespace
}  // namespace sylvomex
