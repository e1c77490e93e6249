// SPDX-License-Identifier: MIT
// Raster height models: a text header and a file of little-endian 32-bit floats, row 0 the
// southernmost, columns from the west.
#pragma once

#include <cmath>
#include <cstdint>
#include <vector>

#include "platform/drive_map.h"
#include "platform/fixed_text.h"

namespace sylvomex {

struct RasterModel {
  double NCols = 0;
  double NRows = 0;
  double OriginX = 0;   // X of the centre of column 0, metres
  double OriginY = 0;   // Y of row 0, metres
  double CellSize = 0;  // metres, both axes
  double Reserved = 0;
  FixedText<80> CellFile;
  std::vector<float> Cells;  // NRows x NCols, row by row from the south, metres

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

/// Reads the seven header values into the model; Cells are left alone.
void Read_Raster_Header(const FilePath& header, RasterModel& model);

/// Re-dimensions Cells to the header's size and clears them. RunTimeError(Overflow) when a
/// size is not in 0 .. 32767 or not finite, RunTimeError(OutOfMemory) when there is no room.
void Dimension_Cells(RasterModel& model);

/// Reads the cell file row by row into Cells. A file that is too short leaves the rest zero.
void Read_Cells(const FilePath& cell_file, RasterModel& model);

/// Nearest cell: the column rounds to the nearest (ties to even), the row is
/// -floor((OriginY - Y) / CellSize). 0 outside the model or without one. Constant time, no
/// allocation, no file access, safe for any X, Y (NaN and infinity included).
inline double Raster_Height(const RasterModel& model, double X, double Y) {
  if (model.columns == 0 || model.rows == 0) return 0;
  const double col = std::nearbyint((X - model.OriginX) / model.CellSize);
  const double row = -std::floor((model.OriginY - Y) / model.CellSize);
  if (!(col >= 0 && row >= 0 && col <= model.columns - 1 && row <= model.rows - 1)) return 0;
  return model.Cells[static_cast<std::size_t>(row) * static_cast<std::size_t>(model.columns) +
                     static_cast<std::size_t>(col)];
}

}  // namespace sylvomex
