// SPDX-License-Identifier: MIT
#include "session/picture_vectors.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <sstream>

#include "platform/run_time_error.h"
#include "session/scale_bar.h"
#include "session/vector_page.h"
#include "state/workspace.h"
#include "support/recording_screen.h"
#include "support/session_run.h"
#include "support/small_site.h"

namespace sylvomex {
namespace {

TEST(ScaleBar, IsOneTwoOrFiveTimesAPowerOfTen) {
  // A quarter of 600 pixels holds 150 m, 30 m, 7.5 m and 0.15 m at these scales.
  EXPECT_EQ(Scale_Bar_For(1, 600).metres, 100);
  EXPECT_EQ(Scale_Bar_For(5, 600).metres, 20);
  EXPECT_EQ(Scale_Bar_For(20, 600).metres, 5);
  EXPECT_NEAR(Scale_Bar_For(1000, 600).metres, 0.1, 1e-12);
  EXPECT_EQ(Scale_Bar_For(5, 600).pixels, 100);
  EXPECT_EQ(Scale_Bar_For(5, 600).Text(), "20 m");
}

TEST(PictureVectors, EndingsAskForThem) {
  EXPECT_TRUE(Is_Vector_File("a.svg"));
  EXPECT_TRUE(Is_Vector_File("a.PDF"));
  EXPECT_FALSE(Is_Vector_File("a.png"));
  EXPECT_FALSE(Is_Vector_File("svg"));
}

struct SavedPane : testing::Test {
  SmallSite site;
  const TemporaryFolder& folder = site.Folder();

  std::string Script(const std::string& file) {
    SmallImage image;
    const std::string header = site.Write_Image("a", image);
    return "file " + header +
           "\nmenu Add_images_to_set\ninput 0\ninput 0\ninput 100\nmenu Set_3D_solution\n"
           "click Picture1(0) 100 100\nsave Picture1(0) " +
           (folder.Path() / file).string() + "\n";
  }
};

TEST_F(SavedPane, IsAnSvgOfShapesWithAScaleBar) {
  const PlayedSession played = Play_Script(folder, Script("pane.svg"));
  ASSERT_EQ(played.status, 0) << played.reason << played.transcript;
  const std::string svg = folder.Read("pane.svg");
  EXPECT_EQ(svg.rfind("<?xml", 0), 0U);
  EXPECT_NE(svg.find("<image"), std::string::npos);
  EXPECT_NE(svg.find("<path"), std::string::npos);
  EXPECT_NE(svg.find("</svg>"), std::string::npos);
}

TEST_F(SavedPane, IsAPdf) {
  const PlayedSession played = Play_Script(folder, Script("pane.pdf"));
  ASSERT_EQ(played.status, 0) << played.reason << played.transcript;
  const std::string pdf = folder.Read("pane.pdf");
  EXPECT_EQ(pdf.rfind("%PDF-", 0), 0U);
  EXPECT_NE(pdf.find("%%EOF"), std::string::npos);
}

TEST_F(SavedPane, AFileThatCannotBeWrittenFailsTheStep) {
  EXPECT_EQ(Play_Script(folder, Script("none/pane.svg")).status, 1);
}

TEST(PictureVectors, APictureWithoutASizeIsRefused) {
  const TemporaryFolder folder;
  RecordingScreen screen;
  const auto w = std::make_unique<Workspace>(folder.Drives(), screen);
  EXPECT_THROW(Save_Picture_Vectors(*w, Picture{}, "a.svg"), RunTimeError);
}

constexpr double kMillimetresOfAPixel = 25.4 / 96;
constexpr double kMillimetresOfAPoint = 25.4 / 72;  // the unit of the page in SVG

struct Millimetres {
  double right = 0, down = 0;  // from the page's upper left corner
};

/// A path of an SVG: its style and its corners on the page.
struct Shape {
  std::string style;
  std::vector<Millimetres> corners;
};

std::vector<double> Numbers_In(std::string text) {
  for (char& c : text) {
    if (std::string_view("MLZCmatrix(),").find(c) != std::string_view::npos) c = ' ';
  }
  std::istringstream in(text);
  std::vector<double> numbers;
  for (double number = 0; in >> number;) numbers.push_back(number);
  return numbers;
}

std::string Attribute(const std::string& line, const std::string& name) {
  const std::size_t at = line.find(" " + name + "=\"");
  if (at == std::string::npos) return "";
  const std::size_t begin = at + name.size() + 3;
  return line.substr(begin, line.find('"', begin) - begin);
}

std::vector<Shape> Shapes_Of(const std::string& svg) {
  std::vector<Shape> shapes;
  std::istringstream in(svg);
  for (std::string line; std::getline(in, line);) {
    if (!line.starts_with("<path")) continue;
    std::vector<double> m{1, 0, 0, 1, 0, 0};
    if (const std::string told = Attribute(line, "transform"); !told.empty()) m = Numbers_In(told);
    Shape shape{Attribute(line, "style"), {}};
    const std::vector<double> d = Numbers_In(Attribute(line, "d"));
    for (std::size_t i = 0; i + 1 < d.size(); i += 2) {
      shape.corners.push_back({(m[0] * d[i] + m[4]) * kMillimetresOfAPoint,
                               (m[3] * d[i + 1] + m[5]) * kMillimetresOfAPoint});
    }
    shapes.push_back(shape);
  }
  return shapes;
}

/// Whether a shape of some colour begins at a place of the page.
bool Begins_At(const std::vector<Shape>& shapes, const std::string& style,
               const Millimetres& place) {
  return std::any_of(shapes.begin(), shapes.end(), [&](const Shape& shape) {
    return shape.style.find(style) != std::string::npos && !shape.corners.empty() &&
           std::abs(shape.corners[0].right - place.right) < 1e-3 &&
           std::abs(shape.corners[0].down - place.down) < 1e-3;
  });
}

/// Two photographs beside each other, 60 m apart; a pixel is 0.1 m on the plane Z = 0, of which the
/// solution's height is a tenth of the flying height.
struct SavedWindow : testing::Test {
  SmallSite site;
  const TemporaryFolder& folder = site.Folder();

