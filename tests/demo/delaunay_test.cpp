// SPDX-License-Identifier: MIT
#include "demo/scene/delaunay.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "demo/scene/counter_random.h"

namespace sylvomex::demo {
namespace {

const MeshNode& Corner(const SurfaceMesh& mesh, const std::array<std::int32_t, 3>& triangle,
                       std::size_t k) {
  return mesh.nodes[static_cast<std::size_t>(triangle[k])];
}

/// Twice the area of a triangle, positive when it turns to the left.
double Turn(const MeshNode& a, const MeshNode& b, const MeshNode& c) {
  return (b.X - a.X) * (c.Y - a.Y) - (b.Y - a.Y) * (c.X - a.X);
}

double Turn_Of(const SurfaceMesh& mesh, const std::array<std::int32_t, 3>& triangle) {
  return Turn(Corner(mesh, triangle, 0), Corner(mesh, triangle, 1), Corner(mesh, triangle, 2));
}

/// Positive for d inside the circle through a, b, c, which turn to the left.
double In_Circle(const MeshNode& a, const MeshNode& b, const MeshNode& c, const MeshNode& d) {
  const auto lifted = [&](const MeshNode& p) {
    const double x = p.X - d.X, y = p.Y - d.Y;
    return MeshNode{x, y, x * x + y * y};
  };
  const MeshNode p = lifted(a), q = lifted(b), r = lifted(c);
  return p.X * (q.Y * r.Z - q.Z * r.Y) - p.Y * (q.X * r.Z - q.Z * r.X) +
         p.Z * (q.X * r.Y - q.Y * r.X);
}

/// Twice the area of the convex hull, by its lower and its upper chain.
double Hull_Turn(std::vector<MeshNode> nodes) {
  std::sort(nodes.begin(), nodes.end(), [](const MeshNode& a, const MeshNode& b) {
    return std::pair(a.X, a.Y) < std::pair(b.X, b.Y);
  });
  double sum = 0;
  for (int side = 0; side < 2; ++side) {
    std::vector<MeshNode> chain;
    for (const MeshNode& node : nodes) {
      while (chain.size() > 1 && Turn(chain[chain.size() - 2], chain.back(), node) <= 0) {
        chain.pop_back();
      }
      chain.push_back(node);
    }
    for (std::size_t k = 1; k < chain.size(); ++k)
      sum += Turn(nodes.front(), chain[k - 1], chain[k]);
    std::reverse(nodes.begin(), nodes.end());
  }
  return sum;
}

std::vector<MeshNode> Scattered_Nodes(int count) {
  RandomDraws draws{42};
  std::vector<MeshNode> nodes;
  for (int k = 0; k < count; ++k) {
    // Whole millimetres about a far origin.
    nodes.push_back({2515000 + std::floor(draws.Uniform(0, 60000)) / 1000,
                     6860000 + std::floor(draws.Uniform(0, 60000)) / 1000, draws.Uniform()});
  }
  return nodes;
}

TEST(Delaunay, NoNodeLiesInTheCircleOfATriangle) {
  const SurfaceMesh mesh = Triangulate(Scattered_Nodes(150));
  ASSERT_EQ(mesh.nodes.size(), 150U);
  for (const auto& triangle : mesh.triangles) {
    for (const MeshNode& node : mesh.nodes) {
      EXPECT_LE(In_Circle(Corner(mesh, triangle, 0), Corner(mesh, triangle, 1),
                          Corner(mesh, triangle, 2), node),
                1e-6);
    }
  }
}

TEST(Delaunay, TrianglesTurnToTheLeftAndFillTheHull) {
  const SurfaceMesh mesh = Triangulate(Scattered_Nodes(400));
  double sum = 0;
  for (const auto& triangle : mesh.triangles) {
    EXPECT_GT(Turn_Of(mesh, triangle), 0);
    sum += Turn_Of(mesh, triangle);
  }
  EXPECT_NEAR(sum, Hull_Turn(mesh.nodes), 1e-6);
}

TEST(Delaunay, NodesOnOneCircleMakeAFan) {
  const SurfaceMesh mesh =
      Triangulate({{0, 0, 1}, {10, 0, 2}, {10, 10, 3}, {0, 10, 4}, {5, 5, 5}, {20, 0, 6}});
  double sum = 0;
  for (const auto& triangle : mesh.triangles) sum += Turn_Of(mesh, triangle);
  EXPECT_EQ(sum, 2 * (100 + 50));
  const SurfaceMesh square = Triangulate({{0, 0, 1}, {10, 0, 2}, {10, 10, 3}, {0, 10, 4}});
  EXPECT_EQ(square.triangles.size(), 2U);
}

TEST(Delaunay, OfNodesAtOnePlaceTheFirstStays) {
  const SurfaceMesh mesh =
      Triangulate({{0, 0, 1}, {4, 0, 2}, {0, 0, 9}, {0, 4, 3}, {4, 0.0001, 8}});
  ASSERT_EQ(mesh.nodes.size(), 3U);
  EXPECT_EQ(mesh.nodes[0].Z, 1);
  EXPECT_EQ(mesh.nodes[1].Z, 2);
  EXPECT_EQ(mesh.triangles.size(), 1U);
}

TEST(Delaunay, FewNodesOrALineHaveNoTriangle) {
  EXPECT_TRUE(Triangulate({}).triangles.empty());
  EXPECT_TRUE(Triangulate({{0, 0, 1}, {1, 1, 1}}).triangles.empty());
  EXPECT_TRUE(Triangulate({{0, 0, 1}, {1, 1, 1}, {2, 2, 1}, {5, 5, 1}}).triangles.empty());
}

}  // namespace
}  // namespace sylvomex::demo
