// SPDX-License-Identifier: MIT
// The sequence of pictures along a flight.
#include "imageblock/bitmap_file.h"
#include "stereo_site.h"

namespace sylvomex {
namespace {

class StereoSequence : public StereoSite {
 protected:
  StereoSequence() {
    site.Folder().Make_Folder("f/temp/AVI");
    site.Folder().Write("c/data/flightpoints.txt", "1,1005,2000,0,start\n2,1007,2000,0,over\n");
  }

  PaneBitmap Frame(const std::string& name) {
    return Load_Bitmap(site.Folder().File("f/temp/AVI/" + name));
  }
};

constexpr const char* kRun = "try menu Form5.Import_And_Export_BMPs\n";

TEST_F(StereoSequence, TellsTheSizeThenAsksAfterEachPicture) {
  const PlayedSession played =
      Play_Opened(std::string("button ok\nbutton ok\n") + kRun + "print Form5.Caption\n");
  EXPECT_EQ(played.transcript,
            "message \"Kuvan leveys on : 100\" title=\"\" buttons=ok -> ok\n"
            "message \"Kuvan kork on : 100\" title=\"\" buttons=ok -> ok\n"
            "message \"Wanna continue\" title=\"\" buttons=ok,cancel -> ok\n"
            "message \"Wanna continue\" title=\"\" buttons=ok,cancel -> ok\n"
            "Form5.Caption = SYLVOMEX Anaglyph stereo window , image: 2\n");
}

TEST_F(StereoSequence, CancelEndsTheRun) {
  const PlayedSession played = Play_Opened(std::string("button cancel\n") + kRun);
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_TRUE(site.Folder().Has("f/temp/AVI/0001.bmp"));
  EXPECT_FALSE(site.Folder().Has("f/temp/AVI/0002.bmp"));
}

TEST_F(StereoSequence, EachFrameIsThePictureAtItsPointWithItsText) {
  const PlayedSession played = Play_Opened(std::string("button ok\nbutton ok\n") + kRun +
                                           "print StereoState.StereoX\nmarks Form5.Picture1\n");
  EXPECT_TRUE(Has(played, "StereoState.StereoX = 1007\n"));
  EXPECT_TRUE(Has(played, "text 10 10 \"over 2\" \"Arial\" 12 plain 255 255 255\n"));
  // Left column 250 or 270 in the middle, row 150; far below the text.
  const std::size_t middle = 3 * (100 * 50 + 50);
  EXPECT_EQ(Frame("0001.bmp").bgr[middle + 2], 250);
  EXPECT_EQ(Frame("0002.bmp").bgr[middle + 2], 270 % 256);
  EXPECT_EQ(Frame("0002.bmp").bgr[middle], 150);
  // White letters, which the picture itself does not have.
  const std::vector<std::uint8_t> bgr = Frame("0001.bmp").bgr;
  int white = 0;
  for (std::size_t k = 0; k < bgr.size(); k += 3) {
    white += bgr[k] == 255 && bgr[k + 1] == 255 && bgr[k + 2] == 255 ? 1 : 0;
  }
  EXPECT_GT(white, 10);
}

TEST_F(StereoSequence, ServicesTheQueueAtEachPicture) {
  const PlayedSession played =
      Play_Opened(std::string("during 2 say second\nbutton ok\nbutton ok\n") + kRun);
  EXPECT_TRUE(Has(played, "say second\n")) << played.transcript;
}

TEST_F(StereoSequence, AMissingFlightIsNamed) {
  std::filesystem::remove(site.Folder().Path() / "c/data/flightpoints.txt");
  EXPECT_TRUE(Has(Play_Opened(kRun),
                  "error Import_And_Export_BMPs \"File not found: c:\\data\\flightpoints.txt"));
}

TEST_F(StereoSequence, AMissingFolderOfTheFramesIsNamed) {
  std::filesystem::remove_all(site.Folder().Path() / "f");
  const PlayedSession played = Play_Opened(kRun);
  EXPECT_TRUE(Has(played, "error Import_And_Export_BMPs")) << played.transcript;
  EXPECT_TRUE(Has(played, "f:\\temp\\AVI\\0001.bmp")) << played.transcript;
}

}  // namespace
}  // namespace sylvomex
