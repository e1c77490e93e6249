// SPDX-License-Identifier: MIT
#include "overlays/field_tree_file.h"

#include <bit>

namespace sylvomex {
namespace {

template <class Unsigned>
void Append_Little_Endian(std::vector<std::uint8_t>& bytes, Unsigned value) {
  for (std::size_t i = 0; i < sizeof value; ++i) {
    bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
  }
}

}  // namespace

FieldTreeFile::FieldTreeFile(std::int32_t tree_count, const PlotHeader& plot) {
  Put(tree_count);
  Put(Plot_Radians(plot.PlotAngle));
  for (const double value :
       {plot.PlotX0, plot.PlotY0, plot.PlotZ0, plot.PlotDX, plot.PlotDY, plot.PlotDZ}) {
    Put(value);
  }
}

void FieldTreeFile::Add(const FieldTree& tree) {
  for (const double value :
       {tree.MapX, tree.MapY, tree.TopZ, tree.BaseZ, tree.GroundZ, tree.Dbh, tree.TreeHeight}) {
    Put(value);
  }
  for (const std::int32_t value : {tree.TreeId, tree.TreeSpecies, tree.TreeCode}) Put(value);
  Put(tree.StemVolume);
}

void FieldTreeFile::Put(std::int32_t value) {
  Append_Little_Endian(bytes_, std::bit_cast<std::uint32_t>(value));
}

void FieldTreeFile::Put(double value) {
  Append_Little_Endian(bytes_, std::bit_cast<std::uint64_t>(value));
}

}  // namespace sylvomex
