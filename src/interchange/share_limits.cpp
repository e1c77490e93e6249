// SPDX-License-Identifier: MIT
#include "interchange/share_limits.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace sylvomex {
namespace {

constexpr unsigned kStepBits = 13;

}  // namespace

ShareLimits::ShareLimits(std::vector<std::uint64_t> limits) : limits_(std::move(limits)) {
  if (limits_.empty()) return;
  const std::uint64_t range = limits_.back() - limits_.front();
  const auto bits = static_cast<unsigned>(std::bit_width(range));
  shift_ = bits > kStepBits ? bits - kStepBits : 0;
  const std::uint64_t steps = (range >> shift_) + 1;
  std::size_t passed = 0;
  for (std::uint64_t step = 0; step < steps; ++step) {
    const std::uint64_t start = step << shift_;
    while (passed < limits_.size() && limits_[passed] - limits_.front() <= start) ++passed;
    passed_.push_back(static_cast<std::uint32_t>(passed));
  }
  passed_.push_back(static_cast<std::uint32_t>(limits_.size()));
}

std::size_t ShareLimits::Share_Of(std::uint64_t key) const {
  if (limits_.empty() || key < limits_.front()) return 0;
  if (key >= limits_.back()) return limits_.size();
  const auto step = static_cast<std::size_t>((key - limits_.front()) >> shift_);
  const auto at = [&](std::size_t i) { return limits_.begin() + passed_[i]; };
  return static_cast<std::size_t>(std::upper_bound(at(step), at(step + 1), key) - limits_.begin());
}

}  // namespace sylvomex
