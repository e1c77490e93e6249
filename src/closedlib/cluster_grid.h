// SPDX-License-Identifier: MIT
// The nearest of up to 2000 moving cluster means, exactly as a walk over all of them finds it.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace sylvomex {

/// Means are filed by square cells a little wider than the distance limit. Every cell lists the
/// clusters of its own and the eight cells around, so one list holds all that can be near. The
/// plane is rolled up to 64 x 64 cells: strangers from afar in a list fail the distance test.
class ClusterGrid {
 public:
  static constexpr int kNone = -1;

  /// distance, metres: only a mean nearer than this is found; 0 or less finds none.
  explicit ClusterGrid(double distance);

  /// The nearest mean's number; the older one of two equally near.
  [[nodiscard]] int Nearest(double X, double Y) const;

  /// Adds a cluster; it has the next number from 0.
  void Add(double X, double Y);

  /// Moves the mean. One that is not finite is found no more.
  void Move(int cluster, double X, double Y);

  /// Calls the list that Nearest will read to the cache.
  void Prefetch(double X, double Y) const { __builtin_prefetch(&lists_[Cell(X, Y)]); }

  [[nodiscard]] int Count() const { return count_; }

 private:
  static constexpr int kMost = 2000;
  static constexpr std::int64_t kSide = 64;
  static constexpr std::size_t kInList = 31;
  static constexpr std::size_t kNoCell = ~std::size_t{0};

  /// Oldest first. A list that overflows stays crowded, and all clusters are walked instead.
  struct alignas(64) List {
    std::uint16_t count = 0;
    std::array<std::uint16_t, kInList> clusters{};
  };

  [[nodiscard]] std::int64_t Stripe(double at) const;
  [[nodiscard]] std::size_t Cell(double X, double Y) const;
  void File(int cluster, std::size_t cell);
  void Withdraw(int cluster, std::size_t cell);
  [[nodiscard]] int Nearest_Of_All(double X, double Y) const;

  double limit_;    // square of the distance
  double stripes_;  // a metre
  int count_ = 0;
  std::array<double, kMost> x_{}, y_{};
  std::array<std::size_t, kMost> cell_{};
  std::vector<List> lists_;
};

}  // namespace sylvomex
