// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

#include "interchange/exported_file.h"
#include "interchange/site_record.h"

namespace sylvomex {

// Rasters of the workstation as cloud-optimised GeoTIFF (.tif or .tiff) in the site's system and
// world coordinates. Refused for an input that is damaged and for another ending; FailedOnTheWay
// when the output cannot be written.

/// A height model by its header; -9999 becomes the no-data value.
void Export_Model(const std::filesystem::path& header, const Site& site,
                  const std::filesystem::path& output, const ToldShare& told = {});

/// An orthoimage or mosaic: a header of the form of a height model's that names the raw file, with
/// X and Y of the ground that the first pixel (the south-west one) shows, or the raw file with such
/// a header beside it. One or three bytes a pixel, as the raw file's length tells.
void Export_Ortho(const std::filesystem::path& file, const Site& site,
                  const std::filesystem::path& output, const ToldShare& told = {});

/// A correlation image, "corimage<i>.raw" with its size in "ccor_ima<i>.img" beside it; its pixels
/// are those of the photograph, so it has no place in the map.
void Export_Correlation(const std::filesystem::path& raw, const std::filesystem::path& output,
                        const ExportRun& run = {});

}  // namespace sylvomex
