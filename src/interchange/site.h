// SPDX-License-Identifier: MIT
// A site is the folder of the drives with a "site.toml" in it.
#pragma once

#include <filesystem>
#include <string>

#include "interchange/site_record.h"

namespace sylvomex {

/// Makes a site of a folder, which is created if needed. Refused over a site and for a coordinate
/// system that does not exist or has no map coordinates in metres.
void Init_Site(const std::filesystem::path& folder, const std::string& crs);

/// Reads a site. What a killed import left is finished or removed first. Refused for a folder
/// without "site.toml".
Site Open_Site(const std::filesystem::path& folder);

/// A rectangle of map coordinates, metres.
struct MapExtent {
  double west = 0, south = 0, east = 0, north = 0;
};

/// The shift that brings an extent between the first and the thousandth tile of every lidar
/// campaign: none where it lies there with room around it, else the one that brings its middle to
/// the middle. Refused for an extent that is not finite or larger than the tiles can hold.
WorldShift Shift_For(const MapExtent& world);

/// Chooses the site's shift if it has none yet; every import does so before it uses the site's
/// coordinates. Refused when the world extent lies outside the tiles of the shift that was chosen
/// before. name: the file or files that give the extent.
void Take_Extent(Site& site, const MapExtent& world, const std::string& name);

}  // namespace sylvomex
