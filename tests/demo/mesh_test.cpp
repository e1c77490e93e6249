// SPDX-License-Identifier: MIT
#include "demo/scene/surface_mesh.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <map>
#include <utility>

#include "demo/scene/counter_random.h"
#include "demo/write/mesh_files.h"
#include "tests/demo/small_scene.h"

namespace sylvomex::demo {
namespace {

const Scene& Site() {
  static const Scene scene = Build_Scene({});
  return scene;
}

const SurfaceMesh& Ground_Mesh() {
  static const SurfaceMesh mesh = Make_Ground_Mesh(Site());
  return mesh;
}

const SurfaceMesh& Canopy_Mesh() {
  static const SurfaceMesh mesh = Make_Canopy_Mesh(Site());
  return mesh;
}

class SiteMesh : public testing::TestWithParam<const SurfaceMesh& (*)()> {};

INSTANTIATE_TEST_SUITE_P(Of, SiteMesh, testing::Values(&Ground_Mesh, &Canopy_Mesh),
                         [](const auto& made) {
                           return made.param == &Ground_Mesh ? "Ground" : "Canopy";
                         });

const MeshNode& Node(const SurfaceMesh& mesh, std::int32_t i) {
  return mesh.nodes.at(static_cast<std::size_t>(i));
}

double Double_Area(const SurfaceMesh& mesh, const std::array<std::int32_t, 3>& t) {
  const MeshNode &a = Node(mesh, t[0]), &b = Node(mesh, t[1]), &c = Node(mesh, t[2]);
  return (b.X - a.X) * (c.Y - a.Y) - (b.Y - a.Y) * (c.X - a.X);
}

struct Box {
  double west = 1e30, south = 1e30, east = -1e30, north = -1e30;
};

Box Box_Of(const SurfaceMesh& mesh) {
  Box box;
  for (const MeshNode& node : mesh.nodes) {
    box = {std::min(box.west, node.X), std::min(box.south, node.Y), std::max(box.east, node.X),
           std::max(box.north, node.Y)};
  }
  return box;
}

TEST_P(SiteMesh, NoTriangleIsDegenerateOrFlatAtZero) {
  const SurfaceMesh& mesh = GetParam()();
  for (const auto& t : mesh.triangles) {
    ASSERT_GT(Double_Area(mesh, t), 0.5);
    ASSERT_GT(Node(mesh, t[0]).Z + Node(mesh, t[1]).Z + Node(mesh, t[2]).Z, 300);
  }
}

TEST_P(SiteMesh, IsADiscByEulersCount) {
  const SurfaceMesh& mesh = GetParam()();
  std::map<std::pair<std::int32_t, std::int32_t>, int> uses;
  for (const auto& t : mesh.triangles) {
    for (std::size_t i = 0; i < 3; ++i) ++uses[std::minmax(t[i], t[(i + 1) % 3])];
  }
  const auto vertices = static_cast<std::int64_t>(mesh.nodes.size());
  EXPECT_EQ(vertices - static_cast<std::int64_t>(uses.size()) +
                static_cast<std::int64_t>(mesh.triangles.size()),
            1);
  const Box box = Box_Of(mesh);
  for (const auto& [edge, count] : uses) {
    const MeshNode &a = Node(mesh, edge.first), &b = Node(mesh, edge.second);
    const bool on_border = (a.X == b.X && (a.X == box.west || a.X == box.east)) ||
                           (a.Y == b.Y && (a.Y == box.south || a.Y == box.north));
    ASSERT_EQ(count, on_border ? 1 : 2);
  }
}

TEST_P(SiteMesh, AreasAddUpToTheSquareThatItCovers) {
  const SurfaceMesh& mesh = GetParam()();
  double sum = 0;
  for (const auto& t : mesh.triangles) sum += Double_Area(mesh, t) / 2;
  const Box box = Box_Of(mesh);
  EXPECT_NEAR(sum, (box.east - box.west) * (box.north - box.south), 1e-3);
}

/// Left of all three edges.
bool Is_Inside(const SurfaceMesh& mesh, const std::array<std::int32_t, 3>& t, double X, double Y) {
  for (std::size_t i = 0; i < 3; ++i) {
    const MeshNode &a = Node(mesh, t[i]), &b = Node(mesh, t[(i + 1) % 3]);
    if ((b.X - a.X) * (Y - a.Y) - (b.Y - a.Y) * (X - a.X) <= 0) return false;
  }
  return true;
}

TEST_P(SiteMesh, PointsLieInExactlyOneTriangle) {
  const SurfaceMesh& mesh = GetParam()();
  RandomDraws draws{4711};
  for (int i = 0; i < 200; ++i) {
    const double X = draws.Uniform(kForestWest - 19, kForestWest + kForestSide + 19);
    const double Y = draws.Uniform(kForestSouth - 19, kForestSouth + kForestSide + 19);
    int holds = 0;
    for (const auto& t : mesh.triangles) holds += Is_Inside(mesh, t, X, Y) ? 1 : 0;
    ASSERT_EQ(holds, 1) << X << ' ' << Y;
  }
}

TEST(GroundMesh, NodesLieOnTheGroundFiftyMetresAroundTheForest) {
  for (const MeshNode& node : Ground_Mesh().nodes) {
    ASSERT_NEAR(node.Z, Ground_Height(Site(), node.X, node.Y), 0.0005001);
  }
  const Box box = Box_Of(Ground_Mesh());
  EXPECT_DOUBLE_EQ(box.west, kForestWest - 50);
  EXPECT_DOUBLE_EQ(box.north, kForestSouth + kForestSide + 50);
}

TEST(CanopyMesh, NodesLieAsFarBelowTheCanopyAsLoadingLiftsThem) {
  int on_crowns = 0;
  for (const MeshNode& node : Canopy_Mesh().nodes) {
    ASSERT_NEAR(node.Z + 0.3, Canopy_Height(Site(), node.X, node.Y), 0.0005001);
    on_crowns += node.Z > Ground_Height(Site(), node.X, node.Y) + 5 ? 1 : 0;
  }
  EXPECT_GT(on_crowns, 1000);
}

/// The square 0 .. 300 in X and 0 .. 200 in Y by four nodes around a fifth.
SurfaceMesh Small_Mesh() {
  return {{{0, 0, 1}, {300, 0, 2}, {300, 200, 3}, {0, 200, 4}, {20, 190.25, 5.5}},
          {{0, 1, 4}, {1, 2, 4}, {2, 3, 4}, {3, 0, 4}}};
}

TEST(MeshFiles, HoldNodesAndTrianglesFromZero) {
  EXPECT_EQ(Node_Text(Small_Mesh()),
            "0.00,0.00,1.000\n300.00,0.00,2.000\n300.00,200.00,3.000\n0.00,200.00,4.000\n"
            "20.00,190.25,5.500\n");
  EXPECT_EQ(Triangle_Text(Small_Mesh()), "0,1,4\n1,2,4\n2,3,4\n3,0,4\n");
}

std::vector<std::int32_t> Numbers_Of(const std::string& tile) {
  std::int32_t count = 0;
  std::memcpy(&count, tile.data(), 4);
  EXPECT_EQ(tile.size(), 4 + 4 * static_cast<std::size_t>(count));
  std::vector<std::int32_t> numbers(static_cast<std::size_t>(count));
  std::memcpy(numbers.data(), tile.data() + 4, 4 * numbers.size());
  return numbers;
}

TEST(MeshTiles, ListTheTrianglesOfASquareFromOne) {
  const auto tiles = Mesh_Tiles(Small_Mesh());
  using Numbers = std::vector<std::int32_t>;
  EXPECT_EQ(Numbers_Of(tiles.at("000000.bin")), (Numbers{1, 4}));
  // The edge from (300, 0) to (20, 190.25) passes Y = 100 at X = 153 and X = 200 at Y = 68.
  EXPECT_EQ(Numbers_Of(tiles.at("001000.bin")), (Numbers{1, 2}));
  EXPECT_EQ(Numbers_Of(tiles.at("000001.bin")), (Numbers{1, 2, 3, 4}));
  EXPECT_EQ(Numbers_Of(tiles.at("002000.bin")), (Numbers{1, 2}));
  EXPECT_EQ(Numbers_Of(tiles.at("002001.bin")), (Numbers{2, 3}));
}

using Polygon = std::vector<std::pair<double, double>>;

/// The part of a polygon where side(point) is not negative (Sutherland and Hodgman 1974).
template <class Side>
Polygon Clipped(const Polygon& polygon, Side&& side) {
  Polygon kept;
  for (std::size_t i = 0; i < polygon.size(); ++i) {
    const auto &p = polygon[i], &q = polygon[(i + 1) % polygon.size()];
    const double a = side(p), b = side(q);
    if (a >= 0) kept.push_back(p);
    if ((a < 0) == (b < 0)) continue;
    const double f = a / (a - b);
    kept.emplace_back(p.first + f * (q.first - p.first), p.second + f * (q.second - p.second));
  }
  return kept;
}

bool Meets_Square(const SurfaceMesh& mesh, const std::array<std::int32_t, 3>& t, double west,
                  double south) {
  Polygon polygon;
  for (const std::int32_t i : t) polygon.emplace_back(Node(mesh, i).X, Node(mesh, i).Y);
  polygon = Clipped(polygon, [&](const auto& p) { return p.first - west; });
  polygon = Clipped(polygon, [&](const auto& p) { return west + 100 - p.first; });
  polygon = Clipped(polygon, [&](const auto& p) { return p.second - south; });
  polygon = Clipped(polygon, [&](const auto& p) { return south + 100 - p.second; });
  return !polygon.empty();
}

TEST(MeshTiles, OfTheSiteListEveryTriangleThatTouchesTheSquare) {
  const auto tiles = Mesh_Tiles(Ground_Mesh());
  EXPECT_EQ(tiles.size(), 25U);
  std::vector<bool> listed(Ground_Mesh().triangles.size(), false);
  for (int column = 0; column < 5; ++column) {
    for (int row = 0; row < 5; ++row) {
      std::vector<std::int32_t> wanted;
      for (std::size_t i = 0; i < Ground_Mesh().triangles.size(); ++i) {
        if (!Meets_Square(Ground_Mesh(), Ground_Mesh().triangles[i], 2514900 + 100 * column,
                          6859900 + 100 * row)) {
          continue;
        }
        wanted.push_back(static_cast<std::int32_t>(i) + 1);
        listed[i] = true;
      }
      const std::string name = "00" + std::to_string(column) + "00" + std::to_string(row) + ".bin";
      EXPECT_EQ(Numbers_Of(tiles.at(name)), wanted) << name;
    }
  }
  EXPECT_EQ(std::count(listed.begin(), listed.end(), false), 0);
}

}  // namespace
}  // namespace sylvomex::demo
