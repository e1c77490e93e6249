// SPDX-License-Identifier: MIT
// Images for the solver's tests and an independent forward model: long double, the rotation built
// as the product of three elementary rotations.
#pragma once

#include <array>
#include <cmath>
#include <vector>

#include "solver/camera_model.h"
#include "solver/space_intersection.h"

namespace sylvomex::testing {

using Matrix33 = std::array<std::array<long double, 3>, 3>;

inline Matrix33 Product(const Matrix33& a, const Matrix33& b) {
  Matrix33 c{};
  for (std::size_t i = 0; i < 3; ++i) {
    for (std::size_t j = 0; j < 3; ++j) {
      for (std::size_t k = 0; k < 3; ++k) c[i][j] += a[i][k] * b[k][j];
    }
  }
  return c;
}

/// Rotation by omega about X, then by phi about the new Y, then by kappa about the new Z.
inline Matrix33 Elementary_Product(long double omega, long double phi, long double kappa) {
  const long double cw = std::cos(omega), sw = std::sin(omega);
  const long double cp = std::cos(phi), sp = std::sin(phi);
  const long double ck = std::cos(kappa), sk = std::sin(kappa);
  const Matrix33 about_x = {{{1, 0, 0}, {0, cw, sw}, {0, -sw, cw}}};
  const Matrix33 about_y = {{{cp, 0, -sp}, {0, 1, 0}, {sp, 0, cp}}};
  const Matrix33 about_z = {{{ck, sk, 0}, {-sk, ck, 0}, {0, 0, 1}}};
  return Product(about_z, Product(about_y, about_x));
}

struct FilmPoint {
  long double x = 0, y = 0;
};

inline FilmPoint Project(const ImageRecord& image, long double X, long double Y, long double Z) {
  const Matrix33 m = Elementary_Product(image.Omega, image.Phi, image.Kappa);
  const long double d[3] = {X - image.X0, Y - image.Y0, Z - image.Z0};
  long double axes[3] = {};
  for (std::size_t i = 0; i < 3; ++i) {
    for (std::size_t k = 0; k < 3; ++k) axes[i] += m[i][k] * d[k];
  }
  return {-image.PrincipalDistance * axes[0] / axes[2],
          -image.PrincipalDistance * axes[1] / axes[2]};
}

inline ImageRecord Image_From(double X0, double Y0, double Z0, double omega = 0, double phi = 0,
                              double kappa = 0, double c = 0.1) {
  ImageRecord image;
  image.PrincipalDistance = c;
  image.X0 = X0;
  image.Y0 = Y0;
  image.Z0 = Z0;
  image.Omega = omega;
  image.Phi = phi;
  image.Kappa = kappa;
  image.AffineA1 = 71428.5;
  image.AffineA2 = 12.5;
  image.AffineA0 = 4000;
  image.AffineB1 = -11.25;
  image.AffineB2 = 71430;
  image.AffineB0 = 3900;
  return image;
}

/// Nine overlapping photographs from about 1800 m in a Finnish map coordinate system, tilted by up
/// to a few degrees and flown in two directions.
inline std::vector<ImageRecord> Nine_Images() {
  std::vector<ImageRecord> images;
  for (int k = 0; k < 9; ++k) {
    const double across = k % 3 - 1;
    const double along = k / 3 - 1;
    images.push_back(Image_From(2515000 + 610 * along + 13 * across,
                                6860000 + 540 * across - 7 * along, 1810 + 11 * across - 6 * along,
                                0.021 * across - 0.008, 0.034 * along,
                                k % 2 == 0 ? 0.4 + 0.01 * k : 3.5 - 0.02 * k, 0.15));
  }
  return images;
}

/// Images with one observation each.
struct Block {
  explicit Block(std::vector<ImageRecord> oriented) : images(std::move(oriented)) {
    for (const ImageRecord& image : images) observations.push_back({Make_Camera(image), {}});
  }

  /// Sets error-free observations of the point in all images.
  void Observe(const Point3D& point) {
    for (std::size_t k = 0; k < images.size(); ++k) {
      const FilmPoint film = Project(images[k], point.X, point.Y, point.Z);
      observations[k].film = {static_cast<double>(film.x), static_cast<double>(film.y)};
    }
  }

  std::vector<ImageRecord> images;
  std::vector<FilmObservation> observations;
};

}  // namespace sylvomex::testing
