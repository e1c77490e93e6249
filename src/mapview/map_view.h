// SPDX-License-Identifier: MIT
// The view of the map pane: its size, its window into the map, and where a pane position lies.
//
// Map columns and rows count from 1 at the map's upper left corner; pane px, py from 0 at the
// pane's upper left corner. Every value that a view holds is rounded half to even when it is
// stored; RunTimeError(Overflow) where one leaves 32 bits.
#pragma once

#include <cstdint>

#include "mapview/map_header.h"

namespace sylvomex {

struct MapView {
  double MapZoom = 1;  // pane pixels a map pixel, above 0
  std::int32_t MapViewCol = 1;
  std::int32_t MapViewRow = 1;
  std::int32_t MapPaneWidth = 0;
  std::int32_t MapPaneHeight = 0;
  std::int32_t MapFirstCol = 0, MapLastCol = 0;  // window that is shown, both included
  std::int32_t MapFirstRow = 0, MapLastRow = 0;
};

/// Calls visit("FieldName", field) for every field.
template <class View, class Visitor>
void Visit_Map_View(View& view, Visitor&& visit) {
  visit("MapZoom", view.MapZoom);
  visit("MapViewCol", view.MapViewCol);
  visit("MapViewRow", view.MapViewRow);
  visit("MapPaneWidth", view.MapPaneWidth);
  visit("MapPaneHeight", view.MapPaneHeight);
  visit("MapFirstCol", view.MapFirstCol);
  visit("MapLastCol", view.MapLastCol);
  visit("MapFirstRow", view.MapFirstRow);
  visit("MapLastRow", view.MapLastRow);
}

/// The pane in a client area of the given size, pixels.
void Size_Map_Pane(MapView& view, double client_width, double client_height);

/// The view on a map just opened: 100 %, from its upper left corner.
void Show_Map_Start(MapView& view);

struct MapCell {
  std::int32_t col = 0;
  std::int32_t row = 0;
};

/// The map pixel at a pane position.
MapCell Map_Cell_At(const MapView& view, double px, double py);

/// Centres the view on a map pixel. The window is pushed inside the map at the left, top and
/// bottom edge, not at the right one.
void Centre_Map_View(MapView& view, std::int32_t map_height, const MapCell& centre);

/// Map column and row of a pane position, and what lies there on the ground, metres.
struct MapPosition {
  double col = 0, row = 0;
  double X = 0, Y = 0;
};
MapPosition Map_Position_At(const MapHeader& map, const MapView& view, double px, double py);

}  // namespace sylvomex
