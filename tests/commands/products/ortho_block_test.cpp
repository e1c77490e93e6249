// SPDX-License-Identifier: MIT
// OrthoBlock over two wide photographs at X 0 and 1000, which see 900 m to either side.
#include "products_fixture.h"
#include "support/address_space_limit.h"

namespace sylvomex {
namespace {

class OrthoBlockCommand : public ProductsTest {
 protected:
  OrthoBlockCommand() {
    site.Write_Image("a", Wide_Image(1, 0));
    site.Write_Image("b", Wide_Image(2, 1000));
    Write_Flat_Model(site.Folder(), 160);
  }

  PlayedSession Play_Block(const std::string& answers, bool with_model = true) const {
    return Play(Load({"a", "b"}) + (with_model ? kLoadFlatModel : "") + answers +
                "try menu OrthoBlock\nprint Label2\n");
  }

  /// 250 x 3 cells of 2 m from (700, 0) on, into "c:\data\block.raw".
  static std::string Strip() {
    return Answers({"700", "0", "498", "4", "2", "c:\\data\\block.raw"});
  }
};

TEST_F(OrthoBlockCommand, AsksAndTellsAsTheOrthoimageDoes) {
  const PlayedSession played = Play_Block(Strip());
  const std::string asked = played.transcript.substr(played.transcript.find("input \"X-value"));
  EXPECT_EQ(asked,
            "input \"X-value for origo (low left corner)?\" title=\"Orthoimage computation\" "
            "default=\"\" -> \"700\"\n"
            "input \"Y-value for origo (low left corner)?\" title=\"Orthoimage computation\" "
            "default=\"\" -> \"0\"\n"
            "input \"X-extent (how wide image) (m)?\" title=\"Orthoimage computation\" "
            "default=\"\" -> \"498\"\n"
            "input \"Y-extent (how high image) (m)?\" title=\"Orthoimage computation\" "
            "default=\"\" -> \"4\"\n"
            "input \"Pixel size in orthoimage? (m)\" title=\"Orthoimage computation\" "
            "default=\"\" -> \"2\"\n"
            "message \"Columns: 250  Rows: 3\" title=\"\" buttons=ok -> ok\n"
            "input \"Give filename for the raw-file\" title=\"Orthoimage computation\" "
            "default=\"\" -> \"c:\\data\\block.raw\"\n"
            "message \"c:\\data\\block.raw written\" title=\"\" buttons=ok -> ok\n"
            "Label2 = 100.00 %\n");
}

TEST_F(OrthoBlockCommand, EachTileIsReadFromTheFirstImageThatSeesItAtTheCellsOwnPlaces) {
  Play_Block(Strip());
  ASSERT_EQ(site.Folder().Read("c/data/block.raw").size(), 250u * 3 * 3);
  for (const int r : {0, 1, 2}) {
    for (const int c : {0, 1, 99}) {  // the tile's test is at X = 701
      EXPECT_EQ(Pixel("c/data/block.raw", r * 250 + c), Colour_At(850 + c, 499 - r));
    }
    for (const int c : {100, 199, 200, 249}) {  // 901 and 1101: image 0 does not see them
      EXPECT_EQ(Pixel("c/data/block.raw", r * 250 + c), Colour_At(350 + c, 499 - r));
    }
  }
}

TEST_F(OrthoBlockCommand, TheBlocksOrderDecidesAndNotTheNadirDistance) {
  // Both see X = 601, and image 1 stands nearer.
  Play_Block(Answers({"600", "0", "0", "0", "2", "c:\\data\\block.raw"}));
  EXPECT_EQ(Pixel("c/data/block.raw", 0), Colour_At(800, 499));
}

TEST_F(OrthoBlockCommand, ATileThatNoImageSeesStaysBlack) {
  const PlayedSession played =
      Play_Block(Answers({"3000", "0", "2", "0", "2", "c:\\data\\block.raw"}));
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_EQ(site.Folder().Read("c/data/block.raw"), std::string(6, '\0'));
}

TEST_F(OrthoBlockCommand, OutsideTheModelTheGroundIsAtZero) {
  // At Z = 0 a pixel is 2.32 m: column 500 + 464 / 2.32, row 500.
  Write_Flat_Model(site.Folder(), 160, 0);
  Play_Block(Answers({"464", "0", "0", "0", "2", "c:\\data\\block.raw"}));
  EXPECT_EQ(Pixel("c/data/block.raw", 0), Colour_At(700, 499));
}

TEST_F(OrthoBlockCommand, WithoutAModelTheGroundIsAtMinus99) {
  // 1259 m below the camera: 2.518 m a pixel.
  const PlayedSession played =
      Play_Block(Answers({"503.6", "0", "0", "0", "2", "c:\\data\\block.raw"}), false);
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_EQ(Pixel("c/data/block.raw", 0), Colour_At(700, 499));
}

TEST_F(OrthoBlockCommand, CellsOutsideTheRawFileStayBlack) {
  SmallImage low = Wide_Image(1, 0);
  low.height = 600;  // raw row 599 - row
  site.Write_Image("a", low);
  Play_Block(Answers({"0", "196", "0", "4", "2", "c:\\data\\top.raw"}));
  EXPECT_EQ(Pixel("c/data/top.raw", 0), Colour_At(500, 599 - 598));
  EXPECT_EQ(Pixel("c/data/top.raw", 1), Colour_At(500, 599 - 599));
  EXPECT_EQ(Pixel("c/data/top.raw", 2), (Rgb{0, 0, 0}));
  Play_Block(Answers({"0", "-1002", "0", "200", "2", "c:\\data\\low.raw"}));
  EXPECT_EQ(Pixel("c/data/low.raw", 100), (Rgb{500 % 251, (599 - 99) % 241, 7}));
}

TEST_F(OrthoBlockCommand, AGreyImageIsReadThreeBytesAPixel) {
  SmallImage grey = Wide_Image(1, 0);
  grey.colour = 0;
  site.Write_Image("a", grey);
  Play_Block(Answers({"0", "800", "0", "0", "2", "c:\\data\\block.raw"}));
  // Raw row 999 - 900, column 500: byte 99 x 3000 + 1500 of the file, which is 298 x 1000 + 500.
  EXPECT_EQ(Pixel("c/data/block.raw", 0), (Rgb{500 % 251, 501 % 251, 502 % 251}));
}

TEST_F(OrthoBlockCommand, TheProgressCountsTheCellsOfTheTilesDone) {
  const PlayedSession played =
      Play_Block("during 1 print Label2\nduring 2 print Label2\nduring 3 print Label2\n" + Strip());
  EXPECT_TRUE(Has(played, "Label2 = 40.00 %\nLabel2 = 80.00 %\nLabel2 = 100.00 %\n"))
      << played.transcript;
}

TEST_F(OrthoBlockCommand, AnImageRemovedMeanwhileStillServes) {
  Play_Block("during 1 menu Remove_an_image\n" +
             Answers({"700", "0", "498", "300", "2", "100", "c:\\data\\block.raw"}));
  EXPECT_EQ(Pixel("c/data/block.raw", 120 * 250), Colour_At(850, 499 - 120));
}

TEST_F(OrthoBlockCommand, TheRotationMatricesAreThoseOfTheHeaders) {
  // The normalised pair leaves turned matrices behind; the mosaic builds them anew.
  Play_Block(Strip());
  const std::string before = site.Folder().Read("c/data/block.raw");
  Play(Load({"a", "b"}) + kLoadFlatModel + "input 2000\nbutton ok\ncancel\n" +
       "menu Create_anaglyph_pair\n" + Strip() + "menu OrthoBlock\n");
  EXPECT_TRUE(site.Folder().Read("c/data/block.raw") == before);
}

TEST_F(OrthoBlockCommand, ADismissedQuestionEndsQuietlyAndWritesNothing) {
  for (const char* answers : {"cancel\n", "input 700\ninput 0\ninput 498\ncancel\n",
                              "input 700\ninput 0\ninput 498\ninput 4\ninput 2\ncancel\n"}) {
    const PlayedSession played = Play_Block(answers);
    EXPECT_EQ(played.status, 0) << played.reason;
    EXPECT_FALSE(Has(played, "error")) << played.transcript;
    EXPECT_FALSE(Has(played, "written"));
  }
}

TEST_F(OrthoBlockCommand, BadNumbersAreOneFailureEach) {
  const char* const bad[][2] = {
      {"input wide\n", "Type mismatch: \"\"wide\"\" is not a number"},
      {"input 0\ninput 0\ninput 10\ninput 10\ninput 0\n", "the pixel size of the orthoimage is 0"},
      {"input 0\ninput 0\ninput -10\ninput 10\ninput 1\n", "X-extent -10"},
      {"input 0\ninput 0\ninput 1e9\ninput 1e9\ninput 1\n",
       "a mosaic of 1000000001 x 1000000001 cells"},
      {"input 0\ninput 0\ninput 1e9\ninput 10\ninput 0.1\n", "Overflow"},
  };
  for (const auto& [answers, cause] : bad) {
    const PlayedSession played = Play_Block(answers);
    EXPECT_EQ(played.status, 0) << played.reason;
    EXPECT_TRUE(Has(played, "error OrthoBlock \"")) << played.transcript;
    EXPECT_TRUE(Has(played, cause)) << played.transcript;
  }
}

TEST_F(OrthoBlockCommand, AMissingRawFileIsNamed) {
  // A width that the operator was warned of is taken without a look at the raw file.
  SmallImage none = Wide_Image(3, 0);
  none.width = 40000;
  site.Folder().Write("c/data/none.hdr", SmallSite::Header_Text(none, "c:\\data\\none.raw"));
  const PlayedSession played = Play("file c:\\data\\none.hdr\ntry menu Add_images_to_set\n" +
                                    Answers({"0", "0", "0", "0", "2"}) + "try menu OrthoBlock\n");
  EXPECT_TRUE(Has(played, "error OrthoBlock \"File not found: c:\\data\\none.raw\""))
      << played.transcript;
}

TEST_F(OrthoBlockCommand, AResultThatCannotBeWrittenLeavesTheOldFile) {
  site.Folder().Write("c/data/block.raw", "old");
  const PlayedSession nowhere =
      Play_Block(Answers({"700", "0", "0", "0", "2", "c:\\none\\block.raw"}));
  EXPECT_TRUE(Has(nowhere, "Path not found: c:\\none\\block.raw")) << nowhere.transcript;
  const FileSizeLimit full(4000);
  const PlayedSession played = Play_Script(
      site.Folder(), Answers({"700", "0", "498", "498", "2"}) + "try menu OrthoBlock\n");
  EXPECT_TRUE(Has(played, "Disk full: a mosaic of 250 x 250 cells")) << played.transcript;
  EXPECT_EQ(site.Folder().Read("c/data/block.raw"), "old");
}

TEST_F(OrthoBlockCommand, ABandBeyondTheMemoryThatIsLeftIsRefusedWithMegabytes) {
  const AddressSpaceLimit limit(std::uint64_t{512} << 20);
  const PlayedSession played = Play_Block(Answers({"0", "0", "1999999", "99", "1"}));
  // 2,000,000 x 100 cells of three bytes are 572.2 MB.
  EXPECT_TRUE(
      Has(played, "error OrthoBlock \"Out of memory: a band of 2000000 x 100 cells takes 572 MB, "))
      << played.transcript;
  EXPECT_TRUE(Has(played, " MB are left\"")) << played.transcript;
}

}  // namespace
}  // namespace sylvomex
