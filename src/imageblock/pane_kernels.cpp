// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstring>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "imageblock/pane_kernels.cpp"
#include "hwy/foreach_target.h"  // IWYU pragma: keep

#include "hwy/cache_control.h"
#include "hwy/highway.h"
#include "imageblock/pane_kernels.h"

HWY_BEFORE_NAMESPACE();
namespace sylvomex {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

constexpr std::size_t kLane = 16;       // bytes that a shuffle reaches
constexpr std::size_t kWidest = 64;     // bytes of the widest vector in use
constexpr std::uint8_t kNoByte = 0x80;  // a shuffle index that gives 0

/// Shuffles for three consecutive vectors of any width up to kWidest that start at a
/// pixel's first byte. An output byte comes from 2 bytes ahead, its own position or 2 bytes
/// behind; the load that starts 2 bytes early holds most of them, the one that starts 2
/// bytes late the rest.
struct SwapShuffles {
  alignas(kWidest) std::array<std::uint8_t, 3 * kWidest> early{};
  alignas(kWidest) std::array<std::uint8_t, 3 * kWidest> late{};
};

constexpr SwapShuffles Make_Swap_Shuffles() {
  SwapShuffles shuffles;
  for (std::size_t at = 0; at < 3 * kWidest; ++at) {
    const int from = static_cast<int>(at % kLane) + 2 - 2 * static_cast<int>(at % 3);
    const bool in_early = from + 2 < static_cast<int>(kLane);
    shuffles.early[at] = in_early ? static_cast<std::uint8_t>(from + 2) : kNoByte;
    shuffles.late[at] = in_early ? kNoByte : static_cast<std::uint8_t>(from - 2);
  }
  return shuffles;
}

constexpr SwapShuffles kSwapShuffles = Make_Swap_Shuffles();

void Swap_Pixels(const std::uint8_t* rgb, std::size_t first, std::size_t last, std::uint8_t* bgr) {
  for (std::size_t at = 3 * first; at < 3 * last; at += 3) {
    bgr[at] = rgb[at + 2];
    bgr[at + 1] = rgb[at + 1];
    bgr[at + 2] = rgb[at];
  }
}

void Swap_Row(const std::uint8_t* rgb, std::size_t pixels, std::uint8_t* bgr) {
  const hn::CappedTag<std::uint8_t, kWidest> d;
  const std::size_t lanes = hn::Lanes(d);
  // The first and last pixel are swapped singly: the loads reach 2 bytes beyond their pixels.
  if (pixels < lanes + 2) return Swap_Pixels(rgb, 0, pixels, bgr);
  const auto early0 = hn::Load(d, &kSwapShuffles.early[0]);
  const auto early1 = hn::Load(d, &kSwapShuffles.early[lanes]);
  const auto early2 = hn::Load(d, &kSwapShuffles.early[2 * lanes]);
  const auto late0 = hn::Load(d, &kSwapShuffles.late[0]);
  const auto late1 = hn::Load(d, &kSwapShuffles.late[lanes]);
  const auto late2 = hn::Load(d, &kSwapShuffles.late[2 * lanes]);
  const auto swap = [&](std::size_t at, auto early, auto late) HWY_ATTR {
    const auto from_early = hn::TableLookupBytesOr0(hn::LoadU(d, rgb + at - 2), early);
    const auto from_late = hn::TableLookupBytesOr0(hn::LoadU(d, rgb + at + 2), late);
    hn::StoreU(hn::Or(from_early, from_late), d, bgr + at);
  };
  const auto swap_three = [&](std::size_t at) HWY_ATTR {
    swap(at, early0, late0);
    swap(at + lanes, early1, late1);
    swap(at + 2 * lanes, early2, late2);
  };
  const std::size_t last_start = 3 * (pixels - 1 - lanes);
  for (std::size_t at = 3; at < last_start; at += 3 * lanes) swap_three(at);
  swap_three(last_start);
  Swap_Pixels(rgb, 0, 1, bgr);
  Swap_Pixels(rgb, pixels - 1, pixels, bgr);
}

/// Steps of five source pixels: one load, and for each of the factor's stores one shuffle
/// that gives 15 bytes. The sixteenth byte is overwritten by the next store.
void Expand_Groups(const ExpandPlan& plan, const std::uint8_t* source, std::size_t pane_bytes,
                   std::uint8_t* bgr) {
  const hn::Full128<std::uint8_t> d;
  const auto stores = static_cast<std::size_t>(plan.factor);
  const std::size_t source_step =
      static_cast<std::size_t>(ExpandPlan::kGroup) * static_cast<std::size_t>(plan.bytes_per_pixel);
  for (std::size_t at = 0; at < pane_bytes; source += source_step) {
    const auto group = hn::LoadU(d, source);
    for (std::size_t store = 0; store < stores; ++store, at += kLane - 1) {
      const auto shuffle = hn::LoadU(d, &plan.shuffles[kLane * store]);
      hn::StoreU(hn::TableLookupBytes(group, shuffle), d, bgr + at);
    }
  }
}

}  // namespace HWY_NAMESPACE
}  // namespace sylvomex
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace sylvomex {

HWY_EXPORT(Swap_Row);
HWY_EXPORT(Expand_Groups);

namespace {

constexpr std::size_t kCacheLine = 64;

std::uint32_t Load_Four(const std::uint8_t* from) {
  std::uint32_t four = 0;
  std::memcpy(&four, from, sizeof four);
  return four;
}

void Put_Pixel(const std::uint8_t* source, int bytes_per_pixel, std::uint8_t* bgr) {
  bgr[0] = source[bytes_per_pixel - 1];
  bgr[1] = source[bytes_per_pixel / 2];
  bgr[2] = source[0];
}

/// Calls put(k) for every pixel and prefetches the same pixel of the row ahead.
template <class Put>
void Gather(std::size_t step, std::size_t pixels, std::span<const std::uint8_t> ahead,
            const Put& put) {
  const std::size_t called = std::min(pixels, ahead.size() / step);
  for (std::size_t k = 0; k < called; ++k) {
    hwy::Prefetch(ahead.data() + k * step);
    put(k);
  }
  for (std::size_t k = called; k < pixels; ++k) put(k);
}

/// Four bytes are read and written for each pixel; the next pixel overwrites the surplus byte, so
/// the last pixel is copied byte by byte.
void Gather_Colour(const std::uint8_t* source, std::size_t step, std::size_t pixels,
                   std::span<const std::uint8_t> ahead, std::uint8_t* bgr) {
  Gather(step, pixels, ahead, [=](std::size_t k) {
    const std::uint32_t swapped = __builtin_bswap32(Load_Four(source + k * step)) >> 8;
    std::memcpy(bgr + 3 * k, &swapped, sizeof swapped);
  });
}

void Gather_Grey(const std::uint8_t* source, std::size_t step, std::size_t pixels,
                 std::span<const std::uint8_t> ahead, std::uint8_t* bgr) {
  Gather(step, pixels, ahead, [=](std::size_t k) {
    const std::uint32_t grey = source[k * step] * std::uint32_t{0x010101};
    std::memcpy(bgr + 3 * k, &grey, sizeof grey);
  });
}

}  // namespace

void Swap_Rgb_Row(const std::uint8_t* rgb, std::size_t pixels, std::uint8_t* bgr) {
  HWY_DYNAMIC_DISPATCH(Swap_Row)(rgb, pixels, bgr);
}

ExpandPlan Make_Expand_Plan(int bytes_per_pixel, std::int64_t factor) {
  ExpandPlan plan;
  plan.bytes_per_pixel = bytes_per_pixel;
  plan.factor = factor;
  if (factor > ExpandPlan::kMostByVector) return plan;
  for (std::size_t at = 0; at < 15 * static_cast<std::size_t>(factor); ++at) {
    const std::size_t pixel = at / 3 / static_cast<std::size_t>(factor);
    const std::size_t channel = bytes_per_pixel == 3 ? 2 - at % 3 : 0;
    plan.shuffles[at / 15 * 16 + at % 15] =
        static_cast<std::uint8_t>(pixel * static_cast<std::size_t>(bytes_per_pixel) + channel);
  }
  return plan;
}

void Expand_Row(const ExpandPlan& plan, const std::uint8_t* source, std::size_t pane_pixels,
                std::uint8_t* bgr) {
  if (plan.factor <= ExpandPlan::kMostByVector) {
    HWY_DYNAMIC_DISPATCH(Expand_Groups)(plan, source, 3 * pane_pixels, bgr);
    return;
  }
  const auto factor = static_cast<std::size_t>(plan.factor);
  for (std::size_t k = 0; k < pane_pixels; ++k) {
    const std::size_t from = k / factor * static_cast<std::size_t>(plan.bytes_per_pixel);
    Put_Pixel(source + from, plan.bytes_per_pixel, bgr + 3 * k);
  }
}

void Gather_Row(const std::uint8_t* source, int bytes_per_pixel, std::size_t step,
                std::size_t pixels, std::span<const std::uint8_t> ahead, std::uint8_t* bgr) {
  if (pixels == 0) return;
  const std::size_t all_but_last = pixels - 1;
  if (bytes_per_pixel == 3) {
    Gather_Colour(source, step, all_but_last, ahead, bgr);
  } else {
    Gather_Grey(source, step, all_but_last, ahead, bgr);
  }
  Put_Pixel(source + all_but_last * step, bytes_per_pixel, bgr + 3 * all_but_last);
}

void Prefetch_Bytes(std::span<const std::uint8_t> bytes) {
  for (std::size_t at = 0; at < bytes.size(); at += kCacheLine) hwy::Prefetch(&bytes[at]);
}

}  // namespace sylvomex
#endif  // HWY_ONCE
