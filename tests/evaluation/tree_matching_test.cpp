// SPDX-License-Identifier: MIT
#include "evaluation/tree_matching.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "evaluation/match_statistics.h"
#include "support/failure_of.h"

namespace sylvomex {
namespace {

using Partners = std::vector<int>;

Partners Match(const std::vector<PlanPosition>& trees, const std::vector<PlanPosition>& clusters,
               double limit) {
  return Match_Nearest_First(trees, clusters, limit);
}

TEST(Matching, TheNearestPairGoesFirstAlthoughAnotherTreeComesEarlier) {
  // Tree 0 is 0.8 from the cluster, tree 1 is 0.3 from it.
  EXPECT_EQ(Match({{0, 0}, {1.1, 0}}, {{0.8, 0}}, 1.5), (Partners{-1, 0}));
}

TEST(Matching, ATreeThatLostItsNearestClusterTakesTheNextOneWithinTheLimit) {
  EXPECT_EQ(Match({{0, 0}, {1.1, 0}}, {{0.8, 0}, {-1.2, 0}}, 1.5), (Partners{1, 0}));
}

TEST(Matching, IsOneToOne) {
  EXPECT_EQ(Match({{0, 0}}, {{0.1, 0}, {0.2, 0}}, 1), (Partners{0}));
  EXPECT_EQ(Match({{0.1, 0}, {0.2, 0}}, {{0, 0}}, 1), (Partners{0, -1}));
}

TEST(Matching, TheLimitItselfIsWithin) {
  EXPECT_EQ(Match({{0, 0}}, {{3, 4}}, 5), (Partners{0}));
  EXPECT_EQ(Match({{0, 0}}, {{3, 4}}, std::nextafter(5.0, 0.0)), (Partners{-1}));
}

TEST(Matching, EquallyDistantPairsGoByTreeThenByCluster) {
  EXPECT_EQ(Match({{0, 0}, {2, 0}}, {{1, 0}}, 1), (Partners{0, -1}));
  EXPECT_EQ(Match({{0, 0}}, {{1, 0}, {-1, 0}}, 1), (Partners{0}));
}

TEST(Matching, WithoutTreesOrClustersOrALimitMatchesNothing) {
  EXPECT_EQ(Match({}, {{0, 0}}, 1), Partners{});
  EXPECT_EQ(Match({{0, 0}}, {}, 1), (Partners{-1}));
  EXPECT_EQ(Match({{0, 0}}, {{0, 0}}, -1), (Partners{-1}));
  EXPECT_EQ(Match({{0, 0}}, {{0, 0}}, std::nan("")), (Partners{-1}));
}

// Takes the best remaining pair repeatedly.
Partners By_Repeated_Search(const std::vector<PlanPosition>& trees,
                            std::vector<PlanPosition> clusters, double limit) {
  constexpr double kGone = 1e9;
  Partners partner(trees.size(), -1);
  while (true) {
    double least = std::numeric_limits<double>::infinity();
    std::size_t best_tree = 0, best_cluster = 0;
    for (std::size_t t = 0; t < trees.size(); ++t) {
      for (std::size_t c = 0; c < clusters.size() && partner[t] < 0; ++c) {
        const double d = std::hypot(trees[t].X - clusters[c].X, trees[t].Y - clusters[c].Y);
        if (d < least) least = d, best_tree = t, best_cluster = c;
      }
    }
    if (!(least <= limit)) return partner;
    partner[best_tree] = static_cast<int>(best_cluster);
    clusters[best_cluster] = {kGone, kGone};
  }
}

TEST(Matching, EqualsTheRepeatedSearchOfTheNearestPair) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> place(0, 20);
  std::vector<PlanPosition> trees(60), clusters(50);
  for (PlanPosition& p : trees) p = {place(random), place(random)};
  for (PlanPosition& p : clusters) p = {place(random), place(random)};
  const Partners matched = Match(trees, clusters, 1.5);
  EXPECT_EQ(matched, By_Repeated_Search(trees, clusters, 1.5));
  EXPECT_GT(std::count(matched.begin(), matched.end(), -1), 0);
}

FieldTree Field_Tree(double X, double Y, double height, int id) {
  FieldTree tree;
  tree.MapX = X;
  tree.MapY = Y;
  tree.BaseZ = 100;
  tree.TopZ = 100 + height;
  tree.Dbh = 10 * height;
  tree.TreeHeight = height;
  tree.TreeId = id;
  return tree;
}

// Trees 1, 3 and 4 of the file have clusters 3, 1 and 4; cluster 2 lies beside tree 3.
EvaluationState Four_Trees() {
  const std::vector<FieldTree> trees{Field_Tree(0, 0, 20, 11), Field_Tree(10, 0, 21, 12),
                                     Field_Tree(20, 0, 22, 13), Field_Tree(30, 0, 23, 14)};
  const std::vector<Point3D> clusters{
      {20, 0.5, 121.5}, {20, -1, 119}, {0.25, 0, 119.75}, {30, 0, 123}, {50, 0, 110}};
  return Evaluate_Matches(trees, clusters, 1.5);
}

TEST(Evaluation, IndicesAreOrderedByClassMatchedOmittedCommission) {
  const EvaluationState state = Four_Trees();
  EXPECT_EQ(state.MatchIndex, (std::vector<std::int32_t>{1, 3, 4, 2, 2, 5}));
  EXPECT_EQ(state.MatchCount, 3);
  EXPECT_EQ(state.OmittedCount, 1);
  EXPECT_EQ(state.CommissionCount, 2);
}

TEST(Evaluation, RecordsKeepTheFilesOrderAndTakeTheirClusters) {
  const EvaluationState state = Four_Trees();
  ASSERT_EQ(state.ReferenceTree.size(), 4U);
  const ReferenceTreeRecord& tree = Entry_From_One(state.ReferenceTree, 3);
  EXPECT_EQ(tree.TreeId, 13);
  EXPECT_EQ(tree.TreeDiameter, 220);
  EXPECT_EQ(tree.TreeHeight, 22);
  EXPECT_EQ(tree.TreeX, 20);
  EXPECT_EQ(tree.TreeZ, 122);
  EXPECT_EQ(tree.BaseZ, 100);
  EXPECT_EQ(tree.ClusterX, 20);
  EXPECT_EQ(tree.ClusterY, 0.5);
  EXPECT_EQ(tree.ClusterZ, 121.5);
  EXPECT_EQ(tree.Cluster, 1);
}

TEST(Evaluation, AnOmittedTreeHasNoCluster) {
  const EvaluationState state = Four_Trees();
  const ReferenceTreeRecord& tree = Entry_From_One(state.ReferenceTree, 2);
  EXPECT_EQ(tree.Cluster, 0);
  EXPECT_EQ(tree.ClusterX, 0);
  EXPECT_EQ(tree.ClusterZ, 0);
}

TEST(Evaluation, ACommissionWithinTheLimitIsRecordedWithTheTree) {
  const EvaluationState state = Four_Trees();
  EXPECT_EQ(Entry_From_One(state.ReferenceTree, 3).OtherCluster, 2);
  EXPECT_EQ(Entry_From_One(state.ReferenceTree, 1).OtherCluster, 0);
  EXPECT_EQ(Entry_From_One(state.ReferenceTree, 4).OtherCluster, 0);
}

TEST(Evaluation, WithoutClustersAllTreesAreOmitted) {
  const std::vector<FieldTree> trees{Field_Tree(0, 0, 20, 1), Field_Tree(1, 0, 20, 2)};
  const EvaluationState state = Evaluate_Matches(trees, {}, 1.5);
  EXPECT_EQ(state.MatchCount, 0);
  EXPECT_EQ(state.MatchIndex, (std::vector<std::int32_t>{1, 2}));
  EXPECT_TRUE(Matched_Trees(state).empty());
  EXPECT_EQ(Omitted_Trees(state).size(), 2U);
}

TEST(Evaluation, ClassesAreTakenFromTheIndexTable) {
  const EvaluationState state = Four_Trees();
  ASSERT_EQ(Matched_Trees(state).size(), 3U);
  EXPECT_EQ(Matched_Trees(state)[2].TreeId, 14);
  ASSERT_EQ(Omitted_Trees(state).size(), 1U);
  EXPECT_EQ(Omitted_Trees(state)[0].TreeId, 12);
}

TEST(Evaluation, AClassOfMoreThan32767TreesIsAnOverflow) {
  const std::vector<FieldTree> trees(32768);
  EXPECT_EQ(Failure_Of([&] { Evaluate_Matches(trees, {}, 1); }),
            "Overflow: 32768 is not in -32768 to 32767");
}

TEST(EntryFromOne, ZeroAndBeyondTheLastAreRejected) {
  const std::vector<std::int32_t> table{5, 6};
  EXPECT_EQ(Entry_From_One(table, 2), 6);
  EXPECT_NE(Failure_Of([&] { Entry_From_One(table, 0); }), "no failure");
  EXPECT_NE(Failure_Of([&] { Entry_From_One(table, 3); }), "no failure");
}

}  // namespace
}  // namespace sylvomex
