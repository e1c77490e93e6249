// SPDX-License-Identifier: MIT
// An orthoimage of 4000 x 4000 colour cells over a ground model (goals on the reference machine:
// 28 ms on one thread, 15 ms on two; five times ahead of OpenCV's maps and remap, thirty times
// ahead of GDAL's warp).
//
// Rounds of ours and of the peers alternate in the same run: "ms" and "..._ms" are their medians,
// "x_..." is peer time / our time. "wrong" counts cells that differ from the plain formula.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstring>

#include "ortho_peers.h"
#include "round_times.h"

namespace sylvomex::bench {
namespace {

constexpr std::int32_t kSlab = 2048;  // as in the command

OrthoInputs& Inputs() {
  static OrthoInputs inputs;
  return inputs;
}

void Ours(OrthoInputs& in, int threads) {
  const OrthoHeights heights{&in.model, kElsewhere};
  LastPixel last{};
  for (std::int32_t col = 0; col < kOrthoSide; col += kSlab) {
    Fill_Ortho_Columns(in.grid, in.source, heights, col, std::min(kOrthoSide, col + kSlab),
                       in.cells, last, threads);
  }
}

int Wrong_Cells(const OrthoInputs& in) {
  int wrong = 0;
  for (int row = 0; row < kOrthoSide; ++row) {
    for (int col = 0; col < kOrthoSide; ++col) {
      const PixelPosition at = Object_To_Pixel(in.source.camera, Ground_Of_Cell(in, col, row));
      const double position = Byte_Position(in.source, at);
      const std::size_t cell =
          3 * (static_cast<std::size_t>(row) * kOrthoSide + static_cast<std::size_t>(col));
      if (position < 1 || position + 3 > static_cast<double>(in.frame.size())) continue;
      wrong += std::memcmp(&in.cells[cell], &in.frame[static_cast<std::size_t>(position)], 3) != 0;
    }
  }
  return wrong;
}

void Ortho(benchmark::State& state) {
  OrthoInputs& in = Inputs();
  const int threads = static_cast<int>(state.range(0));
  RoundTimes ours, opencv, gdal;
#ifdef SYLVOMEX_BENCH_GDAL
  GdalOrtho warp(in);
#endif
  for (auto round : state) {
#ifdef SYLVOMEX_BENCH_OPENCV
    opencv.Run([&] { Ortho_By_Opencv(in, threads == 1 ? 1 : 2); });
#endif
#ifdef SYLVOMEX_BENCH_GDAL
    gdal.Run([&] { warp.Warp(threads == 1 ? 1 : 2); });
#endif
    ours.Run([&] { Ours(in, threads); });
    state.SetIterationTime(ours.Last_Seconds());
  }
  state.counters["ms"] = ours.Wall();
  state.counters["opencv_ms"] = opencv.Wall();
  state.counters["x_opencv"] = opencv.Wall() / ours.Wall();
  state.counters["gdal_ms"] = gdal.Wall();
  state.counters["x_gdal"] = gdal.Wall() / ours.Wall();
  state.counters["wrong"] = Wrong_Cells(in);
}
BENCHMARK(Ortho)->ArgName("threads")->Arg(1)->Arg(0)->UseManualTime()->Iterations(9)->Unit(
    benchmark::kMillisecond);

}  // namespace
}  // namespace sylvomex::bench
