// SPDX-License-Identifier: MIT
// Point-in-image files: one small text file for each image in which a point was found, one line
// of identity, header path, X, Y, Z by commas.
#pragma once

#include "solver/camera_table.h"

namespace sylvomex {

struct PointInImage {
  std::int16_t identity = 0;  // kept to the width of the observation record's field
  std::string header;         // path of the image's header
  Point3D point;              // metres
};

/// Name of the file of a camera, without its folder.
std::string Point_In_Image_Name(const TableCamera& camera);

/// The line with its end; coordinates with 15 significant digits.
std::string Point_In_Image_Line(const TableCamera& camera, const Point3D& point);

/// RunTimeErrors of the list reader; an identity beyond 16 bits is RunTimeError(Overflow).
PointInImage Read_Point_In_Image(ListReader& file);

}  // namespace sylvomex
