// SPDX-License-Identifier: MIT
#include "heightmodels/raster_model.h"

#include <algorithm>
#include <bit>
#include <new>
#include <string>

#include "platform/files.h"
#include "platform/list_reader.h"
#include "platform/number_text.h"
#include "platform/run_time_error.h"
#include "platform/work_meter.h"

static_assert(std::endian::native == std::endian::little, "cell files are little-endian");

namespace sylvomex {
namespace {

constexpr std::size_t kCellsOfAPiece = std::size_t{1} << 22;  // read at a time
constexpr double kMaxCells = 32767;  // per axis: positions are 16-bit numbers

std::int32_t Checked_Size(const char* what, double size) {
  if (!(size >= 0 && size <= kMaxCells && size == std::floor(size))) {
    throw RunTimeError(Failure::Overflow, std::string(what) + ": " + Plain_Text(size) +
                                              " is not a whole number from 0 to 32767");
  }
  return static_cast<std::int32_t>(size);
}

ZeroedArray<float> Zero_Cells(std::int32_t columns, std::int32_t rows) {
  try {
    return ZeroedArray<float>(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows));
  } catch (const std::bad_alloc&) {
    throw RunTimeError(Failure::OutOfMemory, "a height model of " + Plain_Text(columns) +
                                                 " columns and " + Plain_Text(rows) + " rows");
  }
}

/// How many cells Is_No_Data holds for, at most kCellsOfAPiece. Without branches and in 32 bits, so
/// that several are compared at once: no float lies between 1e30 and 1E30F.
std::int32_t Count_No_Data(std::span<const float> cells) {
  std::int32_t count = 0;
  for (const float cell : cells) {
    count += static_cast<int>(cell == -9999.F) | static_cast<int>(!(std::abs(cell) < 1e30F));
  }
  return count;
}

}  // namespace

void Read_Raster_Header(const FilePath& header, RasterModel& model) {
  ListReader reader(header);
  double numbers[6];
  for (double& number : numbers) number = reader.Read_Double();
  model.CellFile = reader.Read_Text_To_Comma();
  model.NCols = numbers[0];
  model.NRows = numbers[1];
  model.OriginX = numbers[2];
  model.OriginY = numbers[3];
  model.CellSize = numbers[4];
  model.Reserved = numbers[5];
}

void Dimension_Cells(RasterModel& model) {
  model.columns = 0;
  model.rows = 0;
  model.Cells = ZeroedArray<float>();
  const std::int32_t columns = Checked_Size("NCols", model.NCols);
  const std::int32_t rows = Checked_Size("NRows", model.NRows);
  model.Cells = Zero_Cells(columns, rows);
  model.columns = columns;
  model.rows = rows;
}

std::string No_Data_Text(std::string_view model, double X, double Y, double height) {
  return std::string(model) + " holds no data at X " + Format(X, "0.00") + ", Y " +
         Format(Y, "0.00") + ": " + Plain_Text(static_cast<float>(height));
}

std::int64_t Read_Cells(const FilePath& cell_file, RasterModel& model) {
  const PositionalFile file(cell_file);
  const std::span<float> cells = model.Cells.All();
  WorkMeter meter(static_cast<double>(cells.size()) / kCellsOfAPiece);
  std::int64_t without_data = 0;
  for (std::size_t first = 0; first < cells.size(); first += kCellsOfAPiece) {
    const std::span<float> piece =
        cells.subspan(first, std::min(kCellsOfAPiece, cells.size() - first));
    const std::size_t got =
        file.Read_At(static_cast<std::int64_t>(first * sizeof(float)),
                     {reinterpret_cast<std::uint8_t*>(piece.data()), piece.size_bytes()});
    // A cell truncated by the end of the file counts as missing.
    if (got % sizeof(float) != 0) piece[got / sizeof(float)] = 0;
    const std::span<const float> read = piece.first(got / sizeof(float));
    without_data += Count_No_Data(read);
    meter.Step();
    if (got < piece.size_bytes()) break;
  }
  return without_data;
}

}  // namespace sylvomex
