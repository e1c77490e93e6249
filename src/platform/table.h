// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string>

#include "platform/run_time_error.h"

namespace sylvomex {

/// Throws RunTimeError(SubscriptOutOfRange) naming the index and the bounds.
[[noreturn]] void Throw_Subscript(long long index, long long first, long long last);

/// A table of fixed size with entries First to Last, both included. Every access is
/// checked: an index outside throws RunTimeError(SubscriptOutOfRange).
template <class T, int First, int Last>
class Table {
 public:
  static constexpr int kFirst = First;
  static constexpr int kLast = Last;
  static constexpr int kSize = Last - First + 1;

  T& operator()(long long index) {
    Check(index);
    return entries_[static_cast<std::size_t>(index - First)];
  }
  const T& operator()(long long index) const {
    Check(index);
    return entries_[static_cast<std::size_t>(index - First)];
  }

  auto begin() { return entries_.begin(); }
  auto end() { return entries_.end(); }
  auto begin() const { return entries_.begin(); }
  auto end() const { return entries_.end(); }

 private:
  static void Check(long long index) {
    if (index < First || index > Last) Throw_Subscript(index, First, Last);
  }
  std::array<T, static_cast<std::size_t>(kSize)> entries_{};
};

}  // namespace sylvomex
