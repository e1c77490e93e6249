// SPDX-License-Identifier: MIT
#include "heightmodels/ray_cut.h"

#include <cmath>

namespace sylvomex {
namespace {

constexpr double kTolerance = 0.001;  // metres
constexpr int kMostSteps = 60;

/// A point of the ray and how far it lies above the surface, metres.
struct Probe {
  Point3D point;
  double above = 0;
};

std::optional<Probe> Probe_At(const Camera& camera, const FilmPosition& film,
                              const HeightAt& height, double Z) {
  const auto point = Image_To_Object_At_Z(camera, Z, film);
  if (!point || !std::isfinite(point->X) || !std::isfinite(point->Y)) return std::nullopt;
  const bool behind_camera = To_Camera_Axes(camera, *point).q >= 0;
  if (behind_camera) return std::nullopt;
  const auto surface = height(point->X, point->Y);
  if (!surface) return std::nullopt;
  return Probe{*point, Z - *surface};
}

}  // namespace

// The surface's height under the present point is the next height; once two points lie on either
// side of the surface, their interval is halved instead.
std::optional<Point3D> Cut_Ray(const Camera& camera, const FilmPosition& film,
                               const HeightAt& height, double start_Z) {
  std::optional<Probe> over, under;
  double Z = start_Z;
  for (int step = 0; step < kMostSteps; ++step) {
    const auto probe = Probe_At(camera, film, height, Z);
    if (!probe) return std::nullopt;
    if (std::abs(probe->above) < kTolerance) return probe->point;
    (probe->above > 0 ? over : under) = probe;
    const bool between = over && under;
    Z = between ? (over->point.Z + under->point.Z) / 2 : Z - probe->above;
    // On either side of a step of the surface: the ray passes through its face.
    if (between && std::abs(over->point.Z - under->point.Z) < kTolerance) return probe->point;
  }
  return std::nullopt;
}

}  // namespace sylvomex
