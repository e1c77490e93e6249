// SPDX-License-Identifier: MIT
#include "imageblock/image_header_text.h"

#include <gtest/gtest.h>

#include "imageblock/image_header.h"

namespace sylvomex {
namespace {

ImageRecord Full_Record() {
  ImageRecord image;
  image.ImageId = -12345;
  image.RawFileName = "c:\\my data\\a, \"b\".raw";
  image.ColorFlag = 1;
  image.SubRowOrigin = 0.1;
  image.SubColOrigin = 1e-17;
  image.FullWidth = 32767;
  image.FullHeight = -5;
  image.StartRow = 3;
  image.StartCol = 4;
  image.SubWidth = 1.0 / 3;
  image.SubHeight = 1e20;
  image.PrincipalDistance = 0.2136;
  for (int k = 0; k < 8; ++k) image.CameraReserved(k) = k / 7.0;
  image.AffineA1 = 71428.571428571428;
  image.AffineB0 = -0.0;
  image.Omega = -2.5e-3;
  image.X0 = 2515000.123456789;
  image.SunElevation = 0.6;
  image.BandCount = 4;
  for (int k = 0; k < 4; ++k) {
    image.BandType(k) = k;
    image.BandFile(k) = k == 0 ? "" : "c:\\data\\band.raw";
    image.BandWidth(k) = 100 + k;
    image.BandHeight(k) = -k;
  }
  return image;
}

/// Every field, in the order of declaration.
std::string Fields(const ImageRecord& image) {
  std::string text;
  Visit_Image_Record(image, [&](const char* name, const auto& field) {
    text += std::string(name) + ":";
    if constexpr (requires { field.Trimmed(); }) {
      text += field.Trimmed();
    } else if constexpr (requires { field.kFirst; }) {
      for (const auto& entry : field) {
        if constexpr (requires { entry.Trimmed(); }) {
          text += entry.Trimmed() + ";";
        } else {
          text += testing::PrintToString(entry) + ";";
        }
      }
    } else {
      char bytes[40];
      std::snprintf(bytes, sizeof bytes, "%.17g", static_cast<double>(field));
      text += bytes;
    }
    text += "\n";
  });
  return text;
}

TEST(ImageHeaderText, GivesEveryFieldBackExactly) {
  const ImageRecord image = Full_Record();
  ListReader reader(Image_Header_Text(image), "a.hdr");
  EXPECT_EQ(Fields(Read_Image_Header(reader)), Fields(image));
  EXPECT_TRUE(reader.At_End());
}

TEST(ImageHeaderText, HasItsItemsInTheOrderOfTheFormat) {
  ImageRecord image = Full_Record();
  image.BandCount = 0;
  const std::string text = Image_Header_Text(image);
  EXPECT_EQ(text.substr(0, text.find("\r\n", 40)),
            "-12345\r\n0.3333333333333333\r\n1e+20\r\n\"c:\\my data\\a, \"\"b\"\".raw\"");
  EXPECT_TRUE(text.ends_with("\r\n\"\"\r\n0\r\n"));
}

TEST(ImageHeaderText, WithoutRelatedRastersEndsAfterTheirCount) {
  ImageRecord image = Full_Record();
  image.BandCount = -1;
  ListReader reader(Image_Header_Text(image), "a.hdr");
  EXPECT_EQ(Read_Image_Header(reader).BandCount, -1);
  EXPECT_TRUE(reader.At_End());
}

}  // namespace
}  // namespace sylvomex
