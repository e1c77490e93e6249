// SPDX-License-Identifier: MIT
// Photographs with an orientation table become raw files and headers of the workstation.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "interchange/circle_window.h"
#include "interchange/photo_pixels.h"
#include "interchange/site_record.h"
#include "interchange/told_share.h"

namespace sylvomex {

struct ImageImportSettings {
  std::filesystem::path site;
  std::filesystem::path table;
  std::vector<std::filesystem::path> files;
  std::filesystem::path cameras;
  std::string format;
  std::array<double, 2> stretch{2, 98};  // percentiles
  std::optional<GroundCircle> around;    // world
  ToldShare told = {};
};

struct ImportedImage {
  std::string name;
  std::string header;  // drive names
  std::string raw;
  std::int32_t image_id = 0;
  bool is_colour = false;
  PixelWindow window;
  std::optional<GreyStretch> stretch;        // of 16-bit images
  double largest_shift = 0;                  // by the lens, pixels
  std::optional<std::array<double, 2>> sun;  // azimuth, elevation, degrees
};

struct ImageImportResult {
  std::string format;
  std::string convention;  // that was used
  WorldShift shift;
  std::vector<ImportedImage> images;
  std::vector<std::string> passed_over;  // they do not show the circle
  // Columns of the table that might tell another convention than the one that was used.
  std::vector<std::string> columns_passed_over;
};

/// Refused for a table, a camera file or a photograph that cannot be read, a photograph without its
/// file or the reverse, a size that differs from the table's, and more than 32767 columns or rows.
ImageImportResult Import_Images(const ImageImportSettings& settings);

}  // namespace sylvomex
