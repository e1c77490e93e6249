// SPDX-License-Identifier: MIT
#include "surfaces/vertical_line_search.h"

#include <cmath>
#include <string>

#include "closedlib/window_correlation.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

/// Steps of the search with both ends.
std::size_t Height_Count(const SearchSettings& settings) {
  return static_cast<std::size_t>(std::lround(2 * settings.half_range / settings.step)) + 1;
}

Point3D Ground_At(const Camera& camera, double Z, const FilmPosition& film) {
  return Image_To_Object_At_Z(camera, Z, film).value_or(Point3D{0, 0, Z});
}

/// The candidates without their scores.
std::vector<SurfaceCandidate> Points_Of_Ray(const SearchSettings& settings, const Camera& camera,
                                            const FilmPosition& film, double centre_Z) {
  std::vector<SurfaceCandidate> points(Height_Count(settings));
  for (std::size_t n = 0; n < points.size(); ++n) {
    const double Z = centre_Z - settings.half_range + static_cast<double>(n) * settings.step;
    const Point3D ground = Ground_At(camera, Z, film);
    points[n] = {0, ground.X, ground.Y, Z};
  }
  return points;
}

std::vector<WindowSet> Windows_Along(const std::vector<SurfaceCandidate>& points,
                                     std::span<const SurfaceImage> images, int side) {
  std::vector<WindowSet> sets;
  sets.reserve(images.size());
  for (const SurfaceImage& image : images) sets.emplace_back(image.raster, side, points.size());
  for (const SurfaceCandidate& point : points) {
    for (std::size_t i = 0; i < images.size(); ++i) {
      const PixelPosition pixel =
          Object_To_Pixel(images[i].camera, Point3D{point.X, point.Y, point.Z});
      sets[i].Add(Locate_Window(images[i].raster, pixel, side));
    }
  }
  return sets;
}

void Score(const FixedWindow& fixed, const std::vector<WindowSet>& sets,
           std::vector<SurfaceCandidate>& points) {
  std::vector<double> correlations(points.size());
  for (const WindowSet& set : sets) {
    Correlate_Windows(fixed, set.Windows(), correlations);
    for (std::size_t n = 0; n < points.size(); ++n) points[n].Correlation += correlations[n];
  }
  for (SurfaceCandidate& point : points) point.Correlation /= static_cast<double>(sets.size());
}

std::size_t Lowest_Of_The_Best(const std::vector<SurfaceCandidate>& points) {
  std::size_t best = 0;
  for (std::size_t n = 1; n < points.size(); ++n) {
    if (points[n].Correlation > points[best].Correlation) best = n;
  }
  return best;
}

void Require_Grey_Or_Colour(const WindowRaster& raster) {
  if (raster.color_flag <= 1) return;
  throw RunTimeError(Failure::BadContent,
                     "image " + std::to_string(raster.image_id) + ": ColorFlag is " +
                         std::to_string(raster.color_flag) + ", grey is 0 and colour 1");
}

/// Deviation over mean; a black window has none.
bool Has_Texture(const SearchSettings& settings, const WindowStatistics& statistics) {
  const double level = statistics.mean + settings.texture_offset;
  return level > 0 && !(statistics.deviation / level < settings.texture_limit);
}

}  // namespace

std::optional<FixedWindow> Textured_Window(const SearchSettings& settings,
                                           const SurfaceImage& fixed, const FilmPosition& film,
                                           double Z) {
  Require_Grey_Or_Colour(fixed.raster);
  const int side = settings.window_side;
  const PixelPosition middle = Object_To_Pixel(fixed.camera, Ground_At(fixed.camera, Z, film));
  const std::vector<std::uint8_t> pixels =
      Cut_Window(fixed.raster, Locate_Window(fixed.raster, middle, side), side);
  if (!Has_Texture(settings, MYFUNC_TEMPMEANSTD(pixels))) return std::nullopt;
  return FixedWindow(pixels, side);
}

SurfaceSearch Search_Vertical_Line(const SearchSettings& settings, const FixedWindow& window,
                                   const Camera& fixed, std::span<const SurfaceImage> moving,
                                   const FilmPosition& film, double centre_Z) {
  SurfaceSearch search;
  search.candidates = Points_Of_Ray(settings, fixed, film, centre_Z);
  Score(window, Windows_Along(search.candidates, moving, settings.window_side), search.candidates);
  search.best = Lowest_Of_The_Best(search.candidates);
  return search;
}

}  // namespace sylvomex
