// SPDX-License-Identifier: MIT
#include "heightmodels/tin_lookup.h"

#include <array>

#include "closedlib/parallel_tasks.h"
#include "heightmodels/tin_walk.h"

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

/// Blocks of points pass the stages of a lookup as a pipeline: each stage prefetches what the
/// next one reads one block later.
constexpr std::size_t kBlock = 64;

struct Block {
  std::span<const MapPoint> points;
  std::span<double> heights;
  std::array<std::int32_t, kBlock> cells;
  std::array<std::int32_t, kBlock> numbers;
};

void Find_Cells(const TinFaces& f, Block& block) {
  Start_Cells(f, block.points, block.cells.data());
  for (std::size_t i = 0; i < block.points.size(); ++i) {
    __builtin_prefetch(&f.starts[static_cast<std::uint32_t>(block.cells[i])]);
  }
}

void Find_Starts(const TinFaces& f, Block& block) {
  for (std::size_t i = 0; i < block.points.size(); ++i) {
    block.numbers[i] = f.starts[static_cast<std::uint32_t>(block.cells[i])];
    __builtin_prefetch(&f.faces[static_cast<std::uint32_t>(block.numbers[i])]);
  }
}

void Find_Holders(const TinModel& model, Block& block) {
  Walk_To_Holders(model.faces, block.points, block.numbers.data());
  for (std::size_t i = 0; i < block.points.size(); ++i) {
    if (block.numbers[i] > 0) {
      __builtin_prefetch(&model.Triangles[static_cast<std::size_t>(block.numbers[i] - 1)].PlaneA);
    }
  }
}

void Find_Heights(const TinModel& model, Block& block) {
  for (std::size_t i = 0; i < block.points.size(); ++i) {
    const MapPoint& at = block.points[i];
    if (block.numbers[i] == 0) {
      block.heights[i] = Searched_Elevation(model, at);
      continue;
    }
    const double height = Height_In_Triangle(
        model.Triangles[static_cast<std::size_t>(block.numbers[i] - 1)], at.X, at.Y);
    block.heights[i] = height != 0 ? height : kNoTinHeight;
  }
}

void Look_Up(const TinModel& model, std::span<const MapPoint> points, std::span<double> heights) {
  const TinFaces& f = model.faces;
  if (f.columns == 0) {
    std::ranges::transform(points, heights.begin(),
                           [&](const MapPoint& at) { return Searched_Elevation(model, at); });
    return;
  }
  const std::size_t count = (points.size() + kBlock - 1) / kBlock;
  std::array<Block, 4> blocks;
  for (std::size_t next = 0; next < count + 3; ++next) {
    if (next < count) {
      Block& block = blocks[next % 4];
      const std::size_t first = next * kBlock, size = std::min(kBlock, points.size() - first);
      block.points = points.subspan(first, size);
      block.heights = heights.subspan(first, size);
      Find_Cells(f, block);
    }
    if (next >= 1 && next - 1 < count) Find_Starts(f, blocks[(next - 1) % 4]);
    if (next >= 2 && next - 2 < count) Find_Holders(model, blocks[(next - 2) % 4]);
    if (next >= 3) Find_Heights(model, blocks[(next - 3) % 4]);
  }
}

}  // namespace

std::int32_t First_Position_By_Buckets(const TinModel& model, double X, double Y) {
  if (model.buckets.columns == 0) return First_Position_By_Walk(model, X, Y);
  std::int32_t first = 0;
  for (const std::int32_t number : Bucket_At(model.buckets, X, Y)) {
    const std::int32_t position = model.position_of[static_cast<std::size_t>(number - 1)];
    if (first != 0 && position > first) continue;
    if (Holds(Tin_Triangle_At(model, number), X, Y)) first = position;
  }
  return first;
}

std::int32_t Lowest_Number_By_Buckets(const TinModel& model, double X, double Y) {
  if (model.buckets.columns == 0) return Lowest_Number_By_Walk(model, X, Y);
  for (const std::int32_t number : Bucket_At(model.buckets, X, Y)) {
    if (Holds(Tin_Triangle_At(model, number), X, Y)) return number;
  }
  return 0;
}

void Tin_Elevations(const TinModel& model, std::span<const MapPoint> points,
                    std::span<double> heights, int threads) {
  constexpr std::size_t kPointsATask = 64 * kBlock;
  const auto tasks = static_cast<int>((points.size() + kPointsATask - 1) / kPointsATask);
  Run_Tasks(tasks, threads, [&](int task) {
    const std::size_t start = static_cast<std::size_t>(task) * kPointsATask;
    const std::size_t end = std::min(points.size(), start + kPointsATask);
    Look_Up(model, points.subspan(start, end - start), heights.subspan(start, end - start));
  });
}

}  // namespace sylvomex
