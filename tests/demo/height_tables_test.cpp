// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cmath>

#include "demo/scene/site_settings.h"
#include "demo/table/lidar_table.h"
#include "demo/table/residual_table.h"
#include "demo/write/packed_bytes.h"
#include "platform/run_time_error.h"
#include "support/temporary_folder.h"

namespace sylvomex::demo {
namespace {

TEST(SampleStatistics, AreMeanRmsAndQuantiles) {
  std::vector<double> values;
  for (int i = 100; i >= 1; --i) values.push_back(i);
  const SampleStatistics statistics = Statistics_Of(values);
  EXPECT_EQ(statistics.n, 100U);
  EXPECT_DOUBLE_EQ(statistics.mean, 50.5);
  EXPECT_DOUBLE_EQ(statistics.rms, std::sqrt(3383.5));  // 100 x 101 x 201 / 6 / 100
  EXPECT_EQ(statistics.median, 50);
  EXPECT_EQ(statistics.p95, 95);
  EXPECT_EQ(statistics.largest, 100);
}

TEST(SampleStatistics, TheLargestAbsoluteMayBeNegativeAndNothingGivesZeros) {
  EXPECT_EQ(Statistics_Of({-3, 1, 2}).largest_absolute, 3);
  EXPECT_EQ(Statistics_Of({-3, 1, 2}).largest, 2);
  EXPECT_EQ(Statistics_Of({}).n, 0U);
  EXPECT_EQ(Statistics_Of({}).mean, 0);
}

/// Level ground at 100 m, 20 x 20 cells of 1 m from (0, 0).
RasterModel Level_Ground() {
  RasterModel model;
  model.NCols = model.NRows = 20;
  model.OriginX = 0.5;
  model.OriginY = 1;
  model.CellSize = 1;
  Dimension_Cells(model);
  for (std::size_t i = 0; i < 400; ++i) model.Cells[i] = 100;
  return model;
}

TilePulse Pulse(std::initializer_list<Point3D> echoes) {
  TilePulse pulse;
  for (const Point3D& echo : echoes) pulse.echoes[static_cast<std::size_t>(pulse.count++)] = echo;
  return pulse;
}

TEST(LidarSummary, CountsPulsesEchoesAndHeights) {
  const LidarSummary summary =
      Summarize_Lidar({Pulse({{2, 2, 110}, {2, 2, 100.1}}), Pulse({{12, 2, 100.3}}),
                       Pulse({{2, 6, 120}}), Pulse({{12, 6, 106}, {12, 6, 104}, {12, 6, 99.9}})},
                      Level_Ground());
  EXPECT_EQ(summary.pulses, 4U);
  EXPECT_DOUBLE_EQ(summary.density, 4.0 / 40);
  EXPECT_DOUBLE_EQ(summary.echoes_per_pulse, 7.0 / 4);
  EXPECT_DOUBLE_EQ(summary.share[0], 0.5);
  EXPECT_DOUBLE_EQ(summary.share[1], 0.25);
  EXPECT_DOUBLE_EQ(summary.share[2], 0.25);
  EXPECT_DOUBLE_EQ(summary.canopy.cover, 0.75);
  EXPECT_NEAR(summary.canopy.heights.mean, 12, 1e-6);
  EXPECT_NEAR(summary.canopy.heights.largest, 20, 1e-6);
  EXPECT_EQ(summary.ground.n, 3U);
  EXPECT_NEAR(summary.ground.mean, 0.1, 1e-6);
}

TEST(LidarSummary, OfNoPulsesIsZeros) {
  const LidarSummary summary = Summarize_Lidar({}, Level_Ground());
  EXPECT_EQ(summary.pulses, 0U);
  EXPECT_EQ(summary.density, 0);
  EXPECT_EQ(summary.echoes_per_pulse, 0);
}

TEST(TrueCanopy, IsTheDifferenceOfTheModelsInsideTheMargin) {
  RasterModel ground, canopy;
  for (RasterModel* model : {&ground, &canopy}) {
    model->NCols = model->NRows = kForestSide;
    model->OriginX = kForestWest + 0.5;
    model->OriginY = kForestSouth + 1;
    model->CellSize = 1;
    Dimension_Cells(*model);
  }
  for (std::size_t i = 0; i < 90000; ++i) {
    const std::size_t column = i % 300;
    ground.Cells[i] = 100;
    // Higher than everything else, but outside the margin of 50 m.
    canopy.Cells[i] = column < 50 ? 190.0F : column < 100 ? 110.0F : 101.0F;
  }
  const CanopyHeights heights = True_Canopy(ground, canopy, 50);
  EXPECT_DOUBLE_EQ(heights.cover, 0.25);
  EXPECT_EQ(heights.heights.n, 50U * 200);
  EXPECT_DOUBLE_EQ(heights.heights.largest, 10);
}

class TileSite : public testing::Test {
 protected:
  TileSite() {
    Write("c/data/als2006_path.hdr", "\"c:\\data\\tiles\\\"\n");
    Write("c/data/als2004_path.hdr", "c:\\data\\tiles\\\n");
    folder_.Make_Folder("c/data/tiles");
  }

