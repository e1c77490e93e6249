// SPDX-License-Identifier: MIT
// Back-projection of 500,000 mesh points into five correlation images of the nine-image volume,
// then the geometric mean. Goals on the reference machine for both together: 6 ms on one thread,
// 3.3 on two. The peer is the straightforward loop with std::pow.
#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

#include "closedlib/back_projection.h"
#include "matching_inputs.h"
#include "solver/patch_projection.h"

namespace sylvomex {
namespace {

constexpr std::size_t kPoints = 500000;
constexpr int kImages = 5;

struct Input {
  Input()
      : mesh(bench::On_Huge_Pages(bench::Mesh(kPoints))),
        volume(bench::Smooth_Volume()),
        scores(kPoints) {
    for (int k = 0; k < kImages; ++k) {
      cameras.push_back(bench::Patch_Camera(k));
      values.emplace_back(kPoints);
    }
    spans.assign(values.begin(), values.end());
  }

  HugePageVector<Point3D> mesh;
  ZeroedArray<double> volume;
  std::vector<bench::PatchCamera> cameras;
  std::vector<std::vector<float>> values;
  std::vector<std::span<const float>> spans;
  std::vector<float> scores;
};

Input& Shared_Input() {
  static Input input;
  return input;
}

void Project_All(Input& in, int threads) {
  for (std::size_t k = 0; k < kImages; ++k) {
    const auto& [camera, first] = in.cameras[k];
    MYFUNC_COMPUTEBKPROJ(static_cast<int>(k), Make_Patch_Projection(camera, first), in.mesh,
                         in.volume.All(), in.values[k], threads);
  }
}

/// Argument: threads (0 for all).
void Back_Projection(benchmark::State& state) {
  Input& in = Shared_Input();
  for (auto _ : state) Project_All(in, static_cast<int>(state.range(0)));
}
BENCHMARK(Back_Projection)->Arg(1)->Arg(0)->Unit(benchmark::kMillisecond)->UseRealTime();

void Geometric_Mean(benchmark::State& state) {
  Input& in = Shared_Input();
  Project_All(in, 0);
  for (auto _ : state) {
    Geometric_Mean_Scores(in.spans, in.scores, static_cast<int>(state.range(0)));
  }
}
BENCHMARK(Geometric_Mean)->Arg(1)->Arg(0)->Unit(benchmark::kMillisecond)->UseRealTime();

/// Patch position; row from the top of the patch.
PixelPosition Project(const bench::PatchCamera& image, const Point3D& point) {
  const Camera& camera = image.camera;
  const auto [r, s, q] = To_Camera_Axes(camera, point);
  const double x = -camera.c * r / q;
  const double y = -camera.c * s / q;
  return {camera.A1 * x + camera.A2 * y + camera.A0 - image.first.col,
          image.first.row - (camera.B1 * x + camera.B2 * y + camera.B0)};
}

void Plain_Loop(benchmark::State& state) {
  Input& in = Shared_Input();
  for (auto _ : state) {
    for (std::size_t i = 0; i < kPoints; ++i) {
      double product = 1;
      for (std::size_t k = 0; k < kImages; ++k) {
        const PixelPosition pixel = Project(in.cameras[k], in.mesh[i]);
        const long col = std::lrint(pixel.col), row = std::lrint(pixel.row);
        if (col < 0 || row < 0 || col >= kVolumeSide || row >= kVolumeSide) continue;
        product *=
            1 + in.volume[k + kVolumeImages * static_cast<std::size_t>(col + kVolumeSide * row)];
      }
      in.scores[i] = static_cast<float>(std::pow(product, 1.0 / kImages));
    }
    benchmark::ClobberMemory();
  }
}
BENCHMARK(Plain_Loop)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace sylvomex
