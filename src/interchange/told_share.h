// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace sylvomex {

/// Is told which share of an import is done, 0 to 1, in rising order and by one thread at a time;
/// empty for an import that nobody waits for.
using ToldShare = std::function<void(double)>;

/// The part of a whole that lies between two of its shares.
inline ToldShare Part_Of(const ToldShare& whole, double from, double to) {
  if (!whole) return {};
  return [whole, from, to](double share) { whole(from + (to - from) * share); };
}

inline void Tell_Share(const ToldShare& told, double done, double total) {
  if (told && total > 0) told(done / total);
}

}  // namespace sylvomex
