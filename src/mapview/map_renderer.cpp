// SPDX-License-Identifier: MIT
#include "mapview/map_renderer.h"

#include "imageblock/pane_renderer.h"

namespace sylvomex {

PaneBitmap Render_Map(std::span<const std::uint8_t> file_bytes, const FilePath& file,
                      const MapHeader& map, const MapView& view,
                      const std::function<void()>& on_exceeding) {
  const RawPixels raw{file_bytes, static_cast<double>(map.MapWidth),
                      static_cast<double>(map.MapHeight), &file};
  RenderRequest request;
  request.window = {view.MapFirstCol - 1, view.MapFirstRow - 1, view.MapLastCol - 1,
                    view.MapLastRow - 1, true};
  request.zoom_x = view.MapZoom;
  request.zoom_y = view.MapZoom;
  request.pane_width = view.MapPaneWidth;
  request.pane_height = view.MapPaneHeight;
  request.on_exceeding = on_exceeding;
  PaneBitmap bitmap;
  Render_Colour(raw, request, bitmap);
  return bitmap;
}

}  // namespace sylvomex
