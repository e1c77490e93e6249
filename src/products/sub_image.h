// SPDX-License-Identifier: MIT
// Small images that are cut out of the full ones around ground points.
#pragma once

#include <string>
#include <vector>

#include "platform/files.h"
#include "solver/camera_model.h"

namespace sylvomex {

/// A horizontal rectangle around a ground point, metres.
struct GroundBuffer {
  Point3D centre;
  double east_west = 0;    // from the centre to either side
  double north_south = 0;  // likewise
};

/// Lines of X, Y, Z, the two buffers and a file name, which is not used. RunTimeErrors of the list
/// reader name file, line and item.
std::vector<GroundBuffer> Read_Ground_Buffers(const FilePath& file);

/// Pixels of a raw file, from its first column and its first row from the top.
struct RawRectangle {
  double first_col = 0, first_row = 0;
  double columns = 0, rows = 0;
};

/// The pixels between the lowest and the highest column and row of the projected corners, each
/// rounded. What lies before the raw file's first column or row is left out, nothing at its other
/// sides. RunTimeErrors of Object_To_Pixel.
RawRectangle Rectangle_Around(const ImageRecord& image, const Camera& camera,
                              const GroundBuffer& buffer);

/// The image's record as that of its cut-out in a raw file of that name.
ImageRecord Cut_Out_Record(const ImageRecord& image, const RawRectangle& rectangle,
                           const std::string& raw_name);

/// Writes a cut-out as a whole. A row is one read of three bytes a pixel from byte (counted from
/// 0) 3 first_col + 3 FullWidth row on; what lies beyond the raw file's end repeats the bytes of
/// the row before. RunTimeErrors of the file layer.
void Write_Cut_Out(const PositionalFile& raw, const ImageRecord& image,
                   const RawRectangle& rectangle, const FilePath& file);

}  // namespace sylvomex
