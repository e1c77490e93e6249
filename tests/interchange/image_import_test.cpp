// SPDX-License-Identifier: MIT
#include "interchange/image_import.h"

#include <gtest/gtest.h>

#include "imageblock/image_header.h"
#include "interchange/failures.h"
#include "interchange/import_transaction.h"
#include "interchange/site.h"
#include "platform/list_reader.h"
#include "support/file_size_limit.h"
#include "support/photo_site.h"

namespace sylvomex {
namespace {

namespace fs = std::filesystem;

class ImageImport : public testing::Test {
 protected:
  ImageImport() { Init_Site(site_.Path(), "EPSG:3067"); }

  /// Settings of an import of one photograph of the given values.
  ImageImportSettings One(int width, int height, int bands, GDALDataType type,
                          const std::vector<std::int32_t>& values,
                          const std::vector<std::string>& options = {}) {
    TablePhoto photo = Sample_Photos()[0];
    photo.width = width;
    photo.height = height;
    return Settings(
        {photo}, {Write_Tiff(source_, "photo1.tif", width, height, bands, type, values, options)});
  }

  ImageImportSettings Settings(const std::vector<TablePhoto>& photos,
                               const std::vector<fs::path>& files) {
    ImageImportSettings settings;
    settings.site = site_.Path();
    settings.table = source_.Write("table.csv", Plain_Table(photos)).native;
    settings.files = files;
    return settings;
  }

  ImageRecord Header(const std::string& name) const {
    ListReader reader(site_.File("c/data/images/" + name + ".hdr"));
    return Read_Image_Header(reader);
  }

  std::string Raw(const std::string& name) const {
    return site_.Read("c/data/images/" + name + ".raw");
  }

  std::map<std::string, std::string> Contents() const {
    std::map<std::string, std::string> contents;
    for (const auto& entry : fs::recursive_directory_iterator(site_.Path())) {
      const std::string name = fs::relative(entry.path(), site_.Path()).string();
      contents[name] = entry.is_regular_file() ? site_.Read(name) : "a folder";
    }
    return contents;
  }

  /// The refusal's text; the site must be as it was.
  std::string Refusal(const ImageImportSettings& settings) {
    const auto before = Contents();
    std::string text;
    try {
      Import_Images(settings);
    } catch (const Refused& refusal) {
      text = refusal.what();
    }
    EXPECT_EQ(Contents(), before);
    return text;
  }

