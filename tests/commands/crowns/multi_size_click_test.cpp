// SPDX-License-Identifier: MIT
#include "commands/crowns/multi_size_click.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/failure_of.h"
#include "support/synthetic_block.h"

namespace sylvomex {
namespace {

// A texture without repetition, another one for each image.
std::uint8_t Texture(int image, int col, int raw_row) {
  std::uint32_t n =
      static_cast<std::uint32_t>(col + 1000 * raw_row + 1000000 * image) * 2654435761U;
  n = (n ^ (n >> 15U)) * 2246822519U;
  return static_cast<std::uint8_t>((n ^ (n >> 13U)) >> 8U);
}

// Raw files of 200 columns and 400 rows. The first camera, above X = 0, shows the ray of film
// 0, 0 at column 100, the second, above X = 300, at column 3100 - 3000000 / (1000 - Z); both in row
// 200, which is raw row 199.
struct TwoPhotographs : SyntheticBlock {
  static constexpr int kColumns = 200, kRows = 400;

  TwoPhotographs() {
    Add_Camera(0, 0, 1000);
    Add_Camera(300, 0, 1000);
    for (int k = 0; k < 2; ++k) Write_Photograph(k);
    w.ImageBlock(1).AffineA0 = 3100;
    w.Solution3D = {5, 6, 0};
    Observe_Film(0, 0, 0);
    w.Form1.Check1(1).Value = 1;
  }
  void Write_Photograph(int k) {
    const std::string name = "photo" + std::to_string(k) + ".raw";
    ImageRecord& record = w.ImageBlock(k);
    record.SubWidth = kColumns;
    record.SubHeight = kRows;
    record.RawFileName = "c:\\data\\" + name;
    record.AffineA0 = 100;
    record.AffineB0 = 200;
    std::string bytes;
    for (int row = 0; row < kRows; ++row) {
      for (int col = 0; col < kColumns; ++col) {
        bytes += '\xff';
        bytes += static_cast<char>(Texture(k, col, row));
        bytes += '\0';
      }
    }
    folder.Write("c/data/" + name, bytes);
  }
  // 5 by 3 pixels, the reference pixel in their middle, in all sizes alike.
  void Write_Templates(int k, int col, int raw_row) {
    std::string bytes;
    for (int row = raw_row - 1; row <= raw_row + 1; ++row) {
      for (int c = col - 2; c <= col + 2; ++c) bytes += static_cast<char>(Texture(k, c, row));
    }
    for (int size = 1; size <= 11; ++size) {
      const std::string name = "c/data/test_" + std::to_string(k) + "_" + std::to_string(size);
      folder.Write(name + ".img", "5 3 2 1\n");
      folder.Write(name + ".raw", bytes);
    }
  }
  // Templates of a tree top on the ray at a height.
  void Place_Top(double Z) {
    Write_Templates(0, 100, 199);
    Write_Templates(1, static_cast<int>(std::nearbyint(3100 - 3000000 / (1000 - Z))), 199);
  }
};

TEST(MultiSizeClick, FindsTheHeightOfTheTreeAlongTheRay) {
  TwoPhotographs b;
  b.Place_Top(1.5);
  Multi_Size_Click(b.w, 0);
  EXPECT_NEAR(b.w.Solution3D.Z, 1.5, 1e-9);
  EXPECT_NEAR(b.w.Solution3D.X, 0, 1e-9);
  EXPECT_NEAR(b.w.Solution3D.Y, 0, 1e-9);
  EXPECT_FALSE(b.w.SolutionValid);
  EXPECT_EQ(b.w.Form1.Label4(2).Caption, "1.50");
  EXPECT_EQ(b.screen.servicings, 1);
}

TEST(MultiSizeClick, TheMeanCorrelationCountsOneImageMoreThanThereAre) {
  TwoPhotographs b;
  b.Place_Top(1.5);
  std::string before_servicing;
  b.screen.on_service = [&] { before_servicing = b.w.Form1.Label10.Caption; };
  Multi_Size_Click(b.w, 0);
  // Without a model the ground is -99 m; two perfect correlations over three.
  EXPECT_EQ(before_servicing, "Height: 100.50 m r = 0.67");
  EXPECT_EQ(b.w.Form1.Label10.Caption, "0 H: 100.50 m r = 0.67");
}

// Three photographs of two grey values. Around the tree on each of them lie 20 light and 20 dark
// pixels; the templates have one of each changed into the other, so that 38 pixels agree and 2 do
// not: r = (38 - 2) / 40.
struct NineTenths : SyntheticBlock {
  static constexpr int kColumns = 200, kRows = 400;
  static constexpr double kTop = 1.5;

