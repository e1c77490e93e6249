// SPDX-License-Identifier: MIT
#include "imageblock/image_header.h"

#include <gtest/gtest.h>

#include <string>

#include "expect_failure.h"
#include "platform/list_reader.h"

namespace sylvomex {
namespace {

/// Items 1 to 35; every number is different.
std::string Start() {
  return "4711\n600.5, 500\n\"c:\\data\\air photo.raw\"\n1\n300 250\n1000.25 2000.75\n"
         "7500 11500\n0.1\n1 2 3 4 5 6 7 8\n"
         "11.5 12.5 3750 -14.5 15.5 5750\n0.01 -0.02 1.57\n2515000.5 6859000.25 1365\n"
         "2.5 0.75\n\"June, noon\"\n";
}

/// A whole header without related rasters in which one text is replaced by another.
std::string Changed(const std::string& from, const std::string& to) {
  const std::string whole = Start() + "0\n";
  const std::size_t at = whole.find(from);
  EXPECT_NE(at, std::string::npos);
  std::string text(whole, 0, at);
  text.append(to);
  text.append(whole, at + from.size());
  return text;
}

ImageRecord Read(const std::string& text) {
  ListReader reader(text, "block.hdr");
  return Read_Image_Header(reader);
}

TEST(ImageHeader, ReadsEveryItemIntoItsField) {
  const ImageRecord image = Read(Start() + "0\n");
  EXPECT_EQ(image.ImageId, 4711);
  EXPECT_EQ(image.SubWidth, 600.5);
  EXPECT_EQ(image.SubHeight, 500);
  EXPECT_EQ(image.RawFileName.Trimmed(), "c:\\data\\air photo.raw");
  EXPECT_EQ(image.ColorFlag, 1);
  EXPECT_EQ(image.StartCol, 300);
  EXPECT_EQ(image.StartRow, 250);
  EXPECT_EQ(image.SubColOrigin, 1000.25);
  EXPECT_EQ(image.SubRowOrigin, 2000.75);
  EXPECT_EQ(image.FullWidth, 7500);
  EXPECT_EQ(image.FullHeight, 11500);
  EXPECT_EQ(image.PrincipalDistance, 0.1);
  for (int k = 0; k < 8; ++k) EXPECT_EQ(image.CameraReserved(k), k + 1);
  EXPECT_EQ(image.AffineA1, 11.5);
  EXPECT_EQ(image.AffineA2, 12.5);
  EXPECT_EQ(image.AffineA0, 3750);
  EXPECT_EQ(image.AffineB1, -14.5);
  EXPECT_EQ(image.AffineB2, 15.5);
  EXPECT_EQ(image.AffineB0, 5750);
  EXPECT_EQ(image.Omega, 0.01);
  EXPECT_EQ(image.Phi, -0.02);
  EXPECT_EQ(image.Kappa, 1.57);
  EXPECT_EQ(image.X0, 2515000.5);
  EXPECT_EQ(image.Y0, 6859000.25);
  EXPECT_EQ(image.Z0, 1365);
  EXPECT_EQ(image.SunAzimuth, 2.5);
  EXPECT_EQ(image.SunElevation, 0.75);
  EXPECT_EQ(image.ImageComment.Trimmed(), "June, noon");
  EXPECT_EQ(image.BandCount, 0);
}

TEST(ImageHeader, BandCountZeroStopsAfterItem36) {
  ListReader reader(Start() + "0, 99\n", "block.hdr");
  Read_Image_Header(reader);
  EXPECT_EQ(reader.Item(), 36);
  EXPECT_EQ(reader.Read_Int32(), 99);
}

TEST(ImageHeader, ReadsFourRelatedRasters) {
  std::string text = Start() + "4\n";
  for (int k = 0; k < 4; ++k) {
    text += std::to_string(k + 1) + ",\"c:\\data\\band" + std::to_string(k) + ".raw\"," +
            std::to_string(100 + k) + "," + std::to_string(200 + k) + "\n";
  }
  const ImageRecord image = Read(text);
  EXPECT_EQ(image.BandCount, 4);
  EXPECT_EQ(image.BandType(3), 4);
  EXPECT_EQ(image.BandFile(3).Trimmed(), "c:\\data\\band3.raw");
  EXPECT_EQ(image.BandWidth(0), 100);
  EXPECT_EQ(image.BandHeight(2), 202);
}

TEST(ImageHeader, BandCountAboveFourIsASubscriptErrorNamingFileLineAndItem) {
  const std::string text =
      Expect_Failure(Failure::SubscriptOutOfRange, [] { Read(Start() + "5\n1 a 1 1 1 b 1 1\n"); });
  EXPECT_TRUE(Contains(text, "block.hdr, line 15, item 36")) << text;
}

TEST(ImageHeader, NegativeBandCountReadsNoRelatedRasters) {
  ListReader reader(Start() + "-1, 99\n", "block.hdr");
  EXPECT_EQ(Read_Image_Header(reader).BandCount, -1);
  EXPECT_EQ(reader.Item(), 36);
}

TEST(ImageHeader, RawFileWithoutANameIsReportedWithFileLineAndItem) {
  for (const char* name : {"\"\"", "\"  \""}) {
    const std::string text = Expect_Failure(
        Failure::BadContent, [&] { Read(Changed("\"c:\\data\\air photo.raw\"", name)); });
    EXPECT_TRUE(Contains(text, "block.hdr, line 3, item 4: no raw file is named")) << text;
  }
}

TEST(ImageHeader, MissingItemIsInputPastEnd) {
  const std::string text = Expect_Failure(Failure::InputPastEnd, [] { Read(Start()); });
  EXPECT_TRUE(Contains(text, "block.hdr")) << text;
  Expect_Failure(Failure::InputPastEnd, [] { Read(Start() + "1\n3,band.raw,100\n"); });
  Expect_Failure(Failure::InputPastEnd, [] { Read(""); });
}

TEST(ImageHeader, TextInPlaceOfANumberIsATypeMismatch) {
  const std::string text =
      Expect_Failure(Failure::TypeMismatch, [] { Read("4711 wide 500 a.raw 0"); });
  EXPECT_TRUE(Contains(text, "line 1, item 2")) << text;
}

TEST(ImageHeader, FullWidthBeyond16BitsIsAnOverflow) {
  Expect_Failure(Failure::Overflow, [] { Read("1 9 9 a.raw 0 1 1 0 0 32768 100"); });
}

TEST(ImageHeader, ColourFlagBeyondAByteIsAnOverflow) {
  Expect_Failure(Failure::Overflow, [] { Read("1 9 9 a.raw 256"); });
  Expect_Failure(Failure::Overflow, [] { Read("1 9 9 a.raw -1"); });
}

TEST(ImageHeader, ColourFlagTwoIsCarriedForTheValidation) {
  EXPECT_EQ(Read(Changed("\n1\n", "\n2\n")).ColorFlag, 2);
}

TEST(ImageHeader, SubWidthOf32768IsCarriedUnchanged) {
  EXPECT_EQ(Read(Changed("600.5", "32768")).SubWidth, 32768);
}

TEST(ImageHeader, TextsAreCutAndPaddedTo60Characters) {
  const ImageRecord image = Read(Changed("June, noon", std::string(70, 'x')));
  EXPECT_EQ(image.ImageComment.Padded(), std::string(60, 'x'));
  EXPECT_EQ(image.RawFileName.Padded().size(), 60U);
}

TEST(ImageHeader, UnquotedTextEndsAtABlank) {
  EXPECT_EQ(Read(Changed("\"June, noon\"", "June")).ImageComment.Trimmed(), "June");
}

}  // namespace
}  // namespace sylvomex