  PlayedSession Save(const std::string& file) {
    SmallImage image;
    std::string script;
    for (const char* name : {"a", "b"}) {
      script += "file " + site.Write_Image(name, image) + "\nmenu Add_images_to_set\n";
      image.id = 77;
      image.X0 = 60;
    }
    script +=
        "input 20\ninput 10\ninput 100\nmenu Set_3D_solution\nmenu Center_to_xyz_click\n"
        "click Picture1(0) 100 100\nclick Picture1(1) 90 110\n";
    for (const char* value : {"(0).Left", "(1).Left", "(0).Width", "(0).Height"}) {
      script += std::string("print Picture1") + value + "\n";
    }
    return Play_Script(folder, script + "save Form1 " + (folder.Path() / file).string() + "\n");
  }

  static double Printed(const PlayedSession& played, const std::string& name) {
    const std::string start = "\n" + name + " = ";
    const std::size_t at = played.transcript.find(start);
    return at == std::string::npos ? -1 : std::stod(played.transcript.substr(at + start.size()));
  }
};

TEST_F(SavedWindow, PanesStandSideBySideWithTheirMarksInPlace) {
  const PlayedSession played = Save("window.svg");
  ASSERT_EQ(played.status, 0) << played.reason;
  const std::string svg = folder.Read("window.svg");
  const double step = Printed(played, "Picture1(1).Left") - Printed(played, "Picture1(0).Left");
  ASSERT_GT(step, 500);
  // A click marks its place by four strokes; the first goes from 5 to 2 pixels above it, along the
  // middle of the pixels.
  const std::vector<Shape> shapes = Shapes_Of(svg);
  const std::string colour = "stroke:rgb(1.960784%,100%,82.745098%)";
  EXPECT_TRUE(
      Begins_At(shapes, colour, {100.5 * kMillimetresOfAPixel, 95.5 * kMillimetresOfAPixel}));
  EXPECT_TRUE(Begins_At(shapes, colour,
                        {(step + 90.5) * kMillimetresOfAPixel, 105.5 * kMillimetresOfAPixel}));
  EXPECT_FALSE(
      Begins_At(shapes, colour, {90.5 * kMillimetresOfAPixel, 105.5 * kMillimetresOfAPixel}));
  const double inside = Printed(played, "Picture1(0).Width") - 4;
  std::istringstream width(Attribute(svg.substr(svg.find("<svg"), 400), "width"));
  double points = 0;
  width >> points;
  EXPECT_NEAR(points * kMillimetresOfAPoint, (step + inside) * kMillimetresOfAPixel, 1e-3);
}

TEST_F(SavedWindow, EachPaneHasABarOfARoundLengthOnTheGround) {
  const PlayedSession played = Save("window.svg");
  ASSERT_EQ(played.status, 0) << played.reason;
  const double step = Printed(played, "Picture1(1).Left") - Printed(played, "Picture1(0).Left");
  // 900 m below the camera a pixel is 0.09 m, and the panes show one pixel in one. A quarter of the
  // pane has room for 10 m, less than 20 m.
  const double inside = Printed(played, "Picture1(0).Width") - 4;
  ASSERT_GT(inside * 0.09 / 4, 10);
  ASSERT_LT(inside * 0.09 / 4, 20);
  const double down = (Printed(played, "Picture1(0).Height") - 4 - 12 - 5) * kMillimetresOfAPixel;
  std::vector<double> lefts;
  for (const Shape& shape : Shapes_Of(folder.Read("window.svg"))) {
    if (shape.style.find("fill:rgb(100%,100%,100%)") == std::string::npos) continue;
    if (shape.corners.size() < 4 || std::abs(shape.corners[0].down - down) > 1e-3) continue;
    EXPECT_NEAR(shape.corners[1].right - shape.corners[0].right, 10 / 0.09 * kMillimetresOfAPixel,
                1e-2);
    EXPECT_NEAR(shape.corners[2].down - shape.corners[0].down, 5 * kMillimetresOfAPixel, 1e-3);
    lefts.push_back(shape.corners[0].right / kMillimetresOfAPixel);
  }
  ASSERT_EQ(lefts.size(), 2U);
  EXPECT_NEAR(lefts[0], 12, 1e-2);
  EXPECT_NEAR(lefts[1], step + 12, 1e-2);
}

TEST_F(SavedWindow, APdfHasThePagesSize) {
  const PlayedSession played = Save("window.pdf");
  ASSERT_EQ(played.status, 0) << played.reason;
  const std::string pdf = folder.Read("window.pdf");
  const std::size_t at = pdf.find("/MediaBox [");
  ASSERT_NE(at, std::string::npos);
  const std::vector<double> box = Numbers_In(pdf.substr(at + 11, pdf.find(']', at) - at - 11));
  const double step = Printed(played, "Picture1(1).Left") - Printed(played, "Picture1(0).Left");
  ASSERT_EQ(box.size(), 4U);
  EXPECT_NEAR(box[2], (step + Printed(played, "Picture1(0).Width") - 4) * 0.75, 1e-3);
  EXPECT_NEAR(box[3], (Printed(played, "Picture1(0).Height") - 4) * 0.75, 1e-3);
}

TEST_F(SavedWindow, AWindowWithoutPicturesAndAPngFailTheStep) {
  EXPECT_EQ(Play_Script(folder, "save Form2 c:\\data\\a.svg\n").status, 1);
  EXPECT_EQ(Play_Script(folder, "save Form1 c:\\data\\a.svg\n").status, 1);  // no image yet
  EXPECT_EQ(Play_Script(folder, "save Form1 c:\\data\\a.png\n").status, 1);
  EXPECT_EQ(Play_Script(folder, "save Form99 c:\\data\\a.svg\n").status, 1);
  EXPECT_FALSE(folder.Has("c/data/a.svg"));
}

}  // namespace
}  // namespace sylvomex
