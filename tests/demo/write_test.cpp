// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "demo/write/cursor_file.h"
#include "demo/write/demo_site.h"
#include "demo/write/exact_text.h"
#include "demo/write/height_rasters.h"
#include "demo/write/image_files.h"
#include "demo/write/site_folders.h"
#include "demo/write/truth.h"
#include "imageblock/image_header.h"
#include "platform/run_time_error.h"
#include "support/temporary_folder.h"
#include "tests/demo/small_scene.h"

namespace sylvomex::demo {
namespace {

namespace fs = std::filesystem;

std::string Bytes_Of(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  std::ostringstream out;
  out << in.rdbuf();
  return out.str();
}

TEST(ExactText, ReadsBackTheSameWithoutExponent) {
  EXPECT_EQ(Exact_Text(0.15297), "0.15297");
  EXPECT_EQ(Exact_Text(2515000), "2515000");
  EXPECT_EQ(Exact_Text(1e-7), "0.0000001");
  EXPECT_EQ(Fixed_Decimals(2.345, 2), "2.35");  // the double is above the tie
  EXPECT_EQ(Fixed_Decimals(-1, 1), "-1.0");
}

struct FieldsAsText {
  std::vector<std::string> fields;
  void Add(const char* name, const std::string& text) {
    fields.push_back(std::string(name) + "=" + text);
  }
  void operator()(const char* name, double value) { Add(name, Exact_Text(value)); }
  template <std::size_t N>
  void operator()(const char* name, const FixedText<N>& text) {
    Add(name, text.Trimmed());
  }
  template <class T, int First, int Last>
  void operator()(const char* name, const Table<T, First, Last>& table) {
    for (const T& entry : table) (*this)(name, entry);
  }
};

TEST(ImageHeaderText, ReadsBackAsTheSameRecord) {
  const Scene scene = Build_Scene({});
  for (const Photograph& photo : Fly_Over(scene)) {
    ListReader reader(Image_Header_Text(photo.image), "header");
    const ImageRecord read = Read_Image_Header(reader);
    FieldsAsText expected, found;
    Visit_Image_Record(photo.image, expected);
    Visit_Image_Record(read, found);
    EXPECT_EQ(found.fields, expected.fields);
    EXPECT_TRUE(reader.At_End());
  }
}

/// The lookup rule: nearest column, ties to even; ceiling of the row distance.
float Looked_Up(const HeightRaster& raster, double X, double Y) {
  const double col = std::nearbyint((X - raster.OriginX) / raster.cell);
  const double row = -std::floor((raster.OriginY - Y) / raster.cell);
  return raster.cells.at(static_cast<std::size_t>(row) * static_cast<std::size_t>(raster.side) +
                         static_cast<std::size_t>(col));
}

TEST(HeightRasters, CoverTheForestAndFiftyMetresAroundIt) {
  const HeightRaster raster = Make_Ground_Raster(Build_Scene({}));
  EXPECT_EQ(raster.side, 800);
  EXPECT_EQ(raster.cells.size(), 640000U);
  EXPECT_DOUBLE_EQ(raster.OriginX, 2514950.25);
  EXPECT_DOUBLE_EQ(raster.OriginY, 6859950.5);
}

TEST(HeightRasters, LookupsOfTheGroundAreUnbiasedInBothAxes) {
  // A plane that rises by 1 in X and by 3 in Y: a raster shifted by half a cell would show a
  // mean difference of 0.25 or 0.75.
  Scene scene = Scene_Of({});
  for (int j = 0; j < scene.ground.side; ++j) {
    for (int i = 0; i < scene.ground.side; ++i) {
      scene.ground.heights[static_cast<std::size_t>(j * scene.ground.side + i)] = i + 3 * j;
    }
  }
  const HeightRaster raster = Make_Ground_Raster(scene);
  double sum = 0, largest = 0;
  int n = 0;
  for (int i = 0; i < 100; ++i) {
    for (int j = 0; j < 100; ++j) {
      // Cells 17.5 m apart, with five by five points spread evenly over each.
      const double X = kForestWest - 35 + 17.5 * (i / 5) + 0.05 + 0.1 * (i % 5);
      const double Y = kForestSouth - 35 + 17.5 * (j / 5) + 0.05 + 0.1 * (j % 5);
      const double difference =
          static_cast<double>(Looked_Up(raster, X, Y)) - Ground_Height(scene, X, Y);
      sum += difference;
      largest = std::max(largest, std::abs(difference));
      ++n;
    }
  }
  EXPECT_NEAR(sum / n, 0, 1e-4);
  EXPECT_LE(largest, 0.25 * (1 + 3) + 1e-3);
}

TEST(HeightRasters, CanopyCellsHoldElevationsOfTheCanopySurface) {
  const Scene scene = Scene_Of({Tree_At(1, Species::Birch, 100, 100)});
  const HeightRaster raster = Make_Canopy_Raster(scene);
  // The cell's centre is 0.25 m from the apex in both axes: 12 x 0.125 / 2.5^2 lower.
  EXPECT_NEAR(Looked_Up(raster, kForestWest + 100.1, kForestSouth + 100.1), 170 - 0.24, 1e-4);
  EXPECT_NEAR(Looked_Up(raster, kForestWest + 120, kForestSouth + 100), 150, 1e-6);
}

TEST(HeightRasters, FilesAreSevenHeaderLinesAndFloatsFromTheSouth) {
  const TemporaryFolder root;
  Create_Site_Folders(root.Path());
  const HeightRaster raster = Make_Ground_Raster(Build_Scene({}));
  Write_Raster(raster, "c:\\data\\demo\\dem.hdr", DriveMap(root.Path()));
  EXPECT_EQ(Bytes_Of(root.Path() / "c/data/demo/dem.hdr"),
            "800\n800\n2514950.25\n6859950.5\n0.5\n-99\n\"c:\\data\\demo\\dem.bin\"\n");
  const std::string cells = Bytes_Of(root.Path() / "c/data/demo/dem.bin");
  ASSERT_EQ(cells.size(), 640000U * 4);
  float second_row_start = 0;
  std::memcpy(&second_row_start, cells.data() + 3200, 4);
  EXPECT_EQ(second_row_start, raster.cells[800]);
}

unsigned Byte_At(const std::string& bytes, std::size_t at) {
  return static_cast<unsigned char>(bytes.at(at));
}

unsigned Word_At(const std::string& bytes, std::size_t at) {
  return Byte_At(bytes, at) | Byte_At(bytes, at + 1) << 8U;
}

TEST(CrossCursor, HasTheStructureOfACursorFile) {
  const std::string cursor = Cross_Cursor(2, 9);
  ASSERT_EQ(cursor.size(), 22U + 40 + 8 + 128 + 128);
  EXPECT_EQ(Word_At(cursor, 0), 0U);
  EXPECT_EQ(Word_At(cursor, 2), 2U) << "cursor, not icon";
  EXPECT_EQ(Word_At(cursor, 4), 1U) << "one picture";
  EXPECT_EQ(Byte_At(cursor, 6), 32U);
  EXPECT_EQ(Byte_At(cursor, 7), 32U);
  EXPECT_EQ(Word_At(cursor, 10), 15U) << "hot spot";
  EXPECT_EQ(Word_At(cursor, 12), 15U);
  EXPECT_EQ(Word_At(cursor, 14), 304U) << "bytes of the picture";
  EXPECT_EQ(Word_At(cursor, 18), 22U) << "its offset";
  EXPECT_EQ(Word_At(cursor, 22), 40U);
  EXPECT_EQ(Word_At(cursor, 26), 32U);
  EXPECT_EQ(Word_At(cursor, 30), 64U) << "height of both planes";
  EXPECT_EQ(Word_At(cursor, 34), 1U);
  EXPECT_EQ(Word_At(cursor, 36), 1U) << "one bit a pixel";
}

/// Bit of a plane (0 colour, 1 mask) at a column and a row counted from the top.
unsigned Bit_At(const std::string& cursor, int plane, int column, int row) {
  const auto byte = static_cast<std::size_t>(70 + 128 * plane + 4 * (31 - row) + column / 8);
  return Byte_At(cursor, byte) >> static_cast<unsigned>(7 - column % 8) & 1U;
}

TEST(CrossCursor, IsAThinWhiteCrossWithAGapAtTheHotSpot) {
  const std::string cursor = Cross_Cursor(2, 9);
  int white = 0;
  for (int row = 0; row < 32; ++row) {
    for (int column = 0; column < 32; ++column) {
      const unsigned colour = Bit_At(cursor, 0, column, row);
      EXPECT_NE(colour, Bit_At(cursor, 1, column, row)) << "white or clear";
      white += static_cast<int>(colour);
    }
  }
  EXPECT_EQ(white, 4 * 7);
  EXPECT_EQ(Bit_At(cursor, 0, 15, 15), 0U);
  EXPECT_EQ(Bit_At(cursor, 0, 17, 15), 0U);
  EXPECT_EQ(Bit_At(cursor, 0, 18, 15), 1U);
  EXPECT_EQ(Bit_At(cursor, 0, 15, 6), 1U);
  EXPECT_EQ(Bit_At(cursor, 0, 15, 5), 0U);
}

TEST(SiteFolders, AreTheFixedFoldersOfTheCommands) {
  const TemporaryFolder root;
  Create_Site_Folders(root.Path());
  for (const char* folder : {"c/data/Lehtomaa/Pistedata", "c/data/ImaFiles", "c/data/G6/ImaFiles",
                             "c/data/Tris", "c/data/exotics", "c/data/vektorit", "c/temp", "c/apu",
                             "d/data/laser", "e/lk", "e/ROVIK", "f/temp/AVI", "sessions"}) {
    EXPECT_TRUE(fs::is_directory(root.Path() / folder)) << folder;
  }
}

TEST(SiteFolders, ARootThatIsAFileIsNamedInTheMessage) {
  const TemporaryFolder folder;
  const fs::path root = folder.Write("not_a_folder", "x").native;
  try {
    Create_Site_Folders(root);
    FAIL() << "accepted";
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Kind(), Failure::PathNotFound);
    EXPECT_NE(std::string(error.what()).find("not_a_folder"), std::string::npos);
  }
}

TEST(TruthTable, HasOneLinePerTreeAndThreeColumnsPerPhotograph) {
  const Scene scene = Scene_Of({Tree_At(1, Species::Spruce, 150, 150)});
  std::istringstream lines(Truth_Table(scene, Fly_Over(scene)));
  std::string names, line, more;
  std::getline(lines, names);
  std::getline(lines, line);
  EXPECT_EQ(names.substr(0, names.find(",col_")),
            "id,species,X,Y,ground_Z,top_Z,height,crown_radius");
  EXPECT_NE(names.find(",col_1204,row_1204,visible_1204"), std::string::npos);
  EXPECT_EQ(
      line.substr(0, 73),
      "1,spruce,2515150.0000,6860150.0000,150.0000,170.0000,20.0000,2.5000," + line.substr(68, 5));
  EXPECT_EQ(std::count(line.begin(), line.end(), ','), 7 + 18);
  EXPECT_FALSE(std::getline(lines, more));
}

std::vector<fs::path> Files_Below(const fs::path& root) {
  std::vector<fs::path> files;
  for (const auto& entry : fs::recursive_directory_iterator(root)) {
    if (entry.is_regular_file()) files.push_back(fs::relative(entry.path(), root));
  }
  std::sort(files.begin(), files.end());
  return files;
}

TEST(DemoSite, IsTheSameByteForByteOnOneThreadAndOnTwo) {
  const TemporaryFolder first, second;
  for (int threads = 1; threads <= 2; ++threads) {
    SiteSettings settings;
    settings.pixel_scale = 16;
    settings.pulse_share = 0.02;
    settings.threads = threads;
    const Scene scene = Build_Scene(settings);
    Write_Demo_Site(scene, Fly_Over(scene), (threads == 1 ? first : second).Path());
  }
  const std::vector<fs::path> files = Files_Below(first.Path());
  EXPECT_EQ(files, Files_Below(second.Path()));
  const std::size_t photographs = 2 * (6 + 4 + 3), rasters = 6, triangulations = 4, tiles = 25,
                    lidar = 3 * (9 + 1), camera_tables = 2, field = 9, fixed = 3,
                    whole_image_headers = 3, matched_plot = 1, orientation_lists = 4,
                    orientation_headers = 6, true_points = 3, products = 5, crown_list = 1,
                    crown_headers = 5, sessions = 21, beside = 3;
  EXPECT_EQ(files.size(), photographs + rasters + triangulations + tiles + lidar + camera_tables +
                              field + fixed + whole_image_headers + matched_plot +
                              orientation_lists + orientation_headers + true_points + products +
                              crown_list + crown_headers + sessions + beside);
  for (const fs::path& file : files) {
    EXPECT_TRUE(Bytes_Of(first.Path() / file) == Bytes_Of(second.Path() / file)) << file;
    EXPECT_FALSE(Bytes_Of(first.Path() / file).empty()) << file;
  }
}

/// Files chosen in a session's dialogs, except the one that a command writes there.
std::vector<std::string> Files_Asked_By(const std::string& session) {
  std::vector<std::string> files;
  std::istringstream lines(session);
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("file ") && !line.ends_with("plot.bin")) files.push_back(line.substr(5));
  }
  return files;
}

