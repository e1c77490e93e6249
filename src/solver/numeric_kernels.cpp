// SPDX-License-Identifier: MIT
#include "solver/numeric_kernels.h"

#include <algorithm>
#include <cmath>

#include "platform/checked_arithmetic.h"
#include "platform/number_text.h"
#include "platform/rounding.h"
#include "platform/table.h"

namespace sylvomex {
namespace {

constexpr const char* kNoDirection = "a vector of length 0 has no direction";

void Tell(const Report& report, std::string_view sentence) {
  if (report) report(sentence);
}

/// Entries 1 to n of the caller's arrays; the positions are held in 64 bits, so that
/// doubling one cannot overflow.
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

  /// Sinks the element from position l within l .. ir until no child is larger.
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
  while (ir > 1) {
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
    Tell(report, "Error in Heapsort, l is " + std::to_string(l));
  }
}

double Safe_Sqrt(double a, const Report& report) {
  if (!(a >= 0)) {
    Tell(report, "Square root of negative argument!");
    return 0.0001;
  }
  return std::sqrt(a);
}

double Vector_Length(const Vector3& v) {
  return Finite_Result(std::sqrt(v.x * v.x + v.y * v.y + v.z * v.z), "the length of a vector", v.x,
                       v.y, v.z);
}

double Angle_Between_Vectors(const Vector3& a, const Vector3& b) {
  const double dot = a.x * b.x + a.y * b.y + a.z * b.z;
  const double cosine = Quotient(dot, Vector_Length(a) * Vector_Length(b), kNoDirection);
  // Rounding may carry the cosine of parallel vectors past 1.
  return std::acos(std::clamp(cosine, -1.0, 1.0));
}

void Normalize_Vector(Vector3& v) {
  const double length = Vector_Length(v);
  v = {Quotient(v.x, length, kNoDirection), Quotient(v.y, length, kNoDirection),
       Quotient(v.z, length, kNoDirection)};
}

void Make_Vector(Vector3& v, double x, double y, double z) { v = {x, y, z}; }

std::string Random_Id8(double uniform) { return Format(std::floor(uniform * 1e8), "00000000"); }

}  // namespace sylvomex
