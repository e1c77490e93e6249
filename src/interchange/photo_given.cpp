// SPDX-License-Identifier: MIT
#include "interchange/photo_given.h"

#include <algorithm>
#include <string_view>

#include "interchange/csv_table.h"

namespace sylvomex {
namespace {

constexpr std::string_view kImageEndings[] = {
    ".tif", ".tiff", ".jpg", ".jpeg", ".jp2", ".j2k", ".png",  ".bmp", ".vrt",  ".img",
    ".ecw", ".sid",  ".bil", ".raw",  ".pix", ".gif", ".webp", ".jxl", ".nitf", ".ntf",
    ".cog", ".dng",  ".arw", ".nef",  ".cr2", ".pgm", ".ppm",  ".pnm", ".pbm",  ".tga",
    ".btf", ".heic", ".jpe", ".jpx",  ".j2c", ".bip", ".bsq"};

struct Scales {
  double cx = 0, cy = 0, fx = 0, fy = 0;  // pixels
};

Scales Scales_Of(const OrientedPhoto& photo) {
  return {photo.width / 2.0 + photo.x0, photo.height / 2.0 - photo.y0, photo.f_mm / photo.pixel_mm,
          photo.f_mm / photo.pixel_y_mm};
}

}  // namespace

std::optional<PhotoPixel> Ideal_Pixel(const OrientedPhoto& photo, const Point3D& point) {
  const double dX = point.X - photo.centre.X;
  const double dY = point.Y - photo.centre.Y;
  const double dZ = point.Z - photo.centre.Z;
  const RotationMatrix& m = photo.m;
  const double u = m.m11 * dX + m.m12 * dY + m.m13 * dZ;
  const double v = m.m21 * dX + m.m22 * dY + m.m23 * dZ;
  const double w = m.m31 * dX + m.m32 * dY + m.m33 * dZ;
  if (!(w < 0)) return std::nullopt;
  const Scales scales = Scales_Of(photo);
  return PhotoPixel{scales.cx - scales.fx * u / w, scales.cy + scales.fy * v / w};
}

PhotoPixel Real_Of_Ideal(const OrientedPhoto& photo, const PhotoPixel& ideal) {
  if (photo.lens.Is_Ideal()) return ideal;
  const Scales scales = Scales_Of(photo);
  const LensPosition real = Distorted(
      photo.lens, {(ideal.col - scales.cx) / scales.fx, (ideal.row - scales.cy) / scales.fy});
  return {scales.cx + scales.fx * real.x, scales.cy + scales.fy * real.y};
}

std::optional<PhotoPixel> Real_Pixel(const OrientedPhoto& photo, const Point3D& point) {
  const std::optional<PhotoPixel> ideal = Ideal_Pixel(photo, point);
  if (!ideal) return std::nullopt;
  return Real_Of_Ideal(photo, *ideal);
}

std::string Photo_Name(const std::string& name) {
  const std::size_t folder = name.find_last_of("/\\");
  std::string bare = folder == std::string::npos ? name : name.substr(folder + 1);
  const std::string lower = Lower(bare);
  for (const std::string_view ending : kImageEndings) {
    if (lower.size() > ending.size() && lower.ends_with(ending)) {
      bare.resize(bare.size() - ending.size());
      break;
    }
  }
  return bare;
}

}  // namespace sylvomex
