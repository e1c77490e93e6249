// SPDX-License-Identifier: MIT
// Tiles of the 2004 campaign: a 32-bit count, then records of 100 bytes.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/drive_map.h"

namespace sylvomex {

/// First and last echo of a pulse, metres.
struct Lidar2004Record {
  double FirstX = 0, FirstY = 0;
  float FirstZ = 0;
  double LastX = 0, LastY = 0;
  float LastZ = 0;
};

inline constexpr std::int64_t kRecord2004Bytes = 100;

/// All records of a tile in order. stride: bytes from the start of a record to the start of the
/// next; record i (from 0) is read from the 100 bytes at 4 + stride i, bytes past the end of
/// the file being 0.
///
/// RunTimeError(FileNotFound), or (BadContent) for a negative count and for a file shorter than
/// count strides.
std::vector<Lidar2004Record> Read_Tile_2004(const FilePath& file,
                                            std::int64_t stride = kRecord2004Bytes);

}  // namespace sylvomex
