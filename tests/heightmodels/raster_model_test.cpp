// SPDX-License-Identifier: MIT
#include "heightmodels/raster_model.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>
#include <functional>
#include <limits>
#include <numeric>
#include <vector>

#include "heightmodels/float_file.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// A model whose cell (column, row) holds 100 row + column + 1.
RasterModel Numbered_Model(int columns, int rows, double origin_x, double origin_y,
                           double cell_size) {
  RasterModel model;
  model.NCols = columns;
  model.NRows = rows;
  model.OriginX = origin_x;
  model.OriginY = origin_y;
  model.CellSize = cell_size;
  Dimension_Cells(model);
  for (std::size_t i = 0; i < model.Cells.size(); ++i) {
    const int cell = static_cast<int>(i);
    model.Cells[i] = static_cast<float>(100 * (cell / columns) + cell % columns + 1);
  }
  return model;
}

Failure Kind_Of_Failure(const std::function<void()>& action) {
  try {
    action();
  } catch (const RunTimeError& error) {
    return error.Kind();
  }
  ADD_FAILURE() << "nothing failed";
  return Failure::BadContent;
}

TEST(RasterHeader, HoldsSevenValuesInOrder) {
  const TemporaryFolder folder;
  RasterModel model;
  Read_Raster_Header(
      folder.Write("a.hdr", "400\n300\n2515000.5\n6860000.25\n2.5\n-99\nc:\\data\\dem.raw\n"),
      model);
  EXPECT_EQ(model.NCols, 400);
  EXPECT_EQ(model.NRows, 300);
  EXPECT_EQ(model.OriginX, 2515000.5);
  EXPECT_EQ(model.OriginY, 6860000.25);
  EXPECT_EQ(model.CellSize, 2.5);
  EXPECT_EQ(model.Reserved, -99);
  EXPECT_EQ(model.CellFile.Trimmed(), "c:\\data\\dem.raw");
  EXPECT_EQ(model.CellFile.Padded().size(), 80U);
}

TEST(RasterHeader, ReservedMayBeAnyNumber) {
  const TemporaryFolder folder;
  RasterModel model;
  Read_Raster_Header(folder.Write("a.hdr", "1\n1\n0\n0\n1\n1.5E+20\nx.raw\n"), model);
  EXPECT_EQ(model.Reserved, 1.5e20);
}

TEST(RasterHeader, CellFileMayHoldBlanks) {
  const TemporaryFolder folder;
  RasterModel model;
  Read_Raster_Header(
      folder.Write("a.hdr", "1\r\n1\r\n0\r\n0\r\n1\r\n0\r\nc:\\my data\\a b.raw\r\n"), model);
  EXPECT_EQ(model.CellFile.Trimmed(), "c:\\my data\\a b.raw");
}

TEST(RasterHeader, TruncatedLeavesTheModelUnchanged) {
  const TemporaryFolder folder;
  RasterModel model = Numbered_Model(2, 2, 10, 20, 5);
  const FilePath header = folder.Write("a.hdr", "7\n8\n9\n");
  EXPECT_EQ(Kind_Of_Failure([&] { Read_Raster_Header(header, model); }), Failure::InputPastEnd);
  EXPECT_EQ(model.NCols, 2);
  EXPECT_EQ(Raster_Height(model, 10, 20), 1);
}

TEST(RasterHeader, TextInPlaceOfANumberIsATypeMismatch) {
  const TemporaryFolder folder;
  RasterModel model;
  const FilePath header = folder.Write("a.hdr", "7\neight\n0\n0\n1\n0\na.raw\n");
  EXPECT_EQ(Kind_Of_Failure([&] { Read_Raster_Header(header, model); }), Failure::TypeMismatch);
}

TEST(RasterHeader, MissingFileIsNamed) {
  const TemporaryFolder folder;
  RasterModel model;
  EXPECT_EQ(Kind_Of_Failure([&] { Read_Raster_Header(folder.File("no.hdr"), model); }),
            Failure::FileNotFound);
}

