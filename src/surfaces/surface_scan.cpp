// SPDX-License-Identifier: MIT
#include "surfaces/surface_scan.h"

#include <algorithm>
#include <iterator>

namespace sylvomex {

std::optional<SurfaceCandidate> Search_At_Place(
    const SearchSettings& settings, const SurfaceImage& fixed,
    const std::function<std::vector<SurfaceImage>()>& open_moving, const FilmPosition& film,
    double centre_Z) {
  const auto window = Textured_Window(settings, fixed, film, centre_Z);
  if (!window) return std::nullopt;
  return Search_Vertical_Line(settings, *window, fixed.camera, open_moving(), film, centre_Z)
      .Best();
}

std::vector<FilmPosition> Places_Inside(std::span<const FilmPosition> places,
                                        const std::vector<MapPoint>& polygon) {
  std::vector<FilmPosition> inside;
  std::copy_if(places.begin(), places.end(), std::back_inserter(inside),
               [&](const FilmPosition& place) {
                 return Point_In_Polygon(polygon, {place.x, place.y});
               });
  return inside;
}

SurfaceScan Scan_Surface(const SurfaceSettings& settings, const SurfaceImage& fixed,
                         const std::vector<SurfaceImage>& moving,
                         std::span<const FilmPosition> places, double centre_Z) {
  SurfaceScan scan;
  for (const FilmPosition& place : places) {
    const auto found = Search_At_Place(
        settings.search, fixed, [&moving] { return moving; }, place, centre_Z);
    ++scan.done;
    if (!found) {
      ++scan.without_texture;
      continue;
    }
    if (!(found->Correlation > settings.search.acceptance)) continue;
    if (settings.follows_surface) centre_Z = found->Z;
    scan.accepted.push_back(*found);
  }
  return scan;
}

}  // namespace sylvomex
