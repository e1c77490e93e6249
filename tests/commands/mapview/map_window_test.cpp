// SPDX-License-Identifier: MIT
// The map window by script: a pane of 324 x 246 pixels on a map of 1000 x 1300.
#include <gtest/gtest.h>

#include <array>
#include <cstring>

#include "support/file_size_limit.h"
#include "support/map_files.h"
#include "support/session_run.h"
#include "support/small_site.h"

namespace sylvomex {
namespace {

using Rgb = std::array<int, 3>;

// Client 330 x 250: round(330 - 10) = 320, 3 x 320 mod 4 = 0, so 324; 250 - 10 + 2 + 4 = 246.
constexpr const char* kWindow = "menu Open_Map_Window\nresize Form8 330 250\n";
constexpr const char* kOpen = "file c:\\data\\map.hdr\nmenu Form8.Open_a_Map\n";
constexpr const char* kPrintView =
    "print Form8.Label2\nprint MapZoom\nprint MapViewCol\nprint MapViewRow\nprint MapFirstCol\n"
    "print MapLastCol\nprint MapFirstRow\nprint MapLastRow\n";

class MapWindow : public testing::Test {
 protected:
  MapWindow() { Write_Map(site.Folder()); }

  PlayedSession Play(const std::string& steps) const {
    return Play_Script(site.Folder(), kWindow + steps);
  }

  /// What kPrintView writes.
  static std::string View(const char* zoom_text, const char* zoom, int first_col, int last_col,
                          int first_row, int last_row) {
    const auto line = [](const char* name, const std::string& value) {
      return std::string(name) + " = " + value + "\n";
    };
    return line("Form8.Label2", zoom_text) + line("MapZoom", zoom) +
           line("MapViewCol", std::to_string(first_col)) +
           line("MapViewRow", std::to_string(first_row)) +
           line("MapFirstCol", std::to_string(first_col)) +
           line("MapLastCol", std::to_string(last_col)) +
           line("MapFirstRow", std::to_string(first_row)) +
           line("MapLastRow", std::to_string(last_row));
  }

  /// Red, green, blue of a pixel of the scratch bitmap.
  [[nodiscard]] Rgb Bitmap_At(int px, int py) const {
    const std::string bytes = site.Folder().Read("f/Map.BMP");
    const std::size_t at = 54 + 3 * (static_cast<std::size_t>(py) * 324 + px);
    const auto byte = [&](std::size_t k) { return static_cast<std::uint8_t>(bytes.at(at + k)); };
    return {byte(2), byte(1), byte(0)};
  }

  static bool Has(const PlayedSession& played, const std::string& text) {
    return played.transcript.find(text) != std::string::npos;
  }

