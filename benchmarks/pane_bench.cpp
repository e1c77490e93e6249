// SPDX-License-Identifier: MIT
// A pane of 600 x 600 pixels from a colour file of 15000 x 15000, one thread, page cache warm. An
// iteration is a round over 64 random windows; all times are per pane.
//
// With a peer, rounds of ours and of the peer alternate in the same run: "ms" and "peer_ms" are
// their medians, "ratio" is peer time / our time. The same in processor time ("cpu_...") is more
// reliable on a machine with other load.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdio>
#include <exception>
#include <memory>
#include <vector>

#include "bench_files.h"
#include "bench_inputs.h"
#include "imageblock/bitmap_file.h"
#include "imageblock/pane_renderer.h"
#include "imageblock/raw_file_cache.h"
#include "pane_peers.h"
#include "platform/files.h"
#include "round_times.h"

namespace sylvomex::bench {
namespace {

constexpr int kRawSize = 15000;
constexpr int kPaneSize = 600;
constexpr int kLargestWindow = 6000;
constexpr int kWindows = 64;

struct Zoom {
  const char* name;
  int window_size;
  double factor;
  double checksum;  // sum of every 4001st byte of a pane, averaged over the windows
};

constexpr Zoom kZooms[] = {{"1_1", 600, 1.0, 34196.2188},
                           {"in_4_1", 150, 4.0, 34453.3594},
                           {"out_1_10", 6000, 0.1, 34119.3281}};

using Bytes = std::vector<std::uint8_t>;

PaneWindow Window(const Zoom& zoom, int index) {
  constexpr std::uint64_t kSeed = 81;
  constexpr std::uint64_t kRange = kRawSize - kLargestWindow;
  const auto word = 2 * static_cast<std::uint64_t>(index);
  return {static_cast<int>(Random_Word(kSeed, word) % kRange),
          static_cast<int>(Random_Word(kSeed, word + 1) % kRange), zoom.window_size};
}

double Checksum(const Bytes& bgr) {
  std::uint64_t sum = 0;
  for (std::size_t at = 0; at < bgr.size(); at += 4001) sum += bgr[at];
  return static_cast<double>(sum);
}

RenderRequest Request(const Zoom& zoom, const PaneWindow& window) {
  RenderRequest request;
  request.window = {window.col, window.raw_row, window.col + window.size - 1,
                    window.raw_row + window.size - 1};
  request.zoom_x = zoom.factor;
  request.zoom_y = zoom.factor;
  request.pane_width = kPaneSize;
  request.pane_height = kPaneSize;
  return request;
}

void Render(const MappedFile& file, const Zoom& zoom, int index, const GammaTable* gamma,
            PaneBitmap& out) {
  const FilePath path = file.File();
  RenderRequest request = Request(zoom, Window(zoom, index));
  if (gamma != nullptr) request.gamma = *gamma;
  Render_Colour({file.Bytes(), kRawSize, kRawSize, &path}, request, out);
}

/// Renders panes in sequence into the same bitmap and sums their checksums.
class Panes {
 public:
  explicit Panes(const MappedFile& file) : file_(file) {}

  void Ours(const Zoom& zoom, const GammaTable* gamma = nullptr) {
    sum_ = 0;
    for (int index = 0; index < kWindows; ++index) {
      Render(file_, zoom, index, gamma, out_);
      sum_ += Checksum(out_.bgr);
    }
  }

  void Peers(const Zoom& zoom, const PanePainter& paint) {
    sum_ = 0;
    out_.bgr.resize(3 * kPaneSize * kPaneSize);
    for (int index = 0; index < kWindows; ++index) {
      paint(Window(zoom, index), kPaneSize, out_.bgr);
      sum_ += Checksum(out_.bgr);
    }
  }

  [[nodiscard]] double Mean_Checksum() const { return sum_ / kWindows; }

