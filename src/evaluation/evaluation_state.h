// SPDX-License-Identifier: MIT
// Evaluation of a tree-top run against field-measured trees: its part of the block. Metres unless
// stated otherwise. Reference trees, clusters and the entries of MatchIndex are counted from 1.
//
// A reference tree with a cluster is matched (class M), one without is omitted (O); a cluster
// without a reference tree is a commission (C).
#pragma once

#include <cstdint>
#include <vector>

#include "platform/point3d.h"
#include "platform/table.h"

namespace sylvomex {

struct ReferenceTreeRecord {
  double TreeDiameter = 0;  // of the stem, millimetres
  double TreeHeight = 0;
  double TreeX = 0, TreeY = 0, TreeZ = 0;           // the tree's top
  double ClusterX = 0, ClusterY = 0, ClusterZ = 0;  // its cluster; 0 without one
  double BaseZ = 0;                                 // ground at the tree, as measured in the field
  std::int32_t TreeId = 0;
  std::int32_t Cluster = 0;       // 0 without one
  std::int32_t OtherCluster = 0;  // unmatched cluster nearest in plan within the limit; 0 for none
};

/// Calls visit("FieldName", field) for every field in the order of declaration.
template <class Record, class Visitor>
void Visit_Reference_Tree(Record& record, Visitor&& visit) {
  visit("TreeDiameter", record.TreeDiameter);
  visit("TreeHeight", record.TreeHeight);
  visit("TreeX", record.TreeX);
  visit("TreeY", record.TreeY);
  visit("TreeZ", record.TreeZ);
  visit("ClusterX", record.ClusterX);
  visit("ClusterY", record.ClusterY);
  visit("ClusterZ", record.ClusterZ);
  visit("BaseZ", record.BaseZ);
  visit("TreeId", record.TreeId);
  visit("Cluster", record.Cluster);
  visit("OtherCluster", record.OtherCluster);
}

struct EvaluationState {
  std::vector<ReferenceTreeRecord> ReferenceTree;  // tree i at i - 1, in the file's order
  std::vector<std::int32_t> MatchIndex;  // entry i at i - 1: trees of M, trees of O, clusters of C
  std::int16_t MatchCount = 0;           // trees of M
  std::int16_t OmittedCount = 0;         // trees of O
  std::int16_t CommissionCount = 0;      // clusters of C
  std::vector<Point3D> CommissionTops;   // the clusters of C in the order of MatchIndex
  double MatchDistance = 0;              // limit of the distance in plan for a match
};

/// Entry i of a table with index base 1; RunTimeError(SubscriptOutOfRange) outside it.
template <class Entry>
const Entry& Entry_From_One(const std::vector<Entry>& table, long i) {
  const auto count = static_cast<long>(table.size());
  if (i < 1 || i > count) Throw_Subscript(i, 1, count);
  return table[static_cast<std::size_t>(i - 1)];
}

}  // namespace sylvomex
