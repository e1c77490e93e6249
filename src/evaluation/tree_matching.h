// SPDX-License-Identifier: MIT
// Field-measured trees matched one to one with the clusters of a tree-top run.
#pragma once

#include <span>
#include <vector>

#include "evaluation/evaluation_state.h"
#include "overlays/field_tree_file.h"

namespace sylvomex {

/// A position in plan, metres.
struct PlanPosition {
  double X = 0, Y = 0;
};

/// The partner of every tree, as a position in clusters counted from 0, or -1 without one. Pairs
/// form greedily, the nearest in plan first, up to and including limit (metres); of two pairs
/// equally far apart the one of the earlier tree goes first, then the one of the earlier cluster.
/// A limit below 0, or one that is none (NaN), matches nothing.
std::vector<int> Match_Nearest_First(std::span<const PlanPosition> trees,
                                     std::span<const PlanPosition> clusters, double limit);

/// The tables of an evaluation: one record a tree in the order of trees, classes in ascending
/// numbers within M, O and C. clusters: cluster i at i - 1. RunTimeError(Overflow) when a class
/// counts more than 32767.
EvaluationState Evaluate_Matches(std::span<const FieldTree> trees,
                                 std::span<const Point3D> clusters, double limit);

}  // namespace sylvomex
