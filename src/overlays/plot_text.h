// SPDX-License-Identifier: MIT
// The plot text file of the field crews, read as a list: seven header values, then one row of eight
// items per tree. Local x, y, z of a plot in metres; to map coordinates the plot is rotated
// counter-clockwise by its angle and shifted.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/list_reader.h"

namespace sylvomex {

struct PlotHeader {
  double PlotAngle = 0;  // degrees
  double PlotX0 = 0;     // map position of the local origin, metres
  double PlotY0 = 0;
  double PlotZ0 = 0;
  double PlotDX = 0;  // additional shifts
  double PlotDY = 0;
  double PlotDZ = 0;
};

struct PlotTree {
  double LocalX = 0;  // metres
  double LocalY = 0;
  double LocalZ = 0;
  double Dbh = 0;         // stem diameter, millimetres
  double TreeHeight = 0;  // metres
  std::int32_t TreeId = 0;
  std::int32_t TreeSpecies = 0;
  std::int32_t TreeCode = 0;
};

/// A tree in map coordinates, metres.
struct TreePlace {
  double MapX = 0;
  double MapY = 0;
  double BaseZ = 0;  // local ground
  double TopZ = 0;
};

/// Degrees to radians with the constant used for field data, 0.0174532925199433.
double Plot_Radians(double degrees);

TreePlace Place_Tree(const PlotHeader& plot, const PlotTree& tree);

class PlotTextReader {
 public:
  /// Reads the header. RunTimeErrors of the list reader, also in Next_Tree; a truncated row is a
  /// RunTimeError(InputPastEnd).
  explicit PlotTextReader(ListReader list);

  [[nodiscard]] const PlotHeader& Header() const { return header_; }

  /// The next tree, std::nullopt at the end of the file.
  std::optional<PlotTree> Next_Tree();

  /// "<file>, line <n>, item <m>" of the last diameter and height read.
  [[nodiscard]] const std::string& Dbh_Place() const { return dbh_place_; }
  [[nodiscard]] const std::string& Height_Place() const { return height_place_; }

 private:
  ListReader list_;
  PlotHeader header_;
  std::string dbh_place_;
  std::string height_place_;
};

}  // namespace sylvomex
