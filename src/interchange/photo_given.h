// SPDX-License-Identifier: MIT
// A photograph's orientation with the numbers that its table gives, before they are understood by a
// convention, and what becomes of them.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "interchange/lens.h"
#include "platform/point3d.h"
#include "solver/camera_model.h"

namespace sylvomex {

struct CameraGiven {
  int width = 0, height = 0;  // pixels; 0 where the table does not tell
  double f_mm = 0;
  double pixel_mm = 0;        // along a row
  double pixel_y_mm = 0;      // along a column
  double pp_x = 0, pp_y = 0;  // principal point, pixels, as its convention counts
  BrownLens lens;
};

enum class RotationGiven { Angles, Quaternion, AxisAngle };

struct PhotoGiven {
  std::string name;  // as the table has it
  int line = 0;      // of the table; 0 where it has no lines
  CameraGiven camera;
  RotationGiven rotation = RotationGiven::Angles;
  std::array<double, 4> numbers{};  // omega, phi, kappa; or w, x, y, z; or an axis times radians
  Point3D position;                 // projection centre, or the translation t of R X + t
  std::optional<Point3D> degrees;   // the centre as longitude, latitude (WGS 84) and height
  std::string utc;                  // ISO 8601, empty where unknown
};

/// An oriented photograph as the workstation understands it, with world coordinates. Camera axes: x
/// to the right, y up, the view along -z.
struct OrientedPhoto {
  std::string name;
  int width = 0, height = 0;
  double f_mm = 0, pixel_mm = 0, pixel_y_mm = 0;
  double x0 = 0, y0 = 0;  // principal point from the middle of the image, pixels, right and up
  BrownLens lens;
  RotationMatrix m;  // ground to image
  Point3D centre;    // world
  std::string utc;
};

/// A position in the image, pixels from the outer corner of the first one, row downwards.
struct PhotoPixel {
  double col = 0, row = 0;
};

/// Projects a world point: by the ideal camera, and where the real lens shows it. std::nullopt for
/// a point that is not in front of the camera.
std::optional<PhotoPixel> Ideal_Pixel(const OrientedPhoto& photo, const Point3D& point);
std::optional<PhotoPixel> Real_Pixel(const OrientedPhoto& photo, const Point3D& point);

/// A pixel of the ideal camera as the real lens shows it.
PhotoPixel Real_Of_Ideal(const OrientedPhoto& photo, const PhotoPixel& ideal);

/// The name of an image without folders and without an image file's ending.
std::string Photo_Name(const std::string& name);

}  // namespace sylvomex
