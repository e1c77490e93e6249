// SPDX-License-Identifier: MIT
#include "commands/matching/templates.h"

#include "commands/matching/matching_site.h"

namespace sylvomex {
namespace {

using Texts = std::vector<std::string>;

TEST_F(MatchingSite, PlotCentreIsTheSolutionWhetherValidOrNot) {
  Set_Solution({10, 20, 30});
  w.SolutionValid = false;
  m.PlotCenter.MeshRotation = 1;
  Choose("Read_plot_center_data");
  EXPECT_EQ(m.PlotCenter.PlotId.Padded(), "T1  ");
  EXPECT_EQ(m.PlotCenter.MeshRotation, 0);
  EXPECT_EQ(m.PlotCenter.PlotX, 10);
  EXPECT_EQ(m.PlotCenter.PlotY, 20);
  EXPECT_EQ(m.PlotCenter.PlotZ, 30);
  EXPECT_TRUE(screen.messages.empty());
}

TEST_F(MatchingSite, PlotCentreEmptiesThePolygon) {
  m.ImagePolygon = {{1, 2}};
  Choose("Read_plot_center_data");
  ASSERT_EQ(m.ImagePolygon.size(), 101U);
  EXPECT_EQ(m.ImagePolygon[0].x, 0);
}

TEST_F(MatchingSite, CaptureNeedsASolution) {
  w.SolutionValid = false;
  Choose("Capture_templates");
  EXPECT_EQ(screen.messages, Texts{"Need a 3D solution!"});
  EXPECT_FALSE(Has_Data("imacoordstest.txt"));
}

TEST_F(MatchingSite, CaptureCutsATemplateFromEveryImageAndTicksIt) {
  Capture();
  EXPECT_TRUE(screen.messages.empty());
  EXPECT_EQ(w.Form1.Label10.Caption, "Elliptic templates captured and superimposed on images");
  for (int k = 0; k < 3; ++k) EXPECT_EQ(w.Form1.Check1(k).Value, 1);
  EXPECT_EQ(w.Form1.Check1(3).Value, 0);
  // A circle of 0.02 x 1.5 / 189.1 = 15.86 pixels around column 870.17, raw row 957.69 - 500:
  // columns 855 to 886, rows 442 to 473 of a window that begins at column 820, row 408.
  EXPECT_EQ(Data("temp0.img"), "32\n32\n15\n16\n");
  EXPECT_EQ(Data("temp0.raw").size(), 32U * 32);
}

TEST_F(MatchingSite, TheTemplateRecordHoldsTheEllipse) {
  w.Form1.Text6.Text = "12";
  Capture();
  const TemplateRecord& record = m.Template(2);
  // 25 m west and 4 m north of the third camera.
  const double distance = std::hypot(25.0, 4.0);
  EXPECT_NEAR(record.CenterX, 0.02 * -25 / 189.1, 1e-15);
  EXPECT_NEAR(record.CenterY, 0.02 * 4 / 189.1, 1e-15);
  EXPECT_NEAR(record.RadialAngle, std::atan2(4.0, -25.0), 1e-12);
  EXPECT_NEAR(record.SemiAxisRadial, 0.02 * distance * (1 / 177.1 - 1 / 189.1), 1e-15);
  EXPECT_NEAR(record.SemiAxisTangential, 0.02 * 1.5 / 189.1, 1e-15);
}

TEST_F(MatchingSite, CaptureLogsTopsThenTopsAndCentres) {
  w.Form1.Text7.Text = "-9.1";  // the centre at Z 1.8, 198.2 m below the cameras
  Capture();
  EXPECT_EQ(Data("imacoordstest.txt"),
            "0.0037017 0.0004231\n0.0005288 0.0004231\n-0.0026441 0.0004231\n"
            "0 0.0037017 0.0004231 TreeTop\n0 0.0035318 0.0004036 EllipseCenter\n"
            "1 0.0005288 0.0004231 TreeTop\n1 0.0005045 0.0004036 EllipseCenter\n"
            "2 -0.0026441 0.0004231 TreeTop\n2 -0.0025227 0.0004036 EllipseCenter\n");
}

TEST_F(MatchingSite, CaptureDrawsTheEllipseAndTwoBlocksInWhiteWithPenWidthOne) {
  Capture();
  const std::vector<Mark>& marks = w.Form1.Picture1(1).marks;
  ASSERT_EQ(marks.size(), 126U + 9 + 9);
  for (const Mark& mark : marks) {
    EXPECT_EQ(mark.kind, Mark::Kind::Point);
    EXPECT_EQ(mark.colour, (Colour{255, 255, 255}));
    EXPECT_EQ(mark.width, 1);
  }
  const PaneView& view = w.PaneViews(1);
  const double px = Site_Col(1, kSiteTops[0]) - view.ViewCol;
  const double py = 1000 - Site_Row(kSiteTops[0]) - view.ViewRow;
  EXPECT_NEAR(marks[130].x1, px, 1e-9);  // the middle of the first block
  EXPECT_NEAR(marks[130].y1, py, 1e-9);
  // The camera is west and south of the tree: the radial angle points from the camera to the tree.
  const double q = std::atan2(4.0, 5.0), radius = 100000 * 0.02 * 1.5 / 189.1;
  EXPECT_NEAR(marks[0].x1, px + radius * std::cos(q), 1e-9);
  EXPECT_NEAR(marks[0].y1, py - radius * std::sin(q), 1e-9);
}

TEST_F(MatchingSite, CaptureZoomsEachPaneToOneToOne) {
  for (int k = 0; k < 3; ++k) w.PaneViews(k).ZoomX = w.PaneViews(k).ZoomY = 0.5;
  Capture();
  for (int k = 0; k < 3; ++k) EXPECT_EQ(w.PaneViews(k).ZoomX, 1);
}

TEST_F(MatchingSite, WithoutObservationsTheZoomReportsEachImageAndCaptureGoesOn) {
  Choose("Capture_templates");
  const std::string complaint =
      "Error in aZoom-function. Image observation missing? (xy-coords. Click a ref. point first)";
  EXPECT_EQ(screen.messages, (Texts{complaint, complaint, complaint}));
  EXPECT_TRUE(Has_Data("temp2.raw"));
}

TEST_F(MatchingSite, CaptureKeepsParametersAndSolutionForTheLaterSteps) {
  w.Form1.Text5.Text = "1.75";
  w.Form1.Text7.Text = "-0.5";
  Capture();
  w.Form1.Text5.Text = "9";
  Set_Solution({1, 1, 1});
  EXPECT_EQ(m.Parameters.Tw, 1.75);
  EXPECT_EQ(m.CaptureSnapshot.Template.Tw, 1.75);
  EXPECT_EQ(m.CaptureSnapshot.Template.Zd, 3);
  EXPECT_EQ(m.CaptureSnapshot.Template.EZA, -0.5);
  EXPECT_EQ(m.CaptureSnapshot.Solution.Z, 10.9);
}

TEST_F(MatchingSite, ASmallShiftKeepsTheValueOfThePreviousCapture) {
  w.Form1.Text7.Text = "-9.1";
  Capture();
  EXPECT_EQ(m.Template(0).ShiftCol, 17);  // 370.17 - 353.18
  EXPECT_EQ(m.Template(0).ShiftRow, 2);   // 42.31 - 40.36
  w.Form1.Text7.Text = "0";
  Capture();
  EXPECT_EQ(m.Template(0).ShiftCol, 17);
  EXPECT_EQ(m.Template(0).ShiftRow, 2);
}

TEST_F(MatchingSite, AnEllipseWiderThanTheWindowIsReportedTwiceForEachImage) {
  w.Form1.Text5.Text = "8";
  Capture();
  Texts told;
  for (const char* image : {"0", "1", "2"}) {
    const std::string name = std::string("Image template n:o ") + image;
    told.push_back(name + " cannot define col borders!");
    told.push_back(name + " cannot define row borders!");
  }
  EXPECT_EQ(screen.messages, told);
  EXPECT_EQ(Data("temp2.img"), "101\n101\n50\n50\n");
  EXPECT_EQ(w.Form1.Label10.Caption, "Elliptic templates captured and superimposed on images");
}

TEST_F(MatchingSite, ANonNumericTextEndsTheCapture) {
  const std::pair<TextBox*, std::string> boxes[] = {
      {&w.Form1.Text5, "Text5"}, {&w.Form1.Text6, "Text6"}, {&w.Form1.Text7, "Text7"}};
  for (const auto& [box, name] : boxes) {
    const std::string before = box->Text;
    box->Text = "wide";
    screen.errors.clear();
    Capture();
    ASSERT_EQ(screen.errors.size(), 1U);
    EXPECT_NE(screen.errors[0].find("Capture_templates: Type mismatch: " + name +
                                    ": \"wide\" is not a number"),
              std::string::npos);
    box->Text = before;
  }
  EXPECT_FALSE(Has_Data("temp0.raw"));
}

// A tree 20 m east of the third camera, 50 m of the second and 80 m of the first one: column 500 +
// 2000 x 50 / 189.1 = 1028.8 of 1000 in the second image, 1346 in the first.
constexpr Point3D kTreeOfTheThirdImage{50, 4, 10.9};

TEST_F(MatchingSite, AnImageThatDoesNotShowTheTreeIsLeftOutAndTheOthersGoOn) {
  Capture();
  Choose("Resize_templates");
  ASSERT_TRUE(Has_Data("temp0.img"));
  ASSERT_TRUE(Has_Data("test_1_11.img"));
  screen.messages.clear();
  Set_Solution(kTreeOfTheThirdImage);
  Capture();
  EXPECT_TRUE(screen.errors.empty());
  ASSERT_EQ(screen.messages.size(), 2U);
  for (int k = 0; k < 2; ++k) {
    const std::string& told = screen.messages[static_cast<std::size_t>(k)];
    const std::string number = std::to_string(k);
    EXPECT_TRUE(told.starts_with("Image template n:o " + number + " is left out. ")) << told;
    EXPECT_NE(told.find("image 10" + number), std::string::npos);
    EXPECT_NE(told.find("1000 x 1000"), std::string::npos);
    EXPECT_EQ(w.Form1.Check1(k).Value, 0);
    for (const std::string& file :
         {"temp" + number, "test_" + number + "_1", "test_" + number + "_11"}) {
      EXPECT_FALSE(Has_Data(file + ".img")) << file;
      EXPECT_FALSE(Has_Data(file + ".raw")) << file;
    }
  }
  EXPECT_EQ(w.Form1.Check1(2).Value, 1);
  EXPECT_TRUE(Has_Data("temp2.img"));
  EXPECT_TRUE(Has_Data("test_2_1.img"));
  EXPECT_EQ(w.Form1.Label10.Caption, "Elliptic templates captured and superimposed on images");
}

TEST_F(MatchingSite, TheLogAlsoListsAnImageThatIsLeftOut) {
  Set_Solution(kTreeOfTheThirdImage);
  Capture();
  const std::string log = Data("imacoordstest.txt");
  // x = 0.02 (50 - X0) / 189.1.
  EXPECT_NE(log.find("0 0.0084611 0.0004231 EllipseCenter\n"), std::string::npos) << log;
  EXPECT_NE(log.find("2 0.0021153 0.0004231 EllipseCenter\n"), std::string::npos) << log;
}

TEST_F(MatchingSite, AnImageWithoutARawFileIsLeftOut) {
  std::filesystem::remove(files.site.Folder().Path() / "c/data/im1.raw");
  Capture();
  EXPECT_TRUE(screen.errors.empty());
  EXPECT_EQ(w.Form1.Check1(1).Value, 0);
  EXPECT_FALSE(Has_Data("temp1.raw"));
  EXPECT_TRUE(Has_Data("temp2.raw"));
}

TEST_F(MatchingSite, AnEllipseWithoutWidthEndsTheCapture) {
  w.Form1.Text5.Text = "0";
  Capture();
  ASSERT_EQ(screen.errors.size(), 1U);
  EXPECT_NE(screen.errors[0].find("has no width"), std::string::npos);
}

TEST_F(MatchingSite, ColourImagesUseTheirMiddleByteGreyOnesTheirByte) {
  Capture();
  // A circle of 15.86 pixels around column 552.88, raw row 457.69: columns 538 to 568, rows 442 to
  // 473, in which the centre's pixel 553, 458 is the one at 15, 16.
  const std::string colour = Data("im1.raw"), pattern = Data("temp1.raw");
  EXPECT_EQ(Data("temp1.img"), "31\n32\n15\n16\n");
  EXPECT_EQ(pattern[16 * 31 + 15], colour[(458 * 1000 + 553) * 3 + 1]);
  EXPECT_NE(pattern[16 * 31 + 15], colour[(458 * 1000 + 553) * 3]);
  // The first image's pixel 870, 458 is at 15, 16 of 32 columns.
  EXPECT_EQ(Data("temp0.raw")[16 * 32 + 15], Data("im0.raw")[458 * 1000 + 870]);
}

TEST_F(MatchingSite, ResizeWritesElevenSizesOfTickedImages) {
  Untick_All();
  w.Form1.Check1(1).Value = 1;
  Write_Data("temp1.img", "5\n5\n2\n1\n");
  std::string pixels;
  for (int i = 0; i < 25; ++i) pixels += static_cast<char>(10 * (i % 5));
  Write_Data("temp1.raw", pixels);
  Choose("Resize_templates");
  EXPECT_TRUE(screen.errors.empty());
  EXPECT_EQ(Data("test_1_1.img"), "2 2 1 0\n");
  EXPECT_EQ(Data("test_1_9.img"), "5 5 2 1\n");
  EXPECT_EQ(Data("test_1_11.img"), "6 6 2 1\n");
  EXPECT_EQ(Data("test_1_11.raw").size(), 36U);
  EXPECT_FALSE(Has_Data("test_0_1.img"));
  EXPECT_FALSE(Has_Data("test_1_12.img"));
  // A ramp across the columns is unchanged by the kernel.
  EXPECT_EQ(Data("test_1_9.raw"), pixels);
}

TEST_F(MatchingSite, ResizeWithoutATemplateFileIsAFileError) {
  Untick_All();
  w.Form1.Check1(2).Value = 1;
  Choose("Resize_templates");
  ASSERT_EQ(screen.errors.size(), 1U);
  EXPECT_NE(screen.errors[0].find("Resize_templates: File not found"), std::string::npos);
  EXPECT_NE(screen.errors[0].find("temp2.img"), std::string::npos);
}

TEST_F(MatchingSite, ResizeToOnePixelIsADivisionByZero) {
  Untick_All();
  w.Form1.Check1(0).Value = 1;
  Write_Data("temp0.img", "3\n9\n0\n0\n");  // 3 x 0.4 is one column
  Write_Data("temp0.raw", std::string(27, 'a'));
  Choose("Resize_templates");
  ASSERT_EQ(screen.errors.size(), 1U);
  EXPECT_NE(screen.errors[0].find("Division by zero"), std::string::npos);
}

TEST_F(MatchingSite, ResizeBeyondAByteIsAnOverflow) {
  Untick_All();
  w.Form1.Check1(0).Value = 1;
  Write_Data("temp0.img", "101\n214\n50\n50\n");
  Write_Data("temp0.raw", std::string(101 * 214, 'a'));
  Choose("Resize_templates");
  ASSERT_EQ(screen.errors.size(), 1U);
  // 214 x 1.2 is the first entry above 255.
  EXPECT_NE(screen.errors[0].find("Overflow: template of image 0: size 11, height: 256.8"),
            std::string::npos)
      << screen.errors[0];
}

TEST_F(MatchingSite, ATemplateFileShorterThanItsSizeNamesBoth) {
  Untick_All();
  w.Form1.Check1(0).Value = 1;
  Write_Data("temp0.img", "32767\n32767\n50\n50\n");
  Write_Data("temp0.raw", std::string(576, 'a'));
  Choose("Resize_templates");
  ASSERT_EQ(screen.errors.size(), 1U);
  EXPECT_NE(screen.errors[0].find("temp0.raw: 1073676289 pixels wanted, 576 there"),
            std::string::npos)
      << screen.errors[0];
}

}  // namespace
}  // namespace sylvomex
