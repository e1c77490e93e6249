// SPDX-License-Identifier: MIT
// Point-in-image files: one small text file for each image in which a point was found, with one
// line "identity, header path, X, Y, Z" separated by commas.
#pragma once

#include "solver/camera_table.h"

namespace sylvomex {

struct PointInImage {
  std::int16_t identity = 0;  // 16 bits as in the observation record
  std::string header;         // path of the image's header
  Point3D point;              // metres
};

/// Name of a camera's file, without its folder.
std::string Point_In_Image_Name(const TableCamera& camera);

/// The line including its line end; coordinates with 15 significant digits.
std::string Point_In_Image_Line(const TableCamera& camera, const Point3D& point);

/// Throws the RunTimeErrors of the list reader; an identity beyond 16 bits is
/// RunTimeError(Overflow).
PointInImage Read_Point_In_Image(ListReader& file);

}  // namespace sylvomex
