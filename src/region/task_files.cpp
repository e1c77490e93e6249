// SPDX-License-Identifier: MIT
#include "region/task_files.h"

#include "heightmodels/raster_window.h"
#include "imageblock/raw_rows.h"
#include "interchange/output_file.h"

namespace sylvomex {
PartialModel::PartialModel(const DriveMap& drives, const std::string& header) {
  Read_Raster_Header(drives.Locate(header), model_);
  Dimension_Cells(model_);
  cells_ = drives.Locate(model_.CellFile.Trimmed());
}

void PartialModel::Read(const MapExtent& extent) {
  const RasterWindow window =
      Window_Of(model_, extent.west, extent.south, extent.east, extent.north);
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
