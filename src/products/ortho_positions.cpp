// SPDX-License-Identifier: MIT
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "products/ortho_positions.cpp"
#include "hwy/foreach_target.h"  // IWYU pragma: keep

#include <limits>

#include "hwy/cache_control.h"
#include "hwy/highway.h"
#include "products/ortho_positions.h"

HWY_BEFORE_NAMESPACE();
namespace sylvomex {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

/// Positions of one vector of cells. D: a vector of some doubles, or of one for a row's rest.
template <class D>
struct PositionStep {
  using Real = hn::Vec<D>;

  const OrthoSource& source;
  double dY;

  HWY_INLINE Real Axis(double of_dY, double of_dZ, const double* column, Real dZ) const {
    const D d;
    return hn::Add(hn::Add(hn::LoadU(d, column), hn::Set(d, of_dY * dY)),
                   hn::Mul(hn::Set(d, of_dZ), dZ));
  }

  static HWY_INLINE Real Affine(double a1, double a2, double a0, Real x, Real y) {
    const D d;
    return hn::Add(hn::Add(hn::Mul(hn::Set(d, a1), x), hn::Mul(hn::Set(d, a2), y)), hn::Set(d, a0));
  }

  /// Byte positions, NaN where they need a closer look.
  HWY_INLINE Real At(const ColumnAxes& columns, const double* Z, std::size_t k) const {
    const D d;
    const Camera& camera = source.camera;
    const RotationMatrix& m = camera.m;
    const Real dZ = hn::Sub(hn::LoadU(d, Z + k), hn::Set(d, camera.centre.Z));
    const Real r = Axis(m.m12, m.m13, &columns.r[k], dZ);
    const Real s = Axis(m.m22, m.m23, &columns.s[k], dZ);
    // Without a principal distance there is no film either: the camera model decides.
    const Real q = camera.c == 0 ? hn::Zero(d) : Axis(m.m32, m.m33, &columns.q[k], dZ);
    const Real minus_c = hn::Set(d, -camera.c);
    const Real x = hn::Div(hn::Mul(minus_c, r), q);
    const Real y = hn::Div(hn::Mul(minus_c, s), q);
    const Real col = hn::Round(Affine(camera.A1, camera.A2, camera.A0, x, y));
    const Real row = hn::Round(Affine(camera.B1, camera.B2, camera.B0, x, y));
    const Real pixel_bytes = hn::Set(d, source.pixel_bytes);
    const Real above = hn::Sub(hn::Set(d, source.sub_height - 1), row);
    const Real start =
        hn::Round(hn::Mul(hn::Mul(above, hn::Set(d, source.sub_width)), pixel_bytes));
    const Real position = hn::Add(start, hn::Mul(col, pixel_bytes));
    constexpr double kFarthest = 4503599627370496.0;  // 2^52: numbers are whole up to there
    const auto plain =
        hn::And(hn::Ne(q, hn::Zero(d)), hn::Lt(hn::Abs(position), hn::Set(d, kFarthest)));
    const Real nan = hn::Set(d, std::numeric_limits<double>::quiet_NaN());
    return hn::IfThenElse(plain, position, nan);
  }
};

template <class D>
HWY_INLINE void StorePositions(const PositionStep<D>& step, const ColumnAxes& columns,
                               const double* Z, std::size_t k, double* positions) {
  hn::StoreU(step.At(columns, Z, k), D(), positions + k);
}

/// Offsets of one vector of cells after the other.
template <class D>
struct OffsetStep {
  PositionStep<D> position;
  double lowest, highest;

  HWY_INLINE void At(const ColumnAxes& columns, const double* Z, std::size_t k,
                     std::uint32_t* offsets, RowCells& cells) const {
    const D d;
    const hn::Rebind<std::int32_t, D> whole;
    const auto at = position.At(columns, Z, k);
    const auto black = hn::Lt(at, hn::Set(d, lowest));
    const auto read = hn::And(hn::Ge(at, hn::Set(d, lowest)), hn::Le(at, hn::Set(d, highest)));
    const auto offset = hn::IfThenElse(read, at, hn::Set(d, -1.0));
    hn::StoreU(hn::DemoteTo(whole, offset), whole, reinterpret_cast<std::int32_t*>(offsets + k));
    if (HWY_LIKELY(hn::AllTrue(d, read))) {
      cells.any_read = true;
      // The pixels are copied when the whole row is computed: until then they come from memory.
      hwy::Prefetch(position.source.bytes.data() + offsets[k]);
      return;
    }
    cells.any_read = cells.any_read || !hn::AllFalse(d, read);
    cells.any_black = cells.any_black || !hn::AllFalse(d, black);
    cells.any_other = cells.any_other || !hn::AllTrue(d, hn::Or(read, black));
  }
};

void FindBytePositions(const OrthoSource& source, const ColumnAxes& columns, double dY,
                       const double* Z, std::size_t count, double* positions) {
  using Several = hn::CappedTag<double, 8>;
  using One = hn::CappedTag<double, 1>;
  const PositionStep<Several> several{source, dY};
  const PositionStep<One> one{source, dY};
  const std::size_t lanes = hn::Lanes(Several());
  std::size_t k = 0;
  for (; k + lanes <= count; k += lanes) StorePositions(several, columns, Z, k, positions);
  for (; k < count; ++k) StorePositions(one, columns, Z, k, positions);
}

RowCells FindByteOffsets(const OrthoSource& source, const ColumnAxes& columns, double dY,
                         const double* Z, double lowest, std::size_t count,
                         std::uint32_t* offsets) {
  using Several = hn::CappedTag<double, 8>;
  using One = hn::CappedTag<double, 1>;
  const double highest = static_cast<double>(source.bytes.size()) - 4;
  const OffsetStep<Several> several{{source, dY}, lowest, highest};
  const OffsetStep<One> one{{source, dY}, lowest, highest};
  const std::size_t lanes = hn::Lanes(Several());
  RowCells cells;
  std::size_t k = 0;
  for (; k + lanes <= count; k += lanes) several.At(columns, Z, k, offsets, cells);
  for (; k < count; ++k) one.At(columns, Z, k, offsets, cells);
  return cells;
}

}  // namespace HWY_NAMESPACE
}  // namespace sylvomex
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace sylvomex {

HWY_EXPORT(FindBytePositions);

void Find_Byte_Positions(const OrthoSource& source, const ColumnAxes& columns, double dY,
                         std::span<const double> Z, std::span<double> positions) {
  HWY_DYNAMIC_DISPATCH(FindBytePositions)
  (source, columns, dY, Z.data(), positions.size(), positions.data());
}

HWY_EXPORT(FindByteOffsets);

RowCells Find_Byte_Offsets(const OrthoSource& source, const ColumnAxes& columns, double dY,
                           std::span<const double> Z, double lowest,
                           std::span<std::uint32_t> offsets) {
  return HWY_DYNAMIC_DISPATCH(FindByteOffsets)(source, columns, dY, Z.data(), lowest,
                                               offsets.size(), offsets.data());
}

}  // namespace sylvomex
#endif  // HWY_ONCE
