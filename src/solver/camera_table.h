// SPDX-License-Identifier: MIT
// Camera tables: text files with one camera of a photo archive a line, searched for the images that
// see a point.
//
// The tests are the plain collinearity projection: a point behind a camera counts as seen when its
// mirrored ray falls on the frame.
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
  int line = 0;  // of the table, from 1
};

/// Reads a table line by line, skipping empty lines. RunTimeError(BadContent) for a line that does
/// not have exactly twelve items (empty trailing items do not count), has an empty file name part
/// (items 10 to 12) or one that leads out of the folder of the point-in-image files; for a text in
/// place of a number the errors of the list reader. Each names file, line and item.
class CameraTableReader {
 public:
  explicit CameraTableReader(const FilePath& file);

  /// content: the text itself; file: named in messages.
  CameraTableReader(std::string content, FilePath file);

  /// The next camera, std::nullopt at the end of the table.
  std::optional<TableCamera> Next();

 private:
  FilePath file_;
  ListReader lines_;
};

/// True when the point falls on the frame of an aerial camera; the frame's size follows from c.
bool Sees_Point(const TableCamera& camera, const Point3D& point);

/// Sees_Point for cameras of both kinds: a terrestrial camera (0.006 < c < 0.008) has its own
/// frame.
bool Sees_Point_On_Own_Frame(const TableCamera& camera, const Point3D& point);

/// True for a terrestrial camera (0.006 < c < 0.008) whose frame contains the whole ring around the
/// point.
bool Sees_Ring(const TableCamera& camera, const Point3D& point);

/// Points of a horizontal circle of diameter 0.19 m around a point, at angles from -pi to pi in
/// steps of 0.3 rad.
std::vector<Point3D> Ring_Around(const Point3D& centre);

}  // namespace sylvomex