  NineTenths() {
    for (int k = 0; k < 3; ++k) {
      Add_Camera(300 * k, 0, 1000);
      ImageRecord& record = w.ImageBlock(k);
      record.SubWidth = kColumns;
      record.SubHeight = kRows;
      record.RawFileName = "c:\\data\\photo" + std::to_string(k) + ".raw";
      record.AffineA0 = 100 + 3000 * k;
      record.AffineB0 = 200;
      Write_Photograph(k);
      w.Form1.Check1(k).Value = 1;
    }
    Observe_Film(0, 0, 0);
  }
  // Light and dark by turns, row by row.
  static std::string Patch() {
    std::string pixels;
    for (int i = 0; i < 40; ++i) pixels += static_cast<char>(i % 2 == 0 ? 120 : 80);
    return pixels;
  }
  void Write_Photograph(int k) {
    const std::string number = std::to_string(k);
    std::string bytes(3 * kColumns * kRows, '\0');
    for (int row = 0; row < kRows; ++row) {
      for (int col = 0; col < kColumns; ++col) {
        bytes[static_cast<std::size_t>(3 * (row * kColumns + col) + 1)] =
            Texture(k, col, row) % 2 == 0 ? 120 : 80;
      }
    }
    const auto first =
        static_cast<int>(std::nearbyint(100 + 3000 * k - 3000000.0 * k / (1000 - kTop) - 4));
    std::string pixels = Patch();
    for (int i = 0; i < 40; ++i) {
      bytes[static_cast<std::size_t>(3 * ((197 + i / 8) * kColumns + first + i % 8) + 1)] =
          pixels[static_cast<std::size_t>(i)];
    }
    folder.Write("c/data/photo" + number + ".raw", bytes);
    std::swap(pixels[10], pixels[21]);
    for (int size = 1; size <= 11; ++size) {
      const std::string name = "c/data/test_" + number + "_" + std::to_string(size);
      folder.Write(name + ".img", "8 5 4 2\n");
      folder.Write(name + ".raw", pixels);
    }
  }
};

TEST(MultiSizeClick, ThreeCorrelationsOfNineTenthsReadAsSixtyEightHundredths) {
  NineTenths b;
  Multi_Size_Click(b.w, 0);
  // 2.7 over three images and one more is 0.675. Without a model the ground is -99 m.
  EXPECT_TRUE(b.w.Form1.Label10.Caption.ends_with(" m r = 0.68")) << b.w.Form1.Label10.Caption;
  EXPECT_NEAR(b.w.Solution3D.Z, NineTenths::kTop, 0.2);
}

TEST(MultiSizeClick, ATreeAtTheEndOfTheRangeIsAccepted) {
  TwoPhotographs b;
  b.Place_Top(4.5);
  Multi_Size_Click(b.w, 0);
  EXPECT_NEAR(b.w.Solution3D.Z, 4.5, 1e-9);
  b.w.Solution3D.Z = 9;
  Multi_Size_Click(b.w, 0);
  EXPECT_NEAR(b.w.Solution3D.Z, 4.5, 1e-9);
}

TEST(MultiSizeClick, ImagesThatAreNotTickedDoNotCount) {
  TwoPhotographs b;
  b.Place_Top(1.5);
  b.w.Form1.Check1(1).Value = 0;
  Multi_Size_Click(b.w, 0);
  // The clicked image alone correlates at every height: the lowest stays.
  EXPECT_NEAR(b.w.Solution3D.Z, -4.5, 1e-9);
  EXPECT_EQ(b.w.Form1.Label10.Caption, "0 H: 94.50 m r = 0.33");
}

TEST(MultiSizeClick, MissingTemplatesOfATickedImageAreAFileError) {
  TwoPhotographs b;
  b.Write_Templates(0, 100, 199);
  const std::string failure = Failure_Of([&] { Multi_Size_Click(b.w, 0); });
  EXPECT_TRUE(failure.starts_with("File not found")) << failure;
  EXPECT_NE(failure.find("test_1_1.img"), std::string::npos) << failure;
  EXPECT_EQ(b.w.Solution3D.X, 5);
}

TEST(MultiSizeClick, WithoutATickedImageThereIsNoBestRow) {
  TwoPhotographs b;
  b.w.Form1.Check1(0).Value = b.w.Form1.Check1(1).Value = 0;
  const std::string failure = Failure_Of([&] { Multi_Size_Click(b.w, 0); });
  EXPECT_TRUE(failure.starts_with("Subscript out of range")) << failure;
}

TEST(MultiSizeClick, ABandThatLeavesTheRasterNamesImageAndRows) {
  TwoPhotographs b;
  b.Place_Top(1.5);
  b.w.ImageBlock(1).AffineB0 = 330;  // raw row 69
  const std::string failure = Failure_Of([&] { Multi_Size_Click(b.w, 0); });
  EXPECT_NE(failure.find("image 101: rows -11 to 148"), std::string::npos) << failure;
}

TEST(MultiSizeClick, AWindowThatLeavesTheBandIsASubscriptError) {
  TwoPhotographs b;
  b.Place_Top(1.5);
  b.w.ImageBlock(1).AffineA0 = 3005;
  const std::string failure = Failure_Of([&] { Multi_Size_Click(b.w, 0); });
  EXPECT_TRUE(failure.starts_with("Subscript out of range")) << failure;
}

TEST(MultiSizeClick, AGreyImageIsRefusedByName) {
  TwoPhotographs b;
  b.Place_Top(1.5);
  b.w.ImageBlock(1).ColorFlag = 0;
  EXPECT_NE(Failure_Of([&] { Multi_Size_Click(b.w, 0); }).find("image 101"), std::string::npos);
}

TEST(MultiSizeClick, TheSpeciesIsToldWhereTheSecondRelatedRasterIsOfThatKind) {
  TwoPhotographs b;
  b.Place_Top(1.5);
  b.w.Form1.Check2(3).Value = 1;
  b.w.ImageBlock(1).BandCount = 2;
  Multi_Size_Click(b.w, 0);
  EXPECT_EQ(b.w.Form1.Label10.Caption.substr(0, 4), "0 H:");
  b.w.ImageBlock(1).BandType(1) = 3;
  b.w.Solution3D.Z = 0;
  Multi_Size_Click(b.w, 0);
  EXPECT_EQ(b.w.Form1.Label10.Caption.substr(0, 4), "4 H:");
}

TEST(MultiSizeClick, MarksTheTreeInYellowAndLeavesThePendingRecordAlone) {
  TwoPhotographs b;
  b.Place_Top(1.5);
  Multi_Size_Click(b.w, 0);
  ASSERT_EQ(b.Marks(1).size(), 1U);
  EXPECT_EQ(b.Marks(1)[0].colour, (Colour{255, 255, 0}));
  EXPECT_FALSE(b.w.Crowns.MultiSizeDone);
  EXPECT_EQ(b.w.Crowns.LocalTreeRecord.PhotoCrownWidth, 0);
}

}  // namespace
}  // namespace sylvomex
