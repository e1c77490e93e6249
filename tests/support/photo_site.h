// SPDX-License-Identifier: MIT
// Rasters and orientation tables in the field's formats, for tests of imports.
#pragma once

#include <gdal_priv.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <memory>
#include <numbers>
#include <string>
#include <vector>

#include "interchange/coordinate_system.h"
#include "platform/point3d.h"
#include "support/temporary_folder.h"

namespace sylvomex {

/// Writes a GeoTIFF; values are interleaved by pixel. options: "TILED=YES" ...
inline std::filesystem::path Write_Tiff(const TemporaryFolder& folder, const std::string& name,
                                        int width, int height, int bands, GDALDataType type,
                                        const std::vector<std::int32_t>& values,
                                        const std::vector<std::string>& options = {}) {
  Start_Gdal();
  std::vector<const char*> list;
  for (const std::string& option : options) list.push_back(option.c_str());
  list.push_back(nullptr);
  const std::filesystem::path path = folder.Path() / name;
  std::filesystem::create_directories(path.parent_path());
  const std::unique_ptr<GDALDataset> dataset(
      GetGDALDriverManager()->GetDriverByName("GTiff")->Create(
          path.c_str(), width, height, bands, type, const_cast<char**>(list.data())));
  const GSpacing pixel = static_cast<GSpacing>(sizeof(std::int32_t)) * bands;
  if (dataset->RasterIO(GF_Write, 0, 0, width, height, const_cast<std::int32_t*>(values.data()),
                        width, height, GDT_Int32, bands, nullptr, pixel, pixel * width,
                        sizeof(std::int32_t), nullptr) != CE_None) {
    throw std::runtime_error("no raster");
  }
  return path;
}

/// Bytes that differ from pixel to pixel.
inline std::vector<std::int32_t> Mixed_Values(int width, int height, int bands, int limit = 256) {
  std::vector<std::int32_t> values;
  std::uint32_t state = 12345;
  for (int i = 0; i < width * height * bands; ++i) {
    state = state * 1664525U + 1013904223U;
    values.push_back(static_cast<std::int32_t>((state >> 8U) % static_cast<std::uint32_t>(limit)));
  }
  return values;
}

/// One photograph by the angles of our own table, with the formulas of its definition written out.
struct TablePhoto {
  std::string name;
  int width = 400, height = 300;
  double f_mm = 100, pixel_mm = 0.1, x0_mm = 0, y0_mm = 0;
  double omega = 0, phi = 0, kappa = 0;  // degrees
  Point3D centre;

  /// M = M_kappa M_phi M_omega, each a rotation of the axes.
  [[nodiscard]] std::array<std::array<double, 3>, 3> Matrix() const {
    const double degree = std::numbers::pi / 180;
    const double so = std::sin(omega * degree), co = std::cos(omega * degree);
    const double sp = std::sin(phi * degree), cp = std::cos(phi * degree);
    const double sk = std::sin(kappa * degree), ck = std::cos(kappa * degree);
    const double o[3][3] = {{1, 0, 0}, {0, co, so}, {0, -so, co}};
    const double p[3][3] = {{cp, 0, -sp}, {0, 1, 0}, {sp, 0, cp}};
    const double k[3][3] = {{ck, sk, 0}, {-sk, ck, 0}, {0, 0, 1}};
    std::array<std::array<double, 3>, 3> m{};
    for (std::size_t i = 0; i < 3; ++i) {
      for (std::size_t j = 0; j < 3; ++j) {
        for (std::size_t a = 0; a < 3; ++a) {
          for (std::size_t b = 0; b < 3; ++b) m[i][j] += k[i][a] * p[a][b] * o[b][j];
        }
      }
    }
    return m;
  }

  /// Column and row from the outer corner of the first pixel.
  [[nodiscard]] std::array<double, 2> Pixel(const Point3D& point) const {
    const auto m = Matrix();
    const double d[3] = {point.X - centre.X, point.Y - centre.Y, point.Z - centre.Z};
    double c[3] = {};
    for (std::size_t i = 0; i < 3; ++i) {
      for (std::size_t j = 0; j < 3; ++j) c[i] += m[i][j] * d[j];
    }
    const double x = x0_mm - f_mm * c[0] / c[2];
    const double y = y0_mm - f_mm * c[1] / c[2];
    return {width / 2.0 + x / pixel_mm, height / 2.0 - y / pixel_mm};
  }

  [[nodiscard]] std::string Row() const {
    std::ostringstream row;
    row.precision(17);
    row << name << ',' << width << ',' << height << ',' << f_mm << ',' << pixel_mm << ',' << x0_mm
        << ',' << y0_mm << ',' << omega << ',' << phi << ',' << kappa << ',' << centre.X << ','
        << centre.Y << ',' << centre.Z;
    return row.str();
  }
};

inline const char* const kPlainHeader =
    "name,width,height,f_mm,pixel_mm,x0_mm,y0_mm,omega,phi,kappa,X0,Y0,Z0";

/// Four photographs over a place in the system EPSG:3067, 100 m above ground at 150 m.
inline std::vector<TablePhoto> Sample_Photos() {
  std::vector<TablePhoto> photos;
  const double omega[] = {1.5, -2.5, 4, 0.5};
  const double phi[] = {-3, 2, 1, -5};
  const double kappa[] = {12, 14, 190, 195};
  for (std::size_t i = 0; i < 4; ++i) {
    TablePhoto photo;
    photo.name = "photo" + std::to_string(i + 1);
    photo.x0_mm = 0.4;
    photo.y0_mm = -0.7;
    photo.omega = omega[i];
    photo.phi = phi[i];
    photo.kappa = kappa[i];
    const auto along = static_cast<double>(i % 2);
    const auto across = static_cast<double>(i / 2);
    photo.centre = {385000 + 15 * along, 6672000 + 12 * across, 250 + 2 * along};
    photos.push_back(photo);
  }
  return photos;
}

inline std::vector<Point3D> Sample_Points() {
  std::vector<Point3D> points;
  for (const double X : {384998.0, 385006.0, 385014.0}) {
    for (const double Y : {6671999.0, 6672006.0, 6672012.5}) {
      points.push_back({X, Y, 148 + std::fmod(X + 2 * Y, 7)});
    }
  }
  return points;
}

inline std::string Plain_Table(const std::vector<TablePhoto>& photos) {
  std::ostringstream text;
  text << kPlainHeader << '\n';
  for (const TablePhoto& photo : photos) text << photo.Row() << '\n';
  return text.str();
}

}  // namespace sylvomex
