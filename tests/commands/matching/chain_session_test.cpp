// SPDX-License-Identifier: MIT
// The whole matching chain by script, compared with plain computations from the files that it
// writes: correlation by its definition, collinearity of a vertical camera, geometric mean,
// clusters by a linear search.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>
#include <sstream>

#include "commands/matching/matching_site.h"
#include "support/session_run.h"

namespace sylvomex {
namespace {

constexpr int kPoints = 15 * 15 * 5;
constexpr double kScoreLimit = 0.4;

struct PlainPicture {
  int width = 0, height = 0, reference_col = 0, reference_row = 0;
  std::string pixels;
  [[nodiscard]] int At(int col, int row) const {
    return static_cast<unsigned char>(pixels[static_cast<std::size_t>(row * width + col)]);
  }
};

PlainPicture Read_Picture(const TemporaryFolder& folder, const std::string& name) {
  PlainPicture picture;
  std::istringstream numbers(folder.Read("c/data/" + name + ".img"));
  numbers >> picture.width >> picture.height >> picture.reference_col >> picture.reference_row;
  picture.pixels = folder.Read("c/data/" + name + ".raw");
  return picture;
}

// Pearson's coefficient over the template's non-zero pixels, its reference on (col, row).
double Plain_Correlation(const PlainPicture& patch, const PlainPicture& pattern, int col, int row) {
  std::vector<double> a, b;
  for (int j = 0; j < pattern.height; ++j) {
    for (int i = 0; i < pattern.width; ++i) {
      if (pattern.At(i, j) == 0) continue;
      const int c = col + i - pattern.reference_col, r = row + j - pattern.reference_row;
      if (c < 0 || r < 0 || c >= patch.width || r >= patch.height) return 0;
      a.push_back(pattern.At(i, j));
      b.push_back(patch.At(c, r));
    }
  }
  const auto n = static_cast<double>(a.size());
  const double mean_a = std::accumulate(a.begin(), a.end(), 0.0) / n;
  const double mean_b = std::accumulate(b.begin(), b.end(), 0.0) / n;
  double ab = 0, aa = 0, bb = 0;
  for (std::size_t k = 0; k < a.size(); ++k) {
    ab += (a[k] - mean_a) * (b[k] - mean_b);
    aa += (a[k] - mean_a) * (a[k] - mean_a);
    bb += (b[k] - mean_b) * (b[k] - mean_b);
  }
  return aa > 0 && bb > 0 ? ab / std::sqrt(aa * bb) : 0;
}

Point3D Plain_Mesh_Point(int j) {
  return {static_cast<double>(-4 + j / 75), static_cast<double>(-4 + j / 5 % 15), 8.9 + j % 5};
}

std::string Script() {
  std::ostringstream script;
  script.precision(17);
  script << Loading_Steps();
  const auto set_solution = [&script](const Point3D& p) {
    script << "input " << p.X << "\ninput " << p.Y << "\ninput " << p.Z
           << "\nmenu Set_3D_solution\n";
  };
  set_solution(kPlotCentre);
  script << "menu Read_plot_center_data\nset Text4 6\nset Text10 1\nset Text3 " << kScoreLimit
         << "\n";
  set_solution(kSiteTops[0]);
  script << "menu Capture_templates\nmenu Compute_Correlation_Images\nmenu Create_XYZ_Point_Set\n"
            "menu Compute_Back_Projections\nmenu Find_clusters\nprint Label10\n"
            "print PlotCenter\nprint PlotRadius\nprint ModelTreeHeight\nprint ClusterParameters\n"
            "print MeshPoints.Count\nprint ClusterCount\nprint Template(1).ShiftCol\n"
            "print CorrelationRecords(0).SubRowOrigin\n";
  for (int j = 0; j < kPoints; ++j) {
    script << "print MeshPoints(" << j << ")\nprint PointScore(" << j + 1 << ")\nprint SortIndex("
           << j + 1 << ")\n";
  }
  for (int i = 1; i <= 4; ++i) {
    script << "print ClusterSum(" << i << ")\nprint ClusterWeight(" << i << ")\nprint ClusterInfo("
           << i << ")\n";
  }
  return script.str();
}

struct PlayedChain : testing::Test {
  MatchingFiles files;
  PlayedSession played = Play_Script(files.site.Folder(), Script());
  std::map<std::string, std::string> values;

