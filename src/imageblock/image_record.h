// SPDX-License-Identifier: MIT
// One oriented image, as described by its header.
//
// Frames: film x, y in metres, principal point at the origin; full-image col to the right
// and row counted from the bottom; raw-file raw_row counted from the top, 0 the first.
#pragma once

#include <cstdint>

#include "platform/fixed_text.h"
#include "platform/table.h"

namespace sylvomex {

struct ImageRecord {
  std::int32_t ImageId = 0;
  FixedText<60> RawFileName;
  std::uint8_t ColorFlag = 0;    // 1 colour (R, G, B bytes), 0 grey
  double SubRowOrigin = 0;       // full-image row, from the top, of the raw file's first row
  double SubColOrigin = 0;       // full-image column of the raw file's first column
  std::int16_t FullWidth = 0;    // columns of the full image
  std::int16_t FullHeight = 0;   // rows of the full image
  std::int16_t StartRow = 0;     // raw-file row at which the pane is first centred
  std::int16_t StartCol = 0;     // raw-file column at which the pane is first centred
  double SubWidth = 0;           // columns of the raw file
  double SubHeight = 0;          // rows of the raw file
  double PrincipalDistance = 0;  // camera constant c, metres
  Table<double, 0, 7> CameraReserved;
  double AffineA1 = 0;  // column = A1 x + A2 y + A0
  double AffineA2 = 0;
  double AffineA0 = 0;
  double AffineB1 = 0;  // row = B1 x + B2 y + B0
  double AffineB2 = 0;
  double AffineB0 = 0;
  double Omega = 0;  // radians
  double Phi = 0;
  double Kappa = 0;
  double X0 = 0;  // projection centre, metres
  double Y0 = 0;
  double Z0 = 0;
  double SunAzimuth = 0;    // radians from north, clockwise
  double SunElevation = 0;  // radians above the horizon
  FixedText<60> ImageComment;
  std::int32_t BandCount = 0;  // related rasters listed, at most 4; below 1 none
  Table<FixedText<60>, 0, 3> BandFile;
  Table<std::int32_t, 0, 3> BandType;
  Table<std::int32_t, 0, 3> BandWidth;
  Table<std::int32_t, 0, 3> BandHeight;
};

/// Whether the raw file can contain a pixel: nothing is drawn for a side of 0 or less.
inline bool Has_Pixels(const ImageRecord& image) {
  return image.SubWidth > 0 && image.SubHeight > 0;
}

/// Calls visit("FieldName", field) for every field in the order of declaration.
template <class Record, class Visitor>
void Visit_Image_Record(Record& record, Visitor&& visit) {
  visit("ImageId", record.ImageId);
  visit("RawFileName", record.RawFileName);
  visit("ColorFlag", record.ColorFlag);
  visit("SubRowOrigin", record.SubRowOrigin);
  visit("SubColOrigin", record.SubColOrigin);
  visit("FullWidth", record.FullWidth);
  visit("FullHeight", record.FullHeight);
  visit("StartRow", record.StartRow);
  visit("StartCol", record.StartCol);
  visit("SubWidth", record.SubWidth);
  visit("SubHeight", record.SubHeight);
  visit("PrincipalDistance", record.PrincipalDistance);
  visit("CameraReserved", record.CameraReserved);
  visit("AffineA1", record.AffineA1);
  visit("AffineA2", record.AffineA2);
  visit("AffineA0", record.AffineA0);
  visit("AffineB1", record.AffineB1);
  visit("AffineB2", record.AffineB2);
  visit("AffineB0", record.AffineB0);
  visit("Omega", record.Omega);
  visit("Phi", record.Phi);
  visit("Kappa", record.Kappa);
  visit("X0", record.X0);
  visit("Y0", record.Y0);
  visit("Z0", record.Z0);
  visit("SunAzimuth", record.SunAzimuth);
  visit("SunElevation", record.SunElevation);
  visit("ImageComment", record.ImageComment);
  visit("BandCount", record.BandCount);
  visit("BandFile", record.BandFile);
  visit("BandType", record.BandType);
  visit("BandWidth", record.BandWidth);
  visit("BandHeight", record.BandHeight);
}

}  // namespace sylvomex
