// SPDX-License-Identifier: MIT
// Height lookups on a 4000 x 4000 model, one thread: scattered at random (goal: 150 million a
// second) and in the order of an ortho scan. The peer is hand-written: the
// same rounding on a std::vector of floats.
#include <benchmark/benchmark.h>

#include <cmath>
#include <random>
#include <vector>

#include "heightmodels/raster_model.h"

namespace sylvomex {
namespace {

constexpr int kSide = 4000;
constexpr std::size_t kLookups = 1 << 18;

RasterModel Wavy_Model() {
  RasterModel model;
  model.NCols = kSide;
  model.NRows = kSide;
  model.OriginX = 2515000;
  model.OriginY = 6860000;
  model.CellSize = 0.5;
  Dimension_Cells(model);
  for (std::size_t i = 0; i < model.Cells.size(); ++i) {
    model.Cells[i] = static_cast<float>(150 + 20 * std::sin(1e-3 * static_cast<double>(i)));
  }
  return model;
}

struct Position {
  double X = 0, Y = 0;
};

/// Positions on the model and slightly beyond its edges.
std::vector<Position> Random_Positions() {
  std::mt19937 random(41);
  std::uniform_real_distribution<double> away(-20, kSide * 0.5 + 20);
  std::vector<Position> positions(kLookups);
  for (Position& p : positions) p = {2515000 + away(random), 6860000 + away(random)};
  return positions;
}

/// Scan lines of positions 0.3 m apart.
std::vector<Position> Scan_Positions() {
  std::vector<Position> positions(kLookups);
  for (std::size_t i = 0; i < kLookups; ++i) {
    positions[i] = {2515000 + 0.3 * static_cast<double>(i % 6000),
                    6860000 + 0.3 * static_cast<double>(i / 6000)};
  }
  return positions;
}

void Count_Lookups(benchmark::State& state) {
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kLookups));
}

void Raster_Lookups(benchmark::State& state, const std::vector<Position>& positions) {
  const RasterModel model = Wavy_Model();
  for (auto _ : state) {
    double sum = 0;
    for (const Position& p : positions) sum += Raster_Height(model, p.X, p.Y);
    benchmark::DoNotOptimize(sum);
  }
  Count_Lookups(state);
}
BENCHMARK_CAPTURE(Raster_Lookups, scattered, Random_Positions());
BENCHMARK_CAPTURE(Raster_Lookups, scan, Scan_Positions());

void Vector_Loop(benchmark::State& state, const std::vector<Position>& positions) {
  const RasterModel model = Wavy_Model();
  const std::vector<float> cells(model.Cells.All().begin(), model.Cells.All().end());
  for (auto _ : state) {
    double sum = 0;
    for (const Position& p : positions) {
      const long col = std::lrint((p.X - model.OriginX) / model.CellSize);
      const long row = std::lrint(std::ceil((p.Y - model.OriginY) / model.CellSize));
      if (col < 0 || row < 0 || col >= kSide || row >= kSide) continue;
      sum += static_cast<double>(cells[static_cast<std::size_t>(row * kSide + col)]);
    }
    benchmark::DoNotOptimize(sum);
  }
  Count_Lookups(state);
}
BENCHMARK_CAPTURE(Vector_Loop, scattered, Random_Positions());
BENCHMARK_CAPTURE(Vector_Loop, scan, Scan_Positions());

}  // namespace
}  // namespace sylvomex