  PlayedChain() {
    std::istringstream lines(played.transcript);
    for (std::string line; std::getline(lines, line);) {
      const std::size_t equals = line.find(" = ");
      if (equals != std::string::npos) values[line.substr(0, equals)] = line.substr(equals + 3);
    }
  }

  std::vector<double> Numbers(const std::string& name) {
    std::istringstream stream(values[name]);
    std::vector<double> numbers;
    for (double number; stream >> number;) numbers.push_back(number);
    return numbers;
  }
  double Number(const std::string& name, int index) {
    return Numbers(name + "(" + std::to_string(index) + ")").at(0);
  }
};

TEST_F(PlayedChain, RunsToItsEndAndReportsItsState) {
  EXPECT_EQ(played.status, 0) << played.reason << played.transcript;
  EXPECT_EQ(values["PlotCenter"], "T1 0 3 3 2");
  EXPECT_EQ(values["PlotRadius"], "6");
  EXPECT_EQ(values["MeshPoints.Count"], std::to_string(kPoints));
  EXPECT_EQ(values["Template(1).ShiftCol"], "0");
  EXPECT_EQ(values["CorrelationRecords(0).SubRowOrigin"], "680");
  EXPECT_EQ(values["Label10"], "Fd 4 cs, 4 in plot r=6.0");
  const std::vector<double> parameters = Numbers("ClusterParameters");
  ASSERT_EQ(parameters.size(), 18U);
  EXPECT_NEAR(parameters[17], 8.9, 1e-12);
}

TEST_F(PlayedChain, ScoresMatchThePlainComputation) {
  std::vector<PlainPicture> patches, patterns;
  for (int k = 0; k < 3; ++k) {
    patches.push_back(Read_Picture(files.site.Folder(), "ccor_ima" + std::to_string(k)));
    patterns.push_back(Read_Picture(files.site.Folder(), "temp" + std::to_string(k)));
  }
  // First columns of the patches: 150 before the plot's column 500 + 2000 (3 - X0) / 198.
  const int first_cols[] = {833 - 150, 530 - 150, 227 - 150};
  constexpr int kTopRow = 470 - 150;
  for (int j = 0; j < kPoints; ++j) {
    const Point3D point = Plain_Mesh_Point(j);
    const std::vector<double> printed = Numbers("MeshPoints(" + std::to_string(j) + ")");
    ASSERT_EQ(printed.size(), 3U);
    EXPECT_EQ(printed[0], point.X);
    EXPECT_EQ(printed[1], point.Y);
    EXPECT_NEAR(printed[2], point.Z, 1e-9);
    double product = 1;
    for (int k = 0; k < 3; ++k) {
      const int col = static_cast<int>(std::nearbyint(Site_Col(k, point))) - first_cols[k];
      const int row = static_cast<int>(std::nearbyint(1000 - Site_Row(point))) - kTopRow;
      const auto image = static_cast<std::size_t>(k);
      product *= 1 + Plain_Correlation(patches[image], patterns[image], col, row);
    }
    EXPECT_NEAR(Number("PointScore", j + 1), std::cbrt(product), 1e-5) << j;
  }
}

TEST_F(PlayedChain, TheIndexOrdersScoresAndTiesByMeshOrder) {
  for (int k = 1; k < kPoints; ++k) {
    const auto a = static_cast<int>(Number("SortIndex", k));
    const auto b = static_cast<int>(Number("SortIndex", k + 1));
    const double score_a = Number("PointScore", a), score_b = Number("PointScore", b);
    EXPECT_TRUE(score_a < score_b || (score_a == score_b && a < b)) << k;
  }
}

struct PlainCluster {
  Point3D sum;
  double weight = 0;
  int members = 0;
};

std::vector<PlainCluster> Plain_Clusters(const std::vector<std::pair<double, int>>& ascending) {
  std::vector<PlainCluster> clusters;
  for (auto entry = ascending.rbegin(); entry != ascending.rend(); ++entry) {
    const double weight = entry->first - 1;
    if (weight < kScoreLimit) break;
    const Point3D point = Plain_Mesh_Point(entry->second);
    PlainCluster* nearest = nullptr;
    double least = 1.5;
    for (PlainCluster& cluster : clusters) {
      const double distance = std::hypot(cluster.sum.X / cluster.weight - point.X,
                                         cluster.sum.Y / cluster.weight - point.Y);
      if (distance >= least) continue;
      least = distance;
      nearest = &cluster;
    }
    if (nearest == nullptr) nearest = &clusters.emplace_back();
    nearest->sum.X += weight * point.X;
    nearest->sum.Y += weight * point.Y;
    nearest->sum.Z += weight * point.Z;
    nearest->weight += weight;
    ++nearest->members;
  }
  return clusters;
}

TEST_F(PlayedChain, ClustersMatchALinearSearch) {
  std::vector<std::pair<double, int>> ascending;
  for (int k = 1; k <= kPoints; ++k) {
    const auto entry = static_cast<int>(Number("SortIndex", k));
    ascending.emplace_back(Number("PointScore", entry), entry - 1);
  }
  const std::vector<PlainCluster> plain = Plain_Clusters(ascending);
  ASSERT_EQ(values["ClusterCount"], std::to_string(plain.size()));
  for (std::size_t i = 0; i < plain.size(); ++i) {
    const std::string index = "(" + std::to_string(i + 1) + ")";
    const std::vector<double> sum = Numbers("ClusterSum" + index);
    ASSERT_EQ(sum.size(), 3U);
    EXPECT_NEAR(sum[0], plain[i].sum.X, 1e-6);
    EXPECT_NEAR(sum[1], plain[i].sum.Y, 1e-6);
    EXPECT_NEAR(sum[2], plain[i].sum.Z, 1e-6);
    EXPECT_NEAR(Numbers("ClusterWeight" + index).at(0), plain[i].weight, 1e-6);
    EXPECT_EQ(values["ClusterInfo" + index], "0 " + std::to_string(plain[i].members));
  }
}

TEST_F(PlayedChain, FindsTheTreesOfThePlot) {
  std::istringstream nodes(files.site.Folder().Read("c/data/testi_89_manual2.nod"));
  std::vector<Point3D> found;
  for (std::string line; std::getline(nodes, line);) {
    std::replace(line.begin(), line.end(), ',', ' ');
    std::istringstream fields(line);
    int number = 0;
    Point3D top;
    fields >> number >> top.X >> top.Y >> top.Z;
    found.push_back(top);
    EXPECT_EQ(number, static_cast<int>(found.size()));
  }
  ASSERT_EQ(found.size(), kSiteTops.size());
  for (const Point3D& top : kSiteTops) {
    EXPECT_TRUE(std::any_of(found.begin(), found.end(),
                            [&top](const Point3D& at) {
                              return std::hypot(at.X - top.X, at.Y - top.Y) < 0.5 &&
                                     std::abs(at.Z - top.Z) < 1;
                            }))
        << top.X << " " << top.Y;
  }
}

TEST_F(MatchingSite, ValuesOfTheChainOutsideTheirTablesAreErrors) {
  for (const char* name : {"MeshPoints(0)", "PointScore(1)", "SortIndex(-1)", "ClusterSum(2001)",
                           "ClusterWeight(-1)", "ClusterInfo(2001)", "Template(9).CenterX"}) {
    const PlayedSession played =
        Play_Script(files.site.Folder(), std::string("print ") + name + "\n");
    EXPECT_NE(played.status, 0) << name;
  }
}

}  // namespace
}  // namespace sylvomex