TEST(DimensionCells, GivesZerosOfTheHeadersSize) {
  RasterModel model;
  model.NCols = 3;
  model.NRows = 4;
  Dimension_Cells(model);
  EXPECT_EQ(model.Cells.size(), 12U);
  EXPECT_EQ(model.columns, 3);
  EXPECT_EQ(model.rows, 4);
  for (const float cell : model.Cells.All()) EXPECT_EQ(cell, 0);
}

TEST(DimensionCells, ClearsTheCellsOfTheModelBefore) {
  RasterModel model = Numbered_Model(2, 2, 0, 0, 1);
  Dimension_Cells(model);
  EXPECT_EQ(Raster_Height(model, 0, 0), 0);
}

TEST(DimensionCells, InvalidSizeIsAnOverflowAndLeavesNoCells) {
  for (const double size : {-1.0, 2.5, 32768.0, 1e300, kNoNumber, kInfinity, -kInfinity}) {
    RasterModel wide = Numbered_Model(2, 2, 0, 0, 1);
    wide.NCols = size;
    EXPECT_EQ(Kind_Of_Failure([&] { Dimension_Cells(wide); }), Failure::Overflow) << size;
    EXPECT_EQ(Raster_Height(wide, 0, 0), 0);
    RasterModel high = Numbered_Model(2, 2, 0, 0, 1);
    high.NRows = size;
    EXPECT_EQ(Kind_Of_Failure([&] { Dimension_Cells(high); }), Failure::Overflow) << size;
    EXPECT_TRUE(high.Cells.empty());
  }
}

TEST(DimensionCells, RejectedSizeIsNamedWithItsValue) {
  RasterModel model;
  model.NCols = 2;
  model.NRows = 40000;
  try {
    Dimension_Cells(model);
    FAIL() << "40000 rows were taken";
  } catch (const RunTimeError& error) {
    EXPECT_STREQ(error.what(), "Overflow: NRows: 40000 is not a whole number from 0 to 32767");
  }
}

TEST(DimensionCells, NoColumnsOrNoRowsMakeAnEmptyModel) {
  RasterModel model = Numbered_Model(0, 5, 0, 0, 1);
  EXPECT_TRUE(model.Cells.empty());
  EXPECT_EQ(Raster_Height(model, 0, 0), 0);
}

long Resident_Megabytes() {
  long size = 0, resident = 0;
  std::ifstream("/proc/self/statm") >> size >> resident;
  return resident * sysconf(_SC_PAGESIZE) / (1024 * 1024);
}

TEST(DimensionCells, LargeModelCostsNoMemoryBeforeItIsRead) {
  const TemporaryFolder folder;
  const std::vector<float> row(16000, 5.0F);
  const FilePath cells = Write_Floats(folder, "a.raw", row);
  RasterModel model;
  model.NCols = 16000;
  model.NRows = 16000;
  model.CellSize = 1;
  const long before = Resident_Megabytes();
  Dimension_Cells(model);
  Read_Cells(cells, model);
  EXPECT_EQ(Raster_Height(model, 15999, 0), 5);
  EXPECT_EQ(Raster_Height(model, 15999, 15999), 0);
  EXPECT_LT(Resident_Megabytes() - before, 500);
}

TEST(ReadCells, FillsRowByRowFromTheSouth) {
  const TemporaryFolder folder;
  std::vector<float> values(6);
  std::iota(values.begin(), values.end(), 1.5F);
  RasterModel model = Numbered_Model(3, 2, 0, 0, 1);
  Read_Cells(Write_Floats(folder, "a.raw", values), model);
  EXPECT_EQ(Raster_Height(model, 0, 0), 1.5);
  EXPECT_EQ(Raster_Height(model, 2, 0), 3.5);
  EXPECT_EQ(Raster_Height(model, 0, 1), 4.5);
  EXPECT_EQ(Raster_Height(model, 2, 1), 6.5);
}

