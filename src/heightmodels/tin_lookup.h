// SPDX-License-Identifier: MIT
// Heights from a triangulated model. Each lookup is defined as a linear search over the triangles
// that stops at the first one which holds the point; the buckets and faces of the model only find
// that triangle sooner.
//
// The caller keeps the hint: passed from point to point it reduces neighbouring lookups to one
// polygon test. It is a position in Index, for the tiled lookup a triangle number; both count
// from 1. A hint outside the table is a RunTimeError(SubscriptOutOfRange). Any X, Y is
// allowed, NaN and infinity included. Nothing here allocates.
#pragma once

#include <cstdint>
#include <span>

#include "heightmodels/tin_model.h"
#include "platform/table.h"

namespace sylvomex {

inline constexpr double kNoTinHeight = -99;

/// Position in Index of the first triangle that holds the point, 0 for none.
std::int32_t First_Position_By_Buckets(const TinModel& model, double X, double Y);

/// Lowest number of the triangles that hold the point, 0 for none.
std::int32_t Lowest_Number_By_Buckets(const TinModel& model, double X, double Y);

inline std::int32_t First_Position(const TinModel& model, double X, double Y) {
  const std::int32_t number = Certain_Holder(model.faces, X, Y);
  if (number > 0) return model.position_of[static_cast<std::size_t>(number - 1)];
  return First_Position_By_Buckets(model, X, Y);
}

inline std::int32_t Lowest_Number(const TinModel& model, double X, double Y) {
  const std::int32_t number = Certain_Holder(model.faces, X, Y);
  return number > 0 ? number : Lowest_Number_By_Buckets(model, X, Y);
}

/// The triangle of a number.
inline const TinTriangle& Tin_Triangle_At(const TinModel& model, std::int32_t number) {
  if (number < 1 || number > model.TriangleCount) Throw_Subscript(number, 1, model.TriangleCount);
  return model.Triangles[static_cast<std::size_t>(number - 1)];
}

/// The triangle at a position in Index.
inline const TinTriangle& Tin_Triangle_In_Index(const TinModel& model, std::int32_t position) {
  if (position < 1 || position > model.TriangleCount) {
    Throw_Subscript(position, 1, model.TriangleCount);
  }
  return Tin_Triangle_At(model, model.Index[static_cast<std::size_t>(position - 1)]);
}

/// Terrain by search. hint: 0 for none; set to the position of the triangle found, and to 0
/// after a miss, where the result is -99. A height of exactly 0 found by search counts as
/// a miss.
inline double Tin_Elevation(const TinModel& model, double X, double Y, std::int32_t& hint) {
  if (hint != 0) {
    const TinTriangle& hinted = Tin_Triangle_In_Index(model, hint);
    if (Holds(hinted, X, Y)) return Height_In_Triangle(hinted, X, Y);
  }
  hint = First_Position(model, X, Y);
  if (hint == 0) return kNoTinHeight;
  const double height = Height_In_Triangle(Tin_Triangle_In_Index(model, hint), X, Y);
  if (height != 0) return height;
  hint = 0;
  return kNoTinHeight;
}

/// Canopy by search. hint: 0 or less for none; set to the position of the triangle found, and
/// to -99 after a miss, where the result is 0. A height of exactly 0 found by search
/// counts as a miss.
inline double Tin_Chm_Elevation(const TinModel& model, double X, double Y, std::int32_t& hint) {
  constexpr std::int32_t kMissed = -99;
  if (hint > 0) {
    const TinTriangle& hinted = Tin_Triangle_In_Index(model, hint);
    if (Holds(hinted, X, Y)) return Height_In_Triangle(hinted, X, Y);
  }
  hint = First_Position(model, X, Y);
  const double height =
      hint == 0 ? 0 : Height_In_Triangle(Tin_Triangle_In_Index(model, hint), X, Y);
  if (height == 0) hint = kMissed;
  return height;
}

/// Heights of many points, each as from Tin_Elevation with a hint of 0; heights has room for all of
/// them. threads: 1 uses the calling thread, 0 uses all; the heights are the same.
void Tin_Elevations(const TinModel& model, std::span<const MapPoint> points,
                    std::span<double> heights, int threads = 0);

}  // namespace sylvomex