  TemporaryFolder site_;
  TemporaryFolder source_;
};

std::string Bytes_Of(const std::vector<std::int32_t>& values) {
  std::string bytes;
  for (const std::int32_t value : values) bytes += static_cast<char>(value);
  return bytes;
}

TEST_F(ImageImport, EightBitsComeBitForBitFromEveryLayout) {
  for (const int bands : {1, 3}) {
    const auto values = Mixed_Values(75, 53, bands);
    for (const std::vector<std::string>& options : {std::vector<std::string>{},
                                                    {"TILED=YES", "BLOCKXSIZE=16", "BLOCKYSIZE=16"},
                                                    {"COMPRESS=DEFLATE", "INTERLEAVE=BAND"},
                                                    {"COMPRESS=LZW", "BLOCKYSIZE=7"}}) {
      const auto result = Import_Images(One(75, 53, bands, GDT_Byte, values, options));
      EXPECT_EQ(Raw("photo1"), Bytes_Of(values));
      EXPECT_EQ(Header("photo1").ColorFlag, bands == 3 ? 1 : 0);
      EXPECT_FALSE(result.images[0].stretch.has_value());
    }
  }
}

TEST_F(ImageImport, APaletteOfGreysLeavesAGreyImage) {
  const auto values = Mixed_Values(21, 13, 1);
  // A white-is-zero file has the falling palette.
  Import_Images(One(21, 13, 1, GDT_Byte, values, {"PHOTOMETRIC=MINISWHITE"}));
  std::string expected;
  for (const std::int32_t value : values) expected += static_cast<char>(255 - value);
  EXPECT_EQ(Raw("photo1"), expected);
  EXPECT_EQ(Header("photo1").ColorFlag, 0);
}

TEST_F(ImageImport, GreysOfFewBitsAreSpreadOverTheWholeRange) {
  Import_Images(One(4, 1, 1, GDT_Byte, {0, 1, 2, 3}, {"NBITS=2"}));
  EXPECT_EQ(Raw("photo1"), (std::string{'\0', '\x55', '\xAA', '\xFF'}));
  Import_Images(One(4, 1, 1, GDT_Byte, {0, 1, 14, 15}, {"NBITS=4"}));
  EXPECT_EQ(Raw("photo1"), (std::string{'\0', '\x11', '\xEE', '\xFF'}));
  EXPECT_EQ(Header("photo1").ColorFlag, 0);
}

TEST_F(ImageImport, OfFourBandsTheFirstThreeAreTaken) {
  const auto values = Mixed_Values(20, 10, 4);
  Import_Images(One(20, 10, 4, GDT_Byte, values));
  std::string expected;
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (i % 4 != 3) expected += static_cast<char>(values[i]);
  }
  EXPECT_EQ(Raw("photo1"), expected);
}

TEST_F(ImageImport, SixteenBitsAreStretchedBetweenThePercentilesOfAllBands) {
  std::vector<std::int32_t> values(300);  // 0, 10 ... 2990 over three bands
  for (std::size_t i = 0; i < values.size(); ++i) values[i] = static_cast<std::int32_t>(10 * i);
  ImageImportSettings settings = One(10, 10, 3, GDT_UInt16, values);
  settings.stretch = {10, 60};
  const auto result = Import_Images(settings);
  // Percentile p of 300 sorted values lies at rank p / 100 * 299: 29.9 and 179.4.
  ASSERT_TRUE(result.images[0].stretch.has_value());
  EXPECT_DOUBLE_EQ(result.images[0].stretch->low, 299);
  EXPECT_DOUBLE_EQ(result.images[0].stretch->high, 1794);
  const std::string raw = Raw("photo1");
  for (std::size_t i = 0; i < values.size(); ++i) {
    const double grey = std::clamp((values[i] - 299.0) / 1495 * 255, 0.0, 255.0);
    EXPECT_NEAR(static_cast<unsigned char>(raw[i]), grey, 0.5 + 1e-9) << i;
  }
}

TEST_F(ImageImport, ASixteenBitImageOfOneValueIsBlack) {
  Import_Images(One(4, 4, 1, GDT_UInt16, std::vector<std::int32_t>(16, 700)));
  EXPECT_EQ(Raw("photo1"), std::string(16, '\0'));
}

TEST_F(ImageImport, TheHeaderHoldsTheTablesOrientationInWorkingCoordinates) {
  TablePhoto photo = Sample_Photos()[1];
  photo.width = 30;
  photo.height = 20;
  const auto file = Write_Tiff(source_, "photo2.tif", 30, 20, 1, GDT_Byte, Mixed_Values(30, 20, 1));
  Import_Images(Settings({photo}, {file}));
  const Site site = Open_Site(site_.Path());
  const ImageRecord header = Header("photo2");
  const double degree = std::numbers::pi / 180;
  EXPECT_NEAR(header.Omega, -2.5 * degree, 1e-14);
  EXPECT_NEAR(header.Phi, 2 * degree, 1e-14);
  EXPECT_NEAR(header.Kappa, 14 * degree, 1e-14);
  EXPECT_DOUBLE_EQ(header.X0, photo.centre.X - site.shift->X);
  EXPECT_DOUBLE_EQ(header.Y0, photo.centre.Y - site.shift->Y);
  EXPECT_EQ(header.Z0, photo.centre.Z);
  EXPECT_DOUBLE_EQ(header.AffineA0, 15 - 0.5 + 4);
  EXPECT_DOUBLE_EQ(header.AffineB0, 10 - 0.5 - 7);
  EXPECT_DOUBLE_EQ(header.AffineA1, 10000);
  EXPECT_DOUBLE_EQ(header.AffineB2, 10000);
  EXPECT_DOUBLE_EQ(header.PrincipalDistance, 0.1);
  EXPECT_EQ(header.FullWidth, 30);
  EXPECT_EQ(header.SubHeight, 20);
  EXPECT_EQ(header.SunElevation, 0);
}

TEST_F(ImageImport, ImportingAgainReplacesAndKeepsTheNumber) {
  const auto first = Import_Images(One(6, 5, 1, GDT_Byte, Mixed_Values(6, 5, 1)));
  TablePhoto other = Sample_Photos()[1];
  other.width = 6;
  other.height = 5;
  const auto file = Write_Tiff(source_, "photo2.tif", 6, 5, 1, GDT_Byte, Mixed_Values(6, 5, 1));
  const auto second = Import_Images(Settings({other}, {file}));
  EXPECT_NE(second.images[0].image_id, first.images[0].image_id);
  const auto values = Mixed_Values(6, 5, 3);
  const auto again = Import_Images(One(6, 5, 3, GDT_Byte, values));
  EXPECT_EQ(again.images[0].image_id, first.images[0].image_id);
  EXPECT_EQ(Raw("photo1"), Bytes_Of(values));
  EXPECT_EQ(std::distance(fs::directory_iterator(site_.Path() / "c/data/images"), {}), 4);
  EXPECT_EQ(Open_Site(site_.Path()).imports.size(), 3U);
}

TEST_F(ImageImport, LongNamesOfRawFilesAreShortenedAndDiffer) {
  const std::string start(60, 'n');
  std::vector<TablePhoto> photos(2);
  std::vector<fs::path> files;
  for (std::size_t i = 0; i < 2; ++i) {
    photos[i].name = start + std::to_string(i);
    photos[i].width = 3;
    photos[i].height = 2;
    photos[i].centre = Sample_Photos()[0].centre;
    files.push_back(
        Write_Tiff(source_, photos[i].name + ".tif", 3, 2, 1, GDT_Byte, Mixed_Values(3, 2, 1)));
  }
  const auto result = Import_Images(Settings(photos, files));
  EXPECT_NE(result.images[0].raw, result.images[1].raw);
  for (const auto& image : result.images) {
    EXPECT_LE(image.raw.size(), 60U);
    const ImageRecord header = Header(image.name);
    EXPECT_EQ(header.RawFileName.Trimmed(), image.raw);
    EXPECT_TRUE(fs::exists(site_.Drives().Locate(image.raw).native));
  }
}

TEST_F(ImageImport, AroundCutsThePixelsOfTheCircle) {
  TablePhoto photo;  // vertical, 1000 px of f, 100 m above the circle: 10 px a metre
  photo.name = "photo1";
  photo.centre = {385000, 6672000, 250};
  const auto values = Mixed_Values(400, 300, 1);
  const auto file = Write_Tiff(source_, "photo1.tif", 400, 300, 1, GDT_Byte, values);
  ImageImportSettings settings = Settings({photo}, {file});
  // 3.05 m east and 2.05 m north: column 200 + 30.5, row 150 - 20.5; radius 1 m: 10 px.
  settings.around = GroundCircle{{385003.05, 6672002.05, 150}, 1};
  Import_Images(settings);
  const ImageRecord header = Header("photo1");
  EXPECT_EQ(header.SubColOrigin, 220);
  EXPECT_EQ(header.SubRowOrigin, 119);
  EXPECT_EQ(header.SubWidth, 21);
  EXPECT_EQ(header.SubHeight, 21);
  EXPECT_EQ(header.FullWidth, 400);
  EXPECT_EQ(header.AffineA0, 199.5);
  const std::string raw = Raw("photo1");
  for (std::size_t row = 0; row < 21; ++row) {
    for (std::size_t col = 0; col < 21; ++col) {
      ASSERT_EQ(static_cast<unsigned char>(raw[row * 21 + col]),
                values[(119 + row) * 400 + 220 + col]);
    }
  }
}

TEST_F(ImageImport, AroundPassesOverImagesThatDoNotShowTheCircle) {
  std::vector<TablePhoto> photos(2);
  std::vector<fs::path> files;
  for (std::size_t i = 0; i < 2; ++i) {
    photos[i].name = "p" + std::to_string(i);
    photos[i].centre = {385000 + 100.0 * static_cast<double>(i), 6672000, 250};
    files.push_back(Write_Tiff(source_, photos[i].name + ".tif", 400, 300, 1, GDT_Byte,
                               Mixed_Values(400, 300, 1)));
  }
  ImageImportSettings settings = Settings(photos, files);
  settings.around = GroundCircle{{385000, 6672000, 150}, 5};
  const auto result = Import_Images(settings);
  EXPECT_EQ(result.passed_over, std::vector<std::string>{"p1"});
  EXPECT_FALSE(site_.Has("c/data/images/p1.hdr"));
  settings.around = GroundCircle{{395000, 6672000, 150}, 5};
  EXPECT_NE(Refusal(settings), "");
}

TEST_F(ImageImport, TheLensIsRemovedBilinearly) {
  // The principal point is the middle of 41 x 31 pixels, 1000 px of f. k1 moves a pixel at (x, y)
  // px by k1 r^2 / f^2: with k1 = 200 and the corner at (20, 15) px, 625 * 200 / 1e6 = 0.125 of it.
  TablePhoto photo = Sample_Photos()[0];
  photo.width = 41;
  photo.height = 31;
  photo.x0_mm = photo.y0_mm = 0;
  const auto values = Mixed_Values(41, 31, 1);
  const auto file = Write_Tiff(source_, "photo1.tif", 41, 31, 1, GDT_Byte, values);
  ImageImportSettings settings = Settings({photo}, {file});
  settings.table = source_
                       .Write("table.csv", std::string(kPlainHeader) + ",k1,k2,k3,p1,p2\n" +
                                               photo.Row() + ",200,0,0,0,0\n")
                       .native;
  const auto result = Import_Images(settings);
  EXPECT_GT(result.images[0].largest_shift, 3);
  const std::string raw = Raw("photo1");
  const auto at = [&](int col, int row) {
    return static_cast<unsigned char>(raw[static_cast<std::size_t>(row * 41 + col)]);
  };
  EXPECT_EQ(at(20, 15), values[15 * 41 + 20]);
  // (10, 0) px from the middle is found at 10 (1 + 200 * 100 / 1e6) = 10.2: 0.2 of the way.
  EXPECT_NEAR(at(30, 15), 0.8 * values[15 * 41 + 30] + 0.2 * values[15 * 41 + 31], 0.5);
  // (0, -10): the same upwards.
  EXPECT_NEAR(at(20, 5), 0.8 * values[5 * 41 + 20] + 0.2 * values[4 * 41 + 20], 0.5);
  EXPECT_EQ(at(0, 0), 0);  // 22.5, 16.9 px: outside the source
}

TEST_F(ImageImport, RowsBehindTheFirstSixteenMegabytesKeepTheirPlaceUnderALens) {
  constexpr int kWidth = 3000, kHeight = 1900, kBands = 3;
  const auto values = Mixed_Values(kWidth, kHeight, kBands);
  const auto file = Write_Tiff(source_, "photo1.tif", kWidth, kHeight, kBands, GDT_Byte, values);
  TablePhoto photo = Sample_Photos()[0];
  photo.width = kWidth;
  photo.height = kHeight;
  ImageImportSettings settings = Settings({photo}, {file});
  // A lens that moves nothing has every pixel resampled all the same.
  settings.table =
      source_.Write("table.csv", std::string(kPlainHeader) + ",k1\n" + photo.Row() + ",1e-15\n")
          .native;
  Import_Images(settings);
  EXPECT_TRUE(Raw("photo1") == Bytes_Of(values));
}

TEST_F(ImageImport, TheSunComesFromTheTablesTime) {
  TablePhoto photo = Sample_Photos()[0];
  photo.width = 4;
  photo.height = 3;
  const auto file = Write_Tiff(source_, "photo1.tif", 4, 3, 1, GDT_Byte, Mixed_Values(4, 3, 1));
  ImageImportSettings settings = Settings({photo}, {file});
  const auto with_time = [&](const std::string& utc) {
    settings.table = source_
                         .Write("table.csv", std::string(kPlainHeader) + ",utc\n" + photo.Row() +
                                                 "," + utc + "\n")
                         .native;
  };
  with_time("2024-06-21T10:00:00Z");
  const auto result = Import_Images(settings);
  // The place lies at 60.17 north, 24.93 east. The sun culminates there at 10:22 UTC at 90 - 60.17
  // + 23.44 = 53.27 degrees above the south; 22 minutes before, 5.5 degrees of hour angle are
  // missing: azimuth 180 - asin(sin 5.5 cos 23.44 / cos 53.1) = 171.6.
  ASSERT_TRUE(result.images[0].sun.has_value());
  EXPECT_NEAR((*result.images[0].sun)[0], 171.6, 0.3);
  EXPECT_NEAR((*result.images[0].sun)[1], 53.1, 0.1);
  EXPECT_NEAR(Header("photo1").SunElevation * 180 / std::numbers::pi, (*result.images[0].sun)[1],
              1e-9);
  with_time("last summer");
  EXPECT_NE(Refusal(settings), "");
}

TEST_F(ImageImport, RefusesTablesAndFilesThatDoNotMatch) {
  ImageImportSettings settings = One(4, 3, 1, GDT_Byte, Mixed_Values(4, 3, 1));
  const fs::path extra = Write_Tiff(source_, "extra.tif", 4, 3, 1, GDT_Byte, Mixed_Values(4, 3, 1));
  const fs::path twin =
      Write_Tiff(source_, "b/photo1.tif", 4, 3, 1, GDT_Byte, Mixed_Values(4, 3, 1));
  const fs::path good = settings.files[0];
  settings.files = {good, extra};
  EXPECT_NE(Refusal(settings).find("extra.tif"), std::string::npos);
  settings.files = {good, twin};
  EXPECT_NE(Refusal(settings).find("photo1.tif"), std::string::npos);
  settings.files = {extra};
  EXPECT_NE(Refusal(settings), "");
  settings = Settings({Sample_Photos()[0], Sample_Photos()[1]}, {good});
  EXPECT_NE(Refusal(settings), "");
}

TEST_F(ImageImport, RefusesAnotherSizeThanTheTables) {
  ImageImportSettings settings = One(4, 3, 1, GDT_Byte, Mixed_Values(4, 3, 1));
  Write_Tiff(source_, "photo1.tif", 5, 3, 1, GDT_Byte, Mixed_Values(5, 3, 1));
  const std::string text = Refusal(settings);
  EXPECT_NE(text.find("photo1.tif: 5 x 3 pixels, and 4 x 3"), std::string::npos) << text;
}

TEST_F(ImageImport, RefusesMoreColumnsThanAHeaderCounts) {
  EXPECT_NE(Refusal(One(32768, 1, 1, GDT_Byte, Mixed_Values(32768, 1, 1))).find("32767"),
            std::string::npos);
  Import_Images(One(32767, 1, 1, GDT_Byte, Mixed_Values(32767, 1, 1)));
  EXPECT_EQ(Header("photo1").FullWidth, 32767);
}

TEST_F(ImageImport, RefusesMissingDamagedAndOtherFiles) {
  const auto values = Mixed_Values(200, 150, 1);
  ImageImportSettings settings =
      One(200, 150, 1, GDT_Byte, values, {"COMPRESS=DEFLATE", "BLOCKYSIZE=10"});
  const std::string whole = source_.Read("photo1.tif");
  for (const double share : {0.9, 0.5, 0.1, 0.0}) {
    source_.Write(
        "photo1.tif",
        whole.substr(0, static_cast<std::size_t>(share * static_cast<double>(whole.size()))));
    EXPECT_NE(Refusal(settings).find("photo1.tif"), std::string::npos) << share;
  }
  const ImageImportSettings plain = One(200, 150, 1, GDT_Byte, values);
  source_.Write("photo1.tif", source_.Read("photo1.tif").substr(0, 20000));
  EXPECT_NE(Refusal(plain).find("photo1.tif"), std::string::npos);
  source_.Write("photo1.tif", "this is a letter");
  EXPECT_NE(Refusal(settings).find("photo1.tif"), std::string::npos);
  fs::remove(source_.Path() / "photo1.tif");
  EXPECT_NE(Refusal(settings).find("photo1.tif"), std::string::npos);
  settings.table = source_.Path() / "no table";
  EXPECT_NE(Refusal(settings).find("no table"), std::string::npos);
}

TEST_F(ImageImport, RefusesPixelsOfRealNumbers) {
  EXPECT_NE(Refusal(One(4, 3, 1, GDT_Float32, Mixed_Values(4, 3, 1))).find("Float32"),
            std::string::npos);
}

TEST_F(ImageImport, RefusesExchangedAxes) {
  TablePhoto photo = Sample_Photos()[0];
  photo.width = 4;
  photo.height = 3;
  std::swap(photo.centre.X, photo.centre.Y);
  const auto file = Write_Tiff(source_, "photo1.tif", 4, 3, 1, GDT_Byte, Mixed_Values(4, 3, 1));
  EXPECT_NE(Refusal(Settings({photo}, {file})).find("exchanged"), std::string::npos);
}

TEST_F(ImageImport, AFullDiskLeavesTheSiteAsItWas) {
  const ImageImportSettings settings = One(200, 150, 3, GDT_Byte, Mixed_Values(200, 150, 3));
  const auto before = Contents();
  {
    const FileSizeLimit limit(50000);
    EXPECT_THROW(Import_Images(settings), FailedOnTheWay);
  }
  EXPECT_EQ(Contents(), before);
}

TEST(WindowOfCircle, IsExactForTiltedImages) {
  TablePhoto photo = Sample_Photos()[3];
  OrientedPhoto oriented;
  oriented.width = photo.width;
  oriented.height = photo.height;
  oriented.f_mm = photo.f_mm;
  oriented.pixel_mm = oriented.pixel_y_mm = photo.pixel_mm;
  oriented.x0 = photo.x0_mm / photo.pixel_mm;
  oriented.y0 = photo.y0_mm / photo.pixel_mm;
  const double degree = std::numbers::pi / 180;
  oriented.m =
      Build_Rotation_Matrix(photo.omega * degree, photo.phi * degree, photo.kappa * degree);
  oriented.centre = photo.centre;
  const GroundCircle circle{{385010, 6672008, 150}, 6};
  double low_col = 1e9, high_col = -1e9, low_row = 1e9, high_row = -1e9;
  for (int i = 0; i < 200000; ++i) {  // brute force
    const double t = i * std::numbers::pi / 100000;
    const auto [col, row] = photo.Pixel(
        {circle.centre.X + 6 * std::cos(t), circle.centre.Y + 6 * std::sin(t), circle.centre.Z});
    low_col = std::min(low_col, col);
    high_col = std::max(high_col, col);
    low_row = std::min(low_row, row);
    high_row = std::max(high_row, row);
  }
  const auto window = Window_Of_Circle(oriented, circle);
  ASSERT_TRUE(window.has_value());
  EXPECT_EQ(window->first_col, std::floor(low_col));
  EXPECT_EQ(window->first_row, std::max(0.0, std::floor(low_row)));
  EXPECT_EQ(window->first_col + window->width - 1, std::min(399.0, std::floor(high_col)));
  EXPECT_EQ(window->first_row + window->height - 1, std::min(299.0, std::floor(high_row)));
  EXPECT_FALSE(Window_Of_Circle(oriented, {{385010, 6672008, 1150}, 6}).has_value());
}

}  // namespace
}  // namespace sylvomex
