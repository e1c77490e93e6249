// SPDX-License-Identifier: MIT
// The normalised image of a colour frame of 7500 x 11500 pixels (86 Mpx), turned by 0.02, -0.015
// and 0.03 rad, bilinear, in memory, on one thread and on two. Goals on the reference machine:
// 150 and 80 ms.
//
// Rounds of ours and of OpenCV's warpPerspective alternate: "ms" and "peer_ms" are the medians,
// "ratio" is how many times longer the peer takes. "grey_difference" is the mean difference of
// both results; the peer rounds its weights to 1/32 pixel. The whole routine, from file to file, is
// timed by itself.
#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

#include "bench_files.h"
#include "bench_inputs.h"
#include "closedlib/normalized_image.h"
#include "closedlib/parallel_tasks.h"
#include "round_times.h"
#include "solver/camera_model.h"

#ifdef SYLVOMEX_BENCH_OPENCV
#include <opencv2/core.hpp>
#include <opencv2/core/utility.hpp>
#include <opencv2/imgproc.hpp>
#endif

namespace sylvomex::bench {
namespace {

constexpr int kWidth = 7500, kHeight = 11500;
constexpr int kSeed = 72;
constexpr int kRowsOfATask = 16;
constexpr double kPixel = 9e-6, kDistance = 0.1;  // metres
constexpr double kMiddleCol = 3750, kMiddleRow = 5750;

using Bytes = std::vector<std::uint8_t>;

RotationMatrix Turn() { return Build_Rotation_Matrix(0.02, -0.015, 0.03); }

/// Columns and rows of source and target count from the frame's middle.
NormalizedImage Job() {
  const RotationMatrix m = Turn();
  NormalizedImage image;
  image.c = kDistance;
  image.width = image.full_width = kWidth;
  image.height = image.full_height = kHeight;
  image.PixelWidth = kPixel;
  image.Xmin = -kMiddleCol * kPixel;
  image.Ymax = kMiddleRow * kPixel;
  image.colour = true;
  image.affine = {1 / kPixel, 0, kMiddleCol, 0, 1 / kPixel, kHeight - 1 - kMiddleRow};
  image.matrix = {m.m11, m.m12, m.m13, m.m21, m.m22, m.m23, m.m31, m.m32, m.m33};
  return image;
}

struct Frame {
  Frame() : source(3 * std::size_t{kWidth} * kHeight), target(source.size()) {
    for (int row = 0; row < kHeight; ++row) {
      Fill_Frame_Row(kSeed, row,
                     std::span(source).subspan(3 * std::size_t{kWidth} * row, 3 * kWidth));
    }
  }
  Bytes source, target;
};

Frame& The_Frame() {
  static Frame frame;
  return frame;
}

void Resample(Frame& frame, int threads) {
  static const NormalizedImage image = Job();
  constexpr std::size_t kRow = 3 * std::size_t{kWidth};
  Run_Tasks((kHeight + kRowsOfATask - 1) / kRowsOfATask, threads, [&](int task) {
    const int first = task * kRowsOfATask;
    const int rows = std::min(kRowsOfATask, kHeight - first);
    Resample_Rows(image, frame.source, first, rows,
                  std::span(frame.target).subspan(kRow * first, kRow * rows));
  });
}

#ifdef SYLVOMEX_BENCH_OPENCV
/// Target pixel to source pixel, rows from the top.
cv::Matx33d Homography() {
  const RotationMatrix m = Turn();
  const cv::Matx33d turn(m.m11, m.m12, m.m13, m.m21, m.m22, m.m23, m.m31, m.m32, m.m33);
  const cv::Matx33d down(1, 0, 0, 0, -1, 0, 0, 0, -1);
  const double f = kDistance / kPixel;
  const cv::Matx33d camera(f, 0, kMiddleCol, 0, f, kMiddleRow, 0, 0, 1);
  return camera * down * turn * down * camera.inv();
}

class Peer {
 public:
  explicit Peer(Frame& frame)
      : source_(kHeight, kWidth, CV_8UC3, frame.source.data()), target_(kHeight, kWidth, CV_8UC3) {}

  void Warp() {
    cv::warpPerspective(source_, target_, homography_, target_.size(),
                        cv::INTER_LINEAR | cv::WARP_INVERSE_MAP, cv::BORDER_CONSTANT, 0);
  }

  [[nodiscard]] double Mean_Difference(const Bytes& ours) const {
    double sum = 0;
    for (std::size_t at = 0; at < ours.size(); at += 101) {
      sum += std::abs(int{ours[at]} - int{target_.data[at]});
    }
    return 101 * sum / static_cast<double>(ours.size());
  }

 private:
  cv::Mat source_, target_;
  cv::Matx33d homography_ = Homography();
};
#endif

void Colour_86_Mpx(benchmark::State& state) {
  const int threads = state.range(0) == 1 ? 1 : 0;
  Frame& frame = The_Frame();
  RoundTimes times;
  Resample(frame, threads);
#ifdef SYLVOMEX_BENCH_OPENCV
  cv::setNumThreads(static_cast<int>(state.range(0)));
  Peer peer(frame);
  peer.Warp();
  RoundTimes peer_times;
#endif
  for (auto unused : state) {
    times.Run([&] { Resample(frame, threads); });
#ifdef SYLVOMEX_BENCH_OPENCV
    peer_times.Run([&] { peer.Warp(); });
#endif
    state.SetIterationTime(times.Last_Seconds());
  }
  state.counters["ms"] = times.Wall();
#ifdef SYLVOMEX_BENCH_OPENCV
  state.counters["peer_ms"] = peer_times.Wall();
  state.counters["ratio"] = peer_times.Wall() / times.Wall();
  state.counters["grey_difference"] = peer.Mean_Difference(frame.target);
#endif
}
BENCHMARK(Colour_86_Mpx)
    ->Arg(1)
    ->Arg(2)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(9);

/// The older target is replaced as a whole.
void Whole_Routine(benchmark::State& state) {
  const auto source = Frame_File("frame_7500.raw", kWidth, kHeight, kSeed);
  const FilePath target{"normal.raw", Data_Folder() / "normal.raw"};
  const NormalizedImage image = Job();
  RoundTimes times;
  for (auto unused : state) {
    times.Run([&] { MYFUNC_CREATENORMALIZEDIMAGE(image, {"frame_7500.raw", source}, target); });
    state.SetIterationTime(times.Last_Seconds());
  }
  state.counters["ms"] = times.Wall();
  std::filesystem::remove(target.native);
}
BENCHMARK(Whole_Routine)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);

}  // namespace
}  // namespace sylvomex::bench
