// SPDX-License-Identifier: MIT
// Create_an_Ortho_Block_2 over two wide photographs at X 0 and 800, whose cameras reach 440 m.
#include "products_fixture.h"

namespace sylvomex {
namespace {

class OrthoBlock2Command : public ProductsTest {
 protected:
  OrthoBlock2Command() {
    site.Write_Image("a", Wide_Image(1, 0));
    site.Write_Image("b", Wide_Image(2, 800));
    // 0.09 / 0.2045 x 1000 m = 440 m.
    site.Folder().Write("c/data/cam_data_G6_j.csv",
                        "1,x,0.2045,0,0,0,0,0,1160,one,c:\\data\\a.hdr,G6\n"
                        "2,x,0.2045,0,0,0,800,0,1160,two,c:\\data\\b.hdr,G6\n");
    // One text file is the header itself, the other a point-in-image file that names it.
    site.Folder().Write("c/data/G6/Imafiles/G6_one.txt", site.Folder().Read("c/data/a.hdr"));
    site.Folder().Write("c/data/G6/Imafiles/G6_two.txt", "2,c:\\data\\b.hdr,0,0,0\n");
    Write_Flat_Model(site.Folder(), 160);
  }

  /// 250 x 3 cells of 2 m from (300, 0) on: tiles with their middles at X 400, 600 and 750.
  PlayedSession Play_Strip(const std::string& before = "") const {
    return Play(Load({"a"}) + before + kLoadFlatModel +
                Answers({"300", "0", "498", "4", "2", "c:\\data\\block.raw"}) +
                "menu Create_an_Ortho_Block_2\n");
  }

