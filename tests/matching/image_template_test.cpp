// SPDX-License-Identifier: MIT
#include "matching/image_template.h"

#include "matching/test_photo.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

struct TemplateFiles : testing::Test {
  TemporaryFolder folder;
  DriveMap drives = folder.Drives();
  TemplateFiles() { folder.Make_Folder("c/data"); }
};

const ImageTemplate kPattern{3, 2, 1, -4, {0, 10, 13, 26, 255, 0}};

TEST_F(TemplateFiles, ATemplateIsItsPixelsAndFourLines) {
  Write_Template(drives, 2, kPattern);
  EXPECT_EQ(folder.Read("c/data/temp2.img"), "3\n2\n1\n-4\n");
  EXPECT_EQ(folder.Read("c/data/temp2.raw"), std::string("\0\x0a\x0d\x1a\xff\0", 6));
}

TEST_F(TemplateFiles, ATemplateReadsBackAsWritten) {
  Write_Template(drives, 2, kPattern);
  const ImageTemplate read = Read_Template(drives, 2);
  EXPECT_EQ(read.width, 3);
  EXPECT_EQ(read.height, 2);
  EXPECT_EQ(read.reference_col, 1);
  EXPECT_EQ(read.reference_row, -4);
  EXPECT_EQ(read.pixels, kPattern.pixels);
}

TEST_F(TemplateFiles, ASizedTemplateHasItsNumbersOnOneLine) {
  Write_Size_Template(drives, 0, 11, kPattern);
  EXPECT_EQ(folder.Read("c/data/test_0_11.img"), "3 2 1 -4\n");
  EXPECT_EQ(folder.Read("c/data/test_0_11.raw").size(), 6U);
}

TEST_F(TemplateFiles, APatchIsItsPixelsAndTwoLines) {
  Write_Patch(drives, 8, 2, 3, kPattern.pixels);
  EXPECT_EQ(folder.Read("c/data/ccor_ima8.img"), "2\n3\n");
  EXPECT_EQ(folder.Read("c/data/ccor_ima8.raw").size(), 6U);
}

TEST_F(TemplateFiles, AMissingFileIsNamed) {
  const std::string text = Failure_Of(Failure::FileNotFound, [this] { Read_Template(drives, 5); });
  EXPECT_NE(text.find("temp5.img"), std::string::npos);
}

TEST_F(TemplateFiles, TooFewPixelsAreNamed) {
  folder.Write("c/data/temp0.img", "3\n2\n0\n0\n");
  folder.Write("c/data/temp0.raw", "12345");
  const std::string text = Failure_Of(Failure::InputPastEnd, [this] { Read_Template(drives, 0); });
  EXPECT_NE(text.find("temp0.raw"), std::string::npos);
}

TEST_F(TemplateFiles, ASizeBelowOnePixelIsBadContent) {
  folder.Write("c/data/temp0.img", "0\n2\n0\n0\n");
  Failure_Of(Failure::BadContent, [this] { Read_Template(drives, 0); });
}

}  // namespace
}  // namespace sylvomex
