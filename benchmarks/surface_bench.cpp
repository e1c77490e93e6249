// SPDX-License-Identifier: MIT
// Surface searches: 121 windows of 17 x 17 pixels against a fixed one (goal on the reference
// machine 0.003 ms), compared with short Eigen and OpenCV code, and the whole search of
// one pair point on a mapped grey and a mapped colour file (goal 0.06 ms).
#include <benchmark/benchmark.h>

#include <cmath>
#include <fstream>
#include <string>
#include <vector>

#include "bench_files.h"
#include "closedlib/moving_windows.h"
#include "matching_inputs.h"
#include "platform/files.h"
#include "surfaces/vertical_line_search.h"

#ifdef SYLVOMEX_BENCH_EIGEN
#include <Eigen/Dense>
#endif
#ifdef SYLVOMEX_BENCH_OPENCV
#include <opencv2/core.hpp>
#include <opencv2/core/utility.hpp>
#include <opencv2/imgproc.hpp>
#endif

namespace sylvomex {
namespace {

constexpr int kSide = 17, kPixels = kSide * kSide, kWindows = 121;
constexpr int kWidth = 2000, kHeight = 1300;

/// The fixed window at column 900, row 600, the moving ones at columns 100 + 13 k, rows 200 + 7 k.
struct Windows {
  Windows() : raster(bench::Grey_Patch(kWidth, kHeight)), correlations(kWindows) {
    for (int row = 0; row < kSide; ++row) {
      const std::uint8_t* first = raster.data() + (600 + row) * kWidth + 900;
      fixed.insert(fixed.end(), first, first + kSide);
    }
  }

  [[nodiscard]] const std::uint8_t* Moving(int k) const {
    return raster.data() + (200 + 7 * k) * kWidth + 100 + 13 * k;
  }

  std::vector<std::uint8_t> raster, fixed;
  std::vector<double> correlations;
};

void Moving_Windows(benchmark::State& state) {
  Windows in;
  const FixedWindow fixed(in.fixed, kSide);
  std::vector<MovingWindow> windows;
  for (int k = 0; k < kWindows; ++k) windows.push_back({in.Moving(k), kWidth});
  for (auto _ : state) {
    Correlate_Windows(fixed, windows, in.correlations);
    benchmark::ClobberMemory();
  }
}
BENCHMARK(Moving_Windows)->Unit(benchmark::kMicrosecond);

void Plain_Loop(benchmark::State& state) {
  Windows in;
  for (auto _ : state) {
    long sf = 0, sff = 0;
    for (const int v : in.fixed) {
      sf += v;
      sff += v * v;
    }
    for (int k = 0; k < kWindows; ++k) {
      int s = 0, q = 0, c = 0;
      for (int row = 0; row < kSide; ++row) {
        const std::uint8_t* a = in.Moving(k) + row * kWidth;
        const std::uint8_t* f = in.fixed.data() + row * kSide;
        for (int col = 0; col < kSide; ++col) {
          s += a[col];
          q += a[col] * a[col];
          c += a[col] * f[col];
        }
      }
      const double n = kPixels;
      in.correlations[static_cast<std::size_t>(k)] =
          (n * c - static_cast<double>(s) * static_cast<double>(sf)) /
          std::sqrt(
              (n * static_cast<double>(sff) - static_cast<double>(sf) * static_cast<double>(sf)) *
              (n * q - static_cast<double>(s) * s));
    }
    benchmark::ClobberMemory();
  }
}
BENCHMARK(Plain_Loop)->Unit(benchmark::kMicrosecond);

#ifdef SYLVOMEX_BENCH_EIGEN
void Eigen_Arrays(benchmark::State& state) {
  using Window = Eigen::Array<double, kPixels, 1>;
  Windows in;
  Window fixed;
  for (int i = 0; i < kPixels; ++i) fixed[i] = in.fixed[static_cast<std::size_t>(i)];
  for (auto _ : state) {
    const Window f = fixed - fixed.mean();
    const double ff = (f * f).sum();
    for (int k = 0; k < kWindows; ++k) {
      Window m;
      for (int row = 0; row < kSide; ++row) {
        for (int col = 0; col < kSide; ++col)
          m[row * kSide + col] = in.Moving(k)[row * kWidth + col];
      }
      m -= m.mean();
      in.correlations[static_cast<std::size_t>(k)] = (f * m).sum() / std::sqrt(ff * (m * m).sum());
    }
    benchmark::ClobberMemory();
  }
}
BENCHMARK(Eigen_Arrays)->Unit(benchmark::kMicrosecond);
#endif

#ifdef SYLVOMEX_BENCH_OPENCV
void OpenCV_Windows(benchmark::State& state) {
  cv::setNumThreads(1);
  Windows in;
  const cv::Mat raster(kHeight, kWidth, CV_8U, in.raster.data());
  const cv::Mat fixed(kSide, kSide, CV_8U, in.fixed.data());
  cv::Mat result;
  for (auto _ : state) {
    for (int k = 0; k < kWindows; ++k) {
      cv::matchTemplate(raster(cv::Rect(100 + 13 * k, 200 + 7 * k, kSide, kSide)), fixed, result,
                        cv::TM_CCOEFF_NORMED);
      in.correlations[static_cast<std::size_t>(k)] = static_cast<double>(result.at<float>(0));
    }
    benchmark::ClobberMemory();
  }
}
BENCHMARK(OpenCV_Windows)->Unit(benchmark::kMicrosecond);
#endif

/// A photograph 1000 m above the ground, pixels of 0.1 m.
ImageRecord Photograph(double X0, int color_flag) {
  ImageRecord image;
  image.ColorFlag = static_cast<std::uint8_t>(color_flag);
  image.SubWidth = kWidth;
  image.SubHeight = kHeight;
  image.PrincipalDistance = 0.1;
  image.AffineA1 = image.AffineB2 = 100000;
  image.AffineA0 = kWidth / 2;
  image.AffineB0 = kHeight / 2;
  image.X0 = X0;
  image.Z0 = 1000;
  return image;
}

/// A raw file of the grey patch, colour pixels of three columns of it.
MappedFile Map_Raw_File(int color_flag) {
  const auto raster = bench::Grey_Patch(color_flag == 1 ? 3 * kWidth : kWidth, kHeight);
  const auto file = bench::Data_Folder() / ("surface" + std::to_string(color_flag) + ".raw");
  std::ofstream(file, std::ios::binary)
      .write(reinterpret_cast<const char*>(raster.data()),
             static_cast<std::streamsize>(raster.size()));
  return MappedFile({file.string(), file});
}

/// Argument: ColorFlag.
void Pair_Point(benchmark::State& state) {
  const auto color_flag = static_cast<int>(state.range(0));
  const MappedFile file = Map_Raw_File(color_flag);
  const ImageRecord left = Photograph(0, color_flag), right = Photograph(40, color_flag);
  const SurfaceImage fixed{Make_Camera(left), Make_Window_Raster(left, file.Bytes())};
  const SurfaceImage moving{Make_Camera(right), Make_Window_Raster(right, file.Bytes())};
  const FilmPosition film{0.002, 0.001};
  for (auto _ : state) {
    const auto window = Textured_Window(kPairPoint, fixed, film, 0);
    const auto found = Search_Vertical_Line(kPairPoint, window.value(), fixed.camera,
                                            std::span(&moving, 1), film, 0);
    benchmark::DoNotOptimize(found.best);
  }
}
BENCHMARK(Pair_Point)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace sylvomex