TEST(DemoSite, HoldsEveryFileThatItsSessionsChoose) {
  const TemporaryFolder root;
  SiteSettings settings;
  settings.pixel_scale = 16;
  settings.pulse_share = 0.001;
  const Scene scene = Build_Scene(settings);
  Write_Demo_Site(scene, Fly_Over(scene), root.Path());
  const DriveMap drives(root.Path());
  std::size_t asked = 0;
  for (const char* session :
       {"measure.txt", "match.txt", "overlays.txt", "open.txt", "surface_points.txt",
        "surface_pair.txt", "canopy_triplet.txt", "heath_points.txt", "heath_pair.txt",
        "heath_triplet.txt", "crowns.txt", "multi_size.txt"}) {
    for (const std::string& file : Files_Asked_By(Bytes_Of(root.Path() / "sessions" / session))) {
      EXPECT_TRUE(fs::exists(drives.Locate(file).native)) << file;
      ++asked;
    }
  }
  EXPECT_GT(asked, 30U);
}

TEST(DemoSite, StatesItsVersionAndWhereLidarLies) {
  const TemporaryFolder root;
  SiteSettings settings;
  settings.pixel_scale = 16;
  settings.pulse_share = 0.001;
  const Scene scene = Build_Scene(settings);
  Write_Demo_Site(scene, Fly_Over(scene), root.Path());
  EXPECT_EQ(Bytes_Of(root.Path() / "version.txt"), std::to_string(kSiteVersion) + "\n");
  EXPECT_EQ(Bytes_Of(root.Path() / "c/data/als2004_path.hdr"), "\"c:\\data\\laser2004\\\"\n");
  EXPECT_TRUE(fs::exists(root.Path() / "c/data/laser2007/051_101.bin"));
}

}  // namespace
}  // namespace sylvomex::demo
