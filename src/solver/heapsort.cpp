// SPDX-License-Identifier: MIT
#include "solver/heapsort.h"

#include <algorithm>
#include <string>

#include "platform/rounding.h"
#include "platform/table.h"
#include "platform/work_meter.h"

namespace sylvomex {
namespace {

constexpr std::int64_t kSiftsOfATask = 65536;  // between two looks at the work

/// The caller's arrays with index base 1; 64-bit positions, so that doubling one cannot overflow.
class IndexedValues {
 public:
  IndexedValues(std::int32_t n, std::span<const float> values, std::span<std::int32_t> index)
      : values_(values), index_(index) {
    const std::size_t room = std::min(values.size(), index.size());
    if (static_cast<std::size_t>(n) > room) Throw_Subscript(n, 1, static_cast<long long>(room));
  }

  std::int32_t& Index(std::int64_t position) {
    return index_[static_cast<std::size_t>(position - 1)];
  }
  float Value(std::int32_t element) const { return values_[static_cast<std::size_t>(element - 1)]; }
  float Value_At(std::int64_t position) { return Value(Index(position)); }

  /// Sifts the element down from position l within l .. ir until no child is larger.
  void Sift(std::int32_t element, std::int64_t l, std::int64_t ir) {
    const float value = Value(element);
    std::int64_t i = l;
    std::int64_t j = 2 * l;
    while (j <= ir) {
      if (j < ir && Value_At(j) < Value_At(j + 1)) ++j;
      if (!(value < Value_At(j))) break;
      Index(i) = Index(j);
      i = j;
      j += i;
    }
    Index(i) = element;
  }

 private:
  std::span<const float> values_;
  std::span<std::int32_t> index_;
};

void Sort_Index(std::int32_t n, IndexedValues& heap, std::int64_t& l) {
  for (std::int32_t j = 1; j <= n; ++j) heap.Index(j) = j;
  std::int64_t ir = n;
  WorkMeter meter(1.5 * n / kSiftsOfATask);
  for (std::int64_t sifts = 1; ir > 1; ++sifts) {
    if (sifts % kSiftsOfATask == 0) meter.Task();
    std::int32_t element = 0;
    if (l > 1) {
      element = heap.Index(--l);
    } else {
      element = heap.Index(ir);
      heap.Index(ir) = heap.Index(1);
      --ir;
    }
    heap.Sift(element, l, ir);
  }
}

}  // namespace

void Heapsort(std::int32_t n, std::span<const float> values, std::span<std::int32_t> index,
              const Report& report) {
  if (n < 1) return;
  std::int64_t l = static_cast<std::int64_t>(Round_Half_Even(n / 2.0 + 1));
  try {
    IndexedValues heap(n, values, index);
    Sort_Index(n, heap, l);
  } catch (const RunTimeError&) {
    if (report) report("Error in Heapsort, l is " + std::to_string(l));
  }
}

}  // namespace sylvomex
