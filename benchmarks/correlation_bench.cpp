// SPDX-License-Identifier: MIT
// Correlation images of a 1201 x 1201 patch with elliptic templates. Goals on the reference
// machine, milliseconds on one thread and two: 21 6 and 3.2, 41 10 and 5.3, 61 16 and 8.5,
// 101 32 and 17. The peer is OpenCV's masked template matching.
#include <benchmark/benchmark.h>

#include <vector>

#include "closedlib/correlation_by_path.h"
#include "closedlib/correlation_image.h"
#include "matching_inputs.h"
#ifdef SYLVOMEX_BENCH_OPENCV
#include <opencv2/core.hpp>
#include <opencv2/core/utility.hpp>
#include <opencv2/imgproc.hpp>
#endif

namespace sylvomex {
namespace {

constexpr int kSide = 1201;

struct Input {
  explicit Input(int template_side)
      : side(template_side),
        patch(bench::Grey_Patch(kSide, kSide)),
        pattern(bench::Ellipse_Template(patch, kSide, 500, 640, side)),
        result(patch.size()) {}

  int side;
  std::vector<std::uint8_t> patch, pattern;
  std::vector<double> result;
};

/// Arguments: side of the template, threads (0 for all).
void Correlation_Image(benchmark::State& state) {
  Input in(static_cast<int>(state.range(0)));
  const auto threads = static_cast<int>(state.range(1));
  for (auto _ : state) {
    MYFUNC_CORIMA({in.patch, kSide, kSide, in.pattern, in.side, in.side, in.side / 2, in.side / 2},
                  in.result, threads);
    benchmark::ClobberMemory();
  }
}

void Every_Size(benchmark::internal::Benchmark* bench) {
  for (const int side : {21, 41, 61, 101}) {
    for (const int threads : {1, 0}) bench->Args({side, threads});
  }
  bench->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();
}
BENCHMARK(Correlation_Image)->Apply(Every_Size);

void By_Path(benchmark::State& state, const SumPath* path, Products products) {
  if (path == nullptr) {
    state.SkipWithError("this machine has no byte dot products");
    return;
  }
  Input in(static_cast<int>(state.range(0)));
  const CorrelationInput arguments = {in.patch, kSide,   kSide,       in.pattern,
                                      in.side,  in.side, in.side / 2, in.side / 2};
  for (auto _ : state) {
    Correlate_By_Path(*path, arguments, in.result, static_cast<int>(state.range(1)), products);
    benchmark::ClobberMemory();
  }
}

/// Without byte dot products, even where the machine has them.
void Correlation_Image_Portable(benchmark::State& state) {
  By_Path(state, &Portable_Sums(), Products::Cheapest);
}
BENCHMARK(Correlation_Image_Portable)->Apply(Every_Size);

/// How the products are computed: directly or by transforms.
void Portable_Added(benchmark::State& state) { By_Path(state, &Portable_Sums(), Products::Added); }
BENCHMARK(Portable_Added)->Apply(Every_Size);

void Portable_Transformed(benchmark::State& state) {
  By_Path(state, &Portable_Sums(), Products::Transformed);
}
BENCHMARK(Portable_Transformed)->Apply(Every_Size);

void Byte_Dots_Added(benchmark::State& state) { By_Path(state, Byte_Dot_Sums(), Products::Added); }
BENCHMARK(Byte_Dots_Added)->Apply(Every_Size);

void Byte_Dots_Transformed(benchmark::State& state) {
  By_Path(state, Byte_Dot_Sums(), Products::Transformed);
}
BENCHMARK(Byte_Dots_Transformed)->Apply(Every_Size);

#ifdef SYLVOMEX_BENCH_OPENCV
void Opencv_Masked_Match(benchmark::State& state) {
  Input in(static_cast<int>(state.range(0)));
  cv::setNumThreads(state.range(1) == 1 ? 1 : -1);
  const cv::Mat patch(kSide, kSide, CV_8U, in.patch.data());
  const cv::Mat pattern(in.side, in.side, CV_8U, in.pattern.data());
  const cv::Mat mask = pattern != 0;
  cv::Mat matched, result;
  for (auto _ : state) {
    cv::matchTemplate(patch, pattern, matched, cv::TM_CCOEFF_NORMED, mask);
    matched.convertTo(result, CV_64F);
    benchmark::ClobberMemory();
  }
}
BENCHMARK(Opencv_Masked_Match)->Apply(Every_Size);
#endif

}  // namespace
}  // namespace sylvomex