  static constexpr const char* kTooWide = "message \"An error occurred, too wide orthoimage?\"";
};

TEST_F(OrthoBlock2Command, WithoutAHeightModelSaysSoAndKeepsTheBlock) {
  const PlayedSession played =
      Play(Load({"a"}) + "menu Create_an_Ortho_Block_2\nprint ImageCount\n");
  EXPECT_TRUE(Has(played, "message \"Read height model first!\"")) << played.transcript;
  EXPECT_TRUE(Has(played, "ImageCount = 1\n"));
}

TEST_F(OrthoBlock2Command, EachTileIsReadFromTheFirstCameraThatSeesItsMiddle) {
  const PlayedSession played = Play_Strip();
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_TRUE(Has(played, "message \"Columns: 250  Rows: 3\"")) << played.transcript;
  EXPECT_TRUE(Has(played, "message \"c:\\data\\block.raw written\"")) << played.transcript;
  ASSERT_EQ(site.Folder().Read("c/data/block.raw").size(), 250u * 3 * 3);
  for (const int r : {0, 2}) {
    for (const int c : {0, 99}) {
      EXPECT_EQ(Pixel("c/data/block.raw", r * 250 + c), Colour_At(650 + c, 499 - r));
    }
    for (const int c : {100, 199, 200, 249}) {
      EXPECT_EQ(Pixel("c/data/block.raw", r * 250 + c), Colour_At(250 + c, 499 - r));
    }
  }
}

TEST_F(OrthoBlock2Command, TheBlockIsClearedAndTheLastImageStaysWithAValidSolution) {
  const PlayedSession played =
      Play(Load({"a", "b", "a"}) + kLoadFlatModel +
           Answers({"300", "0", "498", "4", "2", "c:\\data\\block.raw"}) +
           "menu Create_an_Ortho_Block_2\nprint ImageCount\nprint ImageBlock(0).ImageId\n"
           "print SolutionValid\n");
  EXPECT_TRUE(Has(played, "ImageCount = 1\nImageBlock(0).ImageId = 2\nSolutionValid = -1\n"))
      << played.transcript;
}

TEST_F(OrthoBlock2Command, LowGroundTakesTheLastTileElevationAbove120) {
  Play_Strip();
  const std::string flat = site.Folder().Read("c/data/block.raw");
  // The model ends at X = 450: column 24 is that of -2000 + 2400 and of the cells to 450.
  Write_Flat_Model(site.Folder(), 160, 25);
  Play_Strip();
  EXPECT_TRUE(site.Folder().Read("c/data/block.raw") == flat);
}

TEST_F(OrthoBlock2Command, AGreyImageGivesThreeEqualBytes) {
  SmallImage grey = Wide_Image(1, 0);
  grey.colour = 0;
  site.Write_Image("a", grey);
  site.Folder().Write("c/data/G6/Imafiles/G6_one.txt", site.Folder().Read("c/data/a.hdr"));
  Play_Strip();
  EXPECT_EQ(Pixel("c/data/block.raw", 5), (Rgb{655 % 251, 655 % 251, 655 % 251}));
}

TEST_F(OrthoBlock2Command, TheBlockIsClearedBeforeAMissingTableIsFound) {
  std::filesystem::remove(site.Folder().Path() / "c/data/cam_data_G6_j.csv");
  const PlayedSession played = Play(Load({"a", "b"}) + kLoadFlatModel +
                                    "cancel\nmenu Create_an_Ortho_Block_2\nprint ImageCount\n");
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_TRUE(Has(played, kTooWide)) << played.transcript;
  EXPECT_TRUE(Has(played, "ImageCount = 0\n"));
}

TEST_F(OrthoBlock2Command, AMissingHeaderIsAFailureAndTheRestIsWritten) {
  std::filesystem::remove(site.Folder().Path() / "c/data/G6/Imafiles/G6_two.txt");
  const PlayedSession played = Play_Strip();
  EXPECT_TRUE(Has(played, kTooWide)) << played.transcript;
  EXPECT_EQ(Pixel("c/data/block.raw", 0), Colour_At(650, 499));
  EXPECT_EQ(Pixel("c/data/block.raw", 100), (Rgb{0, 0, 0}));
}

TEST_F(OrthoBlock2Command, MoreThan130By162TilesAreTooWide) {
  for (const auto& [wide, high] : {std::pair{"13000", "0"}, std::pair{"0", "16200"}}) {
    const PlayedSession played = Play(kLoadFlatModel + Answers({"0", "0", wide, high, "1"}) +
                                      "cancel\nmenu Create_an_Ortho_Block_2\n");
    EXPECT_EQ(played.status, 0) << played.reason;
    EXPECT_TRUE(Has(played, kTooWide)) << played.transcript;
  }
  const PlayedSession most = Play(kLoadFlatModel + Answers({"0", "0", "12999", "0", "1"}) +
                                  "cancel\nmenu Create_an_Ortho_Block_2\n");
  EXPECT_FALSE(Has(most, kTooWide)) << most.transcript;
}

TEST_F(OrthoBlock2Command, ATextForANumberIsToldAndTheQuestionsGoOn) {
  const PlayedSession played = Play(kLoadFlatModel + Answers({"east", "0", "0", "0", "1"}) +
                                    "cancel\nmenu Create_an_Ortho_Block_2\n");
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_TRUE(Has(played, kTooWide));
  EXPECT_TRUE(Has(played, "message \"Columns: 1  Rows: 1\"")) << played.transcript;
}

TEST_F(OrthoBlock2Command, AFullDiskIsAFailureAndLeavesTheOldFile) {
  site.Folder().Write("c/data/block.raw", "old");
  const FileSizeLimit full(7000);
  const PlayedSession played = Play(kLoadFlatModel + Answers({"300", "0", "498", "498", "2"}) +
                                    "cancel\nmenu Create_an_Ortho_Block_2\n");
  EXPECT_TRUE(Has(played, kTooWide)) << played.transcript;
  EXPECT_EQ(site.Folder().Read("c/data/block.raw"), "old");
}

}  // namespace
}  // namespace sylvomex
