// SPDX-License-Identifier: MIT
// The nearest of up to 2000 moving cluster means, with the same answer as a linear search.
#pragma once

#include <hwy/base.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

namespace sylvomex {

/// The means lie in square cells a little wider than the distance limit. Every cell lists the
/// clusters of its own and the eight cells around it, so one list holds all candidates. Cell
/// numbers are taken modulo 64 in both directions: distant clusters that share a list fail the
/// distance test.
class ClusterGrid {
 public:
  static constexpr int kNone = -1;

  /// distance: metres; only a mean nearer than this is found; 0 or less finds none.
  explicit ClusterGrid(double distance);

  /// Number of the nearest mean; of two equally near, the older one.
  [[nodiscard]] int Nearest(double X, double Y) const;

  /// Adds a cluster; clusters are numbered from 0.
  void Add(double X, double Y);

  /// Moves the mean. A mean that is not finite is never found again.
  void Move(int cluster, double X, double Y);

  /// Prefetches the list that Nearest will read.
  HWY_INLINE void Prefetch(double X, double Y) const { __builtin_prefetch(&lists_[Cell(X, Y)]); }

  [[nodiscard]] int Count() const { return count_; }

 private:
  static constexpr int kMost = 2000;
  static constexpr std::int64_t kSide = 64;
  static constexpr std::size_t kInList = 28;
  static constexpr std::size_t kAtOnce = 4;     // entries of a list compared without a branch
  static constexpr std::size_t kMostOften = 8;  // lists seldom hold more
  static constexpr std::size_t kNoCell = ~std::size_t{0};

  /// Oldest first, then padded with the number kMost, which lies infinitely far away. A list that
  /// overflows stays marked as crowded, and all clusters are searched instead.
  struct alignas(64) List {
    List() { clusters.fill(kMost); }
    std::uint16_t count = 0;
    std::array<std::uint16_t, kInList> clusters;
  };
  struct alignas(16) Place {
    double X = 0, Y = 0;
  };

  // A cell is wider than the distance by more than the rounding of a stripe number, as long as that
  // number stays below kMostStripe.
  static constexpr double kWider = 1.001;
  static constexpr double kNarrowest = 1e-3;  // metres
  static constexpr double kMostStripe = 0x1p40;

  [[nodiscard]] std::int64_t Stripe(double at) const {
    // This order of min and max gives NaN a stripe of its own.
    const double stripe = std::max(-kMostStripe, std::min(kMostStripe, at * stripes_));
    const auto whole = static_cast<std::int64_t>(stripe);
    return whole - (static_cast<double>(whole) > stripe);
  }
  [[nodiscard]] std::size_t Cell(double X, double Y) const {
    return static_cast<std::size_t>((Stripe(Y) & (kSide - 1)) * kSide + (Stripe(X) & (kSide - 1)));
  }
  void File(int cluster, std::size_t cell);
  void Withdraw(int cluster, std::size_t cell);
  [[nodiscard]] int Nearest_Of_All(double X, double Y) const;

  double limit_;    // square of the distance
  double stripes_;  // stripes per metre
  int count_ = 0;
  std::array<Place, kMost + 1> places_{};
  std::array<std::size_t, kMost> cell_{};
  std::vector<List> lists_;
};

}  // namespace sylvomex
