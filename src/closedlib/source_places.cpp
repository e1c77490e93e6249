// SPDX-License-Identifier: MIT
#include "closedlib/source_places.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "closedlib/source_places.cpp"
#include "hwy/foreach_target.h"  // IWYU pragma: keep
#include "hwy/highway.h"

HWY_BEFORE_NAMESPACE();
namespace sylvomex {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

using Reals = hn::CappedTag<double, 8>;
using Real = hn::Vec<Reals>;
using Answers = hn::Mask<Reals>;
using Halves = hn::Rebind<float, Reals>;
using Wholes = hn::Rebind<std::int32_t, Reals>;
using Singles = hn::CappedTag<float, 16>;
using Single = hn::Vec<Singles>;

constexpr double kSlopeRoom = 0.24;              // pixels a pixel, about +-1 and 0
constexpr double kLargestBend = 3e-5;            // relative change of the denominator in a pixel
constexpr double kReach = 1.002 * kHalfSegment;  // of a tangent along which the parabola stays
constexpr double kClear = 0.001;                 // pixels between a segment and the source's border
constexpr double kNarrowest = 64;                // columns of a source that segments are read from
constexpr double kRowsBefore = 1, kRowsBehind = 3;  // of the source, not upper rows of a segment

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

/// What the source positions of several segments are computed from, at their middles.
struct SegmentMiddles {
  Real col, row;              // source position
  Real col_slope, row_slope;  // source pixels a target pixel
  Real bend;                  // relative change of the denominator in a target pixel
};

SegmentMiddles Middles_Of(const RowProjection& row, Real i) {
  const Reals d;
  const Real xn = hn::Add(hn::Set(d, row.Xmin), hn::Mul(i, hn::Set(d, row.PixelWidth)));
  const Real depth = Axis(row, 2, xn);
  const Real scale = hn::Div(hn::Set(d, -row.c), depth);
  const Real bend = hn::Div(hn::Set(d, row.matrix[6] * row.PixelWidth), depth);
  const Real x = hn::Mul(scale, Axis(row, 0, xn));
  const Real y = hn::Mul(scale, Axis(row, 1, xn));
  const auto slope = [&](double along, Real at) {
    return hn::Sub(hn::Mul(scale, hn::Set(d, along * row.PixelWidth)), hn::Mul(at, bend));
  };
  const Real x_slope = slope(row.matrix[0], x);
  const Real y_slope = slope(row.matrix[3], y);
  const std::array<double, 6>& a = row.affine;
  const auto turned = [&](double of_x, double of_y) {
    return hn::Add(hn::Mul(hn::Set(d, of_x), x_slope), hn::Mul(hn::Set(d, of_y), y_slope));
  };
  return {Affine(&a[0], x, y), hn::Sub(hn::Set(d, row.last_row), Affine(&a[3], x, y)),
          turned(a[0], a[1]), turned(-a[3], -a[4]), bend};
}

/// The values that a coordinate stays between along a segment.
struct Reach {
  Reach(Real middle, Real slope)
      : least(hn::Sub(middle, Half(slope))), greatest(hn::Add(middle, Half(slope))) {}

  [[nodiscard]] Answers Inside(double first, double last) const {
    const Reals d;
    return hn::And(hn::Ge(least, hn::Set(d, first)), hn::Le(greatest, hn::Set(d, last)));
  }
  [[nodiscard]] Answers Outside(double first, double last) const {
    const Reals d;
    return hn::Or(hn::Lt(greatest, hn::Set(d, first)), hn::Gt(least, hn::Set(d, last)));
  }

  Real least, greatest;

