// SPDX-License-Identifier: MIT
#include "interchange/point_rays.h"

#include <array>
#include <cmath>

namespace sylvomex {
namespace {

/// Normal equations N d = b of three unknowns.
struct Normals {
  std::array<std::array<double, 3>, 3> N{};
  std::array<double, 3> b{};

  void Add(const std::array<double, 3>& row, double value) {
    for (std::size_t i = 0; i < 3; ++i) {
      for (std::size_t j = 0; j < 3; ++j) N[i][j] += row[i] * row[j];
      b[i] += row[i] * value;
    }
  }

  /// Cramer's rule; std::nullopt for a singular system.
  [[nodiscard]] std::optional<std::array<double, 3>> Solved() const {
    const double d = Determinant(N);
    const double size = N[0][0] + N[1][1] + N[2][2];
    if (!(std::abs(d) > 1e-14 * size * size * size)) return std::nullopt;
    std::array<double, 3> x{};
    for (std::size_t column = 0; column < 3; ++column) {
      auto replaced = N;
      for (std::size_t row = 0; row < 3; ++row) replaced[row][column] = b[row];
      x[column] = Determinant(replaced) / d;
    }
    return x;
  }

  static double Determinant(const std::array<std::array<double, 3>, 3>& m) {
    return m[0][0] * (m[1][1] * m[2][2] - m[1][2] * m[2][1]) -
           m[0][1] * (m[1][0] * m[2][2] - m[1][2] * m[2][0]) +
           m[0][2] * (m[1][0] * m[2][1] - m[1][1] * m[2][0]);
  }
};

struct IdealRay {
  const OrientedPhoto* photo = nullptr;
  LensPosition ideal;  // x right, y down, divided by f
};

IdealRay Ideal_Of(const PhotoRay& ray) {
  const OrientedPhoto& photo = *ray.photo;
  const double fx = photo.f_mm / photo.pixel_mm;
  const double fy = photo.f_mm / photo.pixel_y_mm;
  return {&photo, Undistorted(photo.lens, {(ray.real.col - photo.width / 2.0 - photo.x0) / fx,
                                           (ray.real.row - photo.height / 2.0 + photo.y0) / fy})};
}

/// The two planes of each ray: (m1 + x m3) (X - C) = 0 and (m2 - y m3) (X - C) = 0.
std::optional<Point3D> Nearest_To_Planes(const std::vector<IdealRay>& rays, const Point3D& origin,
                                         const std::vector<double>& weights) {
  Normals normals;
  for (std::size_t i = 0; i < rays.size(); ++i) {
    const RotationMatrix& m = rays[i].photo->m;
    const Point3D& c = rays[i].photo->centre;
    const auto [x, y] = rays[i].ideal;
    const double w = weights[i];
    const std::array<double, 3> across{w * (m.m11 + x * m.m31), w * (m.m12 + x * m.m32),
                                       w * (m.m13 + x * m.m33)};
    const std::array<double, 3> down{w * (m.m21 - y * m.m31), w * (m.m22 - y * m.m32),
                                     w * (m.m23 - y * m.m33)};
    for (const auto& row : {across, down}) {
      normals.Add(
          row, row[0] * (c.X - origin.X) + row[1] * (c.Y - origin.Y) + row[2] * (c.Z - origin.Z));
    }
  }
  const auto solved = normals.Solved();
  if (!solved) return std::nullopt;
  return Point3D{origin.X + (*solved)[0], origin.Y + (*solved)[1], origin.Z + (*solved)[2]};
}

double Depth(const OrientedPhoto& photo, const Point3D& point) {
  return -(photo.m.m31 * (point.X - photo.centre.X) + photo.m.m32 * (point.Y - photo.centre.Y) +
           photo.m.m33 * (point.Z - photo.centre.Z));
}

}  // namespace

std::optional<Point3D> Nearest_Point(const std::vector<PhotoRay>& rays) {
  constexpr int kPasses = 5;  // the planes' weights become those of image residuals
  if (rays.size() < 2) return std::nullopt;
  std::vector<IdealRay> ideal;
  ideal.reserve(rays.size());
  for (const PhotoRay& ray : rays) ideal.push_back(Ideal_Of(ray));
  std::vector<double> weights(rays.size(), 1);
  std::optional<Point3D> point;
  for (int pass = 0; pass < kPasses; ++pass) {
    point = Nearest_To_Planes(ideal, rays.front().photo->centre, weights);
    if (!point) return std::nullopt;
    for (std::size_t i = 0; i < rays.size(); ++i) {
      const double depth = Depth(*rays[i].photo, *point);
      if (!(depth > 0)) return std::nullopt;
      weights[i] = rays[i].photo->f_mm / rays[i].photo->pixel_mm / depth;
    }
  }
  return point;
}

}  // namespace sylvomex
