// SPDX-License-Identifier: MIT
// Lists of points, observations and image pairs that a batch test of the orientation reads.
// RunTimeErrors of the list reader name file, line and item.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/list_reader.h"
#include "platform/point3d.h"

namespace sylvomex {

/// A known point of the ground, metres.
struct GroundPoint {
  std::int32_t point_id = 0;
  Point3D position;
};

/// A point measured in an image, film metres.
struct FilmPointObservation {
  std::int32_t image_id = 0;
  std::int32_t point_id = 0;
  double x = 0, y = 0;
};

/// The headers of the two images of a stereo pair, as the list names them.
struct HeaderPair {
  std::string first, second;
};

/// Rows of point id, point id again, X, Y, Z.
std::vector<GroundPoint> Read_Ground_Points(ListReader list);

/// Rows of ImageId, point id, film x, film y.
std::vector<FilmPointObservation> Read_Film_Points(ListReader list);

/// Rows of two values that are passed over and two header names.
std::vector<HeaderPair> Read_Header_Pairs(ListReader list);

/// A photograph of a flight line and the size of its footprint.
struct FlightImage {
  std::string header;      // name without folder and ending
  double line_number = 0;  // of the flight line
  double angle = 0;        // of the flight line, radians from X counter-clockwise
  double half_length = 0;  // of the footprint along the line, metres
  double half_width = 0;   // across it
};

/// Rows of a header's name and four values in the order of FlightImage.
std::vector<FlightImage> Read_Flight_Images(ListReader list);

}  // namespace sylvomex
