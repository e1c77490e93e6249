// SPDX-License-Identifier: MIT
// Write_SUB_images around points of a plane at Z = 0, where a pixel is 0.1 m: column
// 500 + 10 X, raw row 1000 - (500 + 10 Y).
#include "products_fixture.h"

namespace sylvomex {
namespace {

class SubImagesCommand : public ProductsTest {
 protected:
  SubImagesCommand() { site.Write_Image("a", SmallImage()); }

  PlayedSession Play_Cutting(const std::string& lines, const std::string& after = "") const {
    site.Folder().Write("c/data/points.txt", lines);
    return Play(Load({"a"}) + "file c:\\data\\points.txt\ntry menu Write_SUB_images\n" + after);
  }

  /// A field of the image of a header.
  [[nodiscard]] std::string Field(const std::string& header, const std::string& field) const {
    const PlayedSession played =
        Play("file " + header + "\nbutton ok\ntry menu Add_images_to_set\n" +
             "print ImageBlock(0)." + field + "\n");
    const std::string name = "ImageBlock(0)." + field + " = ";
    const std::size_t at = played.transcript.find(name) + name.size();
    return played.transcript.substr(at, played.transcript.find('\n', at) - at);
  }

  /// X 3 to 7, Y 9 to 11: columns 530 to 570, rows 590 to 610, raw rows 390 to 410.
  static constexpr const char* kLine = "5,10,0,2,1,c:\\data\\site.raw\n";
};

TEST_F(SubImagesCommand, AsksForTheFileByItsTitle) {
  const PlayedSession played = Play_Cutting(kLine);
  EXPECT_TRUE(Has(played,
                  "file title=\"File with X,Y,Z,BUFF EW, BUFF NS, Filename\" "
                  "filter=\"TXT files (*.txt)|*.txt\" folder=\"\" -> \"c:\\data\\points.txt\""))
      << played.transcript;
}

TEST_F(SubImagesCommand, CutsThePixelsBetweenTheProjectedCorners) {
  Play_Cutting(kLine);
  for (const char* file : {"c/data/B4_1.raw", "c/data/B4_color_1.raw"}) {
    ASSERT_EQ(site.Folder().Read(file).size(), 41u * 21 * 3);
    EXPECT_EQ(Pixel(file, 0), Colour_At(530, 390));
    EXPECT_EQ(Pixel(file, 40), Colour_At(570, 390));
    EXPECT_EQ(Pixel(file, 20 * 41 + 7), Colour_At(537, 410));
  }
}

TEST_F(SubImagesCommand, HeadersTellTheCutAndElseTheImage) {
  Play_Cutting(kLine);
  for (const std::string name : {"c:\\data\\B4_1", "c:\\data\\B4_color_1"}) {
    const std::string header = name + ".hdr";
    EXPECT_EQ(Field(header, "RawFileName"), name + ".raw");
    EXPECT_EQ(Field(header, "SubWidth"), "41");
    EXPECT_EQ(Field(header, "SubHeight"), "21");
    EXPECT_EQ(Field(header, "SubColOrigin"), "530");
    EXPECT_EQ(Field(header, "SubRowOrigin"), "390");
    EXPECT_EQ(Field(header, "FullWidth"), "1000");
    EXPECT_EQ(Field(header, "FullHeight"), "1001");
    EXPECT_EQ(Field(header, "AffineA1"), "100000");
    EXPECT_EQ(Field(header, "SunElevation"), "0.59999999999999998");
    EXPECT_EQ(Field(header, "ImageComment"), "a comment");
    EXPECT_EQ(Field(header, "StartCol"), "500");
  }
}

TEST_F(SubImagesCommand, PositionsBeforeTheImageAreClipped) {
  // Column 500 - 540 is clipped to 0, up to 50; row 500 - 510 to 0, which is raw row 1000.
  Play_Cutting("-49.5,-50.5,0,4.5,0.5,x\n");
  EXPECT_EQ(Field("c:\\data\\B4_1.hdr", "SubColOrigin"), "0");
  EXPECT_EQ(Field("c:\\data\\B4_1.hdr", "SubWidth"), "51");
  EXPECT_EQ(Field("c:\\data\\B4_1.hdr", "SubRowOrigin"), "1000");
  EXPECT_EQ(Field("c:\\data\\B4_1.hdr", "SubHeight"), "1");
}

TEST_F(SubImagesCommand, RowsAboveTheImageAreClipped) {
  // Rows 990 to 1010: raw rows 10 to -10, clipped to 0.
  Play_Cutting("0,50,0,1,1,x\n");
  EXPECT_EQ(Field("c:\\data\\B4_1.hdr", "SubRowOrigin"), "0");
  EXPECT_EQ(Field("c:\\data\\B4_1.hdr", "SubHeight"), "11");
  EXPECT_EQ(Pixel("c/data/B4_1.raw", 0), Colour_At(490, 0));
}

TEST_F(SubImagesCommand, WhatLiesBeyondTheFilesEndRepeatsTheRowBefore) {
  // Raw rows 998 to 1000, of which the file has 998 and 999.
  Play_Cutting("0,-49.9,0,0,0.1,x\n");
  ASSERT_EQ(site.Folder().Read("c/data/B4_1.raw").size(), 3u * 3);
  EXPECT_EQ(Pixel("c/data/B4_1.raw", 1), Colour_At(500, 999));
  EXPECT_EQ(Pixel("c/data/B4_1.raw", 2), Colour_At(500, 999));
}

TEST_F(SubImagesCommand, ASubImageIsReadInRowsOfTheFullWidth) {
  SmallImage sub;
  sub.sub_col_origin = 100;
  sub.sub_row_origin = 200;
  sub.full_width = 1200;
  site.Write_Image("a", sub);
  Play_Cutting(kLine);
  EXPECT_EQ(Field("c:\\data\\B4_1.hdr", "SubColOrigin"), "530");
  EXPECT_EQ(Field("c:\\data\\B4_1.hdr", "SubRowOrigin"), "390");
  // Column 430 and row 190 of the raw file, at 1200 pixels a row: pixel 228430, which lies in row
  // 228 of its 1000 columns.
  EXPECT_EQ(Pixel("c/data/B4_1.raw", 0), Colour_At(430, 228));
}

TEST_F(SubImagesCommand, AGreyImageIsCutThreeBytesAPixel) {
  SmallImage grey;
  grey.colour = 0;
  site.Write_Image("a", grey);
  Play_Cutting("5,40,0,0,0,x\n");  // column 550, raw row 100: byte 3 x 100550 = 301 x 1000 + 650
  EXPECT_EQ(Pixel("c/data/B4_1.raw", 0), (Rgb{650 % 251, 651 % 251, 652 % 251}));
  EXPECT_EQ(Field("c:\\data\\B4_1.hdr", "ColorFlag"), "0");
}

TEST_F(SubImagesCommand, ACutOutMeasuresAsTheFullImageDoes) {
  Play_Cutting(kLine);
  const std::string call = "call Object_To_Pixel 0 4.321 9.876 1.5\n";
  const PlayedSession full = Play(Load({"a"}) + "say here\n" + call);
  const PlayedSession cut =
      Play("file c:\\data\\B4_1.hdr\nmenu Add_images_to_set\nsay here\n" + call);
  const auto result = [](const PlayedSession& played) {
    return played.transcript.substr(played.transcript.find("say here"));
  };
  EXPECT_EQ(result(cut), result(full));
}

TEST_F(SubImagesCommand, EachLineMakesTheImagesAnew) {
  Play_Cutting(std::string("0,0,0,1,1,first\n") + kLine);
  EXPECT_EQ(Field("c:\\data\\B4_1.hdr", "SubColOrigin"), "530");
  EXPECT_EQ(site.Folder().Read("c/data/B4_1.raw").size(), 41u * 21 * 3);
}

TEST_F(SubImagesCommand, EveryImageOfTheBlockIsCut) {
  SmallImage second;
  second.id = 2;
  second.X0 = 1;
  site.Write_Image("b", second);
  site.Folder().Write("c/data/points.txt", kLine);
  Play(Load({"a", "b"}) + "file c:\\data\\points.txt\nmenu Write_SUB_images\n");
  EXPECT_EQ(Field("c:\\data\\B4_1.hdr", "SubColOrigin"), "530");
  EXPECT_EQ(Field("c:\\data\\B4_2.hdr", "SubColOrigin"), "520");
}

TEST_F(SubImagesCommand, AMissingItemIsToldWithItsLineAndNothingIsWritten) {
  const PlayedSession played = Play_Cutting(std::string(kLine) + "1,2,0,1\n" + kLine);
  EXPECT_TRUE(Has(played,
                  "error Write_SUB_images \"Input past end of file: "
                  "c:\\data\\points.txt, line 2, item 5"))
      << played.transcript;
  EXPECT_FALSE(site.Folder().Has("c/data/B4_1.raw"));
}

TEST_F(SubImagesCommand, ATextForANumberIsToldWithItsLine) {
  const PlayedSession played = Play_Cutting("1,2,low,1,1,x\n");
  EXPECT_TRUE(Has(played, "c:\\data\\points.txt, line 1, item 3")) << played.transcript;
}

TEST_F(SubImagesCommand, AFullDiskAndABufferWithoutRoomLeaveTheOldFiles) {
  Play_Cutting(kLine);
  const std::string before = site.Folder().Read("c/data/B4_1.raw");
  const PlayedSession huge = Play_Cutting("0,0,0,1e7,1e7,x\n");
  EXPECT_TRUE(Has(huge, "error Write_SUB_images \"Disk full: c:\\data\\B4_1.raw\""))
      << huge.transcript;
  const PlayedSession absurd = Play_Cutting("0,0,0,1e15,1e15,x\n");
  EXPECT_TRUE(Has(absurd, "error Write_SUB_images \"Overflow: ")) << absurd.transcript;
  site.Folder().Write("c/data/points.txt", "0,0,0,4,4,x\n");
  const FileSizeLimit full(2583);
  const PlayedSession played =
      Play_Script(site.Folder(),
                  "file c:\\data\\a.hdr\ntry menu Add_images_to_set\n"
                  "file c:\\data\\points.txt\ntry menu Write_SUB_images\n");
  EXPECT_TRUE(Has(played, "Disk full: c:\\data\\B4_1.raw")) << played.transcript;
  EXPECT_TRUE(site.Folder().Read("c/data/B4_1.raw") == before);
}

TEST_F(SubImagesCommand, ADismissedDialogAndAnEmptyBlockDoNothing) {
  EXPECT_EQ(Play(Load({"a"}) + "cancel\nmenu Write_SUB_images\n").status, 0);
  site.Folder().Write("c/data/points.txt", kLine);
  EXPECT_EQ(Play("file c:\\data\\points.txt\nmenu Write_SUB_images\n").status, 0);
  EXPECT_FALSE(site.Folder().Has("c/data/B4_1.raw"));
}

}  // namespace
}  // namespace sylvomex
