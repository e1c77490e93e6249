// SPDX-License-Identifier: MIT
// Clicks and moves on the panes, by script. Images a and b are the vertical cameras of
// SmallImage: at 1:1 the 600 x 600 panes start at raw 201, 201, so pane px, py is full-image col
// 201 + px, row 1000 - (201 + py), film x = (col - 500) / 100000, y = (row - 500) / 100000.
#include "workspace/pointer.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/session_run.h"
#include "support/small_site.h"

namespace sylvomex {
namespace {

class Pointer : public testing::Test {
 protected:
  Pointer() {
    SmallImage second;
    second.id = 2;
    start_ = "file " + site_.Write_Image("a", {}) + "\nmenu Add_images_to_set\nfile " +
             site_.Write_Image("b", second) +
             "\nmenu Add_images_to_set\nmenu Center_To_Sub_c_click\n";
    solve_ = "input 0\ninput 0\ninput 0\nmenu Set_3D_solution\n";
  }
  // What the script writes after both images are on screen.
  std::string Transcript(const std::string& script) {
    const PlayedSession played = Play_Script(site_.Folder(), start_ + "say begin\n" + script);
    EXPECT_EQ(played.status, 0) << played.reason << played.transcript;
    const std::size_t begin = played.transcript.find("say begin\n");
    return begin == std::string::npos ? played.transcript : played.transcript.substr(begin + 10);
  }
  SmallSite site_;
  std::string start_;
  std::string solve_;
};

TEST_F(Pointer, MoveShowsPositionViewAndHint) {
  EXPECT_EQ(Transcript("move Picture1(0) 99.25 300\nprint Label1(0)\nprint Label3\n"),
            "Label1(0) = 300.2 499.0 99 300 201 201\n"
            "Label3 = To Zoom in: Shift+Click, Out: Ctrl+Click, Pan: Alt+Click\n");
}

TEST_F(Pointer, MoveOverTheFormShowsTheKeys) {
  EXPECT_EQ(Transcript("move Form1 5 5\nprint Label3\n"),
            "Label3 = Press \"U\" for Up, \"D\" down, \"E\" East etc.\n");
}

TEST_F(Pointer, MoveOverTheWidthBoxShowsItsUse) {
  EXPECT_EQ(Transcript("move MeasureDistancesCheckBox 5 5\nprint Label3\n"),
            "Label3 = Swap between 3D and 2D modes\n");
}

TEST_F(Pointer, MeasuringClickStoresTheObservationAndDrawsTheGappedCross) {
  // Col 531, row 479.
  EXPECT_EQ(Transcript("menu Open_Options_Window\nset Form2.Check3 0\nmenu Form2.Apply\n"
                       "click Picture1(1) 330 320\nprint Text1(2)\nprint Text1(3)\n"
                       "print Text12(1)\nprint Text12(1).Width\nprint CurrentImage\n"
                       "print Check1(1)\nmarks Picture1(1)\n"),
            "Text1(2) = 0.00031\nText1(3) = -0.00021\nText12(1) = 521.0    531.0\n"
            "Text12(1).Width = 100\nCurrentImage = 1\nCheck1(1) = 1\n"
            "line 330 315 330 318 5 255 211 1\nline 330 322 330 325 5 255 211 1\n"
            "line 325 320 328 320 5 255 211 1\nline 332 320 335 320 5 255 211 1\n");
}

TEST_F(Pointer, MeasuringClickErasesEarlierMarksOfThatPaneOnly) {
  const std::string transcript = Transcript(
      "click Picture1(0) 10 10\nclick Picture1(1) 10 10\nclick Picture1(0) 50 50\n"
      "marks Picture1(0)\nsay other\nmarks Picture1(1)\n");
  EXPECT_EQ(transcript.find("line 10 5"), transcript.rfind("line 10 5"));
  EXPECT_GT(transcript.find("line 10 5"), transcript.find("say other"));
}

TEST_F(Pointer, MeasuringClickTicksAnImageThatWasUnticked) {
  EXPECT_EQ(Transcript("click Picture1(0) 10 10\nset Check1(0) 0\nclick Picture1(0) 11 10\n"
                       "print Check1(0)\n"),
            "Check1(0) = 1\n");
}

TEST_F(Pointer, MeasuringClickDrawsTheEpipolarLineInAllPanesWithASolution) {
  const std::string transcript =
      Transcript(solve_ + "say solved\nclick Picture1(0) 299 299\nmarks Picture1(1)\n");
  std::size_t dots = 0;
  for (std::size_t at = transcript.find("0 255 255 1\n"); at != std::string::npos;
       at = transcript.find("0 255 255 1\n", at + 1)) {
    ++dots;
  }
  EXPECT_EQ(dots, 101U);
}

TEST_F(Pointer, CtrlWithShiftIsAMeasuringClick) {
  EXPECT_EQ(Transcript("click Picture1(0) 299 299 shift ctrl\nprint Check1(0)\n"),
            "Check1(0) = 1\n");
}

TEST_F(Pointer, RightClickDoesNothingInNormalMode) {
  EXPECT_EQ(Transcript("click Picture1(0) 299 299 right\nprint Check1(0)\nprint Text1(0)\n"),
            "Check1(0) = 0\nText1(0) = \n");
}

TEST_F(Pointer, ZoomOutGoesFromTwoToOneToAHalfToAThird) {
  SmallImage wide;
  wide.width = 2400;
  wide.height = 2400;
  wide.full_width = 2400;
  wide.full_height = 2401;
  site_.Write_Image("a", wide);
  const std::string click = "click Picture1(0) 300 300 ctrl\nprint PaneViews(0)\n";
  const std::string transcript = Transcript(
      "set Text1(0) 0.005\nset Text1(1) 0.005\nset Text1(2) 0\nset Text1(3) 0\n"
      "menu Zoom2_1\n" +
      click + click + click);
  EXPECT_NE(transcript.find(" 600 600 1 1\n"), std::string::npos) << transcript;
  EXPECT_NE(transcript.find(" 600 600 0.5 0.5\n"), std::string::npos);
  EXPECT_NE(transcript.find(" 600 600 0.33333333333333331 0.33333333333333331\n"),
            std::string::npos);
}

TEST_F(Pointer, ZoomInGoesFromAHalfToOneToTwo) {
  const std::string transcript = Transcript(
      "set Text1(0) 0\nset Text1(1) 0\nset Text1(3) \"\"\nmenu Zoom_1_2\n"
      "click Picture1(0) 1 1 shift\nprint PaneViews(0)\nclick Picture1(0) 1 1 shift\n"
      "print PaneViews(0)\n");
  EXPECT_NE(
      transcript.find("PaneViews(0) = 201 201 600 600 1 1\nPaneViews(0) = 351 351 600 600 2 2\n"),
      std::string::npos)
      << transcript;
}

TEST_F(Pointer, ZoomInIsCentredOnTheObservationNotOnTheClick) {
  EXPECT_EQ(Transcript("set Text1(0) 0.0005\nset Text1(1) 0\nclick Picture1(0) 5 5 shift\n"
                       "print PaneViews(0)\n"),
            "PaneViews(0) = 401 351 600 600 2 2\n");
}

TEST_F(Pointer, ZoomWithoutAnObservationKeepsTheZoomAndReportsWhy) {
  EXPECT_EQ(Transcript("click Picture1(0) 5 5 shift\nprint PaneViews(0)\n"),
            "message \"Error in aZoom-function. Image observation missing? (xy-coords. Click a "
            "ref. point first)\" title=\"\" buttons=ok -> ok\n"
            "PaneViews(0) = 201 201 600 600 1 1\n");
}

TEST_F(Pointer, PanRecentresOnTheClickAndOverwritesTheObservation) {
  // Col 301, row 699.
  EXPECT_EQ(Transcript("click Picture1(0) 100 100 alt\nprint Text1(0)\nprint Text1(1)\n"
                       "print PaneViews(0)\nprint CurrentImage\nmarks Picture1(0)\n"),
            "Text1(0) = -0.00199\nText1(1) = 0.00199\nPaneViews(0) = 2 2 600 600 1 1\n"
            "CurrentImage = -1\n");
}

TEST_F(Pointer, CrownWidthTakesTwoClicksOnThePlaneOfTheSolution) {
  const std::string transcript = Transcript(
      solve_ +
      "say widths\nset MeasureDistancesCheckBox 1\nprint Label10\n"
      "click Picture1(0) 299 299\nclick Picture1(0) 329 259\nprint Text12(0)\n"
      "print XYDistanceEntries(0).X0Obj\nprint XYDistanceEntries(0).ObservedDistance\n"
      "print XYDistanceEntries(0).ScaleAtZ\nprint XYDistanceEntries(0).ImageCode\n"
      "expect XYDistanceEntries(0).SunAzimuth 171.8873385392469\nset MeasureDistancesCheckBox 0\n"
      "print Label10\n");
  // 30 by 40 pixels of 0.1 m; the second end lies 3 m east and 4 m north.
  EXPECT_EQ(transcript.substr(transcript.find("say widths\n") + 11),
            "beep 800 50\nLabel10 = Distances in XY assuming Z = .00 m\n"
            "Text12(0) = 5.0000\nXYDistanceEntries(0).X0Obj = 0\n"
            "XYDistanceEntries(0).ObservedDistance = 5\nXYDistanceEntries(0).ScaleAtZ = 10000\n"
            "XYDistanceEntries(0).ImageCode = 1\n"
            "beep 800 200\nLabel10 = You've returned in 3D-mode\n");
}

TEST_F(Pointer, CrownWidthMarksItsEndsAndALine) {
  EXPECT_EQ(Transcript("set MeasureDistancesCheckBox 1\nclick Picture1(0) 299 299\n"
                       "click Picture1(0) 329 259\nmarks Picture1(0)\n"),
            "beep 800 50\npoint 299 299 255 0 0 3\npoint 329 259 125 255 50 3\n"
            "line 299 299 329 259 255 255 0 1\n");
}

TEST_F(Pointer, AltClickInCrownModeGivesTheMessageAndKeepsThePairOpen) {
  EXPECT_EQ(
      Transcript("set MeasureDistancesCheckBox 1\nclick Picture1(0) 299 299\n"
                 "click Picture1(0) 10 10 alt\nclick Picture1(0) 329 259\nprint Text12(0)\n"),
      "beep 800 50\nmessage \"Cannot Zoom or Pan in the Measure Crown Widths Mode\" title=\"\" "
      "buttons=ok -> ok\nText12(0) = 5.0000\n");
}

TEST_F(Pointer, APairOverTwoPanesFillsTheSecondPanesEntry) {
  EXPECT_EQ(Transcript("set MeasureDistancesCheckBox 1\nclick Picture1(0) 299 299\n"
                       "click Picture1(1) 329 259\nprint XYDistanceEntries(1).X0Obj\n"
                       "expect XYDistanceEntries(1).X1Obj 3\nprint XYDistanceEntries(0).X1Obj\n"
                       "print XYDistanceEntries(1).Index\nprint Text12(1)\n"),
            "beep 800 50\nXYDistanceEntries(1).X0Obj = 0\n"
            "XYDistanceEntries(0).X1Obj = 0\nXYDistanceEntries(1).Index = 1\nText12(1) = 5.0000\n");
}

// An image whose film-to-pixel affine is singular.
class SingularImage : public testing::Test {
 protected:
  std::string Transcript(const std::string& script) {
    SmallImage image;
    image.id = 7001;
    image.a1 = 1, image.a2 = 2, image.b1 = 2, image.b2 = 4;
    return Played(image, script);
  }
  std::string Played(const SmallImage& image, const std::string& script) {
    const std::string text =
        Play_Script(site_.Folder(), "file " + site_.Write_Image("a", image) +
                                        "\nmenu Add_images_to_set\nsay go\n" + script)
            .transcript;
    return text.substr(std::min(text.size(), text.find("say go\n") + 7));
  }
  static constexpr const char* kError =
      "error Picture1_MouseDown \"Division by zero: image 7001: the affine from film to pixels is "
      "singular\"\n";
  SmallSite site_;
};

TEST_F(SingularImage, MeasuringClickEndsAndLeavesObservationAndTick) {
  EXPECT_EQ(Transcript("try click Picture1(0) 5 5\nprint Text1(0)\nprint Text1(1)\n"
                       "print Check1(0)\nprint CurrentImage\n"),
            std::string(kError) + "Text1(0) = \nText1(1) = \nCheck1(0) = 0\nCurrentImage = -1\n");
}

TEST_F(SingularImage, PanEndsAndLeavesTheObservation) {
  EXPECT_EQ(Transcript("set Text1(0) 0.001\ntry click Picture1(0) 5 5 alt\nprint Text1(0)\n"),
            std::string(kError) + "Text1(0) = 0.001\n");
}

TEST_F(SingularImage, CrownWidthEndsAndStoresNoWidth) {
  const std::string transcript = Transcript(
      "set MeasureDistancesCheckBox 1\nsay click\ntry click Picture1(0) 5 5\n"
      "try click Picture1(0) 9 9\nprint Text12(0)\n"
      "print XYDistanceEntries(0).X0Obj\n");
  EXPECT_EQ(transcript.substr(transcript.find("say click\n") + 10),
            std::string(kError) + kError + "Text12(0) = \nXYDistanceEntries(0).X0Obj = 0\n");
}

TEST_F(SingularImage, CrownWidthWithoutAPrincipalDistanceEndsAtItsFirstClick) {
  SmallImage image;
  image.id = 7002;
  image.c = 0;
  const std::string transcript =
      Played(image,
             "set MeasureDistancesCheckBox 1\nsay click\ntry click Picture1(0) 5 5\n"
             "print XYDistanceEntries(0).ScaleAtZ\nmarks Picture1(0)\n");
  EXPECT_EQ(transcript.substr(transcript.find("say click\n") + 10),
            "error Picture1_MouseDown \"Division by zero: image 7002: no scale with a principal "
            "distance of 0\"\nXYDistanceEntries(0).ScaleAtZ = 0\n");
}

TEST_F(SingularImage, RoutineOnAnUntouchedRecordIsAnError) {
  EXPECT_EQ(Transcript("try call Pixel_To_Image 5 1 2\n"),
            "error Pixel_To_Image \"Division by zero: image 0: the affine from film to pixels is "
            "singular\"\n");
}

TEST_F(Pointer, TiePointAppendsALineAndMarksThePoint) {
  EXPECT_EQ(Transcript("menu Measure_Tie_and_CP\ninput 12\nclick Picture1(1) 100.5 50\n"
                       "marks Picture1(1)\nmarks Picture1(0)\n"),
            "input \"Give Point Id\" title=\"\" default=\"\" -> \"12\"\n"
            "point 100.5 50 255 0 0 3\ntext 100.5 50 \"12\" \"MS Sans Serif\" 12 plain 0 0 0\n");
  EXPECT_EQ(site_.Folder().Read("c/data/imageobs.txt"), "2 12 301.5 251\n");
}

TEST_F(Pointer, ADismissedTiePointQuestionEndsQuietlyAndTheNextOneWorks) {
  const std::string transcript = Transcript(
      "menu Measure_Tie_and_CP\ncancel\nclick Picture1(0) 10 10\nmarks Picture1(0)\nsay next\n"
      "input 4\nclick Picture1(1) 100.5 50\n");
  EXPECT_EQ(transcript.substr(0, transcript.find("say next")),
            "input \"Give Point Id\" title=\"\" default=\"\" -> cancel\n");
  EXPECT_EQ(site_.Folder().Read("c/data/imageobs.txt"), "2 4 301.5 251\n");
}

TEST_F(Pointer, ANegativeTiePointIdLeavesTheFileOpenSoThatTheNextOneFails) {
  const std::string transcript = Transcript(
      "menu Measure_Tie_and_CP\ninput -1\nclick Picture1(0) 10 10\n"
      "try click Picture1(0) 20 20\n");
  EXPECT_NE(transcript.find("error Picture1_MouseDown \"File already open: "
                            "c:\\data\\imageobs.txt\"\n"),
            std::string::npos)
      << transcript;
}

TEST_F(Pointer, TiePointTakesAPlainClickBeforePolygon) {
  const std::string transcript =
      Transcript("menu Measure_Tie_and_CP\nmenu Draw_Polygon\ninput 5\nclick Picture1(0) 10 10\n");
  EXPECT_NE(transcript.find("Give Point Id"), std::string::npos);
}

TEST_F(Pointer, ShiftRightClickClosesThePolygonWithBothModesOn) {
  const std::string transcript = Transcript(
      "menu Draw_Polygon\nclick Picture1(0) 10 10 right\nclick Picture1(0) 20 10\n"
      "menu Measure_Tie_and_CP\nmenu Clear_ima\nclick Picture1(0) 0 0 right shift\n"
      "marks Picture1(0)\n");
  EXPECT_EQ(transcript,
            "point 9 9 0 255 0 3\npoint 19 9 0 255 0 3\nline 10 10 20 10 255 0 0 1\n"
            "line 20 10 10 10 255 0 0 1\n");
}

TEST_F(Pointer, RightClickStartsAPolygonAndLeftClickAppends) {
  Transcript("menu Draw_Polygon\nclick Picture1(0) 10 10 right\nclick Picture1(0) 20.25 10\n");
  EXPECT_EQ(site_.Folder().Read("c/data/polyline.txt"), "211.00,789.00\n221.250,789.000\n");
  EXPECT_EQ(site_.Folder().Read("c/data/IMA_polyline.txt"), ".000000,.000000\n.000000,.000000\n");
  Transcript("menu Draw_Polygon\nclick Picture1(0) 10 10 right\n");
  EXPECT_EQ(site_.Folder().Read("c/data/polyline.txt"), "211.00,789.00\n");
}

TEST_F(Pointer, PolygonWithGroundCoordinatesWritesAllThreeFiles) {
  Transcript(solve_ +
             "menu Draw_Polygon\nmenu Draw_XYZ_Polygon\nclick Picture1(0) 309 289 right\n");
  // Col 510, row 510: 1 m east and north of the nadir.
  EXPECT_EQ(site_.Folder().Read("c/data/XY_polyline.txt"), "1.000,1.000,.000\n");
  EXPECT_EQ(site_.Folder().Read("c/data/IMA_polyline.txt"), ".000100,.000100\n");
}

TEST_F(Pointer, ALeftClickWithoutAnActivePolygonIsIgnoredInPolygonMode) {
  EXPECT_EQ(Transcript("menu Draw_Polygon\nclick Picture1(0) 10 10\nprint Check1(0)\n"
                       "click Picture1(0) 10 10 shift\nprint PaneViews(0)\n"),
            "Check1(0) = 0\nPaneViews(0) = 201 201 600 600 1 1\n");
}

TEST_F(Pointer, AClickOnAPaneThatIsNotShownFailsTheStep) {
  const PlayedSession played = Play_Script(site_.Folder(), start_ + "click Picture1(4) 1 1\n");
  EXPECT_EQ(played.status, 1);
}

TEST_F(Pointer, ASurfaceModeMeasuresInItsOwnPaneOnly) {
  // The column gradient of the images repeats itself: any score is acceptable.
  const std::string transcript = Transcript(
      "menu Measure_Triplet\nclick Picture1(0) 300 300\nprint Label4(2)\nprint Check1(0)\n");
  EXPECT_NE(transcript.find("Label4(2) = \n"), std::string::npos) << transcript;
  EXPECT_NE(transcript.find("Check1(0) = 1"), std::string::npos);
}

}  // namespace
}  // namespace sylvomex
