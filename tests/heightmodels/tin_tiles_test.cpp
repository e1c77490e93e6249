// SPDX-License-Identifier: MIT
#include "heightmodels/tin_tiles.h"

#include <gtest/gtest.h>

#include <limits>

#include "heightmodels/tin_support.h"
#include "platform/run_time_error.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

std::string Bytes(const std::vector<std::int32_t>& numbers) {
  return {reinterpret_cast<const char*>(numbers.data()), numbers.size() * sizeof(std::int32_t)};
}

/// The sheets of the same square at 100 (number 1) and 150 (number 2), from the corner
/// (900, -100).
struct Sheets : testing::Test {
  TemporaryFolder folder;
  DriveMap drives = folder.Drives();
  TinModel model = Tin_Of({{0, 1000, 0, 100},
                           {0, 1010, 0, 100},
                           {0, 1000, 10, 100},
                           {0, 990, -5, 150},
                           {0, 1020, -5, 150},
                           {0, 990, 20, 150}},
                          {{0, 1, 2}, {3, 4, 5}});
  std::int32_t hint = 0;

  Sheets() {
    model.TileMinX = 900;
    model.TileMinY = -100;
    model.TileMaxX = 1100;
    model.TileMaxY = 100;
  }

  void Tile(const std::string& bytes) { folder.Write("c/data/Tris/001001.bin", bytes); }
  double At(double X, double Y) {
    TinTiles tiles(drives);
    return Tin_Elevation_Tiled(model, X, Y, hint, tiles);
  }
  std::string Complaint(double X, double Y) {
    try {
      At(X, Y);
    } catch (const RunTimeError& error) {
      return error.what();
    }
    return "none";
  }
};

TEST_F(Sheets, TheTileIsNamedByColumnAndRowFromTheCorner) {
  EXPECT_EQ(Tin_Tile_Name(model, 1002, 2), "c:\\data\\Tris\\001001.bin");
  EXPECT_EQ(Tin_Tile_Name(model, 900, 12345), "c:\\data\\Tris\\000124.bin");
}

TEST_F(Sheets, WithoutATileTheLowestNumberIsFound) {
  EXPECT_NEAR(At(1002, 2), 100, 1e-9);
  EXPECT_EQ(hint, 1);
}

TEST_F(Sheets, TheTilesOwnOrderComesFirst) {
  Tile(Bytes({2, 2, 1}));
  EXPECT_NEAR(At(1002, 2), 150, 1e-9);
  EXPECT_EQ(hint, 2);
}

TEST_F(Sheets, ATileWithoutAHitFallsBackToAllTriangles) {
  Tile(Bytes({0}));
  EXPECT_NEAR(At(1002, 2), 100, 1e-9);
  Tile(Bytes({1, 1}));
  EXPECT_NEAR(At(1012, 1), 150, 1e-9);  // in the second sheet alone
  EXPECT_EQ(hint, 2);
}

TEST_F(Sheets, TheHintedTriangleComesFirstAndReadsNoTile) {
  Tile("no tile");
  hint = 2;
  EXPECT_NEAR(At(1002, 2), 150, 1e-9);
  EXPECT_EQ(hint, 2);
}

TEST_F(Sheets, OutsideIsMinus99WithAHintOfZero) {
  for (const MapPoint& p : {MapPoint{899, 2}, {1101, 2}, {1050, 50}, {1002, -500}}) {
    hint = 1;
    EXPECT_EQ(At(p.X, p.Y), -99);
    EXPECT_EQ(hint, 0);
  }
  const double none = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(At(none, none), -99);
}

TEST_F(Sheets, AHeightOfZeroIsReturned) {
  model = Tin_Of({{0, 1000, 0, -5}, {0, 1010, 0, 5}, {0, 1010, 10, 5}}, {{0, 1, 2}});
  model.TileMaxX = 2000;
  EXPECT_EQ(At(1005, 2), 0);
  EXPECT_EQ(hint, 1);
}

TEST_F(Sheets, AHintOutsideTheTableIsARunTimeError) {
  for (const std::int32_t outside : {3, -1}) {
    hint = outside;
    EXPECT_THROW(At(1002, 2), RunTimeError) << outside;
  }
}

TEST_F(Sheets, ACountThatDoesNotMatchTheLengthIsRejected) {
  for (const std::string& bytes : {std::string("ab"), Bytes({2, 1}), Bytes({-1}),
                                   Bytes({std::numeric_limits<std::int32_t>::max()})}) {
    Tile(bytes);
    EXPECT_EQ(Complaint(1002, 2).find("Bad content: c:\\data\\Tris\\001001.bin: "), 0U)
        << Complaint(1002, 2);
  }
}

TEST_F(Sheets, AnEmptyTileListsNothingAndTrailingBytesAreIgnored) {
  Tile("");
  EXPECT_NEAR(At(1002, 2), 100, 1e-9);
  hint = 0;
  Tile(Bytes({1, 2, 1}) + "x");
  EXPECT_NEAR(At(1002, 2), 150, 1e-9);
}

TEST_F(Sheets, ANumberAfterTheTriangleThatContainsThePointIsNotReached) {
  Tile(Bytes({2, 2, 77}));
  EXPECT_NEAR(At(1002, 2), 150, 1e-9);
}

TEST_F(Sheets, ATriangleNumberOutsideTheModelIsRejected) {
  for (const std::int32_t number : {0, 3, -7}) {
    Tile(Bytes({2, 1, number}));
    EXPECT_EQ(Complaint(1012, 1),
              "Subscript out of range: c:\\data\\Tris\\001001.bin, item 2: triangle " +
                  std::to_string(number) + " is not in 1 to 2");
  }
}

TEST_F(Sheets, ATileIsReadOnce) {
  TinTiles tiles(drives);
  Tile(Bytes({1, 2}));
  EXPECT_NEAR(Tin_Elevation_Tiled(model, 1002, 2, hint, tiles), 150, 1e-9);
  Tile("no tile");
  hint = 0;
  EXPECT_NEAR(Tin_Elevation_Tiled(model, 1002, 2, hint, tiles), 150, 1e-9);
}

}  // namespace
}  // namespace sylvomex
