// SPDX-License-Identifier: MIT
#include "search_variants.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "demo/table/sample_statistics.h"
#include "platform/rounding.h"

namespace sylvomex::bench {
namespace {

using Grey = std::vector<double>;

double Grey_At(const WindowRaster& raster, std::int64_t col, std::int64_t raw_row) {
  const std::int64_t bytes = raster.color_flag == 1 ? 3 : 1;
  const std::int64_t at = bytes * (raw_row * raster.columns + col) + bytes / 2;
  return raster.bytes[static_cast<std::size_t>(at)];
}

/// Bilinear between the pixels' middles.
double Grey_Between(const WindowRaster& raster, double x, double y) {
  const auto col = static_cast<std::int64_t>(std::floor(x));
  const auto row = static_cast<std::int64_t>(std::floor(y));
  const double fx = x - std::floor(x), fy = y - std::floor(y);
  const double top = Grey_At(raster, col, row) * (1 - fx) + Grey_At(raster, col + 1, row) * fx;
  const double bottom =
      Grey_At(raster, col, row + 1) * (1 - fx) + Grey_At(raster, col + 1, row + 1) * fx;
  return top * (1 - fy) + bottom * fy;
}

Grey Interpolated_Window(const SurfaceImage& image, const Point3D& point, int side) {
  const PixelPosition middle = Object_To_Pixel(image.camera, point);
  const double x = middle.col - 0.5 - side / 2;
  const double y = Raw_Row(image.raster.sub_height, middle.row) - 0.5 - side / 2;
  Grey window;
  for (int row = 0; row < side; ++row) {
    for (int col = 0; col < side; ++col) {
      window.push_back(Grey_Between(image.raster, x + col, y + row));
    }
  }
  return window;
}

double Pearson(const Grey& a, const Grey& b) {
  double sa = 0, sb = 0, saa = 0, sbb = 0, sab = 0;
  for (std::size_t i = 0; i < a.size(); ++i) {
    sa += a[i];
    sb += b[i];
    saa += a[i] * a[i];
    sbb += b[i] * b[i];
    sab += a[i] * b[i];
  }
  const auto n = static_cast<double>(a.size());
  const double variances = (n * saa - sa * sa) * (n * sbb - sb * sb);
  return variances > 0 ? (n * sab - sa * sb) / std::sqrt(variances) : 0;
}

class VariantSearch {
 public:
  VariantSearch(const SearchVariant& variant, const SurfaceScene& scene)
      : variant_(variant), fixed_(scene.Image(variant.settings.fixed_image)) {
    for (const int k : variant.settings.moving_images) moving_.push_back(scene.Image(k));
  }

  [[nodiscard]] std::optional<double> Height(const FilmPosition& film, double centre) const {
    const auto window = Textured_Window(variant_.settings, fixed_, film, centre);
    if (!window) return std::nullopt;
    if (variant_.windows == Windows::Interpolated) return Interpolated_Height(film, centre);
    const SurfaceSearch search =
        Search_Vertical_Line(variant_.settings, *window, fixed_.camera, moving_, film, centre);
    return variant_.ties == Ties::Middle ? Middle_Height(search) : search.Best().Z;
  }

 private:
  static double Middle_Height(const SurfaceSearch& search) {
    std::size_t last = search.best;
    while (last + 1 < search.candidates.size() &&
           search.candidates[last + 1].Correlation == search.Best().Correlation) {
      ++last;
    }
    return (search.Best().Z + search.candidates[last].Z) / 2;
  }

  [[nodiscard]] double Interpolated_Height(const FilmPosition& film, double centre) const {
    const SearchSettings& settings = variant_.settings;
    const auto at = [&](double Z) { return *Image_To_Object_At_Z(fixed_.camera, Z, film); };
    const Grey window = Interpolated_Window(fixed_, at(centre), settings.window_side);
    double best = -5, height = 0;
    const int steps = static_cast<int>(std::lround(2 * settings.half_range / settings.step));
    for (int n = 0; n <= steps; ++n) {
      const double Z = centre - settings.half_range + n * settings.step;
      double score = 0;
      for (const SurfaceImage& image : moving_) {
        score += Pearson(window, Interpolated_Window(image, at(Z), settings.window_side));
      }
      if (score <= best) continue;
      best = score;
      height = Z;
    }
    return height;
  }

  const SearchVariant& variant_;
  const SurfaceImage& fixed_;
  std::vector<SurfaceImage> moving_;
};

VariantResult Summary(const std::vector<double>& misses, double limit) {
  constexpr double kBlunder = 1;  // metres
  const auto beyond = [&](double most) {
    return std::count_if(misses.begin(), misses.end(),
                         [most](double miss) { return std::abs(miss) > most; });
  };
  std::vector<double> kept;
  std::copy_if(misses.begin(), misses.end(), std::back_inserter(kept),
               [](double miss) { return std::abs(miss) <= kBlunder; });
  const demo::SampleStatistics all = demo::Statistics_Of(misses);
  return {
      all.n,
      1 - static_cast<double>(beyond(limit)) / static_cast<double>(std::max<std::size_t>(all.n, 1)),
      all.mean,
      all.rms,
      static_cast<std::size_t>(beyond(kBlunder)),
      demo::Statistics_Of(kept).rms};
}

}  // namespace

VariantResult Run_Variant(const SearchVariant& variant, const SurfaceScene& scene) {
  constexpr double kRough = 5;  // metres
  const VariantSearch search(variant, scene);
  std::vector<double> misses;
  for (const TruePlace& place :
       scene.Places(variant.settings.fixed_image, variant.to_pixel_centres)) {
    const auto Z = search.Height(place.film, kRough * Round_Half_Even(place.Z / kRough));
    if (Z) misses.push_back(*Z - place.Z);
  }
  return Summary(misses, variant.limit);
}

}  // namespace sylvomex::bench
