// SPDX-License-Identifier: MIT
// Detection rate of a plot's tree tops: the clusters of a search compared with the truth of the
// site.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/list_reader.h"
#include "solver/space_intersection.h"

namespace sylvomex::demo {

struct TrueTree {
  Point3D top;        // metres
  double height = 0;  // above ground
  int photos = 0;     // number that show its top
};

/// The trees in truth.csv, found by the column names. RunTimeError naming the file as for
/// Read_True_Tops.
std::vector<TrueTree> Read_True_Trees(const FilePath& truth);

/// Cluster positions of a node file; one line each: number, X, Y, Z.
std::vector<Point3D> Read_Clusters(const FilePath& nodes);

struct SearchedPlot {
  double X = 0, Y = 0;
  double radius = 0;
};

/// The plot given in a transcript by its lines "PlotCenter = ..." and "PlotRadius = ...".
/// RunTimeError(BadContent) when one is missing.
SearchedPlot Read_Searched_Plot(const std::string& transcript);

/// One to one, nearest pairs first, within 1.5 m in plan.
struct TopMatching {
  std::vector<std::optional<std::size_t>> cluster_of;  // of each tree
  std::vector<bool> is_taken;                          // whether a cluster has a tree
};

TopMatching Match_One_To_One(const std::vector<Point3D>& clusters,
                             const std::vector<TrueTree>& truth);

/// Whether a search should find the tree: 17 m or more, its top on at least four photographs.
bool Is_Dominant_And_Visible(const TrueTree& tree);

/// Dominant: 17 m or more; visible: top on at least four photographs. A cluster is matched to
/// a tree within 1.5 m in plan, one to one, nearest pairs first. A false cluster lies in the plot
/// and is matched to no tree of any height.
struct DetectionTable {
  std::size_t trees = 0;     // in the plot, of any height
  std::size_t visible = 0;   // dominant and visible trees in the plot
  std::size_t found = 0;     // of the visible ones
  std::size_t clusters = 0;  // in the plot
  std::size_t wrong = 0;     // false clusters
  double rmse_xy = 0;        // of the found ones, metres
  double rmse_z = 0;
};

DetectionTable Compare_Clusters(const std::vector<Point3D>& clusters,
                                const std::vector<TrueTree>& truth, const SearchedPlot& plot);

/// The table as aligned text.
std::string Table_Text(const DetectionTable& table);

}  // namespace sylvomex::demo
