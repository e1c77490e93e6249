// SPDX-License-Identifier: MIT
#include <array>
#include <cstring>
#include <optional>

#include "interchange/failures.h"
#include "interchange/record_tables.h"
#include "overlays/field_tree_file.h"
#include "overlays/plot_text.h"
#include "platform/files.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

constexpr std::size_t kHeaderBytes = 60, kTreeBytes = 76;

/// Whether a file is as long as its count of trees says.
bool Is_Tree_File(const FilePath& file) {
  const PositionalFile bytes(file);
  std::array<std::uint8_t, 4> start{};
  if (bytes.Size() < kHeaderBytes || bytes.Read_At(0, start) != start.size()) return false;
  std::int32_t count = 0;
  std::memcpy(&count, start.data(), sizeof count);
  return count > 0 && bytes.Size() == kHeaderBytes + kTreeBytes * static_cast<std::uint64_t>(count);
}

PointTable Binary_Trees(const FilePath& file, const Site& site) {
  PointTable table;
  table.columns = {{"X"},
                   {"Y"},
                   {"Z"},
                   {"BaseZ"},
                   {"GroundZ"},
                   {"Dbh"},
                   {"TreeHeight"},
                   {"TreeId", ColumnKind::Integer},
                   {"TreeSpecies", ColumnKind::Integer},
                   {"TreeCode", ColumnKind::Integer},
                   {"StemVolume"}};
  for (const FieldTree& tree : Read_Field_Trees(file)) {
    const Point3D at = site.World({tree.MapX, tree.MapY, tree.TopZ});
    table.rows.push_back({at,
                          {at.X, at.Y, at.Z, tree.BaseZ, tree.GroundZ, tree.Dbh, tree.TreeHeight,
                           static_cast<double>(tree.TreeId), static_cast<double>(tree.TreeSpecies),
                           static_cast<double>(tree.TreeCode), tree.StemVolume}});
  }
  return table;
}

PointTable Plot_Trees(const FilePath& file, const Site& site) {
  PointTable table;
  table.columns = {{"X"},
                   {"Y"},
                   {"Z"},
                   {"BaseZ"},
                   {"LocalX"},
                   {"LocalY"},
                   {"LocalZ"},
                   {"Dbh"},
                   {"TreeHeight"},
                   {"TreeId", ColumnKind::Integer},
                   {"TreeSpecies", ColumnKind::Integer},
                   {"TreeCode", ColumnKind::Integer}};
  PlotTextReader reader{ListReader(file)};
  while (const std::optional<PlotTree> tree = reader.Next_Tree()) {
    const TreePlace place = Place_Tree(reader.Header(), *tree);
    const Point3D at = site.World({place.MapX, place.MapY, place.TopZ});
    table.rows.push_back(
        {at,
         {at.X, at.Y, at.Z, place.BaseZ, tree->LocalX, tree->LocalY, tree->LocalZ, tree->Dbh,
          tree->TreeHeight, static_cast<double>(tree->TreeId),
          static_cast<double>(tree->TreeSpecies), static_cast<double>(tree->TreeCode)}});
  }
  return table;
}

}  // namespace

PointTable Read_Trees(const FilePath& file, const Site& site) try {
  return Is_Tree_File(file) ? Binary_Trees(file, site) : Plot_Trees(file, site);
} catch (const RunTimeError& error) {
  throw Refused(error.what());
}

}  // namespace sylvomex
