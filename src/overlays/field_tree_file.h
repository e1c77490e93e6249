// SPDX-License-Identifier: MIT
// The binary tree file: count, plot header with the angle in radians, and one record of 76 bytes
// per tree, all little-endian.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "overlays/plot_text.h"
#include "platform/drive_map.h"

namespace sylvomex {

/// A tree as stored in its record. Metres; StemVolume in litres.
struct FieldTree {
  double MapX = 0;
  double MapY = 0;
  double TopZ = 0;
  double BaseZ = 0;
  double GroundZ = 0;  // raster elevation at MapX, MapY
  double Dbh = 0;      // millimetres
  double TreeHeight = 0;
  std::int32_t TreeId = 0;
  std::int32_t TreeSpecies = 0;
  std::int32_t TreeCode = 0;
  double StemVolume = 0;
};

class FieldTreeFile {
 public:
  /// plot: with its angle in degrees, as in the plot text file.
  FieldTreeFile(std::int32_t tree_count, const PlotHeader& plot);

  void Add(const FieldTree& tree);

  [[nodiscard]] std::span<const std::uint8_t> Bytes() const { return bytes_; }

 private:
  void Put(std::int32_t value);
  void Put(double value);

  std::vector<std::uint8_t> bytes_;
};

/// The trees of a binary tree file, in its order. RunTimeError(BadContent) naming the file when it
/// holds no tree, its length does not match its count, or a number is NaN or infinite;
/// RunTimeErrors of opening a file propagate.
std::vector<FieldTree> Read_Field_Trees(const FilePath& file);

}  // namespace sylvomex