 private:
  static Real Half(Real slope) { return hn::Mul(hn::Abs(slope), hn::Set(Reals(), kReach)); }
};

HWY_INLINE Answers Near(Real value, Real wanted) {
  return hn::Le(hn::Abs(hn::Sub(value, wanted)), hn::Set(Reals(), kSlopeRoom));
}

HWY_INLINE void Store_Whole(Real value, std::int32_t* to) {
  hn::StoreU(hn::DemoteTo(Wholes(), value), Wholes(), to);
}

HWY_INLINE void Store_Single(Real value, float* to) {
  hn::StoreU(hn::DemoteTo(Halves(), value), Halves(), to);
}

void FindSourceSegments(const RowProjection& row, int first_col, SourceSegments& segments) {
  const Reals d;
  const auto set = [d](double value) { return hn::Set(d, value); };
  for (std::size_t k = 0; k < kChunkSegments; k += hn::Lanes(d)) {
    const double middle = first_col + static_cast<double>(kSegmentPixels * k + kHalfSegment);
    const Real i = hn::Add(hn::Mul(hn::Iota(d, 0.0), set(kSegmentPixels)), set(middle));
    const SegmentMiddles at = Middles_Of(row, i);
    const Answers steady = hn::Le(hn::Abs(at.bend), set(kLargestBend));
    const Answers mirrored = hn::Lt(at.col_slope, hn::Zero(d));
    const Real step = hn::IfThenElse(mirrored, set(-1), set(1));
    const Reach cols(at.col, at.col_slope), rows(at.row, at.row_slope);
    const Answers inside = hn::And(cols.Inside(kClear, row.last_col - kClear),
                                   rows.Inside(kRowsBefore, row.last_row - kRowsBehind));
    const Answers slopes = hn::And(Near(at.col_slope, step), Near(at.row_slope, hn::Zero(d)));
    const Answers wide = hn::Ge(set(row.last_col + 1), set(kNarrowest));
    const Answers parabola = hn::And(hn::And(steady, wide), hn::And(inside, slopes));
    const Answers black = hn::And(steady, hn::Or(cols.Outside(-kClear, row.last_col + kClear),
                                                 rows.Outside(-kClear, row.last_row + kClear)));
    const Real top = hn::Floor(rows.least);
    const Real left = hn::Floor(at.col);
    const Real lead = hn::IfThenElse(mirrored, set(kSegmentLead[1]), set(kSegmentLead[0]));
    const Real start = hn::Sub(hn::Add(left, hn::Mul(top, set(row.last_col + 1))), lead);
    const Real kind = hn::IfThenElse(black, set(kBlackSegment), set(kByPixel));
    Store_Whole(hn::IfThenElse(parabola, hn::Sub(hn::Floor(rows.greatest), top), kind),
                &segments.span[k]);
    Store_Whole(hn::IfThenElseZero(mirrored, set(1)), &segments.mirrored[k]);
    Store_Whole(hn::IfThenElseZero(parabola, start), &segments.pixel[k]);
    Store_Single(hn::Sub(at.col, left), &segments.col[k]);
    Store_Single(hn::Sub(at.col_slope, step), &segments.col_slope[k]);
    Store_Single(hn::Neg(hn::Mul(at.col_slope, at.bend)), &segments.col_bend[k]);
    Store_Single(hn::Sub(at.row, top), &segments.row[k]);
    Store_Single(at.row_slope, &segments.row_slope[k]);
    Store_Single(hn::Neg(hn::Mul(at.row_slope, at.bend)), &segments.row_bend[k]);
  }
}

HWY_INLINE Single Parabola(float at, float slope, float bend, Single u) {
  const Singles d;
  const Single tangent = hn::Add(hn::Set(d, slope), hn::Mul(u, hn::Set(d, bend)));
  return hn::Add(hn::Set(d, at), hn::Mul(u, tangent));
}

void FindSegmentPlaces(const SourceSegments& segments, std::size_t first, std::size_t last,
                       int width, SourcePlaces& places) {
  const Singles d;
  const hn::Rebind<std::int32_t, Singles> whole;
  for (std::size_t k = 0; k < (last - first) * kSegmentPixels; k += hn::Lanes(d)) {
    const std::size_t s = first + k / kSegmentPixels;
    const Single u = hn::Iota(d, static_cast<float>(k % kSegmentPixels) - kHalfSegment);
    const Single col = Parabola(segments.col[s], segments.col_slope[s], segments.col_bend[s], u);
    const Single row = Parabola(segments.row[s], segments.row_slope[s], segments.row_bend[s], u);
    const Single left = hn::Floor(col);
    const Single upper = hn::Min(hn::Max(hn::Floor(row), hn::Zero(d)),
                                 hn::Set(d, static_cast<float>(segments.span[s])));
    const int mirrored = segments.mirrored[s];
    const Single along = hn::Add(hn::Mul(u, hn::Set(d, mirrored == 0 ? 1.0F : -1.0F)),
                                 hn::Set(d, kSegmentLead[mirrored]));
    // Whole numbers below 2^24.
    const Single from_start =
        hn::Add(hn::Add(left, along), hn::Mul(upper, hn::Set(d, static_cast<float>(width))));
    const auto pixel = hn::Add(hn::ConvertTo(whole, from_start), hn::Set(whole, segments.pixel[s]));
    hn::StoreU(pixel, whole, &places.pixel[k]);
    hn::StoreU(hn::Sub(col, left), d, &places.right[k]);
    hn::StoreU(hn::Sub(row, upper), d, &places.below[k]);
  }
}

}  // namespace HWY_NAMESPACE
}  // namespace sylvomex
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace sylvomex {

HWY_EXPORT(FindSourcePlaces);
HWY_EXPORT(FindSourceSegments);
HWY_EXPORT(FindSegmentPlaces);

void Find_Source_Places(const RowProjection& row, int first_col, std::size_t count,
                        SourcePlaces& places) {
  HWY_DYNAMIC_DISPATCH(FindSourcePlaces)(row, first_col, count, places);
}

void Find_Source_Segments(const RowProjection& row, int first_col, SourceSegments& segments) {
  HWY_DYNAMIC_DISPATCH(FindSourceSegments)(row, first_col, segments);
}

void Find_Segment_Places(const SourceSegments& segments, std::size_t first, std::size_t last,
                         int width, SourcePlaces& places) {
  HWY_DYNAMIC_DISPATCH(FindSegmentPlaces)(segments, first, last, width, places);
}

}  // namespace sylvomex
#endif  // HWY_ONCE
