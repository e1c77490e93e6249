// SPDX-License-Identifier: MIT
// 500,000 mesh points into five correlation images of the nine-image volume, then the geometric
// mean. Goals on the reference machine for both together: 6 ms on one thread, 3.3 on two. The
// peer is the loop that a user would write, with std::pow.
#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

#include "closedlib/back_projection.h"
#include "matching_inputs.h"

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
      cameras.push_back(bench::Camera(k));
      values.emplace_back(kPoints);
    }
    spans.assign(values.begin(), values.end());
  }

  HugePageVector<MeshPoint> mesh;
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
    const bench::PatchCamera& camera = in.cameras[k];
    MYFUNC_COMPUTEBKPROJ(static_cast<int>(k), camera.affine, camera.exterior, camera.patch,
                         in.values[k], in.mesh, in.volume.All(), threads);
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

struct Pixel {
  double col = 0, row = 0;
};

Pixel Project(const bench::PatchCamera& camera, const std::array<double, 9>& m,
              const MeshPoint& p) {
  const auto& e = camera.exterior;
  const auto& a = camera.affine;
  const double dx = p.X - e[3], dy = p.Y - e[4], dz = p.Z - e[5];
  const double q = m[6] * dx + m[7] * dy + m[8] * dz;
  const double x = -e[6] * (m[0] * dx + m[1] * dy + m[2] * dz) / q;
  const double y = -e[6] * (m[3] * dx + m[4] * dy + m[5] * dz) / q;
  return {a[0] * x + a[1] * y + a[2] - camera.patch[1],
          camera.patch[2] - (a[3] * x + a[4] * y + a[5])};
}

std::array<double, 9> Rotation(const bench::PatchCamera& camera) {
  const double so = std::sin(camera.exterior[0]), co = std::cos(camera.exterior[0]);
  const double sp = std::sin(camera.exterior[1]), cp = std::cos(camera.exterior[1]);
  const double sk = std::sin(camera.exterior[2]), ck = std::cos(camera.exterior[2]);
  return {ck * cp,
          co * sk + so * sp * ck,
          so * sk - co * sp * ck,
          -cp * sk,
          co * ck - so * sp * sk,
          so * ck + co * sp * sk,
          sp,
          -so * cp,
          co * cp};
}

void Plain_Loop(benchmark::State& state) {
  Input& in = Shared_Input();
  std::vector<std::array<double, 9>> rotations;
  for (const auto& camera : in.cameras) rotations.push_back(Rotation(camera));
  for (auto _ : state) {
    for (std::size_t i = 0; i < kPoints; ++i) {
      double product = 1;
      for (std::size_t k = 0; k < kImages; ++k) {
        const Pixel pixel = Project(in.cameras[k], rotations[k], in.mesh[i]);
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
