// SPDX-License-Identifier: MIT
// Libraries with which heights from a triangulated model are compared.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "heightmodels/tin_record.h"

namespace sylvomex::bench {

using TinTriple = std::array<std::int32_t, 3>;

/// Computes the heights at the points, one for each.
using TinAnswers = std::function<void(std::span<const MapPoint>, std::span<double>)>;

struct TinPeer {
  std::string name;
  TinAnswers random;  // empty where the library has no separate method for it
  TinAnswers scan;
  int threads = 1;
};

/// The Delaunay triangles of the nodes, and the peers built on them. Empty without the libraries.
struct TinPeers {
  std::vector<TinTriple> triples;
  std::vector<TinPeer> peers;
};

TinPeers Cgal_Tin(const std::vector<TinNode>& nodes);
std::vector<TinPeer> Embree_Tin(const std::vector<TinNode>& nodes,
                                const std::vector<TinTriple>& triples);

}  // namespace sylvomex::bench
