// SPDX-License-Identifier: MIT
// A template as pixels, and the files that pass templates, patches and correlation images between
// commands. <i> is the image index, all files lie in "c:\data\":
//
//   temp<i>.raw, temp<i>.img          template; .img: width, height, reference column and row
//   test_<i>_<k>.raw, test_<i>_<k>.img  template of size k; .img: the four numbers on one line
//   ccor_ima<i>.raw, ccor_ima<i>.img  patch; .img: width, height
//   corimage<i>.raw, rkuva<i>.bmp     correlation image of the patch as bytes and as a picture
//
// Pixels are bytes, row by row from the top, columns fastest, without padding.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/drive_map.h"

namespace sylvomex {

struct ImageTemplate {
  int width = 0;
  int height = 0;
  int reference_col = 0;             // tree top, from the first column; may lie outside
  int reference_row = 0;             // from the first row
  std::vector<std::uint8_t> pixels;  // 0 outside the ellipse
};

/// Removes temp<i>.raw and temp<i>.img, so that a failed capture leaves no old template behind.
void Delete_Template(const DriveMap& drives, int image);

/// Removes test_<i>_<k>.raw and .img of all sizes.
void Delete_Size_Templates(const DriveMap& drives, int image);

/// Throws the RunTimeErrors of the file layer.
void Write_Template(const DriveMap& drives, int image, const ImageTemplate& pattern);

/// RunTimeError(BadContent) for a size below one pixel, RunTimeError(InputPastEnd) naming the file
/// when pixels are missing, the errors of the list reader for the four numbers.
ImageTemplate Read_Template(const DriveMap& drives, int image);

bool Has_Size_Template(const DriveMap& drives, int image, int size);

/// Read_Template for the template of one size; sizes are counted from 1.
ImageTemplate Read_Size_Template(const DriveMap& drives, int image, int size);

void Write_Size_Template(const DriveMap& drives, int image, int size, const ImageTemplate& pattern);

void Write_Patch(const DriveMap& drives, int image, int width, int height,
                 std::span<const std::uint8_t> pixels);

FilePath Correlation_Bytes_File(const DriveMap& drives, int image);
FilePath Correlation_Picture_File(const DriveMap& drives, int image);

}  // namespace sylvomex
