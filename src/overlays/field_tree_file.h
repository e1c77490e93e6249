// SPDX-License-Identifier: MIT
// The binary tree file: count, plot header with the angle in radians, and one record of 76 bytes
// a tree, all little-endian.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "overlays/plot_text.h"
#include "platform/drive_map.h"

namespace sylvomex {

/// A tree as its record holds it. Metres; StemVolume in litres.
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
  /// plot: its angle in degrees, as the plot text file has it.
  FieldTreeFile(std::int32_t tree_count, const PlotHeader& plot);

  void Add(const FieldTree& tree);

  [[nodiscard]] std::span<const std::uint8_t> Bytes() const { return bytes_; }

 private:
  void Put(std::int32_t value);
  void Put(double value);

  std::vector<std::uint8_t> bytes_;
};

/// The trees of a binary tree file, in its order. RunTimeError(BadContent) that names the file for
/// one that holds no tree, whose length does not follow from its count, or that has a number
/// which is none; RunTimeErrors of opening a file pass.
std::vector<FieldTree> Read_Field_Trees(const FilePath& file);

}  // namespace sylvomex