TEST(ReadCells, BytesAreLittleEndianFloats) {
  const TemporaryFolder folder;
  RasterModel model = Numbered_Model(1, 1, 0, 0, 1);
  // 12.5 is 1.5625 * 2^3: sign 0, exponent 130, fraction 0.5625.
  Read_Cells(folder.Write("a.raw", std::string("\x00\x00\x48\x41", 4)), model);
  EXPECT_EQ(Raster_Height(model, 0, 0), 12.5);
}

TEST(ReadCells, FileThatIsTooShortLeavesTheRestZero) {
  const TemporaryFolder folder;
  const std::vector<float> values = {1, 2, 3, 4};
  RasterModel model;
  model.NCols = 3;
  model.NRows = 2;
  model.CellSize = 1;
  Dimension_Cells(model);
  Read_Cells(Write_Floats(folder, "a.raw", values), model);
  EXPECT_EQ(Raster_Height(model, 0, 1), 4);
  EXPECT_EQ(Raster_Height(model, 1, 1), 0);
  EXPECT_EQ(Raster_Height(model, 2, 1), 0);
}

TEST(ReadCells, CellTruncatedByTheEndOfTheFileIsZero) {
  const TemporaryFolder folder;
  RasterModel model;
  model.NCols = 2;
  model.NRows = 1;
  model.CellSize = 1;
  Dimension_Cells(model);
  Read_Cells(folder.Write("a.raw", std::string("\x00\x00\x48\x41\x01\x02", 6)), model);
  EXPECT_EQ(Raster_Height(model, 0, 0), 12.5);
  EXPECT_EQ(Raster_Height(model, 1, 0), 0);
}

TEST(ReadCells, BytesBeyondTheModelAreIgnored) {
  const TemporaryFolder folder;
  const std::vector<float> values = {1, 2, 3, 4};
  RasterModel model = Numbered_Model(1, 1, 0, 0, 1);
  Read_Cells(Write_Floats(folder, "a.raw", values), model);
  EXPECT_EQ(model.Cells.size(), 1U);
  EXPECT_EQ(Raster_Height(model, 0, 0), 1);
}

TEST(ReadCells, EmptyModelAndEmptyFileAreNotErrors) {
  const TemporaryFolder folder;
  RasterModel none;
  Read_Cells(folder.Write("a.raw", "1234"), none);
  EXPECT_TRUE(none.Cells.empty());
  RasterModel one = Numbered_Model(1, 1, 0, 0, 1);
  Read_Cells(folder.Write("b.raw", ""), one);
  EXPECT_EQ(Raster_Height(one, 0, 0), 1);
}

TEST(ReadCells, CellsWithoutDataAreCounted) {
  RasterModel model;
  model.NCols = 11;
  model.NRows = 1;
  Dimension_Cells(model);
  const auto infinite = static_cast<float>(kInfinity);
  // 1e30 as a double lies between two floats; 1E30F is the one above.
  const float below = std::nextafter(1e30F, 0.0F);
  std::vector<float> values{-9999, static_cast<float>(kNoNumber), infinite, -infinite, 1e30F,
                            -1e30F};
  values.insert(values.end(), {below, -below, -9998.5F, 0, 170});
  const TemporaryFolder folder;
  EXPECT_EQ(Read_Cells(Write_Floats(folder, "a.raw", values), model), 6);
}

TEST(ReadCells, MissingFileKeepsTheCellsReadSoFar) {
  const TemporaryFolder folder;
  RasterModel model = Numbered_Model(2, 2, 0, 0, 1);
  EXPECT_EQ(Kind_Of_Failure([&] { Read_Cells(folder.File("no.raw"), model); }),
            Failure::FileNotFound);
  EXPECT_EQ(Raster_Height(model, 1, 1), 102);
}

TEST(RasterHeight, WithoutAModelIsZero) { EXPECT_EQ(Raster_Height(RasterModel{}, 0, 0), 0); }

