// SPDX-License-Identifier: MIT
#include "demo/table/detection_table.h"

#include <algorithm>
#include <cmath>
#include <sstream>

#include "demo/table/truth_file.h"
#include "demo/write/exact_text.h"
#include "platform/number_text.h"
#include "platform/run_time_error.h"

namespace sylvomex::demo {
namespace {

constexpr double kDominantHeight = 17;  // metres
constexpr int kLeastPhotos = 4;
constexpr double kReach = 1.5;  // metres in plan between a cluster and its tree

double Distance(const Point3D& a, const Point3D& b) { return std::hypot(a.X - b.X, a.Y - b.Y); }

bool Is_In_Plot(const Point3D& point, const SearchedPlot& plot) {
  return Distance(point, {plot.X, plot.Y, 0}) <= plot.radius;
}

struct Pair {
  double distance = 0;
  std::size_t tree = 0, cluster = 0;
};

std::vector<Pair> Pairs_In_Reach(const std::vector<Point3D>& clusters,
                                 const std::vector<TrueTree>& truth) {
  std::vector<Pair> pairs;
  for (std::size_t t = 0; t < truth.size(); ++t) {
    for (std::size_t c = 0; c < clusters.size(); ++c) {
      const double distance = Distance(truth[t].top, clusters[c]);
      if (distance <= kReach) pairs.push_back({distance, t, c});
    }
  }
  std::sort(pairs.begin(), pairs.end(),
            [](const Pair& a, const Pair& b) { return a.distance < b.distance; });
  return pairs;
}

std::string Rest_Of_Line(const std::string& text, const std::string& beginning) {
  const std::size_t at = text.find("\n" + beginning);
  if (at == std::string::npos) {
    throw RunTimeError(Failure::BadContent, "the transcript has no line " + beginning);
  }
  const std::size_t from = at + 1 + beginning.size();
  return text.substr(from, text.find('\n', from) - from);
}

std::string Share(std::size_t part, std::size_t whole) {
  if (whole == 0) return std::to_string(part);
  return std::to_string(part) + " (" +
         Fixed_Decimals(100 * static_cast<double>(part) / static_cast<double>(whole), 0) + " %)";
}

}  // namespace

TopMatching Match_One_To_One(const std::vector<Point3D>& clusters,
                             const std::vector<TrueTree>& truth) {
  TopMatching matching{std::vector<std::optional<std::size_t>>(truth.size()),
                       std::vector<bool>(clusters.size(), false)};
  for (const Pair& pair : Pairs_In_Reach(clusters, truth)) {
    if (matching.cluster_of[pair.tree] || matching.is_taken[pair.cluster]) continue;
    matching.cluster_of[pair.tree] = pair.cluster;
    matching.is_taken[pair.cluster] = true;
  }
  return matching;
}

bool Is_Dominant_And_Visible(const TrueTree& tree) {
  return tree.height >= kDominantHeight && tree.photos >= kLeastPhotos;
}

std::vector<TrueTree> Read_True_Trees(const FilePath& file) {
  const TruthFile truth = Read_Truth_File(file);
  std::vector<std::size_t> shown;
  for (std::size_t column = 0; column < truth.names.size(); ++column) {
    if (truth.names[column].starts_with("visible_")) shown.push_back(column);
  }
  const std::size_t X = truth.Column("X"), Y = truth.Column("Y"), Z = truth.Column("top_Z"),
                    height = truth.Column("height");
  std::vector<TrueTree> trees;
  for (const std::vector<std::string>& fields : truth.lines) {
    TrueTree tree{{Parse_Double(fields[X]), Parse_Double(fields[Y]), Parse_Double(fields[Z])},
                  Parse_Double(fields[height]),
                  0};
    for (const std::size_t column : shown) tree.photos += Parse_Int32(fields[column]);
    trees.push_back(tree);
  }
  return trees;
}

std::vector<Point3D> Read_Clusters(const FilePath& nodes) {
  ListReader list(nodes);
  std::vector<Point3D> clusters;
  while (!list.At_End()) {
    list.Read_Int32();
    Point3D point;
    point.X = list.Read_Double();
    point.Y = list.Read_Double();
    point.Z = list.Read_Double();
    clusters.push_back(point);
  }
  return clusters;
}

SearchedPlot Read_Searched_Plot(const std::string& transcript) {
  SearchedPlot plot;
  std::istringstream centre(Rest_Of_Line(transcript, "PlotCenter = "));
  std::string id, rotation, X, Y;
  centre >> id >> rotation >> X >> Y;
  plot.X = Parse_Double(X);
  plot.Y = Parse_Double(Y);
  plot.radius = Parse_Double(Rest_Of_Line(transcript, "PlotRadius = "));
  return plot;
}

DetectionTable Compare_Clusters(const std::vector<Point3D>& clusters,
                                const std::vector<TrueTree>& truth, const SearchedPlot& plot) {
  const TopMatching matching = Match_One_To_One(clusters, truth);
  DetectionTable table;
  double squares_xy = 0, squares_z = 0;
  for (std::size_t t = 0; t < truth.size(); ++t) {
    if (!Is_In_Plot(truth[t].top, plot)) continue;
    ++table.trees;
    if (!Is_Dominant_And_Visible(truth[t])) continue;
    ++table.visible;
    if (!matching.cluster_of[t]) continue;
    ++table.found;
    const Point3D& at = clusters[*matching.cluster_of[t]];
    squares_xy += std::pow(Distance(at, truth[t].top), 2);
    squares_z += std::pow(at.Z - truth[t].top.Z, 2);
  }
  for (std::size_t c = 0; c < clusters.size(); ++c) {
    if (!Is_In_Plot(clusters[c], plot)) continue;
    ++table.clusters;
    if (!matching.is_taken[c]) ++table.wrong;
  }
  if (table.found > 0) {
    table.rmse_xy = std::sqrt(squares_xy / static_cast<double>(table.found));
    table.rmse_z = std::sqrt(squares_z / static_cast<double>(table.found));
  }
  return table;
}

std::string Table_Text(const DetectionTable& table) {
  return "trees in the plot       " + std::to_string(table.trees) + "\nvisible dominant trees  " +
         std::to_string(table.visible) + "\n  found                 " +
         Share(table.found, table.visible) + "\n  missed                " +
         std::to_string(table.visible - table.found) + "\nclusters in the plot    " +
         std::to_string(table.clusters) + "\n  false                 " +
         Share(table.wrong, table.clusters) + "\nRMSE XY                 " +
         Fixed_Decimals(table.rmse_xy, 2) + " m\nRMSE Z                  " +
         Fixed_Decimals(table.rmse_z, 2) + " m\n";
}

}  // namespace sylvomex::demo