  void Write(const std::string& name, const std::string& bytes) const {
    folder_.Write(name, bytes);
  }

  std::vector<TilePulse> Read(int year) const {
    return Read_Lidar_Campaign(folder_.Drives(), year);
  }

 private:
  TemporaryFolder folder_;
};

/// A record of 207 bytes with echoes in slots 4 and 3.
std::string Two_Echo_Record() {
  std::string record(9, '\0');
  record[8] = 2;
  for (const double value : {0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 5.0, 6.0, 7.0, 8.0, 9.0, 10.0}) {
    Append_Bytes(record, value);
  }
  record.resize(207);
  return record;
}

std::string Tile(std::int32_t count, const std::string& records) {
  std::string tile;
  Append_Bytes(tile, count);
  return tile + records;
}

TEST_F(TileSite, PulsesAreReadInTheOrderOfArrival) {
  Write("c/data/tiles/050_100.bin", Tile(1, Two_Echo_Record()));
  Write("c/data/tiles/051_100.bin", Tile(0, ""));
  const auto pulses = Read(2006);
  ASSERT_EQ(pulses.size(), 1U);
  EXPECT_EQ(pulses[0].count, 2);
  EXPECT_EQ(pulses[0].echoes[0].X, 8);
  EXPECT_EQ(pulses[0].echoes[1].Z, 7);
}

TEST_F(TileSite, FirstAndLastOf2004AreRaisedAndOneWhereTheyAreTheSame) {
  std::string record(44, '\0');
  for (int echo = 0; echo < 2; ++echo) {
    Append_Bytes(record, 3.0);
    Append_Bytes(record, 4.0);
    Append_Bytes(record, 149.82F);
    record.append(8, '\0');
  }
  Write("c/data/tiles/010_050.bin", Tile(1, record));
  const auto pulses = Read(2004);
  ASSERT_EQ(pulses.size(), 1U);
  EXPECT_EQ(pulses[0].count, 1);
  EXPECT_EQ(pulses[0].echoes[0].Y, 4);
  EXPECT_NEAR(pulses[0].echoes[0].Z, 150, 1e-4);
}

TEST_F(TileSite, ATileWhoseSizeDoesNotMatchItsCountIsNamed) {
  for (const std::string& tile : {Tile(2, Two_Echo_Record()), Tile(-1, ""), std::string("ab")}) {
    Write("c/data/tiles/050_100.bin", tile);
    try {
      Read(2006);
      FAIL() << "accepted";
    } catch (const RunTimeError& error) {
      EXPECT_NE(std::string(error.what()).find("050_100.bin"), std::string::npos);
    }
  }
}

TEST_F(TileSite, AFolderWithoutTilesAndAMissingHeaderAreNamed) {
  for (const int year : {2006, 2007}) {
    try {
      Read(year);
      FAIL() << "accepted";
    } catch (const RunTimeError& error) {
      EXPECT_EQ(error.Kind(), Failure::FileNotFound);
    }
  }
}

TEST(LidarTableText, HasAColumnPerCampaignAndTheTruth) {
  LidarSummary lidar;
  lidar.density = 4.021;
  lidar.share[0] = 0.825;
  lidar.canopy.heights.mean = 14.46;
  CanopyHeights truth;
  truth.heights.mean = 15.49;
  const std::string text = Table_Text({{2006, lidar}}, truth);
  EXPECT_NE(text.find("pulses a square metre              4.02\n"), std::string::npos);
  EXPECT_NE(text.find("  pulses with 1 echo, %            82.5\n"), std::string::npos);
  EXPECT_NE(text.find("canopy height, mean, m            14.46    15.49\n"), std::string::npos);
}

TEST(Residuals, CompareTinRasterAndTruth) {
  const std::string path = testing::TempDir() + "sylvomex_residuals.txt";
  std::ofstream(path) << "1.00 2.00 150.00 150.10 150.30\n3.00 4.00 160.00 160.10 159.90\n";
  const ResidualTable table = Compare_Models(Read_Compared_Points({path, path}));
  EXPECT_EQ(table.tin_less_raster.n, 2U);
  EXPECT_NEAR(table.tin_less_raster.mean, 0, 1e-9);
  EXPECT_NEAR(table.tin_less_raster.rms, 0.2, 1e-9);
  EXPECT_NEAR(table.tin_less_truth.mean, 0.1, 1e-9);
  EXPECT_NEAR(table.tin_less_truth.largest_absolute, 0.3, 1e-9);
  EXPECT_NEAR(table.raster_less_truth.rms, 0.1, 1e-9);
  EXPECT_NE(Table_Text(table).find("TIN less truth               2    0.100    0.224    0.300"),
            std::string::npos);
}

}  // namespace
}  // namespace sylvomex::demo
