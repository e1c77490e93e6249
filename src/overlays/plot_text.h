// SPDX-License-Identifier: MIT
// The plot text file of the field crews: seven header values, then one row of eight items a
// tree, as a list. Local x, y, z of a plot in metres; the plot is turned counter-clockwise by
// its angle and shifted into the map.
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
  double PlotDX = 0;  // extra shifts
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

/// Degrees to radians by the factor of the field data, 0.0174532925199433.
double Plot_Radians(double degrees);

TreePlace Place_Tree(const PlotHeader& plot, const PlotTree& tree);

class PlotTextReader {
 public:
  /// Reads the header. RunTimeErrors of the list reader, here and below; a row that is cut
  /// short is a RunTimeError(InputPastEnd).
  explicit PlotTextReader(ListReader list);

  [[nodiscard]] const PlotHeader& Header() const { return header_; }

  /// The next tree, nothing at the end of the file.
  std::optional<PlotTree> Next_Tree();

  /// "<file>, line <n>, item <m>" of the diameter and the height read last.
  [[nodiscard]] const std::string& Dbh_Place() const { return dbh_place_; }
  [[nodiscard]] const std::string& Height_Place() const { return height_place_; }

 private:
  ListReader list_;
  PlotHeader header_;
  std::string dbh_place_;
  std::string height_place_;
};

}  // namespace sylvomex
