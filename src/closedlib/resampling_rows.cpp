// SPDX-License-Identifier: MIT
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "closedlib/resampling_rows.cpp"
#include "hwy/foreach_target.h"  // IWYU pragma: keep

#include <cstring>

#include "closedlib/resampling_rows.h"
#include "hwy/highway.h"

HWY_BEFORE_NAMESPACE();
namespace sylvomex {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

using Reals = hn::CappedTag<double, 8>;
using Real = hn::Vec<Reals>;
using Halves = hn::Rebind<float, Reals>;
using Wholes = hn::Rebind<std::int32_t, Reals>;
using Pixel = hn::FixedTag<float, 4>;

/// a x + b y - c z; b y and c z are constant along the row.
HWY_INLINE Real Axis(const RowProjection& row, std::size_t axis, Real xn) {
  const Reals d;
  const double* m = &row.matrix[3 * axis];
  return hn::Sub(hn::Add(hn::Mul(hn::Set(d, m[0]), xn), hn::Set(d, m[1] * row.yn)),
                 hn::Set(d, m[2] * row.c));
}

HWY_INLINE Real Affine(const double* a, Real x, Real y) {
  const Reals d;
  return hn::Add(hn::Add(hn::Mul(hn::Set(d, a[0]), x), hn::Mul(hn::Set(d, a[1]), y)),
                 hn::Set(d, a[2]));
}

HWY_INLINE hn::Mask<Reals> Within(Real at, double last) {
  const Reals d;
  return hn::And(hn::Ge(at, hn::Zero(d)), hn::Le(at, hn::Set(d, last)));
}

void FindSourcePlaces(const RowProjection& row, int first_col, std::size_t count,
                      SourcePlaces& places) {
  const Reals d;
  const Wholes whole;
  const Halves half;
  const std::size_t lanes = hn::Lanes(d);
  for (std::size_t k = 0; k < count; k += lanes) {
    const Real i = hn::Add(hn::Iota(d, 0.0), hn::Set(d, first_col + static_cast<double>(k)));
    const Real xn = hn::Add(hn::Set(d, row.Xmin), hn::Mul(i, hn::Set(d, row.PixelWidth)));
    const Real scale = hn::Div(hn::Set(d, -row.c), Axis(row, 2, xn));
    const Real x = hn::Mul(scale, Axis(row, 0, xn));
    const Real y = hn::Mul(scale, Axis(row, 1, xn));
    const Real col = Affine(&row.affine[0], x, y);
    const Real down = hn::Sub(hn::Set(d, row.last_row), Affine(&row.affine[3], x, y));
    const auto seen = hn::And(Within(col, row.last_col), Within(down, row.last_row));
    const Real left = hn::Min(hn::Floor(col), hn::Set(d, row.last_start_col));
    const Real upper = hn::Min(hn::Floor(down), hn::Set(d, row.last_start_row));
    const Real pixel = hn::Add(left, hn::Mul(upper, hn::Set(d, row.last_col + 1)));
    const Real safe = hn::IfThenElse(seen, pixel, hn::Set(d, double{kNoSource}));
    hn::StoreU(hn::DemoteTo(whole, safe), whole, &places.pixel[k]);
    hn::StoreU(hn::DemoteTo(half, hn::Sub(col, left)), half, &places.right[k]);
    hn::StoreU(hn::DemoteTo(half, hn::Sub(down, upper)), half, &places.below[k]);
  }
}

HWY_INLINE hn::Vec<Pixel> Load_Pixel(const std::uint8_t* at) {
  const hn::FixedTag<std::uint8_t, 4> bytes;
  const hn::FixedTag<std::int32_t, 4> words;
  return hn::ConvertTo(Pixel(), hn::PromoteTo(words, hn::LoadU(bytes, at)));
}

/// a + weight (b - a).
HWY_INLINE hn::Vec<Pixel> Between(hn::Vec<Pixel> a, hn::Vec<Pixel> b, float weight) {
  return hn::Add(a, hn::Mul(hn::Set(Pixel(), weight), hn::Sub(b, a)));
}

HWY_INLINE void Interpolate(const std::uint8_t* at, const ColourSource& source, float right,
                            float below, std::uint8_t* target) {
  const hn::FixedTag<std::uint8_t, 4> bytes;
  const auto upper = Between(Load_Pixel(at), Load_Pixel(at + source.right), right);
  const auto lower =
      Between(Load_Pixel(at + source.below), Load_Pixel(at + source.below + source.right), right);
  const auto value = hn::NearestInt(Between(upper, lower, below));
  hn::StoreU(hn::DemoteTo(bytes, value), bytes, target);
}

/// The last pixels of a raster, beyond which nothing may be read, are interpolated from a copy.
void Interpolate_At_End(const std::uint8_t* at, const ColourSource& source, float right,
                        float below, std::uint8_t* target) {
  std::uint8_t copy[16] = {};
  std::memcpy(copy, at, 3);
  std::memcpy(copy + 3, at + source.right, 3);
  std::memcpy(copy + 6, at + source.below, 3);
  std::memcpy(copy + 9, at + source.below + source.right, 3);
  const ColourSource from_copy{copy, 3, 6, 0};
  Interpolate(copy, from_copy, right, below, target);
}

void InterpolateColour(const ColourSource& source, const SourcePlaces& places, std::size_t count,
                       std::uint8_t* target) {
  for (std::size_t k = 0; k < count; ++k, target += 3) {
    const std::int32_t pixel = places.pixel[k];
    if (pixel == kNoSource) {
      std::memset(target, 0, 3);
      continue;
    }
    const std::uint8_t* at = source.bytes + 3 * std::ptrdiff_t{pixel};
    if (pixel <= source.last_whole) {
      Interpolate(at, source, places.right[k], places.below[k], target);
    } else {
      Interpolate_At_End(at, source, places.right[k], places.below[k], target);
    }
  }
}

}  // namespace HWY_NAMESPACE
}  // namespace sylvomex
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace sylvomex {

HWY_EXPORT(FindSourcePlaces);
HWY_EXPORT(InterpolateColour);

void Find_Source_Places(const RowProjection& row, int first_col, std::size_t count,
                        SourcePlaces& places) {
  HWY_DYNAMIC_DISPATCH(FindSourcePlaces)(row, first_col, count, places);
}

void Interpolate_Colour(const ColourSource& source, const SourcePlaces& places, std::size_t count,
                        std::uint8_t* target) {
  HWY_DYNAMIC_DISPATCH(InterpolateColour)(source, places, count, target);
}

}  // namespace sylvomex
#endif  // HWY_ONCE
