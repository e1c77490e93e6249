// SPDX-License-Identifier: MIT
// Growing and fitting the crowns of a box of 50 m by 50 m at 6 pulses a square metre, with and
// without the exchange files, beside the same fits by Eigen and Ceres; the correlation of template
// windows beside a plain loop and OpenCV.
#include <benchmark/benchmark.h>

#include <cmath>
#include <filesystem>
#include <random>

#include "bench_files.h"
#include "closedlib/window_correlation.h"
#include "commands/crowns/crown_exchange.h"
#include "crown_peers.h"
#ifdef SYLVOMEX_BENCH_OPENCV
#include <opencv2/imgproc.hpp>
#endif

namespace sylvomex::bench {
namespace {

// Index, growing and fitting.
void Run_Stand(benchmark::State& state, const CrownSolver& solve) {
  const CrownStand& stand = Bench_Stand();
  int fitted = 0;
  std::size_t grown = 0;
  for (auto _ : state) {
    const auto crowns = Grow_Stand(stand);
    grown = crowns.size();
    fitted = Fit_Stand(crowns, solve);
  }
  state.counters["grown"] = static_cast<double>(grown);
  state.counters["fitted"] = fitted;
}

void Crowns_In_Memory(benchmark::State& state) { Run_Stand(state, MYFUNC_MATLABCALLNOMSGS); }
BENCHMARK(Crowns_In_Memory)->Unit(benchmark::kMillisecond);

void Crowns_With_Files(benchmark::State& state) {
  const std::filesystem::path root = Data_Folder() / "crowns";
  std::filesystem::create_directories(root / "c" / "data");
  Run_Stand(state, Solver_With_Files(DriveMap(root)));
}
BENCHMARK(Crowns_With_Files)->Unit(benchmark::kMillisecond);

void Run_Fits(benchmark::State& state, const CrownSolver& solve) {
  const auto crowns = Grow_Stand(Bench_Stand());
  int fitted = 0;
  for (auto _ : state) fitted = Fit_Stand(crowns, solve);
  state.counters["crowns"] = static_cast<double>(crowns.size());
  state.counters["fitted"] = fitted;
}

void Fits(benchmark::State& state) { Run_Fits(state, MYFUNC_MATLABCALLNOMSGS); }
BENCHMARK(Fits)->Unit(benchmark::kMillisecond);

#ifdef SYLVOMEX_BENCH_EIGEN
void Fits_Eigen_QR(benchmark::State& state) { Run_Fits(state, Eigen_QR()); }
BENCHMARK(Fits_Eigen_QR)->Unit(benchmark::kMillisecond);

void Fits_Eigen_Normal(benchmark::State& state) { Run_Fits(state, Eigen_Normal()); }
BENCHMARK(Fits_Eigen_Normal)->Unit(benchmark::kMillisecond);
#endif

#ifdef SYLVOMEX_BENCH_CERES
void Run_Ceres(benchmark::State& state, CeresMethod method) {
  const auto crowns = Grow_Stand(Bench_Stand());
  std::vector<CrownShape> shapes;
  for (auto _ : state) shapes = Fit_By_Ceres(crowns, method);
  double theirs = 0, ours = 0;
  for (std::size_t i = 0; i < crowns.size(); ++i) {
    theirs += Sum_Of_Squares(crowns[i], shapes[i]);
    const GrownStandCrown& crown = crowns[i];
    ours += Sum_Of_Squares(crown, Fit_Crown({crown.radial, crown.depth, crown.height}, crown.start,
                                            kNextTreeFit, MYFUNC_MATLABCALLNOMSGS)
                                      .shape);
  }
  state.counters["vv"] = theirs;
  state.counters["our_vv"] = ours;
}

void Fits_Ceres_QR(benchmark::State& state) { Run_Ceres(state, CeresMethod::QR); }
BENCHMARK(Fits_Ceres_QR)->Unit(benchmark::kMillisecond);

void Fits_Ceres_Normal(benchmark::State& state) { Run_Ceres(state, CeresMethod::Normal); }
BENCHMARK(Fits_Ceres_Normal)->Unit(benchmark::kMillisecond);
#endif

struct Windows {
  std::vector<std::uint8_t> a, b;
  explicit Windows(std::size_t pixels) : a(pixels), b(pixels) {
    std::mt19937 random(9);
    for (std::size_t i = 0; i < pixels; ++i) {
      a[i] = static_cast<std::uint8_t>(random());
      b[i] = static_cast<std::uint8_t>(random());
    }
  }
};

double Plain_Correlation(const Windows& windows, double mean_a) {
  double mean_b = 0;
  for (const std::uint8_t pixel : windows.b) mean_b += pixel;
  mean_b /= static_cast<double>(windows.b.size());
  double ab = 0, aa = 0, bb = 0;
  for (std::size_t i = 0; i < windows.a.size(); ++i) {
    const double a = windows.a[i] - mean_a, b = windows.b[i] - mean_b;
    ab += a * b;
    aa += a * a;
    bb += b * b;
  }
  return ab / std::sqrt(aa * bb);
}

void Window_Correlation(benchmark::State& state) {
  const Windows windows(static_cast<std::size_t>(state.range(0) * state.range(0)));
  const double mean = MYFUNC_TEMPMEANSTD(windows.a).mean;
  for (auto _ : state) benchmark::DoNotOptimize(MYFUNC_CCORB(windows.a, windows.b, mean));
}
BENCHMARK(Window_Correlation)->Arg(12)->Arg(30)->Arg(60);

void Window_Correlation_Plain(benchmark::State& state) {
  const Windows windows(static_cast<std::size_t>(state.range(0) * state.range(0)));
  const double mean = MYFUNC_TEMPMEANSTD(windows.a).mean;
  for (auto _ : state) benchmark::DoNotOptimize(Plain_Correlation(windows, mean));
}
BENCHMARK(Window_Correlation_Plain)->Arg(12)->Arg(30)->Arg(60);

#ifdef SYLVOMEX_BENCH_OPENCV
void Window_Correlation_OpenCV(benchmark::State& state) {
  const int side = static_cast<int>(state.range(0));
  Windows windows(static_cast<std::size_t>(side * side));
  const cv::Mat a(side, side, CV_8U, windows.a.data()), b(side, side, CV_8U, windows.b.data());
  cv::Mat r;
  for (auto _ : state) {
    cv::matchTemplate(a, b, r, cv::TM_CCOEFF_NORMED);
    benchmark::DoNotOptimize(r.data);
  }
}
BENCHMARK(Window_Correlation_OpenCV)->Arg(12)->Arg(30)->Arg(60);
#endif

}  // namespace
}  // namespace sylvomex::bench

BENCHMARK_MAIN();
