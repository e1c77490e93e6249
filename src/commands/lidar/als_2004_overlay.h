// SPDX-License-Identifier: MIT
// The overlay of the older lidar data, by height above ground.
#pragma once

#include <string_view>

namespace sylvomex {

struct Workspace;

inline constexpr std::string_view kSiteLehtomaa = "LEHTOMAA";  // 2004 tiles
inline constexpr std::string_view kSiteRovik = "ROVIK";        // one point file

/// The overlay of the site Lehtomaa.
void plot_als_bin_file(Workspace& w);

/// The overlay of a site; any text other than the two draws nothing. Requires a raster ground model
/// and reports when there is none. Any failure gives the message "An error has occurred!".
void Plot_Lidar_Of_Site(Workspace& w, std::string_view site);

}  // namespace sylvomex
