// SPDX-License-Identifier: MIT
// How well a plot's tree tops were found: the clusters of a search against the truth of the site.
#pragma once

#include <string>
#include <vector>

#include "platform/list_reader.h"
#include "solver/space_intersection.h"

namespace sylvomex::demo {

struct TrueTree {
  Point3D top;        // metres
  double height = 0;  // above ground
  int photos = 0;     // that show its top
};

/// Trees of truth.csv, by the column names. RunTimeError naming the file as Read_True_Tops.
std::vector<TrueTree> Read_True_Trees(const FilePath& truth);

/// Cluster positions of a node file: number, X, Y, Z a line.
std::vector<Point3D> Read_Clusters(const FilePath& nodes);

struct SearchedPlot {
  double X = 0, Y = 0;
  double radius = 0;
};

/// The plot that a transcript tells by its lines "PlotCenter = ..." and "PlotRadius = ...".
/// RunTimeError(BadContent) without one of them.
SearchedPlot Read_Searched_Plot(const std::string& transcript);

/// Dominant: 17 m and more; visible: its top on at least four photographs. A cluster belongs to
/// a tree within 1.5 m in plan, one to one, nearest pairs first. A false cluster lies in the plot
/// and belongs to no tree of any height.
struct DetectionTable {
  std::size_t trees = 0;     // in the plot, of any height
  std::size_t visible = 0;   // dominant and visible ones in the plot
  std::size_t found = 0;     // of the visible ones
  std::size_t clusters = 0;  // in the plot
  std::size_t wrong = 0;     // false ones
  double rmse_xy = 0;        // of the found ones, metres
  double rmse_z = 0;
};

DetectionTable Compare_Clusters(const std::vector<Point3D>& clusters,
                                const std::vector<TrueTree>& truth, const SearchedPlot& plot);

/// The table as aligned text.
std::string Table_Text(const DetectionTable& table);

}  // namespace sylvomex::demo
