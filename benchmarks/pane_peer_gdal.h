// SPDX-License-Identifier: MIT
#pragma once

#include "pane_peers.h"

namespace sylvomex::bench {

/// RasterIO on the raw file, described once by a virtual raster and once by an ENVI header written
/// beside the file.
PanePeer Pane_Gdal_Virtual(const PaneSource& source);
PanePeer Pane_Gdal_Envi(const PaneSource& source);

}  // namespace sylvomex::bench
