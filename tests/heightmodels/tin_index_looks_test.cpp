// SPDX-License-Identifier: MIT
// The index of a large triangulation can be cancelled all the time, and its progress never falls.
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "heightmodels/tin_support.h"
#include "platform/many_steps.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

constexpr int kSide = 150;  // squares of 1 m along an axis, two triangles each

/// Level ground at 300 m, without its index.
TinModel Large_Square() {
  TinModel model;
  for (int row = 0; row <= kSide; ++row) {
    for (int col = 0; col <= kSide; ++col) model.Nodes.push_back({0, 1000.0 + col, 1.0 * row, 300});
  }
  model.NodeCount = static_cast<std::int32_t>(model.Nodes.size());
  const auto add = [&](std::int32_t a, std::int32_t b, std::int32_t c) {
    TinTriangle t;
    t.Node1 = a, t.Node2 = b, t.Node3 = c;
    const auto node = [&](std::int32_t n) { return model.Nodes[static_cast<std::size_t>(n)]; };
    ASSERT_TRUE(Fill_Tin_Triangle(node(a), node(b), node(c), t));
    model.Triangles.push_back(t);
  };
  for (std::int32_t row = 0; row < kSide; ++row) {
    for (std::int32_t col = 0; col < kSide; ++col) {
      const std::int32_t corner = row * (kSide + 1) + col, above = corner + kSide + 1;
      add(corner, corner + 1, above);
      add(corner + 1, above + 1, above);
    }
  }
  model.TriangleCount = static_cast<std::int32_t>(model.Triangles.size());
  return model;
}

struct Onlooker : WorkWatcher {
  std::vector<double> shares;
  std::size_t cancel_at = 0;  // the number of the look; 0: never

  void Look(double done) override {
    shares.push_back(done);
    if (shares.size() == cancel_at) throw Cancelled{};
  }
};

template <class Work>
void Expect_Rising_Shares(Work&& work) {
  Onlooker watcher;
  const WatchedWork watched(&watcher);
  work();
  EXPECT_GE(watcher.shares.size(), 2 * kSide * kSide / ManySteps::kStepsOfALook);
  EXPECT_TRUE(std::ranges::is_sorted(watcher.shares));
}

TEST(TinIndexLooks, TheShareOfTheFacesNeverFalls) {
  const TinModel model = Large_Square();
  Expect_Rising_Shares([&] { Make_Tin_Faces(model.Triangles, model.NodeCount); });
}

TEST(TinIndexLooks, TheShareOfTheBucketsNeverFalls) {
  const TinModel model = Large_Square();
  Expect_Rising_Shares([&] { Make_Tin_Buckets(model.Triangles); });
}

TEST(TinIndexLooks, ACancelEndsTheIndexAndASecondOneIsWhole) {
  const auto no_report = [](std::string_view) {};
  TinModel model = Large_Square();
  {
    Onlooker watcher;
    watcher.cancel_at = 1;
    const WatchedWork watched(&watcher);
    EXPECT_THROW(Index_Tin(model, no_report), Cancelled);
  }
  Index_Tin(model, no_report);
  for (const double X : {1000.5, 1074.25, 1149.75}) {
    std::int32_t hint = 0;
    EXPECT_NEAR(Tin_Elevation(model, X, 75.5, hint), 300, 1e-9);
  }
}

std::string Node_Lines() {
  std::string lines;
  for (int k = 0; k < 20000; ++k)
    lines += "1000.00," + std::to_string(1000 + k % 9000) + ",300.00\n";
  return lines;
}

TEST(TinLooks, ReadingNodesTellsTheShareOfTheirFile) {
  const TemporaryFolder folder;
  const FilePath file = folder.Write("a.nod", Node_Lines());
  Onlooker watcher;
  const WatchedWork watched(&watcher);
  TinModel model;
  Read_Tin_Nodes(file, 0, model);
  ASSERT_GE(watcher.shares.size(), 4U);
  EXPECT_NEAR(watcher.shares[1], 8192 / 20000.0, 1e-4);  // all lines have the same length
  EXPECT_TRUE(std::ranges::is_sorted(watcher.shares));
}

TEST(TinLooks, ReadingTrianglesTellsTheShareOfTheirFile) {
  const TemporaryFolder folder;
  std::string lines;
  for (int k = 0; k < 20000; ++k) lines += std::to_string(10000 + k % 100) + ",10101,10201\n";
  const FilePath nodes = folder.Write("a.nod", Node_Lines());
  const FilePath triangles = folder.Write("a.tri", lines);
  TinModel model;
  Read_Tin_Nodes(nodes, 0, model);
  for (TinNode& node : model.Nodes) node.X = 1000 + node.Y * node.Y / 1e6;  // no three on a line
  Onlooker watcher;
  const WatchedWork watched(&watcher);
  EXPECT_TRUE(Read_Tin_Triangles(triangles, model, {}));
  ASSERT_GE(watcher.shares.size(), 4U);
  EXPECT_NEAR(watcher.shares[3], 16384 / 20000.0, 1e-4);
  EXPECT_TRUE(std::ranges::is_sorted(watcher.shares));
}

}  // namespace
}  // namespace sylvomex
