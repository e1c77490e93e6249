// SPDX-License-Identifier: MIT
#include "demo/table/stereo_table.h"

#include <cmath>
#include <optional>
#include <sstream>

#include "demo/write/exact_text.h"
#include "demo/write/stereo_session.h"
#include "demo/write/surface_steps.h"
#include "platform/files.h"
#include "platform/list_reader.h"
#include "platform/number_text.h"
#include "platform/rounding.h"
#include "stereo/pair_file.h"

namespace sylvomex::demo {
namespace {

constexpr MapArea kForest{20, 20, kForestSide - 20, kForestSide - 20};
constexpr double kSpacing = 5;  // metres
constexpr std::size_t kPlaces = 200;
constexpr int kWindowReach = 9;             // a window of 19 x 19 pixels
constexpr int kSearchReach = 4;             // pixels around where it is expected
constexpr double kLeastCorrelation = 0.95;  // of a place that counts as found

/// One channel of a normalised raster.
struct Channel {
  std::span<const std::uint8_t> bytes;
  int width = 0, height = 0, step = 1;

  [[nodiscard]] double At(int col, int row) const {
    const std::size_t pixel = static_cast<std::size_t>(row) * static_cast<std::size_t>(width) +
                              static_cast<std::size_t>(col);
    return bytes[pixel * static_cast<std::size_t>(step) + (step == 3 ? 1 : 0)];
  }
  [[nodiscard]] bool Holds(int col, int row) const {
    constexpr int kMargin = kWindowReach + kSearchReach + 1;
    return col >= kMargin && row >= kMargin && col < width - kMargin && row < height - kMargin;
  }
};

struct PixelPlace {
  int col = 0, row = 0;
};

/// Pearson's coefficient of two windows; 0 without variance.
double Correlation(const Channel& a, PixelPlace at_a, const Channel& b, PixelPlace at_b) {
  double n = 0, sa = 0, sb = 0, saa = 0, sbb = 0, sab = 0;
  for (int dy = -kWindowReach; dy <= kWindowReach; ++dy) {
    for (int dx = -kWindowReach; dx <= kWindowReach; ++dx) {
      const double u = a.At(at_a.col + dx, at_a.row + dy);
      const double v = b.At(at_b.col + dx, at_b.row + dy);
      n += 1;
      sa += u;
      sb += v;
      saa += u * u;
      sbb += v * v;
      sab += u * v;
    }
  }
  const double spread = (n * saa - sa * sa) * (n * sbb - sb * sb);
  return spread > 0 ? (n * sab - sa * sb) / std::sqrt(spread) : 0;
}

/// Row of the top of the paraboloid that fits nine correlations about a pixel best, from the
/// middle; nothing where it has no top within a pixel. at(dx, dy): dx and dy from -1 to 1.
template <class At>
std::optional<double> Top_Row(const At& at) {
  double sum = 0, x = 0, y = 0, xx = 0, yy = 0, xy = 0;
  for (int dy = -1; dy <= 1; ++dy) {
    for (int dx = -1; dx <= 1; ++dx) {
      const double r = at(dx, dy);
      sum += r;
      x += dx * r;
      y += dy * r;
      xx += dx * dx * r;
      yy += dy * dy * r;
      xy += dx * dy * r;
    }
  }
  // r = a + b dx + c dy + d dx^2 + e dx dy + f dy^2 by least squares.
  const double b = x / 6, c = y / 6, e = xy / 4;
  const double d = (xx - 2 * sum / 3) / 2, f = (yy - 2 * sum / 3) / 2;
  const double bend = 4 * d * f - e * e;
  if (bend <= 0 || d >= 0) return std::nullopt;
  const double row = (e * b - 2 * d * c) / bend, col = (e * c - 2 * f * b) / bend;
  if (std::abs(row) > 1 || std::abs(col) > 1) return std::nullopt;
  return row;
}

/// Row of the best place of a left window in the right raster; nothing for a poor one or one at
/// the border of the search.
std::optional<double> Matched_Row(const Channel& left, PixelPlace at, const Channel& right,
                                  PixelPlace expected) {
  const auto correlation = [&](int col, int row) {
    return Correlation(left, at, right, {col, row});
  };
  double best = -1;
  PixelPlace found = expected;
  for (int dy = -kSearchReach; dy <= kSearchReach; ++dy) {
    for (int dx = -kSearchReach; dx <= kSearchReach; ++dx) {
      const double r = correlation(expected.col + dx, expected.row + dy);
      if (r <= best) continue;
      best = r;
      found = {expected.col + dx, expected.row + dy};
    }
  }
  const bool at_border = std::abs(found.row - expected.row) == kSearchReach;
  if (best < kLeastCorrelation || at_border) return std::nullopt;
  const auto top =
      Top_Row([&](int dx, int dy) { return correlation(found.col + dx, found.row + dy); });
  if (!top) return std::nullopt;
  return found.row + *top;
}

PixelPlace Nearest(const RasterPosition& at) { return {To_Int32(at.col), To_Int32(at.row)}; }

Channel Green_Of(const MappedFile& raster, const StereoPair& pair) {
  return {raster.Bytes(), pair.NormalWidth, pair.NormalHeight, pair.ColorMode == 1 ? 3 : 1};
}

/// Every k-th place, so that at most kPlaces remain.
std::vector<SurfacePlace> Spread(const std::vector<SurfacePlace>& places) {
  std::vector<SurfacePlace> spread;
  const std::size_t count = std::min(kPlaces, places.size());
  for (std::size_t k = 0; k < count; ++k) spread.push_back(places[k * places.size() / count]);
  return spread;
}

std::string Right(const std::string& text) {
  constexpr std::size_t width = 9;
  return std::string(text.size() < width ? width - text.size() : 0, ' ') + text;
}

std::string Line(std::string name, const std::vector<double>& values) {
  const SampleStatistics s = Statistics_Of(values);
  name.resize(36, ' ');
  return name + Right(std::to_string(s.n)) + Right(Fixed_Decimals(s.mean, 3)) +
         Right(Fixed_Decimals(s.rms, 3)) + Right(Fixed_Decimals(s.largest_absolute, 3)) + "\n";
}

StereoPair Read_Site_Pair(const DriveMap& drives) {
  ListReader reader(drives.Locate(kPairFile));
  return Read_Pair_File(reader);
}

}  // namespace

RowDifferences Row_Differences(const std::filesystem::path& site, const Scene& scene) {
  const DriveMap drives(site);
  const StereoPair pair = Read_Site_Pair(drives);
  const std::vector<Photograph> stereo = Stereo_Photographs(Fly_Over(scene));
  const MappedFile left_file(drives.Locate(pair.left.raster));
  const MappedFile right_file(drives.Locate(pair.right.raster));
  const Channel left = Green_Of(left_file, pair), right = Green_Of(right_file, pair);
  RowDifferences rows;
  for (const SurfacePlace& place : Spread(Ground_Places(scene, stereo, 0, kForest, kSpacing))) {
    const RasterPosition at = Seen_On_Raster(stereo[0], pair, pair.left, place.truth);
    const RasterPosition expected = Seen_On_Raster(stereo[1], pair, pair.right, place.truth);
    rows.by_geometry.push_back(expected.row - at.row);
    const PixelPlace l = Nearest(at), r = Nearest(expected);
    if (!left.Holds(l.col, l.row) || !right.Holds(r.col, r.row)) continue;
    if (const auto row = Matched_Row(left, l, right, r)) rows.matched.push_back(*row - l.row);
  }
  return rows;
}

std::vector<Point3D> Read_True_Stereo_Tops(std::string_view transcript) {
  constexpr std::string_view kTold = "say stereo top ";
  std::vector<Point3D> tops;
  std::istringstream text{std::string(transcript)};
  for (std::string line; std::getline(text, line);) {
    if (!line.starts_with(kTold)) continue;
    ListReader list(line.substr(kTold.size()), "the transcript");
    Point3D& top = tops.emplace_back();
    for (double* value : {&top.X, &top.Y, &top.Z}) *value = list.Read_Double();
  }
  return tops;
}

TopDifferences Compare_Stereo_Tops(const FilePath& points, const std::vector<Point3D>& tops) {
  TopDifferences differences;
  ListReader list(points);
  for (const Point3D& top : tops) {
    list.Read_Int32();
    differences.X.push_back(list.Read_Double() - top.X);
    differences.Y.push_back(list.Read_Double() - top.Y);
    differences.Z.push_back(list.Read_Double() - top.Z);
  }
  if (list.At_End()) return differences;
  throw list.Failure_Here(Failure::BadContent,
                          "more points than the " + std::to_string(tops.size()) + " true tops");
}

std::string Table_Text(const RowDifferences& rows, const TopDifferences& tops) {
  return "right row less left row, pixels              n     mean      RMS  largest\n" +
         Line("places on the ground, by the cameras", rows.by_geometry) +
         Line("windows found in both rasters", rows.matched) +
         "top by the floating mark less true, m        n     mean      RMS  largest\n" +
         Line("X", tops.X) + Line("Y", tops.Y) + Line("Z", tops.Z);
}

std::string Stereo_Table_Of_Site(const std::filesystem::path& site, std::string_view transcript) {
  const RowDifferences rows = Row_Differences(site, Build_Scene({}));
  const FilePath points = DriveMap(site).Locate(kStereoTopsFile);
  return Table_Text(rows, Compare_Stereo_Tops(points, Read_True_Stereo_Tops(transcript)));
}

}  // namespace sylvomex::demo
