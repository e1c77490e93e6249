// SPDX-License-Identifier: MIT
#include "overlays/plot_text.h"

#include <cmath>
#include <utility>

namespace sylvomex {

double Plot_Radians(double degrees) { return degrees * 0.0174532925199433; }

TreePlace Place_Tree(const PlotHeader& plot, const PlotTree& tree) {
  const double angle = Plot_Radians(plot.PlotAngle);
  const double sin_a = std::sin(angle);
  const double cos_a = std::cos(angle);
  TreePlace place;
  place.MapX = (tree.LocalX * cos_a - tree.LocalY * sin_a) + plot.PlotX0 + plot.PlotDX;
  place.MapY = (tree.LocalX * sin_a + tree.LocalY * cos_a) + plot.PlotY0 + plot.PlotDY;
  place.BaseZ = plot.PlotZ0 + tree.LocalZ + plot.PlotDZ;
  place.TopZ = tree.TreeHeight + place.BaseZ;
  return place;
}

PlotTextReader::PlotTextReader(ListReader list) : list_(std::move(list)) {
  for (double* value : {&header_.PlotAngle, &header_.PlotX0, &header_.PlotY0, &header_.PlotZ0,
                        &header_.PlotDX, &header_.PlotDY, &header_.PlotDZ}) {
    *value = list_.Read_Double();
  }
}

std::optional<PlotTree> PlotTextReader::Next_Tree() {
  if (list_.At_End()) return std::nullopt;
  PlotTree tree;
  tree.LocalX = list_.Read_Double();
  tree.LocalY = list_.Read_Double();
  tree.LocalZ = list_.Read_Double();
  tree.Dbh = list_.Read_Double();
  dbh_place_ = list_.Where();
  tree.TreeHeight = list_.Read_Double();
  height_place_ = list_.Where();
  tree.TreeId = list_.Read_Int32();
  tree.TreeSpecies = list_.Read_Int32();
  tree.TreeCode = list_.Read_Int32();
  return tree;
}

}  // namespace sylvomex
