// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include "imageblock/pane_bitmap.h"
#include "imageblock/raw_rows.h"
#include "mapview/map_view.h"

namespace sylvomex {

/// Renders the view's window of a map into a bitmap of the pane's size, as the colour renderer
/// of the image panes does (imageblock/pane_renderer.h) and with its failures. Map column 1 and
/// row 1 are the file's first pixel. on_exceeding is called once for each pane pixel that the
/// zoom-out path finds outside the map.
PaneBitmap Render_Map(std::span<const std::uint8_t> file_bytes, const FilePath& file,
                      const MapHeader& map, const MapView& view,
                      const std::function<void()>& on_exceeding);

}  // namespace sylvomex
