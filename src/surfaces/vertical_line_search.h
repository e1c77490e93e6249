// SPDX-License-Identifier: MIT
// The height of a surface point by a vertical line search: a height slides along the ray of a
// place in one image, and windows of the other images tell where it meets the surface
// (Schenk, Digital Photogrammetry (1999), section 11.4: the vertical line locus).
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "closedlib/moving_windows.h"
#include "solver/camera_model.h"
#include "surfaces/search_settings.h"
#include "surfaces/window_raster.h"

namespace sylvomex {

struct SurfaceImage {
  Camera camera;
  WindowRaster raster;
};

/// A height of the search with its score, -1 to 1. Metres.
struct SurfaceCandidate {
  double Correlation = 0;
  double X = 0, Y = 0, Z = 0;
};

struct SurfaceSearch {
  std::vector<SurfaceCandidate> candidates;  // from the lowest height up
  std::size_t best = 0;                      // the lowest of the best ones

  [[nodiscard]] const SurfaceCandidate& Best() const { return candidates[best]; }
};

/// The window of the fixed image about a film position, as it lies at height Z; nothing when it
/// has too little texture. RunTimeError as of Locate_Window; for an image that is neither grey
/// nor colour RunTimeError(BadContent).
std::optional<FixedWindow> Textured_Window(const SearchSettings& settings,
                                           const SurfaceImage& fixed, const FilmPosition& film,
                                           double Z);

/// Scores the heights from centre_Z - half_range to centre_Z + half_range, both included.
/// moving: the images of settings.moving_images, in that order. A ray parallel to the ground
/// keeps the point at the origin. RunTimeError as of Locate_Window for the first window that
/// leaves its raster.
SurfaceSearch Search_Vertical_Line(const SearchSettings& settings, const FixedWindow& window,
                                   const Camera& fixed, std::span<const SurfaceImage> moving,
                                   const FilmPosition& film, double centre_Z);

}  // namespace sylvomex