 private:
  const MappedFile& file_;
  PaneBitmap out_;
  double sum_ = 0;
};

bool Right(benchmark::State& state, const Panes& panes, const Zoom& zoom) {
  if (std::fabs(panes.Mean_Checksum() - zoom.checksum) < 1e-3) return true;
  state.SkipWithError("wrong checksum");
  return false;
}

void Report(benchmark::State& state, const RoundTimes& times) {
  state.counters["ms"] = times.Wall();
  state.counters["cpu_ms"] = times.Cpu();
  state.counters["pane_bytes/s"] = 1000 * 3.0 * kPaneSize * kPaneSize / times.Wall();
}

void Time_Ours(benchmark::State& state, const MappedFile& file, const Zoom& zoom, double gamma) {
  const GammaTable table = Make_Gamma_Table(gamma);
  Panes panes(file);
  panes.Ours(zoom);
  if (!Right(state, panes, zoom)) return;
  RoundTimes times(kWindows);
  for (auto unused : state) {
    times.Run([&] { panes.Ours(zoom, gamma == 1 ? nullptr : &table); });
    state.SetIterationTime(times.Last_Seconds());
  }
  Report(state, times);
}

/// Maps the file again for each round, so that the page faults of first access are included.
void Time_Fresh(benchmark::State& state, const FilePath& path, const Zoom& zoom) {
  RoundTimes times(kWindows);
  for (auto unused : state) {
    times.Run([&] {
      const MappedFile fresh(path);
      Panes(fresh).Ours(zoom);
    });
    state.SetIterationTime(times.Last_Seconds());
  }
  Report(state, times);
}

void Time_Beside(benchmark::State& state, const MappedFile& file, const Zoom& zoom,
                 const PanePeer& peer) {
  Panes panes(file);
  panes.Ours(zoom);
  if (!Right(state, panes, zoom)) return;
  panes.Peers(zoom, peer.paint);
  state.counters["peer_checksum"] = panes.Mean_Checksum();
  RoundTimes times(kWindows);
  RoundTimes peer_times(kWindows);
  for (auto unused : state) {
    times.Run([&] { panes.Ours(zoom); });
    peer_times.Run([&] { panes.Peers(zoom, peer.paint); });
    state.SetIterationTime(times.Last_Seconds());
  }
  Report(state, times);
  state.counters["peer_ms"] = peer_times.Wall();
  state.counters["peer_cpu_ms"] = peer_times.Cpu();
  state.counters["ratio"] = peer_times.Wall() / times.Wall();
  state.counters["cpu_ratio"] = peer_times.Cpu() / times.Cpu();
}

/// The cost of a zoom to the operator: open, render, write the scratch bitmap, load it.
void Time_Whole(benchmark::State& state, const FilePath& raw, const Zoom& zoom) {
  const FilePath scratch{"pane.bmp", Data_Folder() / "pane.bmp"};
  RawFileCache cache;
  PaneBitmap out;
  RoundTimes times(kWindows);
  for (auto unused : state) {
    times.Run([&] {
      for (int index = 0; index < kWindows; ++index) {
        Render(cache.Open(raw), zoom, index, nullptr, out);
        Write_Pane_Bitmap(scratch, out);
        benchmark::DoNotOptimize(Load_Bitmap(scratch).bgr.data());
      }
    });
    state.SetIterationTime(times.Last_Seconds());
  }
  Report(state, times);
}

template <class... Arguments>
void Register(const std::string& name, Arguments&&... arguments) {
  benchmark::RegisterBenchmark(name.c_str(), std::forward<Arguments>(arguments)...)
      ->UseManualTime()
      ->Unit(benchmark::kMillisecond)
      ->Iterations(15);
}

void Register_All(const MappedFile& file, const std::vector<PanePeer>& peers) {
  for (const Zoom& zoom : kZooms) {
    const std::string name = std::string("pane/") + zoom.name;
    Register(name, [&](auto& state) { Time_Ours(state, file, zoom, 1.0); });
    Register(name + "/gamma", [&](auto& state) { Time_Ours(state, file, zoom, 0.5); });
    for (const PanePeer& peer : peers) {
      Register(name + "/beside_" + peer.name,
               [&](auto& state) { Time_Beside(state, file, zoom, peer); });
    }
    Register(name + "/fresh_mapping", [&](auto& state) { Time_Fresh(state, file.File(), zoom); });
    Register(name + "/zoom_whole", [&](auto& state) { Time_Whole(state, file.File(), zoom); });
  }
}

}  // namespace
}  // namespace sylvomex::bench

int main(int argc, char** argv) {
  using namespace sylvomex;
  using namespace sylvomex::bench;
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  try {
    const auto path = Frame_File("pane_15000.raw", kRawSize, kRawSize, 71);
    const MappedFile file({"pane_15000.raw", path});
    const std::vector<PanePeer> peers = Pane_Peers({path, file.Bytes(), kRawSize});
    Register_All(file, peers);
    benchmark::RunSpecifiedBenchmarks();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "bench_pane: %s\n", error.what());
    return 1;
  }
  return 0;
}
