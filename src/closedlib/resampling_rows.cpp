// SPDX-License-Identifier: MIT
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "closedlib/resampling_rows.cpp"
#include "hwy/foreach_target.h"  // IWYU pragma: keep

#include <algorithm>
#include <array>
#include <cstring>

#include "closedlib/resampling_rows.h"
#include "hwy/cache_control.h"
#include "hwy/highway.h"
#include "platform/rounding.h"

HWY_BEFORE_NAMESPACE();
namespace sylvomex {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

using Singles = hn::CappedTag<float, 16>;
using Single = hn::Vec<Singles>;

/// Past the last of the pixels from k on that lie side by side in one row of the source.
std::size_t End_Of_Run(const SourcePlaces& places, std::size_t k, std::size_t count) {
  const hn::Rebind<std::int32_t, Singles> d;
  const std::size_t lanes = hn::Lanes(d);
  const std::int32_t first = places.pixel[k];
  for (std::size_t at = k; at < count; at += lanes) {
    const auto wanted = hn::Iota(d, first + static_cast<std::int32_t>(at - k));
    const auto goes_on = hn::Eq(hn::LoadU(d, &places.pixel[at]), wanted);
    if (hn::AllTrue(d, goes_on)) continue;
    return std::min(count, at + hn::FindKnownFirstTrue(d, hn::Not(goes_on)));
  }
  return count;
}

HWY_INLINE Single Load_Bytes(const std::uint8_t* at) {
  const hn::Rebind<std::uint8_t, Singles> bytes;
  const hn::Rebind<std::int32_t, Singles> words;
  return hn::ConvertTo(Singles(), hn::PromoteTo(words, hn::LoadU(bytes, at)));
}

/// a + weight (b - a).
HWY_INLINE Single Between(Single a, Single b, Single weight) {
  return hn::Add(a, hn::Mul(weight, hn::Sub(b, a)));
}

/// Values of 0 to 255 to the nearest integer, half to even: added to 2^23 a single has no fraction
/// left, and the integer stands in its lowest bits.
HWY_INLINE hn::Vec<hn::Rebind<std::uint8_t, Singles>> Rounded_Bytes(Single value) {
  const hn::Rebind<std::uint8_t, Singles> bytes;
  const hn::Rebind<std::uint32_t, Singles> words;
  const Single shifted = hn::Add(value, hn::Set(Singles(), 8388608.0F));
  return hn::TruncateTo(bytes, hn::BitCast(words, shifted));
}

/// Which of the weights from (vector x lanes) / channels on belongs to each byte of a vector.
struct WeightIndices {
  explicit WeightIndices(std::size_t channels) {
    const std::size_t lanes = hn::Lanes(Singles());
    for (std::size_t vector = 0; vector < channels; ++vector) {
      const std::size_t first = vector * lanes;
      for (std::size_t lane = 0; lane < lanes; ++lane) {
        of[vector][lane] = static_cast<std::int32_t>((first + lane) / channels - first / channels);
      }
    }
  }
  alignas(64) std::int32_t of[3][16];
};

/// Interpolates the pixels k to end - 1 of a run, whose bytes lie side by side; writes up to one
/// vector more.
HWY_INLINE void Interpolate_Run(const RasterSource& source, const SourcePlaces& places,
                                const WeightIndices& weights, std::size_t k, std::size_t end,
                                std::uint8_t* target) {
  const Singles d;
  const std::size_t lanes = hn::Lanes(d);
  const std::uint8_t* first =
      source.bytes + static_cast<std::ptrdiff_t>(source.channels) * places.pixel[k];
  const std::size_t size = source.channels * (end - k);
  std::size_t vector = 0;
  for (std::size_t done = 0; done < size; done += lanes) {
    const auto index = hn::SetTableIndices(d, weights.of[vector]);
    const std::size_t pixel = k + done / source.channels;
    const Single right = hn::TableLookupLanes(hn::LoadU(d, &places.right[pixel]), index);
    const Single below = hn::TableLookupLanes(hn::LoadU(d, &places.below[pixel]), index);
    const std::uint8_t* at = first + done;
    const std::uint8_t* lower = at + source.below;
    hwy::Prefetch(lower + source.ahead);
    const Single value =
        Between(Between(Load_Bytes(at), Load_Bytes(at + source.right), right),
                Between(Load_Bytes(lower), Load_Bytes(lower + source.right), right), below);
    hn::StoreU(Rounded_Bytes(value), hn::Rebind<std::uint8_t, Singles>(), target + done);
    vector = vector + 1 < source.channels ? vector + 1 : 0;
  }
}

/// The last pixels of a raster, beyond which nothing may be read, one byte at a time.
void Interpolate_At_End(const RasterSource& source, const SourcePlaces& places, std::size_t k,
                        std::uint8_t* target) {
  const std::uint8_t* at =
      source.bytes + static_cast<std::ptrdiff_t>(source.channels) * places.pixel[k];
  const auto between = [](float a, float b, float weight) { return a + weight * (b - a); };
  for (std::size_t channel = 0; channel < source.channels; ++channel, ++at) {
    const std::uint8_t* lower = at + source.below;
    const float value =
        between(between(at[0], at[source.right], places.right[k]),
                between(lower[0], lower[source.right], places.right[k]), places.below[k]);
    target[channel] = To_Byte(value);
  }
}

const WeightIndices& Weights_Of(std::size_t channels) {
  static const WeightIndices grey(1), colour(3);
  return channels == 1 ? grey : colour;
}

void InterpolateRaster(const RasterSource& source, const SourcePlaces& places, std::size_t count,
                       std::uint8_t* target) {
  const WeightIndices& weights = Weights_Of(source.channels);
  std::size_t k = 0;
  while (k < count) {
    if (places.pixel[k] == kNoSource) {
      const std::size_t first = k;
      while (k < count && places.pixel[k] == kNoSource) ++k;
      std::memset(target + source.channels * first, 0, source.channels * (k - first));
      continue;
    }
    const std::size_t end = End_Of_Run(places, k, count);
    const auto readable = std::clamp<std::int64_t>(source.last_whole + 1 - places.pixel[k], 0,
                                                   static_cast<std::int64_t>(end - k));
    const std::size_t end_of_vectors = k + static_cast<std::size_t>(readable);
    if (readable > 0) {
      Interpolate_Run(source, places, weights, k, end_of_vectors, target + source.channels * k);
    }
    for (k = end_of_vectors; k < end; ++k) {
      Interpolate_At_End(source, places, k, target + source.channels * k);
    }
  }
}

}  // namespace HWY_NAMESPACE
}  // namespace sylvomex
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace sylvomex {

HWY_EXPORT(InterpolateRaster);

void Interpolate_Raster(const RasterSource& source, const SourcePlaces& places, std::size_t count,
                        std::uint8_t* target) {
  // The last vector of a run reaches past it.
  std::array<std::uint8_t, 3 * kResampledTogether + kVectorRoom> chunk;
  HWY_DYNAMIC_DISPATCH(InterpolateRaster)(source, places, count, chunk.data());
  std::copy_n(chunk.data(), source.channels * count, target);
}

void Interpolate_Segments(const RasterSource& source, const SourceSegments& segments,
                          std::size_t first, std::size_t last, std::uint8_t* target) {
  const auto width = static_cast<int>(source.below / static_cast<std::ptrdiff_t>(source.channels));
  SourcePlaces places;
  Find_Segment_Places(segments, first, last, width, places);
  Interpolate_Raster(source, places, kSegmentPixels * (last - first), target);
}

}  // namespace sylvomex
#endif  // HWY_ONCE
