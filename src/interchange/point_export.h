// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

#include "interchange/exported_file.h"
#include "interchange/point_table.h"

namespace sylvomex {

/// Writes points as one layer of 3D points in a coordinate system: ".gpkg" a GeoPackage, ".geojson"
/// or ".json" GeoJSON with the system and six decimals, ".csv" a table with its columns alone.
///
/// layer: its name. Refused for another ending; FailedOnTheWay when it cannot be written.
void Export_Points(const PointTable& points, const std::string& crs, const std::string& layer,
                   const std::filesystem::path& output, const ExportRun& run = {});

}  // namespace sylvomex
