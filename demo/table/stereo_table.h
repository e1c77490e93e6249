// SPDX-License-Identifier: MIT
// How level the rows of the site's normalised pair are, and how well the floating mark met the tree
// tops.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "demo/scene/scene.h"
#include "demo/table/sample_statistics.h"
#include "platform/drive_map.h"
#include "platform/point3d.h"

namespace sylvomex::demo {

/// Rows of the right image less rows of the left one, pixels.
struct RowDifferences {
  std::vector<double> by_geometry;  // where both rasters show the places by the cameras
  std::vector<double> matched;      // of windows that were found again in the right raster
};

/// At places on open ground, at most 200, spread over the forest. Reads the pair of the site.
RowDifferences Row_Differences(const std::filesystem::path& site, const Scene& scene);

/// The true tops that a session tells ("say stereo top X Y Z"), in its order.
std::vector<Point3D> Read_True_Stereo_Tops(std::string_view transcript);

/// Differences measured less true, metres.
struct TopDifferences {
  std::vector<double> X, Y, Z;
};

/// points: the file of measured points. RunTimeError(BadContent) when there are not as many as
/// tops.
TopDifferences Compare_Stereo_Tops(const FilePath& points, const std::vector<Point3D>& tops);

std::string Table_Text(const RowDifferences& rows, const TopDifferences& tops);

/// The whole table of a site and the transcript of its stereo session.
std::string Stereo_Table_Of_Site(const std::filesystem::path& site, std::string_view transcript);

}  // namespace sylvomex::demo
