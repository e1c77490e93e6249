// SPDX-License-Identifier: MIT
// The crown templates of one image in eleven sizes: "c:\data\test_<image>_<size>.img" holds
// width, height, reference column and reference row, the .raw beside it the pixels.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/drive_map.h"

namespace sylvomex {

inline constexpr int kTemplateSizes = 11;  // counted from 1

struct SizeTemplate {
  int width = 0;
  int height = 0;
  int reference_col = 0;             // of the tree top, from the first column
  int reference_row = 0;             // from the first row
  std::vector<std::uint8_t> pixels;  // row by row from the top
};

bool Has_Size_Template(const DriveMap& drives, int image, int size);

/// RunTimeError(BadContent) for a size below one pixel, RunTimeError(InputPastEnd) naming the
/// file for too few pixels, those of the list reader for the four numbers.
SizeTemplate Read_Size_Template(const DriveMap& drives, int image, int size);

}  // namespace sylvomex
