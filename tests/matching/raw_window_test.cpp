// SPDX-License-Identifier: MIT
#include "matching/raw_window.h"

#include "matching/test_photo.h"

namespace sylvomex {
namespace {

ImageRecord Small_Raw(std::uint8_t colour) {
  ImageRecord image = Test_Photo();
  image.SubWidth = 4;
  image.SubHeight = 3;
  image.ColorFlag = colour;
  return image;
}

TEST(RawWindow, GreyPixelsAreTheirBytes) {
  const ImageRecord image = Small_Raw(0);
  const std::vector<std::uint8_t> raw{0, 1, 2, 3, 10, 11, 12, 13, 20, 21, 22, 23};
  EXPECT_EQ(Read_Raw_Window(image, Pixels_Of(image, raw), {1, 2, 1, 2}, ColourRule::Mean),
            (std::vector<std::uint8_t>{11, 12, 21, 22}));
}

TEST(RawWindow, ColourPixelsAreTheirMeanOrTheirMiddleByte) {
  const ImageRecord image = Small_Raw(1);
  std::vector<std::uint8_t> raw(36, 0);
  const std::uint8_t second_row[] = {1, 2, 4, 255, 255, 255, 10, 10, 11, 0, 0, 2};
  std::copy(std::begin(second_row), std::end(second_row), raw.begin() + 12);
  // Means 7/3, 255, 31/3, 2/3.
  EXPECT_EQ(Read_Raw_Window(image, Pixels_Of(image, raw), {0, 3, 1, 1}, ColourRule::Mean),
            (std::vector<std::uint8_t>{2, 255, 10, 1}));
  EXPECT_EQ(Read_Raw_Window(image, Pixels_Of(image, raw), {0, 3, 1, 1}, ColourRule::MiddleByte),
            (std::vector<std::uint8_t>{2, 255, 10, 0}));
}

TEST(RawWindow, AWindowThatLeavesTheRawFileIsNamedWithBothSizes) {
  const ImageRecord image = Small_Raw(0);
  const std::vector<std::uint8_t> raw(12);
  for (const RawWindow window : {RawWindow{-1, 2, 0, 1}, RawWindow{0, 4, 0, 1},
                                 RawWindow{0, 1, -1, 1}, RawWindow{0, 1, 0, 3}}) {
    const std::string text = Failure_Of(Failure::SubscriptOutOfRange, [&] {
      Read_Raw_Window(image, Pixels_Of(image, raw), window, ColourRule::Mean);
    });
    EXPECT_NE(text.find("columns " + std::to_string(window.first_col)), std::string::npos);
    EXPECT_NE(text.find("4 x 3"), std::string::npos);
  }
}

TEST(RawWindow, AShortFileIsAnError) {
  const ImageRecord image = Small_Raw(1);
  const std::vector<std::uint8_t> raw(35);
  Failure_Of(Failure::InputPastEnd, [&] {
    Read_Raw_Window(image, Pixels_Of(image, raw), {0, 0, 0, 0}, ColourRule::Mean);
  });
}

TEST(RawWindow, AnUnknownColourFlagIsAnError) {
  const ImageRecord image = Small_Raw(2);
  const std::vector<std::uint8_t> raw(36);
  Failure_Of(Failure::BadContent, [&] {
    Read_Raw_Window(image, Pixels_Of(image, raw), {0, 0, 0, 0}, ColourRule::Mean);
  });
}

}  // namespace
}  // namespace sylvomex
