// SPDX-License-Identifier: MIT
#pragma once

#include "imageblock/raw_file_cache.h"
#include "mapview/map_header.h"
#include "mapview/map_view.h"

namespace sylvomex {

/// The map of the map window. Nothing is open while its MapFileName is empty.
struct MapState {
  MapHeader Header;
  MapView View;
  RawFileCache File;  // beside those of the images, whose nine places the panes use
};

}  // namespace sylvomex
