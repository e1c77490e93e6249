// SPDX-License-Identifier: MIT
// The four surface searches side by side: what each of them does differently.
#pragma once

#include <array>
#include <span>

namespace sylvomex {

/// Image indices that the searches move their windows in.
inline constexpr std::array<int, 1> kSecondImage{1};
inline constexpr std::array<int, 2> kOuterImages{0, 2};

/// One vertical line search: along the ray of a place in the fixed image, windows of the moving
/// images are compared with the fixed window. The score of a height is the mean of the moving
/// images' correlations.
struct SearchSettings {
  int fixed_image = 0;
  std::span<const int> moving_images = kSecondImage;
  int window_side = 17;         // pixels
  double half_range = 30.0;     // metres below and above the search centre
  double step = 0.5;            // metres
  double texture_limit = 0.02;  // least deviation over (mean + texture_offset) of the fixed window
  double texture_offset = 0;    // grey levels
  double acceptance = 0.55;     // a score must lie above it
};

/// The search centre of a search without a valid solution, metres.
inline constexpr double kCentreWithoutSolution = 160.0;

inline constexpr SearchSettings kPairPoint{0, kSecondImage, 17, 30.0, 0.5, 0.02, 0, 0.55};
inline constexpr SearchSettings kTripletPoint{1, kOuterImages, 13, 8.0, 0.1, 0.02, 0, 0.55};
inline constexpr SearchSettings kPairPolygon{0, kSecondImage, 15, 20.0, 0.5, 0.05, 0.1, 0.65};
inline constexpr SearchSettings kTripletPolygon{1, kOuterImages, 13, 7.0, 0.2, 0.02, 0.1, 0.4};

/// Where the scanned area and the colour strips lie about the start point.
enum class Placing {
  FromStart,  // the start point is the first corner: x grows, y falls, raw rows grow
  Centred,
};

/// A grid of search points in the image plane of the fixed image.
struct GridSettings {
  double width = 0, height = 0;  // of the scanned area, metres
  double spacing = 0;            // metres
  Placing placing = Placing::FromStart;
  bool serpentine = false;  // columns alternately down and up, else always up
};

/// A search at every grid point inside a polygon.
struct SurfaceSettings {
  SearchSettings search;
  GridSettings grid;
  bool follows_surface = false;  // the search centre moves to each accepted height
};

inline constexpr SurfaceSettings kPairSurface{
    kPairPolygon, {2000.0, 2000.0, 20.0, Placing::FromStart, true}, true};
inline constexpr SurfaceSettings kTripletSurface{
    kTripletPolygon, {200.0, 250.0, 3.0, Placing::Centred, false}, false};

/// Raw-file rows of a colour image that a polygon run keeps at hand.
inline constexpr int kStripRows = 3000;

}  // namespace sylvomex
