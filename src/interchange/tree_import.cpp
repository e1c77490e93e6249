// SPDX-License-Identifier: MIT
#include "interchange/tree_import.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "heightmodels/raster_model.h"
#include "interchange/csv_table.h"
#include "interchange/failures.h"
#include "interchange/site.h"
#include "interchange/vector_table.h"
#include "overlays/plot_text.h"
#include "platform/files.h"
#include "platform/number_text.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

constexpr double kLowestForVolume = 1.3;  // metres
constexpr double kPerMetre = 1e4;         // steps of coordinates

/// The values of a row by the names of the plot file.
class TreeValues {
 public:
  TreeValues(const VectorTable& table, const TreeColumns& columns) : table_(table) {
    for (const auto& [name, column] : columns) index_[name] = table.Column(column);
  }

  [[nodiscard]] bool Has(const std::string& name) const { return index_.contains(name); }

  /// The number of a mapped column; `otherwise` where it is not mapped or empty.
  [[nodiscard]] double Number(const VectorTable::Row& row, const std::string& name,
                              std::optional<double> otherwise) const {
    const auto found = index_.find(name);
    const std::string text = found == index_.end() ? "" : row.values[found->second];
    if (Without_Blanks_Around(text).empty() && otherwise) return *otherwise;
    try {
      const double value = Parse_Double(text);
      if (std::isfinite(value)) return value;
    } catch (const RunTimeError&) {  // told below
    }
    throw Refused(Place(row, name) + ": " + Quoted_For_Message(text) + " is no number");
  }

  [[nodiscard]] std::int32_t Whole(const VectorTable::Row& row, const std::string& name,
                                   double otherwise) const {
    const double value = Number(row, name, otherwise);
    if (value != std::floor(value) || std::abs(value) > 2147483647.0) {
      throw Refused(Place(row, name) + ": " + Plain_Text(value) + " is no whole number of 32 bits");
    }
    return static_cast<std::int32_t>(value);
  }

  [[nodiscard]] std::int32_t Species(const VectorTable::Row& row) const {
    static const std::map<std::string, std::int32_t> kNames = {
        {"pine", 1}, {"pinus sylvestris", 1}, {"spruce", 2}, {"picea abies", 2}, {"birch", 3}};
    const auto found = index_.find("treespecies");
    if (found != index_.end()) {
      const auto name = kNames.find(Lower(row.values[found->second]));
      if (name != kNames.end()) return name->second;
    }
    return Whole(row, "treespecies", 0);
  }

 private:
  [[nodiscard]] std::string Place(const VectorTable::Row& row, const std::string& name) const {
    return row.where + ", column " + table_.columns[index_.at(name)];
  }

  const VectorTable& table_;
  std::map<std::string, std::size_t> index_;
};

Point3D World_Place(const VectorTable::Row& row, const TreeValues& values) {
  if (values.Has("x") && values.Has("y")) {
    return {values.Number(row, "x", std::nullopt), values.Number(row, "y", std::nullopt), 0};
  }
  if (row.at) return *row.at;
  throw Refused(row.where + ": the tree has no position; map X and Y to columns");
}

/// The site's terrain model, if it has one.
std::optional<RasterModel> Terrain_Of(const Site& site) {
  const FilePath header = site.Drives().Locate("c:\\data\\models\\dem.hdr");
  if (!File_Exists(header)) return std::nullopt;
  RasterModel model;
  Read_Raster_Header(header, model);
  Dimension_Cells(model);
  (void)Read_Cells(site.Drives().Locate(model.CellFile.Trimmed()), model);
  return model;
}

struct ReadTrees {
  std::vector<PlotTree> trees;  // LocalX and LocalY in world coordinates until they are placed
  MapExtent extent{1e300, 1e300, -1e300, -1e300};
  std::uint64_t low = 0;  // without a stem volume
};

ReadTrees Read_All(const VectorTable& table, const TreeValues& values) {
  ReadTrees read;
  for (const VectorTable::Row& row : table.rows) {
    const Point3D at = World_Place(row, values);
    PlotTree tree;
    tree.LocalX = at.X;
    tree.LocalY = at.Y;
    tree.LocalZ = values.Number(row, "z", 0);
    tree.Dbh = values.Number(row, "dbh", 0);
    tree.TreeHeight = values.Number(row, "treeheight", std::nullopt);
    tree.TreeId = values.Whole(row, "treeid", static_cast<double>(read.trees.size() + 1));
    tree.TreeSpecies = values.Species(row);
    tree.TreeCode = values.Whole(row, "treecode", 0);
    if (tree.TreeHeight <= kLowestForVolume) ++read.low;
    read.extent = {std::min(read.extent.west, at.X), std::min(read.extent.south, at.Y),
                   std::max(read.extent.east, at.X), std::max(read.extent.north, at.Y)};
    read.trees.push_back(tree);
  }
  return read;
}

