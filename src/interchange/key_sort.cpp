// SPDX-License-Identifier: MIT
#include "interchange/key_sort.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>

namespace sylvomex {
namespace {

constexpr unsigned kDigitBits = 11;
constexpr std::size_t kDigits = std::size_t{1} << kDigitBits;

std::size_t Digit_Of(std::uint64_t key, unsigned shift) {
  return static_cast<std::size_t>(key >> shift) & (kDigits - 1);
}

/// One pass: from `from` to `to`, by the digit at a shift.
void Sort_By_Digit(const std::vector<KeyedIndex>& from, std::uint64_t least, unsigned shift,
                   std::vector<KeyedIndex>& to) {
  std::array<std::uint32_t, kDigits + 1> starts{};
  for (const KeyedIndex& entry : from) ++starts[Digit_Of(entry.key - least, shift) + 1];
  for (std::size_t digit = 0; digit < kDigits; ++digit) starts[digit + 1] += starts[digit];
  for (const KeyedIndex& entry : from) {
    to[starts[Digit_Of(entry.key - least, shift)]++] = entry;
  }
}

}  // namespace

void Sort_By_Keys(std::vector<KeyedIndex>& entries) {
  if (entries.empty()) return;
  const auto [low, high] =
      std::minmax_element(entries.begin(), entries.end(),
                          [](const KeyedIndex& a, const KeyedIndex& b) { return a.key < b.key; });
  const std::uint64_t least = low->key;
  const auto bits = static_cast<unsigned>(std::bit_width(high->key - least));
  std::vector<KeyedIndex> other(entries.size());
  for (unsigned shift = 0; shift < bits; shift += kDigitBits) {
    Sort_By_Digit(entries, least, shift, other);
    entries.swap(other);
  }
}

}  // namespace sylvomex
