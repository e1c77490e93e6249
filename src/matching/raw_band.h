// SPDX-License-Identifier: MIT
// A band of rows of a raw file with three bytes a pixel, of which the middle one is used.
// Columns and rows are those of the raw file, rows from the top; the band's own rows are
// counted from 0 at its first row.
#pragma once

#include <cstdint>
#include <vector>

#include "imageblock/image_record.h"
#include "matching/image_template.h"
#include "platform/drive_map.h"

namespace sylvomex {

struct RawBand {
  std::int32_t first_row = 0;  // row of the raw file
  std::int32_t columns = 0;
  std::int32_t rows = 0;
  std::vector<std::uint8_t> bytes;  // 0 past the end of the file
};

/// True when all rows of a band lie in the raster of the image.
bool Is_Band_In_Raster(const ImageRecord& image, double first_row, std::int32_t rows);

/// RunTimeError(FileFailure) when the band starts before the file; RunTimeErrors of the file layer
/// and of the integer conversions.
RawBand Read_Band(const FilePath& raw_file, double sub_width, std::int32_t first_row,
                  std::int32_t rows);

/// The middle bytes of a window of the template's size with its first pixel at col, band_row.
/// RunTimeError(SubscriptOutOfRange) when the window leaves the band.
void Cut_Window(const RawBand& band, std::int64_t col, std::int64_t band_row,
                const ImageTemplate& pattern, std::vector<std::uint8_t>& window);

/// Highest correlation of the template with the windows shifted by up to reach pixels from col,
/// band_row in both directions.
double Best_Correlation_Around(const RawBand& band, std::int64_t col, std::int64_t band_row,
                               int reach, const ImageTemplate& pattern);

}  // namespace sylvomex
