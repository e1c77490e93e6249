// SPDX-License-Identifier: MIT
// Places and steps that the sessions of the surface searches share.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "demo/scene/flight.h"

namespace sylvomex::demo {

/// A place to measure and the height at which its ray meets the surface.
struct SurfacePlace {
  FilmPosition film;  // of the fixed image
  Point3D truth;
};

/// A rectangle on the map, metres from the forest's south-west corner.
struct MapArea {
  double west = 0, south = 0, east = 0, north = 0;
};

/// Open ground, on a grid over an area: all that a window of the fixed image shows is ground, and
/// every photograph sees it. fixed_image: position in photos.
std::vector<SurfacePlace> Ground_Places(const Scene& scene, const std::vector<Photograph>& photos,
                                        int fixed_image, const MapArea& area, double spacing);

/// The ground at a place, metres from the forest's south-west corner.
Point3D Ground_Point(const Scene& scene, double x, double y);

/// The point at a height that an operator guesses, a multiple of 5 m.
Point3D Rough(const Point3D& truth);

/// Types the film position of a point into the boxes of the image at that position in photos.
std::string Box_Steps(const std::vector<Photograph>& photos, int image, const Point3D& point);

/// The same for every image, which is what a zoom centres on.
std::string All_Box_Steps(const std::vector<Photograph>& photos, const Point3D& point);

/// The three photographs of a strip in another order: an outer one second, so that the triplet
/// keeps it fixed and one of its two bases is twice as long.
std::vector<Photograph> Outer_Second(const std::vector<Photograph>& strip);

/// Removes all images.
std::string Remove_Steps();

/// Measures the places with a command of the menu, each after a line that names its kind and its
/// true height: say "pair, heath 151.234". Score and height of each are printed.
std::string Place_Steps(const std::string& kind, int fixed_image, const char* command,
                        const std::vector<SurfacePlace>& places);

/// A pane that shows at least the polygon to be drawn in it: 400 pixels of a window of 1280 x 1024
/// with three images, zoomed out.
struct PolygonPane {
  int image = 0;               // position in photos
  const char* zoom_item = "";  // of the menu
  int zoom_out = 1;
};

/// Draws the polygon over an area on the ground in a pane whose zoom is centred on a point.
std::string Polygon_Steps(const Scene& scene, const std::vector<Photograph>& photos,
                          const PolygonPane& pane, const Point3D& centre, const MapArea& area);

}  // namespace sylvomex::demo
