// SPDX-License-Identifier: MIT
// Points, texts and lines of files in the stereo model, and the styles of its lines.
#include "commands/stereo/stereo_drawing.h"
#include "stereo_site.h"

namespace sylvomex {
namespace {

class StereoVectors : public StereoSite {
 protected:
  PlayedSession Plot(const std::string& item, const std::string& rows) {
    site.Folder().Write("c/data/rows.txt", rows);
    return Play_Opened("file c:\\data\\rows.txt\nmenu Form5." + item + "\nmarks Form5.Picture1\n");
  }
};

TEST(StereoStyles, HaveTheirPenModesAndWidths) {
  const std::array<StereoPosition, 2> points{};
  const Mark copied = Stereo_Lines(points, StereoStyle::Copied).front();
  const Mark masked = Stereo_Lines(points, StereoStyle::Masked).front();
  const Mark marked = Stereo_Lines(points, StereoStyle::Marked).front();
  EXPECT_EQ(static_cast<int>(copied.mode), 13);
  EXPECT_EQ(static_cast<int>(masked.mode), 9);
  EXPECT_EQ(static_cast<int>(marked.mode), 8);
  EXPECT_EQ(copied.width, 1);
  EXPECT_EQ(masked.width, 1);
  EXPECT_EQ(marked.width, 2);
}

TEST(StereoStyles, DrawTheLeftListRedThenTheRightOneCyan) {
  const std::array<StereoPosition, 3> points{
      {{{1, 2}, {11, 2}}, {{3, 4}, {13, 4}}, {{5, 6}, {15, 6}}}};
  const std::vector<Mark> lines = Stereo_Lines(points, StereoStyle::Marked);
  ASSERT_EQ(lines.size(), 4u);
  EXPECT_EQ(lines[0].colour, (Colour{255, 0, 0}));
  EXPECT_EQ(lines[1].x2, 5);
  EXPECT_EQ(lines[2].colour, (Colour{0, 255, 255}));
  EXPECT_EQ(lines[2].x1, 11);
  EXPECT_EQ(lines[3].x2, 15);
}

TEST(StereoStyles, OfOnePointDrawNothing) {
  const std::array<StereoPosition, 1> point{};
  EXPECT_TRUE(Stereo_Lines(point, StereoStyle::Marked).empty());
}

TEST_F(StereoVectors, PointsAreCrossesOfHalfSizeFour) {
  const PlayedSession played = Plot("Plot_Id_XYZ_Point_Data", "tree_1 1006 2002 0\n");
  EXPECT_TRUE(Has(played, "file title=\"File with rows of id, X, Y, Z\""));
  Expect_Lines(played.transcript, {{56, 30, 64, 30, "255 0 0 1"},
                                   {56, 30, 64, 30, "0 255 255 1"},
                                   {60, 26, 60, 34, "255 0 0 1"},
                                   {60, 26, 60, 34, "0 255 255 1"}});
}

TEST_F(StereoVectors, AHighPointHasEachImageAtItsOwnPlace) {
  // 200 m up: left 62.5, right 37.5 (a pixel is 0.08 m there).
  const PlayedSession played = Plot("Plot_Id_XYZ_Point_Data", "1,1005,2000,200\n\n");
  Expect_Lines(played.transcript, {{58.5, 50, 66.5, 50, "255 0 0 1"},
                                   {33.5, 50, 41.5, 50, "0 255 255 1"},
                                   {62.5, 46, 62.5, 54, "255 0 0 1"},
                                   {37.5, 46, 37.5, 54, "0 255 255 1"}});
}

TEST_F(StereoVectors, PointsBeforeABadRowStay) {
  const PlayedSession played = Plot("Plot_Id_XYZ_Point_Data", "1 1006 2002 0\n2 here 2002 0\n");
  EXPECT_TRUE(Has(played, "message \"An error occurred\" "));
  EXPECT_EQ(Drawn_Lines(played.transcript).size(), 4u);
}

TEST_F(StereoVectors, TextsFloatInBothColours) {
  const PlayedSession played = Plot("Plot_Floating_Text", "1006,2002,0,\"Old spruce\"\n");
  EXPECT_TRUE(Has(played, "file title=\"TXT file for X,Y,Z, text\""));
  EXPECT_TRUE(Has(played,
                  "text 60 30 \"Old spruce\" \"Arial\" 10 plain 255 0 0\n"
                  "text 60 30 \"Old spruce\" \"Arial\" 10 plain 0 255 255\n"))
      << played.transcript;
}

TEST_F(StereoVectors, ATextFileWithoutItsTextIsAMessage) {
  EXPECT_TRUE(Has(Plot("Plot_Floating_Text", "1006,2002\n"), "message \"An error occurred\" "));
}

TEST_F(StereoVectors, LinesEndAtTheirZeros) {
  const PlayedSession played = Plot("Plot_3D_line_segments",
                                    "1005,2000,0\n1006,2000,0\n1006,2001,0\n0,0,0\n"
                                    "1004,2000,0\n1003,2000,0\n0,0,0\n");
  EXPECT_TRUE(Has(played, "file title=\"TXT file for line segments\""));
  Expect_Lines(played.transcript, {{50, 50, 60, 50, "255 0 0 2"},
                                   {60, 50, 60, 40, "255 0 0 2"},
                                   {50, 50, 60, 50, "0 255 255 2"},
                                   {60, 50, 60, 40, "0 255 255 2"},
                                   {40, 50, 30, 50, "255 0 0 2"},
                                   {40, 50, 30, 50, "0 255 255 2"}});
}

TEST_F(StereoVectors, ALastLineWithoutZerosIsDrawn) {
  const PlayedSession played = Plot("Plot_3D_line_segments", "1005,2000,0\n1006,2000,0\n");
  Expect_Lines(played.transcript, {{50, 50, 60, 50, "255 0 0 2"}, {50, 50, 60, 50, "0 255 255 2"}});
}

TEST_F(StereoVectors, AFileThatIsMissingIsAMessage) {
  const PlayedSession played =
      Play_Opened("file c:\\data\\gone.txt\nmenu Form5.Plot_3D_line_segments\n");
  EXPECT_TRUE(Has(played, "message \"An error occurred\" "));
}

TEST_F(StereoVectors, AMoveOfThePointerKeepsThemBelowTheFloatingMark) {
  site.Folder().Write("c/data/rows.txt", "1005,2000,0\n1006,2000,0\n");
  const PlayedSession played = Play_Opened(
      "file c:\\data\\rows.txt\nmenu Form5.Plot_3D_line_segments\nmove Form5.Picture1 20 20\n"
      "move Form5.Picture1 21 20\nmarks Form5.Picture1\n");
  const std::vector<DrawnLine> lines = Drawn_Lines(played.transcript);
  ASSERT_EQ(lines.size(), 2u + 4);
  EXPECT_NEAR(lines[0].x2, 60, 1e-6);                      // the model line
  EXPECT_NEAR((lines[2].x1 + lines[2].x2) / 2, 21, 1e-6);  // the mark at its last place
}

TEST_F(StereoVectors, ClearingDropsThemAndTheFloatingMark) {
  site.Folder().Write("c/data/rows.txt", "1005,2000,0\n1006,2000,0\n");
  const PlayedSession played = Play_Opened(
      "file c:\\data\\rows.txt\nmenu Form5.Plot_3D_line_segments\nmove Form5.Picture1 20 20\n"
      "menu Form5.Clear_Anaglyph_Window\nsay cleared\nmarks Form5.Picture1\n");
  EXPECT_TRUE(played.transcript.ends_with("say cleared\n")) << played.transcript;
}

}  // namespace
}  // namespace sylvomex
