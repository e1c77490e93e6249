// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

namespace sylvomex {

/// The entries of a vector from the last to the first. The library's own view of that kind is not
/// accepted by every compiler that the fuzz targets and the lint are run with.
template <class Entry>
class Backwards {
 public:
  explicit Backwards(const std::vector<Entry>& entries) : entries_(entries) {}
  [[nodiscard]] auto begin() const { return entries_.rbegin(); }
  [[nodiscard]] auto end() const { return entries_.rend(); }

 private:
  const std::vector<Entry>& entries_;
};

}  // namespace sylvomex
