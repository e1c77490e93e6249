// SPDX-License-Identifier: MIT
// The anaglyph viewer by script: its pair, its pointer and keys, its points.
#include "commands/stereo/stereo_window.h"
#include "commands/stereo/stereo_pointer.h"
#include "imageblock/bitmap_file.h"
#include "stereo_site.h"
#include "support/address_space_limit.h"
#include "support/recording_screen.h"

namespace sylvomex {
namespace {

class AnaglyphWindow : public StereoSite {};
class StereoPointer : public StereoSite {};
class StereoBadInput : public StereoSite {
 protected:
  /// Opens a second pair, which must fail with the text and leave the first one in place.
  void Expect_Refused(const std::string& text) {
    const PlayedSession played = Play_Opened(
        "move Form5.Picture1 60 50\n"
        "file c:\\data\\bad.txt\ntry menu Form5.Open_Pair\n"
        "print Form5.Label1\nprint StereoState.WindowLeft\nmarks Form5.Picture1\n");
    EXPECT_EQ(played.status, 0) << played.reason;
    EXPECT_TRUE(Has(played, "error Open_Pair")) << played.transcript;
    EXPECT_TRUE(Has(played, text)) << played.transcript;
    EXPECT_TRUE(Has(played, "Form5.Label1 = X: 1006.00  Y: 2000.00  Z: .00")) << played.transcript;
    EXPECT_TRUE(Has(played, "WindowLeft = 100 200 200 300")) << played.transcript;
    EXPECT_EQ(Drawn_Lines(played.transcript).size(), 4u);
  }
};

TEST_F(AnaglyphWindow, OpensUnderItsTitle) {
  const PlayedSession played = Play(
      "print Form5.Visible\nmenu Open_Stereo_window\nprint Form5.Visible\n"
      "print Form5.Caption\n");
  EXPECT_EQ(played.transcript,
            "Form5.Visible = 0\nForm5.Visible = -1\n"
            "Form5.Caption = SYLVOMEX Anaglyph stereo window\n");
}

TEST_F(AnaglyphWindow, AResizeBeforeAPairLeavesThePictureAlone) {
  const PlayedSession played = Play(
      "menu Open_Stereo_window\nresize Form5 350 330\nprint StereoState.StereoWidth\n"
      "print StereoState.StereoHeight\nmove Form5.Picture1 5 5\nkey Form5 U\n"
      "doubleclick Form5.Picture1 5 5\nprint StereoState.StereoZ\nprint Form5.Label1\n"
      "marks Form5.Picture1\n");
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_EQ(played.transcript,
            "StereoState.StereoWidth = 300\nStereoState.StereoHeight = 300\n"
            "StereoState.StereoZ = 0\nForm5.Label1 = \n");
  EXPECT_FALSE(site.Folder().Has("c/data/pic_left.bmp"));
}

TEST_F(AnaglyphWindow, OpeningAPairAsksForItsFile) {
  EXPECT_TRUE(Has(Play("file c:\\data\\pair.txt\nmenu Form5.Open_Pair\n"),
                  "file title=\"Stereo pair file\" filter=\"TXT files (*.txt)|*.txt\""));
}

TEST_F(AnaglyphWindow, OpeningAPairBringsTheMarkToItsStart) {
  const PlayedSession played = Play_Opened(
      "print Form5.Label1\nprint StereoState.StereoX\nprint StereoState.AnchorX\n"
      "print StereoState.StartY\nprint StereoState.LeftRow\nprint StereoState.LeftCol\n"
      "print StereoState.RightCol\nprint StereoState.WindowLeft\nprint StereoState.WindowRight\n"
      "print StereoState.Parallax\nprint StereoSolution\nmarks Form5.Picture1\n");
  EXPECT_EQ(played.transcript,
            "Form5.Label1 = X: 1005.00  Y: 2000.00  Z: .00\n"
            "StereoState.StereoX = 1005\nStereoState.AnchorX = 1005\nStereoState.StartY = 2000\n"
            "StereoState.LeftRow = 150\nStereoState.LeftCol = 250\nStereoState.RightCol = 150\n"
            "StereoState.WindowLeft = 100 200 200 300\n"
            "StereoState.WindowRight = 100 100 200 200\n"
            "StereoState.Parallax = 50 50 50 50\nStereoSolution = 1005 2000 0\n");
}

TEST_F(AnaglyphWindow, ThePictureIsRedOfTheLeftAndCyanOfTheRight) {
  Play_Opened("");
  const PaneBitmap picture = Load_Bitmap(site.Folder().File("c/data/pic_left.bmp"));
  ASSERT_EQ(picture.width, 100);
  ASSERT_EQ(picture.height, 100);
  for (const auto& [px, py] : {std::pair{0, 0}, {99, 0}, {13, 77}, {99, 99}}) {
    const std::uint8_t* const bgr = &picture.bgr[static_cast<std::size_t>(3 * (100 * py + px))];
    EXPECT_EQ(bgr[2], (200 + px) % 256);
    EXPECT_EQ(bgr[1], (100 + py) % 256);
    EXPECT_EQ(bgr[0], (100 + py) % 256);
  }
}

TEST_F(AnaglyphWindow, AColourPairGivesEachChannelToItsEye) {
  StereoPair pair = Level_Pair();
  pair.ColorMode = 1;
  Write_Pair("pair.txt", pair);
  site.Folder().Write("c/data/left.raw", Raster(true, 3));
  site.Folder().Write("c/data/right.raw", Raster(false, 3));
  Play_Opened("");
  const PaneBitmap picture = Load_Bitmap(site.Folder().File("c/data/pic_left.bmp"));
  const std::uint8_t* const bgr = &picture.bgr[3 * (100 * 20 + 10)];
  EXPECT_EQ(bgr[2], 210);                // red of left column 210
  EXPECT_EQ(bgr[1], 120 + 100);          // green of right row 120
  EXPECT_EQ(bgr[0], (120 + 200) % 256);  // blue of it
}

TEST_F(AnaglyphWindow, ThePicturesFileIsAPlainBitmapWithNothingBesideIt) {
  Play_Opened("");
  const std::string file = site.Folder().Read("c/data/pic_left.bmp");
  ASSERT_EQ(file.size(), 54u + 3 * 100 * 100);
  EXPECT_EQ(file.substr(0, 2), "BM");
  EXPECT_EQ(static_cast<unsigned char>(file[22]), 100);  // a positive height: rows from the bottom
  EXPECT_EQ(static_cast<unsigned char>(file[54]), 199);  // blue of the last row's first pixel
  for (const auto& entry : std::filesystem::directory_iterator(site.Folder().Path() / "c/data")) {
    EXPECT_EQ(entry.path().string().find(".part"), std::string::npos);
  }
}

TEST_F(AnaglyphWindow, IsBlackBesideTheRasters) {
  StereoPair pair = Level_Pair();
  pair.start = {1000 - 20, 2000, 0};  // left column 0, right column -100
  Write_Pair("pair.txt", pair);
  Play_Opened("");
  const PaneBitmap picture = Load_Bitmap(site.Folder().File("c/data/pic_left.bmp"));
  const std::uint8_t* const outside = &picture.bgr[3 * (100 * 50 + 49)];
  const std::uint8_t* const inside = &picture.bgr[3 * (100 * 50 + 60)];
  EXPECT_EQ(outside[2], 0);
  EXPECT_EQ(inside[2], 10);
  EXPECT_EQ(inside[1], 0);
}

TEST_F(AnaglyphWindow, AResizeRecentresOnTheMark) {
  const PlayedSession played = Play_Opened(
      "move Form5.Picture1 60 50\nresize Form5 250 230\nprint StereoState.StereoWidth\n"
      "print StereoState.WindowLeft\nprint StereoState.AnchorX\nprint Form5.Picture1.Width\n"
      "marks Form5.Picture1\n");
  EXPECT_EQ(played.transcript,
            "StereoState.StereoWidth = 200\nStereoState.WindowLeft = 50 160 250 360\n"
            "StereoState.AnchorX = 1006\nForm5.Picture1.Width = 204\n");
}

TEST_F(AnaglyphWindow, AResizeOfAPairAtTheOriginLeavesThePictureAlone) {
  StereoPair pair = Level_Pair();
  pair.left.centre.X -= 1004.5;
  pair.right.centre.X -= 1004.5;
  pair.start.X -= 1004.5;
  Write_Pair("pair.txt", pair);
  const PlayedSession played = Play_Opened(
      "resize Form5 250 230\nprint StereoState.StereoWidth\nprint StereoState.WindowLeft\n");
  EXPECT_EQ(played.transcript,
            "StereoState.StereoWidth = 200\nStereoState.WindowLeft = 100 200 200 300\n");
}

TEST_F(AnaglyphWindow, AWidthBeyondTheLimitIsRefusedAndChangesNothing) {
  const PlayedSession played = Play_Opened(
      "try resize Form5 40000 130\nprint StereoState.StereoWidth\n"
      "print StereoState.WindowLeft\nprint Form5.Width\nresize Form5 40000 130\n");
  EXPECT_EQ(played.status, 1);
  EXPECT_NE(played.reason.find("a window of 40000 x 130 pixels"), std::string::npos);
  EXPECT_FALSE(Has(played, "Form5.Width = 40000")) << played.transcript;
  EXPECT_TRUE(Has(played, "StereoWidth = 100\nStereoState.WindowLeft = 100 200 200 300\n"));
}

TEST_F(AnaglyphWindow, APictureBeyondTheMemoryIsRefusedAndTheOldOneStays) {
  const AddressSpaceLimit limit(std::uint64_t{512} << 20);
  const PlayedSession played =
      Play_Opened("try resize Form5 16050 16030\nprint StereoState.WindowLeft\n");
  EXPECT_EQ(played.status, 0) << played.reason;
  // 3 x 16000 x 16000 bytes.
  EXPECT_TRUE(played.transcript.starts_with(
      "error Form_Resize \"Out of memory: a stereo picture of 16000 x 16000 pixels takes 732 MB, "))
      << played.transcript;
  EXPECT_TRUE(Has(played, "WindowLeft = 100 200 200 300")) << played.transcript;
}

TEST_F(AnaglyphWindow, ExitHidesItAndTheTitleBarDoesTheSame) {
  const PlayedSession played = Play_Opened(
      "menu Form5.Exit_stereo\nexpect Form5.Visible 0\nmenu Open_Stereo_window\n"
      "expect Form5.Visible -1\nclose Form5\nexpect Form5.Visible 0\n"
      "expect StereoState.StereoX 1005\n");
  EXPECT_EQ(played.status, 0) << played.reason;
}

TEST_F(AnaglyphWindow, AboutShowsHelp) {
  EXPECT_TRUE(Has(Play("menu Form5.About\n"), "message \"Look at the picture through red"));
}

TEST_F(AnaglyphWindow, RetrieveGoesToTheSolutionOfTheMainWindow) {
  const PlayedSession played = Play_Opened(
      "input 1007\ninput 2003\ninput 0\nmenu Set_3D_solution\nmenu Form5.Retrieve\n"
      "print Form5.Label1\nprint StereoState.AnchorY\nprint StereoState.WindowLeft\n");
  EXPECT_TRUE(Has(played,
                  "Form5.Label1 = X: 1007.00  Y: 2003.00  Z: .00\nStereoState.AnchorY = 2003\n"
                  "StereoState.WindowLeft = 70 220 170 320\n"))
      << played.transcript;
}

TEST_F(AnaglyphWindow, RetrieveOfAPointFarAwayLeavesThePairAsItWas) {
  const PlayedSession played = Play_Opened(
      "input 99000\ninput 2003\ninput 0\nmenu Set_3D_solution\ntry menu Form5.Retrieve\n"
      "print StereoState.StereoX\nprint StereoState.WindowLeft\n");
  EXPECT_TRUE(Has(played, "error Retrieve \"Overflow")) << played.transcript;
  EXPECT_TRUE(Has(played, "StereoX = 1005\nStereoState.WindowLeft = 100 200 200 300\n"));
}

TEST_F(AnaglyphWindow, TheMainWindowTakesTheMarkAsItsSolution) {
  const PlayedSession played = Play_Opened(
      "move Form5.Picture1 60 50\nkey Form5 U\nmenu Set_3D_solution_To_Stereo_Sol\n"
      "expect Solution3D 1006 2000 0.01\nexpect SolutionValid -1\n"
      "expect Label10 \"3D-value set succesfully\"\n");
  EXPECT_EQ(played.status, 0) << played.reason;
}

TEST_F(AnaglyphWindow, CommandsWithoutAPairTellWhatIsMissing) {
  for (const char* item : {"Retrieve", "Plot_Id_XYZ_Point_Data", "Plot_Floating_Text",
                           "Plot_3D_line_segments", "Import_And_Export_BMPs"}) {
    const PlayedSession played = Play(std::string("try menu Form5.") + item + "\n");
    EXPECT_TRUE(Has(played, std::string("error ") + item)) << played.transcript;
    EXPECT_TRUE(Has(played, "no stereo pair is open")) << played.transcript;
  }
}

TEST_F(StereoPointer, AMoveTakesTheMarkAlongAtItsHeight) {
  const PlayedSession played = Play_Opened(
      "move Form5.Picture1 60 30\nprint Form5.Label1\nprint StereoState.WindowLeft\n"
      "print StereoState.AnchorX\nprint StereoState.LeftCol\nprint StereoState.Parallax\n");
  EXPECT_EQ(played.transcript,
            "Form5.Label1 = X: 1006.00  Y: 2002.00  Z: .00\n"
            "StereoState.WindowLeft = 100 200 200 300\nStereoState.AnchorX = 1005\n"
            "StereoState.LeftCol = 260\nStereoState.Parallax = 30 60 30 60\n");
}

double Middle_Of(const DrawnLine& line) { return (line.x1 + line.x2) / 2; }

TEST_F(StereoPointer, TheFloatingMarkIsACrossForEachEye) {
  const PlayedSession played = Play_Opened("move Form5.Picture1 60 30\nmarks Form5.Picture1\n");
  Expect_Lines(played.transcript, {{52, 30, 68, 30, "255 0 0 2"},
                                   {52, 30, 68, 30, "0 255 255 2"},
                                   {60, 22, 60, 38, "255 0 0 2"},
                                   {60, 22, 60, 38, "0 255 255 2"}});
}

TEST_F(StereoPointer, ThereIsOneFloatingMarkHoweverOftenThePointerMoves) {
  const PlayedSession played = Play_Opened(
      "move Form5.Picture1 60 30\nmove Form5.Picture1 61 31\nmove Form5.Picture1 62 32\n"
      "marks Form5.Picture1\n");
  const auto lines = Drawn_Lines(played.transcript);
  ASSERT_EQ(lines.size(), 4u) << played.transcript;
  EXPECT_NEAR(Middle_Of(lines[0]), 62, 1e-6);
}

TEST_F(StereoPointer, AHigherMarkIsSeenWithItsParallax) {
  // Z = 0.01 m, X = 1006: left column 200 + 6 x 10000 / 999.99, right column
  // 200 - 4 x 10000 / 999.99, in windows that begin at columns 200 and 100.
  const PlayedSession played =
      Play_Opened("move Form5.Picture1 60 50\nkey Form5 U\nmarks Form5.Picture1\n");
  const auto lines = Drawn_Lines(played.transcript);
  ASSERT_EQ(lines.size(), 4u);
  EXPECT_NEAR(Middle_Of(lines[0]), 60000 / 999.99, 1e-6);
  EXPECT_NEAR(Middle_Of(lines[1]), 100 - 40000 / 999.99, 1e-6);
}

TEST_F(StereoPointer, TheKeysMoveTheMarkByACentimetre) {
  const PlayedSession played = Play_Opened(
      "key Form5 U\nprint Form5.Label1\nkey Form5 U shift\nkey Form5 U\nprint Form5.Label1\n"
      "key Form5 D\nprint Form5.Label1\nkey Form5 E\nprint Form5.Label1\n");
  EXPECT_EQ(played.transcript,
            "Form5.Label1 = X: 1005.00  Y: 2000.00  Z: .01\n"
            "Form5.Label1 = X: 1005.00  Y: 2000.00  Z: .03\n"
            "Form5.Label1 = X: 1005.00  Y: 2000.00  Z: .02\n"
            "Form5.Label1 = X: 1005.00  Y: 2000.00  Z: .02\n");
}

TEST_F(StereoPointer, TheKeysReachThePictureOfAWindowThatWasNotOpenedByItsItem) {
  const PlayedSession played =
      Play("file c:\\data\\pair.txt\nmenu Form5.Open_Pair\nkey Form5 U\nprint Form5.Label1\n");
  EXPECT_TRUE(Has(played, "Z: .01\n")) << played.transcript;
}

TEST_F(StereoPointer, KeysWithTheCodesOfSmallLettersMoveTheMarkToo) {
  const PlayedSession played = Play_Opened(
      "key Form5 F6\nkey Form5 F6\nprint Form5.Label1\nkey Form5 num4\nprint Form5.Label1\n");
  EXPECT_TRUE(Has(played, "Z: .02\n")) << played.transcript;
  EXPECT_TRUE(Has(played, "Z: .01\n")) << played.transcript;
}

TEST_F(StereoPointer, TheNextMoveKeepsTheHeight) {
  const PlayedSession played =
      Play_Opened("key Form5 U\nkey Form5 U\nmove Form5.Picture1 40 40\nprint Form5.Label1\n");
  EXPECT_TRUE(Has(played, "Z: .02\n")) << played.transcript;
}

TEST_F(StereoPointer, ADoubleClickRecentresAndDropsWhatWasDrawn) {
  const PlayedSession played = Play_Opened(
      "move Form5.Picture1 60 30\ndoubleclick Form5.Picture1 60 30\n"
      "print StereoState.AnchorX\nprint StereoState.AnchorY\nprint StereoState.WindowLeft\n"
      "print StereoState.WindowRight\nmarks Form5.Picture1\nprint Form5.Picture1.Visible\n");
  EXPECT_NE(played.transcript.find("StereoState.WindowLeft = 80 210 180 310\n"
                                   "StereoState.WindowRight = 80 110 180 210\n"
                                   "Form5.Picture1.Visible = -1\n"),
            std::string::npos)
      << played.transcript;
}

TEST_F(StereoPointer, DoubleClickedPointsAreSavedInTheirOrder) {
  const PlayedSession played = Play_Opened(
      "move Form5.Picture1 60 30\ndoubleclick Form5.Picture1 60 30\n"
      "key Form5 U\nmove Form5.Picture1 20 50\ndoubleclick Form5.Picture1 20 50\n"
      "file c:\\data\\points.txt\nmenu Form5.Save_point_File\n");
  EXPECT_TRUE(Has(played, "file title=\"File with id, X, Y, Z\""));
  // The second pointer is 30 pixels of 0.1 m to the left of the first point.
  EXPECT_EQ(site.Folder().Read("c/data/points.txt"),
            "1,1006.00,2002.00,.00\n2,1003.00,2002.00,.01\n");
}

TEST_F(StereoPointer, APointIsKeptWhenItsRecentringFails) {
  RecordingScreen screen;
  const auto block = std::make_unique<Workspace>(site.Drives(), screen);
  screen.files.push_back("c:\\data\\pair.txt");
  Open_Pair(*block);
  std::filesystem::remove(site.Folder().Path() / "c/data/right.raw");
  EXPECT_THROW(Form5_Picture1_DblClick(*block), RunTimeError);
  ASSERT_EQ(block->Stereo.MeasuredPoints.size(), 1u);
  EXPECT_EQ(block->Stereo.MeasuredPoints[0].X, 1005);
}

TEST_F(StereoPointer, OpeningAPairBeginsAnew) {
  Play_Opened(
      "doubleclick Form5.Picture1 60 30\nfile c:\\data\\pair.txt\nmenu Form5.Open_Pair\n"
      "file c:\\data\\points.txt\nmenu Form5.Save_point_File\n");
  EXPECT_EQ(site.Folder().Read("c/data/points.txt"), "");
}

TEST_F(StereoPointer, SavingIntoAMissingFolderIsAMessage) {
  const PlayedSession played =
      Play_Opened("file c:\\none\\points.txt\nmenu Form5.Save_point_File\n");
  EXPECT_TRUE(Has(played, "message \"An error occurred!\"")) << played.transcript;
}

TEST_F(StereoPointer, AFailedSavingLeavesTheOlderFile) {
  site.Folder().Write("c/data/points.txt/inside", "");
  const PlayedSession played =
      Play_Opened("file c:\\data\\points.txt\nmenu Form5.Save_point_File\n");
  EXPECT_TRUE(Has(played, "message \"An error occurred!\"")) << played.transcript;
  EXPECT_TRUE(site.Folder().Has("c/data/points.txt/inside"));
}

TEST_F(StereoPointer, DismissedDialogsDoNothing) {
  const PlayedSession played = Play_Opened(
      "cancel\nmenu Form5.Open_Pair\ncancel\nmenu Form5.Save_point_File\ncancel\n"
      "menu Form5.Plot_Floating_Text\nprint StereoState.StereoX\n");
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_FALSE(Has(played, "error"));
}

TEST_F(StereoBadInput, APairFileCutShort) {
  const std::string text = Pair_Text(Level_Pair());
  site.Folder().Write("c/data/bad.txt", text.substr(0, text.size() / 2));
  Expect_Refused("c:\\data\\bad.txt, line");
}

TEST_F(StereoBadInput, AFileOfAnotherKind) {
  site.Folder().Write("c/data/bad.txt", "1,2515000.00,6860000.00,170.00\n2,1,2,3\n");
  Expect_Refused("c:\\data\\bad.txt, line");
}

TEST_F(StereoBadInput, AnEmptyFile) {
  site.Folder().Write("c/data/bad.txt", "");
  Expect_Refused("c:\\data\\bad.txt");
}

TEST_F(StereoBadInput, ARasterThatIsMissing) {
  StereoPair pair = Level_Pair();
  pair.right.raster = "c:\\data\\none.raw";
  Write_Pair("bad.txt", pair);
  Expect_Refused("File not found: c:\\data\\none.raw");
}

TEST_F(StereoBadInput, ARasterShorterThanThePairSays) {
  StereoPair pair = Level_Pair();
  pair.NormalHeight = 301;
  Write_Pair("bad.txt", pair);
  Expect_Refused("c:\\data\\left.raw: the pair's rasters have 120400 bytes, the file 120000");
}

TEST_F(StereoBadInput, GreyRastersOfAColourPair) {
  StereoPair pair = Level_Pair();
  pair.ColorMode = 1;
  Write_Pair("bad.txt", pair);
  Expect_Refused("have 360000 bytes, the file 120000");
}

TEST_F(StereoBadInput, ABaseOfNoLength) {
  StereoPair pair = Level_Pair();
  pair.right.centre = pair.left.centre;
  Write_Pair("bad.txt", pair);
  Expect_Refused("the base has no length");
}

TEST_F(StereoBadInput, AWidthAbove32767) {
  std::string text = Pair_Text(Level_Pair());
  text.replace(text.find("400,300"), 7, "40000,300");
  site.Folder().Write("c/data/bad.txt", text);
  Expect_Refused("Overflow: c:\\data\\bad.txt, line 9");
}

TEST_F(StereoBadInput, AStartPointFarAway) {
  StereoPair pair = Level_Pair();
  pair.start.X = 9000;
  Write_Pair("bad.txt", pair);
  Expect_Refused("Overflow");
}

TEST_F(StereoBadInput, AMatrixOfZeros) {
  StereoPair pair = Level_Pair();
  pair.left.normal = {0, 0, 0, 0, 0, 0, 0, 0, 0};
  Write_Pair("bad.txt", pair);
  Expect_Refused("Division by zero");
}

}  // namespace
}  // namespace sylvomex
