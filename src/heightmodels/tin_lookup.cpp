// SPDX-License-Identifier: MIT
#include "heightmodels/tin_lookup.h"

#include <array>

#include "closedlib/parallel_tasks.h"

namespace sylvomex {
namespace {

std::int32_t First_Position_By_Walk(const TinModel& model, double X, double Y) {
  for (std::int32_t position = 1; position <= model.TriangleCount; ++position) {
    if (Holds(Tin_Triangle_In_Index(model, position), X, Y)) return position;
  }
  return 0;
}

std::int32_t Lowest_Number_By_Walk(const TinModel& model, double X, double Y) {
  for (std::int32_t number = 1; number <= model.TriangleCount; ++number) {
    if (Holds(Tin_Triangle_At(model, number), X, Y)) return number;
  }
  return 0;
}

double Searched_Elevation(const TinModel& model, const MapPoint& at) {
  std::int32_t hint = 0;
  return Tin_Elevation(model, at.X, at.Y, hint);
}

/// Points of a block go through the stages of a lookup together: what a stage reads was asked
/// of the memory while the stage before was at work on the other points.
constexpr std::size_t kBlock = 64;

void Look_Up_Block(const TinModel& model, std::span<const MapPoint> points,
                   std::span<double> heights) {
  const TinFaces& f = model.faces;
  std::array<std::int64_t, kBlock> cells;
  std::array<std::int32_t, kBlock> numbers;
  for (std::size_t i = 0; i < points.size(); ++i) {
    cells[i] = Start_Cell(f, points[i].X, points[i].Y);
    if (cells[i] >= 0) __builtin_prefetch(&f.starts[static_cast<std::size_t>(cells[i])]);
  }
  for (std::size_t i = 0; i < points.size(); ++i) {
    numbers[i] = cells[i] < 0 ? 0 : f.starts[static_cast<std::size_t>(cells[i])];
    if (numbers[i] > 0) __builtin_prefetch(&f.faces[static_cast<std::size_t>(numbers[i] - 1)]);
  }
  for (std::size_t i = 0; i < points.size(); ++i) {
    numbers[i] = Walk_To_Holder(f, numbers[i], points[i].X, points[i].Y);
    if (numbers[i] > 0) {
      __builtin_prefetch(&model.Triangles[static_cast<std::size_t>(numbers[i] - 1)].PlaneA);
    }
  }
  for (std::size_t i = 0; i < points.size(); ++i) {
    const MapPoint& at = points[i];
    if (numbers[i] == 0) {
      heights[i] = Searched_Elevation(model, at);
      continue;
    }
    const double height =
        Height_In_Triangle(model.Triangles[static_cast<std::size_t>(numbers[i] - 1)], at.X, at.Y);
    heights[i] = height != 0 ? height : kNoTinHeight;
  }
}

}  // namespace

std::int32_t First_Position_By_Buckets(const TinModel& model, double X, double Y) {
  if (model.buckets.columns == 0) return First_Position_By_Walk(model, X, Y);
  for (const std::int32_t position : Bucket_At(model.buckets, X, Y)) {
    if (Holds(Tin_Triangle_In_Index(model, position), X, Y)) return position;
  }
  return 0;
}

std::int32_t Lowest_Number_By_Buckets(const TinModel& model, double X, double Y) {
  if (model.buckets.columns == 0) return Lowest_Number_By_Walk(model, X, Y);
  std::int32_t lowest = 0;
  for (const std::int32_t position : Bucket_At(model.buckets, X, Y)) {
    const std::int32_t number = model.Index[static_cast<std::size_t>(position - 1)];
    if (lowest != 0 && number > lowest) continue;
    if (Holds(Tin_Triangle_At(model, number), X, Y)) lowest = number;
  }
  return lowest;
}

void Tin_Elevations(const TinModel& model, std::span<const MapPoint> points,
                    std::span<double> heights, int threads) {
  constexpr std::size_t kPointsATask = 64 * kBlock;
  const auto tasks = static_cast<int>((points.size() + kPointsATask - 1) / kPointsATask);
  Run_Tasks(tasks, threads, [&](int task) {
    const std::size_t start = static_cast<std::size_t>(task) * kPointsATask;
    const std::size_t end = std::min(points.size(), start + kPointsATask);
    for (std::size_t first = start; first < end; first += kBlock) {
      const std::size_t count = std::min(kBlock, end - first);
      Look_Up_Block(model, points.subspan(first, count), heights.subspan(first, count));
    }
  });
}

}  // namespace sylvomex
