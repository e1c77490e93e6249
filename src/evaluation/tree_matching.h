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

/// The cluster matched to each tree, as an index into clusters counted from 0, or -1 without one.
/// Greedy: the pair nearest in plan is matched first, up to and including limit (metres); between
/// equally distant pairs the earlier tree goes first, then the earlier cluster.
/// A negative or NaN limit matches nothing.
std::vector<int> Match_Nearest_First(std::span<const PlanPosition> trees,
                                     std::span<const PlanPosition> clusters, double limit);

/// Fills the tables of an evaluation: one record per tree in the order of trees; M, O and C each
/// list ascending numbers. clusters: cluster i at index i - 1. RunTimeError(Overflow) when a class
/// has more than 32767 members.
EvaluationState Evaluate_Matches(std::span<const FieldTree> trees,
                                 std::span<const Point3D> clusters, double limit);

}  // namespace sylvomex
