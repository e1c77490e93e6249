// SPDX-License-Identifier: MIT
#include "closedlib/cluster_grid.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

namespace sylvomex {
namespace {

// A cell is wider than the distance by more than the rounding of a stripe number, as long as
// that stays below kMostStripe.
constexpr double kWider = 1.001;
constexpr double kNarrowest = 1e-3;  // metres
constexpr double kMostStripe = 0x1p40;

/// The nearest of the clusters met so far, which come in the order of their age. Squares are
/// compared by their bits, which order as the numbers do, what is no number above all: whole
/// numbers are selected without a jump, whose wrong guesses would cost more than the distance.
class Nearer {
 public:
  explicit Nearer(double limit) : bits_(std::bit_cast<std::uint64_t>(limit)) {}

  void Meet(double dx, double dy, int cluster) {
    const auto bits = std::bit_cast<std::uint64_t>(dx * dx + dy * dy);
    cluster_ = bits < bits_ ? cluster : cluster_;
    bits_ = std::min(bits, bits_);
  }
  [[nodiscard]] int Cluster() const { return cluster_; }

 private:
  std::uint64_t bits_;
  int cluster_ = ClusterGrid::kNone;
};

}  // namespace

ClusterGrid::ClusterGrid(double distance)
    : limit_(distance > 0 ? distance * distance : 0),
      stripes_(1 / std::max(kNarrowest, kWider * distance)),
      lists_(kSide * kSide) {}

std::int64_t ClusterGrid::Stripe(double at) const {
  // min and max in this order turn what is no number into a stripe of its own.
  const double stripe = std::max(-kMostStripe, std::min(kMostStripe, at * stripes_));
  const auto whole = static_cast<std::int64_t>(stripe);
  return whole - (static_cast<double>(whole) > stripe);
}

std::size_t ClusterGrid::Cell(double X, double Y) const {
  return static_cast<std::size_t>((Stripe(Y) & (kSide - 1)) * kSide + (Stripe(X) & (kSide - 1)));
}

int ClusterGrid::Nearest(double X, double Y) const {
  const List& list = lists_[Cell(X, Y)];
  if (list.count > kInList) return Nearest_Of_All(X, Y);
  Nearer nearest(limit_);
  for (std::size_t k = 0; k < list.count; ++k) {
    const std::size_t cluster = list.clusters[k];
    nearest.Meet(X - x_[cluster], Y - y_[cluster], static_cast<int>(cluster));
  }
  return nearest.Cluster();
}

int ClusterGrid::Nearest_Of_All(double X, double Y) const {
  Nearer nearest(limit_);
  for (int cluster = 0; cluster < count_; ++cluster) {
    const auto at = static_cast<std::size_t>(cluster);
    nearest.Meet(X - x_[at], Y - y_[at], cluster);
  }
  return nearest.Cluster();
}

void ClusterGrid::Add(double X, double Y) {
  const int cluster = count_++;
  cell_[static_cast<std::size_t>(cluster)] = kNoCell;
  Move(cluster, X, Y);
}

void ClusterGrid::Move(int cluster, double X, double Y) {
  const auto at = static_cast<std::size_t>(cluster);
  const bool finite = std::isfinite(X) && std::isfinite(Y);
  x_[at] = finite ? X : std::numeric_limits<double>::quiet_NaN();
  y_[at] = Y;
  const std::size_t cell = finite ? Cell(X, Y) : kNoCell;
  if (cell == cell_[at]) return;
  if (cell_[at] != kNoCell) Withdraw(cluster, cell_[at]);
  if (cell != kNoCell) File(cluster, cell);
  cell_[at] = cell;
}

namespace {

/// Calls visit(cell) for a cell of a rolled-up plane and the eight around it.
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
    --list.count;
  });
}

}  // namespace sylvomex