/// Brings the trees to a local system whose origin is a whole metre south-west of them.
PlotHeader Place_Locally(const Site& site, bool has_Z, ReadTrees& read, TreeReport& report) {
  const std::optional<RasterModel> terrain = has_Z ? std::nullopt : Terrain_Of(site);
  if (!has_Z) {
    report.notes.emplace_back(terrain ? "the bases of the trees are taken from the terrain model"
                                      : "no Z is mapped and the site has no terrain model; the "
                                        "bases of the trees are at 0");
  }
  const Point3D origin = site.Working({read.extent.west, read.extent.south, 0});
  PlotHeader plot;
  plot.PlotX0 = std::floor(origin.X);
  plot.PlotY0 = std::floor(origin.Y);
  const auto rounded = [](double value) { return std::round(value * kPerMetre) / kPerMetre; };
  for (PlotTree& tree : read.trees) {
    const Point3D at = site.Working({tree.LocalX, tree.LocalY, 0});
    if (terrain) {
      const double height = Raster_Height(*terrain, at.X, at.Y);
      tree.LocalZ = Is_No_Data(height) ? 0 : height;
    }
    tree.LocalX = rounded(at.X - plot.PlotX0);
    tree.LocalY = rounded(at.Y - plot.PlotY0);
  }
  return plot;
}

std::string Plot_Text(const PlotHeader& plot, const std::vector<PlotTree>& trees) {
  std::string text = "0," + Plain_Text(plot.PlotX0) + "," + Plain_Text(plot.PlotY0) + ",0,0,0,0\n";
  for (const PlotTree& tree : trees) {
    for (const double value : {tree.LocalX, tree.LocalY, tree.LocalZ, tree.Dbh, tree.TreeHeight}) {
      text += Plain_Text(value) + ",";
    }
    text += Plain_Text(tree.TreeId) + "," + Plain_Text(tree.TreeSpecies) + "," +
            Plain_Text(tree.TreeCode) + "\n";
  }
  return text;
}

/// X, Y, diameter, species, height, number, and 1, the mark of a tree to be drawn.
std::string Vector_Text(const PlotHeader& plot, const std::vector<PlotTree>& trees) {
  std::string text;
  for (const PlotTree& tree : trees) {
    text += Plain_Text(plot.PlotX0 + tree.LocalX) + "," + Plain_Text(plot.PlotY0 + tree.LocalY) +
            "," + Plain_Text(tree.Dbh) + "," + Plain_Text(tree.TreeSpecies) + "," +
            Plain_Text(tree.TreeHeight) + "," + Plain_Text(tree.TreeId) + ",1\n";
  }
  return text;
}

}  // namespace

const std::vector<std::string>& Tree_Column_Names() {
  static const std::vector<std::string> kNames = {
      "X", "Y", "Z", "Dbh", "TreeHeight", "TreeId", "TreeSpecies", "TreeCode"};
  return kNames;
}

TreeReport Import_Trees(ImportTransaction& transaction, const std::filesystem::path& file,
                        const TreeColumns& columns) {
  Site& site = transaction.TheSite();
  ImportEntry entry;
  entry.kind = "trees";
  entry.files = Source_Files({file});
  const VectorTable table = Read_Vector_Table(file, site.crs);
  const TreeValues values(table, columns);
  if (!values.Has("treeheight")) throw Refused(table.name + ": no column is mapped to TreeHeight");
  if (table.rows.empty()) throw Refused(table.name + ": the list holds no trees");
  ReadTrees read = Read_All(table, values);
  Take_Extent(site, read.extent, table.name);
  TreeReport report;
  report.trees = read.trees.size();
  const PlotHeader plot = Place_Locally(site, values.Has("z"), read, report);
  if (read.low > 0) {
    report.notes.push_back(std::to_string(read.low) +
                           " trees of 1.3 m or less, which have no stem volume: the conversion to "
                           "binary ends at them");
  }
  const std::string name = "c:\\data\\vektorit\\" + file.stem().string();
  report.plot_file = name + "_plot.txt";
  report.vector_file = name + "_trees.txt";
  const DriveMap drives = site.Drives();
  transaction.Write(drives.Locate(report.plot_file).native, Plot_Text(plot, read.trees));
  transaction.Write(drives.Locate(report.vector_file).native, Vector_Text(plot, read.trees));
  for (const auto& [plot_name, column] : columns) entry.settings[plot_name] = column;
  transaction.Commit(entry);
  return report;
}

}  // namespace sylvomex
