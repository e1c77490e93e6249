// SPDX-License-Identifier: MIT
#include "region/task_files.h"

#include "heightmodels/raster_window.h"
#include "imageblock/raw_rows.h"
#include "interchange/output_file.h"
#include "platform/number_text.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

/// Planning has seen these cells; a file that ends before them is not the one that it saw.
void Require_Cells(const FilePath& cells, const RasterModel& model, const RasterWindow& window) {
  if (window.Is_Empty()) return;
  const double needed =
      (static_cast<double>(window.last_row) * model.columns + window.last_col + 1) * sizeof(float);
  std::error_code error;
  const auto bytes = std::filesystem::file_size(cells.native, error);
  if (error || needed <= static_cast<double>(bytes)) return;
  throw RunTimeError(Failure::InputPastEnd,
                     cells.name + ": cells up to byte " + Plain_Text(needed) +
                         " are needed, the file has " + std::to_string(bytes),
                     cells.native);
}

}  // namespace

PartialModel::PartialModel(const DriveMap& drives, const std::string& header) {
  Read_Raster_Header(drives.Locate(header), model_);
  Dimension_Cells(model_);
  cells_ = drives.Locate(model_.CellFile.Trimmed());
}

void PartialModel::Read(const MapExtent& extent) {
  const RasterWindow window =
      Window_Of(model_, extent.west, extent.south, extent.east, extent.north);
  Require_Cells(cells_, model_, window);
  Read_Cells_Within(cells_, window, model_);
}

bool PartialModel::Holds(double X, double Y) const {
  return Raster_Column(model_, X) < static_cast<std::uint64_t>(model_.columns) &&
         Raster_Row(model_, Y) < static_cast<std::uint64_t>(model_.rows);
}

MappedRaw::MappedRaw(const DriveMap& drives, const ImageRecord& record)
    : name(drives.Locate(record.RawFileName.Trimmed())), file(name) {
  Check_Raw_Length({file.Bytes(), record.SubWidth, record.SubHeight, &name},
                   record.ColorFlag == 1 ? RawLayout::Colour : RawLayout::Grey);
}

void Write_Task_File(const std::filesystem::path& file, std::string_view text) {
  OutputFile output(file, file.string());
  output.Write(text);
  output.Close();
}

}  // namespace sylvomex
