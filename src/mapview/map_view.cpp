// SPDX-License-Identifier: MIT
#include "mapview/map_view.h"

#include "platform/rounding.h"

namespace sylvomex {
namespace {

constexpr double kFrame = 10;  // pixels that the pane leaves free of the window

/// First and last position of a view of `pixels` pane pixels along one axis.
struct Extent {
  std::int32_t first = 0;
  std::int32_t last = 0;
};

Extent Around(std::int32_t centre, std::int32_t pixels, double zoom) {
  const double half = pixels / 2.0;
  return {To_Int32(centre - half / zoom), To_Int32(centre + (half - 1) / zoom)};
}

Extent From_Start(std::int32_t pixels, double zoom) {
  return {1, To_Int32((pixels - 1) / zoom + 1)};
}

}  // namespace

void Size_Map_Pane(MapView& view, double client_width, double client_height) {
  const std::int32_t width = To_Int32(client_width - kFrame);
  const std::int32_t height = To_Int32(client_height);
  view.MapPaneWidth = width + (3 * width) % 4 + 4;
  view.MapPaneHeight = To_Int32(client_height - kFrame + height % 4 + 4);
}

void Show_Map_Start(MapView& view) {
  view.MapZoom = 1;
  view.MapViewCol = view.MapFirstCol = 1;
  view.MapViewRow = view.MapFirstRow = 1;
  view.MapLastCol = view.MapPaneWidth;
  view.MapLastRow = view.MapPaneHeight;
}

MapCell Map_Cell_At(const MapView& view, double px, double py) {
  return {To_Int32(view.MapViewCol + px / view.MapZoom),
          To_Int32(view.MapViewRow + py / view.MapZoom)};
}

void Centre_Map_View(MapView& view, std::int32_t map_height, const MapCell& centre) {
  const double zoom = view.MapZoom;
  Extent cols = Around(centre.col, view.MapPaneWidth, zoom);
  Extent rows = Around(centre.row, view.MapPaneHeight, zoom);
  if (cols.first < 1) cols = From_Start(view.MapPaneWidth, zoom);
  if (rows.first < 1) rows = From_Start(view.MapPaneHeight, zoom);
  const double lowest_start = map_height - view.MapPaneHeight / zoom;
  if (rows.first > lowest_start) {
    rows.first = To_Int32(lowest_start);
    rows.last = To_Int32(rows.first + (view.MapPaneHeight - 1) / zoom);
  }
  view.MapViewCol = view.MapFirstCol = cols.first;
  view.MapViewRow = view.MapFirstRow = rows.first;
  view.MapLastCol = cols.last;
  view.MapLastRow = rows.last;
}

MapPosition Map_Position_At(const MapHeader& map, const MapView& view, double px, double py) {
  const double col = px / view.MapZoom + view.MapViewCol;
  const double row = py / view.MapZoom + view.MapViewRow;
  return {col, row, map.MapPixelSizeX * col + map.MapOriginX,
          (map.MapHeight - row) * map.MapPixelSizeY + map.MapOriginY};
}

}  // namespace sylvomex
