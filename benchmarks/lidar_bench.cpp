// SPDX-License-Identifier: MIT
// Reading a tile of a million pulses into arrays, page cache warm, on one thread and on all; and
// the 2006 overlay as a command: a full tile of 100,000 pulses on six panes, including the reading.
//
// Rounds of a hand-written reader alternate with ours in the same run: it reads the file
// whole, then record by record into new arrays. lidar_peer_numpy.py measures NumPy on the
// same file. Times are medians in milliseconds; "cpu_ms" is the sum over all threads.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <exception>
#include <fstream>
#include <memory>
#include <vector>

#include "bench_files.h"
#include "commands/lidar/pulse_overlays.h"
#include "lidar/pulse_table.h"
#include "lidar_inputs.h"
#include "round_times.h"
#include "state/camera_access.h"

namespace sylvomex::bench {
namespace {

constexpr std::int32_t kPulses = 1'000'000;
constexpr std::int32_t kTilePulses = 100'000;
constexpr double kChecksum = 1.57198571e+11;  // slot 4's X + gain of every 16th pulse

double Checksum(std::span<const double> X, std::span<const std::uint8_t> gain) {
  double sum = 0;
  for (std::size_t i = 0; i < X.size(); i += 16) sum += X[i] + gain[i];
  return sum;
}

bool Right(benchmark::State& state, double checksum) {
  if (std::fabs(checksum / kChecksum - 1) < 1e-8) return true;
  state.SkipWithError("wrong checksum");
  return false;
}

// The fields of a record in separate arrays.
struct PlainArrays {
  std::vector<double> reals[20];
  std::vector<std::int16_t> shorts[5];
  std::vector<std::uint8_t> bytes[5];

  explicit PlainArrays(std::size_t count) {
    for (auto& array : reals) array.resize(count);
    for (auto& array : shorts) array.resize(count);
    for (auto& array : bytes) array.resize(count);
  }

