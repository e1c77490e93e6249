// SPDX-License-Identifier: MIT
#include "closedlib/cluster_grid.h"

#include <hwy/highway.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace sylvomex {
namespace {

namespace hn = hwy::HWY_NAMESPACE;

using Reals = hn::FixedTag<double, 2>;
using Wholes = hn::RebindToSigned<Reals>;

/// Keeps the nearest of the means compared so far, which come oldest first, by its position in
/// that order. Squared distances are compared by their bit patterns, which order like the numbers,
/// with NaN above all. Two means are compared at a time, branch-free, because which one is nearer
/// cannot be predicted.
class Nearer {
 public:
  /// square: squared distance below which a mean counts.
  Nearer(double X, double Y, double square) {
    const Reals d;
    const Wholes w;
    const double place[] = {X, Y};
    place_ = hn::LoadU(d, place);
    square_ = hn::BitCast(w, hn::Set(d, square));
    found_ = hn::Set(w, -1);
    position_ = hn::Iota(w, 0);
  }

  /// Compares the means at the next two positions.
  void Compare_Two(const double* first, const double* second) {
    const Reals d;
    const Wholes w;
    const auto one = hn::Sub(place_, hn::Load(d, first));
    const auto two = hn::Sub(place_, hn::Load(d, second));
    const auto one_squared = hn::Mul(one, one), two_squared = hn::Mul(two, two);
    const auto sums = hn::Add(hn::InterleaveLower(d, one_squared, two_squared),
                              hn::InterleaveUpper(d, one_squared, two_squared));
    const auto square = hn::BitCast(w, hn::Abs(sums));
    const auto nearer = hn::Lt(square, square_);
    square_ = hn::IfThenElse(nearer, square, square_);
    found_ = hn::IfThenElse(nearer, position_, found_);
    position_ = hn::Add(position_, hn::Set(w, 2));
  }

  /// Position of the nearest mean, the first of two equally near; -1 when none is near enough.
  [[nodiscard]] std::int64_t Position() const {
    const Wholes w;
    const auto other_square = hn::Reverse(w, square_), other = hn::Reverse(w, found_);
    const auto earlier = hn::And(hn::Eq(other_square, square_), hn::Lt(other, found_));
    const auto better = hn::Or(hn::Lt(other_square, square_), earlier);
    return hn::GetLane(hn::IfThenElse(better, other, found_));
  }

 private:
  hn::Vec<Reals> place_;
  hn::Vec<Wholes> square_, found_, position_;
};

}  // namespace

ClusterGrid::ClusterGrid(double distance)
    : limit_(distance > 0 ? distance * distance : 0),
      stripes_(1 / std::max(kNarrowest, kWider * distance)),
      lists_(kSide * kSide) {
  places_[kMost].X = std::numeric_limits<double>::quiet_NaN();
}

int ClusterGrid::Nearest(double X, double Y) const {
  const List& list = lists_[Cell(X, Y)];
  if (list.count > kInList) return Nearest_Of_All(X, Y);
  Nearer nearer(X, Y, limit_);
  const auto meet = [&](std::size_t first) {
    for (std::size_t k = first; k < first + kAtOnce; k += 2) {
      nearer.Compare_Two(&places_[list.clusters[k]].X, &places_[list.clusters[k + 1]].X);
    }
  };
  for (std::size_t first = 0; first < kMostOften; first += kAtOnce) meet(first);
  for (std::size_t first = kMostOften; first < list.count; first += kAtOnce) meet(first);
  const std::int64_t position = nearer.Position();
  return position < 0 ? kNone : list.clusters[static_cast<std::size_t>(position)];
}

int ClusterGrid::Nearest_Of_All(double X, double Y) const {
  Nearer nearer(X, Y, limit_);
  for (std::size_t cluster = 0; cluster < static_cast<std::size_t>(count_); cluster += 2) {
    const bool is_last = cluster + 1 == static_cast<std::size_t>(count_);
    nearer.Compare_Two(&places_[cluster].X, &places_[is_last ? std::size_t{kMost} : cluster + 1].X);
  }
  return static_cast<int>(nearer.Position());
}

void ClusterGrid::Add(double X, double Y) {
  const int cluster = count_++;
  cell_[static_cast<std::size_t>(cluster)] = kNoCell;
  Move(cluster, X, Y);
}

void ClusterGrid::Move(int cluster, double X, double Y) {
  const auto at = static_cast<std::size_t>(cluster);
  const bool finite = std::isfinite(X) && std::isfinite(Y);
  places_[at] = {finite ? X : std::numeric_limits<double>::quiet_NaN(), Y};
  const std::size_t cell = finite ? Cell(X, Y) : kNoCell;
  if (cell == cell_[at]) return;
  if (cell_[at] != kNoCell) Withdraw(cluster, cell_[at]);
  if (cell != kNoCell) File(cluster, cell);
  cell_[at] = cell;
}

namespace {

/// Calls visit(cell) for a cell (numbers modulo 64) and the eight around it.
template <class Visit>
void Around(std::size_t cell, std::size_t side, const Visit& visit) {
  const std::size_t col = cell % side, row = cell / side;
  for (const std::size_t down : {side - 1, std::size_t{0}, std::size_t{1}}) {
    for (const std::size_t right : {side - 1, std::size_t{0}, std::size_t{1}}) {
      visit((row + down) % side * side + (col + right) % side);
    }
  }
}

}  // namespace

void ClusterGrid::File(int cluster, std::size_t cell) {
  Around(cell, kSide, [&](std::size_t near) {
    List& list = lists_[near];
    if (list.count > kInList) return;
    if (list.count < kInList) {
      const auto end = list.clusters.begin() + list.count;
      const auto place = std::upper_bound(list.clusters.begin(), end, cluster);
      std::copy_backward(place, end, end + 1);
      *place = static_cast<std::uint16_t>(cluster);
    }
    ++list.count;
  });
}

void ClusterGrid::Withdraw(int cluster, std::size_t cell) {
  Around(cell, kSide, [&](std::size_t near) {
    List& list = lists_[near];
    if (list.count > kInList) return;
    const auto end = list.clusters.begin() + list.count;
    const auto place = std::lower_bound(list.clusters.begin(), end, cluster);
    std::copy(place + 1, end, place);
    list.clusters[--list.count] = kMost;
  });
}

}  // namespace sylvomex
