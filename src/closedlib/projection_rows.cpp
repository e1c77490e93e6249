// SPDX-License-Identifier: MIT
#include <limits>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "closedlib/projection_rows.cpp"
#include "hwy/foreach_target.h"  // IWYU pragma: keep

#include "closedlib/projection_rows.h"
#include "hwy/cache_control.h"
#include "hwy/highway.h"

HWY_BEFORE_NAMESPACE();
namespace sylvomex {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

using Reals = hn::CappedTag<double, 8>;
using Real = hn::Vec<Reals>;

/// a x + b y + c z, summed from left to right.
HWY_INLINE Real Row_Product(const double* row, Real x, Real y, Real z) {
  const Reals d;
  return hn::Add(hn::Add(hn::Mul(hn::Set(d, row[0]), x), hn::Mul(hn::Set(d, row[1]), y)),
                 hn::Mul(hn::Set(d, row[2]), z));
}

/// a x + b y + c.
HWY_INLINE Real Affine(const double* row, Real x, Real y) {
  const Reals d;
  return hn::Add(hn::Add(hn::Mul(hn::Set(d, row[0]), x), hn::Mul(hn::Set(d, row[1]), y)),
                 hn::Set(d, row[2]));
}

HWY_INLINE hn::Mask<Reals> Inside(Real at) {
  const Reals d;
  return hn::And(hn::Ge(at, hn::Zero(d)), hn::Le(at, hn::Set(d, kVolumeSide - 1)));
}

HWY_INLINE Real Entries(const PatchProjection& p, Real X, Real Y, Real Z) {
  const Reals d;
  const auto dx = hn::Sub(X, hn::Set(d, p.X0));
  const auto dy = hn::Sub(Y, hn::Set(d, p.Y0));
  const auto dz = hn::Sub(Z, hn::Set(d, p.Z0));
  const auto q = Row_Product(&p.m[6], dx, dy, dz);
  const auto x = hn::Div(hn::Mul(hn::Set(d, -p.c), Row_Product(&p.m[0], dx, dy, dz)), q);
  const auto y = hn::Div(hn::Mul(hn::Set(d, -p.c), Row_Product(&p.m[3], dx, dy, dz)), q);
  const auto col = hn::Round(hn::Sub(Affine(&p.affine[0], x, y), hn::Set(d, p.col_origin)));
  const auto row = hn::Round(hn::Sub(hn::Set(d, p.row_origin), Affine(&p.affine[3], x, y)));
  const auto finite = hn::Le(hn::Abs(q), hn::Set(d, std::numeric_limits<double>::max()));
  const auto seen =
      hn::And(hn::And(finite, hn::Ne(q, hn::Zero(d))), hn::And(Inside(col), Inside(row)));
  const auto entry = hn::Add(col, hn::Mul(hn::Set(d, kVolumeSide), row));
  return hn::IfThenElse(seen, entry, hn::Set(d, kNoEntry));
}

/// Prefetches the entries while the next points are projected; for an unseen point the first entry.
/// Entries lie a cache line apart.
HWY_INLINE void Call_Entries(const double* slice, hn::Vec<hn::RebindToSigned<Reals>> entries) {
  const hn::RebindToSigned<Reals> whole;
  HWY_ALIGN std::int64_t places[hn::MaxLanes(whole)];
  const auto seen = hn::Max(entries, hn::Zero(whole));
  // Times 9 as times 8 plus 1: no vector unit before AVX-512 multiplies 64-bit integers.
  static_assert(kVolumeImages == 9);
  hn::Store(hn::Add(hn::ShiftLeft<3>(seen), seen), whole, places);
  for (std::size_t lane = 0; lane < hn::Lanes(whole); ++lane) hwy::Prefetch(slice + places[lane]);
}

void Find_Entries(const PatchProjection& p, const Point3D* mesh, std::size_t count,
                  const double* slice, std::int64_t* entries) {
  const Reals d;
  const hn::RebindToSigned<Reals> whole;
  const std::size_t lanes = hn::Lanes(d);
  std::size_t k = 0;
  Real X, Y, Z;
  for (; k + lanes <= count; k += lanes) {
    hn::LoadInterleaved3(d, &mesh[k].X, X, Y, Z);
    const auto found = hn::ConvertTo(whole, Entries(p, X, Y, Z));
    hn::StoreU(found, whole, entries + k);
    Call_Entries(slice, found);
  }
  for (; k < count; ++k) {
    const auto entry =
        Entries(p, hn::Set(d, mesh[k].X), hn::Set(d, mesh[k].Y), hn::Set(d, mesh[k].Z));
    entries[k] = static_cast<std::int64_t>(hn::GetLane(entry));
  }
}

/// v ^ power for a power from 1 to 10, in a fixed order.
HWY_INLINE Real Power(Real v, int power) {
  const auto v2 = hn::Mul(v, v);
  const auto v4 = hn::Mul(v2, v2);
  Real result = hn::Set(Reals(), 1);
  if (power & 1) result = v;
  if (power & 2) result = hn::Mul(result, v2);
  if (power & 4) result = hn::Mul(result, v4);
  if (power & 8) result = hn::Mul(result, hn::Mul(v4, v4));
  return result;
}

/// product ^ (1 / n) by Newton's iteration for product ^ (-1 / n), which needs no division; the
/// start value, from the exponent's bits, is correct to 4 %.
HWY_INLINE Real Root(Real product, int n) {
  const Reals d;
  const hn::RebindToUnsigned<Reals> bits;
  const hn::Repartition<std::uint32_t, Reals> halves;
  const double inverse = 1.0 / n;
  const auto share = static_cast<std::uint32_t>((std::uint64_t{1} << 32) * inverse);
  // 1.0 has the exponent bits 1023; 0.045 centres the straight line that approximates log2.
  const auto start = static_cast<std::uint64_t>((1023.0 - 0.045) * (1 + inverse) * 0x1p52);
  const auto upper = hn::BitCast(halves, hn::ShiftRight<32>(hn::BitCast(bits, product)));
  const auto shared = hn::MulEven(upper, hn::Set(halves, share));
  auto y = hn::BitCast(d, hn::Sub(hn::Set(bits, start), shared));
  const auto above = hn::Set(d, n + 1);
  const auto scale = hn::Set(d, inverse);
  for (int pass = 0; pass < 5; ++pass) {
    const auto left = hn::Sub(above, hn::Mul(product, Power(y, n)));
    y = hn::Mul(y, hn::Mul(left, scale));
  }
  return hn::Mul(product, Power(y, n - 1));
}

void Find_Roots(const std::span<const float>* values, int n, std::size_t first, std::size_t count,
                float* scores) {
  const Reals d;
  const hn::Rebind<float, Reals> narrow;
  const std::size_t lanes = hn::Lanes(d);
  const auto root = [&](const auto& value_at) HWY_ATTR {
    auto product = hn::Add(hn::Set(d, 1), hn::PromoteTo(d, value_at(0)));
    for (int k = 1; k < n; ++k) {
      product = hn::Mul(product, hn::Add(hn::Set(d, 1), hn::PromoteTo(d, value_at(k))));
    }
    const auto positive = hn::Gt(product, hn::Zero(d));
    return hn::DemoteTo(narrow, hn::IfThenElseZero(positive, Root(product, n)));
  };
  std::size_t at = 0;
  for (; at + lanes <= count; at += lanes) {
    const auto value_at = [&](int k) HWY_ATTR { return hn::LoadU(narrow, &values[k][first + at]); };
    hn::StoreU(root(value_at), narrow, scores + at);
  }
  for (; at < count; ++at) {
    const auto value_at = [&](int k) HWY_ATTR { return hn::Set(narrow, values[k][first + at]); };
    scores[at] = hn::GetLane(root(value_at));
  }
}

}  // namespace HWY_NAMESPACE
}  // namespace sylvomex
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace sylvomex {

HWY_EXPORT(Find_Entries);
HWY_EXPORT(Find_Roots);

void Nearest_Entries(const PatchProjection& projection, std::span<const Point3D> mesh,
                     const double* slice, std::int64_t* entries) {
  HWY_DYNAMIC_DISPATCH(Find_Entries)(projection, mesh.data(), mesh.size(), slice, entries);
}

void Mean_Roots(std::span<const std::span<const float>> values, std::size_t first,
                std::size_t count, float* scores) {
  HWY_DYNAMIC_DISPATCH(Find_Roots)
  (values.data(), static_cast<int>(values.size()), first, count, scores);
}

}  // namespace sylvomex
#endif  // HWY_ONCE
