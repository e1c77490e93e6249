// SPDX-License-Identifier: MIT
#include "demo/chain/region_map.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

#include "demo/scene/site_settings.h"
#include "platform/run_time_error.h"
#include "support/temporary_folder.h"

namespace sylvomex::demo {
namespace {

constexpr int kSide = 600;  // cells of half a metre
constexpr Colour kGreen{60, 230, 60}, kYellow{255, 230, 0}, kRed{255, 50, 50};

TrueTree Tree_At(double east, double north, double height = 20, int photos = 6) {
  return {{kForestWest + east, kForestSouth + north, 170}, height, photos};
}

Point3D Top_At(double east, double north) {
  return {kForestWest + east, kForestSouth + north, 170};
}

Picture Map_Of(const std::vector<Point3D>& tops, const std::vector<TrueTree>& truth) {
  static const std::vector<std::uint8_t> black(std::size_t{3} * kSide * kSide, 0);
  return Draw_Region_Map({kSide, kSide, black}, tops, truth, 60);
}

/// Whether a line of that colour begins within 3 m (6 pixels) of a place on the map, in metres from
/// the south-west corner of the stand.
bool Is_Ringed(const Picture& map, double east, double north, Colour colour) {
  return std::any_of(map.marks.begin(), map.marks.end(), [&](const Mark& mark) {
    return mark.kind == Mark::Kind::Line && mark.colour == colour &&
           std::abs(mark.x1 - 2 * east) < 6 && std::abs(mark.y1 - 2 * (300 - north)) < 6;
  });
}

TEST(RegionMap, RingsTopsByWhetherTheyHaveATree) {
  const Picture map = Map_Of({Top_At(30, 200), Top_At(100, 40)}, {Tree_At(31, 200)});
  EXPECT_TRUE(Is_Ringed(map, 30, 200, kGreen));
  EXPECT_TRUE(Is_Ringed(map, 100, 40, kYellow));
  EXPECT_FALSE(Is_Ringed(map, 100, 40, kGreen));
}

TEST(RegionMap, RingsOnlyDominantVisibleTreesAsMissed) {
  const Picture map =
      Map_Of({}, {Tree_At(30, 200), Tree_At(90, 90, 16.9), Tree_At(200, 90, 20, 3)});
  EXPECT_TRUE(Is_Ringed(map, 30, 200, kRed));
  EXPECT_FALSE(Is_Ringed(map, 90, 90, kRed));
  EXPECT_FALSE(Is_Ringed(map, 200, 90, kRed));
}

TEST(RegionMap, DrawsFourInnerBoundsOfFiveCellsEachWay) {
  const Picture map = Map_Of({}, {});
  const auto bounds = std::count_if(map.marks.begin(), map.marks.end(), [](const Mark& mark) {
    return mark.kind == Mark::Kind::Line && mark.width == 1;
  });
  EXPECT_EQ(bounds, 8);
}

TEST(RegionMap, KeepsTheColoursOfTheImage) {
  std::vector<std::uint8_t> cells(std::size_t{3} * kSide * kSide, 0);
  cells[0] = 10;  // red, green and blue of the north-west cell
  cells[1] = 20;
  cells[2] = 30;
  const Picture map = Draw_Region_Map({kSide, kSide, cells}, {}, {}, 60);
  EXPECT_EQ(map.bitmap->bgr[0], 30);
  EXPECT_EQ(map.bitmap->bgr[1], 20);
  EXPECT_EQ(map.bitmap->bgr[2], 10);
}

TEST(RegionMap, RejectsAnImageOfAnotherSize) {
  const std::vector<std::uint8_t> cells(12, 0);
  EXPECT_THROW(Draw_Region_Map({3, 3, cells}, {}, {}, 60), RunTimeError);
}

TEST(RegionTops, AreFoundByTheNamesOfTheirColumns) {
  const TemporaryFolder folder;
  const std::string file = folder.Path() / "tops.csv";
  std::ofstream(file) << "id,Y,score,X,Z\n7,200,0.5,100,30\n";
  const std::vector<Point3D> tops = Read_Tops({file, file});
  ASSERT_EQ(tops.size(), 1U);
  EXPECT_EQ(tops[0].X, 100);
  EXPECT_EQ(tops[0].Y, 200);
  EXPECT_EQ(tops[0].Z, 30);
}

}  // namespace
}  // namespace sylvomex::demo