TEST(RasterHeight, XBetweenTwoColumnsGoesToTheEvenColumn) {
  const RasterModel model = Numbered_Model(5, 1, 0, 0, 1);
  EXPECT_EQ(Raster_Height(model, 0.5, 0), 1);
  EXPECT_EQ(Raster_Height(model, 1.5, 0), 3);
  EXPECT_EQ(Raster_Height(model, 2.5, 0), 3);
  EXPECT_EQ(Raster_Height(model, 3.5, 0), 5);
  EXPECT_EQ(Raster_Height(model, -0.5, 0), 1);
}

TEST(RasterHeight, YRoundsUpToTheRowToTheNorth) {
  const RasterModel model = Numbered_Model(1, 3, 0, 100, 10);
  EXPECT_EQ(Raster_Height(model, 0, 100), 1);
  EXPECT_EQ(Raster_Height(model, 0, 101), 101);
  EXPECT_EQ(Raster_Height(model, 0, 110), 101);
  EXPECT_EQ(Raster_Height(model, 0, 110.5), 201);
  EXPECT_EQ(Raster_Height(model, 0, 91), 1);
  EXPECT_EQ(Raster_Height(model, 0, 85), 0);
}

TEST(RasterHeight, LastColumnAndRowBelongToTheModel) {
  const RasterModel model = Numbered_Model(4, 3, 0, 0, 1);
  EXPECT_EQ(Raster_Height(model, 3.4, 2), 204);
  EXPECT_EQ(Raster_Height(model, 3.6, 2), 0);
  EXPECT_EQ(Raster_Height(model, 3.4, 2.1), 0);
  EXPECT_EQ(Raster_Height(model, -0.6, 0), 0);
}

TEST(RasterHeight, AgreesWithTheIntervalsOfColumnsAndRows) {
  const int columns = 7, rows = 5;
  const RasterModel model = Numbered_Model(columns, rows, 1000, 2000, 4);
  for (double X = 990; X < 1040; X += 0.7) {
    for (double Y = 1990; Y < 2030; Y += 0.7) {
      double expected = 0;
      for (int col = 0; col < columns; ++col) {
        for (int row = 0; row < rows; ++row) {
          const bool in_column = std::abs(X - (1000 + 4 * col)) < 2;
          const bool in_row = Y > 2000 + 4 * (row - 1) && Y <= 2000 + 4 * row;
          if (in_column && in_row) expected = 100 * row + col + 1;
        }
      }
      EXPECT_EQ(Raster_Height(model, X, Y), expected) << X << ", " << Y;
    }
  }
}

TEST(RasterHeight, PositionsThatAreNaNOrFarAwayAreOutside) {
  const RasterModel model = Numbered_Model(3, 3, 0, 0, 1);
  for (const double far : {kNoNumber, kInfinity, -kInfinity, 1e300, -1e300, 40000.0, 4.3e9}) {
    EXPECT_EQ(Raster_Height(model, far, 1), 0) << far;
    EXPECT_EQ(Raster_Height(model, 1, far), 0) << far;
    EXPECT_EQ(Raster_Height(model, far, far), 0) << far;
  }
}

TEST(RasterHeight, CellSizeOfZeroOrNaNIsOutside) {
  for (const double size : {0.0, -0.0, kNoNumber}) {
    const RasterModel model = Numbered_Model(3, 3, 0, 0, size);
    EXPECT_EQ(Raster_Height(model, 0, 0), 0);
    EXPECT_EQ(Raster_Height(model, 1, 1), 0);
    EXPECT_EQ(Raster_Height(model, -1, -1), 0);
  }
}

TEST(RasterHeight, NegativeCellSizeCountsWestAndSouth) {
  const RasterModel model = Numbered_Model(3, 3, 0, 0, -1);
  EXPECT_EQ(Raster_Height(model, -2, -1), 103);
  EXPECT_EQ(Raster_Height(model, 2, 1), 0);
}

}  // namespace
}  // namespace sylvomex
