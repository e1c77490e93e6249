// SPDX-License-Identifier: MIT
// Raster height models: a text header and a file of little-endian 32-bit floats, row 0 the
// southernmost, columns from the west.
#pragma once

#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/drive_map.h"
#include "platform/fixed_text.h"
#include "platform/zeroed_array.h"

namespace sylvomex {

struct RasterModel {
  double NCols = 0;
  double NRows = 0;
  double OriginX = 0;   // X of the centre of column 0, metres
  double OriginY = 0;   // Y of row 0, metres
  double CellSize = 0;  // metres, both axes
  double Reserved = 0;
  FixedText<80> CellFile;
  ZeroedArray<float> Cells;  // NRows x NCols, row by row from the south, metres

  // Whole-number sizes of Cells for the lookup; 0 while nothing is loaded.
  std::int32_t columns = 0;
  std::int32_t rows = 0;
};

template <class Record, class Visitor>
void Visit_Raster_Model(Record& record, Visitor&& visit) {
  visit("NCols", record.NCols);
  visit("NRows", record.NRows);
  visit("OriginX", record.OriginX);
  visit("OriginY", record.OriginY);
  visit("CellSize", record.CellSize);
  visit("Reserved", record.Reserved);
  visit("CellFile", record.CellFile);
}

/// Reads the seven header values into the model; Cells stay unchanged. A header that cannot be read
/// in full leaves the whole model unchanged.
void Read_Raster_Header(const FilePath& header, RasterModel& model);

/// Replaces Cells by new ones of the header's size, all 0. RunTimeError(Overflow)
/// when a size is not an integer in 0 .. 32767, RunTimeError(OutOfMemory) when memory is
/// insufficient; the model then has no cells and every lookup gives 0.
void Dimension_Cells(RasterModel& model);

/// Whether a height stands for a cell without data: -9999, -3.4e38 (or beyond), NaN.
inline bool Is_No_Data(double height) { return height == -9999 || !(std::abs(height) < 1e30); }

/// States which model has no data where, and the value found: "the ground model holds no data at X
/// 2515057.50, Y 6860179.20: -9999".
std::string No_Data_Text(std::string_view model, double X, double Y, double height);

/// Reads the cell file into Cells. A file that is too short leaves the rest zero. Returns how many
/// of the cells read contain no data; their values are kept.
std::int64_t Read_Cells(const FilePath& cell_file, RasterModel& model);

/// A column or row that no model has.
inline constexpr std::uint64_t kNoRasterLine = ~std::uint64_t{0};

/// Column of the cells nearest to X (ties to even) and row -floor((OriginY - Y) / CellSize) of
/// those at Y; the two axes are required to differ. Outside the model the result exceeds the last
/// column or row number. Safe for any X, Y (NaN and infinity included) and any CellSize (0
/// included).
inline std::uint64_t Raster_Column(const RasterModel& model, double X) {
  const double eastward = (X - model.OriginX) / model.CellSize;
  if (std::isnan(eastward)) return kNoRasterLine;
  // Values beyond 64 bits convert to one of their limits, which lies outside any model; as unsigned
  // numbers all positions west and south of the model do so, too.
  return static_cast<std::uint64_t>(std::llrint(eastward));
}

inline std::uint64_t Raster_Row(const RasterModel& model, double Y) {
  const double southward = (model.OriginY - Y) / model.CellSize;
  if (std::isnan(southward)) return kNoRasterLine;
  return 0 - static_cast<std::uint64_t>(std::llrint(std::floor(southward)));
}

/// Height of a cell, 0 outside the model or without one.
inline double Raster_Cell(const RasterModel& model, std::uint64_t col, std::uint64_t row) {
  const auto columns = static_cast<std::uint64_t>(model.columns);
  if (col >= columns || row >= static_cast<std::uint64_t>(model.rows)) return 0;
  return model.Cells[row * columns + col];
}

/// Height at a position, 0 outside the model or without one. Constant time, no allocation, no
/// file access.
inline double Raster_Height(const RasterModel& model, double X, double Y) {
  return Raster_Cell(model, Raster_Column(model, X), Raster_Row(model, Y));
}

}  // namespace sylvomex
