// SPDX-License-Identifier: MIT
// A counting sort of the sides by the lower of their nodes, then all sides at a node that lead to
// the same other one at once.
#include "heightmodels/tin_sides.h"

#include <algorithm>
#include <bit>

#include "hwy/highway.h"
#include "platform/many_steps.h"

namespace sylvomex {
namespace {

namespace hn = hwy::HWY_NAMESPACE;

constexpr std::size_t kLanes = 4;

/// A side in a word: number, edge, and whether it leads from the lower node to the far one.
constexpr std::uint32_t Packed(std::size_t number, std::uint32_t edge, bool outward) {
  return static_cast<std::uint32_t>(number) << 3 | edge << 1 | static_cast<std::uint32_t>(outward);
}
constexpr TinSide Unpacked(std::uint32_t word) {
  return {static_cast<std::int32_t>(word >> 3), static_cast<std::int32_t>(word >> 1 & 3)};
}

/// The sides at each node: first[node] up to first[node + 1].
struct SidesAtNodes {
  std::vector<std::uint32_t> first;
  std::vector<std::int32_t> far_nodes;  // and room for a vector after the last
  std::vector<std::uint32_t> words;
};

template <class Visit>
void For_Each_Side(std::span<const TurnedNodes> nodes, const Visit& visit) {
  ManySteps steps(static_cast<double>(nodes.size()));
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    steps.Step();
    const auto [a, b, c] = nodes[i];
    if (a < 0) continue;
    visit(a, b, i + 1, 0U);
    visit(b, c, i + 1, 1U);
    visit(c, a, i + 1, 2U);
  }
}

SidesAtNodes Sort_By_Lower_Node(std::span<const TurnedNodes> nodes, std::int32_t node_count) {
  const auto count = static_cast<std::size_t>(node_count);
  SidesAtNodes sides;
  // Counts are stored two entries later: filling then moves each start to its own entry.
  sides.first.assign(count + 2, 0);
  WorkMeter passes(2);
  For_Each_Side(nodes, [&](std::int32_t from, std::int32_t to, std::size_t, std::uint32_t) {
    ++sides.first[static_cast<std::size_t>(std::min(from, to)) + 2];
  });
  passes.Task();
  for (std::size_t node = 2; node < count + 2; ++node) sides.first[node] += sides.first[node - 1];
  const std::size_t all = sides.first.back();
  sides.far_nodes.resize(all + kLanes);
  sides.words.resize(all);
  For_Each_Side(
      nodes, [&](std::int32_t from, std::int32_t to, std::size_t number, std::uint32_t edge) {
        const std::size_t at = sides.first[static_cast<std::size_t>(std::min(from, to)) + 1]++;
        sides.far_nodes[at] = std::max(from, to);
        sides.words[at] = Packed(number, edge, from < to);
      });
  return sides;
}

/// Of the sides first to last - 1 those that lead to a node: their number, and the sum of their
/// places.
struct Found {
  std::uint32_t count = 0, sum_of_places = 0;
};

Found Find_Sides_To(std::int32_t far_node, const SidesAtNodes& sides, std::uint32_t first,
                    std::uint32_t last) {
  const hn::FixedTag<std::int32_t, kLanes> d;
  const auto wanted = hn::Set(d, far_node);
  const auto end = hn::Set(d, static_cast<std::int32_t>(last - first));
  auto place = hn::Iota(d, 0);
  auto count = hn::Zero(d), sum = hn::Zero(d);
  for (std::uint32_t at = first; at < last; at += kLanes) {
    const auto fits =
        hn::And(hn::Eq(hn::LoadU(d, &sides.far_nodes[at]), wanted), hn::Lt(place, end));
    count = hn::Sub(count, hn::VecFromMask(d, fits));
    sum = hn::Add(sum, hn::IfThenElseZero(fits, place));
    place = hn::Add(place, hn::Set(d, static_cast<std::int32_t>(kLanes)));
  }
  return {static_cast<std::uint32_t>(hn::GetLane(hn::SumOfLanes(d, count))),
          static_cast<std::uint32_t>(hn::GetLane(hn::SumOfLanes(d, sum)))};
}

/// Of the sides to the same node as the side `at`: the number with its direction minus the number
/// against it. 0 when an earlier side leads to that node, too.
std::int32_t Times_At_First(const SidesAtNodes& sides, std::uint32_t first, std::uint32_t at,
                            std::uint32_t last) {
  std::int32_t times = 0;
  for (std::uint32_t k = first; k < last; ++k) {
    if (sides.far_nodes[k] != sides.far_nodes[at]) continue;
    if (k < at) return 0;
    times += ((sides.words[k] ^ sides.words[at]) & 1) == 0 ? 1 : -1;
  }
  return times;
}

}  // namespace

std::vector<LooseSides> Join_Sides(std::span<const TurnedNodes> nodes, std::int32_t node_count,
                                   std::span<TinFace> faces) {
  WorkMeter stages(2);
  const SidesAtNodes sides = Sort_By_Lower_Node(nodes, node_count);
  stages.Task();
  std::vector<LooseSides> loose;
  ManySteps steps(node_count);
  for (std::size_t node = 0; node < static_cast<std::size_t>(node_count); ++node) {
    steps.Step();
    const std::uint32_t first = sides.first[node], last = sides.first[node + 1];
    for (std::uint32_t at = first; at < last; ++at) {
      const Found found = Find_Sides_To(sides.far_nodes[at], sides, first, last);
      const std::uint32_t other = first + found.sum_of_places - (at - first);
      if (found.count == 2 && ((sides.words[at] ^ sides.words[other]) & 1) != 0) {
        const TinSide side = Unpacked(sides.words[at]);
        faces[static_cast<std::size_t>(side.number)].beyond[side.edge] =
            Unpacked(sides.words[other]).number;
      } else if (const std::int32_t times = Times_At_First(sides, first, at, last); times != 0) {
        loose.push_back({Unpacked(sides.words[at]), times});
      }
    }
  }
  return loose;
}

}  // namespace sylvomex
