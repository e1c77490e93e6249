// SPDX-License-Identifier: MIT
// Lists of points, observations and image pairs for batch tests of the orientation. The
// RunTimeErrors of the list reader name file, line and item.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/list_reader.h"
#include "platform/point3d.h"

namespace sylvomex {

/// A known ground point, metres.
struct GroundPoint {
  std::int32_t point_id = 0;
  Point3D position;
};

/// A point measured in an image, film coordinates in metres.
struct FilmPointObservation {
  std::int32_t image_id = 0;
  std::int32_t point_id = 0;
  double x = 0, y = 0;
};

/// The header names of the two images of a stereo pair, as listed.
struct HeaderPair {
  std::string first, second;
};

/// Rows: point id, point id again, X, Y, Z.
std::vector<GroundPoint> Read_Ground_Points(ListReader list);

/// Rows: ImageId, point id, film x, film y.
std::vector<FilmPointObservation> Read_Film_Points(ListReader list);

/// Rows: two values that are ignored, two header names.
std::vector<HeaderPair> Read_Header_Pairs(ListReader list);

/// A photograph of a flight line and the size of its footprint.
struct FlightImage {
  std::string header;      // name without folder and extension
  double line_number = 0;  // of the flight line
  double angle = 0;        // of the flight line, radians from X counter-clockwise
  double half_length = 0;  // of the footprint along the line, metres
  double half_width = 0;   // across it
};

/// Rows: a header name and four numbers in the order of FlightImage.
std::vector<FlightImage> Read_Flight_Images(ListReader list);

}  // namespace sylvomex
