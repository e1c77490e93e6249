// SPDX-License-Identifier: MIT
#include "matching/raw_band.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/failure_of.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

constexpr int kColumns = 200, kRows = 400;

// A texture without repetition: hashed pixel numbers (xorshift-multiply).
std::uint8_t Texture(int col, int raw_row) {
  std::uint32_t n = static_cast<std::uint32_t>(col + 1000 * raw_row) * 2654435761U;
  n = (n ^ (n >> 15U)) * 2246822519U;
  return static_cast<std::uint8_t>((n ^ (n >> 13U)) >> 8U);
}

// A raw file of which only the middle bytes are used.
struct TexturedFile {
  TemporaryFolder folder;
  FilePath file;
  TexturedFile() {
    std::string bytes;
    for (int row = 0; row < kRows; ++row) {
      for (int col = 0; col < kColumns; ++col) {
        bytes += '\xff';
        bytes += static_cast<char>(Texture(col, row));
        bytes += '\0';
      }
    }
    file = folder.Write("image.raw", bytes);
  }
};

ImageTemplate Textured_Template(int first_col, int first_row, int width, int height) {
  ImageTemplate pattern;
  pattern.width = width;
  pattern.height = height;
  for (int row = first_row; row < first_row + height; ++row) {
    for (int col = first_col; col < first_col + width; ++col) {
      pattern.pixels.push_back(Texture(col, row));
    }
  }
  return pattern;
}

TEST(RawBand, TheTemplateIsFoundWithinTheReach) {
  const TexturedFile site;
  const RawBand band = Read_Band(site.file, kColumns, 120, 140);
  const ImageTemplate pattern = Textured_Template(102, 195, 5, 3);
  EXPECT_NEAR(Best_Correlation_Around(band, 98, 199 - 120, 4, pattern), 1, 1e-12);
  EXPECT_LT(Best_Correlation_Around(band, 97, 199 - 120, 4, pattern), 0.999);
  EXPECT_LT(Best_Correlation_Around(band, 98, 200 - 120, 4, pattern), 0.999);
}

TEST(RawBand, TheMiddleByteOfEachPixelIsUsed) {
  const TexturedFile site;
  const RawBand band = Read_Band(site.file, kColumns, 120, 140);
  std::vector<std::uint8_t> window;
  Cut_Window(band, 7, 3, Textured_Template(0, 0, 2, 2), window);
  EXPECT_EQ(window, Textured_Template(7, 123, 2, 2).pixels);
}

TEST(RawBand, PixelsPastTheFilesEndAreZero) {
  const TexturedFile site;
  const RawBand band = Read_Band(site.file, kColumns, 399, 2);
  std::vector<std::uint8_t> window;
  Cut_Window(band, 10, 0, Textured_Template(0, 0, 1, 2), window);
  EXPECT_EQ(window, (std::vector<std::uint8_t>{Texture(10, 399), 0}));
}

TEST(RawBand, AWindowThatLeavesTheBandIsNamed) {
  const TexturedFile site;
  const RawBand band = Read_Band(site.file, kColumns, 120, 140);
  std::vector<std::uint8_t> window;
  EXPECT_EQ(Failure_Of([&] { Cut_Window(band, 198, 0, Textured_Template(0, 0, 3, 1), window); }),
            "Subscript out of range: a template window at columns 198 to 200 leaves the band of "
            "the raw file, 0 to 199");
}

}  // namespace
}  // namespace sylvomex