  SmallSite site;
};

TEST_F(MapWindow, OpensAtHundredPercentWithAPaneOfTheClientSize) {
  const PlayedSession played = Play(
      "print Form8.Caption\nprint Form8.Visible\nprint Form8.Label2\nprint Form8.Option1\n"
      "print Form8.Option1.Caption\nprint MapPaneWidth\nprint MapPaneHeight\n"
      "print Form8.Picture1.Width\nprint Form8.Picture1.Height\nprint MapZoom\n"
      "print MapViewCol\nprint MapViewRow\n");
  EXPECT_EQ(played.transcript,
            "Form8.Caption = SYLVOMEX MAP window\nForm8.Visible = -1\nForm8.Label2 = Zoom 100 %\n"
            "Form8.Option1 = 0\nForm8.Option1.Caption = Pan\nMapPaneWidth = 324\n"
            "MapPaneHeight = 246\nForm8.Picture1.Width = 324\nForm8.Picture1.Height = 246\n"
            "MapZoom = 1\nMapViewCol = 1\nMapViewRow = 1\n");
}

TEST_F(MapWindow, MenuItemsHaveTheirCaptions) {
  const PlayedSession played =
      Play("print Form8.Open_a_Map.Caption\nprint Form8.Exit_Map_Window.Caption\n");
  EXPECT_EQ(played.transcript,
            "Form8.Open_a_Map.Caption = Open a MAP (*.hdr)\n"
            "Form8.Exit_Map_Window.Caption = Exit Map Window\n");
}

TEST_F(MapWindow, AMapOpensAtItsUpperLeftCorner) {
  const PlayedSession played = Play(std::string(kOpen) + kPrintView);
  EXPECT_EQ(played.transcript,
            "file title=\"Header file for a 2D MAP\" filter=\"Set files (*.hdr)|*.hdr\" "
            "folder=\"\" -> \"c:\\data\\map.hdr\"\n" +
                View("Zoom 100 %", "1", 1, 324, 1, 246));
  EXPECT_EQ(Bitmap_At(0, 0), (Rgb{0, 0, 7}));
  EXPECT_EQ(Bitmap_At(323, 245), (Rgb{323 - 251, 245 - 241, 7}));
}

TEST_F(MapWindow, TheScratchBitmapIsThePaneFromTheTop) {
  Play(kOpen);
  const std::string bytes = site.Folder().Read("f/Map.BMP");
  EXPECT_EQ(bytes.size(), 54u + 3 * 324 * 246);
  EXPECT_EQ(bytes.substr(0, 2), "BM");
  const auto value = [&](std::size_t at) {
    std::int32_t number = 0;
    std::memcpy(&number, &bytes[at], sizeof number);
    return number;
  };
  EXPECT_EQ(value(2), 3 * 324 * 246);
  EXPECT_EQ(value(18), 324);
  EXPECT_EQ(value(22), -246);
}

TEST_F(MapWindow, RightClicksGoToFiftyAndTwentyFivePercentAndALeftClickBackToFifty) {
  const std::string half = "click Form8.Picture1 162 123 right\n";
  const PlayedSession played = Play(kOpen + half + kPrintView + half + kPrintView +
                                    "click Form8.Picture1 162 123\n" + kPrintView);
  EXPECT_EQ(played.status, 0) << played.reason;
  // Around (163, 124) both first values leave the map; then around (325, 247) at 25 %; then around
  // (649, 493): 649 - 162 / 0.5 to 649 + 161 / 0.5, 493 - 123 / 0.5 to 493 + 122 / 0.5.
  const std::string views = View("Zoom 50 %", "0.5", 1, 647, 1, 491) +
                            View("Zoom 25 %", "0.25", 1, 1293, 1, 981) +
                            View("Zoom 50 %", "0.5", 325, 971, 247, 737);
  EXPECT_EQ(played.transcript.substr(played.transcript.find("Form8.Label2")), views);
  // Every second pixel from file column 324 and row 246.
  EXPECT_EQ(Bitmap_At(0, 0), (Rgb{324 - 251, 246 - 241, 7}));
  EXPECT_EQ(Bitmap_At(1, 3), (Rgb{326 - 251, 252 - 241, 7}));
}

TEST_F(MapWindow, ALeftClickRepeatsPixelsInBlocks) {
  const PlayedSession played =
      Play(std::string(kOpen) + "click Form8.Picture1 200 150\n" + kPrintView);
  // Around (201, 151): 201 - 81 to 201 + 80.5, 151 - 61.5 to 151 + 61, halves to even.
  EXPECT_TRUE(Has(played, View("Zoom 200 %", "2", 120, 282, 90, 212))) << played.transcript;
  EXPECT_EQ(Bitmap_At(0, 0), (Rgb{119, 89, 7}));
  EXPECT_EQ(Bitmap_At(3, 5), (Rgb{120, 91, 7}));
}

TEST_F(MapWindow, AnotherButtonCentresOnly) {
  const PlayedSession played =
      Play(std::string(kOpen) + "click Form8.Picture1 200 150 middle\n" + kPrintView);
  // Around (201, 151): 201 - 162 to 201 + 161, 151 - 123 to 151 + 122.
  EXPECT_TRUE(Has(played, View("Zoom 100 %", "1", 39, 362, 28, 273))) << played.transcript;
}

TEST_F(MapWindow, BeyondTheRightEdgeThePaneShowsWhatTheFileHolds) {
  std::string steps = kOpen;
  for (int k = 0; k < 5; ++k) steps += "click Form8.Picture1 323 123 middle\n";
  const PlayedSession played = Play(steps + "print MapFirstCol\n");
  EXPECT_EQ(played.status, 0) << played.reason;
  const std::size_t at = played.transcript.find("MapFirstCol = ");
  const int first = std::stoi(played.transcript.substr(at + 14));
  ASSERT_GT(first + 323, kMapWidth);
  const int beyond = kMapWidth - (first - 1);  // pane column of the first pixel beyond the edge
  EXPECT_EQ(Bitmap_At(beyond - 1, 0)[0], 999 % 251);
  EXPECT_EQ(Bitmap_At(beyond, 0)[0], 0);
  EXPECT_EQ(Bitmap_At(beyond, 0)[1], (Bitmap_At(beyond - 1, 0)[1] + 1) % 241);
}

TEST_F(MapWindow, AtTheLowerEdgeTheViewStaysInsideTheMap) {
  std::string steps = kOpen;
  for (int k = 0; k < 12; ++k) steps += "click Form8.Picture1 162 245 middle\n";
  const PlayedSession played = Play(steps + kPrintView);
  // 1300 - 246 = 1054 and 1054 + 245 = 1299.
  EXPECT_TRUE(Has(played, "MapFirstRow = 1054\nMapLastRow = 1299\n")) << played.transcript;
}

TEST_F(MapWindow, ThePointerShowsMapPixelAndGroundPosition) {
  const PlayedSession played =
      Play(std::string(kOpen) + "move Form8.Picture1 10 20\nprint Form8.Label1\n" +
           "click Form8.Picture1 162 123 right\nmove Form8.Picture1 10 20\nprint Form8.Label1\n");
  // (11, 21): X = 0.5 x 11 + 1000, Y = (1300 - 21) x 0.25 + 5000; at 50 % (21, 41).
  EXPECT_TRUE(Has(played, "Form8.Label1 = 11 , 21    1005.50 , 5319.75\n")) << played.transcript;
  EXPECT_TRUE(Has(played, "Form8.Label1 = 21 , 41    1010.50 , 5314.75\n")) << played.transcript;
}

TEST_F(MapWindow, PixelsBelowTheMapAreOneMessageEachAndWhite) {
  // 25 rows of 40 columns at 10 %: row 26 of the pane would be row 251 of the map.
  site.Folder().Write("c/data/low.raw", site.Folder().Read("c/data/map.raw").substr(0, 3000 * 990));
  site.Folder().Write("c/data/low.hdr", "c:\\data\\low.raw 0 0 1 1 1000 990 1\n");
  const PlayedSession played = Play(
      "file c:\\data\\low.hdr\nmenu Form8.Open_a_Map\n"
      "click Form8.Picture1 162 123 right\nclick Form8.Picture1 162 123 right\n");
  // At 25 % the test takes 4 j + 1 for j to 323 against 990 rows: 77 columns of each row fail.
  std::size_t messages = 0;
  const std::string line = "message \"In create BMP: exceeding allowed indeces\"";
  for (std::size_t at = played.transcript.find(line); at != std::string::npos;
       at = played.transcript.find(line, at + 1)) {
    ++messages;
  }
  EXPECT_EQ(messages, 246u * (324 - 248));
  EXPECT_EQ(Bitmap_At(323, 0), (Rgb{255, 255, 255}));
  EXPECT_NE(Bitmap_At(247, 0), (Rgb{255, 255, 255}));
}

TEST_F(MapWindow, AMapThatCannotBeReadLeavesTheOneThatIsOpen) {
  site.Folder().Write("c/data/short.raw", "123456");
  const char* const bad[][2] = {
      {"c:\\data\\map.raw 1000 east 1 1 10 10 1", "item 3"},
      {"c:\\data\\none.raw 0 0 1 1 10 10 1", "File not found: c:\\data\\none.raw"},
      {"c:\\data\\short.raw 0 0 1 1 100 100 1",
       "c:\\data\\short.raw: the header tells 30000 bytes"},
      {"c:\\data\\map.raw 0 0 1 1 10", "Input past end of file"},
      {"c:\\data\\map.raw 0 0 1 1 0 10 1", "the map has 0 columns"},
  };
  for (const auto& [header, cause] : bad) {
    site.Folder().Write("c/data/bad.hdr", header);
    const PlayedSession played =
        Play(std::string(kOpen) + "click Form8.Picture1 162 123 right\n" +
             "file c:\\data\\bad.hdr\ntry menu Form8.Open_a_Map\n" + kPrintView +
             "move Form8.Picture1 10 20\nprint Form8.Label1\n");
    EXPECT_EQ(played.status, 0) << played.reason;
    EXPECT_TRUE(Has(played, "error Open_a_Map \"")) << played.transcript;
    EXPECT_TRUE(Has(played, cause)) << played.transcript;
    EXPECT_TRUE(Has(played, View("Zoom 50 %", "0.5", 1, 647, 1, 491))) << played.transcript;
    EXPECT_TRUE(Has(played, "21 , 41    1010.50 , 5314.75")) << played.transcript;
  }
}

TEST_F(MapWindow, AClickThatCannotBeShownLeavesTheView) {
  // Rows 1300 - 246 / 0.125 would begin above the file.
  const std::string half = "click Form8.Picture1 1 1 right\n";
  const PlayedSession played = Play(kOpen + half + half + "try " + half + kPrintView);
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_TRUE(Has(played, "error Picture1_MouseDown \"")) << played.transcript;
  EXPECT_TRUE(Has(played, View("Zoom 25 %", "0.25", 1, 1293, 1, 981))) << played.transcript;
}

TEST_F(MapWindow, AClickWithoutAMapSaysSo) {
  const PlayedSession played = Play("try click Form8.Picture1 10 10\nprint MapZoom\n");
  EXPECT_TRUE(Has(played, "no map is open")) << played.transcript;
  EXPECT_TRUE(Has(played, "MapZoom = 1\n"));
}

TEST_F(MapWindow, AMissingScratchFolderIsToldByName) {
  std::filesystem::remove(site.Folder().Path() / "f");
  const PlayedSession played =
      Play("file c:\\data\\map.hdr\ntry menu Form8.Open_a_Map\nprint MapLastCol\n");
  EXPECT_TRUE(Has(played, "error Open_a_Map \"Path not found: f:\\Map.BMP\"")) << played.transcript;
}

TEST_F(MapWindow, AFullDiskLeavesTheOldBitmapAndTheView) {
  Play(kOpen);
  const std::string before = site.Folder().Read("f/Map.BMP");
  const FileSizeLimit full(100);
  const PlayedSession played = Play("file c:\\data\\map.hdr\ntry menu Form8.Open_a_Map\n");
  EXPECT_TRUE(Has(played, "Disk full: f:\\Map.BMP")) << played.transcript;
  EXPECT_TRUE(site.Folder().Read("f/Map.BMP") == before);
}

TEST_F(MapWindow, AnotherMapIsShownAtHundredPercentAndTheZoomTextWaitsForAClick) {
  const PlayedSession played =
      Play(std::string(kOpen) + "click Form8.Picture1 162 123\n" + kOpen + kPrintView +
           "click Form8.Picture1 162 123 right\n" + "print Form8.Label2\n");
  EXPECT_TRUE(Has(played, View("Zoom 200 %", "1", 1, 324, 1, 246) + "Form8.Label2 = Zoom 50 %\n"))
      << played.transcript;
  EXPECT_EQ(Bitmap_At(1, 1), (Rgb{2, 2, 7}));
}

TEST_F(MapWindow, ADismissedDialogChangesNothing) {
  const PlayedSession played =
      Play(std::string(kOpen) + "cancel\nmenu Form8.Open_a_Map\n" + kPrintView);
  EXPECT_TRUE(Has(played, View("Zoom 100 %", "1", 1, 324, 1, 246))) << played.transcript;
}

TEST_F(MapWindow, AnotherOpeningOfTheWindowBeginsAtHundredPercent) {
  const PlayedSession played =
      Play(std::string(kOpen) + "click Form8.Picture1 162 123\nmenu Form8.Exit_Map_Window\n" +
           "print Form8.Visible\nmenu Open_Map_Window\nprint Form8.Label2\nprint MapZoom\n");
  EXPECT_TRUE(Has(played, "Form8.Visible = 0\nForm8.Label2 = Zoom 100 %\nMapZoom = 1\n"))
      << played.transcript;
}

TEST_F(MapWindow, OpeningAWindowThatIsOpenKeepsItsView) {
  const PlayedSession played = Play(std::string(kOpen) + "click Form8.Picture1 162 123\n" +
                                    "menu Open_Map_Window\nprint Form8.Label2\n");
  EXPECT_TRUE(Has(played, "Form8.Label2 = Zoom 200 %\n")) << played.transcript;
}

TEST_F(MapWindow, TheTitleBarClosesItAsItsMenuDoes) {
  const PlayedSession played = Play("close Form8\nprint Form8.Visible\n");
  EXPECT_TRUE(Has(played, "Form8.Visible = 0\n")) << played.transcript;
}

TEST_F(MapWindow, KnowsNothingOfImagesAndSolution) {
  const PlayedSession played = Play(std::string(kOpen) + "click Form8.Picture1 5 5\n" +
                                    "print ImageCount\nprint Solution3D\nprint SolutionValid\n");
  EXPECT_TRUE(Has(played, "ImageCount = 0\nSolution3D = 0 0 0\nSolutionValid = 0\n"))
      << played.transcript;
}

}  // namespace
}  // namespace sylvomex
