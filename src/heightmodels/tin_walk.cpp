// SPDX-License-Identifier: MIT
#include <array>
#include <bit>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "heightmodels/tin_walk.cpp"
#include "hwy/foreach_target.h"  // IWYU pragma: keep

#include "heightmodels/tin_walk.h"
#include "hwy/cache_control.h"
#include "hwy/highway.h"

HWY_BEFORE_NAMESPACE();
namespace sylvomex {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;
using Reals = hn::CappedTag<double, 8>;
using Four = hn::FixedTag<float, 4>;
using Pair = hn::FixedTag<double, 2>;

void Find_Cells(const TinFaces& f, const MapPoint* points, std::size_t count, std::int32_t* cells) {
  const Reals d;
  const hn::Rebind<std::int32_t, Reals> whole;
  const auto columns = hn::Set(d, f.columns), rows = hn::Set(d, f.rows);
  const auto scale = hn::Set(d, f.cells_per_metre);
  const auto none = hn::Mul(columns, rows);
  std::size_t i = 0;
  for (; i + hn::Lanes(d) <= count; i += hn::Lanes(d)) {
    hn::Vec<Reals> X, Y;
    hn::LoadInterleaved2(d, &points[i].X, X, Y);
    const auto column = hn::Mul(hn::Sub(X, hn::Set(d, f.west)), scale);
    const auto row = hn::Mul(hn::Sub(Y, hn::Set(d, f.south)), scale);
    const auto inside = hn::And(hn::And(hn::Ge(column, hn::Zero(d)), hn::Lt(column, columns)),
                                hn::And(hn::Ge(row, hn::Zero(d)), hn::Lt(row, rows)));
    const auto cell = hn::Add(hn::Mul(hn::Floor(row), columns), hn::Floor(column));
    hn::StoreU(hn::DemoteTo(whole, hn::IfThenElse(inside, cell, none)), whole, cells + i);
  }
  for (; i < count; ++i) {
    const std::int64_t cell = Start_Cell(f, points[i].X, points[i].Y);
    cells[i] = static_cast<std::int32_t>(cell < 0 ? hn::GetLane(none) : static_cast<double>(cell));
  }
}

/// A bit for each of the three edges that the point is not clear of.
HWY_INLINE unsigned Not_Clear(hn::Vec<Four> distances) {
  const Four d;
  std::uint8_t bits[8];
  hn::StoreMaskBits(d, hn::Lt(distances, hn::Set(d, kClearOfEdge)), bits);
  return bits[0] & 7U;
}

/// All points that have not arrived step together, branch-free. A point too close to an edge
/// may step back and forth until the passes run out; the check after the last pass rejects it.
void Walk(const TinFaces& f, const MapPoint* points, std::size_t count, std::int32_t* numbers) {
  constexpr int kMostSteps = 12;
  const Four d;
  const Pair pair;
  const hn::Rebind<float, Pair> narrow;
  const double corner_of[2] = {f.west, f.south};
  const auto corner = hn::LoadU(pair, corner_of);
  std::array<std::uint8_t, kMostWalkers> walkers;
  for (std::size_t i = 0; i < count; ++i) walkers[i] = static_cast<std::uint8_t>(i);
  std::size_t left = count;
  for (int step = 0; step < kMostSteps && left > 0; ++step) {
    std::size_t still = 0;
    for (std::size_t k = 0; k < left; ++k) {
      const std::size_t i = walkers[k];
      const TinFace& face = f.faces[static_cast<std::uint32_t>(numbers[i])];
      const auto origin = hn::PromoteTo(pair, hn::LoadU(narrow, face.origin));
      const auto place = hn::Sub(hn::LoadU(pair, &points[i].X), corner);
      const auto from_origin = hn::DemoteTo(narrow, hn::Sub(place, origin));
      const auto xy = hn::Combine(d, from_origin, from_origin);
      const auto distance =
          hn::MulAdd(hn::LoadU(d, face.A), hn::Broadcast<0>(xy),
                     hn::MulAdd(hn::LoadU(d, face.B), hn::Broadcast<1>(xy), hn::LoadU(d, face.C)));
      const unsigned outside = Not_Clear(distance);
      const std::int32_t next = face.beyond[std::countr_zero(outside | 8U)];
      hwy::Prefetch(&f.faces[static_cast<std::uint32_t>(next)]);
      numbers[i] = next;
      walkers[still] = static_cast<std::uint8_t>(i);
      still += outside != 0 ? 1 : 0;
    }
    left = still;
  }
  for (std::size_t k = 0; k < left; ++k) {
    const std::size_t i = walkers[k];
    numbers[i] = Walk_To_Holder(f, numbers[i], points[i].X, points[i].Y);
  }
}

}  // namespace HWY_NAMESPACE
}  // namespace sylvomex
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace sylvomex {

HWY_EXPORT(Find_Cells);
HWY_EXPORT(Walk);

void Start_Cells(const TinFaces& faces, std::span<const MapPoint> points, std::int32_t* cells) {
  HWY_DYNAMIC_DISPATCH(Find_Cells)(faces, points.data(), points.size(), cells);
}

void Walk_To_Holders(const TinFaces& faces, std::span<const MapPoint> points,
                     std::int32_t* numbers) {
  HWY_DYNAMIC_DISPATCH(Walk)(faces, points.data(), points.size(), numbers);
}

}  // namespace sylvomex
#endif