  void Put(std::size_t i, const char* record) {
    std::memcpy(&bytes[0][i], record + 8, 1);
    for (std::size_t k = 0; k < 12; ++k) std::memcpy(&reals[k][i], record + 9 + 8 * k, 8);
    for (std::size_t k = 0; k < 4; ++k) std::memcpy(&shorts[k][i], record + 105 + 2 * k, 2);
    for (std::size_t k = 0; k < 5; ++k) std::memcpy(&reals[12 + k][i], record + 113 + 8 * k, 8);
    for (std::size_t k = 0; k < 3; ++k) std::memcpy(&reals[17 + k][i], record + 177 + 8 * k, 8);
    std::memcpy(&shorts[4][i], record + 201, 2);
    for (std::size_t k = 0; k < 4; ++k) std::memcpy(&bytes[1 + k][i], record + 203 + k, 1);
  }
};

double Read_Plainly(const FilePath& file) {
  std::ifstream in(file.native, std::ios::binary);
  std::int32_t count = 0;
  in.read(reinterpret_cast<char*>(&count), sizeof count);
  const auto pulses = static_cast<std::size_t>(count);
  const std::unique_ptr<char[]> records(new char[kPulseSize * pulses]);
  in.read(records.get(), static_cast<std::streamsize>(kPulseSize * pulses));
  PlainArrays arrays(pulses);
  for (std::size_t i = 0; i < pulses; ++i) arrays.Put(i, records.get() + kPulseSize * i);
  return Checksum(arrays.reals[9], arrays.bytes[2]);
}

void Report(benchmark::State& state, const RoundTimes& times) {
  state.counters["ms"] = times.Wall();
  state.counters["cpu_ms"] = times.Cpu();
}

void Time_Tile(benchmark::State& state, const FilePath& file, int threads) {
  PulseTable table;
  Read_Pulse_Tile(file, table, threads);
  if (!Right(state, Checksum(table.X(4), table.Gain())) || !Right(state, Read_Plainly(file))) {
    return;
  }
  RoundTimes times;
  RoundTimes plain_times;
  for (auto unused : state) {
    times.Run([&] { Read_Pulse_Tile(file, table, threads); });
    plain_times.Run([&] { benchmark::DoNotOptimize(Read_Plainly(file)); });
    state.SetIterationTime(times.Last_Seconds());
  }
  Report(state, times);
  state.counters["plain_ms"] = plain_times.Wall();
  state.counters["ratio"] = plain_times.Wall() / times.Wall();
}

// A screen that must never be asked.
class SilentScreen : public Screen {
 public:
  Answer Message_Box(std::string_view, Buttons, std::string_view) override { return Answer::Ok; }
  std::optional<std::string> Input_Box(std::string_view, std::string_view,
                                       std::string_view) override {
    return std::nullopt;
  }
  std::optional<std::string> File_Dialog(const FileQuestion&) override { return std::nullopt; }
  void Beep(int, int) override {}
  void Clear_Clipboard() override {}
  void Copy_To_Clipboard(const PaneBitmap&) override {}
  void Service_Events() override {}
  double Clock() override { return 0; }
  double Random() override { return 0; }
  void Report_Error(std::string_view, std::string_view, std::string_view) override {}
  void End_Session() override {}
};

void Add_Camera(Workspace& w) {
  const int k = w.ImageCount++;
  ImageRecord& image = w.ImageBlock(k);
  image.FullWidth = image.FullHeight = 12000;
  image.PrincipalDistance = 0.1;
  image.AffineA1 = image.AffineB2 = 1 / 9e-6;
  image.AffineA0 = image.AffineB0 = 6000;
  image.Omega = 0.004 * (k - 2);
  image.Phi = -0.003 * (k - 1);
  image.Kappa = 0.1 + 0.02 * k;
  image.X0 = kTileX + 50 + 100 * (k - 2);
  image.Y0 = kTileY + 50 - 70 * (k - 3);
  image.Z0 = 1365;
  Build_Rotation_Matrix(w, k);
  w.ImageKinds(k) = 1;
  w.PaneViews(k) = {5500, 5500, 600, 600, 0.5, 0.5};
}

std::filesystem::path Make_Site() {
  const std::filesystem::path site = Data_Folder() / "lidar_site";
  Make_Tile(site / "c/als2006/050_090.bin", kTilePulses);
  std::filesystem::create_directories(site / "c/data");
  std::ofstream(site / "c/data/als2006_path.hdr") << "c:\\als2006\\\n";
  std::ofstream map(site / "c/data/JetColorMAP.csv");
  for (int k = 1; k <= 64; ++k) map << k << ",0," << 255 - k << "\n";
  return site;
}

void Time_Overlay(benchmark::State& state) {
  SilentScreen screen;
  const auto w = std::make_unique<Workspace>(DriveMap(Make_Site()), screen);
  for (int k = 0; k < 6; ++k) Add_Camera(*w);
  w->Solution3D = {kTileX + 50, kTileY + 50, 180};
  RoundTimes times;
  for (auto unused : state) {
    for (Picture& pane : w->Form1.Picture1) pane.marks = {};
    times.Run([&] { Print_ALS_near_solution(*w); });
    state.SetIterationTime(times.Last_Seconds());
  }
  Report(state, times);
  state.counters["marks_a_pane"] = static_cast<double>(w->Form1.Picture1(0).marks.size());
}

template <class Function>
void Register(const char* name, Function&& function) {
  benchmark::RegisterBenchmark(name, std::forward<Function>(function))
      ->UseManualTime()
      ->Unit(benchmark::kMillisecond)
      ->Iterations(15);
}

}  // namespace
}  // namespace sylvomex::bench

int main(int argc, char** argv) {
  using namespace sylvomex;
  using namespace sylvomex::bench;
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  try {
    const FilePath tile{"tile_1M.bin", Data_Folder() / "tile_1M.bin"};
    Make_Tile(tile.native, kPulses);
    Register("tile/one_thread", [&](auto& state) { Time_Tile(state, tile, 1); });
    Register("tile/all_threads", [&](auto& state) { Time_Tile(state, tile, 0); });
    Register("overlay_2006/six_panes", [](auto& state) { Time_Overlay(state); });
    benchmark::RunSpecifiedBenchmarks();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "bench_lidar: %s\n", error.what());
    return 1;
  }
  return 0;
}
