// SPDX-License-Identifier: MIT
// Camera tables: text files of all cameras of a photo archive, one a line, from which the images
// that see a point are found.
//
// The tests are the plain collinearity projection: a point behind a camera counts as seen when
// its mirrored ray falls on the frame.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/list_reader.h"
#include "solver/camera_model.h"

namespace sylvomex {

struct TableCamera {
  std::int32_t identity = 0;
  double c = 0;      // camera constant, metres
  double omega = 0;  // radians
  double phi = 0;
  double kappa = 0;
  double X0 = 0;  // projection centre, metres
  double Y0 = 0;
  double Z0 = 0;
  std::string name_end;  // parts of the point-in-image file's name
  std::string header;    // path of the image's header
  std::string name_start;
};

/// Reads a table line by line; empty lines are passed over. RunTimeError(BadContent) for a line
/// without exactly twelve items (empty ones behind them do not count) or with an empty part of a
/// file's name (items 10 to 12), those of the list reader
/// for a text in place of a number, each naming file, line and item.
class CameraTableReader {
 public:
  explicit CameraTableReader(const FilePath& file);

  /// content: the text itself; file: what messages name.
  CameraTableReader(std::string content, FilePath file);

  /// The next camera, nothing at the end of the table.
  std::optional<TableCamera> Next();

 private:
  FilePath file_;
  ListReader lines_;
};

/// True when the point falls on the frame of an aerial camera, whose size follows from c.
bool Sees_Point(const TableCamera& camera, const Point3D& point);

/// True for a terrestrial camera (0.006 < c < 0.008) on whose frame every point of the ring
/// around the point falls.
bool Sees_Ring(const TableCamera& camera, const Point3D& point);

/// A horizontal ring of 0.19 m around a point, from the angle -pi by steps of 0.3 up to pi.
std::vector<Point3D> Ring_Around(const Point3D& centre);

}  // namespace sylvomex
