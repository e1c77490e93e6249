// SPDX-License-Identifier: MIT
#include "interchange/raster_source.h"

#include <cpl_string.h>
#include <gdal_utils.h>
#include <ogr_spatialref.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <memory>
#include <vector>

#include "interchange/coordinate_system.h"
#include "interchange/failures.h"
#include "interchange/ordinary_file.h"
#include "interchange/same_coordinates.h"
#include "platform/number_text.h"

namespace sylvomex {
namespace {

constexpr double kAlike = 1e-6;      // of a cell: sides and positions that count as equal
constexpr double kOnTheGrid = 1e-3;  // of a cell
constexpr int kEdgePoints = 21;
constexpr int kStripRows = 256, kStripCells = 1 << 22;  // read at once
constexpr double kFoot = 0.3048, kSurveyFoot = 1200.0 / 3937;

/// Metres of a unit that a band names, 0 when it is unknown.
double Named_Unit(std::string unit) {
  std::transform(unit.begin(), unit.end(), unit.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  if (unit == "ft" || unit == "foot" || unit == "feet" || unit == "international foot")
    return kFoot;
  if (unit == "us-ft" || unit == "ftus" || unit == "us survey foot" || unit == "sft") {
    return kSurveyFoot;
  }
  if (unit == "m" || unit == "metre" || unit == "meter" || unit == "metres" || unit == "meters") {
    return 1;
  }
  if (unit == "cm" || unit == "centimetre") return 0.01;
  return 0;
}

double Height_Unit(GDALRasterBand& band, const OGRSpatialReference& system) {
  const double named = Named_Unit(band.GetUnitType());
  if (named != 0) return named;
  return system.IsCompound() != 0 ? system.GetTargetLinearUnits("VERT_CS") : 1;
}

struct GeoTransform {
  std::array<double, 6> a{};

  [[nodiscard]] double X(double col, double row) const { return a[0] + a[1] * col + a[2] * row; }
  [[nodiscard]] double Y(double col, double row) const { return a[3] + a[4] * col + a[5] * row; }
  [[nodiscard]] double Width() const { return std::hypot(a[1], a[4]); }
  [[nodiscard]] double Height() const { return std::hypot(a[2], a[5]); }
  [[nodiscard]] bool North_Up_And_Square() const {
    return a[1] > 0 && a[5] < 0 && a[2] == 0 && a[4] == 0 && std::abs(a[1] + a[5]) < kAlike * a[1];
  }
};

MapExtent Own_Extent(const GeoTransform& place, double columns, double rows) {
  MapExtent extent{1e300, 1e300, -1e300, -1e300};
  for (const double col : {0.0, columns}) {
    for (const double row : {0.0, rows}) {
      extent.west = std::min(extent.west, place.X(col, row));
      extent.east = std::max(extent.east, place.X(col, row));
      extent.south = std::min(extent.south, place.Y(col, row));
      extent.north = std::max(extent.north, place.Y(col, row));
    }
  }
  return extent;
}

/// The shorter side of a cell in the middle of a raster, in the system that the transformation
/// leads to.
double Cell_Through(OGRCoordinateTransformation& transform, const GeoTransform& place,
                    double columns, double rows) {
  double X[3] = {place.X(columns / 2, rows / 2), place.X(columns / 2 + 1, rows / 2),
                 place.X(columns / 2, rows / 2 + 1)};
  double Y[3] = {place.Y(columns / 2, rows / 2), place.Y(columns / 2 + 1, rows / 2),
                 place.Y(columns / 2, rows / 2 + 1)};
  if (transform.Transform(3, X, Y) == 0) return 0;
  return std::min(std::hypot(X[1] - X[0], Y[1] - Y[0]), std::hypot(X[2] - X[0], Y[2] - Y[0]));
}

}  // namespace

RasterSource::RasterSource(const std::filesystem::path& file, const std::string& site)
    : name_(file.string()) {
  Start_Gdal();
  CPLErrorReset();
  Require_No_Device(name_);
  source_.reset(GDALDataset::Open(name_.c_str(), GDAL_OF_RASTER | GDAL_OF_VERBOSE_ERROR));
  if (source_ == nullptr)
    throw Refused(name_ + ": no raster: " + Gdal_Message("it cannot be read"));
  if (source_->GetRasterCount() == 0) throw Refused(name_ + ": the raster has no bands");
  GDALRasterBand& band = *source_->GetRasterBand(1);
  if (GDALDataTypeIsComplex(band.GetRasterDataType()) != 0) {
    throw Refused(name_ + ": complex numbers are no heights");
  }
  const OGRSpatialReference* const system = source_->GetSpatialRef();
  const bool is_local = system != nullptr && system->IsLocal() != 0;
  if (system == nullptr || system->IsEmpty() != 0 ||
      (is_local && Coordinate_System(site).IsLocal() == 0)) {
    throw Refused(name_ + ": the raster has no coordinate system");
  }
  metres_ = Height_Unit(band, *system);
  height_unit_is_open_ = Named_Unit(band.GetUnitType()) == 0 && Leaves_Height_Unit_Open(*system);
  // A grid of one's own is that of the site: no file tells grids apart.
  Find_Place(is_local ? Coordinate_System(site) : *system, site);
}

void RasterSource::Find_Place(const OGRSpatialReference& system, const std::string& site) {
  GeoTransform place;
  if (source_->GetGeoTransform(place.a.data()) != CE_None || place.Width() == 0 ||
      place.Height() == 0) {
    throw Refused(name_ + ": the raster says no position");
  }
  const double columns = source_->GetRasterXSize();
  const double rows = source_->GetRasterYSize();
  const OGRSpatialReference target = Coordinate_System(site);
  source_system_ = Wkt_Without_Heights(system);
  site_system_ = Wkt_Without_Heights(target);
  extent_ = Own_Extent(place, columns, rows);
  cell_ = std::min(place.Width(), place.Height());
  if (Same_Coordinates(system, target, extent_)) {
    if (place.North_Up_And_Square()) {
      grid_ = CellGrid{place.a[0], place.a[3], place.a[1], source_->GetRasterXSize(),
                       source_->GetRasterYSize()};
    }
    return;
  }
  const auto from = Coordinate_System(source_system_);
  const std::unique_ptr<OGRCoordinateTransformation> transform(
      OGRCreateCoordinateTransformation(&from, &target));
  const MapExtent own = extent_;
  const double through = transform == nullptr ? 0 : Cell_Through(*transform, place, columns, rows);
  if (!(through > 0) ||
      transform->TransformBounds(own.west, own.south, own.east, own.north, &extent_.west,
                                 &extent_.south, &extent_.east, &extent_.north, kEdgePoints) == 0) {
    throw Refused(name_ + ": the raster cannot be reprojected to the site's system");
  }
  Refuse_Far_Away(target, (extent_.west + extent_.east) / 2, (extent_.south + extent_.north) / 2,
                  name_);
  cell_ = from.IsProjected() != 0 ? cell_ * from.GetTargetLinearUnits("PROJCS") : through;
}

bool RasterSource::Place_On(const CellGrid& grid) {
  if (grid_) {
    const double column = (grid_->west - grid.west) / grid.cell;
    const double row = (grid.north - grid_->north) / grid.cell;
    first_column_ = std::llround(column);
    first_row_ = std::llround(row);
    const double most = static_cast<double>(std::max(grid.columns, grid.rows));
    if (std::abs(grid_->cell - grid.cell) * most < kOnTheGrid * grid.cell &&
        std::abs(column - static_cast<double>(first_column_)) < kOnTheGrid &&
        std::abs(row - static_cast<double>(first_row_)) < kOnTheGrid) {
      return false;
    }
  }
  Warp_To(grid);
  return true;
}

/// The window of the grid that the raster covers, as a dataset that is computed when it is read.
void RasterSource::Warp_To(const CellGrid& grid) {
  const auto cells = [&](double metres) { return metres / grid.cell; };
  first_column_ = std::max<std::int64_t>(
      0, static_cast<std::int64_t>(std::floor(cells(extent_.west - grid.west))));
  first_row_ = std::max<std::int64_t>(
      0, static_cast<std::int64_t>(std::floor(cells(grid.north - extent_.north))));
  const auto columns = std::min<std::int64_t>(
      grid.columns - first_column_,
      static_cast<std::int64_t>(std::ceil(cells(extent_.east - extent_.west))) + 1);
  const auto rows = std::min<std::int64_t>(
      grid.rows - first_row_,
      static_cast<std::int64_t>(std::ceil(cells(extent_.north - extent_.south))) + 1);
  const double west = grid.west + grid.cell * static_cast<double>(first_column_);
  const double north = grid.north - grid.cell * static_cast<double>(first_row_);
  CPLStringList words;
  for (const std::string& word :
       std::vector<std::string>{"-of",
                                "VRT",
                                "-s_srs",
                                source_system_,
                                "-t_srs",
                                site_system_,
                                "-te",
                                Full_Text(west),
                                Full_Text(north - grid.cell * static_cast<double>(rows)),
                                Full_Text(west + grid.cell * static_cast<double>(columns)),
                                Full_Text(north),
                                "-ts",
                                std::to_string(columns),
                                std::to_string(rows),
                                "-r",
                                "bilinear",
                                "-ot",
                                "Float64",
                                "-dstnodata",
                                Plain_Text(kNoHeight),
                                "-et",
                                "0.001",
                                "-wo",
                                "XSCALE=1",  // bilinear between four cells everywhere, not
                                "-wo",       // smoothed where a piece looks larger in the source
                                "YSCALE=1",
                                "-novshift",
                                "-ovr",
                                "NONE"}) {
    words.AddString(word.c_str());
  }
  GDALWarpAppOptions* const options = GDALWarpAppOptionsNew(words.List(), nullptr);
  GDALDatasetH from = source_.get();
  CPLErrorReset();
  warped_.reset(GDALDataset::FromHandle(
      options == nullptr ? nullptr : GDALWarp("", nullptr, 1, &from, options, nullptr)));
  GDALWarpAppOptionsFree(options);
  if (warped_ == nullptr) {
    throw Refused(name_ + ": the raster cannot be resampled: " + Gdal_Message("GDAL refuses"));
  }
}

/// Reads the rows around one, many at a time.
void RasterSource::Read_Strip(GDALDataset& dataset, int row) {
  const int columns = dataset.GetRasterXSize();
  const int most = std::clamp(kStripCells / columns, 1, kStripRows);
  strip_first_ = row - row % most;
  strip_rows_ = std::min(most, dataset.GetRasterYSize() - strip_first_);
  const std::size_t cells =
      static_cast<std::size_t>(columns) * static_cast<std::size_t>(strip_rows_);
  strip_heights_.resize(cells);
  strip_valid_.resize(cells);
  GDALRasterBand& band = *dataset.GetRasterBand(1);
  CPLErrorReset();
  if (band.RasterIO(GF_Read, 0, strip_first_, columns, strip_rows_, strip_heights_.data(), columns,
                    strip_rows_, GDT_Float64, 0, 0, nullptr) != CE_None ||
      band.GetMaskBand()->RasterIO(GF_Read, 0, strip_first_, columns, strip_rows_,
                                   strip_valid_.data(), columns, strip_rows_, GDT_Byte, 0, 0,
                                   nullptr) != CE_None) {
    throw Refused(name_ + ": rows " + std::to_string(strip_first_) + " to " +
                  std::to_string(strip_first_ + strip_rows_ - 1) +
                  " cannot be read: " + Gdal_Message("the file is damaged"));
  }
}

void RasterSource::Read_Row(std::int64_t grid_row, std::span<double> row) {
  GDALDataset& dataset = warped_ != nullptr ? *warped_ : *source_;
  if (grid_row < first_row_ || grid_row - first_row_ >= dataset.GetRasterYSize()) return;
  const int own_row = static_cast<int>(grid_row - first_row_);
  if (own_row < strip_first_ || own_row >= strip_first_ + strip_rows_) {
    Read_Strip(dataset, own_row);
  }
  GDALRasterBand& source = *source_->GetRasterBand(1);
  const double scale = source.GetScale();
  const double offset = source.GetOffset();
  const auto columns = static_cast<std::size_t>(dataset.GetRasterXSize());
  const std::size_t begin = columns * static_cast<std::size_t>(own_row - strip_first_);
  for (std::size_t i = 0; i < columns; ++i) {
    const double height = strip_heights_[begin + i];
    if (strip_valid_[begin + i] == 0 || !std::isfinite(height) || height == kNoHeight) continue;
    row[static_cast<std::size_t>(first_column_) + i] = (height * scale + offset) * metres_;
  }
}

}  // namespace sylvomex
