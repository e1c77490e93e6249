// SPDX-License-Identifier: MIT
// Whole crown commands: the click of the multi-size measure on six photographs, and the list of
// 10,000 crowns over 400 tiles of 40,000 pulses, 3.3 GB, made once.
#include <benchmark/benchmark.h>

#include <cmath>
#include <fstream>
#include <memory>
#include <random>

#include "bench_files.h"
#include "commands/crowns/crown_intersection.h"
#include "commands/crowns/multi_size_click.h"
#include "commands/lidar/lidar_inputs.h"
#include "support/lidar_files.h"
#include "support/synthetic_block.h"

namespace sylvomex::bench {
namespace {

constexpr int kImages = 6;
constexpr int kColumns = 4000, kRows = 2000;  // of the raw files
constexpr int kTemplateSide = 61;             // pixels, of size 9
constexpr double kFactors[] = {0.4, 0.5, 0.6, 0.7, 0.75, 0.8, 0.85, 0.9, 1.0, 1.1, 1.2};

std::string Random_Bytes(std::size_t count, unsigned seed) {
  std::mt19937 random(seed);
  std::string bytes(count, '\0');
  for (char& byte : bytes) byte = static_cast<char>(random());
  return bytes;
}

// Six cameras 30 m apart around the tree, each with templates in eleven sizes.
std::unique_ptr<SyntheticBlock> Photographed_Tree() {
  auto b = std::make_unique<SyntheticBlock>();
  for (int k = 0; k < kImages; ++k) {
    b->Add_Camera(30.0 * k, 0, 1000);
    ImageRecord& record = b->w.ImageBlock(k);
    record.SubWidth = record.FullWidth = kColumns;
    record.SubHeight = record.FullHeight = kRows;
    record.AffineA0 = 2000;
    const std::string number = std::to_string(k);
    record.RawFileName = "c:\\data\\photo" + number + ".raw";
    b->folder.Write("c/data/photo" + number + ".raw",
                    Random_Bytes(std::size_t{3} * kColumns * kRows, static_cast<unsigned>(k)));
    for (int size = 1; size <= 11; ++size) {
      const int side = static_cast<int>(std::nearbyint(kTemplateSide * kFactors[size - 1]));
      const std::string name = "c/data/test_" + number + "_" + std::to_string(size);
      const std::string text = std::to_string(side), half = std::to_string(side / 2);
      b->folder.Write(name + ".img", text + " " + text + " " + half + " " + half + "\n");
      b->folder.Write(name + ".raw", Random_Bytes(static_cast<std::size_t>(side * side), 99));
    }
    b->w.Form1.Check1(k).Value = 1;
  }
  b->Observe_Film(0, 0, 0);
  return b;
}

void Multi_Size_Click_On_Six(benchmark::State& state) {
  const auto b = Photographed_Tree();
  for (auto _ : state) {
    b->w.Solution3D = {0, 0, 10};
    Multi_Size_Click(b->w, 0);
  }
}
BENCHMARK(Multi_Size_Click_On_Six)->Unit(benchmark::kMillisecond);

constexpr int kTilesASide = 20;
constexpr int kPulsesATile = 40000;
constexpr int kCrownsATile = 25;
constexpr double kWest = 2515000, kSouth = 6855000;

std::string Tile_Bytes(double west, double south, unsigned seed) {
  std::mt19937 random(seed);
  std::uniform_real_distribution<double> place(0, 100), height(100, 125);
  std::string bytes;
  bytes.reserve(std::size_t{4} + 207 * kPulsesATile);
  Append_Value(bytes, std::int32_t{kPulsesATile});
  for (int i = 0; i < kPulsesATile; ++i) {
    TestPulse pulse;
    for (int slot = 4; slot >= 4 - i % 3; --slot) {
      pulse.slot[slot] = {west + place(random), south + place(random), height(random), 40, 800};
    }
    bytes += pulse.Bytes();
  }
  return bytes;
}

// In the order of the tiles.
std::string Crown_Rows() {
  std::mt19937 random(3);
  std::uniform_real_distribution<double> place(3, 97);
  std::string rows;
  for (int tile = 0; tile < kTilesASide * kTilesASide; ++tile) {
    for (int i = 0; i < kCrownsATile; ++i) {
      rows += Format(kWest + 100 * (tile % kTilesASide) + place(random), "0.00") + "," +
              Format(kSouth + 100 * (tile / kTilesASide) + place(random), "0.00") +
              ",122.50,108.00,2,5\n";
    }
  }
  return rows;
}

void Make_Tiles(const std::filesystem::path& root) {
  std::filesystem::create_directories(root / "c" / "als");
  std::filesystem::create_directories(root / "c" / "data" / "exotics");
  for (int tile = 0; tile < kTilesASide * kTilesASide; ++tile) {
    const double west = kWest + 100 * (tile % kTilesASide);
    const double south = kSouth + 100 * (tile / kTilesASide);
    const std::string name = Tile_Name("", Campaign::Als2006, west + 50, south + 50);
    const auto file = root / "c" / "als" / name;
    if (std::filesystem::exists(file)) continue;
    std::ofstream(file, std::ios::binary) << Tile_Bytes(west, south, static_cast<unsigned>(tile));
  }
  std::ofstream(root / "c" / "data" / "als2006_path.hdr") << "c:\\als\\\n";
  std::ofstream(root / "c" / "data" / "exotics" / "Exotics.csv") << Crown_Rows();
}

double Peak_MB() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with("VmHWM:")) return std::stod(line.substr(6)) / 1024;
  }
  return 0;
}

void Crown_List_Of_10000(benchmark::State& state) {
  const std::filesystem::path root = Data_Folder() / "crown_list";
  Make_Tiles(root);
  RecordingScreen screen;
  const auto w = std::make_unique<Workspace>(DriveMap(root), screen);
  for (auto _ : state) Crown_Intersection_For_LiDAR(*w);
  state.counters["peak_MB"] = Peak_MB();
  state.counters["output_MB"] = static_cast<double>(std::filesystem::file_size(
                                    root / "c" / "data" / "exotics" / "Output.txt")) /
                                1e6;
}
BENCHMARK(Crown_List_Of_10000)->Unit(benchmark::kSecond)->Iterations(1);

}  // namespace
}  // namespace sylvomex::bench

BENCHMARK_MAIN();
