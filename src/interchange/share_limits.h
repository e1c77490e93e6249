// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace sylvomex {

/// Finds the share that a key falls into: a table of equal steps of the keys leads near it.
class ShareLimits {
 public:
  /// limits: rising; share i holds the keys from limits[i - 1] up to below limits[i].
  explicit ShareLimits(std::vector<std::uint64_t> limits);

  /// 0 to Count() - 1.
  [[nodiscard]] std::size_t Share_Of(std::uint64_t key) const;
  [[nodiscard]] std::size_t Count() const { return limits_.size() + 1; }

 private:
  std::vector<std::uint64_t> limits_;
  unsigned shift_ = 0;                 // of a key less the first limit, to its step
  std::vector<std::uint32_t> passed_;  // limits at or below the start of each step; behind them all
};

}  // namespace sylvomex
