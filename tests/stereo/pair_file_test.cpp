// SPDX-License-Identifier: MIT
#include "stereo/pair_file.h"

#include <gtest/gtest.h>

#include "imageblock/expect_failure.h"

namespace sylvomex {
namespace {

StereoPair Example() {
  StereoPair pair;
  pair.left.raster = "c:\\data\\101test_left.raw";
  pair.right.raster = "c:\\data\\102test_right.raw";
  pair.ColorMode = 1;
  pair.Xmin = -0.0612345678;
  pair.Ymax = 0.09;
  pair.PixelWidth = 42e-6;
  pair.NormalWidth = 2917;
  pair.NormalHeight = 4285;
  pair.left.centre = {2515000.1234, 6859000.5, 1800};
  pair.left.rotation = {1, 0, 0, 0, 1, 0, 0, 0, 1};
  pair.left.normal = {0.5, -0.25, 0.125, 1.0 / 3, 0, -1, 2, 3, 4};
  pair.left.c = 0.1;
  pair.left.A1 = 1e5;
  pair.left.A2 = -0.5;
  pair.left.A0 = 3750.25;
  pair.left.B1 = 0.125;
  pair.left.B2 = 1e5;
  pair.left.B0 = 5750;
  pair.right = pair.left;
  pair.right.raster = "c:\\data\\102test_right.raw";
  pair.right.centre = {2515400.5, 6859010.25, 1801};
  pair.right.c = 0.1234567;
  return pair;
}

constexpr const char* kMatrices =
    "1.000000000000,0.000000000000,0.000000000000\n"
    "0.000000000000,1.000000000000,0.000000000000\n"
    "0.000000000000,0.000000000000,1.000000000000\n"
    "0.500000000000,-0.250000000000,0.125000000000\n"
    "0.333333333333,0.000000000000,-1.000000000000\n"
    "2.000000000000,3.000000000000,4.000000000000\n";

constexpr const char* kAffine =
    "\"Affine coefficients\"\n"
    "100000.00000000\n-.50000000\n3750.25000000\n.12500000\n100000.00000000\n5750.00000000\n";

std::string Example_Text() {
  return std::string("\"Normalized image pair \"\n") + "\"c:\\data\\101test_left.raw\"\n" +
         "\"c:\\data\\102test_right.raw\"\n" + "\"Color Mode \"\n1\n" +
         "\"Xmin, Ymax, pixelwidth\"\n-0.0612346,0.0900000,0.0000420\n" +
         "\"Width, Height (pixels)\"\n2917,4285\n" + "\"Projection center, letf image\"\n" +
         "2515000.123,6859000.500,1800.000\n" + "\"Normal matrix, left image\"\n" + kMatrices +
         "\"Interior ori, left image\"\n\"Focal lenght\"\n0.100000\n" + kAffine +
         "\"Projection center, right image\"\n2515400.500,6859010.250,1801.000\n" +
         "\"Normal matrix, right image\"\n" + kMatrices +
         "\"Interior ori, right image\"\n\"Focal lenght\"\n0.123457\n" + kAffine +
         "\"Start point\"\n2515400.50,6859010.25,165\n";
}

StereoPair Read(const std::string& text) {
  ListReader reader(text, "PAIR.TXT");
  return Read_Pair_File(reader);
}

TEST(PairFile, IsWrittenLineByLine) { EXPECT_EQ(Pair_File_Text(Example()), Example_Text()); }

TEST(PairFile, ReadsEveryItemIntoItsField) {
  const StereoPair pair = Read(Example_Text());
  EXPECT_EQ(pair.left.raster, "c:\\data\\101test_left.raw");
  EXPECT_EQ(pair.right.raster, "c:\\data\\102test_right.raw");
  EXPECT_EQ(pair.ColorMode, 1);
  EXPECT_EQ(pair.Xmin, -0.0612346);
  EXPECT_EQ(pair.Ymax, 0.09);
  EXPECT_EQ(pair.PixelWidth, 0.000042);
  EXPECT_EQ(pair.NormalWidth, 2917);
  EXPECT_EQ(pair.NormalHeight, 4285);
  EXPECT_EQ(pair.left.centre.X, 2515000.123);
  EXPECT_EQ(pair.left.rotation.m22, 1);
  EXPECT_EQ(pair.left.normal.m13, 0.125);
  EXPECT_EQ(pair.left.normal.m31, 2);
  EXPECT_EQ(pair.left.c, 0.1);
  EXPECT_EQ(pair.left.A2, -0.5);
  EXPECT_EQ(pair.left.B0, 5750);
  EXPECT_EQ(pair.right.centre.Z, 1801);
  EXPECT_EQ(pair.right.c, 0.123457);
  EXPECT_EQ(pair.right.B1, 0.125);
  EXPECT_EQ(pair.start.X, 2515400.5);
  EXPECT_EQ(pair.start.Y, 6859010.25);
  EXPECT_EQ(pair.start.Z, 165);
}

TEST(PairFile, CutShortIsInputPastEnd) {
  const std::string text = Example_Text();
  Expect_Failure(Failure::InputPastEnd, [&] { Read(text.substr(0, text.size() / 2)); });
  Expect_Failure(Failure::InputPastEnd, [&] { Read(text.substr(0, text.size() - 5)); });
}

std::string With(const std::string& from, const std::string& to) {
  std::string text = Example_Text();
  text.replace(text.find(from), from.size(), to);
  return text;
}

TEST(PairFile, ATextInPlaceOfANumberNamesFileAndLine) {
  const std::string text =
      Expect_Failure(Failure::TypeMismatch, [] { Read(With("2515000.123", "somewhere")); });
  EXPECT_TRUE(Contains(text, "PAIR.TXT, line 11")) << text;
}

TEST(PairFile, SizesAndDistancesThatAreNotAboveZeroAreRejected) {
  Expect_Failure(Failure::BadContent, [] { Read(With("2917,", "0,")); });
  Expect_Failure(Failure::BadContent, [] { Read(With(",4285", ",-4")); });
  Expect_Failure(Failure::BadContent, [] { Read(With("0.0000420", "0")); });
  Expect_Failure(Failure::BadContent, [] { Read(With("0.100000\n", "0\n")); });
  Expect_Failure(Failure::Overflow, [] { Read(With("2917,", "40000,")); });
}

TEST(PairFile, ARasterWithoutANameIsRejected) {
  Expect_Failure(Failure::BadContent, [] { Read(With("\"c:\\data\\101test_left.raw\"", "\"\"")); });
}

}  // namespace
}  // namespace sylvomex
