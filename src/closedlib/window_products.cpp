// SPDX-License-Identifier: MIT
#include "closedlib/window_products.h"

#include <algorithm>

// Scalable vectors have no size at compile time and cannot be stored in a struct.
#define HWY_DISABLED_TARGETS (HWY_SVE | HWY_SVE2 | HWY_SVE_256 | HWY_SVE2_128 | HWY_RVV)
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "closedlib/window_products.cpp"
#include "hwy/foreach_target.h"  // IWYU pragma: keep
#include "hwy/highway.h"

HWY_BEFORE_NAMESPACE();
namespace sylvomex {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

using Words = hn::ScalableTag<std::int16_t>;
using Bytes = hn::Rebind<std::uint8_t, Words>;
using Sums = hn::RepartitionToWide<Words>;

/// Two partial results; only their sum is meaningful.
struct Pair {
  hn::Vec<Sums> low, high;
};

HWY_INLINE Pair No_Sum() { return {hn::Zero(Sums()), hn::Zero(Sums())}; }

HWY_INLINE void Add_Products(hn::Vec<Words> x, hn::Vec<Words> y, Pair& sum) {
  sum.low = hn::ReorderWidenMulAccumulate(Sums(), x, y, sum.low, sum.high);
}

HWY_INLINE std::int64_t Total(const Pair& sum) {
  return hn::GetLane(hn::SumOfLanes(Sums(), hn::Add(sum.low, sum.high)));
}

// Short enough that neither a 32-bit lane nor the sum of the lanes overflows.
constexpr std::size_t kBlock = 8192;

HWY_INLINE void Add_Block(const std::uint8_t* a, const std::uint8_t* b, std::size_t count,
                          WindowProducts& sums) {
  const Words words;
  const Bytes bytes;
  const std::size_t lanes = hn::Lanes(words);
  Pair aa = No_Sum(), bb = No_Sum(), ab = No_Sum(), ones = No_Sum();
  const auto one = hn::Set(words, 1);
  std::size_t i = 0;
  for (; i + lanes <= count; i += lanes) {
    const auto x = hn::PromoteTo(words, hn::LoadU(bytes, a + i));
    const auto y = hn::PromoteTo(words, hn::LoadU(bytes, b + i));
    Add_Products(x, x, aa);
    Add_Products(y, y, bb);
    Add_Products(x, y, ab);
    Add_Products(y, one, ones);
  }
  sums.aa += Total(aa);
  sums.bb += Total(bb);
  sums.ab += Total(ab);
  sums.b += Total(ones);
  for (; i < count; ++i) {
    sums.aa += a[i] * a[i];
    sums.bb += b[i] * b[i];
    sums.ab += a[i] * b[i];
    sums.b += b[i];
  }
}

WindowProducts Products(const std::uint8_t* a, const std::uint8_t* b, std::size_t count) {
  WindowProducts sums;
  for (std::size_t i = 0; i < count; i += kBlock) {
    Add_Block(a + i, b + i, std::min(kBlock, count - i), sums);
  }
  return sums;
}

}  // namespace HWY_NAMESPACE
}  // namespace sylvomex
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace sylvomex {

HWY_EXPORT(Products);

WindowProducts Products_Of_Windows(const std::uint8_t* a, const std::uint8_t* b,
                                   std::size_t count) {
  return HWY_DYNAMIC_DISPATCH(Products)(a, b, count);
}

}  // namespace sylvomex
#endif
