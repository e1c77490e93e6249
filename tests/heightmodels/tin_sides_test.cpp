// SPDX-License-Identifier: MIT
#include "heightmodels/tin_sides.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <tuple>
#include <utility>

namespace sylvomex {
namespace {

using Edge = std::pair<std::int32_t, std::int32_t>;  // lower node first

struct MetSide {
  TinSide side;
  bool outward = false;
};

/// All sides of every edge, in the order of the triangles.
std::map<Edge, std::vector<MetSide>> Sides_By_Edge(const std::vector<TurnedNodes>& nodes) {
  std::map<Edge, std::vector<MetSide>> edges;
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    if (nodes[i][0] < 0) continue;
    for (std::int32_t k = 0; k < 3; ++k) {
      const std::int32_t from = nodes[i][static_cast<std::size_t>(k)];
      const std::int32_t to = nodes[i][static_cast<std::size_t>((k + 1) % 3)];
      edges[std::minmax({from, to})].push_back({{static_cast<std::int32_t>(i + 1), k}, from < to});
    }
  }
  return edges;
}

using PlainLoose = std::tuple<std::int32_t, std::int32_t, std::int32_t>;

void Expect_Plain_Joints(const std::vector<TurnedNodes>& nodes, std::int32_t node_count) {
  std::vector<TinFace> faces(nodes.size() + 1);
  std::vector<PlainLoose> loose;
  for (const LooseSides& l : Join_Sides(nodes, node_count, faces)) {
    loose.emplace_back(l.first.number, l.first.edge, l.times);
  }
  std::vector<std::array<std::int32_t, 3>> beyond(faces.size());
  std::vector<PlainLoose> plain_loose;
  for (const auto& [edge, sides] : Sides_By_Edge(nodes)) {
    std::int32_t times = 0;
    for (const MetSide& met : sides) times += met.outward == sides[0].outward ? 1 : -1;
    if (times != 0) {
      plain_loose.emplace_back(sides[0].side.number, sides[0].side.edge, times);
    } else if (sides.size() == 2) {
      for (std::size_t k = 0; k < 2; ++k) {
        const TinSide& side = sides[k].side;
        beyond[static_cast<std::size_t>(side.number)][static_cast<std::size_t>(side.edge)] =
            sides[1 - k].side.number;
      }
    }
  }
  std::ranges::sort(loose);
  std::ranges::sort(plain_loose);
  EXPECT_EQ(loose, plain_loose);
  for (std::size_t i = 0; i < faces.size(); ++i) {
    for (std::size_t k = 0; k < 3; ++k) {
      ASSERT_EQ(faces[i].beyond[k], beyond[i][k]) << "triangle " << i << ", edge " << k;
    }
  }
}

TEST(TinSides, OppositeSidesOfAnEdgeMakeNeighboursAndTheRestIsLoose) {
  // The square of two triangles: nodes 0 to 3 counter-clockwise, with diagonal 0 to 2.
  std::vector<TinFace> faces(3);
  const std::vector<TurnedNodes> nodes = {{0, 1, 2}, {0, 2, 3}};
  EXPECT_EQ(Join_Sides(nodes, 4, faces).size(), 4U);
  EXPECT_EQ(faces[1].beyond[2], 2);
  EXPECT_EQ(faces[2].beyond[0], 1);
  EXPECT_EQ(faces[1].beyond[0] + faces[1].beyond[1] + faces[2].beyond[1] + faces[2].beyond[2], 0);
}

TEST(TinSides, OfRandomTrianglesMatchAPlainSearch) {
  for (unsigned seed = 1; seed <= 60; ++seed) {
    std::mt19937 random(seed);
    // From many triangles on every edge to hardly two.
    const std::int32_t node_count = 4 + static_cast<std::int32_t>(random() % 40);
    std::vector<std::int32_t> order(static_cast<std::size_t>(node_count));
    for (std::size_t i = 0; i < order.size(); ++i) order[i] = static_cast<std::int32_t>(i);
    std::vector<TurnedNodes> nodes(random() % 90);
    for (TurnedNodes& triple : nodes) {
      std::ranges::shuffle(order, random);
      triple = {order[0], order[1], order[2]};
      if (random() % 8 == 0) triple[0] = -1;
    }
    Expect_Plain_Joints(nodes, node_count);
  }
}

TEST(TinSides, AroundANodeOfManyTrianglesMatchAPlainSearch) {
  std::vector<TurnedNodes> nodes;
  constexpr std::int32_t kBlades = 50;
  for (std::int32_t i = 0; i < kBlades; ++i) {
    nodes.push_back({0, i + 1, (i + 1) % kBlades + 1});
    if (i % 9 == 0) nodes.push_back(nodes.back());  // a duplicate
  }
  Expect_Plain_Joints(nodes, kBlades + 1);
}

}  // namespace
}  // namespace sylvomex
