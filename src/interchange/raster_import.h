// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "interchange/import_transaction.h"
#include "interchange/told_share.h"

namespace sylvomex {

struct RasterReport {
  std::int64_t columns = 0, rows = 0;
  double cell = 0;                 // metres
  std::uint64_t no_data = 0;       // cells without a height
  std::vector<std::string> notes;  // a sentence each
};

/// Makes "c:\data\models\<model>.hdr" and its cell file of one or more rasters. Rasters on one grid
/// of the site's coordinate system are copied cell for cell, others resampled bilinearly; where
/// they overlap, the last one counts. Cells without a height get -9999.
///
/// Refused, besides the reasons of RasterSource, for models of more than 32767 columns or rows.
RasterReport Import_Raster(ImportTransaction& transaction,
                           const std::vector<std::filesystem::path>& files,
                           const std::string& model, const ToldShare& told = {});

}  // namespace sylvomex
