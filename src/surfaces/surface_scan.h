// SPDX-License-Identifier: MIT
// Surface searches at many places of one image: the step that a polygon command takes at each
// place, and the whole scan as one function of records and numbers.
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "heightmodels/point_in_polygon.h"
#include "surfaces/vertical_line_search.h"

namespace sylvomex {

/// The best height at a place of the fixed image; nothing where that has too little texture.
/// open_moving: gives the images of settings.moving_images, asked for only where there is texture.
/// RunTimeErrors of Textured_Window and of Search_Vertical_Line.
std::optional<SurfaceCandidate> Search_At_Place(
    const SearchSettings& settings, const SurfaceImage& fixed,
    const std::function<std::vector<SurfaceImage>()>& open_moving, const FilmPosition& film,
    double centre_Z);

/// The places, film metres, that lie inside a polygon of the fixed image, in their order.
std::vector<FilmPosition> Places_Inside(std::span<const FilmPosition> places,
                                        const std::vector<MapPoint>& polygon);

struct SurfaceScan {
  std::vector<SurfaceCandidate> accepted;
  int done = 0;             // places searched
  int without_texture = 0;  // of them
};

/// Searches at every place, from the height centre_Z on; with follows_surface each accepted height
/// is the next place's centre. moving: the images of settings.search.moving_images.
SurfaceScan Scan_Surface(const SurfaceSettings& settings, const SurfaceImage& fixed,
                         const std::vector<SurfaceImage>& moving,
                         std::span<const FilmPosition> places, double centre_Z);

}  // namespace sylvomex
