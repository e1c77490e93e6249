// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <vector>

namespace sylvomex {

struct KeyedIndex {
  std::uint64_t key = 0;
  std::uint32_t index = 0;

  bool operator==(const KeyedIndex&) const = default;
};

/// Sorts by keys, equal ones in their present order: digit by digit from the least one (D. Knuth,
/// The Art of Computer Programming 3, section 5.2.5, algorithm R), over those bits alone in which
/// the keys differ in size.
void Sort_By_Keys(std::vector<KeyedIndex>& entries);

}  // namespace sylvomex
